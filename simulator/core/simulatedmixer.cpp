// The mixer's answers to the host, and its panel.
#include "simulatedmixer.h"

using frames::byteAt;

namespace
{

constexpr int largestWireValue = 16383;
constexpr int firstLight = 0x11;
constexpr int lastLight = 0x13;

bool canCarry(const Parameter& parameter, int value)
{
    if (parameter.isMapping())
        return value >= parameter.wireOffset && value <= 127 + parameter.wireOffset;
    return value >= 0 && value <= largestWireValue;
}

} // namespace

SimulatedMixer::SimulatedMixer(Callbacks callbacks)
    : m_callbacks(std::move(callbacks))
    , m_controls({m_callbacks.send, [this](const QString& name) {
                      return m_globals[static_cast<size_t>(globalTable().find(name))];
                  }})
{
    m_slots.fill(presetTable().factoryValues());
}

void SimulatedMixer::receive(MixerPort port, const QByteArray& message)
{
    if (port == MixerPort::ControlSurface) {
        receiveSurface(message);
        return;
    }
    if (!frames::isMixerMessage(message) || message.size() != frames::hostLength) {
        ignore(QStringLiteral("no message that the mixer knows"));
        return;
    }
    const auto at = [&message](int position) { return byteAt(message, position); };
    switch (at(5)) {
    case frames::Version:
        sendVersion();
        break;
    case frames::PresetParameter:
        receiveParameter(message, presetTable(), m_live);
        break;
    case frames::GlobalParameter:
        receiveParameter(message, globalTable(), m_globals);
        break;
    case frames::Mode:
        receiveMode(at(11));
        break;
    case frames::Channel:
        receiveChannel(at(11));
        break;
    case frames::SaveToSlot:
        receiveSave(at(6));
        break;
    case frames::SlotTransfer:
        receiveRequest(at(6), at(7));
        break;
    case frames::SaveGlobals:
        m_flash = m_globals;
        m_callbacks.tell(QStringLiteral("globals are in flash"));
        break;
    case frames::Updating:
        receiveUpdating(at(6), at(9));
        break;
    case frames::Restart:
        m_callbacks.restart();
        break;
    case frames::Hui:
        receiveHui(at(6), at(7), at(11));
        break;
    case frames::CommEnd:
        m_communicationEnded = true;
        break;
    default:
        ignore(QStringLiteral("no such message type"));
        break;
    }
}

void SimulatedMixer::receiveSurface(const QByteArray& message)
{
    const int status = byteAt(message, 0);
    const int kind = status & 0xF0;
    if (message.size() != 3 || (kind != 0x80 && kind != 0x90 && kind != 0xB0)) {
        ignore(QStringLiteral("nothing for the control surface"));
        return;
    }
    const SurfaceAddress address{kind == 0x80 ? 0x90 : kind, (status & 0x0F) + 1,
                                 byteAt(message, 1)};
    const int value = kind == 0x80 ? 0 : byteAt(message, 2);
    m_surface[address] = value;
    m_controls.receive(address.status, address.channel, address.number, value);
}

void SimulatedMixer::receiveParameter(const QByteArray& message, const ParameterTable& table,
                                      Values& values)
{
    if (const auto setting = table.read(message))
        values[static_cast<size_t>(setting->index)] = setting->value;
    else
        ignore(QStringLiteral("no such parameter"));
}

void SimulatedMixer::receiveMode(int mode)
{
    if (frames::modeName(mode).isEmpty()) {
        ignore(QStringLiteral("no such mode"));
        return;
    }
    m_mode = mode;
    // These four show a channel of their own.
    if (mode >= 10 && mode <= 13)
        m_channel = mode;
}

void SimulatedMixer::receiveChannel(int channel)
{
    if (channel < 0 || channel > 9)
        ignore(QStringLiteral("no such channel"));
    else
        m_channel = channel;
}

void SimulatedMixer::receiveSave(int slot)
{
    if (slot == frames::liveMemorySlot)
        m_callbacks.tell(QStringLiteral("the live memory is its own copy already"));
    else if (slot < 0 || slot > frames::liveMemorySlot)
        ignore(QStringLiteral("no such slot"));
    else
        saveToSlot(slot);
}

