#pragma once

#include <QObject>

// The host's half of the HUI bridge: turns the control changes of a recording program into fader
// moves and lights of the mixer. Knows no port. SysexManager makes a new one each time that the
// bridge is turned on, and owns them all.
class HuiInputHandler : public QObject
{
    Q_OBJECT

public:
    // The names that the signals carry.
    HuiInputHandler(const QString& sysexDevice, const QString& controlDevice,
                    QObject* parent = nullptr);

public slots:
    // ccChan counts from 0, and all but the first are ignored; ccNum and ccVal as they came.
    void slotHandleHuiInput(int ccChan, int ccNum, int ccVal);
    // The mixer darkens its bank indicators when it lets go of a bank button.
    void slotSendBankLeftRightLED();

signals:
    // data: good during the call only.
    void signalSendHuiSysex(QString deviceName, uchar* data, int size);
    // chan: as MidiManager takes it, which makes the first channel of 0.
    void signalSendHuiCCMessage(QString deviceName, int chan, int ccNum, int ccVal);
    void signalSendHuiNoteOnMessage(QString deviceName, int chan, int noteNum, int noteVel);

private:
    enum State { Idle, FaderLowByte, PortSelect };

    void begin(int ccNum, int ccVal);
    void endFader(int ccChan, int ccNum, int ccVal);
    void endLight(int ccNum, int ccVal);
    void sendHuiStatus(int subtype, int zone, bool on);

    int huiState = Idle;
    int faderHighByte = 0;
    int faderLowByte = 0; // which the mixer has no use for
    int huiZone = 0;
    QString sysexDeviceName;
    QString controlDeviceName;
};
