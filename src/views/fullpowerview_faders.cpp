// The fader frame: its store and send wires, the numbers beside the faders, solo and mute.

#include "controlrow.h"
#include "cuttoint.h"
#include "fullpowerview.h"
#include "parameterpage.h"
#include "portableslider.h"
#include "selectalldoublespinbox.h"
#include "storedvalue.h"
#include "tablelookup.h"

#include <QDebug>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <algorithm>

namespace
{

constexpr int longestName = 24;

} // namespace

Wire FullPowerView::storeWire(const FaderControl& control)
{
    return {control.widget, control.isFader ? SIGNAL(valueChanged(int)) : SIGNAL(toggled(bool)),
            this, SLOT(slotValueChanged())};
}

Wire FullPowerView::sendWire(const FaderControl& control)
{
    return {control.widget, control.isFader ? SIGNAL(valueChanged(int)) : SIGNAL(toggled(bool)),
            this, SLOT(slotSendSysexPresetParameter())};
}

Wire FullPowerView::boxWire(SelectAllDoubleSpinbox* box)
{
    return {box, SIGNAL(signalSetDial(double)), this, SLOT(slotLinkSpinboxtoFader(double))};
}

Wire FullPowerView::faderWire(PortableSlider* fader)
{
    return {fader, SIGNAL(valueChanged(int)), this, SLOT(slotLinkFadertoSpinbox(int))};
}

SelectAllDoubleSpinbox* FullPowerView::levelBoxOf(const QObject* fader) const
{
    return form.faderGroupBox->findChild<SelectAllDoubleSpinbox*>(fader->objectName() + boxSuffix);
}

int FullPowerView::valueOf(const FaderControl& control) const
{
    return control.isFader ? static_cast<const PortableSlider*>(control.widget)->value()
                           : int{static_cast<const QToolButton*>(control.widget)->isChecked()};
}

const FullPowerView::FaderControl* FullPowerView::controlNamed(const QString& name) const
{
    const auto found =
        std::find_if(faderControls.cbegin(), faderControls.cend(),
                     [&name](const FaderControl& c) { return c.widget->objectName() == name; });
    return found == faderControls.cend() ? nullptr : &*found;
}

void FullPowerView::slotConnectElements()
{
    storeWireConnected = true;
    for (const FaderControl& control : qAsConst(faderControls))
        storeWire(control).connect();
}

void FullPowerView::slotDisconnectElements()
{
    storeWireConnected = false;
    for (const FaderControl& control : qAsConst(faderControls))
        storeWire(control).disconnect();
}

void FullPowerView::slotConnectToSysexPresetSending()
{
    presetSendWireConnected = true;
    for (const FaderControl& control : qAsConst(faderControls))
        sendWire(control).connect();
    for (ParameterPage* page : parameterPages())
        page->slotConnectToSysexSending();
}

void FullPowerView::slotDisconnectToSysexPresetSending()
{
    presetSendWireConnected = false;
    for (const FaderControl& control : qAsConst(faderControls))
        sendWire(control).disconnect();
    for (ParameterPage* page : parameterPages())
        page->slotDisconnectToSysexSending();
}

void FullPowerView::slotValueChanged()
{
    if (auto* edit = qobject_cast<QLineEdit*>(sender()); edit != nullptr) {
        limitName(edit);
    } else if (sender() != nullptr) {
        if (const FaderControl* control = controlNamed(sender()->objectName());
            control != nullptr) {
            if (sender() == pressedSolo && shiftSoloActive)
                changeSolo(static_cast<QToolButton*>(control->widget));
            emit signalStoreValue(control->widget->objectName(), valueOf(*control), -1);
        }
    }
    emit signalCheckSavedState(-1);
}

// Shift on a solo ends every other solo. The mixer is told of each; channels that are selected
// together keep theirs together.
void FullPowerView::changeSolo(QToolButton* solo)
{
    const auto selectNameOf = [](const QToolButton* button) {
        return button->objectName().replace(QLatin1String("_solo"), QLatin1String("_select"));
    };
    const bool isSelected = selectedChannels().contains(selectNameOf(solo));
    for (const FaderControl& control : qAsConst(faderControls)) {
        auto* other = qobject_cast<QToolButton*>(control.widget);
        if (other == nullptr || other == solo
            || !other->objectName().contains(QLatin1String("_solo"))
            || (isSelected && selectedChannels().contains(selectNameOf(other))))
            continue;
        const WireCut cut(storeWire(control));
        other->setChecked(false);
        emit signalStoreValue(other->objectName(), 0, -1);
    }
}

void FullPowerView::slotSoloReleased() { pressedSolo = nullptr; }

void FullPowerView::slotSendSysexPresetParameter()
{
    if (sender() == nullptr)
        return;
    if (const FaderControl* control = controlNamed(sender()->objectName()); control != nullptr)
        emit signalSendPresetParameter(control->widget->objectName(), valueOf(*control));
}

void FullPowerView::slotShowButtonState()
{
    if (auto* button = qobject_cast<QToolButton*>(sender()); button != nullptr)
        showButtonState(button);
}

