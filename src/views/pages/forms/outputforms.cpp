#include "outputforms.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

using namespace stripparts;

namespace
{

constexpr int nameHeight = 24;

void layPageName(FormBuilder& builder, QWidget* parent, const QString& name, const QRect& place)
{
    QLabel* label = builder.label(parent, name, place, "channel");
    label->setObjectName(QStringLiteral("channelNumLabel"));
    label->setAccessibleName(name);
}

// With the parameters of aux 1; those of the others are alike.
QList<ControlRow> makeAuxRows()
{
    const auto parameter = [](int channel, const char* part) {
        return &parametertable::at(QStringLiteral("channelstrip_ch%1_aux1_routing_%2")
                                       .arg(channel)
                                       .arg(QLatin1String(part)));
    };
    QList<ControlRow> rows;
    for (int channel = 1; channel <= channels::lastInput; ++channel) {
        rows.append(stripparts::faderRow(
            QStringLiteral("ch%1_send_level").arg(channel), QStringLiteral("CH %1").arg(channel),
            QStringLiteral("channel %1 send level").arg(channel),
            QStringLiteral("How much of channel %1 goes to this aux.").arg(channel)));
        rows.last().parameter = parameter(channel, "send_level");
        rows.append(panRow(QStringLiteral("ch%1_pan").arg(channel),
                           QStringLiteral("channel %1 pan").arg(channel), 4,
                           QStringLiteral("Where channel %1 stands in this aux.").arg(channel)));
        rows.last().parameter = parameter(channel, "pan");
    }
    return rows;
}

QList<ButtonRow> makeAuxButtonRows()
{
    QList<ButtonRow> rows;
    for (int channel = 1; channel <= channels::lastInput; ++channel)
        rows.append({QStringLiteral("ch%1_pre_post").arg(channel),
                     QStringLiteral("channel %1 pre or post fader").arg(channel),
                     QStringLiteral("Send channel %1 before or after its fader.").arg(channel),
                     "PRE", "POST"});
    return rows;
}

QList<ControlRow> makeMainsRows()
{
    QList<ControlRow> rows = stripparts::controlRows();
    rows.append(stripparts::faderRow(MainsStripForm::reverbLevelName(), "Reverb", "reverb level",
                                     "How much of the reverb goes to the mains."));
    rows.last().parameter = &parametertable::at(QStringLiteral("reverbtab_level"));
    setParameters(rows, QStringLiteral("channelstrip_mains_"));
    return rows;
}

// The values are the channels' numbers.
ChoiceRow makeMonitorRow()
{
    constexpr const char* names[]{"CH 1", "CH 2", "CH 3",  "CH 4",  "CH 5",  "CH 6",
                                  "CH 7", "CH 8", "MAINS", "AUX 1", "AUX 2", "AUX 3"};
    ChoiceRow row{.name = "monitor_select",
                  .caption = "LISTEN TO",
                  .spoken = "listen to",
                  .toolTip = "What the phones hear.",
                  .takesNearest = true};
    for (const char* name : names) {
        const int channel = static_cast<int>(row.buttons.size()) + 1;
        row.buttons.append({QStringLiteral("monitor_button_%1").arg(channel), channel, name});
    }
    return row;
}

// Twelve in three rows, the first one lit.
void layMonitorKeys(QFrame* panel, const ChoiceRow& row, const QString& spokenPage)
{
    constexpr int columns = 4;
    constexpr int gap = 8;
    constexpr QSize size(126, 64);
    const int count = static_cast<int>(row.buttons.size());
    const auto extent = [](int keys, int side) { return keys * (side + gap) - gap; };
    const int width = extent(columns, size.width());
    auto* part = new QWidget(panel);
    part->setObjectName(row.name);
    part->setAccessibleName(QStringLiteral("%1, %2").arg(spokenPage, row.spoken));
    part->setToolTip(row.toolTip);
    part->setGeometry((panel->width() - width) / 2, 88, width,
                      extent(count / columns, size.height()));
    for (const auto& [name, channel, caption] : row.buttons) {
        auto* key = new QPushButton(caption, part);
        key->setObjectName(name);
        key->setProperty("role", channels::isInput(channel) ? "input" : "output");
        key->setCheckable(true);
        key->setChecked(channel == 1);
        key->setAccessibleName(QStringLiteral("%1, %2 %3").arg(spokenPage, row.spoken, caption));
        key->setToolTip(QStringLiteral("Hear %1 in the phones.").arg(caption));
        const int column = (channel - 1) % columns;
        const int line = (channel - 1) / columns;
        key->setGeometry(
            {QPoint(column * (size.width() + gap), line * (size.height() + gap)), size});
    }
}

} // namespace

