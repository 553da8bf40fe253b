#include "pagewires.h"

#include "faderframe.h"
#include "presetinterface.h"
#include "sysexmanager.h"

PageWires::PageWires(QObject* view, PresetInterface* presetInterface, SysexManager* sysexManager,
                     const QList<PresetPage*>& pages)
    : parameterPages(pages)
{
    const char* recall = SIGNAL(signalRecallPreset(QVariantMap));
    const char* send = SIGNAL(signalSendPresetParameter(QString, int));
    const char* sendSlot = SLOT(slotSendPresetParameters(QString, int));
    recalls.append({presetInterface, recall, view, SLOT(slotRecallPresets(QVariantMap))});
    QList<QObject*> owners{view};
    for (PresetPage* page : pages) {
        // The faders speak through the view.
        if (qobject_cast<FaderFrame*>(page) != nullptr)
            continue;
        owners.append(page);
        recalls.append({presetInterface, recall, page, SLOT(slotRecallPreset(QVariantMap))});
    }
    for (QObject* owner : std::as_const(owners)) {
        storing += {
            {owner, SIGNAL(signalStoreValue(QString, QVariant, int)), view,
             SLOT(slotStoreShownValue(QString, QVariant, int))},
            {owner, SIGNAL(signalCheckSavedState(int)), view, SLOT(slotCheckShownState(int))},
            {owner, send, sysexManager, sendSlot},
        };
    }
    storeSending = {
        {presetInterface, SIGNAL(signalConnectToSysexSending()), view,
         SLOT(slotConnectToSysexPresetSending())},
        {presetInterface, SIGNAL(signalDisconnectFromSysexSending()), view,
         SLOT(slotDisconnectToSysexPresetSending())},
        {presetInterface, send, sysexManager, sendSlot},
    };
}

QList<Wire> PageWires::all() const { return storing + recalls + storeSending; }

void PageWires::setSending(bool connected)
{
    presetSendWireConnected = connected;
    for (PresetPage* page : parameterPages) {
        if (connected)
            page->slotConnectToSysexSending();
        else
            page->slotDisconnectToSysexSending();
    }
}

void PageWires::set(const QList<Wire>& wires, bool connected)
{
    for (const Wire& wire : wires) {
        if (connected)
            wire.connect();
        else
            wire.disconnect();
    }
}
