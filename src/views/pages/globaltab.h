#pragma once

#include "forms/stripparts.h"
#include "globalpage.h"

// A global page in the view's stack of tabs: as large and as dark as the others, with the button
// that keeps what is set in the mixer. Surround, MIDI mapping and USB routing derive from it; the
// view that shows them owns them.
class GlobalTab : public GlobalPage
{
    Q_OBJECT

signals:
    void signalGlobalSendClicked();

protected:
    // globals must outlive the tab. The host has its size from here on.
    GlobalTab(QWidget* parent, const QString& spokenName, GlobalPresetInterface* globals);

    // Instead of adoptForm(), once, when the form stands on the host. Shows the factory values.
    // areas: a press on their free room takes the focus from a number.
    void adoptTab(const QList<ControlRow>& numbers, const QList<ButtonRow>& buttons,
                  const QList<ChoiceRow>& choices, const QList<QWidget*>& areas);
    static constexpr QSize globalSendButtonSize{136, 24};
    // In the lower right corner of the last panel.
    static constexpr QPoint globalSendButtonPlace{
        stripparts::pageWidth - 2 * stripparts::margin - globalSendButtonSize.width(),
        stripparts::pageHeight - 2 * stripparts::margin - globalSendButtonSize.height()};
    // Lays "globalSendButton"; comes in the tab order where it is laid.
    void addGlobalSendButton(QWidget* parent, const QPoint& topLeft = globalSendButtonPlace);
};
