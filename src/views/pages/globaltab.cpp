#include "globaltab.h"

#include <QPushButton>

GlobalTab::GlobalTab(QWidget* parent, const QString& spokenName, GlobalPresetInterface* globals)
    : GlobalPage(parent, spokenName, globals)
{
    hostWidget()->setGeometry(0, 0, stripparts::pageWidth, stripparts::pageHeight);
    resize(hostWidget()->size());
}

void GlobalTab::adoptTab(const QList<ControlRow>& numbers, const QList<ButtonRow>& buttons,
                         const QList<ChoiceRow>& choices, const QList<QWidget*>& areas)
{
    adoptForm(numbers, buttons, choices);
    recall({});
    slotDisconnectElements();
    clearFocusOnPress(hostWidget());
    for (QWidget* area : areas)
        clearFocusOnPress(area);
}

void GlobalTab::addGlobalSendButton(QWidget* parent, const QPoint& topLeft)
{
    auto* button = new QPushButton(QStringLiteral("Save to the Mixer"), parent);
    button->setObjectName(QStringLiteral("globalSendButton"));
    button->setAccessibleName(spokenName() + QStringLiteral(", save to the mixer"));
    button->setToolTip(QStringLiteral("Keep these settings in the mixer's memory, so that they are "
                                      "there when it is switched on again."));
    button->setGeometry(QRect(topLeft, globalSendButtonSize));
    connect(button, SIGNAL(clicked()), SIGNAL(signalGlobalSendClicked()));
}
