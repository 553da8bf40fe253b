#pragma once

#include "jsonfile.h"

#include <QByteArray>
#include <QString>
#include <QVariantMap>

#include <optional>
#include <utility>

// The base of the three stores (preset library, global settings, setlist): a document in a file of
// the presets' folder, which demo mode leaves as it is. No QObject, since one of the three is a
// widget.
class JsonStore
{
public:
    // Written by the owner before the path is computed: whether the file is in resourcesFolder,
    // which ends in a slash, and not in the working directory.
    QString resourcesFolder;
    bool useResourcesFolder = false;
    // Likewise: whether the folder is this editor's; in another's, nothing is touched.
    JsonFile::Access access = JsonFile::Access::Full;

    bool isDemoMode() const { return demoMode; }

protected:
    // The file's name in the folder, and what the debug log says of a file that can't be read
    // (followed by its path) or written. Literals.
    struct Facts {
        const char* fileName;
        const char* notRead;
        const char* notWritten;
    };

    explicit JsonStore(const Facts& storeFacts)
        : facts(storeFacts)
    {
    }
    ~JsonStore() = default;
    Q_DISABLE_COPY_MOVE(JsonStore)

    // Of any file in the folder.
    QString pathOf(const QString& name) const;
    void updatePath();
    // Also puts right what a crash left of the file, and makes its daily copy. Nothing, and a debug
    // line, for a file that can't be opened; empty for one that is no document.
    std::optional<QVariantMap> read();
    // Not in demo mode, nor in another editor's folder: what is to be written then is passed over
    // in silence.
    bool isWritable() const { return !demoMode && access == JsonFile::Access::Full; }
    void write(const QByteArray& text);
    void write(const QVariantMap& document);

    // Keeps the document as it is when demo mode begins, and puts it back when it ends.
    template <typename Document>
    void setDemoMode(bool enabled, Document& document, Document& beforeDemo)
    {
        if (enabled == demoMode)
            return;
        demoMode = enabled;
        if (enabled)
            beforeDemo = document;
        else
            document = std::exchange(beforeDemo, Document());
    }

private:
    const Facts facts;
    JsonFile file;
    bool demoMode = false;
};
