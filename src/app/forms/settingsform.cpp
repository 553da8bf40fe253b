#include "settingsform.h"

#include "formbuilder.h"
#include "forms/dialogparts.h"
#include "mixershape.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace
{

constexpr int edge = 26;
constexpr int gap = 8;
constexpr int pad = 10;
constexpr int top = 50;
constexpr int columnWidth = (SettingsForm::width - 2 * edge - 3 * gap) / 4;
constexpr int firstLine = 24;
constexpr int lineStep = 24;
constexpr int lineHeight = 20;
constexpr int controlWidth = 62;

constexpr int columnLeft(int column) { return edge + column * (columnWidth + gap); }
constexpr int groupHeight(int lines) { return firstLine + lines * lineStep + 5; }
constexpr int lineTop(int line) { return firstLine + line * lineStep; }
// The right part of a line.
constexpr QRect controlPlace(int line, int width = controlWidth)
{
    return {columnWidth - pad - width, lineTop(line), width, lineHeight};
}

QString linePhonoName(int channel) { return QStringLiteral("ch%1_line_phono").arg(channel); }

ButtonRow onOffRow(const char* name, const char* spoken, const char* toolTip)
{
    return {name, spoken, toolTip, "OFF", "ON"};
}

QList<ButtonRow> makeButtonRows()
{
    QList<ButtonRow> rows{
        onOffRow("ch1_phantom", "phantom power of channel 1",
                 "Feed the microphone of channel 1 with phantom power."),
        onOffRow("ch2_phantom", "phantom power of channel 2",
                 "Feed the microphone of channel 2 with phantom power."),
        onOffRow("hardware_limiter", "hardware limiter", "Limit what the inputs get."),
        onOffRow("mode_backlighting_enable", "mode backlighting",
                 "Light the mode buttons of the mixer."),
        onOffRow("tone_gen_enable", "tone generator", "Let the mixer sound a test tone."),
        onOffRow("pass_thru_width", "pass thru, faders",
                 "A fader takes hold only when it passes its parameter's value."),
        onOffRow("pass_thru_rotaries", "pass thru, rotaries",
                 "A rotary takes hold only when it passes its parameter's value."),
        onOffRow("expander_control", "expander control",
                 "Let an expander that is plugged in control the mixer."),
    };
    for (int channel = 3; channel <= channels::lastInput; ++channel)
        rows.append({linePhonoName(channel), QStringLiteral("input of channel %1").arg(channel),
                     QStringLiteral("What is plugged into channel %1.").arg(channel),
                     QStringLiteral("Ch #%1 Phono").arg(channel),
                     QStringLiteral("Ch #%1 Line").arg(channel)});
    return rows;
}

const ButtonRow& buttonRow(const QString& name)
{
    for (const ButtonRow& row : SettingsForm::buttonRows())
        if (row.name == name)
            return row;
    Q_UNREACHABLE();
}

QToolButton* layPreference(FormBuilder& builder, QFrame* panel, int line, const ButtonRow& row,
                           const QString& caption, int width = controlWidth)
{
    builder.lineLabel(panel, caption, {pad, lineTop(line), columnWidth / 2 + 24, lineHeight});
    return builder.button(panel, row, controlPlace(line, width));
}

} // namespace

const QList<ControlRow>& SettingsForm::controlRows()
{
    static const QList<ControlRow> rows{
        {.name = "led_brightness",
         .caption = "LED Brightness",
         .spoken = "LED brightness",
         .parameter = &parametertable::at(QStringLiteral("led_brightness")),
         .toolTip = "How bright the mixer's lights are, 0 to 31."},
        {.name = "tone_gen_freq",
         .caption = "Frequency",
         .spoken = "tone generator frequency",
         .parameter = &parametertable::at(QStringLiteral("tone_gen_freq")),
         .suffix = " Hz",
         .toolTip = "The pitch of the test tone, 20 to 16000 Hz."},
        {.name = "usb_sample_rate",
         .caption = "Sample Rate",
         .spoken = "USB sample rate",
         .toolTip = "How often a second the USB audio driver takes a sample."},
        {.name = "usb_buffer",
         .caption = "Buffer Size",
         .spoken = "USB buffer size",
         .toolTip = "How many samples the USB audio driver passes on at a time."},
    };
    return rows;
}

