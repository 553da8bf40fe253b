#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// Reads the tables beside the program, each a flat list of numbers that are ended (not separated)
// by commas. The channel strip tab and the full-power view each use one while they are built.
//
// A file that can't be read gives an empty list and a warning on the console. That holds for a
// missing one, for anything but a regular file or a link to one, and for one above maxFileSize.
class TableFileReader
{
public:
    // Tables are in "resources/tables/" in the working directory.
    TableFileReader();

    // In bytes. A table has at most some hundred entries.
    static constexpr qint64 maxFileSize = qint64{1024} * 1024;

    // Numbers with at most two decimals; a longer fraction is misread. A field that is no number is
    // 0.0.
    QList<double> readDoubleTable(const QString& fileName) const;
    // A field that is no integer is 0.
    QList<int> readIntTable(const QString& fileName) const;

private:
    QString pathOf(const QString& fileName) const;
    std::optional<QByteArray> contentOf(const QString& fileName) const;

    QString directory;
};
