#include "surroundform.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"
#include "surroundpuck.h"
#include "surroundroom.h"

#include <QAbstractSpinBox>
#include <QFrame>
#include <QLabel>
#include <QToolButton>

using namespace stripparts;

namespace
{

constexpr int firstLine = 32;
constexpr int lineHeight = 24;

constexpr int roomWidth = 376;
constexpr int settingsLeft = margin + roomWidth + margin;
constexpr int settingsWidth = 272;
constexpr int settingsHeight = 130;
constexpr int rotariesTop = margin + settingsHeight + margin;
constexpr int rotariesHeight = pageHeight - margin - rotariesTop;
constexpr int channelsLeft = settingsLeft + settingsWidth + margin;
constexpr int channelsWidth = pageWidth - margin - channelsLeft;

QString rotaryName(int rotary) { return QStringLiteral("surroundtab_rotary%1").arg(rotary); }
QString radiusName(int rotary) { return rotaryName(rotary) + QStringLiteral("_radius"); }
QString angleName(int rotary) { return rotaryName(rotary) + QStringLiteral("_angle"); }
QString bassName() { return QStringLiteral("surroundtab_bass_management"); }

QList<ControlRow> makeControlRows()
{
    QList<ControlRow> rows{
        {.name = bassName(),
         .caption = "Bass Management",
         .spoken = "bass management",
         .suffix = " Hz",
         .lowestText = "off",
         .toolTip = "Send what is lower than this to the LFE loudspeaker, 40 to 200 Hz. "
                    "Press O to switch it off."},
    };
    for (int rotary = 1; rotary <= panel::rotaries; ++rotary) {
        const QString spoken = QStringLiteral("rotary %1 ").arg(rotary);
        rows.append({.name = radiusName(rotary),
                     .spoken = spoken + QStringLiteral("radius"),
                     .toolTip = "How far from the middle of the room, 0 to 127."});
        rows.append({.name = angleName(rotary),
                     .spoken = spoken + QStringLiteral("angle"),
                     .suffix = QStringLiteral("°"),
                     .toolTip = "In which direction, clockwise from the front."});
    }
    setParameters(rows, {});
    return rows;
}

QList<ChoiceRow> makeChoiceRows()
{
    const QString format = SurroundForm::formatName();
    QList<ChoiceRow> rows{
        {.name = format,
         .spoken = "format",
         .toolTip = "Which loudspeakers the room has.",
         .buttons = {{format + QStringLiteral("_quad"), 0, "QUAD"},
                     {format + QStringLiteral("_51"), 1, "5.1"},
                     {format + QStringLiteral("_71"), 2, "7.1"}}},
    };
    for (int channel = 1; channel <= channels::lastInput; ++channel) {
        ChoiceRow row{.name = SurroundForm::assignName(channel),
                      .spoken = QStringLiteral("channel %1 on rotary").arg(channel),
                      .toolTip = QStringLiteral("Which rotary moves channel %1.").arg(channel)};
        for (int rotary = 1; rotary <= panel::rotaries; ++rotary)
            row.buttons.append({QStringLiteral("%1_%2").arg(row.name).arg(rotary), rotary - 1,
                                QString::number(rotary)});
        rows.append(row);
    }
    return rows;
}

} // namespace

QString SurroundForm::assignName(int channel)
{
    return QStringLiteral("surroundtab_ch%1_assign").arg(channel);
}

const QList<ControlRow>& SurroundForm::controlRows()
{
    static const QList<ControlRow> rows = makeControlRows();
    return rows;
}

const QList<ButtonRow>& SurroundForm::buttonRows()
{
    static const QList<ButtonRow> rows{
        {enableName(), "on", "Pan the channels in the room. The aux buses are used for it.", "OFF",
         "ON"}};
    return rows;
}

const QList<ChoiceRow>& SurroundForm::choiceRows()
{
    static const QList<ChoiceRow> rows = makeChoiceRows();
    return rows;
}

SurroundForm::SurroundForm(QWidget* host, const QString& spokenPage)
{
    FormBuilder builder(host, spokenPage);
    laySettings(builder);
    layRoom(builder);
    layRotaries(builder);
    layChannels(builder);
}

