#include "commands.h"

#include "statereport.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>

using lineparts::error;
using lineparts::number;
using lineparts::ok;

namespace
{

constexpr int longestDelayMs = 600'000;

std::optional<int> parameterValue(const QString& word)
{
    if (word == QLatin1String("true") || word == QLatin1String("on"))
        return 1;
    if (word == QLatin1String("false") || word == QLatin1String("off"))
        return 0;
    return number(word, 0, 16383);
}

Commands::Reply noNumber(const QString& word)
{
    return error(QStringLiteral("\"%1\" is no number in range").arg(word));
}

} // namespace

const std::vector<lineparts::Command<Commands>>& Commands::all()
{
    static const std::vector<lineparts::Command<Commands>> commands{
        {"set", "set NAME VALUE", &Commands::set, 2, 2},
        {"global", "global NAME VALUE", &Commands::setGlobal, 2, 2},
        {"map", "map NAME VALUE", &Commands::setMapping, 2, 2},
        {"mode", "mode N", &Commands::mode, 1, 1},
        {"channel", "channel N", &Commands::channel, 1, 1},
        {"sync", "sync", &Commands::sync, 0, 0},
        {"cc", "cc CHANNEL NUMBER VALUE", &Commands::controlChange, 3, 3},
        {"note", "note CHANNEL NUMBER VELOCITY", &Commands::note, 3, 3},
        {"hui", "hui SUBTYPE CHANNEL VALUE", &Commands::hui, 3, 3},
        {"surface", "surface fader|touch|mute|solo|record|bank|transport|map WHICH [VALUE]",
         &Commands::surface, 2, 3},
        {"raw", "raw HEX[*COUNT]...", &Commands::raw, 1, lineparts::anyNumber},
        {"unplug", "unplug", &Commands::unplug, 0, 0},
        {"plug", "plug [inputs-first MS | outputs-first MS]", &Commands::plug, 0, 2},
        {"restart", "restart", &Commands::restart, 0, 0},
        {"state", "state [NAME]", &Commands::state, 0, 1},
        {"firmware", "firmware VERSION | firmware fail MODE", &Commands::firmware, 1, 3},
        {"mute-version", "mute-version on|off", &Commands::muteVersion, 1, 1},
        {"end-marker", "end-marker once|twice|never|other", &Commands::endMarker, 1, 1},
        {"randomise", "randomise SEED", &Commands::randomise, 1, 1},
        {"slot", "slot LETTER [NAME [VALUE] | save | recall | factory | randomise SEED]",
         &Commands::slot, 1, 3},
        {"quit", "quit", &Commands::quit, 0, 0},
    };
    return commands;
}

Commands::Reply Commands::run(const QString& line) { return lineparts::run(*this, all(), line); }

Commands::Reply Commands::sent() const
{
    return ok(m_simulator.isPlugged() ? QStringLiteral("ok")
                                      : QStringLiteral("ok, but unplugged: nothing is sent"));
}

Commands::Reply Commands::set(const Words& words)
{
    const int index = presetTable().find(words[0]);
    if (index < 0)
        return error(QStringLiteral("no preset parameter \"%1\"").arg(words[0]));
    const auto value = parameterValue(words[1]);
    if (!value || !m_simulator.mixer().turn(index, *value))
        return noNumber(words[1]);
    m_simulator.touch();
    return sent();
}

Commands::Reply Commands::setGlobal(const Words& words) { return turnGlobal(words, false); }

Commands::Reply Commands::setMapping(const Words& words) { return turnGlobal(words, true); }

Commands::Reply Commands::turnGlobal(const Words& words, bool mapping)
{
    const int index = globalTable().find(words[0]);
    if (index < 0 || globalTable()[index].isMapping() != mapping) {
        return error(
            QStringLiteral("no %1 \"%2\"")
                .arg(mapping ? QStringLiteral("mapping") : QStringLiteral("global parameter"),
                     words[0]));
    }
    const auto value = parameterValue(words[1]);
    if (!value || !m_simulator.mixer().turnGlobal(index, *value))
        return noNumber(words[1]);
    m_simulator.touch();
    return sent();
}

