#include "panelwindow.h"

#include "faderbank.h"
#include "messagemonitor.h"
#include "surfacepanel.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QCompleter>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QToolButton>

namespace
{

constexpr int refreshDelayMs = 40;

// Rows of the picker: first the preset parameters, then the globals.
const Parameter& parameterOf(int row)
{
    const int presets = presetTable().size();
    return row < presets ? presetTable()[row] : globalTable()[row - presets];
}

// Puts a button for each identifier into a row of its own, so that rows of different lengths line
// up.
void addButtons(QButtonGroup* group, QBoxLayout* layout, const QList<int>& ids,
                QString (*text)(int))
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    for (const int id : ids) {
        auto* button = new QToolButton;
        button->setText(text(id).toUpper());
        button->setCheckable(true);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        group->addButton(button, id);
        row->addWidget(button, 1);
    }
    layout->addLayout(row);
}

QString channelText(int channel)
{
    return channel <= 8 ? QString::number(channel) : frames::channelName(channel);
}

// A button group must not keep a button down that stands for nothing any more.
void check(QButtonGroup* group, int id)
{
    group->setExclusive(false);
    for (QAbstractButton* button : group->buttons())
        button->setChecked(group->id(button) == id);
    group->setExclusive(true);
}

void setRole(QWidget* widget, const QString& role)
{
    if (widget->property("role").toString() == role)
        return;
    widget->setProperty("role", role);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

PanelWindow::PanelWindow(Simulator& simulator, QWidget* parent)
    : QWidget(parent)
    , m_simulator(simulator)
    , m_faders(new FaderBank(simulator))
    , m_surface(new SurfacePanel(simulator))
    , m_monitor(new MessageMonitor)
{
    setWindowTitle(QStringLiteral("J-Sum Simulator"));
    QFile style(QStringLiteral(":/simulator/panel.qss"));
    if (style.open(QIODevice::ReadOnly))
        setStyleSheet(QString::fromUtf8(style.readAll()));

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    QBoxLayout* faders = nullptr;
    QWidget* faderPanel = makePanel(QStringLiteral("FADERS"), this, faders);
    faders->addWidget(m_faders, 1);
    QBoxLayout* surface = nullptr;
    QWidget* surfacePanel = makePanel(QStringLiteral("CONTROL SURFACE"), this, surface);
    surface->addWidget(m_surface);
    layout->addWidget(makeHead(), 0, 0, 1, 2);
    layout->addWidget(makeSelection(), 1, 0);
    layout->addWidget(makeParameter(), 1, 1);
    layout->addWidget(faderPanel, 2, 0);
    layout->addWidget(makeFirmware(), 2, 1);
    layout->addWidget(surfacePanel, 3, 0, 1, 2);
    layout->addWidget(m_monitor, 4, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(4, 1);
    resize(1120, 960);

    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(refreshDelayMs);
    connect(&m_refreshTimer, SIGNAL(timeout()), this, SLOT(slotRefresh()));
    connect(&simulator, SIGNAL(signalChanged()), &m_refreshTimer, SLOT(start()));
    connect(&simulator, SIGNAL(signalPlugged(bool)), &m_refreshTimer, SLOT(start()));
    connect(&simulator, SIGNAL(signalLine(QString)), m_monitor, SLOT(slotAdd(QString)));
    slotParameterChosen(0);
    slotRefresh();
}

QWidget* PanelWindow::makePanel(const QString& title, QWidget* parent, QBoxLayout*& content)
{
    auto* panel = new QFrame(parent);
    panel->setProperty("role", QStringLiteral("panel"));
    content = new QVBoxLayout(panel);
    content->setContentsMargins(16, 12, 16, 16);
    content->setSpacing(8);
    auto* label = new QLabel(title);
    label->setProperty("role", QStringLiteral("title"));
    content->addWidget(label);
    return panel;
}

QWidget* PanelWindow::makeHead()
{
    auto* head = new QWidget;
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    auto* name = new QLabel(QStringLiteral("J-SUM"));
    name->setProperty("role", QStringLiteral("name"));
    auto* kind = new QLabel(QStringLiteral("a mixer made of software"));
    kind->setProperty("role", QStringLiteral("kind"));
    m_status = new QLabel;
    m_cable = new QPushButton;
    auto* restart = new QPushButton(QStringLiteral("Restart"));
    layout->addWidget(name);
    layout->addWidget(kind);
    layout->addStretch();
    layout->addWidget(m_status);
    layout->addWidget(m_cable);
    layout->addWidget(restart);
    connect(m_cable, SIGNAL(clicked()), this, SLOT(slotToggleCable()));
    connect(restart, SIGNAL(clicked()), this, SLOT(slotRestart()));
    return head;
}

QWidget* PanelWindow::makeSelection()
{
    QBoxLayout* content = nullptr;
    QWidget* panel = makePanel(QStringLiteral("MODE AND CHANNEL"), this, content);
    m_modes = new QButtonGroup(this);
    m_channels = new QButtonGroup(this);
    addButtons(m_modes, content, {0, 14, 1, 2, 3, 4}, frames::modeName);
    addButtons(m_modes, content, {5, 6, 10, 11, 12, 13}, frames::modeName);
    addButtons(m_channels, content, {1, 2, 3, 4, 5, 6, 7, 8, 9}, channelText);
    content->addStretch();
    connect(m_modes, SIGNAL(idClicked(int)), this, SLOT(slotMode(int)));
    connect(m_channels, SIGNAL(idClicked(int)), this, SLOT(slotChannel(int)));
    return panel;
}

QWidget* PanelWindow::makeParameter()
{
    QBoxLayout* content = nullptr;
    QWidget* panel = makePanel(QStringLiteral("TURN A PARAMETER"), this, content);
    m_parameter = new QComboBox;
    m_parameter->setEditable(true);
    m_parameter->setInsertPolicy(QComboBox::NoInsert);
    m_parameter->completer()->setFilterMode(Qt::MatchContains);
    m_parameter->completer()->setCompletionMode(QCompleter::PopupCompletion);
    m_parameter->setMinimumContentsLength(34);
    const int count = presetTable().size() + globalTable().size();
    for (int row = 0; row < count; ++row)
        m_parameter->addItem(parameterOf(row).name);
    m_slider = new QSlider(Qt::Horizontal);
    m_value = new QSpinBox;
    m_value->setButtonSymbols(QAbstractSpinBox::NoButtons);
    auto* turn = new QPushButton(QStringLiteral("Turn"));
    auto* sync = new QPushButton(QStringLiteral("Go to sync preset"));
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(m_value);
    line->addWidget(turn);
    line->addStretch();
    line->addWidget(sync);
    content->addWidget(m_parameter);
    content->addWidget(m_slider);
    content->addLayout(line);
    content->addStretch();
    connect(m_parameter, SIGNAL(currentIndexChanged(int)), this, SLOT(slotParameterChosen(int)));
    connect(m_slider, SIGNAL(valueChanged(int)), m_value, SLOT(setValue(int)));
    connect(m_value, SIGNAL(valueChanged(int)), m_slider, SLOT(setValue(int)));
    connect(turn, SIGNAL(clicked()), this, SLOT(slotTurn()));
    connect(sync, SIGNAL(clicked()), this, SLOT(slotSync()));
    return panel;
}

QWidget* PanelWindow::makeFirmware()
{
    QBoxLayout* content = nullptr;
    QWidget* panel = makePanel(QStringLiteral("FIRMWARE"), this, content);
    m_running = new QLabel;
    m_running->setTextFormat(Qt::PlainText);
    m_version = new QLineEdit;
    m_version->setMaxLength(8);
    auto* set = new QPushButton(QStringLiteral("Put in"));
    m_failure = new QComboBox;
    m_failure->addItems({QStringLiteral("none"), QStringLiteral("stderr"), QStringLiteral("exit"),
                         QStringLiteral("hang"), QStringLiteral("check-hang"),
                         QStringLiteral("check-exit 1")});
    auto* grid = new QGridLayout;
    grid->setSpacing(8);
    grid->addWidget(m_running, 0, 0, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("Stored version")), 1, 0);
    grid->addWidget(m_version, 1, 1);
    grid->addWidget(set, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("The tool's failure")), 2, 0);
    grid->addWidget(m_failure, 2, 1, 1, 2);
    content->addLayout(grid);
    auto* note = new QLabel(QStringLiteral("A version that is put in runs from the next restart."));
    note->setProperty("role", QStringLiteral("kind"));
    note->setWordWrap(true);
    content->addWidget(note);
    content->addStretch();
    connect(set, SIGNAL(clicked()), this, SLOT(slotSetFirmware()));
    connect(m_version, SIGNAL(returnPressed()), this, SLOT(slotSetFirmware()));
    connect(m_failure, SIGNAL(textActivated(QString)), this, SLOT(slotSetFailure(QString)));
    return panel;
}

