#pragma once

#include "huihost.h"
#include "lineparts.h"

// The host's line commands: takes one line, does it to the HuiHost, and answers. Owned by main.
class HostCommands
{
public:
    using Reply = lineparts::Reply;

    // open: finds the ports anew; what went wrong, or nothing.
    HostCommands(HuiHost& host, std::function<QString()> open)
        : m_host(host)
        , m_open(std::move(open))
    {
    }

    Reply run(const QString& line);

private:
    using Words = QStringList;
    static const std::vector<lineparts::Command<HostCommands>>& all();

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
