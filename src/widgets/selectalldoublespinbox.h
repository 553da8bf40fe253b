#pragma once

#include "dragspinbox.h"

// The decimal number beside a dial or a fader. A drag goes at the speed of the digit that was
// pressed. The form that shows it owns it; a strip links it to its dial.
class SelectAllDoubleSpinbox : public DragSpinBox<QDoubleSpinBox>
{
    Q_OBJECT

public:
    explicit SelectAllDoubleSpinbox(QWidget* parent = nullptr);

    // What value() would be after setValue(number): bounded, and rounded to the decimals.
    double shownValue(double number) const;

signals:
    // After each step of a drag, and when the box loses the focus, changed or not.
    void signalSetDial(double value);

public slots:
    // 0 to 255: the grey of the number during a drag, shown from the next drag on.
    void slotSetTextColorBrightness(int brightness) { setTextColorBrightness(brightness); }
    // The pixels to a unit, 0.1 to 100.0, for a drag that begins at a place between the text's
    // characters (any integer). Changes nothing.
    double slotGetScrollDivisorFromCursorPos(int cursorPos);

protected:
    void startDrag(QPoint place) override;
    void drag(int pixelsUp) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    double pressValue = 0.0;
    double scrollDivisor = 1.0;
};
