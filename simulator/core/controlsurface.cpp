#include "controlsurface.h"

namespace
{

constexpr int controlChange = 0xB0;
constexpr int noteOn = 0x90;
constexpr int fullVelocity = 127;

constexpr int touchState = 0x02;
constexpr int muteState = 0x11;
constexpr int soloState = 0x12;

// The buttons behind the record buttons: how the map names them, in a bank and for all banks.
struct ButtonName {
    const char* control;
    const char* ending;
};
constexpr std::array<ButtonName, 6> buttonNames{{
    {"button04", ""},
    {"button05", ""},
    {"diamond", "left_"},
    {"diamond", "up_"},
    {"diamond", "right_"},
    {"diamond", "down_"},
}};

QByteArray channelMessage(int kind, int channel, int number, int value)
{
    return QByteArray()
        .append(static_cast<char>(kind + channel - 1))
        .append(static_cast<char>(number))
        .append(static_cast<char>(value));
}

QString controlOf(int button)
{
    return button < ControlSurface::strips
        ? QStringLiteral("select%1").arg(button + 1)
        : QString::fromLatin1(
            buttonNames[static_cast<std::size_t>(button - ControlSurface::strips)].control);
}

} // namespace

ControlSurface::ControlSurface(Callbacks callbacks)
    : m_callbacks(std::move(callbacks))
{
}

int ControlSurface::mapped(const QString& name) const
{
    return m_callbacks.global(QStringLiteral("miditab_") + name);
}

int ControlSurface::channel() const
{
    return mapped(QStringLiteral("bank%1_channel").arg(m_mapBank));
}

int ControlSurface::faderNumber(int strip) const
{
    return mapped(QStringLiteral("fader%1_bank%2_cc").arg(strip + 1).arg(m_mapBank));
}

int ControlSurface::noteOf(int button) const
{
    const QString ending =
        button < strips ? QString() : QString::fromLatin1(buttonNames[at(button - strips)].ending);
    return mapped(
        QStringLiteral("%1_bank%2_%3note").arg(controlOf(button)).arg(m_mapBank).arg(ending));
}

bool ControlSurface::isToggle(int button) const
{
    return mapped(controlOf(button) + QStringLiteral("_toggle")) != 0;
}

void ControlSurface::moveFader(int strip, int position)
{
    m_positions[at(strip)] = position;
    m_callbacks.send(MixerPort::ControlSurface,
                     channelMessage(controlChange, channel(), faderNumber(strip), position));
}

void ControlSurface::sendState(int subtype, int strip, int value)
{
    m_callbacks.send(MixerPort::AudioControl,
                     frames::build(frames::Hui, {subtype, strip, 0, 0, 0, value}));
}

void ControlSurface::touch(int strip, bool touched)
{
    if (m_touched[at(strip)] == touched)
        return;
    m_touched[at(strip)] = touched;
    sendState(touchState, strip, touched);
}

void ControlSurface::pressMute(int strip) { sendState(muteState, strip, 1); }

void ControlSurface::pressSolo(int strip) { sendState(soloState, strip, 1); }

void ControlSurface::press(int button, bool down)
{
    if (m_down[at(button)] == down)
        return;
    m_down[at(button)] = down;
    if (!isToggle(button)) {
        sendNote(button, down);
    } else if (down) {
        m_toggled[at(button)] = !m_toggled[at(button)];
        sendNote(button, m_toggled[at(button)]);
    }
}

void ControlSurface::sendNote(int button, bool on)
{
    // Letting go of a bank button darkens both.
    if (!on && (button == BankLeft || button == BankRight))
        m_bankLights = {};
    m_callbacks.send(MixerPort::ControlSurface,
                     channelMessage(noteOn, channel(), noteOf(button), on ? fullVelocity : 0));
}

void ControlSurface::receive(int kind, int onChannel, int number, int value)
{
    if (onChannel != channel())
        return;
    for (int strip = 0; kind == controlChange && strip < strips; ++strip) {
        if (number == faderNumber(strip) && !m_touched[at(strip)])
            m_positions[at(strip)] = value;
    }
    for (const int button : {BankLeft, BankRight}) {
        if (kind == noteOn && number == noteOf(button))
            m_bankLights[at(button - BankLeft)] = value != 0;
    }
}

void ControlSurface::powerUp()
{
    m_touched = {};
    m_down = {};
    m_toggled = {};
    m_bankLights = {};
}
