#pragma once

#include "channelselection.h"
#include "modeentry.h"
#include "wires.h"

#include <QObject>

class ChannelStripTab;
class CopyPasteHandler;
class FaderFrame;
class QPushButton;
class QToolButton;
class QWidget;
class ReverbTabForm;

// Which channels are selected, by the select buttons on the fader frame and Shift, and the links
// between the controls of channels that are selected together. At least one is selected at all
// times. The full-power view owns it.
class ChannelSelector : public QObject
{
    Q_OBJECT

public:
    // Begins with channel 1. channelTab: the button of the page that shows the selected channel.
    ChannelSelector(QObject* parent, const ViewMode& mode, FaderFrame* faders,
                    ChannelStripTab* channelStripTab, ReverbTabForm* reverbTabForm,
                    CopyPasteHandler* copyPasteHandler, QPushButton* channelTab);

    const QStringList& selectedChannels() const { return selection.names(); }
    bool isSelected(int channel) const;
    // Whether the last left press on a select button was with Shift.
    void setShift(bool shift) { shiftSelectActive = shift; }

    // The button was switched.
    void select(QObject* button);
    // As the mixer does, whatever was pressed last here.
    void selectOnly(int channel);
    void shiftSelect(int channel);
    void shiftDeselect(int channel);
    void deselectMultiple();
    // Before a whole preset is laid on the controls: linked ones would move each other.
    void endMultipleSelection();
    // Select-button names; no wires for any that is not an input's.
    void setLinked(const QString& older, const QString& newer, bool linked) const;

    // What is joined for the time of the mode.
    QList<Wire> wires();

public slots:
    void slotSelectChannelView() { select(sender()); }

signals:
    void signalSelectChannelView(int selectedChannel);

private:
    Wire toggledWire(QPushButton* button);
    QPushButton* button(const QString& name) const;
    QToolButton* stereoButton(int channel) const;
    QPushButton* partnerOf(int channel) const;
    bool isOutputSelected() const;
    bool isSelectingTogether(int channel) const;
    void selectAlone(QPushButton* button);
    void selectTogether(int channel);
    void deselect(QPushButton* button, int channel);
    void checkQuietly(QPushButton* button, bool checked);
    void showChannelOf(const QString& selectName);
    QList<Wire> links(const QString& older, const QString& newer) const;

    const ViewMode& mode;
    FaderFrame* const faders;
    ChannelStripTab* const channelStripTab;
    ReverbTabForm* const reverbTabForm;
    CopyPasteHandler* const copyPasteHandler;
    QPushButton* const channelTab;
    ChannelSelection& selection;
    const QList<QPushButton*> selectButtons;
    bool shiftSelectActive = false;
};
