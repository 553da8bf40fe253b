// SysexManager's handlers of the HUI bridge.
#include "sysexmanager.h"

#include "huiinputhandler.h"
#include "huioutputhandler.h"
#include "wires.h"

#include <QDebug>

void SysexManager::slotEnableHuiPort(bool enabled)
{
    qDebug() << "SysexMgr called midimanger->enableHUI";
    if (enabled && demoMode)
        return;
    midiManager->slotEnableHuiPort(enabled);
}

// All of them are direct, since everybody lives in one thread: the pointers that they carry are
// good during the call only.
QList<Wire> SysexManager::huiOutputWires()
{
    return {
        {this, SIGNAL(signalReceiveSysexForHUI(uchar*)), huiOutputHandler,
         SLOT(slotReceiveSysexForHUI(uchar*))},
        {this, SIGNAL(signalReceiveCCsForHUI(int, int, int)), huiOutputHandler,
         SLOT(slotReceiveCCsForHUI(int, int, int))},
        {this, SIGNAL(signalReceiveNotesForHUI(int, int, int)), huiOutputHandler,
         SLOT(slotReceiveNotesForHUI(int, int, int))},
        {huiOutputHandler, SIGNAL(signalOutputHuiCCMessage(QString, int, int, int)), midiManager,
         SLOT(outputCC(QString, int, int, int))},
    };
}

QList<Wire> SysexManager::huiInputWires()
{
    return {
        {this, SIGNAL(signalReceiveCCsForHuiLeds(int, int, int)), huiInputHandler,
         SLOT(slotHandleHuiInput(int, int, int))},
        {this, SIGNAL(signalReceiveBankPressOffIndicators()), huiInputHandler,
         SLOT(slotSendBankLeftRightLED())},
        {huiInputHandler, SIGNAL(signalSendHuiSysex(QString, uchar*, int)), midiManager,
         SLOT(outputSysEx(QString, uchar*, int))},
        {huiInputHandler, SIGNAL(signalSendHuiCCMessage(QString, int, int, int)), midiManager,
         SLOT(outputCC(QString, int, int, int))},
        {huiInputHandler, SIGNAL(signalSendHuiNoteOnMessage(QString, int, int, int)), midiManager,
         SLOT(outputNoteOn(QString, int, int, int))},
    };
}

void SysexManager::slotConnectHuiStuff()
{
    if (huiInputHandler)
        return;
    huiOutputHandler = new HuiOutputHandler(this);
    for (const Wire& wire : huiOutputWires())
        wire.connect();
    huiInputHandler = new HuiInputHandler(outputDeviceName, controlOutputDeviceName, this);
    for (const Wire& wire : huiInputWires())
        wire.connect();
}

void SysexManager::slotDisconnectHuiStuff()
{
    if (!huiInputHandler)
        return;
    for (const Wire& wire : huiOutputWires())
        wire.disconnect();
    huiOutputHandler->deleteLater();
    huiOutputHandler = nullptr;
    for (const Wire& wire : huiInputWires())
        wire.disconnect();
    // Stays as an idle child.
    huiInputHandler = nullptr;
}
