#pragma once

#include <QString>

#include <optional>

// A firmware version as text ("1.2.5"), as three bytes of a message and as a number of decimal
// pairs (10205).
struct FirmwareVersion {
    int major = 0;
    int minor = 0;
    int patch = 0;

    // Three numbers of 0 to 99 with points between; nothing for any other text.
    static std::optional<FirmwareVersion> fromText(const QString& text);
    // From the text of a file like flashdata.txt: what stands behind the first word "version".
    static std::optional<FirmwareVersion> fromFlashData(const QString& text);

    QString text() const;
    int packed() const { return major * 10000 + minor * 100 + patch; }

    bool operator==(const FirmwareVersion&) const = default;
};
