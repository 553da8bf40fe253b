#include "midiform.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "panelmap.h"
#include "stripparts.h"

#include <QFrame>
#include <QLabel>
#include <QSpinBox>
#include <QStackedWidget>
#include <QToolButton>

namespace
{

using stripparts::margin;
constexpr int gap = 6;
constexpr int pad = 4;
constexpr int headerHeight = 24;
constexpr int top = margin + headerHeight + gap;
constexpr int titleHeight = 24;
constexpr int upperHeight = 102;
constexpr int saveHeight = 24;
constexpr int keyColumns = 3;
constexpr int keyRows = panel::buttons / keyColumns;

constexpr int boxWidth = 34;
constexpr int boxHeight = 18;
constexpr int toggleHeight = 16;
constexpr int keyHeight = 42;
constexpr int widestKey = 66;

constexpr int columnWidth(int formWidth)
{
    return (formWidth - 2 * margin - gap - 4 * pad) / (panel::faders + keyColumns);
}

QRect boxAt(const QPoint& middle)
{
    return {middle.x() - boxWidth / 2 + 1, middle.y() - boxHeight / 2 + 1, boxWidth, boxHeight};
}

QString faderName(int number, const char* word)
{
    return number == channels::mains ? QStringLiteral("mains %1").arg(QLatin1String(word))
                                     : QStringLiteral("%1 %2").arg(QLatin1String(word)).arg(number);
}

} // namespace

MidiForm::MidiForm(QWidget* form, const QSize& size, const QString& spokenPage)
    : host(form)
    , column(columnWidth(size.width()))
{
    host->resize(size);
    FormBuilder builder(host, spokenPage);
    layPanels(builder);
    layMap();
    layHeader(builder);
    layRotaries(builder);
    layKey(builder, {}, QStringLiteral("presetbutton"), QStringLiteral("preset button"),
           {preset.x() + 2 * pad, top + titleHeight + 14, column, keyHeight});
    layDiamond(builder);
    layFaders(builder);
    layButtons(builder);
}

void MidiForm::layPanels(FormBuilder& builder)
{
    const int left = panel::faders * column + 2 * pad;
    const int bottom = host->height() - margin;
    rotaries = {margin, top, panel::rotaries * column + 2 * pad, upperHeight};
    preset = {rotaries.right() + 1 + gap, top, column + 4 * pad, upperHeight};
    const int diamondLeft = preset.right() + 1 + gap;
    diamond = {diamondLeft, top, margin + left - diamondLeft, upperHeight};
    const int fadersTop = top + upperHeight + gap;
    faders = {margin, fadersTop, left, bottom - fadersTop};
    const int buttonsLeft = margin + left + gap;
    buttons = {buttonsLeft, top, host->width() - margin - buttonsLeft, bottom - top};

    const auto group = [&builder](const char* name, const char* title, const QRect& place,
                                  const char* sends) {
        QFrame* part = builder.group(name, QLatin1String(title), place);
        builder.label(part, QLatin1String(sends), {pad, 4, place.width() - 3 * pad, 20}, "sends")
            ->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    };
    group("midiRotariesFrame", "ROTARIES", rotaries, "CC");
    group("midiPresetFrame", "PRESET", preset, "");
    group("midiDiamondFrame", "DIAMOND", diamond, "notes");
    group("midiFadersFrame", "FADERS AND SELECT KEYS", faders, "faders CC, select keys notes");
    group("midiButtonsFrame", "BUTTONS", buttons, "notes");
}

void MidiForm::layMap()
{
    map = new PanelMap(host);
    map->setGeometry(host->rect());
    pages = new QStackedWidget(host);
    pages->setObjectName(QStringLiteral("bankPages"));
    pages->setGeometry(host->rect());
    for (int bank = 1; bank <= panel::banks; ++bank)
        pages->addWidget(new QWidget(pages));
}

void MidiForm::layHeader(FormBuilder& builder)
{
    constexpr int width = 84;
    int left = margin;
    for (int bank = 1; bank <= panel::banks; ++bank) {
        const QString spoken = QStringLiteral("bank %1").arg(bank);
        QToolButton* key =
            builder.button(host,
                           {QStringLiteral("midiBank%1").arg(bank),
                            spoken,
                            QStringLiteral("Show what the panel sends in %1.").arg(spoken),
                            spoken.toUpper(),
                            {}},
                           {left, margin, width, headerHeight});
        key->setProperty("role", "bank");
        bankButtons.append(key);
        left += width + 4;
    }
    left += 12;
    builder.lineLabel(host, QStringLiteral("MIDI channel"), {left, margin, 74, headerHeight});
    layNumbers(builder, QStringLiteral("miditab_bank%1_channel"), QStringLiteral("MIDI channel"),
               QStringLiteral("The MIDI channel of bank %1, 1 to 16."),
               {left + 76, margin + 3, boxWidth, boxHeight});
    left += 76 + boxWidth + 16;
    clashes =
        builder.lineLabel(host, {}, {left, margin, host->width() - margin - left, headerHeight});
    clashes->setObjectName(QStringLiteral("midiClashes"));
    clashes->setProperty("role", "clash");
}

void MidiForm::layRotaries(FormBuilder& builder)
{
    for (int number = 1; number <= panel::rotaries; ++number) {
        const QRect place(rotaries.x() + pad + (number - 1) * column, top + titleHeight, column,
                          upperHeight - titleHeight - 2);
        map->add(PanelMap::Shape::Rotary, place, QString::number(number));
        laySender(builder, QStringLiteral("rotary%1").arg(number), QStringLiteral("cc"),
                  QStringLiteral("rotary %1").arg(number), boxAt(PanelMap::ringOf(place).center()));
    }
}

