#pragma once

#include "sysexframe.h"

#include <QDebug>
#include <QString>
#include <QVarLengthArray>

#include <optional>

// What the parameter codecs hand over: plain data for SysexManager's slots to print, send or emit.
namespace sysex
{

// The first byte of a parameter's payload: the page of the editor that shows the parameter.
enum class View : std::uint8_t {
    None = 0,
    FaderFrame = 1,
    ChannelStrip = 2,
    ReverbTab = 3,
    SurroundTab = 4,
    MidiMapping = 5,
    Settings = 6,
    UsbTab = 7,
};

// One line for the debug stream: the text, then the parameter's name unless null, then the numbers.
struct LogLine {
    const char* text;
    QString name{};
    QVarLengthArray<int, payloadSize> numbers{};
};
using LogLines = QVarLengthArray<LogLine, 4>;

// A line that shows the name, also an empty one.
LogLine lineWithName(const char* text, QStringView name);

// Prints the line in that order, spaced as qDebug() spaces what it is given.
QDebug operator<<(QDebug debug, const LogLine& line);

// What a name and a value become. Without a payload nothing is sent. The lines are printed in their
// order, before sending.
struct Encoded {
    std::optional<Payload> payload{};
    LogLines lines{};
};

// What a payload becomes. With View::None nothing is emitted, and name and value mean nothing.
struct Decoded {
    View view = View::None;
    QString name{};
    int value = 0;
    LogLines lines{};
};

} // namespace sysex
