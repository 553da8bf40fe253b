#include "reverbform.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"

#include <QFrame>

using namespace stripparts;

namespace
{

ControlRow soundRow(const char* name, const char* caption, const char* spoken, const char* suffix,
                    const char* toolTip)
{
    return {.name = name,
            .caption = caption,
            .spoken = spoken,
            .parameter = &parametertable::at(QLatin1String(name)),
            .hasBox = true,
            .suffix = suffix,
            .color = sendColor,
            .thickness = 5,
            .toolTip = toolTip};
}

QString sendName(int channel) { return QStringLiteral("reverbtab_ch%1_send_level").arg(channel); }

QList<ControlRow> makeControlRows()
{
    QList<ControlRow> rows;
    for (int channel = 1; channel <= channels::lastInput; ++channel)
        rows.append(
            faderRow(sendName(channel), QStringLiteral("CH %1").arg(channel),
                     QStringLiteral("channel %1 send level").arg(channel),
                     QStringLiteral("How much of channel %1 goes to the reverb.").arg(channel)));
    rows += {
        faderRow(ReverbForm::levelName(), "Level", "level",
                 "How much of the reverb goes to the mains."),
        soundRow("reverbtab_pre_delay", "Pre-delay", "pre-delay", " ms",
                 "The time before the reverb is heard, up to 200 ms."),
        soundRow("reverbtab_decay_time", "Decay", "decay time", " ms",
                 "How long the reverb takes to die away, up to 10 seconds."),
        soundRow("reverbtab_damping", "Damping", "damping", " %",
                 "How much faster the high notes die away."),
        soundRow("reverbtab_diffusion", "Diffusion", "diffusion", " %",
                 "How dense the reverb's echoes are."),
    };
    return rows;
}

} // namespace

const QList<ControlRow>& ReverbForm::controlRows()
{
    static const QList<ControlRow> rows = makeControlRows();
    return rows;
}

const QList<ButtonRow>& ReverbForm::buttonRows()
{
    static const QList<ButtonRow> rows{
        {"reverbtab_pre_post", "sends pre or post fader",
         "Send the channels to the reverb before or after their faders.", "PRE", "POST"},
        {"reverbtab_bypass", "bypass", "Take the reverb out of the signal."},
    };
    return rows;
}

ReverbForm::ReverbForm(QWidget* host, const QString& spokenPage)
{
    host->setGeometry(0, 0, pageWidth, pageHeight);
    FormBuilder builder(host, spokenPage);
    constexpr int column = 70;
    constexpr int sendsWidth = channels::lastInput * column + 2 * margin;
    constexpr int levelWidth = 88;
    constexpr int soundWidth = pageWidth - 4 * margin - sendsWidth - levelWidth;
    constexpr int top = 40;
    constexpr int faderHeight = panelHeight - margin - top;

    QFrame* sends = builder.group("groupBox_Sends", QStringLiteral("REVERB SENDS"),
                                  {margin, margin, sendsWidth, panelHeight});
    builder.button(sends, buttonRows().at(0), {sendsWidth - margin - 48, 4, 48, 20});
    for (int channel = 1; channel <= channels::lastInput; ++channel)
        builder.fader(sends, rowNamed(controlRows(), sendName(channel)),
                      {margin + (channel - 1) * column, top, column, faderHeight});

    int left = margin + sendsWidth + margin;
    QFrame* level = builder.group("groupBox_Level", QStringLiteral("REVERB"),
                                  {left, margin, levelWidth, panelHeight});
    builder.fader(level, rowNamed(controlRows(), levelName()), {0, top, levelWidth, faderHeight});

    left += levelWidth + margin;
    QFrame* sound = builder.group("groupBox_Sound", QStringLiteral("SOUND"),
                                  {left, margin, soundWidth, panelHeight});
    builder.bypass(sound, buttonRows().at(1), {soundWidth - margin - 80, 6, 80, 16});
    const int leftMiddle = soundWidth / 4 + 4;
    const int rightMiddle = soundWidth - leftMiddle;
    const auto knob = [&builder, sound](const char* name, int middle, int y) {
        builder.knob(sound, rowNamed(controlRows(), name), {middle, y});
    };
    knob("reverbtab_pre_delay", leftMiddle, 72);
    knob("reverbtab_decay_time", rightMiddle, 72);
    knob("reverbtab_damping", leftMiddle, 216);
    knob("reverbtab_diffusion", rightMiddle, 216);
    focusAreas = {sends, level, sound};
}
