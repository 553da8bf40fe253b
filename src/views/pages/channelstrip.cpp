#include "channelstrip.h"

#include "forms/channelstripform.h"
#include "storedvalue.h"

#include <QDebug>
#include <QFrame>
#include <QSignalBlocker>
#include <QToolButton>

namespace
{

// Where the channel's digit stands in a key, after "channelstrip_ch".
constexpr int channelPlace = 15;

const QString stereoName = QStringLiteral("stereo");

int partnerOf(int index) { return index % 2 == 0 ? index + 2 : index; }

bool isStereo(const ButtonRow* row) { return row != nullptr && row->name == stereoName; }

QString phantomStyle(bool on)
{
    return on ? QStringLiteral("background-color: rgb(255,0,0); font: 9pt;")
              : QStringLiteral("background-color: grey; font: 9pt;");
}

bool isAuxControl(const QString& name) { return name.contains(QLatin1String("_routing_")); }

} // namespace

ChannelStrip::ChannelStrip(QWidget* page, int index, const ChannelSelection& shared,
                           const Tables& displayTables)
    : PresetPage(page, QStringLiteral("Channel %1").arg(index + 1), page->objectName())
    , channelIndex(index)
    , selection(shared)
    , tables(displayTables)
    , partner(partnerOf(index))
    , firstOfPair(index % 2 == 0)
{
    setObjectName(QStringLiteral("ch%1_").arg(channel()));
    trimTable = tables.trim;

    const ChannelStripForm form(hostWidget(), spokenName(), channel(), qMin(channel(), partner));
    setGeometry(hostWidget()->geometry());
    routing = form.routing;
    phantom = form.phantom;
    adoptForm(ChannelStripForm::controlRows(channel()), ChannelStripForm::buttonRows());
    for (QWidget* area : form.focusAreas)
        clearFocusOnPress(area);

    auxDisableWidget = new QWidget(this);
    auxDisableWidget->setObjectName(QStringLiteral("auxDisableWidget"));
    auxDisableWidget->setGeometry(routing->geometry());
    auxDisableWidget->setStyleSheet(QStringLiteral("background-color: rgba(95,95,95,110);"));
    auxDisableWidget->hide();

    const bool hasPhantom = channels::hasPhantom(channel());
    phantom->setVisible(hasPhantom);
    if (!hasPhantom)
        phantom->setFocusPolicy(Qt::NoFocus);
    setPhantomVoltButton(true);
    phantom->setStyleSheet(phantomStyle(false));
    connect(phantom, SIGNAL(toggled(bool)), SLOT(slotUpdatePhantomButton()));

    slotConnectAuxParams();
}

// Stereo pairs

bool ChannelStrip::changedByUser(const Control& control)
{
    if (!isStereo(control.buttonRow))
        return true;
    const bool paired = control.value() != 0;
    if (paired)
        deselectForPairing();
    else
        deselectForUnpairing();
    emit signalPassStereoStateUpdate(paired);
    return firstOfPair;
}

bool ChannelStrip::isSent(const Control& control) const
{
    return firstOfPair || !isStereo(control.buttonRow);
}

void ChannelStrip::deselectForPairing()
{
    if (!selection.holds(channel()) || !selection.holds(partner))
        return;
    emit signalDeselectChannel(selection.endsWith(partner) ? channel() : partner);
}

void ChannelStrip::deselectForUnpairing()
{
    if (selection.holds(channel()) || selection.holds(partner))
        emit signalDeselectAll();
}

void ChannelStrip::slotGetStereoStateUpdate(bool enabled)
{
    controlNamed(stereoName)->button()->setChecked(enabled);
}

// From the mixer and the store

void ChannelStrip::slotReceiveChannelStripParams(QString jsonName, int value)
{
    // Eight strips hear every message; cutting the wires of those that it is not for would cost
    // more than all the rest.
    const QString name = nameIn(jsonName);
    if (name.isEmpty())
        return;
    if (name == phantom->objectName()) {
        // Phantom power is a global parameter; its button would tell the mixer.
        qDebug() << "no parameter of a preset:" << jsonName;
        return;
    }
    // Selected channels may lead this one's control back.
    const SendingCut cut(this);
    forwardToSelection(jsonName, value);
    if (name.contains(QLatin1String("group")))
        return;
    if (name == stereoName)
        receiveStereo(*controlNamed(name), value != 0);
    else
        receive(jsonName, value);
}

void ChannelStrip::receiveStereo(const Control& control, bool paired)
{
    const bool moves = control.value() != int{paired};
    setControl(control, int{paired});
    if (paired)
        deselectForPairing();
    else
        deselectForUnpairing();
    emit signalPassStereoStateUpdate(paired);
    if (!moves && firstOfPair && isStoring())
        store(control, int{paired});
}

