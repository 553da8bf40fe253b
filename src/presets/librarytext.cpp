#include "librarytext.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace
{

// Escaped and in quotes.
QByteArray textOfKey(const QString& key)
{
    const QByteArray array = QJsonDocument(QJsonArray{key}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2); // without the brackets
}

// As it stands behind its key in an object at the top level.
QByteArray textOfValue(const QVariant& value)
{
    constexpr qsizetype before = 10; // {, line end, four spaces, "", colon, space
    constexpr qsizetype after = 3;   // line end, }, line end
    const QByteArray object = QJsonDocument::fromVariant(QVariantMap{{QString(), value}}).toJson();
    return object.sliced(before, object.size() - before - after);
}

} // namespace

QByteArray LibraryText::textOf(const QVariantMap& library)
{
    QHash<const void*, Kept> used;
    used.reserve(library.size());
    QByteArray text;
    text.reserve(lastSize);
    text += "{\n";
    for (auto entry = library.cbegin(); entry != library.cend(); ++entry) {
        if (entry != library.cbegin())
            text += ",\n";
        text += "    ";
        text += textOfKey(entry.key());
        text += ": ";
        const QVariantMap preset = entry->toMap();
        if (preset.isEmpty()) {
            text += textOfValue(*entry);
            continue;
        }
        const void* place = &*preset.cbegin();
        const auto known = kept.constFind(place);
        const Kept& now =
            *used.insert(place, known != kept.cend() ? *known : Kept{preset, textOfValue(*entry)});
        text += now.text;
    }
    text += library.isEmpty() ? "}\n" : "\n}\n";
    kept = std::move(used);
    lastSize = text.size();
    return text;
}
