#pragma once

#include <QButtonGroup>

// Several buttons of which one is down, each with a value from 0: radio buttons, or keys of which
// one is lit. A button's id is its value. The page that shows the buttons owns it.
class ChoiceGroup : public QButtonGroup
{
    Q_OBJECT

public:
    // nearest: a value that no button has chooses the next one to it; otherwise it chooses none.
    ChoiceGroup(QObject* parent, bool nearest);

    // -1 until one is chosen.
    int value() const { return checkedId(); }
    // Whether the value has chosen a button; if not, nothing has changed.
    bool setValue(int value);

signals:
    // Once a choice, whoever made it.
    void valueChanged(int value);

private slots:
    void slotToggled(int id, bool on);

private:
    QAbstractButton* buttonFor(int value) const;

    const bool takesNearest;
};
