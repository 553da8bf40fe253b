#pragma once

#include <QColor>
#include <QPointF>
#include <QStringList>
#include <QWidget>

class SurroundRoom;

// Where one rotary stands in the room: dragged by the mouse, nudged by the arrow keys. It is a
// second face of its two number boxes: a move by the user is only told, and the boxes answer by
// setting it. The room owns it.
class SurroundPuck : public QWidget
{
    Q_OBJECT

public:
    static constexpr int side = 34; // in pixels
    static constexpr int farthest = 127;
    static constexpr int turn = 360;
    static constexpr QColor edgeColor{35, 35, 35};

    // number: what stands on it.
    SurroundPuck(SurroundRoom* room, int number);

    QPointF place() const;
    // The channels that it carries, which the room writes below it.
    const QStringList& carried() const { return channels; }
    void setCarried(const QStringList& numbers);
    QColor fillColor() const;
    // Goes where its values are; to be called when the room's size has changed.
    void settle();

public slots:
    // From 0, the middle of the room, to 127, its wall.
    void slotSetRadius(int value);
    // In degrees clockwise from the front, 0 to 359.
    void slotSetAngle(int value);

signals:
    // Where the user wants it, each value only if it differs.
    void signalRadius(int value);
    void signalAngle(int value);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void go(int newRadius, int newAngle);

    SurroundRoom* const room;
    const int number;
    QStringList channels;
    int radius = 0;
    int angle = 0;
    QPointF grip; // from its place to where it was pressed
};
