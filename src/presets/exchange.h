#pragma once

#include <QByteArray>
#include <QFileInfo>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

// The files by which presets and global mappings leave the editor and come in again, as plain
// values: what such a file holds, and what it is called. Free functions without state; the two
// exchange handlers are made of them.
//
// What a file is, its content decides, not its name. It is read without trust: a file that can't be
// used is refused with one sentence for the user.
namespace exchange
{

// In bytes; some sixty times the largest file that is written.
constexpr qint64 largestFile = qint64{1} << 20;

inline QString presetSuffix() { return QStringLiteral(".jsumpreset"); }
inline QString globalsSuffix() { return QStringLiteral(".jsumglobalmap"); }

struct Imported {
    // A preset with its name, or a whole document of globals; in line with the table.
    QVariantMap map;
    // What was changed in it, for the user.
    QStringList changes;
    // Why the file can't be used; empty if it can.
    QString refusal;
};

// The name is one that a preset may have, but not yet a free one; that of the file, where the
// preset has none.
Imported readPreset(const QString& path);
// Reads the flat form of the blank template too.
Imported readGlobals(const QString& path);

// What is dropped on the window, by what it holds: what is neither is among the presets, whose
// import tells why it can't be used.
struct Sorted {
    QStringList presets;
    QStringList globals;
};
Sorted sorted(const QStringList& paths);

// Without control characters and outer spaces, and not too long; may be empty.
QString cleanName(const QString& name);

// A file's name for each preset, without its suffix: one that every system takes, and no two of
// which differ in letter case alone. Never empty, at most 50 characters.
QStringList fileNames(const QStringList& presetNames);

// The path, with the suffix if it is not there.
QString withSuffix(const QString& path, const QString& suffix);

// In the order of the files' names, whatever their letter case.
QStringList inOrder(QStringList paths);

// As it can stand in a line of text: without what breaks a line, and not too long.
QString shownText(const QString& text);
inline QString shownName(const QString& path) { return shownText(QFileInfo(path).fileName()); }

// Indented JSON.
QByteArray textOf(const QVariantMap& map);

// Makes the file or replaces it as a whole; what stood there stays when it can't be, or is no file.
// Returns why it could not, empty when it could.
QString writeFile(const QString& path, const QByteArray& bytes);

// A sentence that says on which channels phantom power is on, and with how many volts; empty where
// it is off. document: of globals.
QString phantomPower(const QVariantMap& document);

// At most twenty of the lines, and how many more there are.
QString fewLines(const QStringList& lines);

} // namespace exchange
