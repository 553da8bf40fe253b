#include "progressbox.h"

#include "innerdialogs.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QMenuBar>

ProgressBox::ProgressBox(QWidget* view, InnerDialogs* dialogs)
    : innerDialogs(dialogs)
    , progressWidget(new QWidget(view, Qt::SubWindow))
{
    progressWidget->hide();
    progressWidget->setGeometry(481, 307, 238, 78);
    progressForm.setupUi(progressWidget);
    progressWidget->installEventFilter(this);
}

bool ProgressBox::isOpen() const { return !progressWidget->isHidden(); }

void ProgressBox::show(const QString& text)
{
    innerDialogs->coverAll();
    progressWidget->show();
    progressWidget->raise();
    setText(text);
}

void ProgressBox::setText(const QString& text) { progressForm.found->setText(text); }

void ProgressBox::close()
{
    progressWidget->close();
    progressForm.found->clear();
    emit signalClosed();
}

void ProgressBox::lockInput(bool lock)
{
    if (lock == inputLocked)
        return;
    inputLocked = lock;
    if (lock)
        QCoreApplication::instance()->installEventFilter(this);
    else
        QCoreApplication::instance()->removeEventFilter(this);
    if (auto* menuBar = progressWidget->window()->findChild<QMenuBar*>(); menuBar != nullptr)
        menuBar->setEnabled(!lock);
}

bool ProgressBox::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
        if (watched == progressWidget)
            lockInput(event->type() == QEvent::Show);
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
        if (!inputLocked)
            break;
        event->accept();
        return true;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
