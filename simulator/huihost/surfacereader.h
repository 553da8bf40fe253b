#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// Reads what a surface sends, and takes nothing for granted: whatever is no fader's pair and no
// switch of the protocol is unexpected. Owned by HuiHost.
class SurfaceReader
{
public:
    struct Fader {
        int number; // from 0
        int position;
    };
    struct Reading {
        bool isExpected;
        QString words;
        QByteArray bytes;
        std::optional<Fader> fader; // where this completed a fader's position
    };

    // A whole message. A second reading comes first where an earlier half stays alone.
    QList<Reading> read(const QByteArray& message);
    // What is half said now will not be completed.
    QList<Reading> end();
    // Messages that begin with these bytes are none of ours, but no fault.
    void allow(const QByteArray& beginning) { m_allowed.append(beginning); }

private:
    Reading readController(int number, int value, const QByteArray& message);
    bool isAllowed(const QByteArray& message) const;

    // The first half of a pair, with the controller that must come next.
    struct Half {
        QByteArray message;
        int number;
        int value;
        int next;
    };
    std::optional<Half> m_half;
    QList<QByteArray> m_allowed;
};
