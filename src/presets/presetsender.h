#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>

// Sends parameters to the mixer, no faster than it takes them in: each is followed by a busy wait,
// since no event may run between two of them. PresetInterface owns it.
//
// What is no parameter of the mixer is passed over, and a value beyond the range of its control
// goes out as the nearest in it.
class PresetSender
{
public:
    using SendOne = std::function<void(const QString& jsonName, int value)>;

    // parent: of the waits' timers.
    PresetSender(QObject* parent, SendOne sendOne);

    // In demo mode there is no mixer to wait for.
    void setDemoMode(bool enabled) { demoMode = enabled; }
    // In the order of the keys.
    void sendAll(const QVariantMap& preset) const;
    // Only the values that the preset has under these keys, in the order given.
    void sendThese(const QVariantMap& preset, const QStringList& keys) const;

private:
    void send(const QString& jsonName, const QVariant& value) const;
    void waitForMixer() const;

    QObject* const timerOwner;
    const SendOne sendParameter;
    bool demoMode = false;
};
