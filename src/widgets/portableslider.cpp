#include "portableslider.h"

#include <QMouseEvent>
#include <QStyle>

PortableSlider::PortableSlider(QWidget* parent)
    : QSlider(parent)
{
}

PortableSlider::PortableSlider(Qt::Orientation orientation, QWidget* parent)
    : QSlider(orientation, parent)
{
}

void PortableSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QSlider::mousePressEvent(event);
        return;
    }
    dragging = true;
    follow(event);
}

void PortableSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (dragging)
        follow(event);
    else
        QSlider::mouseMoveEvent(event);
}

void PortableSlider::mouseReleaseEvent(QMouseEvent* event)
{
    dragging = false;
    QSlider::mouseReleaseEvent(event);
}

// The widget's whole height is the travel, with no allowance for the handle; the top is the
// maximum.
void PortableSlider::follow(QMouseEvent* event)
{
    const int y = event->position().toPoint().y();
    setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), y, height(), true));
    event->ignore();
}
