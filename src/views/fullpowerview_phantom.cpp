// Phantom power: a global parameter whose buttons stand on the first two strips.

#include "channelstrip.h"
#include "channelstriptab.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "presetdefaults.h"
#include "storedvalue.h"
#include "sysexmanager.h"

#include <QDebug>

namespace
{

const QString voltageKey = QStringLiteral("phantom_voltage");
const QStringList phantomKeys{QStringLiteral("ch1_phantom"), QStringLiteral("ch2_phantom")};

} // namespace

Wire FullPowerView::phantomWire()
{
    return {channelStripTab, SIGNAL(signalSendGlobalParameter(QString, int)), sysexManager,
            SLOT(slotSendGlobalParameters(QString, int))};
}

// A press reaches the mixer only while the wire is there, and would show what nobody heard.
void FullPowerView::connectPhantom(bool connected)
{
    if (connected)
        phantomWire().connect();
    else
        phantomWire().disconnect();
    for (qsizetype index = 0; index < phantomKeys.size(); ++index)
        channelStripTab->channelStrips().at(index)->setPhantomEnabled(connected);
}

void FullPowerView::showPhantom(const QString& key, int value)
{
    if (key == voltageKey && (value == 0 || value == 1)) {
        for (qsizetype index = 0; index < phantomKeys.size(); ++index)
            channelStripTab->channelStrips().at(index)->setPhantomVoltButton(value == 1);
    } else if (const auto index = phantomKeys.indexOf(key); index >= 0) {
        channelStripTab->channelStrips().at(index)->showPhantom(int{value != 0});
    }
}

void FullPowerView::slotShowGlobals(QVariantMap globals)
{
    for (const QString& key : phantomKeys + QStringList{voltageKey}) {
        const QVariant value = globals.value(key, presetdefaults::globals().value(key));
        showPhantom(key, storedInt(value, key));
    }
}

// The message goes by the strip's own wire; the shell's button follows.
void FullPowerView::slotPhantomPressed(QString name, int value)
{
    if (!globalPresetInterface->globalSaveTimer->isActive())
        globalPresetInterface->globalSaveTimer->start(1);
    globalPresetInterface->globalSaveTicks = 0;
    emit signalStoreGlobal(name, value);
    slotSetPhantom(static_cast<int>(phantomKeys.indexOf(name)), value);
}

void FullPowerView::slotSetPhantom(int channel, int state)
{
    qDebug() << "fullPower slotSetPhantom ch: " << channel << " state: " << state;
    emit signalSetPhantom(channel, state);
}
