#include "globalpage.h"

#include "globalpresetinterface.h"
#include "storedvalue.h"

GlobalPage::GlobalPage(QWidget* parent, const QString& spokenName, GlobalPresetInterface* globals)
    : ParameterPage(parent, spokenName, {})
    , globalStore(globals)
{
}

void GlobalPage::slotValueChanged()
{
    if (const Control* control = wiredControl(); control != nullptr && changedByUser(*control))
        store(*control, control->value());
}

void GlobalPage::slotSendSysexParameter()
{
    if (const Control* control = wiredControl(); control != nullptr)
        emit signalSendParameter(keyOf(*control), control->value());
}

void GlobalPage::slotRecallGlobal(QVariantMap globals)
{
    const bool wasSending = isSending();
    slotDisconnectToSysexSending();
    recall(globals);
    if (wasSending)
        slotConnectToSysexSending();
}

void GlobalPage::store(const Control& control, int value)
{
    const Parameter* parameter = parametertable::find(keyOf(control));
    if (parameter == nullptr)
        return;
    if (!globalStore->globalSaveTimer->isActive())
        globalStore->globalSaveTimer->start(1);
    globalStore->globalSaveTicks = 0;
    emit signalStoreGlobal(parameter->key, parameter->stored(value));
}

std::optional<int> GlobalPage::recalled(const Control& control, const QVariantMap& globals) const
{
    const Parameter* parameter = parametertable::find(keyOf(control));
    if (parameter == nullptr)
        return std::nullopt;
    return storedNumber(globals.value(parameter->key)).value_or(parameter->factoryValue);
}

bool GlobalPage::isSent(const Control& control) const
{
    return parametertable::find(keyOf(control)) != nullptr;
}
