#include "lowpoweraudiotab.h"

#include "forms/lowpoweraudioform.h"

namespace
{

bool isFader(const ControlRow& row) { return row.parameter->encoding == Encoding::faderPosition; }

} // namespace

LowPowerAudioTab::LowPowerAudioTab(QWidget* parent, const QSize& size)
    : PresetPage(parent, QStringLiteral("Levels"), {})
{
    setObjectName(QStringLiteral("lowPowerAudioTab"));
    resize(size);
    hostWidget()->resize(size);
    const LowPowerAudioForm form(hostWidget());
    adoptForm(LowPowerAudioForm::controlRows(), LowPowerAudioForm::buttonRows());
    clearFocusOnPress(hostWidget());
    const auto panels = hostWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* panel : panels)
        clearFocusOnPress(panel);
    for (const Control& control : allControls())
        setControl(control, parametertable::at(keyOf(control)).factoryValue);
}

void LowPowerAudioTab::slotReceiveParams(QString key, int value)
{
    if (controlNamed(key) != nullptr || parametertable::find(key) == nullptr)
        receive(key, value);
}

const char* LowPowerAudioTab::slotToBox(const Control& control) const
{
    return isFader(*control.row) ? SLOT(slotLinkFaderToSpinbox(int))
                                 : SLOT(slotLinkDialToSpinbox(int));
}

const char* LowPowerAudioTab::slotFromBox(const Control& control) const
{
    return isFader(*control.row) ? SLOT(slotLinkSpinboxToFader(double))
                                 : SLOT(slotLinkDoubleSpinboxToDial(double));
}