Commands::Reply Commands::mode(const Words& words)
{
    const auto value = number(words[0], 0, 127);
    if (!value || !m_simulator.mixer().selectMode(*value))
        return error(QStringLiteral("no mode %1").arg(words[0]));
    m_simulator.touch();
    return sent();
}

Commands::Reply Commands::channel(const Words& words)
{
    const auto value = number(words[0], 0, 127);
    if (!value || !m_simulator.mixer().selectChannel(*value))
        return error(QStringLiteral("no channel %1").arg(words[0]));
    m_simulator.touch();
    return sent();
}

Commands::Reply Commands::sync(const Words&)
{
    m_simulator.mixer().goToSync();
    return sent();
}

namespace
{

// Three bytes from the control surface; the channel counts from 1.
std::optional<QByteArray> surfaceMessage(int status, const QStringList& words)
{
    const auto channel = number(words[0], 1, 16);
    const auto first = number(words[1], 0, 127);
    const auto second = number(words[2], 0, 127);
    if (!channel || !first || !second)
        return {};
    return QByteArray()
        .append(static_cast<char>(status + *channel - 1))
        .append(static_cast<char>(*first))
        .append(static_cast<char>(*second));
}

} // namespace

Commands::Reply Commands::controlChange(const Words& words)
{
    const auto message = surfaceMessage(0xB0, words);
    if (!message)
        return error(QStringLiteral("channel 1 to 16, number and value 0 to 127"));
    m_simulator.send(MixerPort::ControlSurface, *message);
    return sent();
}

Commands::Reply Commands::note(const Words& words)
{
    const auto message = surfaceMessage(0x90, words);
    if (!message)
        return error(QStringLiteral("channel 1 to 16, number and velocity 0 to 127"));
    m_simulator.send(MixerPort::ControlSurface, *message);
    return sent();
}

Commands::Reply Commands::hui(const Words& words)
{
    const auto subtype = number(words[0], 0, 127);
    const auto channel = number(words[1], 0, 127);
    const auto value = number(words[2], 0, 127);
    if (!subtype || !channel || !value)
        return error(QStringLiteral("three numbers of 0 to 127"));
    m_simulator.send(MixerPort::AudioControl,
                     frames::build(frames::Hui, {*subtype, *channel, 0, 0, 0, *value}));
    return sent();
}

Commands::Reply Commands::raw(const Words& words)
{
    const auto bytes = lineparts::bytes(words);
    if (!bytes)
        return error(QStringLiteral("bytes as pairs of hexadecimal digits, at most %1 in all")
                         .arg(lineparts::longestBytes));
    m_simulator.send(MixerPort::AudioControl, *bytes);
    return sent();
}

Commands::Reply Commands::unplug(const Words&)
{
    m_simulator.unplug();
    return ok();
}

Commands::Reply Commands::plug(const Words& words)
{
    auto arrival = Simulator::Arrival::Together;
    int between = 0;
    if (!words.isEmpty()) {
        const bool inputs = words[0] == QLatin1String("inputs-first");
        const auto delay = words.size() == 2 ? number(words[1], 1, longestDelayMs) : std::nullopt;
        if ((!inputs && words[0] != QLatin1String("outputs-first")) || !delay)
            return error(QStringLiteral("usage: plug [inputs-first MS | outputs-first MS]"));
        arrival = inputs ? Simulator::Arrival::InputsFirst : Simulator::Arrival::OutputsFirst;
        between = *delay;
    }
    if (m_simulator.isPlugged())
        return ok(QStringLiteral("ok, it was plugged in already"));
    m_simulator.plug(arrival, between);
    Reply reply = ok();
    if (m_simulator.isComing())
        reply.waitsForPlug = true;
    else if (!m_simulator.isPlugged())
        return error(QStringLiteral("the ports could not be opened"));
    return reply;
}

Commands::Reply Commands::restart(const Words&)
{
    m_simulator.restart();
    return ok();
}

Commands::Reply Commands::state(const Words& words)
{
    Reply reply = ok();
    reply.lines = statereport::lines(m_simulator, words.value(0));
    if (reply.lines.isEmpty())
        return error(QStringLiteral("nothing of the state is called \"%1\"").arg(words[0]));
    return reply;
}

