// The links between a control and its number box.

#include "controlpage.h"
#include "cuttoint.h"
#include "freqspinbox.h"
#include "scaling.h"
#include "selectalldoublespinbox.h"
#include "selectallspinbox.h"
#include "tablelookup.h"

#include <QAbstractSlider>

void ControlPage::slotConnectSpinboxes()
{
    for (const Control& control : allControls()) {
        if (control.box == nullptr)
            continue;
        control.toBox.connect();
        control.fromBox.connect();
    }
}

void ControlPage::linkBox(Control& control)
{
    if (control.box == nullptr)
        return;
    control.toBox = control.wireTo(this, slotToBox(control));
    if (qobject_cast<SelectAllSpinbox*>(control.box) != nullptr)
        control.fromBox = {control.box, SIGNAL(signalSetDial(int)), this,
                           SLOT(slotLinkSpinboxtoDial(int))};
    else if (qobject_cast<FreqSpinBox*>(control.box) != nullptr)
        control.fromBox = {control.box, SIGNAL(signalTrueValue(double)), this,
                           slotFromBox(control)};
    else
        control.fromBox = {control.box, SIGNAL(signalSetDial(double)), this, slotFromBox(control)};
}

void ControlPage::slotLinkDialToSpinbox(int /*value*/)
{
    if (const Control* control = controlOf(sender()); control != nullptr && control->box != nullptr)
        showInBox(*control);
}

// What the box shows for the control's value; nothing if the table has no entry for it.
std::optional<double> ControlPage::boxNumber(const Control& control) const
{
    const int value = control.value();
    switch (control.row->parameter->encoding) {
    case Encoding::faderPosition:
        // The one way takes the box's range, the other the fader's.
        if (const auto* box = qobject_cast<QDoubleSpinBox*>(control.box); box != nullptr)
            return scaling::faderToDb(value, cutToInt(box->minimum()), cutToInt(box->maximum()));
        return std::nullopt;
    case Encoding::trimTable:
        if (value >= 0 && value < trimTable.size())
            return trimTable.at(value);
        return std::nullopt;
    default:
        return control.row->parameter->shown(value);
    }
}

void ControlPage::showInBox(const Control& control)
{
    const std::optional<double> number = boxNumber(control);
    if (!number)
        return;
    const WireCut cut(control.fromBox);
    if (auto* freq = qobject_cast<FreqSpinBox*>(control.box); freq != nullptr)
        freq->slotSetFrequencyScaling(*number);
    else if (auto* decimal = qobject_cast<SelectAllDoubleSpinbox*>(control.box); decimal != nullptr)
        decimal->setValue(*number);
    else if (auto* whole = qobject_cast<SelectAllSpinbox*>(control.box); whole != nullptr)
        whole->setValue(control.value());
}

void ControlPage::slotLinkDoubleSpinboxtoDial(double value)
{
    const Control* control = controlOf(sender());
    if (control == nullptr)
        return;
    // Through two decimals many values would not come back as they were.
    if (const std::optional<double> number = boxNumber(*control); number) {
        const auto* freq = qobject_cast<FreqSpinBox*>(control->box);
        const auto* decimal = qobject_cast<SelectAllDoubleSpinbox*>(control->box);
        const double shown = freq != nullptr ? freq->shownValue(*number)
            : decimal != nullptr             ? decimal->shownValue(*number)
                                             : *number;
        if (value == shown)
            return;
    }
    const WireCut cut(control->toBox);
    if (const int position = fromBoxNumber(*control, value); position >= 0)
        control->slider()->setValue(position);
}

int ControlPage::fromBoxNumber(const Control& control, double number)
{
    switch (control.row->parameter->encoding) {
    case Encoding::plain:
    case Encoding::onOff:
    case Encoding::hertz:
        return cutToInt(number);
    case Encoding::tensOfHertz:
        return cutToInt(number / 10.0);
    case Encoding::linearLevel:
        return scaling::dbToLevel(number);
    case Encoding::hundredths:
        return scaling::toHundredths(number);
    case Encoding::faderPosition:
        return scaling::dbToFader(number, control.slider()->minimum(), control.slider()->maximum());
    case Encoding::trimTable:
        break;
    }
    return slotFindTableValueFromSpinboxValue(number, control.box->objectName(), trimTable);
}

void ControlPage::slotLinkSpinboxtoDial(int value)
{
    const Control* control = controlOf(sender());
    if (control == nullptr)
        return;
    const WireCut cut(control->toBox);
    control->slider()->setValue(value);
}

int ControlPage::slotFindTableValueFromSpinboxValue(double value, QString objName,
                                                    QList<double> table)
{
    const TableMatch match = findInTable(table, value);
    if (match.index < 0 || match.exact)
        return match.index;
    const double entry = table.at(match.index);
    const Control* control = controlOf(host->findChild<QAbstractSpinBox*>(objName));
    if (control == nullptr)
        return match.index;
    const WireCut cut(control->fromBox);
    if (auto* freq = qobject_cast<FreqSpinBox*>(control->box); freq != nullptr)
        freq->slotSetFrequencyScaling(entry);
    else if (auto* decimal = qobject_cast<SelectAllDoubleSpinbox*>(control->box);
             decimal != nullptr)
        decimal->setValue(entry);
    return match.index;
}