void PanelWindow::slotRefresh()
{
    m_faders->refresh();
    m_surface->refresh();
    check(m_modes, m_simulator.mixer().mode());
    check(m_channels, m_simulator.mixer().channel());
    refreshCable();
    refreshFirmware();
}

void PanelWindow::refreshCable()
{
    const bool plugged = m_simulator.isPlugged();
    const bool coming = m_simulator.isComing();
    m_status->setText(plugged      ? QStringLiteral("PLUGGED IN")
                          : coming ? QStringLiteral("COMING BACK")
                                   : QStringLiteral("UNPLUGGED"));
    setRole(m_status, plugged ? QStringLiteral("plugged") : QStringLiteral("unplugged"));
    m_cable->setText(plugged || coming ? QStringLiteral("Unplug") : QStringLiteral("Plug in"));
}

void PanelWindow::refreshFirmware()
{
    const FirmwareState stored = m_simulator.storedFirmware();
    m_running->setText(QStringLiteral("Running %1").arg(m_simulator.mixer().firmware().text()));
    if (!m_version->hasFocus())
        m_version->setText(stored.version.text());
    if (m_failure->findText(stored.failure) < 0)
        m_failure->addItem(stored.failure);
    m_failure->setCurrentText(stored.failure);
}

void PanelWindow::slotToggleCable()
{
    if (m_simulator.isPlugged() || m_simulator.isComing())
        m_simulator.unplug();
    else
        m_simulator.plug();
    slotRefresh();
}

