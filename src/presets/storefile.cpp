#include "storefile.h"

#include "jsonfile.h"

#include <QFileInfo>
#include <QJsonObject>

std::optional<QVariantMap> readStoreFile(const QString& path)
{
    const auto document = jsonfile::readAtStart(path);
    if (!document)
        return std::nullopt;
    jsonfile::keepDailyCopy(path, QFileInfo(path).path() + QStringLiteral("/backups"));
    return document->toVariantMap();
}
