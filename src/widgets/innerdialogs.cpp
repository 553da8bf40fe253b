#include "innerdialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace
{

constexpr int longestName = 24;

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

void InnerDialogs::add(QWidget* dialog, Escape escape)
{
    dialog->hide();
    dialogs.append(dialog);
    if (escape == Escape::DoesNothing)
        lasting.append(dialog);
    dialog->installEventFilter(this);
}

QWidget* InnerDialogs::make(const QRect& place)
{
    auto* dialog = new QWidget(area, Qt::SubWindow);
    dialog->setGeometry(place);
    add(dialog);
    return dialog;
}

void InnerDialogs::closeBy(QAbstractButton* button)
{
    connect(button, SIGNAL(clicked()), SLOT(slotCloseDialog()));
}

void InnerDialogs::addName(QLineEdit* edit, QAbstractButton* accept, QAbstractButton* choice)
{
    names.append({edit, accept, choice});
    connect(edit, SIGNAL(textChanged(QString)), SLOT(slotLimitName()));
    connect(edit, SIGNAL(returnPressed()), accept, SLOT(click()));
    if (choice != nullptr)
        connect(choice, SIGNAL(toggled(bool)), SLOT(slotCheckNames()));
}

QList<QLineEdit*> InnerDialogs::nameEdits() const
{
    QList<QLineEdit*> edits;
    for (const Name& name : names)
        edits.append(name.edit);
    return edits;
}

void InnerDialogs::slotCheckNames()
{
    for (const Name& name : std::as_const(names)) {
        const bool isNeeded = name.choice == nullptr || name.choice->isChecked();
        name.accept->setEnabled(!isNeeded || !name.edit->text().isEmpty());
    }
}

void InnerDialogs::slotLimitName()
{
    if (auto* edit = qobject_cast<QLineEdit*>(sender());
        edit != nullptr && edit->text().size() > longestName)
        edit->setText(edit->text().left(longestName));
    slotCheckNames();
}

void InnerDialogs::coverAll()
{
    sheet->show();
    sheet->raise();
}

void InnerDialogs::open(QWidget* dialog, QWidget* focus)
{
    coverAll();
    dialog->show();
    dialog->raise();
    focus->setFocus(Qt::OtherFocusReason);
}

void InnerDialogs::close(QWidget* dialog)
{
    dialog->close();
    for (const Name& name : std::as_const(names))
        if (dialog->isAncestorOf(name.edit))
            name.edit->clear();
    emit signalClosed();
}

void InnerDialogs::closeAll()
{
    for (QWidget* dialog : std::as_const(dialogs))
        close(dialog);
}

void InnerDialogs::slotCloseDialog()
{
    const auto* control = qobject_cast<QWidget*>(sender());
    if (control != nullptr && dialogs.contains(control->parentWidget()))
        close(control->parentWidget());
}

bool InnerDialogs::isAnyOpen() const
{
    return std::any_of(dialogs.cbegin(), dialogs.cend(),
                       [](const QWidget* dialog) { return !dialog->isHidden(); });
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

bool InnerDialogs::closesFrom(const QWidget* dialog, const QWidget* focus) const
{
    return !lasting.contains(dialog)
        && (focus == nullptr || focus == dialog || focus->parentWidget() == dialog);
}

bool InnerDialogs::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = static_cast<QWidget*>(watched);
    switch (event->type()) {
    // What its controls have left. A Tab among them, since there was no other to go to; and the
    // window's shortcuts and menus are covered like the rest.
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape
            && closesFrom(dialog, area->window()->focusWidget()))
            close(dialog);
        [[fallthrough]];
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
