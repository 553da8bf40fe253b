#pragma once

#include "simulator.h"

#include <QString>
#include <QStringList>

// The line commands: takes one line, does it to the Simulator, and answers. Owned by the headless
// front.
class Commands
{
public:
    struct Reply {
        QStringList lines; // printed before the answer
        QString answer;    // begins with "ok" or "error: "
        bool quits = false;
        // The answer holds once the mixer is plugged in, and no command may run before.
        bool waitsForPlug = false;
    };

    explicit Commands(Simulator& simulator)
        : m_simulator(simulator)
    {
    }

    // An empty line is answered by an empty answer, which is not to be printed.
    Reply run(const QString& line);

private:
    using Words = QStringList;
    struct Command {
        const char* name;
        const char* usage;
        Reply (Commands::*handler)(const Words&);
        int fewest; // words behind the name
        int most;
    };
    static const std::vector<Command>& all();

    Reply help(const Words&);
    Reply set(const Words& words);
    Reply setGlobal(const Words& words);
    Reply setMapping(const Words& words);
    Reply mode(const Words& words);
    Reply channel(const Words& words);
    Reply sync(const Words&);
    Reply controlChange(const Words& words);
    Reply note(const Words& words);
    Reply hui(const Words& words);
    Reply surface(const Words& words);
    Reply raw(const Words& words);
    Reply unplug(const Words&);
    Reply plug(const Words& words);
    Reply restart(const Words&);
    Reply state(const Words& words);
    Reply firmware(const Words& words);
    Reply muteVersion(const Words& words);
    Reply endMarker(const Words& words);
    Reply randomise(const Words& words);
    Reply slot(const Words& words);
    Reply quit(const Words&);

    Reply turnGlobal(const Words& words, bool mapping);
    Reply slotValue(int slot, const Words& words);
    Reply sent() const;

    Simulator& m_simulator;
};
