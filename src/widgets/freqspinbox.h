#pragma once

#include "dragspinbox.h"

// The frequency beside a dial: in Hz or kHz, while edited in whole Hz. It holds the exact frequency
// apart from the text. The form that shows it owns it; a strip links it to its dial.
class FreqSpinBox : public DragSpinBox<QDoubleSpinBox>
{
    Q_OBJECT

public:
    explicit FreqSpinBox(QWidget* parent = nullptr);

    // In Hz.
    double trueValue() const { return exact; }
    // The Hz that the box shows while it has the focus, if this frequency is set, and that it
    // reports if nothing is typed.
    double shownValue(double hz) const;

signals:
    // In Hz, within the limits: after each step of a drag, and after each scaling.
    void signalTrueValue(double value);

public slots:
    // In Hz, 3000 and 20000 at first. What is shown stays; values from now on keep to them.
    void slotSetRange(double min, double max);
    // Shows a frequency in Hz, the nearest limit if it lies outside (not-a-number: the minimum).
    void slotSetFrequencyScaling(double hz);
    void slotSetTrueValue(double value) { exact = value; }
    // 0 to 255: the grey of the number during a drag, shown from the next drag on.
    void slotSetTextColorBrightness(int brightness) { setTextColorBrightness(brightness); }

protected:
    void startDrag(QPoint place) override;
    void drag(int pixelsUp) override;
    // Disabled or not, unlike the other boxes.
    bool canDrag() const override { return true; }
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    double bounded(double hz) const;
    void display(double hz);

    double highest = 20000.0;
    double lowest = 3000.0;
    double exact = 0.0;
    double pressValue = 0.0;
    // From focus in to focus out, as the box is told of them: during a focus out for a popup the
    // widget itself has the focus still.
    bool editing = false;
};
