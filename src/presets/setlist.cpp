#include "setlist.h"

#include "presetnames.h"

#include <QEvent>
#include <QSet>

#include <algorithm>

namespace
{

// Behind "setlist" in the menu's name.
QChar letterOf(const QComboBox* menu)
{
    const QString name = menu->objectName();
    return name.size() > 7 ? name.at(7) : QChar();
}

QStringList namesIn(const ReorderableListWidget* presetList, int firstRow)
{
    QStringList names;
    for (int row = firstRow; row < presetList->count(); ++row)
        names.append(presetList->item(row)->text());
    return names;
}

} // namespace

Setlist::Setlist(QWidget* parent)
    : QWidget(parent)
    , JsonStore({"setlist.json", "Setlist Not Found - path: ", "Setlist not found on write"})
{
    setObjectName(QStringLiteral("Setlist"));
    hide(); // or it would show with its parent
}

QString Setlist::presetInSlot(QChar letter) const { return setlistMap.value(letter).toString(); }

bool Setlist::holds(const QString& presetName) const
{
    for (int slot = 0; slot < slotCount; ++slot) {
        if (presetInSlot(slotLetter(slot)) == presetName)
            return true;
    }
    return false;
}

// A wheel that passes over a menu on its way down the drawer must not change its slot.
bool Setlist::eventFilter(QObject* watched, QEvent* event)
{
    const auto* menu = qobject_cast<const QComboBox*>(watched);
    if (event->type() != QEvent::Wheel || menu == nullptr || menu->hasFocus())
        return QWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

Wire Setlist::compileWire(QComboBox* menu)
{
    return {menu, SIGNAL(currentIndexChanged(int)), this, SLOT(slotCompileSetlist())};
}

void Setlist::slotInitComponents(QList<QComboBox*> slotMenus)
{
    menus = slotMenus;
    for (QComboBox* const menu : std::as_const(menus)) {
        menu->setFocusPolicy(Qt::StrongFocus); // not by the wheel
        menu->installEventFilter(this);
        compileWire(menu).connect();
    }
}

void Setlist::slotUpdateJSONPath()
{
    updatePath();
    slotReadSetlist();
}

void Setlist::slotReadSetlist()
{
    if (const auto document = read())
        setlistMap = *document;
}

void Setlist::slotRecallSetlist()
{
    for (QComboBox* const menu : std::as_const(menus)) {
        const WireCut cut(compileWire(menu));
        const QChar letter = letterOf(menu);
        menu->setCurrentIndex(menu->findData(presetInSlot(letter), Qt::DisplayRole,
                                             Qt::MatchExactly | Qt::MatchCaseSensitive));
        emit signalUpdateSendsAndReceives(menu->currentText() != emptySlotName(), letter);
    }
}

void Setlist::slotCompileSetlist()
{
    if (!populating) {
        setSlots(shownTexts());
        return;
    }
    emit signalGetPresetList();
}

QStringList Setlist::shownTexts() const
{
    QStringList texts;
    for (const QComboBox* const menu : menus)
        texts.append(menu->currentText());
    return texts;
}

// All slots at once: the file is written and the menus are filled once, and the file's kept copy
// holds the setlist from before. texts: one for each menu.
void Setlist::setSlots(const QStringList& texts)
{
    setlistMap.clear();
    for (qsizetype slot = 0; slot < texts.size(); ++slot)
        setlistMap.insert(slotLetter(slot), texts.at(slot));
    slotWriteSetlist();
    emit signalGetPresetList();
}

void Setlist::slotWriteSetlist() { write(setlistMap); }

void Setlist::slotPopulateSetlistMenus(ReorderableListWidget* presetList)
{
    populating = true;
    const QStringList names = namesIn(presetList, 1);
    QSet<QString> held;
    for (int slot = 0; slot < slotCount; ++slot)
        held.insert(presetInSlot(slotLetter(slot)));

    for (QComboBox* const menu : std::as_const(menus)) {
        const WireCut cut(compileWire(menu));
        const QString own = presetInSlot(letterOf(menu));
        QStringList offered{emptySlotName(), factoryPresetName()};
        std::copy_if(names.cbegin(), names.cend(), std::back_inserter(offered),
                     [&](const QString& name) { return name == own || !held.contains(name); });
        menu->clear();
        menu->addItems(offered);
    }
    populating = false;
}

void Setlist::slotPopulateSetlistAfterDelete(ReorderableListWidget* presetList)
{
    const QStringList rows = namesIn(presetList, 0);
    const QStringList before = shownTexts();
    QStringList texts = before;
    for (QString& text : texts) {
        // "[DEFAULT]" is no row either, and is switched off too: on purpose.
        if (!rows.contains(text))
            text = emptySlotName();
    }
    if (texts != before)
        setSlots(texts);
}

void Setlist::slotClearSetlist() { setSlots(QStringList(menus.size(), emptySlotName())); }

void Setlist::slotAutoPopulateSetlist(ReorderableListWidget* presetList)
{
    QStringList texts(menus.size(), emptySlotName());
    const QStringList names = namesIn(presetList, 1);
    const qsizetype filled = std::min(names.size(), texts.size());
    for (qsizetype slot = 0; slot < filled; ++slot) {
        // A name that stands in the list twice has one slot only, and the second stays off.
        if (!texts.contains(names.at(slot)))
            texts[slot] = names.at(slot);
    }
    setSlots(texts);
}

void Setlist::slotSetDemoModeEnabled(bool enabled)
{
    setDemoMode(enabled, setlistMap, setlistMapBeforeDemo);
}
