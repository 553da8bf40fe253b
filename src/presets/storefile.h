#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

// Reads the JSON file of a store at start: a missing or broken one is first replaced by its kept
// copy where there is a good one, and a good one gets its daily copy in the folder "backups" beside
// it.
//
// Nothing when the file can't be opened; an empty map when it is no JSON object.
std::optional<QVariantMap> readStoreFile(const QString& path);
