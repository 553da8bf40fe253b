#pragma once

#include "lineparts.h"
#include "simulator.h"

#include <QString>
#include <QStringList>

// The line commands: takes one line, does it to the Simulator, and answers. Owned by the headless
// front.
class Commands
{
public:
    using Reply = lineparts::Reply;

    explicit Commands(Simulator& simulator)
        : m_simulator(simulator)
    {
    }

    Reply run(const QString& line);

private:
    using Words = QStringList;
    static const std::vector<lineparts::Command<Commands>>& all();

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
