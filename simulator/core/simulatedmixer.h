#pragma once

#include "controlsurface.h"
#include "firmwareversion.h"
#include "frames.h"
#include "parametertable.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <map>
#include <vector>

// The mixer itself, without ports, files or time: bytes in, bytes out through a callback. Owned by
// the Simulator. Parameter values are kept as they came over the wire, on and off as 1 and 0.
class SimulatedMixer
{
public:
    using Values = std::vector<int>; // in the order of its table
    using Lights = std::array<bool, 8>;

    // Called back: to send a message to the host, to go off and come back, and to tell in words
    // what happened.
    struct Callbacks {
        std::function<void(MixerPort, const QByteArray&)> send;
        std::function<void()> restart;
        std::function<void(const QString&)> tell;
    };

    struct SurfaceAddress {
        int status;  // 0x90 for a note, 0xB0 for a control change
        int channel; // from 1
        int number;
        auto operator<=>(const SurfaceAddress&) const = default;
    };

    // What tells the host that a slot has been sent whole. All but Once are faults to try a host
    // with; Other names another slot.
    enum class EndMarker { Once, Twice, Never, Other };

    explicit SimulatedMixer(Callbacks callbacks);

    // From the host. Anything that the mixer would not understand is told of and changes nothing.
    void receive(MixerPort port, const QByteArray& message);

    // As if on the panel: what changes here is sent to the host. Values that the wire cannot carry
    // (below 0, above 16383, for a mapping above 127 less its offset) are refused with false, as
    // are modes and channels that do not exist.
    bool turn(int presetIndex, int value);
    bool turnGlobal(int globalIndex, int value);
    bool selectMode(int mode);
    bool selectChannel(int channel);
    void goToSync();
    // Slots 0 to 11. A recall tells the host of each value that it changes in the live memory.
    void saveToSlot(int slot);
    void recallSlot(int slot);

    // Below the panel: nothing is sent.
    void setSlotValue(int slot, int presetIndex, int value);
    void setSlot(int slot, const Values& values);
    void setLive(const Values& values) { m_live = values; }
    void setFirmware(const FirmwareVersion& version) { m_firmware = version; }
    void setAnswersVersion(bool answers) { m_answersVersion = answers; }
    void setEndMarker(EndMarker marker) { m_endMarker = marker; }
    // What a restart does inside: globals as the flash has them, updating on, lights out.
    void powerUp();

    // A legal value for every parameter; the same for the same seed.
    static Values randomValues(const ParameterTable& table, quint32 seed);
    // What a new mixer has in its live memory: a mix to look at. All else begins with factory
    // values.
    static Values startingMix();

    const Values& live() const { return m_live; }
    const Values& slot(int number) const { return m_slots[static_cast<size_t>(number)]; }
    const Values& globals() const { return m_globals; }
    const Values& flash() const { return m_flash; }
    const FirmwareVersion& firmware() const { return m_firmware; }
    int mode() const { return m_mode; }
    int channel() const { return m_channel; }
    bool dspUpdating() const { return m_dspUpdating; }
    bool stereoUpdating() const { return m_stereoUpdating; }
    bool communicationEnded() const { return m_communicationEnded; }
    bool answersVersion() const { return m_answersVersion; }
    const Lights& lights(int subtype) const;
    // The last value that the host sent to each fader, rotary and button light of the control
    // surface.
    const std::map<SurfaceAddress, int>& surface() const { return m_surface; }
    ControlSurface& controls() { return m_controls; }
    const ControlSurface& controls() const { return m_controls; }

    // The part of the state file that is the mixer's. Values equal to the factory's are left out of
    // it. Reading takes what is usable and returns a line for each thing that is not.
    QJsonObject toJson() const;
    QStringList fromJson(const QJsonObject& section);

private:
    void receiveSurface(const QByteArray& message);
    void receiveParameter(const QByteArray& message, const ParameterTable& table, Values& values);
    void receiveMode(int mode);
    void receiveChannel(int channel);
    void receiveSave(int slot);
    void receiveRequest(int slot, int saveFlag);
    void receiveUpdating(int enable, int setting);
    void receiveHui(int subtype, int channel, int on);
    void ignore(const QString& why);
    void sendVersion();
    void send(const QByteArray& message) { m_callbacks.send(MixerPort::AudioControl, message); }

    Callbacks m_callbacks;
    Values m_live = startingMix();
    std::array<Values, frames::slotCount> m_slots;
    Values m_globals = globalTable().factoryValues();
    Values m_flash = m_globals;
    FirmwareVersion m_firmware;
    int m_mode = 0;
    int m_channel = 1;
    bool m_dspUpdating = true;
    bool m_stereoUpdating = true;
    bool m_communicationEnded = false;
    bool m_answersVersion = true;
    EndMarker m_endMarker = EndMarker::Once;
    std::array<Lights, 3> m_lights{}; // mute, solo, record
    std::map<SurfaceAddress, int> m_surface;
    ControlSurface m_controls;
};
