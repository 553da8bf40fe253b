#pragma once

#include <QList>
#include <QObject>

// The mixer's half of the HUI bridge: writes what its control surface sends as HUI for a recording
// program. Knows no port. SysexManager makes one when the bridge is turned on and deletes it when
// it is turned off; a release that is due then is lost.
class HuiOutputHandler : public QObject
{
    Q_OBJECT

public:
    explicit HuiOutputHandler(QObject* parent = nullptr);

public slots:
    // syxData: the eleven bytes behind 0xF0. What lies out of its ranges is ignored.
    void slotReceiveSysexForHUI(uchar* syxData);
    // bank: the channel from 0, and all but the first are ignored; faderChan and noteNum:
    // controller and note less one.
    void slotReceiveCCsForHUI(int bank, int faderChan, int faderLoc);
    void slotReceiveNotesForHUI(int bank, int noteNum, int noteVel);

signals:
    // chan: as MidiManager takes it, which makes the first channel of 0.
    void signalOutputHuiCCMessage(QString deviceName, int chan, int ccNum, int ccVal);

private:
    void send(int ccNum, int ccVal);
    void sendSwitch(int zone, int port, bool pressed);
    void press(QList<int>& pressed, int channel, int port);
    void releaseDue(QList<int>& pressed, int channel, int port);
    void touchFader(int channel, bool touched);

    int huiStatusValue = 0; // kept for nobody
    // Per channel: whether a press was sent and its release is due.
    QList<int> mutePressed;
    QList<int> soloPressed;
};
