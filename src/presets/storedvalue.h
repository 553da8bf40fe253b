#pragma once

#include <QString>
#include <QVariant>

#include <optional>

// A parameter's value out of a file, as the number that the mixer gets: true is 1, and numbers of
// any kind are brought into 32 bits by saturation. Nothing for anything else (a text, null, an
// object, nothing).
std::optional<int> storedNumber(const QVariant& value);

// The same, but what is no number counts as 0, with a debug line that tells the parameter's name.
int storedInt(const QVariant& value, const QString& name);
