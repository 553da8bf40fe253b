#pragma once

#include "wires.h"

#include <QList>

class PresetPage;
class PresetInterface;
class QObject;
class SysexManager;

// What joins the pages of a preset to its store and, through that, to the mixer, in the parts that
// are cut while a preset is laid, sent or received. The full-power view owns it.
class PageWires
{
public:
    // view: speaks for the fader frame, and has the told slots. All must outlive this.
    PageWires(QObject* view, PresetInterface* presetInterface, SysexManager* sysexManager,
              const QList<PresetPage*>& pages);

    const QList<PresetPage*>& pages() const { return parameterPages; }
    // All that is joined at a mode entry.
    QList<Wire> all() const;

    // What is touched is sent.
    void setSending(bool connected);
    bool isSending() const { return presetSendWireConnected; }
    // A recall sends, and tells when.
    void setStoreSending(bool connected) const { set(storeSending, connected); }
    // A recall is shown.
    void setRecalling(bool connected) const { set(recalls, connected); }

private:
    static void set(const QList<Wire>& wires, bool connected);

    const QList<PresetPage*> parameterPages;
    QList<Wire> storing;
    QList<Wire> recalls;
    QList<Wire> storeSending;
    bool presetSendWireConnected = false;
};
