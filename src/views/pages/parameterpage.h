#pragma once

#include "controlpage.h"

#include <QVariantMap>

// A page whose controls are parameters of a preset. A control's name in the preset, its key, is the
// page's prefix and the object name, joined by "_". Two wires lead from every control, and each is
// cut apart from the other: one to the store of presets, one to the mixer. Neither is connected at
// first.
class ParameterPage : public ControlPage
{
    Q_OBJECT

public slots:
    // The store wire. Connecting what is connected changes nothing.
    void slotConnectElements();
    void slotDisconnectElements();
    void slotValueChanged();
    // The send wire, the same.
    void slotConnectToSysexSending();
    void slotDisconnectToSysexSending();
    void slotSendSysexParameter();

    // Puts all controls to a preset's values; a missing one counts as 0. Stores nothing, and leaves
    // the store wire connected.
    void slotRecallPreset(QVariantMap preset);

signals:
    // presetNum is always -1, the current preset.
    void signalStoreValue(QString name, QVariant value, int presetNum);
    void signalCheckSavedState(int presetNum);
    void signalSendPresetParameter(QString name, int value);

protected:
    // prefix: of the keys, as "channelstrip_ch3"; empty where the object names are whole keys.
    ParameterPage(QWidget* parent, const QString& spokenName, const QString& prefix);

    QString keyOf(const Control& control) const { return keyOf(control.widget()->objectName()); }
    QString keyOf(const QString& objectName) const;
    // The object name in a key of this page; empty for another page's key.
    QString objectNameIn(const QString& key) const;

    // Shows a value that the mixer sent, and stores it, also if the control holds it already or
    // can't reach it. To be called with the send wire cut.
    void takeFromMixer(const Control& control, int value);
    // The whole way of a received parameter on a page of the simple kind.
    void receive(const QString& key, int value);

    // What the pages do otherwise.
    virtual void changedByUser(const Control& control);
    virtual bool isSent(const Control& control) const;
    virtual void recall(const Control& control, const QVariantMap& preset);
    // Whether it has a key of its own, and so the wires.
    virtual bool isParameter(const Control& control) const;
    // Whether a recall lets events pass before it lays the preset on the controls.
    virtual bool letsEventsPass() const { return true; }

    Wire storeWire(const Control& control);

    void store(const Control& control, int value);
    bool isStoring() const { return storing; }

    // Keeps the send wire cut for a scope, if it is connected.
    class SendingCut
    {
    public:
        explicit SendingCut(ParameterPage* cutPage);
        ~SendingCut();
        Q_DISABLE_COPY_MOVE(SendingCut)

    private:
        ParameterPage* const page;
        const bool wasSending;
    };

private:
    Wire sendWire(const Control& control);

    const QString prefix;
    bool storing = false;
    bool sending = false;
    int recallNumber = 0;
};
