#pragma once

#include "parametertable.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>

// Sends parameters to the mixer, no faster than it takes them in: each is followed by a busy wait,
// since no event may run between two of them. PresetInterface has one, and the shell for the
// globals.
//
// What is no parameter of its store is passed over, and a value beyond the range of its control
// goes out as the nearest in it.
class ParameterSender
{
public:
    using SendOne = std::function<void(const QString& jsonName, int value)>;

    // parent: of the waits' timers.
    ParameterSender(QObject* parent, Parameter::Store store, SendOne sendOne);

    // In demo mode there is no mixer to wait for.
    void setDemoMode(bool enabled) { demoMode = enabled; }
    // In the order of the keys.
    void sendAll(const QVariantMap& values) const;
    // Only the values under these keys, in the order given.
    void sendThese(const QVariantMap& values, const QStringList& keys) const;

private:
    void send(const QString& jsonName, const QVariant& value) const;
    void waitForMixer() const;

    QObject* const timerOwner;
    const Parameter::Store store;
    const SendOne sendParameter;
    bool demoMode = false;
};
