#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

// The presets as plain values, in two states: as saved, and with the edits that are not saved yet.
// Knows how presets are keyed, numbered, named and ordered, and in what the two states differ. A
// copy is cheap. PresetInterface owns one.
//
// Presets are numbered from 0 without a gap. A number that the library doesn't have stands for an
// empty preset; what would change it changes nothing, and returns false where it returns anything.
class PresetLibrary
{
public:
    // The format's limit: a key has three digits. Entries beyond stay in the file, and nothing is
    // added.
    static constexpr int maxPresets = 1000;

    // Empty for a number that has no key.
    static QString keyOf(int presetNum);

    // Takes a file's content: presets are numbered without a gap, behind the one that follows the
    // mixer, or the first of them would be written over by it. Without any preset it stays so.
    void load(QVariantMap document);
    // What belongs in the file.
    const QVariantMap& saved() const { return savedMap; }

    // Stray keys and entries beyond the limit are no presets.
    int count() const;
    bool isFull() const { return count() >= maxPresets; }
    // A stray key that holds the word "Preset" is counted too; entries beyond the limit are not.
    int entryCount() const;
    bool contains(int presetNum) const;
    QVariantMap savedPreset(int presetNum) const;
    // With its edits.
    QVariantMap workingPreset(int presetNum) const;
    // Of all presets in their order, with edits.
    QStringList names() const;
    // The first preset of that saved name; a null string without one.
    QString keyOfName(const QString& name);
    // A name that no preset has yet, made from the one given.
    QString freeName(const QString& name) const;
    // One for each of these, as PresetInterface::namesForNew() tells.
    QStringList freeNames(const QStringList& wanted) const;

    bool isDirty(int presetNum) const;
    // The values in which the preset differs from its saved state.
    QVariantMap edits(int presetNum) const;

    bool store(int presetNum, const QString& name, const QVariant& value);
    // What is no parameter of the mixer is passed over.
    void layOver(int presetNum, const QVariantMap& values);
    // All but the name.
    bool copyValues(int fromPreset, int toPreset);
    bool save(int presetNum);
    void revert(int presetNum);
    // In both states; edits stay edits.
    bool rename(int presetNum, const QString& name);
    // As the last ones, saved. The library must have room for them.
    void append(const QList<QVariantMap>& presets);
    bool remove(int presetNum);
    // In the order of these saved names, behind the preset that follows the mixer. Of presets that
    // share a name each takes the next one; those without a name here go to the end.
    void reorder(const QStringList& order);

    // Makes the two lists anew from the presets; and the presets anew from the lists, which give
    // them their order and number.
    void populateLists();
    void takeFromLists();

private:
    // In their order.
    QStringList savedNames() const;
    // The preset's own map, to be changed in place; null when the library doesn't have it.
    QVariantMap* presetIn(QVariantMap& map, int presetNum);

    QVariantMap savedMap;
    QVariantMap workingMap;
    QList<QVariantMap> savedList;
    QList<QVariantMap> workingList;
    // Keys by saved name; empty when it is to be made anew.
    QHash<QString, QString> keysByName;
};
