#pragma once

#include "frames.h"

#include <array>
#include <functional>

// The mixer's controls as a surface for other programs: eight faders with touch, mute, solo and
// record buttons, two bank buttons and the diamond, which is the transport. What moves and notes
// are is read in the MIDI map. Owned by the SimulatedMixer.
class ControlSurface
{
public:
    static constexpr int strips = 8;
    // The eight record buttons are 0 to 7.
    enum Button { BankLeft = strips, BankRight, Left, Up, Right, Down };
    static constexpr int buttons = Down + 1;
    static constexpr int mapBanks = 3;

    struct Callbacks {
        std::function<void(MixerPort, const QByteArray&)> send;
        // A global's value by its name.
        std::function<int(const QString&)> global;
    };
    explicit ControlSurface(Callbacks callbacks);

    // By hand. Strips count from 0; positions are 0 to 127.
    void moveFader(int strip, int position);
    void touch(int strip, bool touched);
    void pressMute(int strip);
    void pressSolo(int strip);
    // Down and up again; where the map makes the button a toggle, only the first counts.
    void press(int button, bool down);
    // Which bank of the map counts, from 1.
    void selectMapBank(int bank) { m_mapBank = bank; }

    // A control change or note of the host. A fader follows without a word, but not out of a hand.
    void receive(int kind, int channel, int number, int value);
    // Lights out and hands off.
    void powerUp();

    int mapBank() const { return m_mapBank; }
    int position(int strip) const { return m_positions[at(strip)]; }
    bool isTouched(int strip) const { return m_touched[at(strip)]; }
    bool isDown(int button) const { return m_down[at(button)]; }
    // Of bank left (0) and bank right (1).
    bool bankLight(int which) const { return m_bankLights[at(which)]; }

private:
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    int mapped(const QString& name) const;
    int channel() const;
    int faderNumber(int strip) const;
    int noteOf(int button) const;
    bool isToggle(int button) const;
    void sendState(int subtype, int strip, int value);
    void sendNote(int button, bool on);

    Callbacks m_callbacks;
    int m_mapBank = 1;
    std::array<int, strips> m_positions{};
    std::array<bool, strips> m_touched{};
    std::array<bool, buttons> m_down{};
    std::array<bool, buttons> m_toggled{};
    std::array<bool, 2> m_bankLights{};
};
