#pragma once

#include <QListWidget>
#include <QPersistentModelIndex>

// The list of presets in the preset drawer, which PresetInterface fills and reads; its rows move by
// drag. "[CONNECTION SYNC]" does not: it stays first, and takes no drop above it. The full-power
// view owns it.
class ReorderableListWidget : public QListWidget
{
    Q_OBJECT

public:
    explicit ReorderableListWidget(QWidget* parent = nullptr);

    // Replaces all rows. No row is current then.
    void setNames(const QStringList& names);
    // The first row of that exact name; -1 without one.
    int rowOf(const QString& name) const;

public slots:
    // On itemPressed.
    void slotSetPresetDropBehavior();
    // On itemSelectionChanged.
    void slotSetPresetButtonUseability();

signals:
    // A row was moved by hand, and the drag is over. Selection and current row went along, under a
    // new number that no currentRowChanged has told.
    void signalReorderPresets();
    // Whether the selected preset is one to save, revert or delete.
    void signalPresetButtons(bool enabled);
    // All rows are new.
    void signalNewPresetList();
    // These two tell of the list as it is seen: at each change while it shows, and when it is
    // shown.
    void signalPresetListScrollBarVisibility(bool showing);
    // hide: the first row, beside which the help icon stands, is scrolled away.
    void signalHideLiveMemoryHelp(bool hide);

protected:
    void startDrag(Qt::DropActions supportedActions) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

protected slots:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;

private slots:
    void slotReportScrolling();

private:
    bool isMovable(int row) const;
    // The row before which a drop there would put the dragged one; -1 where none is taken.
    int dropRow(const QDropEvent* event) const;
    bool isFirstRowHidden() const;
    bool needsScrollBar() const;

    QPersistentModelIndex dragged;
    bool moved = false;
    bool isReporting = false;
    bool scrollBarShowing = false;
    bool helpHidden = false;
};
