#pragma once

#include <QAbstractSlider>
#include <QList>

class QPushButton;

// Twelve buttons of which one is lit: what the phones hear. The value is a channel number, 1 to 8
// inputs, 9 mains, 10 to 12 aux 1 to 3. The phones' page owns it.
class MonitorSelector : public QAbstractSlider
{
    Q_OBJECT

public:
    // Its buttons fill the place in three rows.
    MonitorSelector(QWidget* parent, const QSize& size, const QString& spokenPage);

protected:
    void sliderChange(SliderChange change) override;
    // Neither is a step through the channels: the phones would blare.
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void slotChoose(int channel);

private:
    QList<QPushButton*> buttons;
};
