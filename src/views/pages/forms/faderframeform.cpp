#include "faderframeform.h"

#include "fadercolumns.h"
#include "formbuilder.h"
#include "mixershape.h"

#include <QFrame>
#include <QPushButton>
#include <QToolButton>

namespace
{

using fadercolumns::Column;
using fadercolumns::layMark;
using fadercolumns::muteRow;
using fadercolumns::nameOf;

constexpr int margin = 8;

ControlRow frameFaderRow(const Column& channel)
{
    return fadercolumns::faderRow(channel, QStringLiteral(" With Ctrl, a click sets it to 0 dB."));
}

ButtonRow soloRow(const Column& channel)
{
    return {nameOf(channel, "solo"), QStringLiteral("solo"),
            QStringLiteral("Hear this channel alone. With Shift, end every other solo.")};
}

void layChannel(QFrame* parent, const Column& channel, const QRect& column)
{
    constexpr int buttonWidth = 56;
    constexpr int buttonHeight = 20;
    constexpr int buttonGap = 4;
    const int left = column.center().x() - buttonWidth / 2;
    int y = column.y() + margin;

    auto* select = new QPushButton(QStringLiteral("SELECT"), parent);
    select->setObjectName(nameOf(channel, "select"));
    select->setCheckable(true);
    select->setProperty("role", "select");
    select->setAccessibleName(QStringLiteral("%1, select").arg(channel.spoken));
    select->setToolTip(channel.isInput
                           ? QStringLiteral("Show this channel. With Shift, select it together "
                                            "with others.")
                           : QStringLiteral("Show this output."));
    select->setGeometry(left, y, buttonWidth, buttonHeight);
    y += buttonHeight + buttonGap;

    FormBuilder builder(parent, channel.spoken);
    const int half = (buttonWidth - buttonGap) / 2;
    if (channel.isInput)
        layMark(builder, parent, soloRow(channel), "S", {left, y, half, buttonHeight});
    layMark(builder, parent, muteRow(channel), "M",
            {channel.isInput ? left + half + buttonGap : left, y,
             channel.isInput ? half : buttonWidth, buttonHeight});
    y += buttonHeight + margin;
    builder.fader(parent, frameFaderRow(channel),
                  {column.x(), y, column.width(), column.bottom() - margin / 2 - y});
}

} // namespace

FaderFrameForm::FaderFrameForm(QWidget* host)
{
    constexpr int inputWidth = 64;
    constexpr int outputWidth = 72;
    const int height = host->height();
    const int outputsLeft = 4 + channels::lastInput * inputWidth + margin;
    auto* inputFrame = new QFrame(host);
    inputFrame->setGeometry(0, 0, outputsLeft, height);
    auto* outputFrame = new QFrame(host);
    outputFrame->setObjectName(QStringLiteral("outputFaderGroupBox"));
    outputFrame->setProperty("role", "outputs");
    outputFrame->setGeometry(outputsLeft, 0, host->width() - outputsLeft, height);

    int inputLeft = 4;
    int outputLeft = 4;
    for (const Column& channel : fadercolumns::all()) {
        int& left = channel.isInput ? inputLeft : outputLeft;
        const int width = channel.isInput ? inputWidth : outputWidth;
        layChannel(channel.isInput ? inputFrame : outputFrame, channel, {left, 0, width, height});
        left += width;
    }
}

const QList<ControlRow>& FaderFrameForm::controlRows()
{
    static const QList<ControlRow> rows = [] {
        QList<ControlRow> all;
        for (const Column& channel : fadercolumns::all())
            all.append(frameFaderRow(channel));
        return all;
    }();
    return rows;
}

const QList<ButtonRow>& FaderFrameForm::buttonRows()
{
    static const QList<ButtonRow> rows = [] {
        QList<ButtonRow> all;
        for (const Column& channel : fadercolumns::all()) {
            all.append(muteRow(channel));
            if (channel.isInput)
                all.append(soloRow(channel));
        }
        return all;
    }();
    return rows;
}
