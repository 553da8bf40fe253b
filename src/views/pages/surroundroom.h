#pragma once

#include <QList>
#include <QWidget>

class QPainter;
class SurroundPuck;

// The room of the surround page, seen from above: its wall, the loudspeakers of the format around
// it, and a puck for each rotary. The form that shows it owns it.
class SurroundRoom : public QWidget
{
    Q_OBJECT

public:
    struct Polar {
        int radius; // 0 in the middle to 127 at the wall
        int angle;  // in degrees clockwise from the front, 0 to 359
    };

    using QWidget::QWidget;

    SurroundPuck* addPuck(int number);
    const QList<SurroundPuck*>& pucks() const { return allPucks; }

    QPointF placeOf(int radius, int angle) const;
    // What is beyond the wall counts as at the wall. angleInTheMiddle: where no direction is.
    Polar polarOf(const QPointF& place, int angleInTheMiddle) const;

    // 0 quad, 1 5.1, 2 7.1; any other value leaves the format as it is.
    void setFormat(int value);
    // Whether surround is on; off, the room is grey and its pucks can be moved all the same.
    void setLit(bool on);
    // Whether it shows its colours: surround is on, and can be changed.
    bool isLively() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF middle() const { return QRectF(rect()).center(); }
    double wall() const;
    QPointF pointAt(double distance, double angle) const;
    void paintFloor(QPainter& painter) const;
    void paintSpeakers(QPainter& painter) const;
    void paintStacks(QPainter& painter) const;
    void paintStack(QPainter& painter, const QList<SurroundPuck*>& stack) const;

    QList<SurroundPuck*> allPucks;
    int format = 1;
    bool lit = false;
};
