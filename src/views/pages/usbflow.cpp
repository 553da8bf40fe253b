#include "usbflow.h"

#include <QAbstractButton>
#include <QPainter>
#include <QPainterPath>

namespace
{

constexpr QColor groundColor(46, 46, 46);
constexpr QColor wireColor(130, 130, 130);
constexpr QColor blockTextColor(200, 200, 200);
constexpr QColor unusedColor(104, 104, 104);
constexpr QColor usedColor(242, 242, 242);
constexpr QColor disabledColor(150, 150, 150);

constexpr QSize blockSize(40, 62);
constexpr double arrow = 5;

QPolygonF arrowHead(const QPointF& tip, const QPointF& direction)
{
    const QPointF across(-direction.y(), direction.x());
    const QPointF base = tip - direction * 1.6 * arrow;
    return {{tip, base + across * arrow, base - across * arrow}};
}

class FlowPainter
{
public:
    FlowPainter(QPainter& on, const UsbFlow& flow)
        : painter(on)
        , middle(flow.width() / 2.0)
        , usb(flow.isEnabled() ? usedColor : disabledColor)
    {
    }

    void wireDown() const
    {
        painter.setPen(QPen(wireColor, 2));
        painter.setBrush(groundColor);
        painter.drawLine(QPointF(middle, UsbFlow::inputY + 7), {middle, UsbFlow::mixY - 9.0});
        painter.drawEllipse(QPointF(middle, UsbFlow::inputY), 7, 7);
        painter.drawEllipse(QPointF(middle, UsbFlow::inputY), 2, 2);
        fill(arrowHead({middle, UsbFlow::mixY - 6}, {0, 1}), wireColor);
    }

    void block(const QString& text) const
    {
        QRectF place({}, QSizeF(blockSize));
        place.moveCenter({middle, UsbFlow::channelY});
        painter.setPen(QPen(wireColor, 1));
        painter.setBrush(groundColor);
        painter.drawRoundedRect(place, 4, 4);
        painter.setPen(blockTextColor);
        painter.drawText(place, Qt::AlignCenter, text);
    }

    void mix() const
    {
        QRectF place(0, 0, 40, 14);
        place.moveCenter({middle, UsbFlow::mixY + 2});
        painter.setPen(QPen(wireColor, 1));
        painter.setBrush(groundColor);
        painter.drawRoundedRect(place, 3, 3);
        painter.setPen(blockTextColor);
        painter.drawText(place, Qt::AlignCenter, QStringLiteral("MIX"));
    }

    // From the channel's wire at a height, out to x and down.
    void tap(double y, double x, double bottom, bool isUsed, bool leavesChannel) const
    {
        const QColor color = isUsed ? usb : unusedColor;
        const QPointF side(x < middle ? -1 : 1, 0);
        QPainterPath path(QPointF(middle, y) + side * 6);
        path.lineTo(x, y);
        path.lineTo(x, bottom);
        painter.setPen(QPen(color, isUsed ? 2 : 1, isUsed ? Qt::SolidLine : Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        if (!isUsed)
            return;
        if (leavesChannel)
            fill(arrowHead({x, bottom}, {0, 1}), color);
        else
            fill(arrowHead(QPointF(middle, y) + side * 4, -side), color);
    }

    void node(double y, bool isUsed) const
    {
        painter.setPen(QPen(groundColor, 1));
        painter.setBrush(isUsed ? usb : wireColor);
        painter.drawEllipse(QPointF(middle, y), 4, 4);
    }

private:
    void fill(const QPolygonF& shape, const QColor& color) const
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPolygon(shape);
    }

    QPainter& painter;
    const double middle;
    const QColor usb;
};

} // namespace

void UsbFlow::setSwitches(QAbstractButton* sendPost, QAbstractButton* returnPost)
{
    send = sendPost;
    back = returnPost;
    for (QAbstractButton* key : {send, back})
        connect(key, SIGNAL(toggled(bool)), SLOT(update()));
    update();
}

void UsbFlow::paintEvent(QPaintEvent* /*event*/)
{
    if (send == nullptr)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const FlowPainter flow(painter, *this);
    const double sendX = send->geometry().center().x() - x() + 0.5;
    const double backX = back->geometry().center().x() - x() + 0.5;
    flow.wireDown();
    // What is not used lies below.
    for (const bool isUsed : {false, true}) {
        flow.tap(send->isChecked() == isUsed ? postY : preY, sendX, height(), isUsed, true);
        flow.tap(back->isChecked() == isUsed ? postY : preY, backX, height(), isUsed, false);
    }
    flow.block(QStringLiteral("EQ\nCOMP\nGATE"));
    flow.mix();
    flow.node(preY, !send->isChecked() || !back->isChecked());
    flow.node(postY, send->isChecked() || back->isChecked());
}
