#include "modes.h"

#include <algorithm>

namespace sysex
{

int modeForParameter(QStringView jsonName, int current)
{
    const bool onFaderFrame = jsonName.contains(u"faderframe_");
    // From the reverb on the modes show no channel faders.
    if (onFaderFrame && !jsonName.contains(u"aux") && !jsonName.contains(u"phones")
        && current >= static_cast<int>(Mode::Reverb)) {
        return static_cast<int>(Mode::FaderFrame);
    }
    const auto rule =
        std::find_if(modeRules.begin(), modeRules.end(), [&jsonName](const ModeRule& row) {
            return jsonName.contains(row.text) && jsonName.contains(row.andText);
        });
    if (rule == modeRules.end())
        return current;
    const int mode = static_cast<int>(rule->mode);
    if (rule->mode != Mode::Aux1)
        return mode;

    // "faderframe_auxN_..." and "channelstrip_chN_auxN_..."
    const QStringView digit = jsonName.mid(onFaderFrame ? 14 : 20, 1);
    if (digit != u"1" && digit != u"2" && digit != u"3")
        return current;
    return mode + digit[0].unicode() - u'1';
}

} // namespace sysex
