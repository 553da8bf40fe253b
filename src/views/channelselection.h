#pragma once

#include <QString>
#include <QStringList>

// The select buttons of the channels that are selected together, in the order of selection. There
// is one for all strips and the full-power view, which alone writes it; ChannelStripTab owns it.
class ChannelSelection
{
public:
    // Input channels, from 1.
    static QString selectName(int channel)
    {
        return QStringLiteral("faderframe_ch%1_select").arg(channel);
    }

    const QStringList& names() const { return selected; }
    void set(const QStringList& names) { selected = names; }

    bool holds(int channel) const { return selected.contains(selectName(channel)); }
    bool endsWith(int channel) const
    {
        return !selected.isEmpty() && selected.last() == selectName(channel);
    }
    // The input channels selected after this one, in their order; none if it isn't selected.
    QList<int> channelsAfter(int channel) const;

private:
    QStringList selected;
};
