#pragma once

#include <QSlider>

// A fader: the handle jumps to the pointer and follows it. The form that shows it owns it.
class PortableSlider : public QSlider
{
    Q_OBJECT

public:
    explicit PortableSlider(QWidget* parent = nullptr);
    explicit PortableSlider(Qt::Orientation orientation, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void follow(QMouseEvent* event);

    bool dragging = false;
};
