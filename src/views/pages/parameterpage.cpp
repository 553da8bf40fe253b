#include "parameterpage.h"

#include <QDebug>

ParameterPage::ParameterPage(QWidget* parent, const QString& spokenName, const QString& keyPrefix)
    : ControlPage(parent, spokenName)
    , prefix(keyPrefix)
{
}

QString ParameterPage::keyOf(const Control& control) const
{
    return prefix.isEmpty() ? control.name() : prefix + QLatin1Char('_') + control.name();
}

QString ParameterPage::nameIn(const QString& key) const
{
    if (prefix.isEmpty())
        return key;
    if (!key.startsWith(prefix) || key.size() <= prefix.size()
        || key.at(prefix.size()) != QLatin1Char('_'))
        return {};
    return key.sliced(prefix.size() + 1);
}

Wire ParameterPage::storeWire(const Control& control)
{
    return control.wireTo(this, SLOT(slotValueChanged()));
}

Wire ParameterPage::sendWire(const Control& control)
{
    return control.wireTo(this, SLOT(slotSendSysexParameter()));
}

void ParameterPage::slotConnectElements()
{
    if (storing)
        return;
    storing = true;
    for (const Control& control : allControls())
        if (isParameter(control))
            storeWire(control).connect();
}

void ParameterPage::slotDisconnectElements()
{
    if (!storing)
        return;
    storing = false;
    for (const Control& control : allControls())
        storeWire(control).disconnect();
}

void ParameterPage::slotConnectToSysexSending()
{
    if (sending)
        return;
    sending = true;
    for (const Control& control : allControls())
        if (isParameter(control) && isSent(control))
            sendWire(control).connect();
}

void ParameterPage::slotDisconnectToSysexSending()
{
    if (!sending)
        return;
    sending = false;
    for (const Control& control : allControls())
        sendWire(control).disconnect();
}

ParameterPage::SendingCut::SendingCut(ParameterPage* cutPage)
    : page(cutPage != nullptr && cutPage->sending ? cutPage : nullptr)
{
    if (page != nullptr)
        page->slotDisconnectToSysexSending();
}

ParameterPage::SendingCut::~SendingCut()
{
    if (page != nullptr)
        page->slotConnectToSysexSending();
}

const ParameterPage::Control* ParameterPage::wiredControl() const
{
    const Control* control = controlOf(sender());
    if (control == nullptr)
        qDebug() << "does anything happen here?";
    return control;
}

void ParameterPage::receive(const QString& key, int value)
{
    const QString name = nameIn(key);
    if (name.isEmpty())
        return;
    const Control* control = controlNamed(name);
    if (control == nullptr || !isParameter(*control)) {
        qDebug() << "no control for" << key;
        return;
    }
    const SendingCut pageCut(receivesWhole() ? this : nullptr);
    const WireCut sendCut(sendWire(*control));
    std::optional<int> taken;
    {
        // The store gets what the mixer holds, once, not what the control makes of it.
        const WireCut storeCut(storeWire(*control));
        taken = setControl(*control, value);
    }
    if (storing && taken)
        store(*control, *taken);
}

void ParameterPage::recall(const QVariantMap& values)
{
    slotDisconnectElements();
    for (const Control& control : allControls()) {
        if (!isParameter(control))
            continue;
        if (const std::optional<int> value = recalled(control, values); value)
            setControl(control, *value);
    }
    slotConnectElements();
}
