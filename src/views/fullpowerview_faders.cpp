// The fader frame's told slots, and the names that are typed in the dialogs.

#include "faderframe.h"
#include "fullpowerview.h"
#include "selectalldoublespinbox.h"
#include "tablelookup.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace
{

constexpr int longestName = 24;

} // namespace

void FullPowerView::slotConnectElements() { faders->slotConnectElements(); }

void FullPowerView::slotDisconnectElements() { faders->slotDisconnectElements(); }

void FullPowerView::slotConnectToSysexPresetSending()
{
    presetSendWireConnected = true;
    for (ParameterPage* page : parameterPages())
        page->slotConnectToSysexSending();
}

void FullPowerView::slotDisconnectToSysexPresetSending()
{
    presetSendWireConnected = false;
    for (ParameterPage* page : parameterPages())
        page->slotDisconnectToSysexSending();
}

// The faders store by themselves.
void FullPowerView::slotValueChanged()
{
    if (auto* edit = qobject_cast<QLineEdit*>(sender()); edit != nullptr)
        limitName(edit);
    emit signalCheckSavedState(-1);
}

void FullPowerView::slotSendSysexPresetParameter() { faders->slotSendSysexParameter(); }

void FullPowerView::slotReceiveMainwindowPresetParams(QString jsonName, int value)
{
    faders->slotReceiveFaderParams(jsonName, value);
}

void FullPowerView::slotRecallPresets(QVariantMap preset)
{
    // Each page lets events pass before its recall: what the mixer sends then for one that is not
    // laid yet would be stored, and be overwritten on the screen alone.
    for (ParameterPage* page : parameterPages())
        page->slotDisconnectElements();
    endMultipleSelection();
    faders->slotRecallPreset(preset);
}

void FullPowerView::slotLinkFadertoSpinbox(int value) { faders->slotLinkDialToSpinbox(value); }

void FullPowerView::slotLinkSpinboxtoFader(double value)
{
    faders->slotLinkDoubleSpinboxtoDial(value);
}

int FullPowerView::slotFindTableValueFromSpinboxValue(double value, QString objName,
                                                      QList<double> table)
{
    return faders->slotFindTableValueFromSpinboxValue(value, objName, table);
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
