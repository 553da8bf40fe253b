#pragma once

#include <QColor>
#include <QDial>

// The round control of every strip: a segmented ring that fills clockwise, or outward from the top
// when centred. It turns by moving the mouse up and down, 200 pixels for the whole travel, so it
// never jumps across the gap at the bottom nor past an end. The form that shows it owns it.
class NoWrapDial : public QDial
{
    Q_OBJECT

public:
    explicit NoWrapDial(QWidget* parent = nullptr);

    QColor fillColor() const { return fill; }
    // Held beside the fill colour; nothing is drawn in it.
    QColor secondColor() const { return second; }
    int dialThickness() const { return thickness; }
    bool isCentered() const { return centered; }
    // What is painted: the place in the travel, 0.0 to 1.0, during a drag finer than value(). Never
    // not-a-number; 0.0 while minimum and maximum are equal.
    float paintValue() const { return position; }

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // The dial value at a place in the travel (0.0 to 1.0), rounded. Changes nothing.
    int slotScalePaintValue(double val) const;
    void slotScaleValueOutputAndRepaint(int value);

    // These three show with the next repaint. The thickness is the ring's width in pixels; below 1
    // the dial shows nothing.
    void slotSetFillColor(QColor fillColor) { fill = fillColor; }
    void slotSetDialThickness(int size) { thickness = size; }
    void slotSetCenteredDial(bool centerOriented) { centered = centerOriented; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void sliderChange(SliderChange change) override;

private:
    void followValue(int value);
    void turn(int pixelsUp);

    QColor fill = Qt::yellow;
    QColor second{95, 95, 95};
    int thickness = 6;
    bool centered = false;
    int lastY = 0;
    float position = 0.0F;
};
