#include "stripparts.h"

#include "formbuilder.h"

#include <QFrame>
#include <QLabel>
#include <QPoint>

#include <algorithm>

namespace stripparts
{

namespace
{

const QString decibels = QStringLiteral(" dB");
const QString hertz = QStringLiteral(" Hz");
const QString milliseconds = QStringLiteral(" ms");
const QString silence = QStringLiteral("-inf dB");

ControlRow eqGain(const char* name, const char* spoken, QColor color)
{
    return {.name = name,
            .caption = "Gain",
            .spoken = spoken,
            .encoding = Encoding::linearLevel,
            .minimum = 8200,
            .maximum = 11800,
            .hasBox = true,
            .boxMinimum = -18.0,
            .boxMaximum = 18.0,
            .suffix = decibels,
            .color = color,
            .thickness = 5,
            .centered = true,
            .hasReset = true,
            .toolTip = QStringLiteral("±18dB")};
}

ControlRow eqFrequency(const char* name, const char* spoken, int minimum, int maximum, QColor color,
                       int thickness, const QString& toolTip)
{
    return {.name = name,
            .caption = "Freq",
            .spoken = spoken,
            .encoding = Encoding::hertz,
            .minimum = minimum,
            .maximum = maximum,
            .hasBox = true,
            .boxMinimum = double(minimum),
            .boxMaximum = double(maximum),
            .suffix = hertz,
            .color = color,
            .thickness = thickness,
            .toolTip = toolTip};
}

// In dB, with a lowest place that may mean silence.
ControlRow level(const char* name, const char* caption, const char* spoken, int minimum,
                 int maximum, const QString& lowestText, QColor color, const QString& toolTip)
{
    return {.name = name,
            .caption = caption,
            .spoken = spoken,
            .encoding = Encoding::linearLevel,
            .minimum = minimum,
            .maximum = maximum,
            .hasBox = true,
            .boxMinimum = minimum / 100.0 - 100.0,
            .boxMaximum = maximum / 100.0 - 100.0,
            .suffix = decibels,
            .lowestText = lowestText,
            .color = color,
            .toolTip = toolTip};
}

ControlRow time(const char* name, const char* caption, const char* spoken, int maximum,
                QColor color, const QString& toolTip)
{
    return {.name = name,
            .caption = caption,
            .spoken = spoken,
            .minimum = 1,
            .maximum = maximum,
            .hasBox = true,
            .suffix = milliseconds,
            .color = color,
            .toolTip = toolTip};
}

ControlRow hundredths(const char* name, const char* caption, const char* spoken, int minimum,
                      QColor color, int thickness, const QString& toolTip)
{
    return {.name = name,
            .caption = caption,
            .spoken = spoken,
            .encoding = Encoding::hundredths,
            .minimum = minimum,
            .maximum = 1000,
            .hasBox = true,
            .boxMinimum = minimum / 100.0,
            .boxMaximum = 10.0,
            .color = color,
            .thickness = thickness,
            .toolTip = toolTip};
}

ControlRow eqHighFrequency()
{
    // Its dial goes in tens of Hz.
    ControlRow row = eqFrequency("eq_hi_freq", "EQ high frequency", 300, 2000, eqHighColor, 5,
                                 QStringLiteral("3kHz – 20kHz"));
    row.encoding = Encoding::tensOfHertz;
    row.boxMinimum = 3000.0;
    row.boxMaximum = 20000.0;
    return row;
}

// The release times and the gate's attack end below what their tooltips say: the mixer's makers
// left them so.
QList<ControlRow> makeControlRows()
{
    return {
        eqGain("eq_low_gain", "EQ low gain", eqLowColor),
        eqFrequency("eq_low_freq", "EQ low frequency", 20, 400, eqLowColor, 5,
                    QStringLiteral("20Hz – 400Hz")),
        eqGain("eq_mid_gain", "EQ mid gain", eqMidColor),
        eqFrequency("eq_mid_freq", "EQ mid frequency", 200, 6000, eqMidColor, 4,
                    QStringLiteral("200Hz – 6kHz")),
        hundredths("eq_mid_q", "Q", "EQ mid Q", 10, eqMidColor, 4, QStringLiteral("0.1 – 10")),
        eqGain("eq_hi_gain", "EQ high gain", eqHighColor),
        eqHighFrequency(),

        level("compressor_thresh", "Threshold", "compressor threshold", 3000, 11000, silence,
              compressorColor, QStringLiteral("-inf – +10dB")),
        hundredths("compressor_ratio", "Ratio", "compressor ratio", 0, compressorColor, 6,
                   QStringLiteral("0.0 – 10.0")),
        time("compressor_attack", "Attack", "compressor attack", 1000, compressorColor,
             QStringLiteral("1ms – 1000ms")),
        time("compressor_release", "Release", "compressor release", 3000, compressorColor,
             QStringLiteral("1ms – 5000ms")),
        level("compressor_gain", "Gain", "compressor gain", 10000, 12400, {}, compressorColor,
              QStringLiteral("0dB – +24dB")),

        level("gate_thresh", "Threshold", "gate threshold", 3000, 11000, silence, gateColor,
              QStringLiteral("-inf – +10dB")),
        time("gate_attack", "Attack", "gate attack", 1000, gateColor,
             QStringLiteral("1ms – 5000ms")),
        time("gate_release", "Release", "gate release", 3000, gateColor,
             QStringLiteral("1ms – 5000ms")),
        level("gate_gain", "Gain", "gate gain", 3600, 10000, silence, gateColor,
              QStringLiteral("-inf – 0dB")),
    };
}

template <typename Row> const Row& find(const QList<Row>& rows, const QString& name)
{
    const auto found = std::find_if(rows.cbegin(), rows.cend(),
                                    [&name](const Row& row) { return row.name == name; });
    Q_ASSERT(found != rows.cend());
    return *found;
}

} // namespace

const QList<ControlRow>& controlRows()
{
    static const QList<ControlRow> rows = makeControlRows();
    return rows;
}

const QList<ButtonRow>& buttonRows()
{
    static const QList<ButtonRow> rows{
        {"eq_bypass", "EQ bypass", "Take the equaliser out of the signal."},
        {"compressor_bypass", "compressor bypass", "Take the compressor out of the signal."},
        {"gate_bypass", "gate bypass", "Take the gate out of the signal."},
    };
    return rows;
}

ControlRow faderRow(const QString& name, const QString& caption, const QString& spoken,
                    const QString& toolTip)
{
    return {.name = name,
            .caption = caption,
            .spoken = spoken,
            .encoding = Encoding::faderPosition,
            .minimum = faderMinimum,
            .maximum = faderMaximum,
            .singleStep = faderSingleStep,
            .pageStep = faderPageStep,
            .hasBox = true,
            .boxMinimum = -70.0,
            .boxMaximum = 6.0,
            .suffix = decibels,
            .toolTip = toolTip};
}

const ControlRow& rowNamed(const QList<ControlRow>& rows, const QString& name)
{
    return find(rows, name);
}

const ButtonRow& rowNamed(const QList<ButtonRow>& rows, const QString& name)
{
    return find(rows, name);
}

namespace
{

constexpr int bypassWidth = 80;
constexpr int bypassHeight = 16;

void layBypass(FormBuilder& builder, QFrame* panel, const char* name, int y)
{
    builder.bypass(panel, rowNamed(buttonRows(), name),
                   {panel->width() - margin - bypassWidth, y, bypassWidth, bypassHeight});
}

void layRow(FormBuilder& builder, QFrame* panel, const QStringList& names, int y)
{
    const int column = (panel->width() - margin) / static_cast<int>(names.size());
    int middle = margin / 2 + column / 2;
    for (const QString& name : names) {
        builder.knob(panel, rowNamed(controlRows(), name), {middle, y});
        middle += column;
    }
}

} // namespace

QFrame* layEq(FormBuilder& builder, int left, int width)
{
    QFrame* panel =
        builder.group("groupBox_Eq", QStringLiteral("EQ"), {left, margin, width, panelHeight});
    const int column = width / 3;
    const int first = column / 2 + (width - 3 * column) / 2;
    const auto knob = [&builder, panel](const char* name, int middle, int y) {
        builder.knob(panel, rowNamed(controlRows(), name), {middle, y});
    };
    const auto head = [&builder, panel, column](const char* title, const char* role, int middle) {
        builder.label(panel, QLatin1String(title), {middle - column / 2, 32, column, 16}, role);
    };
    // The mid band has one dial more; the outer bands' second stands between its second and third.
    constexpr int gainTop = 56;
    constexpr int frequencyTop = 168;
    constexpr int qTop = 264;
    constexpr int outerFrequencyTop = 208;
    head("LOW", "eqLow", first);
    knob("eq_low_gain", first, gainTop);
    knob("eq_low_freq", first, outerFrequencyTop);
    head("MID", "eqMid", first + column);
    knob("eq_mid_gain", first + column, gainTop);
    knob("eq_mid_freq", first + column, frequencyTop);
    knob("eq_mid_q", first + column, qTop);
    head("HIGH", "eqHigh", first + 2 * column);
    knob("eq_hi_gain", first + 2 * column, gainTop);
    knob("eq_hi_freq", first + 2 * column, outerFrequencyTop);
    layBypass(builder, panel, "eq_bypass", 6);
    return panel;
}

QFrame* layDynamics(FormBuilder& builder, int left, int width)
{
    constexpr int half = panelHeight / 2;
    constexpr int firstDial = 54;
    QFrame* panel = builder.group("groupBox_Limiter", QStringLiteral("COMPRESSOR"),
                                  {left, margin, width, panelHeight});
    layRow(builder, panel,
           {"compressor_thresh", "compressor_ratio", "compressor_attack", "compressor_release",
            "compressor_gain"},
           firstDial);
    layBypass(builder, panel, "compressor_bypass", 6);

    builder.label(panel, {}, {margin, half, width - 2 * margin, 1}, "line");
    builder.label(panel, QStringLiteral("GATE"), {margin, half + 4, 120, 20}, "title")
        ->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    layRow(builder, panel, {"gate_thresh", "gate_attack", "gate_release", "gate_gain"},
           half + firstDial);
    layBypass(builder, panel, "gate_bypass", half + 6);
    return panel;
}

} // namespace stripparts
