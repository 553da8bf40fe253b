#pragma once

#include "controlpage.h"

#include <QVariantMap>

#include <optional>

// A page whose controls are parameters. A control's name in the store and to the mixer, its key, is
// the page's prefix and the control's name, joined by "_". Two wires lead from every control, and
// each is cut apart from the other: one to the store, one to the mixer. Neither is connected at
// first. The pages of a preset and those of the globals derive from it.
class ParameterPage : public ControlPage
{
    Q_OBJECT

public:
    bool isSending() const { return sending; }

public slots:
    // The store wire. Connecting what is connected changes nothing.
    void slotConnectElements();
    void slotDisconnectElements();
    virtual void slotValueChanged() = 0;
    // The send wire, the same.
    void slotConnectToSysexSending();
    void slotDisconnectToSysexSending();
    virtual void slotSendSysexParameter() = 0;

protected:
    // prefix: of the keys, as "channelstrip_ch3"; empty where the names are whole keys.
    ParameterPage(QWidget* parent, const QString& spokenName, const QString& prefix);

    QString keyOf(const Control& control) const;
    // The name in a key of this page; empty for another page's key.
    QString nameIn(const QString& key) const;
    // The control that a wire has brought here; null, with a debug line, for anything else.
    const Control* wiredControl() const;

    // Shows a value that the mixer sent and stores it, also if the control holds it already or
    // can't reach it, and sends nothing. A key of the page that no control has leaves a debug line.
    void receive(const QString& key, int value);
    // Shows all values, and stores nothing. Leaves the store wire connected.
    void recall(const QVariantMap& values);

    // Of a value that the mixer sent.
    virtual void store(const Control& control, int value) = 0;
    // The one that a recall shows; nothing if it leaves the control alone.
    virtual std::optional<int> recalled(const Control& control,
                                        const QVariantMap& values) const = 0;

    // What the pages do otherwise.
    //
    // The rest of what a change by the user does, before it is stored. Whether it is.
    virtual bool changedByUser(const Control& /*control*/) { return true; }
    // Whether it has a key of its own, and so the wires.
    virtual bool isParameter(const Control& /*control*/) const { return true; }
    // Whether a value from the mixer cuts the send wire of the whole page, or of its control alone.
    virtual bool receivesWhole() const { return true; }
    // Whether it has the send wire too.
    virtual bool isSent(const Control& /*control*/) const { return true; }

    // Keeps the send wire of the whole page cut for a scope, if it is connected.
    class SendingCut
    {
    public:
        explicit SendingCut(ParameterPage* cutPage);
        ~SendingCut();
        Q_DISABLE_COPY_MOVE(SendingCut)

    private:
        ParameterPage* const page;
    };

    Wire storeWire(const Control& control);
    Wire sendWire(const Control& control);
    bool isStoring() const { return storing; }

private:
    const QString prefix;
    bool storing = false;
    bool sending = false;
};
