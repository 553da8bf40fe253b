#pragma once

#include <QObject>
#include <QVariantMap>

class PresetInterface;

// What the Edit menu does with presets and channels: copies from the current preset's edits, kept
// in memory, and pastes into them, so that only a save makes a paste last. The full-power view owns
// it.
//
// What doesn't fit, and a paste at a moment when its values couldn't be shown and sent, does
// nothing but a debug line.
class CopyPasteHandler : public QObject
{
    Q_OBJECT

public:
    // presetStore outlives the handler.
    explicit CopyPasteHandler(PresetInterface* presetStore, QObject* parent = nullptr);

    bool hasCopiedPreset() const { return !copiedPreset.isEmpty(); }
    bool hasCopiedChannel() const { return !copiedChannel.isEmpty(); }

public slots:
    void slotCopyPreset();
    // Into the current preset, which keeps its name.
    void slotPastePreset();
    // Saves the copy as the last preset under a free name, and asks for its selection.
    void slotPasteNewPreset();
    // All parameters of the current channel but its place in a stereo pair. Those of an aux are its
    // fader, its mute and what every input sends to it.
    void slotCopyChannel();
    // Into the current channel, if it is of the same kind.
    void slotPasteChannel();
    // Pastes the blank template.
    void slotClearPreset();
    // 1 to 8: inputs, 9: mains, 10 to 12: auxes, 13: phones; any other number changes nothing.
    void slotSetCurrentChannel(int channel);

signals:
    void signalAddOrRemovePreset();
    // Only ever true, and not in demo mode, where nothing is deleted.
    void signalEnableDeleteButton(bool enabled);
    void signalUpdatePasteAvailability();
    void signalPresetMenu(int goToPresetNum);
    // Linked channels would pass on to each other what a paste sets.
    void signalDeselectMultiple();

private:
    bool isReadyToPaste(const QVariantMap& copied) const;

    PresetInterface* const presets;
    int currentChannel = 1;
    // With its name; of the parameters only those that the mixer has.
    QVariantMap copiedPreset;
    // Under the keys of the channel that it was taken from.
    QVariantMap copiedChannel;
    int copiedFrom = 1;
};
