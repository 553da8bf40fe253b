#include "pagestyle.h"

#include <QFile>

QString pageStyleSheet()
{
    Q_INIT_RESOURCE(pages);
    QFile file(QStringLiteral(":/styles/styles/pages.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