void MidiForm::layDiamond(FormBuilder& builder)
{
    const QString control = QStringLiteral("diamond");
    const QRect place = diamond.adjusted(pad, titleHeight - 2, -pad, -3);
    map->add(PanelMap::Shape::Diamond, place, {});
    const QPoint middle = place.center();
    const QPoint aside(place.width() / 2 - 46, 0);
    constexpr QPoint above(0, toggleHeight / 2 + boxHeight / 2 + 1);
    const auto lay = [&](const char* direction, const QPoint& at) {
        laySender(builder, control, QLatin1String(direction) + QStringLiteral("_note"),
                  QStringLiteral("diamond ") + QLatin1String(direction), boxAt(at));
    };
    lay("up", middle - above);
    lay("left", middle - aside);
    layToggle(builder, control, control,
              {middle.x() - column / 2, middle.y() - toggleHeight / 2 + 1, column, toggleHeight});
    lay("right", middle + aside);
    lay("down", middle + above);
}

void MidiForm::layFaders(FormBuilder& builder)
{
    const int selects = faders.bottom() + 1 - pad - keyHeight;
    const int travel = faders.y() + titleHeight;
    const auto left = [this](int number) { return faders.x() + pad + (number - 1) * column; };
    for (int number = 1; number <= panel::faders; ++number) {
        const QRect place(left(number), travel, column, selects - gap - travel);
        map->add(PanelMap::Shape::Fader, place,
                 number == channels::mains ? QStringLiteral("MAINS") : QString::number(number));
        laySender(builder, QStringLiteral("fader%1").arg(number), QStringLiteral("cc"),
                  faderName(number, "fader"), boxAt(PanelMap::capOf(place).center()));
    }
    for (int number = 1; number <= panel::faders; ++number)
        layKey(builder, QStringLiteral("SEL"), QStringLiteral("select%1").arg(number),
               faderName(number, "select"), {left(number), selects, column, keyHeight});
}

void MidiForm::layButtons(FormBuilder& builder)
{
    const int save = buttons.bottom() + 1 - margin - saveHeight;
    saveCorner = QPoint(buttons.right() + 1 - margin, save + saveHeight);
    const int first = buttons.y() + titleHeight;
    const int step = (save - gap - first) / keyRows;
    const int across = (buttons.width() - 2 * pad) / keyColumns;
    for (int number = 1; number <= panel::buttons; ++number) {
        const QString digits = QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
        layKey(builder, digits, QStringLiteral("button") + digits,
               QStringLiteral("button ") + digits,
               {buttons.x() + pad + (number - 1) % keyColumns * across,
                first + (number - 1) / keyColumns * step, across, keyHeight});
    }
}

void MidiForm::layNumbers(FormBuilder& builder, const QString& pattern, const QString& spoken,
                          const QString& toolTip, const QRect& place)
{
    for (int bank = 1; bank <= panel::banks; ++bank) {
        const QString key = pattern.arg(bank);
        controlRows.append({.name = key,
                            .spoken = QStringLiteral("bank %1, %2").arg(bank).arg(spoken),
                            .parameter = &parametertable::at(key),
                            .toolTip = toolTip.arg(bank)});
        auto* box = static_cast<QSpinBox*>(
            builder.numberBox(pages->widget(bank - 1), controlRows.constLast(), place));
        box->setValue(controlRows.constLast().parameter->factoryValue); // or all would be alike
    }
}

void MidiForm::laySender(FormBuilder& builder, const QString& control, const QString& message,
                         const QString& spoken, const QRect& place)
{
    const QString pattern =
        QStringLiteral("miditab_%1_bank%2_%3").arg(control, QStringLiteral("%1"), message);
    const bool isNote = message.endsWith(QLatin1String("note"));
    const QString what = isNote ? QStringLiteral("note") : QStringLiteral("CC");
    senders.append({pattern, spoken, isNote});
    layNumbers(builder, pattern, QStringLiteral("%1, %2").arg(spoken, what),
               QStringLiteral("The %1 that %2 sends in bank %3, 0 to 127.")
                   .arg(what, spoken, QStringLiteral("%1")),
               place);
}

void MidiForm::layToggle(FormBuilder& builder, const QString& control, const QString& spoken,
                         const QRect& place)
{
    buttonRows.append(
        {QStringLiteral("miditab_%1_toggle").arg(control), spoken + QStringLiteral(", toggle"),
         QStringLiteral("TOGGLE: each press of %1 turns its note on or off.\nMOMENTARY: the note "
                        "lasts as long as the press.\nThe same in all banks.")
             .arg(spoken),
         QStringLiteral("MOMENTARY"), QStringLiteral("TOGGLE")});
    builder.button(host, buttonRows.constLast(), place)->setProperty("role", "toggle");
}

// The caption and the note side by side, below them the toggle.
void MidiForm::layKey(FormBuilder& builder, const QString& caption, const QString& control,
                      const QString& spoken, const QRect& place)
{
    const int width = qMin(place.width() - 1, widestKey);
    const QRect key(place.x() + (place.width() - width) / 2, place.y(), width, place.height());
    map->add(PanelMap::Shape::Key, key, caption);
    const int captionWidth = caption.isEmpty() ? 0 : 22;
    const QPoint middle((key.x() + captionWidth + key.right()) / 2, key.y() + 12);
    laySender(builder, control, QStringLiteral("note"), spoken, boxAt(middle));
    layToggle(builder, control, spoken,
              {key.x(), key.bottom() + 1 - toggleHeight, key.width(), toggleHeight});
}