void PanelWindow::slotRestart() { m_simulator.restart(); }

void PanelWindow::slotMode(int mode)
{
    m_simulator.mixer().selectMode(mode);
    m_simulator.touch();
}

void PanelWindow::slotChannel(int channel)
{
    m_simulator.mixer().selectChannel(channel);
    m_simulator.touch();
}

void PanelWindow::slotParameterChosen(int row)
{
    if (row < 0)
        return;
    const int presets = presetTable().size();
    const auto& mixer = m_simulator.mixer();
    const int value = row < presets ? mixer.live()[static_cast<size_t>(row)]
                                    : mixer.globals()[static_cast<size_t>(row - presets)];
    const Parameter& parameter = parameterOf(row);
    const QSignalBlocker quietSlider(m_slider);
    const QSignalBlocker quietValue(m_value);
    m_slider->setRange(parameter.minimum, parameter.maximum);
    m_value->setRange(parameter.minimum, parameter.maximum);
    m_slider->setValue(value);
    m_value->setValue(value);
}

void PanelWindow::slotTurn()
{
    // The text may have been typed without an end.
    const int row = m_parameter->findText(m_parameter->currentText());
    if (row < 0)
        return;
    const int presets = presetTable().size();
    if (row < presets)
        m_simulator.mixer().turn(row, m_value->value());
    else
        m_simulator.mixer().turnGlobal(row - presets, m_value->value());
    m_simulator.touch();
}

void PanelWindow::slotSync() { m_simulator.mixer().goToSync(); }

void PanelWindow::slotSetFirmware()
{
    const auto version = FirmwareVersion::fromText(m_version->text());
    const QString error = version ? m_simulator.storeFirmware(*version)
                                  : QStringLiteral("no version: ") + m_version->text();
    if (!error.isEmpty())
        m_monitor->slotAdd(QStringLiteral("-- ") + error);
    m_version->clearFocus();
}

void PanelWindow::slotSetFailure(const QString& failure)
{
    const QString error = m_simulator.storeFailure(failure);
    if (!error.isEmpty())
        m_monitor->slotAdd(QStringLiteral("-- ") + error);
}
