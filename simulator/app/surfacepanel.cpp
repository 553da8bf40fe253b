#include "surfacepanel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

namespace
{

const char numberProperty[] = "number";

int numberOf(const QObject* control) { return control->property(numberProperty).toInt(); }

void setLit(QWidget* button, bool lit)
{
    if (button->property("lit").toBool() == lit)
        return;
    button->setProperty("lit", lit);
    button->style()->unpolish(button);
    button->style()->polish(button);
}

} // namespace

SurfacePanel::SurfacePanel(Simulator& simulator, QWidget* parent)
    : QWidget(parent)
    , m_simulator(simulator)
    , m_mapBank(new QComboBox)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    for (int strip = 0; strip < ControlSurface::strips; ++strip)
        addStrip(layout, strip);
    layout->addStretch();

    auto* buttons = new QGridLayout;
    buttons->setSpacing(8);
    m_banks[0] =
        addNoteButton(buttons, 0, 0, QStringLiteral("BANK \u2190"), ControlSurface::BankLeft);
    m_banks[1] =
        addNoteButton(buttons, 0, 2, QStringLiteral("BANK \u2192"), ControlSurface::BankRight);
    addNoteButton(buttons, 1, 1, QStringLiteral("RECORD"), ControlSurface::Up);
    addNoteButton(buttons, 2, 0, QStringLiteral("REWIND"), ControlSurface::Left);
    addNoteButton(buttons, 2, 2, QStringLiteral("PLAY"), ControlSurface::Right);
    addNoteButton(buttons, 3, 1, QStringLiteral("STOP"), ControlSurface::Down);
    for (int bank = 1; bank <= ControlSurface::mapBanks; ++bank)
        m_mapBank->addItem(QStringLiteral("MIDI map %1").arg(bank));
    buttons->addWidget(m_mapBank, 0, 1);
    layout->addLayout(buttons);
    connect(m_mapBank, SIGNAL(activated(int)), this, SLOT(slotMapBank(int)));
    refresh();
}

QToolButton* SurfacePanel::makeButton(const QString& text, const char* role, int number)
{
    auto* button = new QToolButton;
    button->setText(text);
    button->setProperty("role", QLatin1String(role));
    button->setProperty(numberProperty, number);
    return button;
}

void SurfacePanel::addStrip(QBoxLayout* layout, int number)
{
    const Strip strip{new QSlider(Qt::Vertical), makeButton(QStringLiteral("R"), "record", number),
                      makeButton(QStringLiteral("S"), "solo", number),
                      makeButton(QStringLiteral("M"), "mute", number)};
    strip.fader->setRange(0, 127);
    strip.fader->setProperty(numberProperty, number);
    auto* label = new QLabel(QString::number(number + 1));
    label->setAlignment(Qt::AlignCenter);
    auto* grid = new QGridLayout;
    grid->setSpacing(4);
    grid->addWidget(strip.fader, 0, 0, 3, 1);
    grid->addWidget(strip.record, 0, 1);
    grid->addWidget(strip.solo, 1, 1);
    grid->addWidget(strip.mute, 2, 1);
    grid->addWidget(label, 3, 0);
    layout->addLayout(grid);

    connect(strip.fader, SIGNAL(sliderPressed()), this, SLOT(slotTouched()));
    connect(strip.fader, SIGNAL(sliderReleased()), this, SLOT(slotReleased()));
    connect(strip.fader, SIGNAL(valueChanged(int)), this, SLOT(slotMoved(int)));
    connect(strip.mute, SIGNAL(pressed()), this, SLOT(slotMute()));
    connect(strip.solo, SIGNAL(pressed()), this, SLOT(slotSolo()));
    connect(strip.record, SIGNAL(pressed()), this, SLOT(slotDown()));
    connect(strip.record, SIGNAL(released()), this, SLOT(slotUp()));
    m_strips.push_back(strip);
}

QToolButton* SurfacePanel::addNoteButton(QGridLayout* layout, int row, int column,
                                         const QString& text, int button)
{
    QToolButton* made = makeButton(text, "surface", button);
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(made, row, column);
    connect(made, SIGNAL(pressed()), this, SLOT(slotDown()));
    connect(made, SIGNAL(released()), this, SLOT(slotUp()));
    return made;
}

void SurfacePanel::refresh()
{
    const SimulatedMixer& mixer = m_simulator.mixer();
    for (int number = 0; number < ControlSurface::strips; ++number) {
        const auto at = static_cast<size_t>(number);
        const Strip& strip = m_strips[at];
        const QSignalBlocker quiet(strip.fader);
        strip.fader->setValue(mixer.controls().position(number));
        setLit(strip.mute, mixer.lights(0x11)[at]);
        setLit(strip.solo, mixer.lights(0x12)[at]);
        setLit(strip.record, mixer.lights(0x13)[at]);
    }
    for (int which = 0; which < 2; ++which)
        setLit(m_banks[which], mixer.controls().bankLight(which));
    m_mapBank->setCurrentIndex(mixer.controls().mapBank() - 1);
}

void SurfacePanel::slotMoved(int position)
{
    controls().moveFader(numberOf(sender()), position);
    m_simulator.touch();
}

void SurfacePanel::slotTouched() { controls().touch(numberOf(sender()), true); }

void SurfacePanel::slotReleased() { controls().touch(numberOf(sender()), false); }

void SurfacePanel::slotMute() { controls().pressMute(numberOf(sender())); }

void SurfacePanel::slotSolo() { controls().pressSolo(numberOf(sender())); }

void SurfacePanel::slotDown() { controls().press(numberOf(sender()), true); }

void SurfacePanel::slotUp()
{
    controls().press(numberOf(sender()), false);
    m_simulator.touch();
}

void SurfacePanel::slotMapBank(int row) { controls().selectMapBank(row + 1); }