void ChannelStrip::forwardToSelection(const QString& jsonName, int value)
{
    const QList<int> others = selection.channelsAfter(channel());
    for (const int other : others) {
        QString name = jsonName;
        name.replace(channelPlace, 1, QString::number(other));
        emit signalLetOneChannelEffectAnother(name, value);
    }
}

void ChannelStrip::slotLetOneChannelEffectAnother(QString jsonName, int value)
{
    const QString name = nameIn(jsonName);
    if (name.isEmpty() || name.contains(QLatin1String("group")))
        return;
    const Control* control = controlNamed(name);
    if (control == nullptr) {
        qDebug() << "no control for" << jsonName;
        return;
    }
    slotDisconnectElements();
    // A linked pair button only says what the other is, and stays as it is.
    if (isStereo(control->buttonRow))
        control->button()->setText(value != 0 ? control->buttonRow->textOn
                                              : control->buttonRow->textOff);
    else
        setControl(*control, value);
    slotConnectElements();
}

std::optional<int> ChannelStrip::recalled(const Control& control, const QVariantMap& preset) const
{
    if (isStereo(control.buttonRow)) {
        // Only the first channel of a pair has the key.
        const QString key =
            QStringLiteral("channelstrip_ch%1_stereo").arg(qMin(channel(), partner));
        return storedInt(preset.value(key), key);
    }
    // No preset holds phantom power, and a recall must not switch it.
    if (control.object == phantom && !preset.contains(keyOf(control)))
        return std::nullopt;
    return PresetPage::recalled(control, preset);
}

// The aux pages

Wire ChannelStrip::auxWire(const Control& control)
{
    return control.wireTo(this, SLOT(slotPassValuestoAuxStrip()));
}

void ChannelStrip::slotConnectAuxParams()
{
    for (const Control& control : allControls())
        if (isAuxControl(control.name()))
            auxWire(control).connect();
}

void ChannelStrip::slotPassValuestoAuxStrip()
{
    if (const Control* control = controlOf(sender()); control != nullptr)
        emit signalPassValuestoAuxStrip(control->name(), channelIndex, control->value());
}

void ChannelStrip::slotReceiveValuesfromAuxStrip(QString objName, int auxNum, int value)
{
    const QString ownPart = QStringLiteral("ch%1_").arg(channel());
    if (!objName.startsWith(ownPart))
        return;
    const QString aux = QString::number(qint64{auxNum} + 1);
    const QString target =
        QStringLiteral("aux%1_routing_%2").arg(aux, objName.sliced(ownPart.size()));
    const Control* control = controlNamed(target);
    if (control == nullptr) {
        qDebug() << "no control for" << objName << "of aux" << aux;
        return;
    }
    const WireCut cut(auxWire(*control));
    setControl(*control, value);
}

void ChannelStrip::slotSetAuxTabLocking(bool locked)
{
    if (locked) {
        auxDisableWidget->show();
        auxDisableWidget->raise();
    }
    const QList<QWidget*> sends = routing->findChildren<QWidget*>();
    for (QWidget* widget : sends)
        widget->setEnabled(!locked);
    if (!locked)
        auxDisableWidget->close();
}

// Phantom power

void ChannelStrip::slotUpdatePhantomButton()
{
    phantom->setStyleSheet(phantomStyle(phantom->isChecked()));
    if (ignoreNextPhantom) {
        // Nothing sets the flag yet: the way to pass over one change.
        qDebug() << "chstrip ignore next phantom";
        ignoreNextPhantom = false;
        return;
    }
    if (channels::hasPhantom(channel()))
        emit signalSendGlobalParameter(QStringLiteral("ch%1_phantom").arg(channel()),
                                       int{phantom->isChecked()});
}

void ChannelStrip::slotSetPhantom(int state)
{
    if (state == int{phantom->isChecked()}) {
        qDebug() << "chrstrip setphantom duplicate";
        return;
    }
    phantom->setChecked(state != 0);
}

void ChannelStrip::showPhantom(int state)
{
    const QSignalBlocker quiet(phantom);
    slotSetPhantom(state);
    phantom->setStyleSheet(phantomStyle(phantom->isChecked()));
}

void ChannelStrip::setPhantomEnabled(bool enabled) { phantom->setEnabled(enabled); }

void ChannelStrip::setPhantomVoltButton(bool voltage)
{
    phantom->setText(voltage ? QStringLiteral("48v") : QStringLiteral("12v"));
}
