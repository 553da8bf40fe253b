#include "lowpoweraudioform.h"

#include "fadercolumns.h"
#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"

#include <QFrame>
#include <QToolButton>

namespace
{

using fadercolumns::Column;

constexpr int margin = 8;
constexpr int pad = 2;
constexpr int panelGap = 6;
constexpr int top = 6;
constexpr int bandStep = 65;
constexpr int muteHeight = 20;
constexpr int muteInset = 6;
constexpr int smallDial = 4;

struct Band {
    const char* gain; // as the parts of a strip are called
    const char* name;
};
constexpr Band bands[]{{"eq_hi_gain", "HI"}, {"eq_mid_gain", "MID"}, {"eq_low_gain", "LOW"}};

ControlRow gainRow(const Column& channel, const Band& band)
{
    ControlRow row = stripparts::rowNamed(stripparts::controlRows(), QLatin1String(band.gain));
    row.name = QStringLiteral("channelstrip_%1_%2").arg(channel.word, row.name);
    row.parameter = &parametertable::at(row.name);
    row.caption = QLatin1String(band.name);
    row.thickness = smallDial;
    return row;
}

void layChannel(QFrame* panel, const Column& channel, const QRect& column)
{
    FormBuilder builder(panel, channel.spoken);
    int y = column.y();
    if (channel.isInput) {
        for (const Band& band : bands) {
            const ControlRow row = gainRow(channel, band);
            builder.namedRing(panel, row, {column.center().x(), y}, column.width());
            y += bandStep;
        }
    }
    fadercolumns::layMark(builder, panel, fadercolumns::muteRow(channel), "M",
                          {column.x() + muteInset, y, column.width() - 2 * muteInset, muteHeight});
    y += muteHeight + margin;
    builder.fader(panel, fadercolumns::faderRow(channel),
                  {column.x(), y, column.width(), column.bottom() + 1 - y});
}

} // namespace

LowPowerAudioForm::LowPowerAudioForm(QWidget* host)
{
    const auto count = static_cast<int>(fadercolumns::all().size());
    const int column = (host->width() - 2 * margin - panelGap - 4 * pad) / count;
    const int height = host->height() - margin;
    const int inputsWidth = channels::lastInput * column + 2 * pad;
    const int outputsLeft = margin + inputsWidth + panelGap;
    FormBuilder builder(host, {});
    QFrame* inputs = builder.group("lowPowerInputsFrame", {}, {margin, 0, inputsWidth, height});
    QFrame* outputs = builder.group("lowPowerOutputsFrame", {},
                                    {outputsLeft, 0, host->width() - margin - outputsLeft, height});

    QRect place(pad, top, column, height - top - 4);
    for (const Column& channel : fadercolumns::all()) {
        if (channel.word == QLatin1String("mains"))
            place.moveLeft(pad);
        layChannel(channel.isInput ? inputs : outputs, channel, place);
        place.translate(column, 0);
    }
}

const QList<ControlRow>& LowPowerAudioForm::controlRows()
{
    static const QList<ControlRow> rows = [] {
        QList<ControlRow> all;
        for (const Column& channel : fadercolumns::all()) {
            all.append(fadercolumns::faderRow(channel));
            if (!channel.isInput)
                continue;
            for (const Band& band : bands)
                all.append(gainRow(channel, band));
        }
        return all;
    }();
    return rows;
}

const QList<ButtonRow>& LowPowerAudioForm::buttonRows()
{
    static const QList<ButtonRow> rows = [] {
        QList<ButtonRow> all;
        for (const Column& channel : fadercolumns::all())
            all.append(fadercolumns::muteRow(channel));
        return all;
    }();
    return rows;
}