void SurroundForm::laySettings(FormBuilder& builder)
{
    QFrame* settings = builder.group("groupBox_Surround", QStringLiteral("SURROUND"),
                                     {settingsLeft, margin, settingsWidth, settingsHeight});
    constexpr int controlWidth = 132;
    const auto line = [](int number) {
        return QRect(margin, firstLine + number * (lineHeight + margin), settingsWidth - 2 * margin,
                     lineHeight);
    };
    const auto control = [&line](int number) {
        return line(number).adjusted(settingsWidth - 2 * margin - controlWidth, 0, 0, 0);
    };
    builder.lineLabel(settings, QStringLiteral("Surround"), line(0));
    builder.button(settings, buttonRows().at(0), control(0))->setProperty("role", "enable");
    builder.lineLabel(settings, QStringLiteral("Format"), line(1));
    builder.keys(settings, choiceRows().at(0), control(1));
    builder.number(settings, rowNamed(controlRows(), bassName()), line(2));
    focusAreas.append(settings);
}

void SurroundForm::layRoom(FormBuilder& builder)
{
    QFrame* ground = builder.group("groupBox_Room", QStringLiteral("ROOM"),
                                   {margin, margin, roomWidth, panelHeight});
    room = new SurroundRoom(ground);
    room->setGeometry(1, 1, roomWidth - 2, panelHeight - 2);
    for (int rotary = 1; rotary <= panel::rotaries; ++rotary) {
        SurroundPuck* puck = room->addPuck(rotary);
        puck->setObjectName(rotaryName(rotary));
        puck->setAccessibleName(builder.accessible(QStringLiteral("rotary %1").arg(rotary)));
        puck->setToolTip(
            QStringLiteral("Drag rotary %1 to its place. The arrow keys move it too: up and down "
                           "away from the middle and back, left and right around it.")
                .arg(rotary));
    }
    focusAreas.append(ground);
    focusAreas.append(room);
}

void SurroundForm::layRotaries(FormBuilder& builder)
{
    QFrame* rotaries = builder.group("groupBox_Rotaries", QStringLiteral("ROTARIES"),
                                     {settingsLeft, rotariesTop, settingsWidth, rotariesHeight});
    constexpr int columns[]{margin, 40, 112, 184};
    constexpr int boxWidth = 60;
    constexpr int headHeight = 16;
    const auto head = [&builder, rotaries](int left, const char* text) {
        builder.label(rotaries, QLatin1String(text), {left, firstLine, boxWidth, headHeight});
    };
    head(columns[1], "Radius");
    head(columns[2], "Angle");
    builder.lineLabel(rotaries, QStringLiteral("Channels"),
                      {columns[3], firstLine, boxWidth, headHeight});
    for (int rotary = 1; rotary <= panel::rotaries; ++rotary) {
        const int y = firstLine + headHeight + margin / 2 + (rotary - 1) * (lineHeight + margin);
        builder.label(rotaries, QString::number(rotary), {columns[0], y, lineHeight, lineHeight},
                      "rotary");
        const auto box = [&](int column, const QString& name) {
            return builder.numberBox(rotaries, rowNamed(controlRows(), name),
                                     {columns[column], y, boxWidth, lineHeight});
        };
        QAbstractSpinBox* radius = box(1, radiusName(rotary));
        QAbstractSpinBox* angle = box(2, angleName(rotary));
        angle->setWrapping(true);
        carried.append(builder.lineLabel(
            rotaries, {}, {columns[3], y, settingsWidth - margin / 2 - columns[3], lineHeight}));

        SurroundPuck* puck = room->pucks().at(rotary - 1);
        QObject::connect(radius, SIGNAL(valueChanged(int)), puck, SLOT(slotSetRadius(int)));
        QObject::connect(angle, SIGNAL(valueChanged(int)), puck, SLOT(slotSetAngle(int)));
        QObject::connect(puck, SIGNAL(signalRadius(int)), radius, SLOT(setValue(int)));
        QObject::connect(puck, SIGNAL(signalAngle(int)), angle, SLOT(setValue(int)));
    }
    focusAreas.append(rotaries);
}

void SurroundForm::layChannels(FormBuilder& builder)
{
    QFrame* inputs = builder.group("groupBox_Channels", QStringLiteral("CHANNELS"),
                                   {channelsLeft, margin, channelsWidth, panelHeight});
    constexpr int captionWidth = 48;
    constexpr int keysWidth = channelsWidth - captionWidth - 2 * margin;
    builder.label(inputs, QStringLiteral("On Rotary"),
                  {margin + captionWidth, firstLine, keysWidth, 16});
    for (int channel = 1; channel <= channels::lastInput; ++channel) {
        const int y = firstLine + 20 + (channel - 1) * (lineHeight + margin);
        builder.lineLabel(inputs, QStringLiteral("CH %1").arg(channel),
                          {margin, y, captionWidth, lineHeight});
        builder.keys(inputs, choiceRows().at(channel),
                     {margin + captionWidth, y, keysWidth, lineHeight});
    }
    focusAreas.append(inputs);
}
