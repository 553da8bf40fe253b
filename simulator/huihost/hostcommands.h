#pragma once

#include "huihost.h"

#include <QStringList>

#include <vector>

// The host's line commands: takes one line, does it to the HuiHost, and answers. Owned by main.
class HostCommands
{
public:
    struct Reply {
        QStringList lines; // printed before the answer
        QString answer;    // begins with "ok" or "error: "; empty for an empty line
        bool quits = false;
    };

    // open: finds the ports anew; what went wrong, or nothing.
    HostCommands(HuiHost& host, std::function<QString()> open)
        : m_host(host)
        , m_open(std::move(open))
    {
    }

    Reply run(const QString& line);

private:
    using Words = QStringList;
    struct Command {
        const char* name;
        const char* usage;
        Reply (HostCommands::*handler)(const Words&);
        int fewest; // words behind the name
        int most;
    };
    static const std::vector<Command>& all();

    Reply help(const Words&);
    Reply open(const Words&);
    Reply fader(const Words& words);
    Reply light(const Words& words);
    Reply ping(const Words&);
    Reply meter(const Words& words);
    Reply display(const Words& words);
    Reply ring(const Words& words);
    Reply reset(const Words&);
    Reply raw(const Words& words);
    Reply allow(const Words& words);
    Reply echo(const Words& words);
    Reply pings(const Words& words);
    Reply meters(const Words& words);
    Reply quit(const Words&);

    Reply send(const QString& words, const QByteArray& messages);

    HuiHost& m_host;
    std::function<QString()> m_open;
};
