#include "parametersender.h"

#include "storedvalue.h"

#include <QTimer>

#include <utility>

namespace
{

// The mixer takes in no more than one parameter in this time.
constexpr int mixerPaceMs = 2;

} // namespace

ParameterSender::ParameterSender(QObject* parent, Parameter::Store ofStore, SendOne sendOne)
    : timerOwner(parent)
    , store(ofStore)
    , sendParameter(std::move(sendOne))
{
}

void ParameterSender::sendAll(const QVariantMap& values) const
{
    for (auto parameter = values.cbegin(); parameter != values.cend(); ++parameter)
        send(parameter.key(), parameter.value());
}

void ParameterSender::sendThese(const QVariantMap& values, const QStringList& keys) const
{
    for (const QString& key : keys)
        send(key, values.value(key));
}

void ParameterSender::send(const QString& jsonName, const QVariant& value) const
{
    const Parameter* parameter = parametertable::find(jsonName);
    if (parameter == nullptr || parameter->store != store)
        return;
    // A byte beyond seven bits would be no data to the mixer.
    sendParameter(jsonName, parameter->bounded(storedInt(value, jsonName)));
    waitForMixer();
}

void ParameterSender::waitForMixer() const
{
    auto* const timer = new QTimer(timerOwner);
    timer->setInterval(demoMode ? 0 : mixerPaceMs);
    timer->start();
    while (timer->remainingTime() >= 1) { }
    timer->stop();
    timer->deleteLater();
}
