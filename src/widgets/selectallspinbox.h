#pragma once

#include "dragspinbox.h"

// The whole number beside a dial or in the settings. The form that shows it owns it; a strip links
// it to its dial.
class SelectAllSpinbox : public DragSpinBox<QSpinBox>
{
    Q_OBJECT

public:
    explicit SelectAllSpinbox(QWidget* parent = nullptr);

    // A point may end the number, and nothing follows it: "10.5" typed is 10, not 105.
    QValidator::State validate(QString& text, int& position) const override;

signals:
    // After each step of a drag, and when the box loses the focus, changed or not.
    void signalSetDial(int value);

public slots:
    // 0 to 255: the grey of the number during a drag, shown from the next drag on.
    void slotSetTextColorBrightness(int brightness) { setTextColorBrightness(brightness); }

protected:
    void startDrag(QPoint place) override;
    void drag(int pixelsUp) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    int valueFromText(const QString& text) const override;

private:
    int pressValue = 0;
};
