#include "codecresult.h"

namespace sysex
{

LogLine lineWithName(const char* text, QStringView name)
{
    return {.text = text, .name = name.isEmpty() ? QStringLiteral("") : name.toString()};
}

QDebug operator<<(QDebug debug, const LogLine& line)
{
    debug << line.text;
    if (!line.name.isNull())
        debug << line.name;
    for (const int number : line.numbers)
        debug << number;
    return debug;
}

} // namespace sysex
