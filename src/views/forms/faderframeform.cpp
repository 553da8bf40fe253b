#include "faderframeform.h"

#include "formbuilder.h"
#include "stripparts.h"

#include <QFrame>
#include <QPushButton>
#include <QToolButton>

namespace
{

constexpr int margin = 8;

// One fader with its buttons, a column of the frame.
struct Channel {
    QString word; // as "ch1"
    QString name; // as it is shown
    QString spoken;
    bool isInput;
};

QList<Channel> makeChannels()
{
    QList<Channel> channels;
    for (int number = 1; number <= 8; ++number)
        channels.append({QStringLiteral("ch%1").arg(number), QStringLiteral("CH %1").arg(number),
                         QStringLiteral("Channel %1").arg(number), true});
    return channels
        + QList<Channel>{{"mains", "MAINS", "Mains", false},
                         {"aux1", "AUX 1", "Aux 1", false},
                         {"aux2", "AUX 2", "Aux 2", false},
                         {"aux3", "AUX 3", "Aux 3", false},
                         {"phones", "PHONES", "Phones", false}};
}

const QList<Channel>& channels()
{
    static const QList<Channel> list = makeChannels();
    return list;
}

QString nameOf(const Channel& channel, const char* part)
{
    return QStringLiteral("faderframe_%1_%2").arg(channel.word, QLatin1String(part));
}

ControlRow faderRow(const Channel& channel)
{
    return stripparts::faderRow(nameOf(channel, "fader"), channel.name, QStringLiteral("fader"),
                                QStringLiteral("The level. With Ctrl, a click sets it to 0 dB."));
}

ButtonRow muteRow(const Channel& channel)
{
    return {nameOf(channel, "mute"), QStringLiteral("mute"),
            QStringLiteral("Silence this channel.")};
}

ButtonRow soloRow(const Channel& channel)
{
    return {nameOf(channel, "solo"), QStringLiteral("solo"),
            QStringLiteral("Hear this channel alone. With Shift, end every other solo.")};
}

void layMark(FormBuilder& builder, QWidget* parent, const ButtonRow& row, const char* letter,
             const QRect& place)
{
    QToolButton* button = builder.button(parent, row, place);
    button->setText(QLatin1String(letter));
    button->setProperty("role", row.spoken);
}

void layChannel(QFrame* parent, const Channel& channel, const QRect& column)
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
    builder.fader(parent, faderRow(channel),
                  {column.x(), y, column.width(), column.bottom() - margin / 2 - y});
}

} // namespace

FaderFrameForm::FaderFrameForm(QWidget* host)
{
    constexpr int inputWidth = 64;
    constexpr int outputWidth = 72;
    constexpr int inputs = 8;
    const int height = host->height();
    const int outputsLeft = 4 + inputs * inputWidth + margin;
    auto* inputFrame = new QFrame(host);
    inputFrame->setGeometry(0, 0, outputsLeft, height);
    auto* outputFrame = new QFrame(host);
    outputFrame->setObjectName(QStringLiteral("outputFaderGroupBox"));
    outputFrame->setProperty("role", "outputs");
    outputFrame->setGeometry(outputsLeft, 0, host->width() - outputsLeft, height);

    int inputLeft = 4;
    int outputLeft = 4;
    for (const Channel& channel : channels()) {
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
        for (const Channel& channel : channels())
            all.append(faderRow(channel));
        return all;
    }();
    return rows;
}

const QList<ButtonRow>& FaderFrameForm::buttonRows()
{
    static const QList<ButtonRow> rows = [] {
        QList<ButtonRow> all;
        for (const Channel& channel : channels()) {
            all.append(muteRow(channel));
            if (channel.isInput)
                all.append(soloRow(channel));
        }
        return all;
    }();
    return rows;
}
