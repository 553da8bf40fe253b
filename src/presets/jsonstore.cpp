#include "jsonstore.h"

#include <QDebug>
#include <QJsonDocument>

QString JsonStore::pathOf(const QString& name) const
{
    return useResourcesFolder ? QStringLiteral("%1presets/%2").arg(resourcesFolder, name)
                              : QStringLiteral("resources/presets/%1").arg(name);
}

void JsonStore::updatePath() { file.setPath(pathOf(QLatin1String(facts.fileName)), access); }

std::optional<QVariantMap> JsonStore::read()
{
    auto document = file.load();
    if (!document)
        qDebug().noquote() << QLatin1String(facts.notRead) + file.path();
    return document;
}

void JsonStore::write(const QByteArray& text)
{
    if (isWritable() && file.write(text) != JsonFile::WriteResult::Written)
        qDebug() << facts.notWritten;
}

void JsonStore::write(const QVariantMap& document)
{
    if (isWritable())
        write(QJsonDocument::fromVariant(document).toJson());
}
