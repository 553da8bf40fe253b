#include "presetinterface.h"

#include "presetdefaults.h"
#include "presetnames.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace
{

constexpr qsizetype keyDigits = 3;

// How many digits stand behind "Preset_" when nothing else does; 0 for any other key.
qsizetype digitsOfKey(const QString& key)
{
    const QString word = QStringLiteral("Preset_");
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    if (!key.startsWith(word) || !std::all_of(key.cbegin() + word.size(), key.cend(), isDigit))
        return 0;
    return key.size() - word.size();
}

bool isPresetKey(const QString& key) { return digitsOfKey(key) == keyDigits; }
bool isBeyondLimit(const QString& key) { return digitsOfKey(key) > keyDigits; }

QString freeKeyBeyondLimit(const QVariantMap& library)
{
    int number = PresetInterface::maxPresets;
    while (library.contains(QStringLiteral("Preset_%1").arg(number)))
        ++number;
    return QStringLiteral("Preset_%1").arg(number);
}

} // namespace

PresetInterface::PresetInterface(QObject* parent)
    : QObject(parent)
    , liveMemoryTimer(new QTimer(this))
{
    connect(this, SIGNAL(signalStopLiveMemoryTimer()), liveMemoryTimer, SLOT(stop()));
    connect(liveMemoryTimer, SIGNAL(timeout()), this, SLOT(slotSaveLiveMemoryTimeout()));
}

QString PresetInterface::pathOf(const QString& fileName) const
{
    return useResourcesFolder ? QStringLiteral("%1presets/%2").arg(resourcesFolder, fileName)
                              : QStringLiteral("resources/presets/%1").arg(fileName);
}

void PresetInterface::slotUpdateJSONPath()
{
    file.setPath(pathOf(QStringLiteral("jsum.json")), access);
}

void PresetInterface::slotReadJSON()
{
    auto library = file.load();
    if (!library) {
        qDebug().noquote() << QStringLiteral("WARNING: JSum Editor JSON Not Found - path: ")
                + file.path();
        return;
    }
    qDebug() << "JSum Editor JSON Found";

    QVariantList presets;
    const QStringList keys = library->keys();
    for (const QString& key : keys) {
        if (!isPresetKey(key))
            continue;
        const QString dense = slotGetPresetStringFromInt(static_cast<int>(presets.size()));
        if (key != dense)
            qDebug().noquote()
                << QStringLiteral("gap in the preset numbers: %1 becomes %2").arg(key, dense);
        presets.append(library->take(key));
    }
    putSyncPresetFirst(presets);
    for (int number = 0; number < presets.size(); ++number)
        library->insert(number < maxPresets ? slotGetPresetStringFromInt(number)
                                            : freeKeyBeyondLimit(*library),
                        presets.at(number));
    savedMap = *library;
    workingMap = savedMap;
    workingMap.detach(); // now, and not at the first movement of a control
    keysByName.clear();
}

// In a full library the last preset makes room: it stays in the file, beyond what can be numbered.
void PresetInterface::putSyncPresetFirst(QVariantList& presets) const
{
    const auto isSync = [](const QVariant& preset) {
        return nameOfPreset(preset.toMap()) == syncPresetName();
    };
    if (presets.isEmpty() || isSync(presets.first()))
        return;
    qDebug() << "the library's first preset is not the mixer's, which is put before it";
    const auto astray = std::find_if(presets.begin(), presets.end(), isSync);
    if (astray != presets.end()) {
        std::rotate(presets.begin(), astray, astray + 1);
        return;
    }
    QVariantMap sync = presetdefaults::preset();
    sync.insert(presetNameKey(), syncPresetName());
    presets.prepend(sync);
}

void PresetInterface::slotWriteJSON(QVariantMap jsonMap)
{
    if (demoMode || access == JsonFile::Access::LookOnly)
        return;
    const QByteArray text = libraryText.textOf(jsonMap);
    if (file.write(text) != JsonFile::WriteResult::Written)
        qDebug() << "JSum Editor JSON Not Found";
}

