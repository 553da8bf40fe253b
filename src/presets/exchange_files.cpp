// What goes out, and how files are named.
#include "exchange.h"

#include "diskfile.h"
#include "presetnames.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace
{

constexpr int longestFileName = 50;
constexpr qsizetype mostLines = 20;

// Dots and spaces at the ends are lost on some systems, and hide a file on others.
QString withoutOuterDots(const QString& name)
{
    static const QRegularExpression outer(QStringLiteral("^[\\s.]+|[\\s.]+$"));
    return QString(name).remove(outer);
}

// Some systems have devices of these names, in any letter case and with whatever behind a dot.
QString withoutDevice(const QString& name)
{
    static const QRegularExpression device(
        QStringLiteral("^(con|prn|aux|nul|(com|lpt)[0-9¹²³])\\s*(?=\\.|$)"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = device.match(name);
    return match.hasMatch() ? QString(name).insert(match.capturedEnd(1), QLatin1Char('_')) : name;
}

QString fileName(const QString& presetName)
{
    static const QRegularExpression refused(
        QStringLiteral("[/\\\\:*?\"<>|\\p{Cc}\\p{Cs}\\p{Zl}\\p{Zp}]"));
    const QString written = withoutOuterDots(QString(presetName).replace(refused, "_"));
    // With room for what a device's name is given.
    const QString name = withoutDevice(withoutOuterDots(shortened(written, longestFileName - 1)));
    return name.isEmpty() ? QStringLiteral("Preset") : name;
}

// Two names that give the same are one file on some system.
QString key(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

} // namespace

QStringList exchange::fileNames(const QStringList& presetNames)
{
    QSet<QString> taken;
    QStringList names;
    for (const QString& presetName : presetNames) {
        const QString plain = fileName(presetName);
        QString name = plain;
        for (int number = 2; taken.contains(key(name)); ++number) {
            const QString mark = QStringLiteral(" (%1)").arg(number);
            name = shortened(plain, longestFileName - static_cast<int>(mark.size())) + mark;
        }
        taken.insert(key(name));
        names.append(name);
    }
    return names;
}

QString exchange::withSuffix(const QString& path, const QString& suffix)
{
    return path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

QStringList exchange::inOrder(QStringList paths)
{
    const auto rank = [](const QString& path) {
        const QString name = QFileInfo(path).fileName();
        return std::tuple(name.toCaseFolded(), name, path);
    };
    std::sort(paths.begin(), paths.end(),
              [&](const QString& a, const QString& b) { return rank(a) < rank(b); });
    return paths;
}

QString exchange::shownText(const QString& text)
{
    constexpr int longestShown = 60;
    QString shown = text;
    for (QChar& c : shown) {
        if (!c.isPrint() && !c.isSurrogate())
            c = QLatin1Char('_');
    }
    const QString start = shortened(shown, longestShown);
    return start.size() < shown.size() ? start + QChar(0x2026) : shown;
}

QByteArray exchange::textOf(const QVariantMap& map)
{
    return QJsonDocument::fromVariant(map).toJson();
}

QString exchange::writeFile(const QString& path, const QByteArray& bytes)
{
    const QString target = diskfile::followLinks(path);
    diskfile::RegularFile there(target);
    if (there.open(QIODevice::ReadWrite) == diskfile::Opened::Refused)
        return QFileInfo(target).isDir() ? QStringLiteral("a folder stands there")
                                         : QStringLiteral("the file there can't be written");
    const bool isReplaced = there.isOpen();
    if (const std::error_code error =
            diskfile::replace(target, bytes, isReplaced ? &there : nullptr))
        return QString::fromLocal8Bit(error.message()).toLower();
    return QString();
}

QString exchange::fewLines(const QStringList& lines)
{
    const QStringList shown = lines.first(std::min(lines.size(), mostLines));
    const qsizetype more = lines.size() - shown.size();
    const QString text = shown.join(QLatin1Char('\n'));
    return more == 0 ? text : text + QStringLiteral("\n... and %1 more").arg(more);
}
