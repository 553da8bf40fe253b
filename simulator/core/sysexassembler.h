#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

// Puts SysEx messages together from the pieces in which a sequencer delivers them, apart for each
// sender. Nothing is lost silently: what can be no message comes out as well, and says so.
class SysexAssembler
{
public:
    static constexpr qsizetype largestMessage = 64 * 1024;

    struct Result {
        enum class Kind { Message, Torn, TooLong };
        Kind kind;
        // Torn: what there was of it. TooLong: its beginning.
        QByteArray bytes;
    };

    // A piece of any size, from 0xF0 to 0xF7 or anything between.
    QList<Result> add(int sender, const QByteArray& piece);
    // The sender began something else: a SysEx that waits for its end never gets it.
    QList<Result> interrupt(int sender);
    void clear() { m_pending.clear(); }

private:
    static constexpr qsizetype mostSenders = 32;

    struct Pending {
        QByteArray bytes;
        bool tooLong = false; // reported; the rest up to the end is dropped
    };
    static void addByte(Pending& pending, char byte, QList<Result>& results);

    QHash<int, Pending> m_pending;
};
