#include "faderframeform.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"

#include <QFrame>
#include <QPushButton>
#include <QToolButton>

namespace
{

constexpr int margin = 8;

// One fader with its buttons, a column of the frame.
struct Column {
    QString word; // as "ch1"
    QString name; // as it is shown
    QString spoken;
    bool isInput;
};

QList<Column> makeColumns()
{
    QList<Column> columns;
    for (int number = 1; number <= channels::lastInput; ++number)
        columns.append({QStringLiteral("ch%1").arg(number), QStringLiteral("CH %1").arg(number),
                        QStringLiteral("Channel %1").arg(number), true});
    columns.append({"mains", "MAINS", "Mains", false});
    for (int aux = 1; aux <= channels::auxes; ++aux)
        columns.append({QStringLiteral("aux%1").arg(aux), QStringLiteral("AUX %1").arg(aux),
                        QStringLiteral("Aux %1").arg(aux), false});
    columns.append({"phones", "PHONES", "Phones", false});
    return columns;
}

const QList<Column>& allColumns()
{
    static const QList<Column> columns = makeColumns();
    return columns;
}

QString nameOf(const Column& channel, const char* part)
{
    return QStringLiteral("faderframe_%1_%2").arg(channel.word, QLatin1String(part));
}

ControlRow faderRow(const Column& channel)
{
    return stripparts::faderRow(nameOf(channel, "fader"), channel.name, QStringLiteral("fader"),
                                QStringLiteral("The level. With Ctrl, a click sets it to 0 dB."));
}

ButtonRow muteRow(const Column& channel)
{
    return {nameOf(channel, "mute"), QStringLiteral("mute"),
            QStringLiteral("Silence this channel.")};
}

ButtonRow soloRow(const Column& channel)
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
    builder.fader(parent, faderRow(channel),
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
    for (const Column& channel : allColumns()) {
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
        for (const Column& channel : allColumns())
            all.append(faderRow(channel));
        return all;
    }();
    return rows;
}

const QList<ButtonRow>& FaderFrameForm::buttonRows()
{
    static const QList<ButtonRow> rows = [] {
        QList<ButtonRow> all;
        for (const Column& channel : allColumns()) {
            all.append(muteRow(channel));
            if (channel.isInput)
                all.append(soloRow(channel));
        }
        return all;
    }();
    return rows;
}
