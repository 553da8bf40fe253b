#include "panelmap.h"

#include <QPainter>
#include <QPainterPath>

namespace
{

constexpr int captionHeight = 14;
constexpr int messageHeight = 10;
constexpr int capHeight = 26;
constexpr int capWidth = 46;
constexpr int keyRadius = 4;
constexpr int ringWidth = 6;
constexpr int arrowSide = 5;

constexpr QColor trackColor(35, 35, 35);
constexpr QColor edgeColor(46, 46, 46);
constexpr QColor litColor(242, 242, 242);
constexpr QColor captionColor(200, 200, 200);
constexpr QColor dimColor(150, 150, 150);

QLinearGradient body(const QRect& place, int upper, int lower)
{
    QLinearGradient fill(place.topLeft(), place.bottomLeft());
    fill.setColorAt(0, QColor(upper, upper, upper));
    fill.setColorAt(1, QColor(lower, lower, lower));
    return fill;
}

// Its edges lie on the middles of pixels.
QRectF crisp(const QRect& place) { return QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5); }

void drawMessage(QPainter& painter, const QRect& place)
{
    QFont small = painter.font();
    small.setPixelSize(9);
    small.setBold(false);
    painter.setFont(small);
    painter.setPen(dimColor);
    painter.drawText(place, Qt::AlignCenter, QStringLiteral("CC"));
}

void drawRotary(QPainter& painter, const QRect& place, const QColor& edge)
{
    const QRect ring = PanelMap::ringOf(place);
    constexpr int half = ringWidth / 2;
    const QRectF track = QRectF(ring).adjusted(half, half, -half, -half);
    constexpr int sixteenths = 16;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(trackColor, ringWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(track, -50 * sixteenths, 280 * sixteenths);
    painter.setPen(edge);
    painter.setBrush(body(ring, 96, 80));
    painter.drawEllipse(track.adjusted(half + 2, half + 2, -half - 2, -half - 2));
    drawMessage(painter,
                {ring.x(), ring.bottom() - messageHeight - 6, ring.width(), messageHeight});
}

void drawFader(QPainter& painter, const QRect& place, const QColor& edge)
{
    const QRect cap = PanelMap::capOf(place);
    constexpr int slotWidth = 6;
    const QRect slot(cap.center().x() - slotWidth / 2 + 1, place.y() + captionHeight + 2, slotWidth,
                     place.height() - captionHeight - 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(trackColor);
    painter.drawRoundedRect(slot, slotWidth / 2, slotWidth / 2);
    painter.setPen(edge);
    painter.setBrush(body(cap, 132, 84));
    painter.drawRoundedRect(crisp(cap), keyRadius, keyRadius);
    const QRect message(cap.right() - 16, cap.bottom() + 4, 16, messageHeight);
    drawMessage(painter, message);
}

void drawKey(QPainter& painter, const QRect& place, const QColor& edge)
{
    painter.setPen(edge);
    painter.setBrush(body(place, 96, 82));
    painter.drawRoundedRect(crisp(place), keyRadius, keyRadius);
}

void drawArrow(QPainter& painter, const QPoint& tip, const QPoint& direction)
{
    const QPoint foot = tip - direction * arrowSide;
    const QPoint across(direction.y() * arrowSide, direction.x() * arrowSide);
    painter.drawPolygon(QPolygon{tip, foot + across, foot - across});
}

void drawDiamond(QPainter& painter, const QRect& place, const QColor& edge)
{
    const QPoint middle = place.center();
    const QPolygon outline{QPoint(middle.x(), place.top()), QPoint(place.right(), middle.y()),
                           QPoint(middle.x(), place.bottom()), QPoint(place.left(), middle.y())};
    painter.setPen(QPen(edge, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(body(place, 96, 82));
    painter.drawPolygon(outline);
    painter.setPen(Qt::NoPen);
    painter.setBrush(captionColor);
    constexpr int inset = 4;
    drawArrow(painter, outline.at(0) + QPoint(0, inset), {0, -1});
    drawArrow(painter, outline.at(1) - QPoint(inset * 2, 0), {1, 0});
    drawArrow(painter, outline.at(2) - QPoint(0, inset), {0, 1});
    drawArrow(painter, outline.at(3) + QPoint(inset * 2, 0), {-1, 0});
}

} // namespace

PanelMap::PanelMap(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PanelMap::add(Shape shape, const QRect& place, const QString& caption)
{
    parts.append({shape, place, caption});
}

QRect PanelMap::capOf(const QRect& fader)
{
    const int travel = fader.height() - captionHeight - capHeight;
    return {fader.center().x() - capWidth / 2 + 1, fader.y() + captionHeight + travel / 2, capWidth,
            capHeight};
}

QRect PanelMap::ringOf(const QRect& rotary)
{
    const int side = rotary.height() - captionHeight;
    return {rotary.center().x() - side / 2 + 1, rotary.y(), side, side};
}

void PanelMap::light(const QPoint& place)
{
    qsizetype found = -1;
    for (qsizetype index = 0; index < parts.size(); ++index)
        if (parts.at(index).place.contains(place))
            found = index;
    setLit(found);
}

void PanelMap::setLit(qsizetype index)
{
    if (lit == index)
        return;
    for (const qsizetype changed : {lit, index})
        if (changed >= 0)
            update(parts.at(changed).place);
    lit = index;
}

void PanelMap::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (qsizetype index = 0; index < parts.size(); ++index)
        if (event->rect().intersects(parts.at(index).place))
            paintPart(painter, parts.at(index), index == lit);
}

void PanelMap::paintPart(QPainter& painter, const Part& part, bool isLit) const
{
    const QRect& place = part.place;
    const QColor& edge = isLit ? litColor : edgeColor;
    QRect caption(place.x(), place.y(), place.width(), captionHeight);
    switch (part.shape) {
    case Shape::Rotary:
        drawRotary(painter, place, edge);
        caption.moveBottom(place.bottom());
        break;
    case Shape::Fader:
        drawFader(painter, place, edge);
        break;
    case Shape::Key:
        drawKey(painter, place, edge);
        caption.setRect(place.x() + 2, place.y() + 3, 20, 18);
        break;
    case Shape::Diamond:
        drawDiamond(painter, place, edge);
        break;
    }
    QFont words = font();
    words.setBold(isLit);
    painter.setFont(words);
    painter.setPen(!isEnabled() ? dimColor : isLit ? litColor : captionColor);
    painter.drawText(caption, Qt::AlignCenter, part.caption);
}
