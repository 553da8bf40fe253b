#pragma once

#include "forms/viewdialogs.h"

#include <QObject>

class InnerDialogs;

// The box that tells how far a transfer is. While it shows, keys, shortcuts and the menu bar are
// dead, as the sheet keeps off the mouse. The slot transfer owns it.
class ProgressBox : public QObject
{
    Q_OBJECT

public:
    // Both must outlive it.
    ProgressBox(QWidget* view, InnerDialogs* dialogs);

    QWidget* widget() const { return progressWidget; }
    bool isOpen() const;
    void show(const QString& text);
    void setText(const QString& text);
    void close();

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void signalClosed();

private:
    void lockInput(bool lock);

    InnerDialogs* const innerDialogs;
    QWidget* const progressWidget;
    ProgressDialogForm progressForm;
    bool inputLocked = false;
};