Commands::Reply Commands::firmware(const Words& words)
{
    QString failed;
    if (words[0] == QLatin1String("fail") && words.size() > 1) {
        const QString failure = words.mid(1).join(u' ');
        if (!FirmwareState::isFailure(failure)) {
            return error(QStringLiteral(
                "MODE is none, stderr, exit, hang, check-hang or check-exit N with N up to 255"));
        }
        failed = m_simulator.storeFailure(failure);
    } else {
        const auto version = FirmwareVersion::fromText(words[0]);
        if (words.size() != 1 || !version)
            return error(
                QStringLiteral("usage: firmware VERSION (such as 1.2.5) | firmware fail MODE"));
        failed = m_simulator.storeFirmware(*version);
    }
    return failed.isEmpty() ? ok() : error(failed);
}

Commands::Reply Commands::muteVersion(const Words& words)
{
    const auto on = lineparts::onOff(words[0]);
    if (!on)
        return error(QStringLiteral("usage: mute-version on|off"));
    m_simulator.mixer().setAnswersVersion(!*on);
    return ok();
}

Commands::Reply Commands::endMarker(const Words& words)
{
    using EndMarker = SimulatedMixer::EndMarker;
    static const std::map<QString, EndMarker> markers{
        {QStringLiteral("once"), EndMarker::Once},
        {QStringLiteral("twice"), EndMarker::Twice},
        {QStringLiteral("never"), EndMarker::Never},
        {QStringLiteral("other"), EndMarker::Other},
    };
    const auto marker = markers.find(words[0]);
    if (marker == markers.end())
        return error(QStringLiteral("usage: end-marker once|twice|never|other"));
    m_simulator.mixer().setEndMarker(marker->second);
    return ok();
}

Commands::Reply Commands::randomise(const Words& words)
{
    const auto seed = number(words[0], 0, std::numeric_limits<int>::max());
    if (!seed)
        return noNumber(words[0]);
    m_simulator.mixer().setLive(
        SimulatedMixer::randomValues(presetTable(), static_cast<quint32>(*seed)));
    m_simulator.touch();
    return ok();
}

Commands::Reply Commands::slot(const Words& words)
{
    const int slot = words[0].size() == 1 ? words[0].toUpper()[0].unicode() - u'A' : -1;
    if (slot < 0 || slot >= frames::slotCount)
        return error(QStringLiteral("slots are A to L"));
    SimulatedMixer& mixer = m_simulator.mixer();
    const QString what = words.value(1);
    Reply reply = ok();
    if (words.size() == 1) {
        reply.lines = statereport::slotLines(mixer, slot);
    } else if (what == QLatin1String("save") && words.size() == 2) {
        mixer.saveToSlot(slot);
    } else if (what == QLatin1String("recall") && words.size() == 2) {
        mixer.recallSlot(slot);
        reply = sent();
    } else if (what == QLatin1String("factory") && words.size() == 2) {
        mixer.setSlot(slot, presetTable().factoryValues());
    } else if (what == QLatin1String("randomise") && words.size() == 3) {
        const auto seed = number(words[2], 0, std::numeric_limits<int>::max());
        if (!seed)
            return noNumber(words[2]);
        mixer.setSlot(slot,
                      SimulatedMixer::randomValues(presetTable(), static_cast<quint32>(*seed)));
    } else {
        return slotValue(slot, words.mid(1));
    }
    m_simulator.touch();
    return reply;
}

Commands::Reply Commands::slotValue(int slot, const Words& words)
{
    const int index = presetTable().find(words[0]);
    if (index < 0)
        return error(QStringLiteral("no preset parameter \"%1\"").arg(words[0]));
    SimulatedMixer& mixer = m_simulator.mixer();
    Reply reply = ok();
    if (words.size() == 1) {
        reply.lines = {statereport::slotLines(mixer, slot)[index]};
        return reply;
    }
    const auto value = parameterValue(words[1]);
    if (!value)
        return noNumber(words[1]);
    mixer.setSlotValue(slot, index, *value);
    m_simulator.touch();
    return reply;
}

Commands::Reply Commands::quit(const Words&)
{
    Reply reply = ok();
    reply.quits = true;
    return reply;
}
