#include "parameterpage.h"

#include "nowrapdial.h"
#include "storedvalue.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEventLoop>
#include <QPointer>
#include <QToolButton>

ParameterPage::ParameterPage(QWidget* parent, const QString& spokenName, const QString& keyPrefix)
    : ControlPage(parent, spokenName)
    , prefix(keyPrefix)
{
}

QString ParameterPage::keyOf(const QString& objectName) const
{
    return prefix.isEmpty() ? objectName : prefix + QLatin1Char('_') + objectName;
}

QString ParameterPage::objectNameIn(const QString& key) const
{
    if (prefix.isEmpty())
        return key;
    if (!key.startsWith(prefix) || key.size() <= prefix.size()
        || key.at(prefix.size()) != QLatin1Char('_'))
        return {};
    return key.sliced(prefix.size() + 1);
}

bool ParameterPage::isParameter(const Control& /*control*/) const { return true; }

bool ParameterPage::isSent(const Control& /*control*/) const { return true; }

Wire ParameterPage::storeWire(const Control& control)
{
    return {control.widget(), control.changeSignal(), this, SLOT(slotValueChanged())};
}

Wire ParameterPage::sendWire(const Control& control)
{
    return {control.widget(), control.changeSignal(), this, SLOT(slotSendSysexParameter())};
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
        if (isParameter(control))
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
    : page(cutPage)
    , wasSending(page->sending)
{
    if (wasSending)
        page->slotDisconnectToSysexSending();
}

ParameterPage::SendingCut::~SendingCut()
{
    if (wasSending)
        page->slotConnectToSysexSending();
}

void ParameterPage::store(const Control& control, int value)
{
    emit signalStoreValue(keyOf(control), value, -1);
}

void ParameterPage::slotValueChanged()
{
    if (const Control* control = controlOf(sender()); control != nullptr)
        changedByUser(*control);
    else
        qDebug() << "does anything happen here?";
    emit signalCheckSavedState(-1);
}

void ParameterPage::changedByUser(const Control& control) { store(control, control.value()); }

void ParameterPage::slotSendSysexParameter()
{
    const Control* control = controlOf(sender());
    if (control == nullptr) {
        qDebug() << "does anything happen here?";
        return;
    }
    if (isSent(*control))
        emit signalSendPresetParameter(keyOf(*control), control->value());
}

void ParameterPage::slotRecallPreset(QVariantMap preset)
{
    slotDisconnectElements();
    const QPointer<ParameterPage> alive(this);
    const int number = ++recallNumber;
    if (letsEventsPass())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // The page may be gone, and a newer recall may have come in between.
    if (!alive || number != recallNumber)
        return;
    for (const Control& control : allControls())
        if (isParameter(control))
            recall(control, preset);
    slotConnectElements();
}

void ParameterPage::recall(const Control& control, const QVariantMap& preset)
{
    const QString key = keyOf(control);
    setControl(control, storedInt(preset.value(key), key));
}

void ParameterPage::takeFromMixer(const Control& control, int value)
{
    {
        // The store gets what the mixer holds, once, not what the control makes of it.
        const WireCut cut(storeWire(control));
        setControl(control, value);
    }
    if (!storing)
        return;
    store(control, control.button != nullptr ? control.value() : value);
    emit signalCheckSavedState(-1);
}

void ParameterPage::receive(const QString& key, int value)
{
    const QString name = objectNameIn(key);
    if (name.isEmpty())
        return;
    const Control* control = controlNamed(name);
    if (control == nullptr || !isParameter(*control)) {
        qDebug() << "no control for" << key;
        return;
    }
    const SendingCut cut(this);
    takeFromMixer(*control, value);
}
