#include "auxstrip.h"

#include "forms/outputforms.h"

#include <QDebug>

AuxStrip::AuxStrip(QWidget* page, int index)
    : ControlPage(page, QStringLiteral("Aux %1").arg(index + 1))
    , auxIndex(index)
{
    setObjectName(QStringLiteral("aux%1_").arg(index + 1));
    const AuxStripForm form(hostWidget(), spokenName(), index + 1);
    setGeometry(hostWidget()->geometry());
    adoptForm(AuxStripForm::controlRows(), AuxStripForm::buttonRows());
    for (QWidget* area : form.focusAreas)
        clearFocusOnPress(area);
    for (const Control& control : allControls())
        mirrorWire(control).connect();
}

Wire AuxStrip::mirrorWire(const Control& control)
{
    return control.wireTo(this, SLOT(slotPassValuestoChannelStrip()));
}

void AuxStrip::slotPassValuestoChannelStrip()
{
    if (const Control* control = controlOf(sender()); control != nullptr)
        emit signalPassValuestoChannelStrip(control->name(), auxIndex, control->value());
}

void AuxStrip::slotReceiveValuesfromChannelStrip(QString objName, int chNum, int value)
{
    const QString ownPart = QStringLiteral("aux%1_routing_").arg(auxIndex + 1);
    if (!objName.startsWith(ownPart))
        return;
    const QString target =
        QStringLiteral("ch%1_%2").arg(chNum + 1).arg(objName.sliced(ownPart.size()));
    const Control* control = controlNamed(target);
    if (control == nullptr) {
        qDebug() << "no control for" << objName << "of channel" << chNum + 1;
        return;
    }
    const WireCut cut(mirrorWire(*control));
    setControl(*control, value);
}
