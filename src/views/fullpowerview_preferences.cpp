// The Edit menu and the preferences.

#include "copypastehandler.h"
#include "fullpowerview.h"
#include "presetinterface.h"
#include "setlist.h"
#include "slottransfer.h"
#include "sysexmanager.h"

#include <QAction>
#include <QCheckBox>
#include <QDebug>
#include <QRadioButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QToolButton>

namespace
{

const QString viewLinkingKey = QStringLiteral("view_linking_enable");
const QString huiKey = QStringLiteral("hui");
const QString updatesKey = QStringLiteral("autoCheckForUpdates");
const QString drawerKey = QStringLiteral("show_preset_drawer");
const QString rememberKey = QStringLiteral("rememberReceiveDecision");
const QString decisionKey = QStringLiteral("receiveDecision");

QString onOrOff(bool on) { return on ? QStringLiteral("ON") : QStringLiteral("OFF"); }

} // namespace

// The Edit menu

void FullPowerView::slotInitFullPowerMenuActions(QAction* clearPreset, QAction* copyPreset,
                                                 QAction* pastePreset, QAction* pasteNewPreset,
                                                 QAction* copyFullChannel,
                                                 QAction* pasteFullChannel,
                                                 QAction* autoPopulateSetlist)
{
    clearPresetAct = clearPreset;
    copyPresetAct = copyPreset;
    pastePresetAct = pastePreset;
    pasteNewPresetAct = pasteNewPreset;
    copyFullChannelAct = copyFullChannel;
    pasteFullChannelAct = pasteFullChannel;
    autoPopulateSetlistAct = autoPopulateSetlist;
}

QList<Wire> FullPowerView::menuWires()
{
    if (clearPresetAct == nullptr)
        return {};
    const char* triggered = SIGNAL(triggered());
    QList<Wire> wires;
    // A shortcut leaves the focus where it is.
    for (QAction* action : {clearPresetAct, copyPresetAct, pastePresetAct, pasteNewPresetAct,
                            copyFullChannelAct, pasteFullChannelAct})
        wires.append({action, triggered, this, SLOT(slotCommitEditedBox())});
    wires += QList<Wire>{
        {clearPresetAct, triggered, copyPasteHandler, SLOT(slotClearPreset())},
        {copyPresetAct, triggered, copyPasteHandler, SLOT(slotCopyPreset())},
        {pastePresetAct, triggered, copyPasteHandler, SLOT(slotPastePreset())},
        {pasteNewPresetAct, triggered, copyPasteHandler, SLOT(slotPasteNewPreset())},
        {copyFullChannelAct, triggered, copyPasteHandler, SLOT(slotCopyChannel())},
        {pasteFullChannelAct, triggered, copyPasteHandler, SLOT(slotPasteChannel())},
        {autoPopulateSetlistAct, triggered, this, SLOT(slotAutoPopulateSetlist())},
    };
    return wires;
}

void FullPowerView::slotConnectMenuItems()
{
    for (const Wire& wire : menuWires())
        wire.connect();
}

void FullPowerView::slotDisconnectMenuItems()
{
    for (const Wire& wire : menuWires())
        wire.disconnect();
}

void FullPowerView::slotUpdatePasteAvailability()
{
    if (clearPresetAct == nullptr || mode.entry() == nullptr)
        return;
    const bool hasPreset = copyPasteHandler->hasCopiedPreset();
    pastePresetAct->setEnabled(hasPreset);
    pasteNewPresetAct->setEnabled(hasPreset && !presetInterface->isFull());
    pasteFullChannelAct->setEnabled(copyPasteHandler->hasCopiedChannel());
}

void FullPowerView::slotAutoPopulateSetlist() { setlist->slotAutoPopulateSetlist(form.presetlist); }

// Preferences

bool FullPowerView::isViewLinkingStored() const
{
    return settingsStore->value(viewLinkingKey, false).toBool();
}

void FullPowerView::connectPreferences()
{
    const char* changed = SLOT(slotPreferencesChanged());
    const ReceivePresetDialogForm& receive = transfer->receiveForm();
    for (const Wire& wire :
         {Wire{receive.rememberReceiveDecision, SIGNAL(toggled(bool)), this, changed},
          Wire{receive.toSetlistSlot, SIGNAL(clicked()), this, changed},
          Wire{receive.toNew, SIGNAL(clicked()), this, changed},
          Wire{form.showPreset, SIGNAL(toggled(bool)), this, changed},
          Wire{form.showPreset, SIGNAL(toggled(bool)), this, SLOT(slotShowPresets(bool))}})
        wire.connect();
    if (auto* reset =
            settingsDialog->findChild<QAbstractButton*>(QStringLiteral("reset_receive_decision"));
        reset != nullptr)
        Wire{reset, SIGNAL(clicked()), this, SLOT(slotResetReceiveDecision())}.connect();
}