int PresetInterface::slotGetNumPresetsInJson() const
{
    return static_cast<int>(
        std::count_if(workingMap.keyBegin(), workingMap.keyEnd(), [](const QString& key) {
            return key.contains(QStringLiteral("Preset")) && !isBeyondLimit(key);
        }));
}

int PresetInterface::presetCount() const
{
    return static_cast<int>(std::count_if(workingMap.keyBegin(), workingMap.keyEnd(), isPresetKey));
}

QString PresetInterface::slotGetPresetStringFromInt(int presetNum) const
{
    if (presetNum < 0 || presetNum >= maxPresets)
        return QString();
    return QStringLiteral("Preset_%1").arg(presetNum, keyDigits, 10, QLatin1Char('0'));
}

QString PresetInterface::slotGetPresetStringFromName(QString presetName)
{
    if (keysByName.isEmpty()) {
        for (auto preset = savedMap.cbegin(); preset != savedMap.cend(); ++preset) {
            const QString name = nameOfPreset(preset->toMap());
            if (isPresetKey(preset.key()) && !keysByName.contains(name))
                keysByName.insert(name, preset.key());
        }
    }
    return keysByName.value(presetName);
}

bool PresetInterface::contains(int presetNum) const
{
    const QString key = slotGetPresetStringFromInt(presetNum);
    return !key.isEmpty() && workingMap.contains(key);
}

QVariantMap PresetInterface::workingPreset(int presetNum) const
{
    const QString key = slotGetPresetStringFromInt(presetNum);
    return key.isEmpty() ? QVariantMap() : workingMap.value(key).toMap();
}

QVariantMap PresetInterface::savedPreset(int presetNum) const
{
    const QString key = slotGetPresetStringFromInt(presetNum);
    return key.isEmpty() ? QVariantMap() : savedMap.value(key).toMap();
}

QVariantMap* PresetInterface::presetIn(QVariantMap& library, int presetNum)
{
    if (!contains(presetNum))
        return nullptr;
    QVariant& preset = library[slotGetPresetStringFromInt(presetNum)];
    if (preset.typeId() != QMetaType::QVariantMap)
        preset = QVariantMap();
    return static_cast<QVariantMap*>(preset.data());
}

void PresetInterface::slotPopulatePresetLists()
{
    workingList.clear();
    savedList.clear();
    const int count = presetCount();
    for (int presetNum = 0; presetNum < count; ++presetNum) {
        workingList.append(workingPreset(presetNum));
        savedList.append(savedPreset(presetNum));
    }
}

void PresetInterface::slotPopulatePresetMenu(ReorderableListWidget* presetList)
{
    qDebug() << "slotPopulatePresetMenu called";
    // Filling the list must not recall a preset.
    disconnect(presetList, SIGNAL(currentRowChanged(int)), this, SLOT(slotRecallPreset(int)));
    slotPopulatePresetLists();
    QStringList names;
    for (const QVariantMap& preset : std::as_const(workingList))
        names.append(nameOfPreset(preset));
    presetList->setNames(names);
    connect(presetList, SIGNAL(currentRowChanged(int)), this, SLOT(slotRecallPreset(int)));
    emit signalPopulateSetlistMenus(presetList);
}

void PresetInterface::slotOrderPresetsInJson()
{
    const int count = presetCount();
    for (int presetNum = 0; presetNum < count; ++presetNum) {
        const QString key = slotGetPresetStringFromInt(presetNum);
        workingMap.remove(key);
        savedMap.remove(key);
    }
    const auto length = static_cast<int>(std::min<qsizetype>(workingList.size(), maxPresets));
    for (int presetNum = 0; presetNum < length; ++presetNum) {
        const QString key = slotGetPresetStringFromInt(presetNum);
        workingMap.insert(key, workingList.at(presetNum));
        savedMap.insert(key, savedList.at(presetNum));
    }
    keysByName.clear();
}

void PresetInterface::slotConstructDefaultMap() { defaultMap = presetdefaults::preset(); }
