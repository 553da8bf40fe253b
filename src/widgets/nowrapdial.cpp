#include "nowrapdial.h"

#include "cuttoint.h"
#include "scaling.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{

constexpr double travelPerPixel = 0.005;

constexpr QColor trackColor(35, 35, 35);
constexpr QColor gapColor(95, 95, 95);

// Dash and space in units of the pen's width, so that the segments look alike at every thickness.
const QList<qreal>& dashPattern(int thickness)
{
    static const QList<qreal> four{1.1, 0.32};
    static const QList<qreal> six{1.3, 0.31};
    static const QList<qreal> eight{1.0, 0.26};
    static const QList<qreal> other{1.1, 0.22};
    switch (thickness) {
    case 4:
        return four;
    case 6:
        return six;
    case 8:
        return eight;
    default:
        return other;
    }
}

// The arcs of one ring. Angles are in sixteenths of a degree from three o'clock, clockwise below 0.
class RingPainter
{
public:
    RingPainter(QWidget* widget, QRectF rectangle, int penWidth)
        : painter(widget)
        , ring(rectangle)
        , thickness(penWidth)
    {
        painter.setRenderHint(QPainter::Antialiasing);
        // The background shows between the dashes.
        painter.setBackgroundMode(Qt::OpaqueMode);
        painter.setBackground(gapColor);
    }

    void paintFilling(const QColor& fill, float position)
    {
        // The track is shorter than the value by design, and has square ends.
        solid(trackColor, thickness, Qt::SquareCap, -2160, -4352);
        dashed(fill, thickness + 1, -1968, cutToInt(position * -4704.0));
    }

    void paintCentered(const QColor& fill, float position)
    {
        constexpr double half = -2272.0;
        solid(fill, thickness + 1, Qt::FlatCap, -4240, -192);
        // The left half is lit whole, then covered from its start up to the value.
        dashed(fill, thickness, -1968, -2272);
        solid(trackColor, thickness + 1, Qt::FlatCap, -1968,
              position >= 0.5F ? -2272 : cutToInt((position + position) * half));
        solid(trackColor, thickness, Qt::FlatCap, -4464, -2240);
        if (position > 0.5F)
            dashed(fill, thickness, -4432,
                   cutToInt(((position - 0.5F) + (position - 0.5F)) * half));
    }

private:
    void solid(const QColor& color, int width, Qt::PenCapStyle cap, int start, int span)
    {
        painter.setPen(QPen(color, width, Qt::SolidLine, cap));
        painter.drawArc(ring, start, span);
    }

    void dashed(const QColor& color, int width, int start, int span)
    {
        QPen pen(color, width, Qt::SolidLine, Qt::FlatCap);
        pen.setDashPattern(dashPattern(thickness));
        painter.setPen(pen);
        painter.drawArc(ring, start, span);
    }

    QPainter painter;
    const QRectF ring;
    const int thickness;
};

} // namespace

NoWrapDial::NoWrapDial(QWidget* parent)
    : QDial(parent)
{
    installEventFilter(this);
    connect(this, SIGNAL(valueChanged(int)), SLOT(slotScaleValueOutputAndRepaint(int)));
}

bool NoWrapDial::eventFilter(QObject* watched, QEvent* event)
{
    const auto y = [event] { return static_cast<QMouseEvent*>(event)->position().toPoint().y(); };
    // A filter is asked before the widget drops what a disabled one must not get. The place is
    // noted all the same: a dial that is enabled under a held button goes on from there.
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        lastY = y();
        if (isEnabled())
            return true;
        break;
    case QEvent::MouseButtonRelease:
        if (isEnabled())
            return true;
        break;
    case QEvent::MouseMove: {
        const int pixelsUp = lastY - y();
        lastY = y();
        if (isEnabled()) {
            turn(pixelsUp);
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QDial::eventFilter(watched, event);
}

// The paint value moves first and the value follows; if the value changes, its own place replaces
// the paint value, and the fraction below a step is gone.
void NoWrapDial::turn(int pixelsUp)
{
    if (pixelsUp != 0)
        position += static_cast<float>(pixelsUp * travelPerPixel);
    position = std::clamp(position, 0.0F, 1.0F);
    repaint();
    setValue(slotScalePaintValue(position));
}

int NoWrapDial::slotScalePaintValue(double val) const
{
    return cutToInt(scaling::scaled(val, 0.0, 1.0, minimum(), maximum()) + 0.5);
}

void NoWrapDial::slotScaleValueOutputAndRepaint(int value)
{
    followValue(value);
    repaint();
}

void NoWrapDial::sliderChange(SliderChange change)
{
    // A new range keeps a value that lies in it, and then no valueChanged tells of the new place.
    // The value is bound only afterwards, so it may lie outside for now.
    if (change == SliderRangeChange)
        followValue(value());
    QDial::sliderChange(change);
}

void NoWrapDial::followValue(int value)
{
    // An empty range comes about on the way, when setMinimum is called before setMaximum.
    const double place =
        minimum() == maximum() ? 0.0 : scaling::scaled(value, minimum(), maximum(), 0, 1);
    position = std::clamp(static_cast<float>(place), 0.0F, 1.0F);
}

void NoWrapDial::paintEvent(QPaintEvent* /*event*/)
{
    const QRectF ring(thickness, thickness, width() - 2 * thickness, height() - 2 * thickness);
    if (thickness < 1 || ring.isEmpty())
        return;
    RingPainter painter(this, ring, thickness);
    if (centered)
        painter.paintCentered(fill, position);
    else
        painter.paintFilling(fill, position);
}
