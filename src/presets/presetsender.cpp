#include "presetsender.h"

#include "presetdefaults.h"
#include "storedvalue.h"

#include <QTimer>

#include <utility>

namespace
{

// The mixer takes in no more than one parameter in this time.
constexpr int mixerPaceMs = 2;

} // namespace

PresetSender::PresetSender(QObject* parent, SendOne sendOne)
    : timerOwner(parent)
    , sendParameter(std::move(sendOne))
{
}

void PresetSender::sendAll(const QVariantMap& preset) const
{
    for (auto parameter = preset.cbegin(); parameter != preset.cend(); ++parameter)
        send(parameter.key(), parameter.value());
}

void PresetSender::sendThese(const QVariantMap& preset, const QStringList& keys) const
{
    for (const QString& key : keys)
        send(key, preset.value(key));
}

void PresetSender::send(const QString& jsonName, const QVariant& value) const
{
    if (!presetdefaults::isPresetParameter(jsonName))
        return;
    // A byte beyond seven bits would be no data to the mixer.
    sendParameter(jsonName, presetdefaults::bounded(jsonName, storedInt(value, jsonName)));
    waitForMixer();
}

void PresetSender::waitForMixer() const
{
    auto* const timer = new QTimer(timerOwner);
    timer->setInterval(demoMode ? 0 : mixerPaceMs);
    timer->start();
    while (timer->remainingTime() >= 1) { }
    timer->stop();
    timer->deleteLater();
}
