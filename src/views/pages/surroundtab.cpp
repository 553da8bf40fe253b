#include "surroundtab.h"

#include "mixershape.h"
#include "surroundpuck.h"
#include "surroundroom.h"

#include <QLabel>

SurroundTab::SurroundTab(QWidget* parent, GlobalPresetInterface* globals)
    : GlobalTab(parent, QStringLiteral("Surround"), globals)
    , form(hostWidget(), spokenName())
{
    setObjectName(QStringLiteral("surroundTabView"));
    addGlobalSendButton(hostWidget());
    adoptTab(SurroundForm::controlRows(), SurroundForm::buttonRows(), SurroundForm::choiceRows(),
             form.focusAreas);
}

void SurroundTab::slotReceiveSurroundParams(QString jsonName, int value)
{
    receive(jsonName, value);
}

void SurroundTab::showOwnState(const Control& control)
{
    if (control.name() == SurroundForm::enableName()) {
        form.room->setLit(control.value() != 0);
        emit signalSurroundEnabled(control.value() != 0);
    } else if (control.name() == SurroundForm::formatName()) {
        form.room->setFormat(control.value());
    } else if (control.name().endsWith(QLatin1String("_assign"))) {
        showCarried();
    }
}

void SurroundTab::showCarried()
{
    QList<QStringList> channelsOf(panel::rotaries);
    for (int channel = 1; channel <= channels::lastInput; ++channel) {
        const Control* control = controlNamed(SurroundForm::assignName(channel));
        if (const int rotary = control->value(); rotary >= 0)
            channelsOf[rotary].append(QString::number(channel));
    }
    for (int rotary = 0; rotary < panel::rotaries; ++rotary) {
        const QStringList& numbers = channelsOf.at(rotary);
        form.room->pucks().at(rotary)->setCarried(numbers);
        form.carried.at(rotary)->setText(numbers.isEmpty() ? QStringLiteral("none")
                                                           : numbers.join(QLatin1Char(' ')));
    }
}
