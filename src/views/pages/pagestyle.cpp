#include "pagestyle.h"

#include <QFile>

namespace
{

QString read(const QString& name)
{
    QFile file(QStringLiteral(":/styles/styles/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

QString pageStyleSheet()
{
    Q_INIT_RESOURCE(pages);
    return read(QStringLiteral("pages.qss")) + read(QStringLiteral("view.qss"))
        + dialogStyleSheet();
}

QString dialogStyleSheet()
{
    Q_INIT_RESOURCE(pages);
    return read(QStringLiteral("dialogs.qss"));
}
