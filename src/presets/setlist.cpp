#include "setlist.h"

#include <QDebug>
#include <QEvent>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <utility>

namespace
{

constexpr int slotCount = 12;

const QString off = QStringLiteral("[OFF]");
const QString factoryPreset = QStringLiteral("[DEFAULT]");

QChar letterOf(qsizetype slot) { return QChar(static_cast<char16_t>(u'A' + slot)); }

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

// While it lives, the menus may change any number of times, and the file is written once, at the
// end: its kept copy is then the setlist from before all of them.
class Setlist::OneWrite
{
public:
    explicit OneWrite(Setlist* writer)
        : setlist(writer)
    {
        setlist->writeHeld = true;
    }
    ~OneWrite()
    {
        setlist->writeHeld = false;
        if (std::exchange(setlist->writeDue, false))
            setlist->slotWriteSetlist();
    }
    Q_DISABLE_COPY_MOVE(OneWrite)

private:
    Setlist* setlist;
};

Setlist::Setlist(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("Setlist"));
    hide(); // or it would show with its parent
}

QString Setlist::presetInSlot(QChar letter) const { return setlistMap.value(letter).toString(); }

bool Setlist::holds(const QString& presetName) const
{
    for (int slot = 0; slot < slotCount; ++slot) {
        if (presetInSlot(letterOf(slot)) == presetName)
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
    file.setPath(resourcesInAppData ? QStringLiteral("%1presets/setlist.json").arg(resourcesFolder)
                                    : QStringLiteral("resources/presets/setlist.json"),
                 access);
    slotReadSetlist();
}

void Setlist::slotReadSetlist()
{
    const auto document = file.load();
    if (!document) {
        qDebug().noquote() << QStringLiteral("Setlist Not Found - path: ") + file.path();
        return;
    }
    setlistMap = *document;
}

void Setlist::slotRecallSetlist()
{
    for (QComboBox* const menu : std::as_const(menus)) {
        const WireCut cut(compileWire(menu));
        const QChar letter = letterOf(menu);
        menu->setCurrentIndex(menu->findData(presetInSlot(letter), Qt::DisplayRole,
                                             Qt::MatchExactly | Qt::MatchCaseSensitive));
        emit signalUpdateSendsAndReceives(menu->currentText() != off, letter);
    }
}

void Setlist::slotCompileSetlist()
{
    if (!populating) {
        setlistMap.clear();
        for (qsizetype slot = 0; slot < menus.size(); ++slot)
            setlistMap.insert(letterOf(slot), menus.at(slot)->currentText());
        if (writeHeld)
            writeDue = true;
        else
            slotWriteSetlist();
    }
    emit signalGetPresetList();
}

void Setlist::slotWriteSetlist()
{
    if (demoMode || access == JsonFile::Access::LookOnly)
        return;
    const QByteArray text = QJsonDocument::fromVariant(setlistMap).toJson(QJsonDocument::Indented);
    if (file.write(text) != JsonFile::WriteResult::Written)
        qDebug() << "Setlist not found on write";
}

void Setlist::slotPopulateSetlistMenus(ReorderableListWidget* presetList)
{
    populating = true;
    const QStringList names = namesIn(presetList, 1);
    QSet<QString> held;
    for (int slot = 0; slot < slotCount; ++slot)
        held.insert(presetInSlot(letterOf(slot)));

    for (QComboBox* const menu : std::as_const(menus)) {
        const WireCut cut(compileWire(menu));
        const QString own = presetInSlot(letterOf(menu));
        QStringList offered{off, factoryPreset};
        std::copy_if(names.cbegin(), names.cend(), std::back_inserter(offered),
                     [&](const QString& name) { return name == own || !held.contains(name); });
        menu->clear();
        menu->addItems(offered);
    }
    populating = false;
}

void Setlist::slotPopulateSetlistAfterDelete(ReorderableListWidget* presetList)
{
    const OneWrite once(this);
    const QStringList rows = namesIn(presetList, 0);
    for (QComboBox* const menu : std::as_const(menus)) {
        const QString text = menu->currentText();
        // The factory preset is no row, and goes too: that is how it is wanted.
        if (text != off && !rows.contains(text))
            menu->setCurrentText(off);
    }
}

void Setlist::setAllOff()
{
    for (QComboBox* const menu : std::as_const(menus))
        menu->setCurrentText(off);
}

void Setlist::slotClearSetlist()
{
    const OneWrite once(this);
    setAllOff();
}

void Setlist::slotAutoPopulateSetlist(ReorderableListWidget* presetList)
{
    const OneWrite once(this);
    setAllOff();
    const QStringList names = namesIn(presetList, 1);
    const qsizetype filled = std::min({qsizetype{slotCount}, names.size(), menus.size()});
    // A name that stands in the list twice is no longer offered, and its second slot stays off.
    for (qsizetype slot = 0; slot < filled; ++slot)
        menus.at(slot)->setCurrentText(names.at(slot));
}

void Setlist::slotSetDemoModeEnabled(bool enabled)
{
    if (enabled == demoMode)
        return;
    demoMode = enabled;
    if (enabled)
        setlistMapBeforeDemo = setlistMap;
    else
        setlistMap = std::exchange(setlistMapBeforeDemo, {});
}
