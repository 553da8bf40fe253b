#pragma once

#include "forms/surroundform.h"
#include "globaltab.h"

// The page of the surround panner: the room with its pucks, which channel each of them carries, the
// format and the bass. The full-power view owns it.
class SurroundTab : public GlobalTab
{
    Q_OBJECT

public:
    // globals must outlive it.
    SurroundTab(QWidget* parent, GlobalPresetInterface* globals);

public slots:
    void slotReceiveSurroundParams(QString jsonName, int value);

signals:
    // At every press, receive and recall, also if it stays as it is.
    void signalSurroundEnabled(bool enabled);
    // Where the window is; raised by the view.
    void signalReportMainWindowPos(int x, int y);

protected:
    void showOwnState(const Control& control) override;

private:
    void showCarried();

    const SurroundForm form;
};
