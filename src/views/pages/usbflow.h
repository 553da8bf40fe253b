#pragma once

#include <QWidget>

class QAbstractButton;

// The way of one channel's signal, drawn from its input down to the mix: where it is taken for the
// computer, at the left, and where the computer's sound comes in, at the right. The form that shows
// it owns it.
class UsbFlow : public QWidget
{
    Q_OBJECT

public:
    // Where things stand, in pixels from the top.
    static constexpr int inputY = 12;
    static constexpr int preY = 52;
    static constexpr int channelY = 106;
    static constexpr int postY = 160;
    static constexpr int mixY = 204;

    using QWidget::QWidget;

    // Below the picture, at its left and right, down for post. Both must outlive it.
    void setSwitches(QAbstractButton* sendPost, QAbstractButton* returnPost);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QAbstractButton* send = nullptr;
    QAbstractButton* back = nullptr;
};
