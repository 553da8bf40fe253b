#include "faderframe.h"

#include "forms/faderframeform.h"
#include "selectalldoublespinbox.h"

#include <QToolButton>

namespace
{

bool isSolo(const QObject* button) { return button->objectName().endsWith(QLatin1String("_solo")); }

QString selectNameOf(const QObject* solo)
{
    return solo->objectName().replace(QLatin1String("_solo"), QLatin1String("_select"));
}

} // namespace

FaderFrame::FaderFrame(QWidget* parent, const ChannelSelection& selectedChannels)
    : PresetPage(parent, QStringLiteral("Faders"), {})
    , selection(selectedChannels)
{
    setObjectName(QStringLiteral("faderFrame"));
    resize(parent->size());
    hostWidget()->setObjectName(QStringLiteral("faderForm"));
    hostWidget()->resize(parent->size());
    const FaderFrameForm form(hostWidget());
    adoptForm(FaderFrameForm::controlRows(), FaderFrameForm::buttonRows());
    for (const Control& control : allControls())
        if (isSolo(control.object))
            connect(control.object, SIGNAL(released()), SLOT(slotSoloReleased()));
}

void FaderFrame::setToZero(const QObject* fader)
{
    const Control* control = controlOf(fader);
    auto* box = control != nullptr ? qobject_cast<SelectAllDoubleSpinbox*>(control->box) : nullptr;
    if (box == nullptr || !box->isEnabled())
        return;
    box->setValue(0);
    emit box->signalSetDial(0);
}

bool FaderFrame::changedByUser(const Control& control)
{
    if (control.object == pressedSolo && soloAlone)
        endOtherSolos(control.object);
    return true;
}

// The mixer is told of each; channels that are selected together keep theirs together.
void FaderFrame::endOtherSolos(const QObject* solo)
{
    const bool isSelected = selection.names().contains(selectNameOf(solo));
    for (const Control& control : allControls()) {
        const QObject* other = control.object;
        if (other == solo || !isSolo(other)
            || (isSelected && selection.names().contains(selectNameOf(other))))
            continue;
        const WireCut cut(storeWire(control));
        setControl(control, 0);
        emit signalStoreValue(keyOf(control), 0, -1);
    }
}

void FaderFrame::showOwnState(const Control& control)
{
    QToolButton* button = control.button();
    if (button == nullptr)
        return;
    QString style = QStringLiteral("background-color: grey;");
    if (button->isChecked() && button->text().contains(QLatin1Char('S')))
        style = QStringLiteral("background-color: rgb(255,255,0);");
    else if (button->isChecked() && button->text().contains(QLatin1Char('M')))
        style = QStringLiteral("background-color: rgb(255,0,0);");
    // A new sheet is dear, and is worked through even if it is the same again.
    if (button->styleSheet() != style)
        button->setStyleSheet(style);
}
