#pragma once

#include <QList>
#include <QObject>

class QAbstractButton;
class QLineEdit;
class QRect;
class QWidget;

// The dialogs that a window, or a view in it, draws over itself, and the sheet beneath them. The
// sheet keeps the mouse off what lies below; this keeps the keyboard off it: while a dialog shows,
// the focus stays in the uppermost and no key goes beyond it, and none that is hidden has the
// focus. The window or view owns it, and settles the sheet at signalClosed().
class InnerDialogs : public QObject
{
    Q_OBJECT

public:
    enum class Escape { Closes, DoesNothing };

    // covered: what the dialogs lie over, and their parent. The focus is left alone elsewhere in
    // the window: another's dialog may lie above these.
    explicit InnerDialogs(QWidget* covered);

    // sheet and dialog: children of the covered widget, which must not be deleted before this.
    void setSheet(QWidget* translucent) { sheet = translucent; }
    // Escape closes it from its direct children, not from within a frame.
    void add(QWidget* dialog, Escape escape = Escape::Closes);
    // One more, hidden and at its place.
    QWidget* make(const QRect& place);
    void closeBy(QAbstractButton* button);
    // A name that is typed in a dialog: has at most 24 characters, and Return in it presses accept,
    // which needs one. choice: where it is not checked, none is needed.
    void addName(QLineEdit* edit, QAbstractButton* accept, QAbstractButton* choice = nullptr);

    void coverAll();
    void open(QWidget* dialog, QWidget* focus);
    // Also empties what was typed in it.
    void close(QWidget* dialog);
    void closeAll();
    bool isAnyOpen() const;
    // Null if none shows.
    QWidget* uppermost() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

    QList<QLineEdit*> nameEdits() const;

signals:
    void signalClosed();

private slots:
    // The one that the sender, a button, stands in.
    void slotCloseDialog();
    void slotKeepFocus();
    void slotLimitName();
    void slotCheckNames();

private:
    struct Name {
        QLineEdit* edit;
        QAbstractButton* accept;
        QAbstractButton* choice;
    };
    bool closesFrom(const QWidget* dialog, const QWidget* focus) const;

    QWidget* const area;
    QWidget* sheet = nullptr;
    QList<QWidget*> dialogs;
    QList<QWidget*> lasting;
    QList<Name> names;
};
