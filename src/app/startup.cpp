#include "startup.h"

#include <QDir>
#include <QFileInfo>
#include <QtGlobal>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace
{

QtMessageHandler previousHandler = nullptr;

void failOnBadConnection(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (previousHandler)
        previousHandler(type, context, text);
    if (type == QtWarningMsg
        && (text.startsWith(QLatin1String("QObject::connect"))
            || text.startsWith(QLatin1String("QObject::disconnect")))) {
        std::abort();
    }
}

QString programFolder(const char* executable)
{
    // QCoreApplication::applicationDirPath needs the application object, which comes later.
    std::error_code error;
    const auto running = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error)
        return QString::fromStdString(running.parent_path().string());
    return executable ? QFileInfo(QString::fromLocal8Bit(executable)).absolutePath() : QString();
}

} // namespace

void findResources(const char* executable)
{
    if (QFileInfo(QStringLiteral("resources")).isDir())
        return;
    const QDir folder(programFolder(executable));
    if (QFileInfo(folder.filePath(QStringLiteral("resources"))).isDir())
        QDir::setCurrent(folder.path());
}

void installStrictConnections() { previousHandler = qInstallMessageHandler(failOnBadConnection); }