void SimulatedMixer::receiveRequest(int slot, int saveFlag)
{
    if (slot < 0 || slot > frames::liveMemorySlot) {
        ignore(QStringLiteral("no such slot"));
        return;
    }
    const Values& values =
        slot == frames::liveMemorySlot ? m_live : m_slots[static_cast<size_t>(slot)];
    send(frames::build(frames::SlotTransfer, {slot, 0, saveFlag}));
    for (int i = 0; i < presetTable().size(); ++i)
        send(presetTable()[i].message(values[static_cast<size_t>(i)]));
    const int told = m_endMarker == EndMarker::Other ? (slot + 1) % frames::slotCount : slot;
    const int times = m_endMarker == EndMarker::Never ? 0 : m_endMarker == EndMarker::Twice ? 2 : 1;
    for (int i = 0; i < times; ++i)
        send(frames::build(frames::SlotTransfer, {told, 1, saveFlag}));
}

void SimulatedMixer::receiveUpdating(int enable, int setting)
{
    if (enable > 1 || setting > 1)
        ignore(QStringLiteral("no such updating setting"));
    else
        (setting == 0 ? m_dspUpdating : m_stereoUpdating) = enable == 1;
}

void SimulatedMixer::receiveHui(int subtype, int channel, int on)
{
    if (subtype < firstLight || subtype > lastLight || channel > 7 || on > 1) {
        ignore(QStringLiteral("no such light"));
        return;
    }
    m_lights[static_cast<size_t>(subtype - firstLight)][static_cast<size_t>(channel)] = on == 1;
}

const SimulatedMixer::Lights& SimulatedMixer::lights(int subtype) const
{
    return m_lights[static_cast<size_t>(subtype - firstLight)];
}

void SimulatedMixer::sendVersion()
{
    m_communicationEnded = false;
    if (!m_answersVersion) {
        m_callbacks.tell(QStringLiteral("mute: no answer"));
        return;
    }
    send(frames::build(frames::Version,
                       {0, 0, 0, m_firmware.major, m_firmware.minor, m_firmware.patch}));
}

void SimulatedMixer::ignore(const QString& why)
{
    m_callbacks.tell(QStringLiteral("ignored: ") + why);
}

bool SimulatedMixer::turn(int presetIndex, int value)
{
    const Parameter& parameter = presetTable()[presetIndex];
    if (!canCarry(parameter, value))
        return false;
    m_live[static_cast<size_t>(presetIndex)] = value;
    send(parameter.message(value));
    return true;
}

bool SimulatedMixer::turnGlobal(int globalIndex, int value)
{
    const Parameter& parameter = globalTable()[globalIndex];
    if (!canCarry(parameter, value))
        return false;
    m_globals[static_cast<size_t>(globalIndex)] = value;
    send(parameter.message(value));
    return true;
}

bool SimulatedMixer::selectMode(int mode)
{
    if (frames::modeName(mode).isEmpty())
        return false;
    receiveMode(mode);
    send(frames::build(frames::Mode, {mode}));
    return true;
}

bool SimulatedMixer::selectChannel(int channel)
{
    if (frames::channelName(channel).isEmpty())
        return false;
    m_channel = channel;
    send(frames::build(frames::Channel, {channel}));
    return true;
}

void SimulatedMixer::goToSync() { send(frames::build(frames::GoToSync, {})); }

void SimulatedMixer::saveToSlot(int slot)
{
    m_slots[static_cast<size_t>(slot)] = m_live;
    m_callbacks.tell(QStringLiteral("the live memory is saved to ") + frames::slotName(slot));
}

void SimulatedMixer::recallSlot(int slot)
{
    goToSync();
    const Values& values = m_slots[static_cast<size_t>(slot)];
    for (int i = 0; i < presetTable().size(); ++i) {
        const auto at = static_cast<size_t>(i);
        if (m_live[at] == values[at])
            continue;
        m_live[at] = values[at];
        send(presetTable()[i].message(values[at]));
    }
}

void SimulatedMixer::setSlotValue(int slot, int presetIndex, int value)
{
    m_slots[static_cast<size_t>(slot)][static_cast<size_t>(presetIndex)] = value;
}

void SimulatedMixer::setSlot(int slot, const Values& values)
{
    m_slots[static_cast<size_t>(slot)] = values;
}

void SimulatedMixer::powerUp()
{
    m_globals = m_flash;
    m_dspUpdating = true;
    m_stereoUpdating = true;
    m_communicationEnded = false;
    m_lights = {};
    m_surface.clear();
    m_controls.powerUp();
}

SimulatedMixer::Values SimulatedMixer::randomValues(const ParameterTable& table, quint32 seed)
{
    // An own generator: the numbers of a seed must be the same on every system.
    quint32 state = seed * 2654435761U + 1;
    const auto next = [&state] {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return state;
    };
    if (state == 0)
        state = 1;
    Values values;
    for (const Parameter& row : table.rows()) {
        const auto span = static_cast<quint32>(row.maximum - row.minimum + 1);
        values.push_back(row.minimum + static_cast<int>((next() >> 8) % span));
    }
    return values;
}
