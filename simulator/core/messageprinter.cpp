#include "messageprinter.h"

#include "parametertable.h"

#include <algorithm>

namespace messageprinter
{

namespace
{

using frames::byteAt;

constexpr int bytesShown = 64;

QString malformed(const QString& what) { return QStringLiteral("malformed: ") + what; }

QString onOff(int value)
{
    switch (value) {
    case 0:
        return QStringLiteral("off");
    case 1:
        return QStringLiteral("on");
    default:
        return malformed(QStringLiteral("neither off nor on: %1").arg(value));
    }
}

QString mode(int number)
{
    const QString name = frames::modeName(number);
    return name.isEmpty() ? malformed(QStringLiteral("no mode %1").arg(number))
                          : QStringLiteral("mode %1 (%2)").arg(number).arg(name);
}

QString channel(int number)
{
    const QString name = frames::channelName(number);
    return name.isEmpty() ? malformed(QStringLiteral("no channel %1").arg(number))
                          : QStringLiteral("channel %1 (%2)").arg(number).arg(name);
}

QString parameter(const QByteArray& message)
{
    const bool preset = byteAt(message, 5) == frames::PresetParameter;
    const ParameterTable& table = preset ? presetTable() : globalTable();
    const auto setting = table.read(message);
    if (!setting) {
        return malformed(QStringLiteral("no %1 parameter: view %2, channel %3, second channel %4, "
                                        "parameter %5")
                             .arg(preset ? QStringLiteral("preset") : QStringLiteral("global"))
                             .arg(byteAt(message, 6))
                             .arg(byteAt(message, 7))
                             .arg(byteAt(message, 8))
                             .arg(byteAt(message, 9)));
    }
    const Parameter& row = table[setting->index];
    const QString kind = preset ? QStringLiteral("preset")
        : row.isMapping()       ? QStringLiteral("map")
                                : QStringLiteral("global");
    return QStringLiteral("%1 %2 = %3").arg(kind, row.name).arg(setting->value);
}

QString huiState(const QByteArray& message, Direction direction)
{
    const int subtype = byteAt(message, 6);
    const QString value = QString::number(byteAt(message, 11));
    QString what;
    switch (subtype) {
    case 0x02:
        what = QStringLiteral("fader touch");
        break;
    case 0x10:
        what = QStringLiteral("state");
        break;
    case 0x11:
        what = QStringLiteral("mute");
        break;
    case 0x12:
        what = QStringLiteral("solo");
        break;
    case 0x13:
        what = QStringLiteral("record");
        break;
    default:
        return malformed(QStringLiteral("no HUI subtype %1").arg(subtype));
    }
    if (direction == Direction::FromHost)
        what += QStringLiteral(" light");
    return QStringLiteral("HUI %1 of %2 = %3").arg(what).arg(byteAt(message, 7)).arg(value);
}

QString updating(const QByteArray& message)
{
    switch (byteAt(message, 9)) {
    case 0:
        return QStringLiteral("DSP updating ") + onOff(byteAt(message, 6));
    case 1:
        return QStringLiteral("stereo updating ") + onOff(byteAt(message, 6));
    default:
        return malformed(QStringLiteral("no updating setting %1").arg(byteAt(message, 9)));
    }
}

// How many of the payload's bytes a message from the host may have non-zero; it must be all of them
// elsewhere.
bool isPadded(const QByteArray& message, std::initializer_list<int> used)
{
    for (int position = 6; position <= 11; ++position) {
        const bool isUsed = std::find(used.begin(), used.end(), position) != used.end();
        if (!isUsed && byteAt(message, position) != 0)
            return false;
    }
    return true;
}

QString padding(bool good) { return good ? QString() : QStringLiteral(" (padding is not zero)"); }

QString fromHost(const QByteArray& message)
{
    const auto padded = [&message](std::initializer_list<int> used) {
        return padding(isPadded(message, used));
    };
    switch (byteAt(message, 5)) {
    case frames::Version:
        return QStringLiteral("version query") + padded({});
    case frames::PresetParameter:
    case frames::GlobalParameter:
        return parameter(message);
    case frames::Mode:
        return mode(byteAt(message, 11)) + padded({11});
    case frames::Channel:
        return channel(byteAt(message, 11)) + padded({11});
    case frames::SaveToSlot:
        return QStringLiteral("save to ") + frames::slotName(byteAt(message, 6)) + padded({6});
    case frames::SlotTransfer:
        return QStringLiteral("request for %1%2")
                   .arg(frames::slotName(byteAt(message, 6)),
                        byteAt(message, 7) ? QStringLiteral(", will be saved") : QString())
            + padded({6, 7});
    case frames::SaveGlobals:
        return QStringLiteral("save globals to flash") + padded({});
    case frames::Updating:
        return updating(message) + padded({6, 9});
    case frames::Restart:
        return QStringLiteral("restart") + padded({});
    case frames::Hui:
        return huiState(message, Direction::FromHost) + padded({6, 7, 11});
    case frames::CommEnd:
        return QStringLiteral("end of communication") + padded({});
    default:
        return malformed(QStringLiteral("no message type %1").arg(byteAt(message, 5)));
    }
}

QString toHost(const QByteArray& message)
{
    const int type = byteAt(message, 5);
    const auto key = std::pair{static_cast<int>(message.size()), type};
    if (key == std::pair{13, int{frames::Version}}) {
        return QStringLiteral("firmware version %1.%2.%3")
            .arg(byteAt(message, 9))
            .arg(byteAt(message, 10))
            .arg(byteAt(message, 11));
    }
    if (message.size() == 13
        && (type == frames::PresetParameter || type == frames::GlobalParameter))
        return parameter(message);
    if (key == std::pair{13, int{frames::Hui}})
        return huiState(message, Direction::ToHost);
    if (key == std::pair{10, int{frames::SlotTransfer}}) {
        return QStringLiteral("%1 of %2, save flag %3")
            .arg(byteAt(message, 7) ? QStringLiteral("end") : QStringLiteral("begin"),
                 frames::slotName(byteAt(message, 6)))
            .arg(byteAt(message, 8));
    }
    if (key == std::pair{8, int{frames::Mode}})
        return mode(byteAt(message, 6));
    if (key == std::pair{8, int{frames::Channel}})
        return channel(byteAt(message, 6));
    if (key == std::pair{7, int{frames::GoToSync}})
        return QStringLiteral("go to the sync preset");
    return QStringLiteral("no message of the mixer: type %1, %2 bytes")
        .arg(type)
        .arg(message.size());
}

QString shortMessage(const QByteArray& message)
{
    const int status = byteAt(message, 0);
    const int expected = status >= 0xC0 && status < 0xE0 ? 2 : 3;
    if (status < 0x80 || status >= 0xF0 || message.size() != expected)
        return QStringLiteral("MIDI message");
    const int first = byteAt(message, 1);
    const int second = byteAt(message, 2);
    QString what;
    switch (status >> 4) {
    case 0x8:
        what = QStringLiteral("note off %1, velocity %2").arg(first).arg(second);
        break;
    case 0x9:
        what = QStringLiteral("note on %1, velocity %2").arg(first).arg(second);
        break;
    case 0xB:
        what = QStringLiteral("control change %1 = %2").arg(first).arg(second);
        break;
    default:
        what = QStringLiteral("MIDI message");
        break;
    }
    return what + QStringLiteral(", channel %1").arg((status & 0x0F) + 1);
}

} // namespace

QString words(Direction direction, const QByteArray& message)
{
    if (message.isEmpty())
        return malformed(QStringLiteral("empty"));
    if (byteAt(message, 0) != 0xF0)
        return shortMessage(message);
    if (!frames::isMixerMessage(message))
        return QStringLiteral("foreign SysEx of %1 bytes").arg(message.size());
    if (direction == Direction::ToHost)
        return toHost(message);
    if (message.size() != frames::hostLength) {
        return malformed(
            QStringLiteral("type %1 with %2 bytes").arg(byteAt(message, 5)).arg(message.size()));
    }
    return fromHost(message);
}

QString bytes(const QByteArray& message)
{
    if (message.size() <= bytesShown)
        return QString::fromLatin1(message.toHex(' '));
    return QStringLiteral("%1 ... (%2 bytes)")
        .arg(QString::fromLatin1(message.left(bytesShown).toHex(' ')))
        .arg(message.size());
}

QString line(Direction direction, MixerPort port, const QByteArray& message)
{
    const QString who = direction == Direction::FromHost ? QStringLiteral("from host")
                                                         : QStringLiteral("to host  ");
    return QStringLiteral("%1 | %2 | %3 | %4")
        .arg(who,
             port == MixerPort::AudioControl ? QStringLiteral("Audio Control  ")
                                             : QStringLiteral("Control Surface"),
             words(direction, message), bytes(message));
}

} // namespace messageprinter
