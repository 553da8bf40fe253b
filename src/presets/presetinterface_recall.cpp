#include "presetinterface.h"

#include "presetdefaults.h"
#include "storedvalue.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace
{

// The mixer takes in no more than one parameter in this time.
constexpr int mixerPaceMs = 2;

} // namespace

void PresetInterface::slotRecallPreset(int i)
{
    emit signalStereoUpdatingStatus(false);
    if (i != -1)
        currentPreset = i;
    const int sync = syncNumber;
    if (demoMode || syncComplete)
        slotRecallPresetActions();
    if (sync == syncNumber)
        emit signalStereoUpdatingStatus(true);
    emit signalPresetDoneRecalling();
}

void PresetInterface::slotRecallPresetActions() { showAndSend({}); }

void PresetInterface::showAndSend(const QStringList& keys)
{
    const QScopedValueRollback<bool> underWay(recalling, true);
    emit signalDisconnectFromSysexSending(); // moving controls must not send
    emit signalPresetListEnabled(false);
    // What events bring in below may make another preset current; this recall stays with its own.
    const int presetNum = currentPreset;
    const int sync = syncNumber;
    emit signalRecallPreset(workingPreset(presetNum));
    QCoreApplication::processEvents();
    if (sync != syncNumber)
        return;
    // Sent as it stands now: a change that came in just then must not be undone.
    const QStringList sent = keys.isEmpty() ? workingPreset(presetNum).keys() : keys;
    for (const QString& key : sent)
        sendParameter(key, workingPreset(presetNum).value(key));
    emit signalConnectToSysexSending();
    emit signalPresetListEnabled(true);
    slotCheckSaveState(-1);
    // It may have been pasted into.
    if (currentPreset != presetNum)
        slotCheckSaveState(presetNum);
}

void PresetInterface::slotSendPreset(int presetLibraryNum)
{
    emit signalPresetListEnabled(false);
    emit signalStereoUpdatingStatus(false);
    if (presetLibraryNum == -1) {
        slotConstructDefaultMap();
        sendParameters(defaultMap);
    } else {
        sendParameters(savedPreset(presetLibraryNum));
    }
    slotCheckSaveState(presetLibraryNum);
    emit signalStereoUpdatingStatus(true);
    emit signalPresetListEnabled(true);
}

void PresetInterface::sendParameters(const QVariantMap& preset)
{
    for (auto parameter = preset.cbegin(); parameter != preset.cend(); ++parameter)
        sendParameter(parameter.key(), parameter.value());
}

void PresetInterface::sendParameter(const QString& jsonName, const QVariant& value)
{
    if (!presetdefaults::isPresetParameter(jsonName))
        return;
    emit signalSendPresetParameter(jsonName, storedInt(value, jsonName));
    waitForMixer();
}

// A busy wait on purpose: no event may run between two parameters.
void PresetInterface::waitForMixer()
{
    auto* const timer = new QTimer(this);
    timer->setInterval(demoMode ? 0 : mixerPaceMs);
    timer->start();
    while (timer->remainingTime() >= 1) { }
    timer->stop();
    timer->deleteLater();
}
