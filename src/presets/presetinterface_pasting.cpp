#include "presetinterface.h"

#include "diskfile.h"
#include "presetdefaults.h"
#include "presetnames.h"

#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>

bool PresetInterface::isReadyToPaste() const
{
    return contains(currentPreset) && (demoMode || syncComplete) && !recalling;
}

bool PresetInterface::layOverCurrent(const QVariantMap& values)
{
    if (values.isEmpty() || !isReadyToPaste()) {
        qDebug() << "paste: nothing to paste, or the preset can't take it now";
        return false;
    }
    QVariantMap& preset = *presetIn(workingMap, currentPreset);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (presetdefaults::isPresetParameter(value.key()))
            preset.insert(value.key(), value.value());
    }
    return true;
}

void PresetInterface::pastePreset(const QVariantMap& values)
{
    if (layOverCurrent(values))
        slotRecallPreset(currentPreset);
}

void PresetInterface::pasteParameters(const QVariantMap& values)
{
    if (!layOverCurrent(values))
        return;
    showAndSend(values.keys());
    emit signalPresetDoneRecalling();
}

QVariantMap PresetInterface::blankPreset() const
{
    const auto bytes = diskfile::readFile(pathOf(QStringLiteral("Blank.jsumpreset")));
    const QJsonObject blank = QJsonDocument::fromJson(bytes.value_or(QByteArray())).object();
    QVariantMap preset = presetdefaults::preset();
    preset.remove(presetNameKey());
    int gaps = 0;
    for (auto parameter = preset.begin(); parameter != preset.end(); ++parameter) {
        const QJsonValue value = blank.value(parameter.key());
        if (value.isDouble() || value.isBool())
            *parameter = value.toVariant();
        else
            ++gaps;
    }
    if (gaps > 0)
        qDebug() << "insert missing params from default preset into the blank one:" << gaps;
    return preset;
}

int PresetInterface::appendPreset(const QVariantMap& preset)
{
    if (isFull() || presetCount() == 0) {
        qDebug() << "append: the library is full, or empty";
        return -1;
    }
    append(preset);
    slotWriteJSON(savedMap);
    return presetCount() - 1;
}
