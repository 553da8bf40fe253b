#pragma once

#include "editorrig.h"

#include <QComboBox>
#include <QHash>
#include <QSet>

// What has to agree when nothing is under way: the screen with the store's current preset, the
// mixer's live memory with both, the files with the store, the list and the menus with the files,
// and each slot with the saved preset that it was sent.
class Agreement : protected EditorRig
{
protected:
    // Told by the mixer while the editor was sending: nobody knows which came last to the mixer.
    QSet<QString> crossed;
    // Since the last look: slots with what they were sent, and presets that may have been saved.
    QHash<QChar, Values> sent;
    QSet<QString> mayBeSaved;

    // One line for each that does not, of the presets' differences the first ones.
    QStringList disagreements()
    {
        found.clear();
        compareMixer();
        compareLibrary();
        compareSetlist();
        sent.clear();
        mayBeSaved.clear();
        return found;
    }

private:
    QStringList found;
    QHash<QString, Values> fileBefore;

    void compare(const QString& what, const Values& one, const Values& other)
    {
        if (const QString keys = differences(one, other); !keys.isEmpty())
            found.append(what + ": " + keys.left(500));
    }

    // As controls show them. What the store holds beyond a control's range is sent within it.
    Values inRange(Values values)
    {
        for (auto value = values.begin(); value != values.end(); ++value) {
            const auto* slider = qobject_cast<QAbstractSlider*>(control(value.key()));
            *value = slider ? qBound(slider->minimum(), *value, slider->maximum()) : *value != 0;
        }
        return values;
    }

    void compareMixer()
    {
        const Values stored = inRange(current());
        compare("screen and store", allShown(), stored);
        Values live = inRange(mixer("live"));
        if (simulator->count("^(dsp|stereo)-updating yes$") != 2)
            found.append("the mixer was left paused");
        for (auto slot = sent.begin(); slot != sent.end(); ++slot) {
            const Values wanted = inRange(*slot);
            Values there = inRange(mixer(QString("slot ") + slot.key()));
            for (const QString& key : crossed)
                there[key] = wanted.value(key);
            compare(QString("slot and preset, ") + slot.key(), there, wanted);
        }
        crossed.removeIf([&](const QString& key) { return live[key] == stored[key]; });
        for (const QString& key : crossed)
            live[key] = stored[key];
        compare("mixer and store", live, stored);
    }

    void compareLibrary()
    {
        const QVariantMap library = document("jsum.json");
        QHash<QString, Values> file;
        for (int row = 0; row < qMax(list()->count(), int(library.size())); ++row) {
            const QVariantMap preset =
                library[QString("Preset_%1").arg(row, 3, 10, QChar('0'))].toMap();
            const QString name = preset["preset_name"].toString();
            const Values inFile = file[name] = valuesOf(preset);
            if (row >= list()->count() || nameIn(row) != name) {
                found.append(QString("list and file, row %1: %2").arg(row).arg(name));
                break;
            }
            const Values working = valuesOf(window->presets()->workingPreset(row));
            if (row == 0) {
                compare("file and live preset", inFile, working);
                continue;
            }
            QSignalSpy dirty(window->presets(), SIGNAL(signalPresetDirty(int, bool)));
            window->presets()->slotCheckSaveState(row);
            const bool edited = working != inFile;
            if (dirty.last()[1].toBool() != edited || list()->item(row)->font().italic() != edited)
                found.append(name + ", saved or not: " + differences(inFile, working).left(500));
            if (fileBefore.contains(name) && !mayBeSaved.contains(name))
                compare(name + ", saved unasked", fileBefore[name], inFile);
        }
        fileBefore = file;
    }

    void compareSetlist()
    {
        QSet<QString> names;
        for (char16_t letter = 'A'; letter <= 'L'; ++letter) {
            const QString name = inSlot(letter);
            const bool isPreset = name != "[OFF]" && name != "[DEFAULT]";
            if (view<QComboBox>(QString("setlist") + letter)->currentText() != name
                || (isPreset && (names.contains(name) || list()->rowOf(name) < 1)))
                found.append(QString("setlist, ") + letter + ": " + name);
            names.insert(name);
        }
    }
};
