#include "presetlibrary.h"

#include "presetdefaults.h"
#include "presetnames.h"

#include <QDebug>

#include <algorithm>
#include <numeric>
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
    int number = PresetLibrary::maxPresets;
    while (library.contains(QStringLiteral("Preset_%1").arg(number)))
        ++number;
    return QStringLiteral("Preset_%1").arg(number);
}

QVariantMap presetOf(const QVariantMap& library, int presetNum)
{
    const QString key = PresetLibrary::keyOf(presetNum);
    return key.isEmpty() ? QVariantMap() : library.value(key).toMap();
}

// In a full library the last preset makes room: it stays in the file, beyond what can be numbered.
void putSyncPresetFirst(QVariantList& presets)
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

} // namespace

QString PresetLibrary::keyOf(int presetNum)
{
    if (presetNum < 0 || presetNum >= maxPresets)
        return QString();
    return QStringLiteral("Preset_%1").arg(presetNum, keyDigits, 10, QLatin1Char('0'));
}

void PresetLibrary::load(QVariantMap document)
{
    QVariantList presets;
    const QStringList keys = document.keys();
    for (const QString& key : keys) {
        if (!isPresetKey(key))
            continue;
        const QString dense = keyOf(static_cast<int>(presets.size()));
        if (key != dense)
            qDebug().noquote()
                << QStringLiteral("gap in the preset numbers: %1 becomes %2").arg(key, dense);
        presets.append(document.take(key));
    }
    putSyncPresetFirst(presets);
    for (int number = 0; number < presets.size(); ++number) {
        const QString key = number < maxPresets ? keyOf(number) : freeKeyBeyondLimit(document);
        document.insert(key, presets.at(number));
    }
    savedMap = document;
    workingMap = savedMap;
    workingMap.detach(); // now, and not at the first movement of a control
    keysByName.clear();
}

int PresetLibrary::count() const
{
    return static_cast<int>(std::count_if(workingMap.keyBegin(), workingMap.keyEnd(), isPresetKey));
}

int PresetLibrary::entryCount() const
{
    const auto isCounted = [](const QString& key) {
        return key.contains(QStringLiteral("Preset")) && !isBeyondLimit(key);
    };
    return static_cast<int>(std::count_if(workingMap.keyBegin(), workingMap.keyEnd(), isCounted));
}

bool PresetLibrary::contains(int presetNum) const
{
    const QString key = keyOf(presetNum);
    return !key.isEmpty() && workingMap.contains(key);
}

QVariantMap PresetLibrary::savedPreset(int presetNum) const
{
    return presetOf(savedMap, presetNum);
}

QVariantMap PresetLibrary::workingPreset(int presetNum) const
{
    return presetOf(workingMap, presetNum);
}

QVariantMap* PresetLibrary::presetIn(QVariantMap& map, int presetNum)
{
    if (!contains(presetNum))
        return nullptr;
    QVariant& preset = map[keyOf(presetNum)];
    if (preset.typeId() != QMetaType::QVariantMap)
        preset = QVariantMap();
    return static_cast<QVariantMap*>(preset.data());
}

bool PresetLibrary::isDirty(int presetNum) const
{
    const QVariantMap before = savedPreset(presetNum);
    const QVariantMap now = workingPreset(presetNum);
    // A preset that was never edited still shares its data with the saved one.
    return !now.isSharedWith(before)
        && std::any_of(now.keyValueBegin(), now.keyValueEnd(), [&](const auto& value) {
               return before.value(value.first) != value.second;
           });
}

QVariantMap PresetLibrary::edits(int presetNum) const
{
    const QVariantMap before = savedPreset(presetNum);
    QVariantMap now = workingPreset(presetNum);
    now.removeIf([&](const auto& value) { return before.value(value.key()) == value.value(); });
    return now;
}

bool PresetLibrary::store(int presetNum, const QString& name, const QVariant& value)
{
    QVariantMap* const preset = presetIn(workingMap, presetNum);
    if (preset != nullptr)
        preset->insert(name, value);
    return preset != nullptr;
}

void PresetLibrary::layOver(int presetNum, const QVariantMap& values)
{
    QVariantMap* const preset = presetIn(workingMap, presetNum);
    if (preset == nullptr)
        return;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (presetdefaults::isPresetParameter(value.key()))
            preset->insert(value.key(), value.value());
    }
}

bool PresetLibrary::copyValues(int fromPreset, int toPreset)
{
    QVariantMap* const target = presetIn(workingMap, toPreset);
    if (target == nullptr || !contains(fromPreset))
        return false;
    const QVariant name = target->value(presetNameKey());
    *target = workingPreset(fromPreset);
    target->insert(presetNameKey(), name);
    return true;
}

bool PresetLibrary::save(int presetNum)
{
    QVariantMap* const preset = presetIn(savedMap, presetNum);
    if (preset == nullptr)
        return false;
    *preset = workingPreset(presetNum);
    keysByName.clear();
    return true;
}

void PresetLibrary::revert(int presetNum)
{
    if (QVariantMap* const preset = presetIn(workingMap, presetNum))
        *preset = savedPreset(presetNum);
}

bool PresetLibrary::rename(int presetNum, const QString& name)
{
    if (!store(presetNum, presetNameKey(), name))
        return false;
    presetIn(savedMap, presetNum)->insert(presetNameKey(), name);
    keysByName.clear();
    return true;
}

void PresetLibrary::append(const QList<QVariantMap>& presets)
{
    populateLists();
    workingList.append(presets);
    savedList.append(presets);
    takeFromLists();
}

bool PresetLibrary::remove(int presetNum)
{
    if (!contains(presetNum))
        return false;
    populateLists();
    savedList.removeAt(presetNum);
    workingList.removeAt(presetNum);
    takeFromLists();
    return true;
}

void PresetLibrary::reorder(const QStringList& order)
{
    populateLists();
    QList<int> left(savedList.size());
    std::iota(left.begin(), left.end(), 0);
    QList<int> numbers;
    const auto takeFirst = [&](const QString& name) {
        const auto first = std::find_if(left.cbegin(), left.cend(), [&](int presetNum) {
            return nameOfPreset(savedList.at(presetNum)) == name;
        });
        if (first == left.cend())
            return;
        numbers.append(*first);
        left.erase(first);
    };
    takeFirst(syncPresetName());
    for (const QString& name : order) {
        if (name != syncPresetName())
            takeFirst(name);
    }
    numbers.append(left);

    const auto workingBefore = std::exchange(workingList, {});
    const auto savedBefore = std::exchange(savedList, {});
    for (const int presetNum : std::as_const(numbers)) {
        workingList.append(workingBefore.at(presetNum));
        savedList.append(savedBefore.at(presetNum));
    }
    takeFromLists();
}

void PresetLibrary::populateLists()
{
    workingList.clear();
    savedList.clear();
    const int presets = count();
    for (int presetNum = 0; presetNum < presets; ++presetNum) {
        workingList.append(workingPreset(presetNum));
        savedList.append(savedPreset(presetNum));
    }
}

void PresetLibrary::takeFromLists()
{
    const int presets = count();
    for (int presetNum = 0; presetNum < presets; ++presetNum) {
        workingMap.remove(keyOf(presetNum));
        savedMap.remove(keyOf(presetNum));
    }
    const auto length = static_cast<int>(std::min<qsizetype>(workingList.size(), maxPresets));
    for (int presetNum = 0; presetNum < length; ++presetNum) {
        workingMap.insert(keyOf(presetNum), workingList.at(presetNum));
        savedMap.insert(keyOf(presetNum), savedList.at(presetNum));
    }
    keysByName.clear();
}
