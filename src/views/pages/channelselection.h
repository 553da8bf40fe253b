#pragma once

#include "channelnames.h"

#include <QList>
#include <QStringList>

// The select buttons of the channels that are selected together, in the order of selection. There
// is one for all strips and the full-power view, which alone writes it; ChannelStripTab owns it.
class ChannelSelection
{
public:
    const QStringList& names() const { return selected; }
    void set(const QStringList& names) { selected = names; }

    bool holds(int channel) const { return selected.contains(channels::selectName(channel)); }
    bool endsWith(int channel) const
    {
        return !selected.isEmpty() && selected.last() == channels::selectName(channel);
    }
    // The input channels selected after this one, in their order; none if it isn't selected.
    QList<int> channelsAfter(int channel) const;

private:
    QStringList selected;
};