const QList<ControlRow>& AuxStripForm::controlRows()
{
    static const QList<ControlRow> rows = makeAuxRows();
    return rows;
}

const QList<ButtonRow>& AuxStripForm::buttonRows()
{
    static const QList<ButtonRow> rows = makeAuxButtonRows();
    return rows;
}

AuxStripForm::AuxStripForm(QWidget* host, const QString& spokenPage, int aux)
{
    host->setGeometry(0, 0, pageWidth, pageHeight);
    FormBuilder builder(host, spokenPage);
    QFrame* panel =
        builder.group("groupBox_Sends", {}, {margin, margin, pageWidth - 2 * margin, panelHeight});
    focusAreas = {panel};
    layPageName(builder, panel, QStringLiteral("AUX %1").arg(aux),
                {0, 6, panel->width(), nameHeight});

    constexpr int column = (pageWidth - 4 * margin) / channels::lastInput;
    constexpr int top = 40;
    for (int channel = 0; channel < channels::lastInput; ++channel) {
        const ControlRow& send = controlRows().at(2 * channel);
        const ControlRow& pan = controlRows().at(2 * channel + 1);
        const int middle = margin + channel * column + column / 2;
        builder.knob(panel, pan, {middle, top});
        builder.button(panel, buttonRows().at(channel), {middle - 24, top + 64, 48, 20});
        builder.fader(panel, send,
                      {middle - column / 2, top + 92, column, panelHeight - margin - top - 92});
    }
}

const QList<ControlRow>& MainsStripForm::controlRows()
{
    static const QList<ControlRow> rows = makeMainsRows();
    return rows;
}

const QList<ButtonRow>& MainsStripForm::buttonRows() { return stripparts::buttonRows(); }

MainsStripForm::MainsStripForm(QWidget* host, const QString& spokenPage)
{
    host->setGeometry(0, 0, pageWidth, pageHeight);
    FormBuilder builder(host, spokenPage);
    constexpr int reverbWidth = 112;
    constexpr int wideEq = 328;
    constexpr int wideDynamics = pageWidth - 4 * margin - reverbWidth - wideEq;
    QFrame* reverb =
        builder.group("groupBox_Reverb", {}, {margin, margin, reverbWidth, panelHeight});
    layPageName(builder, reverb, QStringLiteral("MAINS"), {0, 6, reverbWidth, nameHeight});
    builder.fader(reverb, rowNamed(controlRows(), reverbLevelName()),
                  {0, 40, reverbWidth, panelHeight - margin - 40});

    int left = margin + reverbWidth + margin;
    QFrame* eq = layEq(builder, controlRows(), left, wideEq);
    left += wideEq + margin;
    QFrame* dynamics = layDynamics(builder, controlRows(), left, wideDynamics);
    focusAreas = {reverb, eq, dynamics};
}

const ChoiceRow& PhonesStripForm::choiceRow()
{
    static const ChoiceRow row = makeMonitorRow();
    return row;
}

PhonesStripForm::PhonesStripForm(QWidget* host, const QString& spokenPage)
{
    host->setGeometry(0, 0, pageWidth, pageHeight);
    FormBuilder builder(host, spokenPage);
    QFrame* group =
        builder.group("groupBox_Phones", {}, {margin, margin, pageWidth - 2 * margin, panelHeight});
    panel = group;
    layPageName(builder, group, QStringLiteral("PHONES"), {0, 6, group->width(), nameHeight});
    builder.label(group, choiceRow().caption, {0, 56, group->width(), 16}, "send");
    layMonitorKeys(group, choiceRow(), spokenPage);
}
