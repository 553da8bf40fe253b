#include "choicegroup.h"

#include <QAbstractButton>

#include <algorithm>

ChoiceGroup::ChoiceGroup(QObject* parent, bool nearest)
    : QButtonGroup(parent)
    , takesNearest(nearest)
{
    connect(this, SIGNAL(idToggled(int, bool)), SLOT(slotToggled(int, bool)));
}

void ChoiceGroup::slotToggled(int id, bool on)
{
    if (on)
        emit valueChanged(id);
}

bool ChoiceGroup::setValue(int value)
{
    QAbstractButton* chosen = buttonFor(value);
    if (chosen != nullptr)
        chosen->setChecked(true);
    return chosen != nullptr;
}

QAbstractButton* ChoiceGroup::buttonFor(int value) const
{
    const QList<QAbstractButton*> all = buttons();
    if (!takesNearest || all.isEmpty())
        return button(value);
    const auto distance = [this, value](QAbstractButton* each) {
        return qAbs(qint64{id(each)} - value);
    };
    return *std::min_element(all.cbegin(), all.cend(),
                             [&](QAbstractButton* one, QAbstractButton* other) {
                                 return distance(one) < distance(other);
                             });
}
