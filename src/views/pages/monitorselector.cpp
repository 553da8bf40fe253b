#include "monitorselector.h"

#include "mixershape.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QWheelEvent>

namespace
{

constexpr int columns = 4;
constexpr int gap = 8;

constexpr const char* names[]{"CH 1", "CH 2", "CH 3",  "CH 4",  "CH 5",  "CH 6",
                              "CH 7", "CH 8", "MAINS", "AUX 1", "AUX 2", "AUX 3"};
constexpr int channelCount = std::size(names);

} // namespace

MonitorSelector::MonitorSelector(QWidget* parent, const QSize& size, const QString& spokenPage)
    : QAbstractSlider(parent)
{
    resize(size);
    setFocusPolicy(Qt::NoFocus);
    auto* group = new QButtonGroup(this);
    constexpr int rows = channelCount / columns;
    const int width = (size.width() - (columns - 1) * gap) / columns;
    const int height = (size.height() - (rows - 1) * gap) / rows;
    for (int index = 0; index < channelCount; ++index) {
        const QString name = QLatin1String(names[index]);
        auto* button = new QPushButton(name, this);
        button->setObjectName(QStringLiteral("monitor_button_%1").arg(index + 1));
        button->setProperty("role", channels::isInput(index + 1) ? "input" : "output");
        button->setCheckable(true);
        button->setAccessibleName(QStringLiteral("%1, listen to %2").arg(spokenPage, name));
        button->setToolTip(QStringLiteral("Hear %1 in the phones.").arg(name));
        button->setGeometry(index % columns * (width + gap), index / columns * (height + gap),
                            width, height);
        group->addButton(button, index + 1);
        buttons.append(button);
    }
    connect(group, SIGNAL(idClicked(int)), SLOT(slotChoose(int)));
    setRange(1, channelCount);
}

void MonitorSelector::slotChoose(int channel) { setValue(channel); }

void MonitorSelector::sliderChange(SliderChange change)
{
    QAbstractSlider::sliderChange(change);
    if (change != SliderOrientationChange && value() >= 1 && value() <= buttons.size())
        buttons.at(value() - 1)->setChecked(true);
}

void MonitorSelector::wheelEvent(QWheelEvent* event) { event->ignore(); }

void MonitorSelector::keyPressEvent(QKeyEvent* event) { QWidget::keyPressEvent(event); }
