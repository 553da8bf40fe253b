#include "firmwareversion.h"

#include <QRegularExpression>

std::optional<FirmwareVersion> FirmwareVersion::fromText(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,2})\\.(\\d{1,2})\\.(\\d{1,2})$"));
    const auto match = form.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    return FirmwareVersion{match.captured(1).toInt(), match.captured(2).toInt(),
                           match.captured(3).toInt()};
}

std::optional<FirmwareVersion> FirmwareVersion::fromFlashData(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^\\s*version[\\s:=]+([\\d.]+)\\s*$"),
                                         QRegularExpression::MultilineOption
                                             | QRegularExpression::CaseInsensitiveOption);
    return fromText(form.match(text).captured(1));
}

QString FirmwareVersion::text() const
{
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(patch);
}