const QList<ButtonRow>& SettingsForm::buttonRows()
{
    static const QList<ButtonRow> rows = makeButtonRows();
    return rows;
}

const QList<ChoiceRow>& SettingsForm::choiceRows()
{
    static const QList<ChoiceRow> rows{
        {.name = "phantom_voltage",
         .caption = "Phantom Voltage",
         .spoken = "phantom voltage",
         .toolTip = "How much the phantom power feeds.",
         .buttons = {{"phantom_voltage_12", 0, " +12V"}, {"phantom_voltage_48", 1, " +48V"}}},
        {.name = "phones_impedance",
         .caption = "PHONES OUTPUT GAIN",
         .spoken = "phones output gain",
         .toolTip = "How loud the phones can get.",
         .buttons = {{"phones_impedance_0", 0, "LOW"},
                     {"phones_impedance_1", 1, "MEDIUM"},
                     {"phones_impedance_2", 2, "HIGH"}}},
    };
    return rows;
}

void SettingsForm::setupDialog(QWidget* dialog)
{
    dialog->resize(width, height);
    dialogparts::setupDialog(dialog, "settingsDialogForm", QStringLiteral("J-SUM SETTINGS"));
    close_button = dialogparts::addButton(dialog, "close_button", QStringLiteral("Close"), 0,
                                          QStringLiteral("Close the settings."));
    close_button->move(width - edge - close_button->width(), close_button->y() + 4);
    globalSendButton =
        dialogparts::addButton(dialog, "globalSendButton", QStringLiteral("Save to the Mixer"), 0,
                               QStringLiteral("Keep these settings in the mixer's memory, so that "
                                              "they are there when it is switched on again."));
    globalSendButton->setGeometry(edge, height - 16 - 24, 150, 28);
    mixerParts.append(globalSendButton);
}

void SettingsForm::setupUi(QWidget* host)
{
    host->setGeometry(0, 0, width, height);
    FormBuilder builder(host, QStringLiteral("Settings"));
    layMixer(builder);
    layUsb(builder);
    layPreferences(builder);
}

void SettingsForm::layMixer(FormBuilder& builder)
{
    const auto group = [this, &builder](const char* name, const char* title, int column, int y,
                                        int lines) {
        QFrame* panel = builder.group(name, QLatin1String(title),
                                      {columnLeft(column), y, columnWidth, groupHeight(lines)});
        mixerParts.append(panel);
        return panel;
    };
    const auto line = [&builder](QFrame* panel, int number, const char* name, const char* caption) {
        layPreference(builder, panel, number, buttonRow(QLatin1String(name)),
                      QLatin1String(caption));
    };
    const int second = top + groupHeight(3) + gap;
    QFrame* phantom = group("phantomFrame", "PHANTOM POWER", 0, top, 3);
    line(phantom, 0, "ch1_phantom", "Channel 1");
    line(phantom, 1, "ch2_phantom", "Channel 2");
    builder.choice(phantom, choiceRows().at(0),
                   {pad, lineTop(2), columnWidth - 2 * pad, lineHeight});
    QFrame* phones = group("phonesFrame", "PHONES OUTPUT GAIN", 0, second, 1);
    builder.choice(phones, choiceRows().at(1),
                   {pad, lineTop(0), columnWidth - 2 * pad, lineHeight});

    QFrame* inputs = group("linePhonoFrame", "LINE/PHONO SWITCHES", 1, top, 3);
    for (int channel = 3; channel <= channels::lastInput; ++channel) {
        constexpr int half = (columnWidth - 2 * pad - 6) / 2;
        const int place = channel - 3;
        builder.button(inputs, buttonRow(linePhonoName(channel)),
                       {pad + place % 2 * (half + 6), lineTop(place / 2), half, lineHeight});
    }
    QFrame* passThru = group("passThruFrame", "Pass Thru", 1, second, 2);
    line(passThru, 0, "pass_thru_width", "Faders");
    line(passThru, 1, "pass_thru_rotaries", "Rotaries");

    QFrame* device = group("deviceFrame", "MIXER", 2, top, 4);
    line(device, 0, "hardware_limiter", "Hardware Limiter");
    line(device, 1, "expander_control", "Expander Control");
    line(device, 2, "mode_backlighting_enable", "Mode Backlighting");
    builder.number(device, controlRows().at(0),
                   {pad, lineTop(3), columnWidth - 2 * pad, lineHeight});
    QFrame* tone = group("toneFrame", "TONE GENERATOR", 2, top + groupHeight(4) + gap, 2);
    line(tone, 0, "tone_gen_enable", "Tone");
    builder.number(tone, controlRows().at(1), {pad, lineTop(1), columnWidth - 2 * pad, lineHeight});
}

