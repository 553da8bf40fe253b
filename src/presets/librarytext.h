#pragma once

#include <QByteArray>
#include <QHash>
#include <QVariantMap>

// Turns the library into the text of its file, byte for byte QJsonDocument's indented form, and
// keeps each preset's text, so that only presets that changed since the last call are serialised
// again. PresetInterface owns one.
class LibraryText
{
public:
    QByteArray textOf(const QVariantMap& library);

private:
    // The map from which a text was made is kept with it: sharing its data with a preset of the
    // library then means that nothing in that preset has changed.
    struct Kept {
        QVariantMap preset;
        QByteArray text;
    };

    // By where the preset's data lies, so that a preset whose number changes keeps its text.
    QHash<const void*, Kept> kept;
    // In bytes, of the last text; the next one is hardly longer.
    qsizetype lastSize = 0;
};