void FullPowerView::showButtonState(QToolButton* button) const
{
    QString style = QStringLiteral("background-color: grey;");
    if (button->isChecked() && button->text().contains(QLatin1Char('S')))
        style = QStringLiteral("background-color: rgb(255,255,0);");
    else if (button->isChecked() && button->text().contains(QLatin1Char('M')))
        style = QStringLiteral("background-color: rgb(255,0,0);");
    if (button->styleSheet() != style)
        button->setStyleSheet(style);
}

void FullPowerView::slotReceiveMainwindowPresetParams(QString jsonName, int value)
{
    const FaderControl* control = controlNamed(jsonName);
    if (control == nullptr) {
        qDebug() << "no control for" << jsonName;
        return;
    }
    const WireCut sendCut(sendWire(*control));
    {
        // The store gets what the mixer holds, once, not what the control makes of it.
        const WireCut storeCut(storeWire(*control));
        if (control->isFader)
            static_cast<PortableSlider*>(control->widget)->setValue(value);
        else
            static_cast<QToolButton*>(control->widget)->setChecked(value != 0);
    }
    if (!storeWireConnected)
        return;
    emit signalStoreValue(jsonName, control->isFader ? value : valueOf(*control), -1);
    emit signalCheckSavedState(-1);
}

void FullPowerView::slotRecallPresets(QVariantMap preset)
{
    slotDisconnectElements();
    endMultipleSelection();
    // Each page lets events pass before its recall: what the mixer sends then for one that is not
    // laid yet would be stored, and be overwritten on the screen alone.
    for (ParameterPage* page : parameterPages())
        page->slotDisconnectElements();
    for (const FaderControl& control : qAsConst(faderControls)) {
        const QString name = control.widget->objectName();
        const int value = storedInt(preset.value(name), name);
        if (control.isFader)
            static_cast<PortableSlider*>(control.widget)->setValue(value);
        else
            static_cast<QToolButton*>(control.widget)->setChecked(value != 0);
    }
    slotConnectElements();
}

void FullPowerView::slotLinkFadertoSpinbox(int value)
{
    if (sender() == nullptr)
        return;
    SelectAllDoubleSpinbox* box = levelBoxOf(sender());
    if (box == nullptr)
        return;
    const WireCut cut(boxWire(box));
    box->setValue(definitions.slotFadertoSpinboxVolumeMath(value, cutToInt(box->minimum()),
                                                           cutToInt(box->maximum())));
}

void FullPowerView::slotLinkSpinboxtoFader(double value)
{
    auto* box = qobject_cast<SelectAllDoubleSpinbox*>(sender());
    if (box == nullptr)
        return;
    auto* fader =
        form.faderGroupBox->findChild<PortableSlider*>(box->objectName().chopped(boxSuffix.size()));
    if (fader == nullptr)
        return;
    // Through two decimals many places of the fader would not come back as they were.
    const double shown = box->shownValue(definitions.slotFadertoSpinboxVolumeMath(
        fader->value(), cutToInt(box->minimum()), cutToInt(box->maximum())));
    if (value == shown)
        return;
    const WireCut cut(faderWire(fader));
    fader->setValue(
        definitions.slotSpinboxtoFaderVolumeMath(value, fader->minimum(), fader->maximum()));
}

int FullPowerView::slotFindTableValueFromSpinboxValue(double value, QString objName,
                                                      QList<double> table)
{
    const TableMatch match = findInTable(table, value);
    auto* box = form.faderGroupBox->findChild<SelectAllDoubleSpinbox*>(objName);
    if (match.index >= 0 && !match.exact && box != nullptr) {
        const WireCut cut(boxWire(box));
        box->setValue(table.at(match.index));
    }
    return match.index;
}

int FullPowerView::slotFindTableValueFromReceivedSysex(int value, QList<int> table)
{
    return findInTable(table, value).index;
}

void FullPowerView::slotInitSpinboxTextColor(int brightness)
{
    const auto boxes = form.faderGroupBox->findChildren<SelectAllDoubleSpinbox*>();
    for (SelectAllDoubleSpinbox* box : boxes)
        box->slotSetTextColorBrightness(brightness);
}

// A name in one of the dialogs: at most 24 characters, and not empty where it is needed.
void FullPowerView::limitName(QLineEdit* edit)
{
    if (edit->text().size() > longestName)
        edit->setText(edit->text().left(longestName));
    const bool named = !edit->text().isEmpty();
    if (edit == saveAsForm.name)
        saveAsForm.save->setEnabled(named);
    else if (edit == renameForm.name)
        renameForm.rename->setEnabled(named);
    else if (edit == receiveAsForm.name)
        receiveAsForm.receive->setEnabled(named);
    else if (edit == receiveAllForm.prefix)
        receiveAllForm.receive->setEnabled(named);
    else if (edit == receivePresetForm.name && receivePresetForm.toNew->isChecked())
        receivePresetForm.receive->setEnabled(named);
}
