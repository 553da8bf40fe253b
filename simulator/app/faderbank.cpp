#include "faderbank.h"

#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

namespace
{
const char indexProperty[] = "parameterIndex";
}

FaderBank::FaderBank(Simulator& simulator, QWidget* parent)
    : QWidget(parent)
    , m_simulator(simulator)
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    // Inputs and auxes, then what is heard.
    for (const int channel : {1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 9}) {
        const QString name = frames::channelName(channel);
        Column column{new QSlider(Qt::Vertical), new QToolButton,
                      presetTable().find(QStringLiteral("faderframe_%1_fader").arg(name)),
                      presetTable().find(QStringLiteral("faderframe_%1_mute").arg(name))};
        const Parameter& row = presetTable()[column.faderIndex];
        column.fader->setRange(row.minimum, row.maximum);
        column.fader->setSingleStep(200);
        column.fader->setPageStep(400);
        column.fader->setProperty(indexProperty, column.faderIndex);
        column.fader->setToolTip(row.name);
        column.mute->setText(QStringLiteral("M"));
        column.mute->setCheckable(true);
        column.mute->setProperty(indexProperty, column.muteIndex);
        column.mute->setProperty("role", QStringLiteral("mute"));
        column.mute->setToolTip(presetTable()[column.muteIndex].name);
        auto* label = new QLabel(channel <= 8 ? QString::number(channel) : name.toUpper());
        label->setAlignment(Qt::AlignCenter);
        const int at = layout->columnCount();
        layout->addWidget(column.mute, 0, at, Qt::AlignCenter);
        layout->addWidget(column.fader, 1, at, Qt::AlignHCenter);
        layout->addWidget(label, 2, at, Qt::AlignCenter);
        layout->setColumnMinimumWidth(at, 48);
        connect(column.fader, SIGNAL(valueChanged(int)), this, SLOT(slotFaderMoved(int)));
        connect(column.mute, SIGNAL(toggled(bool)), this, SLOT(slotMuteToggled(bool)));
        m_columns.push_back(column);
    }
    layout->setRowStretch(1, 1);
    refresh();
}

void FaderBank::refresh()
{
    const auto& live = m_simulator.mixer().live();
    for (const Column& column : m_columns) {
        const QSignalBlocker quietFader(column.fader);
        const QSignalBlocker quietMute(column.mute);
        column.fader->setValue(live[static_cast<size_t>(column.faderIndex)]);
        column.mute->setChecked(live[static_cast<size_t>(column.muteIndex)] != 0);
    }
}

void FaderBank::slotFaderMoved(int value)
{
    turn(sender()->property(indexProperty).toInt(), value);
}

void FaderBank::slotMuteToggled(bool on) { turn(sender()->property(indexProperty).toInt(), on); }

void FaderBank::turn(int index, int value)
{
    m_simulator.mixer().turn(index, value);
    m_simulator.touch();
}
