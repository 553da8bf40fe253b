// What comes in.
#include "exchange.h"

#include "alignedmap.h"
#include "diskfile.h"
#include "jsonfile.h"
#include "parametertable.h"
#include "presetnames.h"

#include <QFileInfo>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace
{

using exchange::Imported;

enum class Kind { Preset, Globals, Library, Unknown };

Imported refused(const char* why) { return {{}, {}, QString::fromLatin1(why)}; }

int countOf(const QVariantMap& map, Parameter::Store store)
{
    return static_cast<int>(std::count_if(map.keyBegin(), map.keyEnd(), [&](const QString& key) {
        const Parameter* const parameter = parametertable::find(key);
        return parameter != nullptr && parameter->store == store;
    }));
}

Kind kindOf(const QVariantMap& document)
{
    if (document.contains(globalsKey()))
        return Kind::Globals;
    const int ofPreset = countOf(document, Parameter::Store::Preset);
    const int ofGlobals = countOf(document, Parameter::Store::Global);
    if (ofPreset > 0 || ofGlobals > 0)
        return ofPreset >= ofGlobals ? Kind::Preset : Kind::Globals;
    const bool isLibrary =
        std::any_of(document.cbegin(), document.cend(), [](const QVariant& entry) {
            return countOf(entry.toMap(), Parameter::Store::Preset) > 0;
        });
    return isLibrary ? Kind::Library : Kind::Unknown;
}

// Why the file holds no document; or the document.
struct Opened {
    QVariantMap document;
    const char* refusal = nullptr;
};

Opened openDocument(const QString& path)
{
    diskfile::RegularFile file(diskfile::followLinks(path));
    switch (file.open(QIODevice::ReadOnly)) {
    case diskfile::Opened::Yes:
        break;
    case diskfile::Opened::Missing:
        return {{}, "there is no such file"};
    case diskfile::Opened::Refused:
        return {{}, QFileInfo(path).isDir() ? "it is a folder" : "it can't be opened"};
    }
    if (file.size() > exchange::largestFile)
        return {{}, "it is too large"};
    const std::optional<QByteArray> bytes = file.readAll();
    if (!bytes)
        return {{}, "it can't be read"};
    const std::optional<QJsonObject> object = JsonFile::parsed(*bytes);
    if (!object)
        return {{}, "it is damaged, or no file of this editor"};
    return {object->toVariantMap()};
}

} // namespace

Imported exchange::readPreset(const QString& path)
{
    const auto [document, refusal] = openDocument(path);
    if (refusal != nullptr)
        return refused(refusal);
    switch (kindOf(document)) {
    case Kind::Globals:
        return refused("it holds global mappings, and no preset");
    case Kind::Library:
        return refused("it holds a whole library, and not one preset");
    case Kind::Unknown:
        return refused("it holds no value of the mixer");
    case Kind::Preset:
        break;
    }
    QVariantMap parameters = document;
    const QVariant named = parameters.take(presetNameKey());
    AlignedMap map = aligned(parameters, Parameter::Store::Preset);
    QString name = cleanName(named.typeId() == QMetaType::QString ? named.toString() : QString());
    if (name.isEmpty())
        name = cleanName(QFileInfo(path).completeBaseName());
    if (name.isEmpty())
        name = QStringLiteral("Preset");
    QStringList changes = map.inWords();
    if (name != named.toString())
        changes.append(QStringLiteral("its name was changed"));
    map.values.insert(presetNameKey(), name);
    return {map.values, changes, {}};
}

Imported exchange::readGlobals(const QString& path)
{
    const auto [document, refusal] = openDocument(path);
    if (refusal != nullptr)
        return refused(refusal);
    switch (kindOf(document)) {
    case Kind::Preset:
        return refused("it holds a preset, and no global mappings");
    case Kind::Library:
        return refused("it holds a preset library, and no global mappings");
    case Kind::Unknown:
        return refused("it holds no value of the mixer");
    case Kind::Globals:
        break;
    }
    const QVariantMap parameters =
        document.contains(globalsKey()) ? document.value(globalsKey()).toMap() : document;
    if (countOf(parameters, Parameter::Store::Global) == 0)
        return refused("its global mappings hold no value of the mixer");
    const AlignedMap map = aligned(parameters, Parameter::Store::Global);
    return {{{globalsKey(), map.values}}, map.inWords(), {}};
}

exchange::Sorted exchange::sorted(const QStringList& paths)
{
    Sorted files;
    for (const QString& path : paths) {
        const auto [document, refusal] = openDocument(path);
        const bool isGlobals = refusal == nullptr && kindOf(document) == Kind::Globals;
        (isGlobals ? files.globals : files.presets).append(path);
    }
    return files;
}

QString exchange::cleanName(const QString& name)
{
    QString clean = name;
    clean.removeIf([](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line
            || c.category() == QChar::Separator_Paragraph;
    });
    return shortened(clean.trimmed(), longestName);
}

QString exchange::phantomPower(const QVariantMap& document)
{
    const QVariantMap parameters = document.value(globalsKey()).toMap();
    QStringList channels;
    for (const char* channel : {"1", "2"}) {
        if (parameters.value(QStringLiteral("ch%1_phantom").arg(QLatin1String(channel))).toInt())
            channels.append(QLatin1String(channel));
    }
    if (channels.isEmpty())
        return QString();
    const bool isHigh = parameters.value(QStringLiteral("phantom_voltage")).toInt() != 0;
    return QStringLiteral("Phantom power of %1 V is on now on %2 %3.")
        .arg(isHigh ? QStringLiteral("48") : QStringLiteral("12"),
             channels.size() == 1 ? QStringLiteral("input") : QStringLiteral("inputs"),
             channels.join(QStringLiteral(" and ")));
}
