#pragma once

#include "jsonfile.h"

#include <QLockFile>
#include <QString>

// The sign in the presets' folder that an editor uses it, by which a second one is told. main()
// makes it before anything is read there, and it lasts for as long as the editor runs.
//
// Whatever ends the editor ends its sign: what a killed one or a power cut left holds nobody up. In
// a folder that takes no sign, or isn't there, nobody is held up either.
class PresetsLock
{
public:
    explicit PresetsLock(const QString& folder);

    // LookOnly if another editor that runs was there first.
    JsonFile::Access access() const
    {
        return heldByAnother ? JsonFile::Access::LookOnly : JsonFile::Access::Full;
    }

private:
    QLockFile lock;
    bool heldByAnother = false;
};
