#pragma once

#include <QString>

// The virtual ports between the bridge and a recording program, under the editor's names for the
// directions, and what both boxes about them say alike.
namespace huiports
{

inline const QString input = QStringLiteral("loopMIDI Port 1");
inline const QString output = QStringLiteral("loopMIDI Port");

// Leads to the download page of the tool that makes them.
inline QString makerLink()
{
    return QStringLiteral(
        "<a href='https://www.tobias-erichsen.de/software/loopmidi.html'>loopMIDI</a>");
}

// One more line, with the break before it, where another program makes them; empty elsewhere.
inline QString otherMaker()
{
#if defined(__linux__)
    return QStringLiteral("<br><br>On Linux start jsum-loopports instead, which lies beside this "
                          "program: it makes both ports.");
#else
    return {};
#endif
}

} // namespace huiports
