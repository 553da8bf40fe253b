#include "presetinterface.h"

#include "presetdefaults.h"
#include "storedvalue.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

#include <utility>

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
    const bool isInner = recalling;
    const QScopedValueRollback<bool> underWay(recalling, true);
    const int sync = syncNumber;
    int number = ++recallNumber;
    const int presetNum = currentPreset;
    if (!show(sync))
        return;
    if (number == recallNumber) {
        // Sent as it stands now: a change that came in just then must not be undone.
        const QStringList sent = keys.isEmpty() ? workingPreset(presetNum).keys() : keys;
        for (const QString& key : sent)
            sendParameter(key, workingPreset(presetNum).value(key));
    }
    // A newer recall that came in between has sent its preset already, but this one may have laid
    // its own over it on some of the pages.
    while (std::exchange(number, recallNumber) != recallNumber) {
        if (!show(sync))
            return;
    }
    // The outer one goes on laying its preset on the pages.
    if (isInner)
        return;
    emit signalConnectToSysexSending();
    emit signalPresetListEnabled(true);
    slotCheckSaveState(-1);
    // It may have been pasted into.
    if (currentPreset != presetNum)
        slotCheckSaveState(presetNum);
}

// Lays the current preset on the controls, which must not send meanwhile, and lets events pass, but
// no clicks and keys: what the user does next belongs to what the recall leaves. False if the
// mixer went.
bool PresetInterface::show(int sync)
{
    emit signalDisconnectFromSysexSending();
    emit signalPresetListEnabled(false);
    emit signalRecallPreset(workingPreset(currentPreset));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return sync == syncNumber;
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

void PresetInterface::sendUnsavedEdits(int presetNum)
{
    const QVariantMap saved = savedPreset(presetNum);
    const QVariantMap working = workingPreset(presetNum);
    if (working.isSharedWith(saved))
        return;
    emit signalStereoUpdatingStatus(false);
    for (auto value = working.cbegin(); value != working.cend(); ++value) {
        if (saved.value(value.key()) != value.value())
            sendParameter(value.key(), value.value());
    }
    emit signalStereoUpdatingStatus(true);
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
    // The library keeps what it holds; a byte beyond seven bits would be no data to the mixer.
    emit signalSendPresetParameter(jsonName,
                                   presetdefaults::bounded(jsonName, storedInt(value, jsonName)));
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
