#include "faderscale.h"

#include "scaling.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>
#include <cstdlib>

namespace
{

// The first ones first where a short fader has no room for all. Those between -30 and -70 would
// stand on each other on any: the curve is steep at the bottom.
constexpr int marks[]{0, -70, 6, -10, -20, -30, -6, 3, -3, -15};

constexpr QColor textColor(165, 165, 165);
constexpr int tickWidth = 4;
constexpr int textHeight = 12;
constexpr int leastDistance = 9;

} // namespace

FaderScale::FaderScale(QSlider* fader, QWidget* parent)
    : QWidget(parent)
    , slider(fader)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void FaderScale::paintEvent(QPaintEvent* /*event*/)
{
    if (slider.isNull())
        return;
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.orientation = Qt::Vertical;
    option.subControls = QStyle::SC_All;
    option.upsideDown = true;
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();

    QPainter painter(this);
    painter.setPen(textColor);
    QFont small = font();
    small.setPixelSize(9);
    painter.setFont(small);
    QList<int> drawn;
    for (const int decibels : marks) {
        option.sliderPosition = scaling::dbToFader(decibels, slider->minimum(), slider->maximum());
        option.sliderValue = option.sliderPosition;
        const QRect handle = slider->style()->subControlRect(QStyle::CC_Slider, &option,
                                                             QStyle::SC_SliderHandle, slider);
        const int y = handle.center().y();
        if (std::any_of(drawn.cbegin(), drawn.cend(),
                        [y](int other) { return std::abs(other - y) < leastDistance; }))
            continue;
        drawn.append(y);
        painter.drawLine(width() - tickWidth, y, width() - 1, y);
        const QString text = decibels == -70 ? QString(QChar(0x221E)) : QString::number(decibels);
        painter.drawText(QRect(0, y - textHeight / 2, width() - tickWidth - 2, textHeight),
                         Qt::AlignRight | Qt::AlignVCenter, text);
    }
}
