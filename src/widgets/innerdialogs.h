#pragma once

#include <QList>
#include <QObject>

class QWidget;

// The dialogs that a window, or a view in it, draws over itself. A sheet keeps the mouse off what
// lies below; this keeps the keyboard off it: while one of them shows, the focus stays in the
// uppermost and no key goes beyond it, and none that is hidden has the focus. The window or view
// owns it.
class InnerDialogs : public QObject
{
    Q_OBJECT

public:
    // covered: what the dialogs lie over, and their parent. The focus is left alone elsewhere in
    // the window: another's dialog may lie above these.
    explicit InnerDialogs(QWidget* covered);

    // A child of the covered widget, which must not be deleted before this.
    void add(QWidget* dialog);
    // Null if none shows.
    QWidget* uppermost() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void slotKeepFocus();

private:
    QWidget* const area;
    QList<QWidget*> dialogs;
};
