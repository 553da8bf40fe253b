#include "innerdialogs.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace
{

bool holds(const QWidget* outer, const QWidget* inner)
{
    return outer == inner || outer->isAncestorOf(inner);
}

// Where the keyboard begins in a dialog: where it was last, or else in the first control.
QWidget* firstFocus(QWidget* dialog)
{
    const auto canFocus = [dialog](const QWidget* widget) {
        return widget->isEnabledTo(dialog) && widget->isVisibleTo(dialog);
    };
    if (QWidget* last = dialog->focusWidget(); last != nullptr && canFocus(last))
        return last;
    for (QWidget* next = dialog->nextInFocusChain(); next != dialog;
         next = next->nextInFocusChain()) {
        if (dialog->isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) != 0
            && canFocus(next))
            return next;
    }
    return dialog;
}

} // namespace

InnerDialogs::InnerDialogs(QWidget* covered)
    : area(covered)
{
    connect(qApp, SIGNAL(focusChanged(QWidget*, QWidget*)), SLOT(slotKeepFocus()));
}

void InnerDialogs::add(QWidget* dialog)
{
    dialogs.append(dialog);
    dialog->installEventFilter(this);
}

QWidget* InnerDialogs::uppermost() const
{
    // Of siblings the last is drawn last.
    const QObjectList& siblings = area->children();
    for (auto child = siblings.crbegin(); child != siblings.crend(); ++child) {
        auto* widget = qobject_cast<QWidget*>(*child);
        if (widget != nullptr && widget->isVisible() && dialogs.contains(widget))
            return widget;
    }
    return nullptr;
}

void InnerDialogs::slotKeepFocus()
{
    QWidget* dialog = uppermost();
    const QWidget* focus = area->window()->focusWidget();
    const bool isElsewhere = focus != nullptr && !holds(area, focus);
    if (dialog != nullptr && !isElsewhere && (focus == nullptr || !holds(dialog, focus)))
        firstFocus(dialog)->setFocus();
}

bool InnerDialogs::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = static_cast<QWidget*>(watched);
    switch (event->type()) {
    // What its controls have left. A Tab among them, since there was no other to go to; and the
    // window's shortcuts and menus are covered like the rest.
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::Show:
    case QEvent::ZOrderChange:
        slotKeepFocus();
        break;
    case QEvent::Hide:
        // Qt leaves it in a dialog that hides, and Return would press its button again.
        if (QWidget* focus = area->window()->focusWidget();
            focus != nullptr && holds(dialog, focus))
            focus->clearFocus();
        slotKeepFocus();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
