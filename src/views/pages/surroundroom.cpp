#include "surroundroom.h"

#include "surroundpuck.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace
{

// Of the loudspeakers and their names outside the wall.
constexpr double surroundings = 39;
constexpr double toSpeaker = 15;
constexpr double toName = 29;

struct Speaker {
    const char* name;
    int angle;
};

// The low one has no direction; it stands where there is room.
constexpr Speaker quad[]{{"L", -45}, {"R", 45}, {"Ls", -135}, {"Rs", 135}};
constexpr Speaker five[]{{"L", -30}, {"C", 0}, {"R", 30}, {"Ls", -110}, {"Rs", 110}, {"LFE", 68}};
constexpr Speaker seven[]{{"L", -30}, {"C", 0},     {"R", 30},   {"Ls", -90},
                          {"Rs", 90}, {"Lb", -150}, {"Rb", 150}, {"LFE", 58}};
constexpr std::array<std::span<const Speaker>, 3> formats{quad, five, seven};

struct Colors {
    QColor floor;
    QColor line;
    QColor wall;
    QColor speaker;
    QColor text;
};

constexpr Colors litColors{
    {44, 44, 44}, {68, 68, 68}, {110, 110, 110}, {190, 190, 190}, {242, 242, 242}};
constexpr Colors darkColors{
    {60, 60, 60}, {74, 74, 74}, {88, 88, 88}, {112, 112, 112}, {150, 150, 150}};

const Colors& colorsOf(bool lit) { return lit ? litColors : darkColors; }

// Its front to the right, the middle of its cabinet at 0, 0.
QPainterPath speakerPath()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{-7, -5}, {-1, -5}, {6, -10}, {6, 10}, {-1, 5}, {-7, 5}}));
    path.closeSubpath();
    return path;
}

void writeAt(QPainter& painter, const QPointF& middle, const QString& text)
{
    QRectF place(0, 0, 120, 16);
    place.moveCenter(middle);
    painter.drawText(place, Qt::AlignCenter, text);
}

} // namespace

SurroundPuck* SurroundRoom::addPuck(int number)
{
    allPucks.append(new SurroundPuck(this, number));
    return allPucks.last();
}

bool SurroundRoom::isLively() const { return lit && isEnabled(); }

double SurroundRoom::wall() const { return std::min(width(), height()) / 2.0 - surroundings; }

QPointF SurroundRoom::pointAt(double distance, double angle) const
{
    const double turned = qDegreesToRadians(angle);
    return middle() + QPointF(std::sin(turned), -std::cos(turned)) * distance;
}

QPointF SurroundRoom::placeOf(int radius, int angle) const
{
    return pointAt(wall() * radius / SurroundPuck::farthest, angle);
}

SurroundRoom::Polar SurroundRoom::polarOf(const QPointF& place, int angleInTheMiddle) const
{
    const QPointF way = place - middle();
    const double distance = std::hypot(way.x(), way.y()) / wall() * SurroundPuck::farthest;
    const int radius = qRound(std::min<double>(distance, SurroundPuck::farthest));
    if (radius == 0)
        return {0, angleInTheMiddle};
    const int angle = qRound(qRadiansToDegrees(std::atan2(way.x(), -way.y())));
    return {radius, (angle + SurroundPuck::turn) % SurroundPuck::turn};
}

void SurroundRoom::setFormat(int value)
{
    if (value < 0 || value >= static_cast<int>(formats.size()))
        return;
    format = value;
    update();
}

void SurroundRoom::setLit(bool on)
{
    lit = on;
    for (SurroundPuck* puck : std::as_const(allPucks))
        puck->update();
    update();
}

void SurroundRoom::resizeEvent(QResizeEvent* event)
{
    for (SurroundPuck* puck : std::as_const(allPucks))
        puck->settle();
    QWidget::resizeEvent(event);
}

void SurroundRoom::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFloor(painter);
    paintSpeakers(painter);
    paintStacks(painter);
}

void SurroundRoom::paintFloor(QPainter& painter) const
{
    const Colors& colors = colorsOf(isLively());
    painter.setPen(QPen(colors.wall, 2));
    painter.setBrush(colors.floor);
    painter.drawEllipse(middle(), wall(), wall());
    painter.setPen(QPen(colors.line, 1));
    painter.setBrush(Qt::NoBrush);
    for (int ring = 1; ring < 4; ++ring)
        painter.drawEllipse(middle(), wall() * ring / 4, wall() * ring / 4);
    for (int angle = 0; angle < SurroundPuck::turn / 2; angle += 45)
        painter.drawLine(pointAt(wall() - 1, angle), pointAt(1 - wall(), angle));
    for (const SurroundPuck* puck : std::as_const(allPucks)) {
        if (!puck->hasFocus())
            continue;
        painter.setPen(QPen(colors.speaker, 1, Qt::DashLine));
        painter.drawLine(middle(), puck->place());
    }
}

void SurroundRoom::paintSpeakers(QPainter& painter) const
{
    const Colors& colors = colorsOf(isLively());
    for (const Speaker& speaker : formats.at(static_cast<std::size_t>(format))) {
        painter.save();
        painter.translate(pointAt(wall() + toSpeaker, speaker.angle));
        // From facing right to facing the middle.
        painter.rotate(speaker.angle + 90);
        painter.fillPath(speakerPath(), colors.speaker);
        painter.restore();
        painter.setPen(colors.text);
        const QString name = QLatin1String(speaker.name);
        // Beside the loudspeaker a name takes more room than above it.
        const double aside = std::abs(std::sin(qDegreesToRadians(double(speaker.angle))))
            * painter.fontMetrics().horizontalAdvance(name) / 3;
        writeAt(painter, pointAt(wall() + toName + aside, speaker.angle), name);
    }
}

// From the lowest up, so that the names below the focused one stand over the others'.
void SurroundRoom::paintStacks(QPainter& painter) const
{
    const auto pucks = findChildren<SurroundPuck*>(QString(), Qt::FindDirectChildrenOnly);
    for (const SurroundPuck* puck : pucks) {
        QList<SurroundPuck*> stack = pucks;
        stack.removeIf(
            [puck](const SurroundPuck* other) { return other->place() != puck->place(); });
        if (stack.last() == puck)
            paintStack(painter, stack);
    }
}

// What shows that there is more than the puck on top, and a plate with the channels of them all.
void SurroundRoom::paintStack(QPainter& painter, const QList<SurroundPuck*>& stack) const
{
    const Colors& colors = colorsOf(isLively());
    const QPointF place = stack.last()->place();
    QStringList channels;
    for (auto below = stack.size() - 1; below >= 0; --below) {
        channels += stack.at(below)->carried();
        painter.setPen(QPen(SurroundPuck::edgeColor, 2));
        painter.setBrush(stack.at(below)->fillColor().darker(130));
        constexpr double disc = SurroundPuck::side / 2.0 - 3;
        painter.drawEllipse(place + QPointF(4, -4) * static_cast<double>(below), disc, disc);
    }
    if (channels.isEmpty())
        return;
    channels.sort();
    const QString text = channels.join(QLatin1Char(' '));
    QRectF plate(0, 0, std::max(30, painter.fontMetrics().horizontalAdvance(text) + 10), 14);
    plate.moveCenter(place + QPointF(0, SurroundPuck::side / 2.0 + 7));
    painter.setPen(QPen(colors.wall, 1));
    painter.setBrush(colors.floor);
    painter.drawRoundedRect(plate, 3, 3);
    painter.setPen(colors.text);
    writeAt(painter, plate.center(), text);
}
