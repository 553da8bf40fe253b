#include "channelstripform.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"

#include <QFrame>
#include <QLabel>
#include <QToolButton>

using namespace stripparts;

namespace
{

constexpr int gainWidth = 112;
constexpr int routingWidth = 192;
constexpr int panHeight = 96;

constexpr const char* numberWords[]{"ONE", "TWO", "THREE", "FOUR", "FIVE", "SIX", "SEVEN", "EIGHT"};

ControlRow trimRow(int channel)
{
    // The inputs without a pad have their range 20 dB higher.
    const double shift = channels::hasPad(channel) ? 0.0 : 20.0;
    return {.name = "trim",
            .caption = "Trim",
            .spoken = "trim",
            .hasBox = true,
            .suffix = " dB",
            .tableLimits = BoxLimits{-20.0 + shift, 40.0 + shift},
            .color = gainColor,
            .thickness = 5,
            .toolTip = "The gain of the input before everything else."};
}

ControlRow highPassRow()
{
    return {.name = "highPass_freq",
            .caption = "High pass",
            .spoken = "high-pass frequency",
            .hasBox = true,
            .color = gainColor,
            .thickness = 5,
            .toolTip = "Frequencies below this one are taken out, 40 to 400 Hz."};
}

QString auxName(int aux, const char* part)
{
    return QStringLiteral("aux%1_routing_%2").arg(aux).arg(QLatin1String(part));
}

ControlRow sendRow(int aux)
{
    return {.name = auxName(aux, "send_level"),
            .caption = "Send",
            .spoken = QStringLiteral("aux %1 send").arg(aux),
            .color = sendColor,
            .thickness = 4,
            .toolTip = QStringLiteral("How much of the channel goes to aux %1.").arg(aux)};
}

QList<ButtonRow> makeButtonRows()
{
    QList<ButtonRow> rows = stripparts::buttonRows();
    rows += {
        {"highPass_bypass", "high-pass bypass", "Take the high-pass filter out of the signal."},
        {"stereo", "stereo pair",
         "Enable stereo pairs to copy all parameters from the first to the second channel in the "
         "pair. After pairing, all parameters for the two channels will be linked (except panning "
         "-- panning parameters are mirrored after linking).",
         "OFF", "PAIRED"},
        {"phantom", "phantom power", "Phantom power for a microphone that needs it."},
    };
    for (int aux = 1; aux <= channels::auxes; ++aux)
        rows.append({auxName(aux, "pre_post"), QStringLiteral("aux %1 pre or post fader").arg(aux),
                     QStringLiteral("Send to aux %1 before or after the channel's fader.").arg(aux),
                     "PRE", "POST"});
    return rows;
}

const ButtonRow& buttonRow(const QString& name)
{
    return rowNamed(ChannelStripForm::buttonRows(), name);
}

QFrame* layGain(FormBuilder& builder, const QList<ControlRow>& rows, int channel, int firstOfPair)
{
    QFrame* panel = builder.group("groupBox_Gain", {}, {margin, margin, gainWidth, panelHeight});
    QLabel* number =
        builder.label(panel, numberWords[channel - 1], {0, 6, gainWidth, 24}, "channel");
    number->setObjectName(QStringLiteral("channelNumLabel"));
    number->setAccessibleName(QStringLiteral("Channel %1").arg(channel));

    constexpr int inner = gainWidth - 2 * margin;
    constexpr int middle = inner / 2;
    QFrame* trim = builder.frame(panel, "trim_frame", {margin, 36, inner, 120});
    builder.knob(trim, rowNamed(rows, "trim"), {middle, 0});
    builder.button(trim, buttonRow("phantom"), {middle - 24, 98, 48, 20});

    QFrame* highPass = builder.frame(panel, "highPass_frame", {margin, 164, inner, 120});
    builder.knob(highPass, rowNamed(rows, "highPass_freq"), {middle, 0});
    builder.bypass(highPass, buttonRow("highPass_bypass"), {middle - 38, 100, 76, 16});

    QFrame* stereo = builder.frame(panel, "stereoGroup_frame", {margin, 296, inner, 52});
    builder
        .label(stereo, QStringLiteral("Ch.%1&%2").arg(firstOfPair).arg(firstOfPair + 1),
               {0, 0, inner, 20})
        ->setObjectName(QStringLiteral("stereo_label"));
    builder.button(stereo, buttonRow("stereo"), {middle - 36, 24, 72, 20});
    return panel;
}

QFrame* layRouting(FormBuilder& builder, const QList<ControlRow>& rows, int left)
{
    QFrame* panel = builder.group("groupBox_Routing", QStringLiteral("AUX SENDS"),
                                  {left, margin, routingWidth, panelHeight - panHeight - margin});
    constexpr int rowHeight = 72;
    for (int aux = 1; aux <= channels::auxes; ++aux) {
        const int y = 32 + (aux - 1) * rowHeight;
        builder.label(panel, QStringLiteral("AUX %1").arg(aux), {margin, y + 2, 56, 16}, "send");
        builder.button(panel, buttonRow(auxName(aux, "pre_post")), {margin + 4, y + 24, 48, 20});
        builder.knob(panel, rowNamed(rows, auxName(aux, "send_level")), {96, y});
        builder.knob(panel, rowNamed(rows, auxName(aux, "pan")), {152, y});
    }
    return panel;
}

QFrame* layPan(FormBuilder& builder, const QList<ControlRow>& rows, int left)
{
    QFrame* panel = builder.group("pan_frame", QStringLiteral("PAN"),
                                  {left, pageHeight - margin - panHeight, routingWidth, panHeight});
    constexpr int middle = routingWidth / 2;
    builder.knob(panel, rowNamed(rows, "pan"), {middle, 16});
    builder.label(panel, QStringLiteral("L"), {middle - 52, 60, 16, 16});
    builder.label(panel, QStringLiteral("R"), {middle + 36, 60, 16, 16});
    return panel;
}

} // namespace

