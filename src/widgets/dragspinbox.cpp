#include "dragspinbox.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>

namespace
{

QString draggedStyle(int brightness)
{
    return QStringLiteral(
               "selection-background-color: transparent; selection-color: rgb(%1,%1,%1);")
        .arg(brightness);
}

// A style sheet is worked through even if it is the same again, and a drag sets it at every move.
void setStyle(QLineEdit* edit, const QString& sheet)
{
    if (edit->styleSheet() != sheet)
        edit->setStyleSheet(sheet);
}

} // namespace

template <typename Base>
DragSpinBox<Base>::DragSpinBox(QWidget* parent, const QString& editingStyle)
    : Base(parent)
    , edit(this->template findChild<QLineEdit*>(QStringLiteral("qt_spinbox_lineedit")))
    , plainStyle(editingStyle)
{
    edit->installEventFilter(this);
    this->setLocale(QLocale::c());
}

template <typename Base>
QValidator::State DragSpinBox<Base>::validate(QString& text, int& position) const
{
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    return Base::validate(text, position);
}

template <typename Base> bool DragSpinBox<Base>::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != edit)
        return Base::eventFilter(watched, event);

    const auto place = [event] { return static_cast<QMouseEvent*>(event)->position().toPoint(); };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (press(place()))
            return true;
        break;
    case QEvent::MouseButtonRelease:
        dragging = false;
        break;
    case QEvent::MouseMove:
        if (dragging && canDrag())
            follow(place());
        break;
    default:
        break;
    }
    return Base::eventFilter(watched, event);
}

// Whether the line edit must not see the press, since it would drop the selection.
template <typename Base> bool DragSpinBox<Base>::press(QPoint place)
{
    dragging = true;
    pressY = place.y();
    endDragLook();
    startDrag(place);
    if (!selectAllPending)
        return false;
    this->selectAll();
    selectAllPending = false;
    return true;
}

template <typename Base> void DragSpinBox<Base>::endDragLook()
{
    edit->setReadOnly(false);
    setStyle(edit, plainStyle);
}

template <typename Base> void DragSpinBox<Base>::follow(QPoint place)
{
    // Stays so until the next press, of a button or of a key, or until the box gets the focus anew.
    // What the line edit selects on the way is not to be seen.
    edit->setReadOnly(true);
    setStyle(edit, draggedStyle(grey));
    drag(pressY - place.y());
}

template <typename Base> bool DragSpinBox<Base>::isForOwnMenu(const QFocusEvent* event) const
{
    return menuOpen && event->reason() == Qt::PopupFocusReason;
}

template <typename Base> bool DragSpinBox<Base>::event(QEvent* event)
{
    // Before the line edit is asked whether a key is one of its shortcuts. What is typed replaces
    // the whole number, as after the first click, not what the drag happened to select.
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (isKey && edit->isReadOnly() && !dragging) {
        endDragLook();
        this->selectAll();
    }
    return Base::event(event);
}

template <typename Base> void DragSpinBox<Base>::contextMenuEvent(QContextMenuEvent* event)
{
    // Returns when the menu is closed; by then the form may be gone.
    const QPointer<QWidget> alive(this);
    menuOpen = true;
    Base::contextMenuEvent(event);
    if (alive)
        menuOpen = false;
}

template <typename Base> void DragSpinBox<Base>::wheelEvent(QWheelEvent* event)
{
    Base::wheelEvent(event);
    edit->deselect();
}

template <typename Base> void DragSpinBox<Base>::keyPressEvent(QKeyEvent* event)
{
    Base::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        edit->deselect();
        this->clearFocus();
    }
}

template <typename Base> void DragSpinBox<Base>::focusInEvent(QFocusEvent* event)
{
    if (isForOwnMenu(event))
        return;
    endDragLook();
    Base::focusInEvent(event);
    selectAllPending = true;
}

template <typename Base> void DragSpinBox<Base>::focusOutEvent(QFocusEvent* event)
{
    // A context menu takes the release of the press that opened it, and a line edit hears moves
    // without any button: the pointer would go on turning the number.
    dragging = false;
    // The base class would round off or take back what is half typed.
    if (!isForOwnMenu(event))
        Base::focusOutEvent(event);
}

template class DragSpinBox<QSpinBox>;
template class DragSpinBox<QDoubleSpinBox>;
