#include "tablefilereader.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>

namespace
{

QString warning(const QString& fileName)
{
    return QStringLiteral("WARNING: %1 Not Found").arg(fileName);
}

// One field of a table of real numbers while it is read.
struct RealField {
    QString whole;
    QString fraction;
    bool negative = false;
    bool pointSeen = false;

    void take(QLatin1Char character)
    {
        if (character == QLatin1Char('-'))
            negative = true; // wherever it stands: "5-" is -5
        else if (character == QLatin1Char('.'))
            pointSeen = true;
        else
            (pointSeen ? fraction : whole) += character; // line ends too; toInt ignores them
    }

    double value() const
    {
        double result = whole.toInt();
        if (pointSeen) {
            // Two decimals at most; longer ones are misread as they always were: "1.250" is 3.5.
            const int digits = fraction.toInt();
            const bool hundredths = fraction.startsWith(QLatin1Char('0')) || digits > 9;
            result += digits / (hundredths ? 100.0 : 10.0);
        }
        return negative ? 0.0 - result : result;
    }
};

} // namespace

TableFileReader::TableFileReader()
    : directory(QStringLiteral("resources/tables/"))
{
}

QList<double> TableFileReader::readDoubleTable(const QString& fileName) const
{
    const auto content = contentOf(fileName);
    if (!content) {
        qDebug().noquote() << warning(fileName) + QStringLiteral(" Path: ") + pathOf(fileName);
        return {};
    }
    QList<double> table;
    RealField field;
    for (const char byte : *content) {
        if (byte == ',') {
            table.append(field.value());
            field = {};
        } else {
            field.take(QLatin1Char(byte));
        }
    }
    return table; // what follows the last comma is dropped
}

QList<int> TableFileReader::readIntTable(const QString& fileName) const
{
    const auto content = contentOf(fileName);
    if (!content) {
        qDebug().noquote() << warning(fileName);
        return {};
    }
    QList<int> table;
    QString field;
    for (const char byte : *content) {
        if (byte == ',') {
            table.append(field.toInt());
            field.clear();
        } else {
            field += QLatin1Char(byte);
        }
    }
    return table; // what follows the last comma is dropped
}

QString TableFileReader::pathOf(const QString& fileName) const
{
    return QStringLiteral("%1%2").arg(directory, fileName);
}

std::optional<QByteArray> TableFileReader::contentOf(const QString& fileName) const
{
    const QString path = pathOf(fileName);
    // Opening a pipe would wait for somebody to write.
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return std::nullopt;
    QByteArray content = file.read(maxFileSize + 1);
    if (file.error() != QFileDevice::NoError || content.size() > maxFileSize)
        return std::nullopt;
    return content;
}
