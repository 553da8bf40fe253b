#pragma once

#include <QPointer>
#include <QSlider>

// The decibels beside a fader, where its handle stands at each. As high as the fader; the form owns
// it.
class FaderScale : public QWidget
{
    Q_OBJECT

public:
    FaderScale(QSlider* fader, QWidget* parent);

    static constexpr int widthInPixels = 20;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QPointer<QSlider> slider;
};
