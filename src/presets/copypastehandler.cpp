#include "copypastehandler.h"

#include "mixershape.h"
#include "presetdefaults.h"
#include "presetinterface.h"
#include "presetnames.h"

#include <QDebug>

#include <cstddef>

namespace
{

// As it stands in each of the channel's keys, once. The keys of what the inputs send to an aux hold
// two channels, the input's and the aux's.
QString wordOf(int channel)
{
    return QStringLiteral("_%1_").arg(
        QLatin1String(channels::words.at(static_cast<std::size_t>(channel - 1))));
}

bool areOfOneKind(int channel, int other)
{
    const auto kind = [](int of) {
        return channels::isInput(of)  ? 1
            : of == channels::mains   ? 2
            : of <= channels::lastAux ? 3
                                      : 4;
    };
    return kind(channel) == kind(other);
}

} // namespace

CopyPasteHandler::CopyPasteHandler(PresetInterface* presetStore, QObject* parent)
    : QObject(parent)
    , presets(presetStore)
{
}

void CopyPasteHandler::slotSetCurrentChannel(int channel)
{
    if (channel >= 1 && channel <= channels::phones)
        currentChannel = channel;
    else
        qDebug() << "no channel to copy and paste:" << channel;
}

void CopyPasteHandler::slotCopyPreset()
{
    const QVariantMap preset = presets->workingPreset(presets->currentPresetNumber());
    if (preset.isEmpty()) {
        qDebug() << "copy: there is no current preset";
        return;
    }
    copiedPreset = {{presetNameKey(), nameOfPreset(preset)}};
    for (auto value = preset.cbegin(); value != preset.cend(); ++value) {
        if (presetdefaults::isPresetParameter(value.key()))
            copiedPreset.insert(value.key(), value.value());
    }
    emit signalUpdatePasteAvailability();
}

void CopyPasteHandler::slotCopyChannel()
{
    const QVariantMap preset = presets->workingPreset(presets->currentPresetNumber());
    QVariantMap channel;
    for (auto value = preset.cbegin(); value != preset.cend(); ++value) {
        const QString& key = value.key();
        if (key.contains(wordOf(currentChannel)) && !key.endsWith(QStringLiteral("_stereo"))
            && presetdefaults::isPresetParameter(key))
            channel.insert(key, value.value());
    }
    if (channel.isEmpty()) {
        qDebug() << "copy: the current preset has nothing of channel" << currentChannel;
        return;
    }
    copiedChannel = channel;
    copiedFrom = currentChannel;
    emit signalUpdatePasteAvailability();
}

bool CopyPasteHandler::isReadyToPaste(const QVariantMap& copied) const
{
    const bool ready = !copied.isEmpty() && presets->isReadyToPaste();
    if (!ready)
        qDebug() << "paste: nothing was copied, or the current preset can't take it now";
    return ready;
}

void CopyPasteHandler::slotPastePreset()
{
    if (!isReadyToPaste(copiedPreset))
        return;
    emit signalDeselectMultiple();
    presets->pastePreset(copiedPreset);
}

void CopyPasteHandler::slotPasteNewPreset()
{
    // Ready is asked for too: to select a preset that can't be recalled would let the mixer's
    // answers go into it.
    if (presets->isFull() || !isReadyToPaste(copiedPreset)) {
        qDebug() << "paste to new: not now, or the library is full";
        return;
    }
    emit signalDeselectMultiple();
    QVariantMap preset = copiedPreset;
    preset.insert(presetNameKey(),
                  presets->slotAppendSuffixToNewPresetName(nameOfPreset(copiedPreset)));
    const int presetNum = presets->appendPreset(preset);
    if (presetNum == -1)
        return;
    emit signalAddOrRemovePreset();
    if (!presets->isDemoMode())
        emit signalEnableDeleteButton(true);
    emit signalPresetMenu(presetNum);
}

void CopyPasteHandler::slotPasteChannel()
{
    if (!areOfOneKind(copiedFrom, currentChannel)) {
        qDebug() << "paste: channel" << copiedFrom << "doesn't fit channel" << currentChannel;
        return;
    }
    if (!isReadyToPaste(copiedChannel))
        return;
    emit signalDeselectMultiple();
    QVariantMap values;
    for (auto value = copiedChannel.cbegin(); value != copiedChannel.cend(); ++value) {
        values.insert(QString(value.key()).replace(wordOf(copiedFrom), wordOf(currentChannel)),
                      value.value());
    }
    presets->pasteParameters(values);
}

void CopyPasteHandler::slotClearPreset()
{
    const QVariantMap blank = presets->blankPreset();
    if (!isReadyToPaste(blank))
        return;
    emit signalDeselectMultiple();
    presets->pastePreset(blank);
}
