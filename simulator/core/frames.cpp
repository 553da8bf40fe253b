#include "frames.h"

#include <array>

QString portName(MixerPort port)
{
    return port == MixerPort::AudioControl ? QStringLiteral("J-Sum Audio Control")
                                           : QStringLiteral("J-Sum Control Surface");
}

namespace frames
{

namespace
{
constexpr std::array<quint8, 5> start{0xF0, 0x00, 0x01, 0x5F, 0x23};
constexpr quint8 end = 0xF7;
} // namespace

QByteArray build(int type, std::initializer_list<int> payload)
{
    QByteArray message(reinterpret_cast<const char*>(start.data()), start.size());
    message.append(static_cast<char>(type));
    for (const int byte : payload)
        message.append(static_cast<char>(byte));
    message.append(static_cast<char>(end));
    return message;
}

int byteAt(const QByteArray& message, int position)
{
    if (position < 0 || position >= message.size())
        return -1;
    return static_cast<quint8>(message[position]);
}

bool isMixerMessage(const QByteArray& message)
{
    if (message.size() < static_cast<int>(start.size()) + 2
        || byteAt(message, static_cast<int>(message.size()) - 1) != end) {
        return false;
    }
    for (int i = 0; i < static_cast<int>(start.size()); ++i) {
        if (byteAt(message, i) != start[static_cast<size_t>(i)])
            return false;
    }
    return true;
}

QString modeName(int mode)
{
    switch (mode) {
    case 0:
        return QStringLiteral("faderframe");
    case 1:
        return QStringLiteral("pan");
    case 2:
        return QStringLiteral("eq");
    case 3:
        return QStringLiteral("compressor");
    case 4:
        return QStringLiteral("gate");
    case 5:
        return QStringLiteral("reverb");
    case 6:
        return QStringLiteral("surround");
    case 10:
        return QStringLiteral("aux1");
    case 11:
        return QStringLiteral("aux2");
    case 12:
        return QStringLiteral("aux3");
    case 13:
        return QStringLiteral("phones");
    case 14:
        return QStringLiteral("trim");
    default:
        return {};
    }
}

QString channelName(int channel)
{
    if (channel >= 1 && channel <= 8)
        return QStringLiteral("ch%1").arg(channel);
    if (channel == 9)
        return QStringLiteral("mains");
    if (channel >= 10 && channel <= 12)
        return QStringLiteral("aux%1").arg(channel - 9);
    return channel == 13 ? QStringLiteral("phones") : QString();
}

QString slotName(int slot)
{
    if (slot == liveMemorySlot)
        return QStringLiteral("the live memory");
    if (slot >= 0 && slot < slotCount)
        return QStringLiteral("slot %1").arg(QChar(u'A' + slot));
    return QStringLiteral("slot %1").arg(slot);
}

} // namespace frames
