#include "sysexassembler.h"

#include "pieces.h"

QList<SysexAssembler::Result> SysexAssembler::add(int sender, const QByteArray& piece)
{
    QList<Result> results;
    if (!m_pending.contains(sender) && m_pending.size() >= mostSenders)
        m_pending.clear();
    Pending& pending = m_pending[sender];
    for (const char byte : piece)
        addByte(pending, byte, results);
    if (pending.bytes.isEmpty() && !pending.tooLong)
        m_pending.remove(sender);
    return results;
}

void SysexAssembler::addByte(Pending& pending, char byte, QList<Result>& results)
{
    const auto value = static_cast<quint8>(byte);
    if (value == sysexStart) {
        if (!pending.bytes.isEmpty())
            results.append({Result::Kind::Torn, pending.bytes});
        pending = {};
    }
    if (pending.tooLong) {
        if (value == sysexEnd)
            pending = {};
        return;
    }
    pending.bytes.append(byte);
    if (value == sysexEnd) {
        const bool whole = static_cast<quint8>(pending.bytes[0]) == sysexStart;
        results.append({whole ? Result::Kind::Message : Result::Kind::Torn, pending.bytes});
        pending = {};
    } else if (pending.bytes.size() > largestMessage) {
        results.append({Result::Kind::TooLong, pending.bytes});
        pending = {{}, true};
    }
}

QList<SysexAssembler::Result> SysexAssembler::interrupt(int sender)
{
    const Pending pending = m_pending.take(sender);
    if (pending.bytes.isEmpty())
        return {};
    return {{Result::Kind::Torn, pending.bytes}};
}
