#include "presetpage.h"

#include "storedvalue.h"

#include <QCoreApplication>
#include <QPointer>

void PresetPage::slotValueChanged()
{
    if (const Control* control = wiredControl(); control != nullptr && changedByUser(*control))
        emit signalStoreValue(keyOf(*control), control->value(), -1);
    emit signalCheckSavedState(-1);
}

void PresetPage::slotSendSysexParameter()
{
    if (const Control* control = wiredControl(); control != nullptr)
        emit signalSendPresetParameter(keyOf(*control), control->value());
}

void PresetPage::slotRecallPreset(QVariantMap preset)
{
    slotDisconnectElements();
    const QPointer<PresetPage> alive(this);
    const int number = ++recallNumber;
    if (letsEventsPass())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // The page may be gone, and a newer recall may have come in between.
    if (alive && number == recallNumber)
        recall(preset);
}

void PresetPage::store(const Control& control, int value)
{
    emit signalStoreValue(keyOf(control), value, -1);
    emit signalCheckSavedState(-1);
}

std::optional<int> PresetPage::recalled(const Control& control, const QVariantMap& preset) const
{
    const QString key = keyOf(control);
    return storedInt(preset.value(key), key);
}