ChannelStripForm::ChannelStripForm(QWidget* host, const QString& spokenPage, int channel,
                                   int firstOfPair)
{
    host->setGeometry(0, 0, pageWidth, pageHeight);
    const QList<ControlRow> rows = controlRows(channel);
    FormBuilder builder(host, spokenPage);

    int left = margin;
    QFrame* gain = layGain(builder, rows, channel, firstOfPair);
    left += gainWidth + margin;
    QFrame* eq = layEq(builder, rows, left);
    left += eqWidth + margin;
    QFrame* dynamics = layDynamics(builder, rows, left);
    left += dynamicsWidth + margin;
    routing = layRouting(builder, rows, left);
    QFrame* pan = layPan(builder, rows, left);

    phantom = host->findChild<QToolButton*>(QStringLiteral("phantom"));
    focusAreas = {eq,      gain, dynamics,
                  routing, pan,  host->findChild<QFrame*>(QStringLiteral("stereoGroup_frame"))};
}

QList<ControlRow> ChannelStripForm::controlRows(int channel)
{
    QList<ControlRow> rows = stripparts::controlRows();
    rows += {trimRow(channel), highPassRow(),
             panRow("pan", "pan", 5, "Where the channel stands between left and right.")};
    for (int aux = 1; aux <= channels::auxes; ++aux)
        rows += {sendRow(aux),
                 panRow(auxName(aux, "pan"), QStringLiteral("aux %1 pan").arg(aux), 4,
                        QStringLiteral("Where the channel stands in aux %1.").arg(aux))};
    setParameters(rows, QStringLiteral("channelstrip_ch%1_").arg(channel));
    return rows;
}

const QList<ButtonRow>& ChannelStripForm::buttonRows()
{
    static const QList<ButtonRow> rows = makeButtonRows();
    return rows;
}
