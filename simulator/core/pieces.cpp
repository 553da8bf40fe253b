#include "pieces.h"

namespace
{

quint8 byteOf(char byte) { return static_cast<quint8>(byte); }

} // namespace

QList<QByteArray> piecesOf(const QByteArray& message)
{
    if (message.isEmpty() || byteOf(message[0]) != sysexStart)
        return {message};
    QList<QByteArray> pieces;
    for (qsizetype at = 0; at < message.size(); at += largestPiece)
        pieces.append(message.mid(at, largestPiece));
    return pieces;
}

QList<QByteArray> messagesIn(const QByteArray& bytes)
{
    QList<QByteArray> messages;
    for (const char byte : bytes) {
        const bool ends = byteOf(byte) == sysexEnd && !messages.isEmpty()
            && byteOf(messages.last()[0]) == sysexStart;
        if (messages.isEmpty() || (byteOf(byte) >= 0x80 && !ends))
            messages.append(QByteArray());
        messages.last().append(byte);
    }
    return messages;
}
