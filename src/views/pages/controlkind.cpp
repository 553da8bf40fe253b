#include "controlkind.h"

#include "choicegroup.h"

#include <QAbstractSlider>
#include <QComboBox>
#include <QSpinBox>
#include <QToolButton>

namespace
{

template <class Number> int numberOf(const QObject* control)
{
    return static_cast<const Number*>(control)->value();
}

template <class Number> std::optional<int> setNumber(QObject* control, int value)
{
    static_cast<Number*>(control)->setValue(value);
    return value;
}

int stateOf(const QObject* control)
{
    return int{static_cast<const QToolButton*>(control)->isChecked()};
}

std::optional<int> setState(QObject* control, int value)
{
    static_cast<QToolButton*>(control)->setChecked(value != 0);
    return int{value != 0};
}

int entryOf(const QObject* control)
{
    const auto* menu = static_cast<const QComboBox*>(control);
    const QVariant data = menu->currentData();
    return data.isValid() ? data.toInt() : menu->currentIndex();
}

std::optional<int> setEntry(QObject* control, int value)
{
    auto* menu = static_cast<QComboBox*>(control);
    const bool hasData = menu->itemData(0).isValid();
    const int index = hasData ? menu->findData(value) : value;
    if (index < 0 || index >= menu->count())
        return std::nullopt;
    menu->setCurrentIndex(index);
    return value;
}

std::optional<int> choose(QObject* control, int value)
{
    return static_cast<ChoiceGroup*>(control)->setValue(value) ? std::optional(value)
                                                               : std::nullopt;
}

struct Row {
    const QMetaObject& widget;
    ControlKind kind;
};

} // namespace

const ControlKind* kindOf(const QObject* object)
{
    static const Row rows[]{
        {QToolButton::staticMetaObject, {SIGNAL(toggled(bool)), stateOf, setState}},
        {QAbstractSlider::staticMetaObject,
         {SIGNAL(valueChanged(int)), numberOf<QAbstractSlider>, setNumber<QAbstractSlider>}},
        {QSpinBox::staticMetaObject,
         {SIGNAL(valueChanged(int)), numberOf<QSpinBox>, setNumber<QSpinBox>}},
        {QComboBox::staticMetaObject, {SIGNAL(currentIndexChanged(int)), entryOf, setEntry}},
        {ChoiceGroup::staticMetaObject, {SIGNAL(valueChanged(int)), numberOf<ChoiceGroup>, choose}},
    };
    for (const Row& row : rows)
        if (row.widget.cast(object) != nullptr)
            return &row.kind;
    return nullptr;
}