// As it is stored; what is not yet is written.
QVariant FullPowerView::preference(const QString& key, const QVariant& fallback)
{
    if (!settingsStore->contains(key))
        settingsStore->setValue(key, fallback);
    return settingsStore->value(key);
}

void FullPowerView::slotSetPreferences()
{
    connectPreferences();
    const auto showSwitch = [this](const QString& key, const QString& name, bool fallback) {
        const bool on = preference(key, fallback).toBool();
        auto* button = settingsDialog->findChild<QAbstractButton*>(name);
        if (button == nullptr)
            return false;
        Wire{button, SIGNAL(toggled(bool)), this, SLOT(slotPreferencesChanged())}.connect();
        // Nothing that it switches is switched here.
        const QSignalBlocker quiet(button);
        button->setChecked(on);
        button->setText(onOrOff(on));
        return on;
    };
    showSwitch(updatesKey, QStringLiteral("auto_check_for_updates"), true);
    showSwitch(viewLinkingKey, viewLinkingKey, false);
    const bool bridged = showSwitch(huiKey, huiKey, false);
    slotEnableViewChanging(isViewLinkingStored());
    const ReceivePresetDialogForm& receive = transfer->receiveForm();
    receive.rememberReceiveDecision->setChecked(preference(rememberKey, false).toBool());
    const bool toNew =
        preference(decisionKey, QStringLiteral("toSlot")).toString() == QStringLiteral("toNew");
    (toNew ? receive.toNew : receive.toSetlistSlot)->setChecked(true);
    // The drawer stands open at first, whatever is stored, and the first click closes it.
    preference(drawerKey, false);
    {
        const QSignalBlocker quiet(form.showPreset);
        form.showPreset->setChecked(true);
    }
    // Last: a failure opens a box, and under it events may let a newer mode begin. It puts button,
    // text and key right by itself.
    if (bridged && !mode.demoModeEnabled)
        sysexManager->slotEnableHuiPort(true);
}

void FullPowerView::slotPreferencesChanged()
{
    qDebug() << "fpv:slotPrefChanged called";
    auto* button = qobject_cast<QAbstractButton*>(sender());
    if (button == nullptr)
        return;
    const QString name = button->objectName();
    const bool on = button->isChecked();
    if (button == transfer->receiveForm().rememberReceiveDecision) {
        settingsStore->setValue(rememberKey, on);
    } else if (button == transfer->receiveForm().toSetlistSlot) {
        if (on)
            settingsStore->setValue(decisionKey, QStringLiteral("toSlot"));
    } else if (button == transfer->receiveForm().toNew) {
        if (on)
            settingsStore->setValue(decisionKey, QStringLiteral("toNew"));
    } else if (name == viewLinkingKey) {
        settingsStore->setValue(viewLinkingKey, on);
        button->setText(onOrOff(on));
        slotEnableViewChanging(on);
    } else if (name == QLatin1String("auto_check_for_updates")) {
        settingsStore->setValue(updatesKey, on);
        button->setText(onOrOff(on));
    } else if (name == huiKey) {
        qDebug() << "slotPreferences Changed - hui";
        settingsStore->setValue(huiKey, on);
        button->setText(onOrOff(on));
        sysexManager->slotEnableHuiPort(on);
    } else if (button == form.showPreset) {
        qDebug() << "slotPreferences Changed - showPreset";
        settingsStore->setValue(drawerKey, on);
    }
}

void FullPowerView::slotConnectHuiButton(QToolButton* huiEnable)
{
    Wire{huiEnable, SIGNAL(toggled(bool)), this, SLOT(slotPreferencesChanged())}.connect();
}

void FullPowerView::slotDisconnectHuiButton(QToolButton* huiEnable)
{
    Wire{huiEnable, SIGNAL(toggled(bool)), this, SLOT(slotPreferencesChanged())}.disconnect();
}

void FullPowerView::slotResetReceiveDecision()
{
    if (sender() == nullptr || sender()->objectName().contains(QLatin1String("all")))
        return;
    settingsStore->setValue(rememberKey, false);
    transfer->receiveForm().rememberReceiveDecision->setChecked(false);
}
