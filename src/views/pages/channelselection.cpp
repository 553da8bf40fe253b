#include "channelselection.h"

QList<int> ChannelSelection::channelsAfter(int channel) const
{
    QList<int> later;
    const auto place = selected.indexOf(channels::selectName(channel));
    if (place < 0)
        return later;
    // Outputs have select buttons too, and no part in this.
    for (const QString& name : selected.sliced(place + 1))
        if (const int other = channels::inputOf(name); other != 0 && other != channel)
            later.append(other);
    return later;
}
