#include "surroundpuck.h"

#include "stripparts.h"
#include "surroundroom.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

SurroundPuck::SurroundPuck(SurroundRoom* parentRoom, int shownNumber)
    : QWidget(parentRoom)
    , room(parentRoom)
    , number(shownNumber)
{
    resize(side, side);
    // The corners leave the pointer to a puck below.
    setMask(QRegion(rect(), QRegion::Ellipse));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::OpenHandCursor);
    settle();
}

QPointF SurroundPuck::place() const { return room->placeOf(radius, angle); }

void SurroundPuck::setCarried(const QStringList& numbers)
{
    channels = numbers;
    room->update();
}

QColor SurroundPuck::fillColor() const
{
    return room->isLively() ? stripparts::sendColor : QColor(112, 112, 112);
}

void SurroundPuck::settle()
{
    move((place() - QPointF(side, side) / 2).toPoint());
    setAccessibleDescription(QStringLiteral("radius %1, angle %2 degrees").arg(radius).arg(angle));
    room->update();
}

void SurroundPuck::slotSetRadius(int value)
{
    radius = value;
    settle();
}

void SurroundPuck::slotSetAngle(int value)
{
    angle = value;
    settle();
}

void SurroundPuck::go(int newRadius, int newAngle)
{
    if (newRadius != radius)
        emit signalRadius(newRadius);
    if (newAngle != angle)
        emit signalAngle(newAngle);
}

void SurroundPuck::mousePressEvent(QMouseEvent* event)
{
    grip = mapToParent(event->position()) - place();
}

void SurroundPuck::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    const SurroundRoom::Polar to = room->polarOf(mapToParent(event->position()) - grip, angle);
    go(to.radius, to.angle);
}

void SurroundPuck::keyPressEvent(QKeyEvent* event)
{
    const auto nudge = [this](int outwards, int clockwise) {
        go(std::clamp(radius + outwards, 0, farthest), (angle + clockwise + turn) % turn);
    };
    switch (event->key()) {
    case Qt::Key_Up:
        nudge(1, 0);
        break;
    case Qt::Key_Down:
        nudge(-1, 0);
        break;
    case Qt::Key_Right:
        nudge(0, 1);
        break;
    case Qt::Key_Left:
        nudge(0, -1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SurroundPuck::focusInEvent(QFocusEvent* event)
{
    raise();
    room->update();
    QWidget::focusInEvent(event);
}

void SurroundPuck::focusOutEvent(QFocusEvent* event)
{
    room->update();
    QWidget::focusOutEvent(event);
}

void SurroundPuck::paintEvent(QPaintEvent* /*event*/)
{
    constexpr QColor numberColor(242, 242, 242);
    const QRectF disc = QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edgeColor, 3));
    painter.setBrush(fillColor());
    painter.drawEllipse(disc);
    if (hasFocus()) {
        painter.setPen(QPen(numberColor, 2));
        painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
    }
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    bold.setPixelSize(15);
    painter.setFont(bold);
    painter.setPen(numberColor);
    painter.drawText(rect(), Qt::AlignCenter, QString::number(number));
}
