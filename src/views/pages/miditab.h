#pragma once

#include "forms/midiform.h"
#include "globaltab.h"
#include "stripparts.h"

#include <QTimer>

class QSpinBox;

// The MIDI mapping's page: which CC or note each control of the mixer's panel sends, for one bank
// at a time, and on which channel. Two controls of the shown bank that send the same are marked.
// The view that shows it owns it.
class MidiTab : public GlobalTab
{
    Q_OBJECT

public:
    static constexpr QSize usualSize{stripparts::pageWidth, stripparts::pageHeight};

    // globals must outlive the tab. The form fills the size, 784 x 336 or more.
    MidiTab(QWidget* parent, GlobalPresetInterface* globals, const QSize& size = usualSize);

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // A bank's channel comes one lower than it is shown and stored.
    void slotReceiveMidiParams(QString key, int value);
    // index: from 0; any other changes nothing.
    void slotShowBank(int index);

protected:
    void showOwnState(const Control& control) override;

private slots:
    void slotMarkClashes();

private:
    QSpinBox* boxOf(const MidiForm::Sender& sender) const;
    void mark(const MidiForm::Sender& sender, const QString& clash);

    MidiForm form;
    // Many values change at once: they are compared once, when all are there.
    QTimer clashTimer;
};
