#include "channelselection.h"

namespace
{

constexpr int inputChannels = 8;

}

QList<int> ChannelSelection::channelsAfter(int channel) const
{
    QList<int> channels;
    const auto place = selected.indexOf(selectName(channel));
    if (place < 0)
        return channels;
    // Outputs have select buttons too, and no part in this.
    for (const QString& name : selected.sliced(place + 1))
        for (int other = 1; other <= inputChannels; ++other)
            if (other != channel && name == selectName(other))
                channels.append(other);
    return channels;
}
