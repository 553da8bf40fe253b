#pragma once

#include "jsonstore.h"
#include "reorderablelistwidget.h"
#include "wires.h"

#include <QComboBox>
#include <QList>
#include <QVariantMap>
#include <QWidget>

// Says which preset belongs in each of the mixer's slots A to L: a map in one small file, and the
// twelve menus in which it is chosen. A preset stands in one slot only: a menu offers what no other
// slot holds. The full-power view owns it; it is never shown.
//
// A failed read or write leaves a debug line and nothing else. In demo mode nothing is written.
class Setlist : public QWidget, public JsonStore
{
    Q_OBJECT

public:
    explicit Setlist(QWidget* parent = nullptr);

    // The base's flag, under the name that it has here.
    bool& resourcesInAppData = useResourcesFolder;

    // A preset's name, "[OFF]" or "[DEFAULT]"; empty for a slot that has none. The preset need not
    // exist.
    QString presetInSlot(QChar letter) const;
    bool holds(const QString& presetName) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // The menus in the order of their slots, named "setlistA" to "setlistL".
    void slotInitComponents(QList<QComboBox*> slotMenus);
    // Also reads the file, puts right what a crash left of it, and makes its daily copy.
    void slotUpdateJSONPath();
    void slotReadSetlist();
    // Shows the map in the menus; a preset that its menu doesn't offer shows as an empty text.
    void slotRecallSetlist();
    // Takes the map from the menus, and writes it.
    void slotCompileSetlist();
    void slotWriteSetlist();
    // Leaves every menu at its first entry: to be followed by slotRecallSetlist().
    void slotPopulateSetlistMenus(ReorderableListWidget* presetList);
    // Slots whose text is no row of the list are switched off.
    void slotPopulateSetlistAfterDelete(ReorderableListWidget* presetList);
    void slotClearSetlist();
    // The first twelve presets of the list in their order.
    void slotAutoPopulateSetlist(ReorderableListWidget* presetList);
    // Leaving demo mode drops what was changed in it; the menus follow at the next recall.
    void slotSetDemoModeEnabled(bool enabled);

signals:
    // The menus must be filled and recalled: another slot may hold a preset now.
    void signalGetPresetList();
    void signalUpdateSendsAndReceives(bool enabled, QChar setlistLetter);

private:
    Wire compileWire(QComboBox* menu);
    QStringList shownTexts() const;
    void setSlots(const QStringList& texts);

    QList<QComboBox*> menus;
    QVariantMap setlistMap;
    bool populating = false;
    QVariantMap setlistMapBeforeDemo;
};
