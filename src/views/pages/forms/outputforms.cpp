#include "outputforms.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "monitorselector.h"
#include "stripparts.h"

#include <QFrame>
#include <QLabel>

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

const QList<ControlRow>& PhonesStripForm::controlRows()
{
    static const QList<ControlRow> rows{
        {.name = "monitor_select",
         .caption = "LISTEN TO",
         .spoken = "listen to",
         .parameter = &parametertable::at(QStringLiteral("channelstrip_phones_monitor_select")),
         .toolTip = "What the phones hear."}};
    return rows;
}

PhonesStripForm::PhonesStripForm(QWidget* host, const QString& spokenPage)
{
    host->setGeometry(0, 0, pageWidth, pageHeight);
    FormBuilder builder(host, spokenPage);
    QFrame* group =
        builder.group("groupBox_Phones", {}, {margin, margin, pageWidth - 2 * margin, panelHeight});
    panel = group;
    layPageName(builder, group, QStringLiteral("PHONES"), {0, 6, group->width(), nameHeight});
    const ControlRow& row = controlRows().first();
    builder.label(group, row.caption, {0, 56, group->width(), 16}, "send");

    constexpr QSize size(528, 208);
    auto* selector = new MonitorSelector(group, size, spokenPage);
    selector->setObjectName(row.name);
    selector->setAccessibleName(QStringLiteral("%1, %2").arg(spokenPage, row.spoken));
    selector->setToolTip(row.toolTip);
    selector->setRange(row.parameter->lowest, row.parameter->highest);
    selector->move((group->width() - size.width()) / 2, 88);
}
