#include "faderscale.h"

#include "scaling.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

namespace
{

// Those below would stand on each other: the curve is steep at the bottom.
constexpr int marks[]{6, 3, 0, -3, -6, -10, -15, -20, -30, -70};

constexpr QColor textColor(165, 165, 165);
constexpr int tickWidth = 4;
constexpr int textHeight = 12;

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
    for (const int decibels : marks) {
        option.sliderPosition = scaling::dbToFader(decibels, slider->minimum(), slider->maximum());
        option.sliderValue = option.sliderPosition;
        const QRect handle = slider->style()->subControlRect(QStyle::CC_Slider, &option,
                                                             QStyle::SC_SliderHandle, slider);
        const int y = handle.center().y();
        painter.drawLine(width() - tickWidth, y, width() - 1, y);
        const QString text = decibels == -70 ? QString(QChar(0x221E)) : QString::number(decibels);
        painter.drawText(QRect(0, y - textHeight / 2, width() - tickWidth - 2, textHeight),
                         Qt::AlignRight | Qt::AlignVCenter, text);
    }
}
