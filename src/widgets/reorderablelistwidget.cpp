#include "reorderablelistwidget.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <utility>

namespace
{

bool isFixed(const QListWidgetItem* item)
{
    return item->text() == QStringLiteral("[CONNECTION SYNC]");
}

} // namespace

ReorderableListWidget::ReorderableListWidget(QWidget* parent)
    : QListWidget(parent)
{
    setDragDropMode(QAbstractItemView::InternalMove);
    const QScrollBar* const bar = verticalScrollBar();
    connect(bar, SIGNAL(rangeChanged(int, int)), this, SLOT(slotReportScrolling()));
    connect(bar, SIGNAL(valueChanged(int)), this, SLOT(slotReportScrolling()));
}

void ReorderableListWidget::setNames(const QStringList& names)
{
    clear();
    addItems(names);
    emit signalNewPresetList();
}

int ReorderableListWidget::rowOf(const QString& name) const
{
    for (int row = 0; row < count(); ++row) {
        if (item(row)->text() == name)
            return row;
    }
    return -1;
}

// A drop always lands between two rows: on one, it would show as if it replaced it. Quietly, since
// this changes nothing that is drawn.
void ReorderableListWidget::rowsInserted(const QModelIndex& parent, int start, int end)
{
    QListWidget::rowsInserted(parent, start, end);
    const QSignalBlocker quiet(model());
    for (int row = start; row <= end; ++row)
        item(row)->setFlags(item(row)->flags() & ~Qt::ItemIsDropEnabled);
}

bool ReorderableListWidget::isMovable(int row) const
{
    const QListWidgetItem* const itemThere = item(row);
    return itemThere != nullptr && !isFixed(itemThere);
}

void ReorderableListWidget::slotSetPresetDropBehavior() { setDragEnabled(isMovable(currentRow())); }

void ReorderableListWidget::slotSetPresetButtonUseability()
{
    const QList<QListWidgetItem*> selected = selectedItems();
    emit signalPresetButtons(!selected.isEmpty() && !isFixed(selected.first()));
}

// From a row that can't be dragged the mouse would sweep the selection along instead, and each row
// on its way would be recalled.
void ReorderableListWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton || dragEnabled())
        QListWidget::mouseMoveEvent(event);
}

// Not the base's, which removes the selected rows behind a drop, whichever these are by then: while
// a drag lasts, the list may be refilled or the mixer select another preset.
void ReorderableListWidget::startDrag(Qt::DropActions /*supportedActions*/)
{
    QListWidgetItem* const item = currentItem();
    if (item == nullptr || !item->isSelected() || isFixed(item))
        return;
    const QRect rect = visualItemRect(item);
    auto* const drag = new QDrag(this);
    drag->setMimeData(mimeData({item}));
    drag->setPixmap(viewport()->grab(rect));
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - rect.topLeft());

    setDropIndicatorShown(false); // where the last drop was
    dragged = indexFromItem(item);
    moved = false;
    drag->exec(Qt::MoveAction);
    dragged = QPersistentModelIndex();
    if (moved)
        QMetaObject::invokeMethod(this, "signalReorderPresets", Qt::QueuedConnection);
}

int ReorderableListWidget::dropRow(const QDropEvent* event) const
{
    if (!dragged.isValid() || !isEnabled())
        return -1;
    const QPoint place = event->position().toPoint();
    const QModelIndex under = indexAt(place);
    if (!under.isValid())
        return count();
    const bool isAbove = place.y() < visualRect(under).center().y();
    const int row = isAbove ? under.row() : under.row() + 1;
    return row > 0 || isMovable(0) ? row : -1;
}

void ReorderableListWidget::dragMoveEvent(QDragMoveEvent* event)
{
    const bool isTaken = dropRow(event) != -1;
    setDropIndicatorShown(isTaken);
    QListWidget::dragMoveEvent(event); // scrolls, too
    if (!isTaken)
        event->ignore();
}

void ReorderableListWidget::dropEvent(QDropEvent* event)
{
    const int row = dropRow(event);
    event->setAccepted(row != -1);
    // Where the row stands already, the model refuses.
    if (row != -1 && model()->moveRow({}, dragged.row(), {}, row))
        moved = true;
}

bool ReorderableListWidget::needsScrollBar() const
{
    const QScrollBar* const bar = verticalScrollBar();
    return bar->maximum() > bar->minimum();
}

bool ReorderableListWidget::isFirstRowHidden() const
{
    return count() > 0 && !viewport()->rect().intersects(visualItemRect(item(0)));
}

void ReorderableListWidget::slotReportScrolling()
{
    // A hidden list's measures are not those that it will be seen with.
    if (!isReporting)
        return;
    if (std::exchange(scrollBarShowing, needsScrollBar()) != scrollBarShowing)
        emit signalPresetListScrollBarVisibility(scrollBarShowing);
    if (std::exchange(helpHidden, isFirstRowHidden()) != helpHidden)
        emit signalHideLiveMemoryHelp(helpHidden);
}

void ReorderableListWidget::showEvent(QShowEvent* event)
{
    QListWidget::showEvent(event);
    executeDelayedItemsLayout();
    isReporting = true;
    scrollBarShowing = needsScrollBar();
    helpHidden = isFirstRowHidden();
    emit signalPresetListScrollBarVisibility(scrollBarShowing);
    emit signalHideLiveMemoryHelp(helpHidden);
}

void ReorderableListWidget::hideEvent(QHideEvent* event)
{
    isReporting = false;
    QListWidget::hideEvent(event);
}
