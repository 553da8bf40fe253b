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
const QString milliseconds = QStringLiteral(" ms");

ControlRow dial(const char* name, const char* caption, const char* spoken, QColor color,
                const QString& toolTip, const QString& suffix = {}, int thickness = 6)
{
    return {.name = name,
            .caption = caption,
            .spoken = spoken,
            .hasBox = true,
            .suffix = suffix,
            .color = color,
            .thickness = thickness,
            .toolTip = toolTip};
}

ControlRow eqGain(const char* name, const char* spoken, QColor color)
{
    ControlRow row = dial(name, "Gain", spoken, color, QStringLiteral("±18dB"), decibels, 5);
    row.centered = true;
    row.hasReset = true;
    return row;
}

// A level whose lowest place means silence.
ControlRow silencing(const char* name, const char* caption, const char* spoken, QColor color,
                     const QString& toolTip)
{
    ControlRow row = dial(name, caption, spoken, color, toolTip, decibels);
    row.lowestText = QStringLiteral("-inf dB");
    return row;
}

// The release times and the gate's attack end below what their tooltips say: the mixer's makers
// left them so.
QList<ControlRow> makeControlRows()
{
    return {
        eqGain("eq_low_gain", "EQ low gain", eqLowColor),
        dial("eq_low_freq", "Freq", "EQ low frequency", eqLowColor, QStringLiteral("20Hz – 400Hz"),
             {}, 5),
        eqGain("eq_mid_gain", "EQ mid gain", eqMidColor),
        dial("eq_mid_freq", "Freq", "EQ mid frequency", eqMidColor, QStringLiteral("200Hz – 6kHz"),
             {}, 4),
        dial("eq_mid_q", "Q", "EQ mid Q", eqMidColor, QStringLiteral("0.1 – 10"), {}, 4),
        eqGain("eq_hi_gain", "EQ high gain", eqHighColor),
        dial("eq_hi_freq", "Freq", "EQ high frequency", eqHighColor, QStringLiteral("3kHz – 20kHz"),
             {}, 5),

        silencing("compressor_thresh", "Threshold", "compressor threshold", compressorColor,
                  QStringLiteral("-inf – +10dB")),
        dial("compressor_ratio", "Ratio", "compressor ratio", compressorColor,
             QStringLiteral("0.0 – 10.0")),
        dial("compressor_attack", "Attack", "compressor attack", compressorColor,
             QStringLiteral("1ms – 1000ms"), milliseconds),
        dial("compressor_release", "Release", "compressor release", compressorColor,
             QStringLiteral("1ms – 5000ms"), milliseconds),
        dial("compressor_gain", "Gain", "compressor gain", compressorColor,
             QStringLiteral("0dB – +24dB"), decibels),

        silencing("gate_thresh", "Threshold", "gate threshold", gateColor,
                  QStringLiteral("-inf – +10dB")),
        dial("gate_attack", "Attack", "gate attack", gateColor, QStringLiteral("1ms – 5000ms"),
             milliseconds),
        dial("gate_release", "Release", "gate release", gateColor, QStringLiteral("1ms – 5000ms"),
             milliseconds),
        silencing("gate_gain", "Gain", "gate gain", gateColor, QStringLiteral("-inf – 0dB")),
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
            .parameter = parametertable::find(name),
            .hasBox = true,
            .suffix = decibels,
            .toolTip = toolTip};
}

ControlRow panRow(const QString& name, const QString& spoken, int thickness, const QString& toolTip)
{
    return {.name = name,
            .caption = "Pan",
            .spoken = spoken,
            .color = sendColor,
            .thickness = thickness,
            .centered = true,
            .hasReset = true,
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

void layRow(FormBuilder& builder, QFrame* panel, const QList<ControlRow>& rows,
            const QStringList& names, int y)
{
    const int column = (panel->width() - margin) / static_cast<int>(names.size());
    int middle = margin / 2 + column / 2;
    for (const QString& name : names) {
        builder.knob(panel, rowNamed(rows, name), {middle, y});
        middle += column;
    }
}

} // namespace

QFrame* layEq(FormBuilder& builder, const QList<ControlRow>& rows, int left, int width)
{
    QFrame* panel =
        builder.group("groupBox_Eq", QStringLiteral("EQ"), {left, margin, width, panelHeight});
    const int column = width / 3;
    const int first = column / 2 + (width - 3 * column) / 2;
    const auto knob = [&](const char* name, int middle, int y) {
        builder.knob(panel, rowNamed(rows, name), {middle, y});
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

QFrame* layDynamics(FormBuilder& builder, const QList<ControlRow>& rows, int left, int width)
{
    constexpr int half = panelHeight / 2;
    constexpr int firstDial = 54;
    QFrame* panel = builder.group("groupBox_Limiter", QStringLiteral("COMPRESSOR"),
                                  {left, margin, width, panelHeight});
    layRow(builder, panel, rows,
           {"compressor_thresh", "compressor_ratio", "compressor_attack", "compressor_release",
            "compressor_gain"},
           firstDial);
    layBypass(builder, panel, "compressor_bypass", 6);

    builder.label(panel, {}, {margin, half, width - 2 * margin, 1}, "line");
    builder.label(panel, QStringLiteral("GATE"), {margin, half + 4, 120, 20}, "title")
        ->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    layRow(builder, panel, rows, {"gate_thresh", "gate_attack", "gate_release", "gate_gain"},
           half + firstDial);
    layBypass(builder, panel, "gate_bypass", half + 6);
    return panel;
}

} // namespace stripparts