void SettingsForm::layUsb(FormBuilder& builder)
{
    const int y = top + groupHeight(4) + gap;
    QFrame* usb = builder.group("advancedFrame", QStringLiteral("USB AUDIO"),
                                {columnLeft(3), y, columnWidth, groupHeight(3)});
    advancedFrame = usb;
    const QRect place(pad, lineTop(0), columnWidth - 2 * pad, lineHeight);
    usb_sample_rate =
        builder.menu(usb, controlRows().at(2), {"44100", "48000", "88200", "96000"}, place);
    usb_buffer = builder.menu(usb, controlRows().at(3), {"64", "128", "256", "512", "1024", "2048"},
                              place.translated(0, lineStep));
    controlPanel = new QPushButton(usb);
    controlPanel->setObjectName(QStringLiteral("controlPanel"));
    controlPanel->setToolTip(QStringLiteral("Open the USB audio driver's own settings."));
    controlPanel->setGeometry(place.translated(0, 2 * lineStep));
}

void SettingsForm::layPreferences(FormBuilder& builder)
{
    QFrame* editor = builder.group("preferencesFrame", QStringLiteral("EDITOR"),
                                   {columnLeft(3), top, columnWidth, groupHeight(4)});
    view_linking_enable = layPreference(
        builder, editor, 0,
        {"view_linking_enable", "view linking",
         "Let the mixer's panel and the editor show the same page and channel.", "OFF", "ON"},
        QStringLiteral("View Linking"));
    auto_check_for_updates = layPreference(
        builder, editor, 1,
        {"auto_check_for_updates", "check for updates",
         "Look for a newer version of the editor each time that it starts.", "OFF", "ON"},
        QStringLiteral("Check for Updates"));
    hui = layPreference(builder, editor, 2,
                        {"hui", "HUI",
                         "Let the mixer's faders and buttons control a recording program.", "OFF",
                         "ON"},
                        QStringLiteral("HUI"));
    constexpr int helpSide = 20;
    huiHelp = builder.button(
        editor, {"huiHelp", "about HUI", "What HUI needs.", "?", {}},
        {columnWidth - pad - controlWidth - 4 - helpSide, lineTop(2), helpSide, lineHeight});
    huiHelp->setCheckable(false);
    reset_receive_decision = new QPushButton(QStringLiteral("Ask Again on Receive"), editor);
    reset_receive_decision->setObjectName(QStringLiteral("reset_receive_decision"));
    reset_receive_decision->setToolTip(
        QStringLiteral("Forget the remembered decision where a received slot goes."));
    reset_receive_decision->setGeometry(pad, lineTop(3), columnWidth - 2 * pad, lineHeight);
}
