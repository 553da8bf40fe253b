#include "lowpowerview.h"

#include "choicegroup.h"
#include "editedbox.h"
#include "globalpresetinterface.h"
#include "lowpoweraudiotab.h"
#include "miditab.h"
#include "pagestyle.h"
#include "sysexmanager.h"

#include <QPushButton>
#include <QStackedWidget>

#include <utility>

namespace
{

// Below the window's menu bar.
constexpr int tabsTop = 24;
constexpr int tabHeight = 24;
constexpr int pagesTop = tabsTop + tabHeight + 2;
constexpr QSize pageSize{LowPowerView::widthInPixels, LowPowerView::heightInPixels - pagesTop};

} // namespace

LowPowerView::LowPowerView(SysexManager* sysex, GlobalPresetInterface* globals,
                           QWidget* shellSettingsDialog, QWidget* parent)
    : QWidget(parent)
    , sysexManager(sysex)
    , globalPresetInterface(globals)
    , settingsDialog(shellSettingsDialog)
{
    setObjectName(QStringLiteral("lowPowerView"));
    setGeometry(0, 0, widthInPixels, heightInPixels);
}

void LowPowerView::makeFace()
{
    setStyleSheet(pageStyleSheet());
    pages = new QStackedWidget(this);
    pages->setGeometry(QRect(QPoint(0, pagesTop), pageSize));
    audioTab = new LowPowerAudioTab(pages, pageSize);
    midiTab = new MidiTab(pages, globalPresetInterface, pageSize);
    pages->addWidget(audioTab);
    pages->addWidget(midiTab);
    layTabs();
}

void LowPowerView::layTabs()
{
    const struct {
        const char* name;
        const char* text;
        const char* toolTip;
    } tabs[]{
        {"lowPowerAudioTabButton", "AUDIO", "The channels' levels."},
        {"lowPowerMidiTabButton", "MIDI", "The MIDI mappings."},
    };
    constexpr int width = 112;
    auto* choice = new ChoiceGroup(this, false);
    QRect place(8, tabsTop, width, tabHeight);
    for (const auto& tab : tabs) {
        auto* button = new QPushButton(QLatin1String(tab.text), this);
        button->setObjectName(QLatin1String(tab.name));
        button->setCheckable(true);
        button->setProperty("role", "tab");
        button->setToolTip(QLatin1String(tab.toolTip));
        button->setGeometry(place);
        place.translate(width + 4, 0);
        choice->addButton(button, static_cast<int>(&tab - tabs));
    }
    connect(choice, SIGNAL(valueChanged(int)), pages, SLOT(setCurrentIndex(int)));
    choice->setValue(0);
}

void LowPowerView::slotInitializeLowPowerMode()
{
    slotDeInitializeLowPowerMode();
    if (pages == nullptr)
        makeFace();
    pages->setEnabled(false);
    const char* toFlash = SLOT(slotSaveGlobalParamsToFlash());
    wires = {
        {globalPresetInterface, SIGNAL(signalRecallGlobal(QVariantMap)), midiTab,
         SLOT(slotRecallGlobal(QVariantMap))},
        {midiTab, SIGNAL(signalStoreGlobal(QString, QVariant)), globalPresetInterface,
         SLOT(slotStoreGlobal(QString, QVariant))},
        {midiTab, SIGNAL(signalSendParameter(QString, int)), sysexManager,
         SLOT(slotSendGlobalParameters(QString, int))},
        {midiTab, SIGNAL(signalGlobalSendClicked()), sysexManager, toFlash},
        {audioTab, SIGNAL(signalSendPresetParameter(QString, int)), sysexManager,
         SLOT(slotSendPresetParameters(QString, int))},
        {sysexManager, SIGNAL(signalReceiveMidiParams(QString, int)), midiTab,
         SLOT(slotReceiveMidiParams(QString, int))},
        {sysexManager, SIGNAL(signalLiveMemoryFinishedSyncing()), this, SLOT(slotSyncComplete())},
    };
    for (const char* received : {SIGNAL(signalReceiveMainwindowPresetParams(QString, int)),
                                 SIGNAL(signalReceiveChannelStripParams(QString, int))})
        wires.append({sysexManager, received, audioTab, SLOT(slotReceiveParams(QString, int))});
    // The dialog's form is laid after the view was made.
    if (auto* button = settingsDialog->findChild<QPushButton*>(QStringLiteral("globalSendButton")))
        wires.append({button, SIGNAL(clicked()), sysexManager, toFlash});
    for (const Wire& wire : std::as_const(wires))
        wire.connect();
    emit signalDisconnectGlobalSysex();
    globalPresetInterface->slotRecallGlobal();
    sysexManager->slotSendSinglePresetRequest(0, false);
}

void LowPowerView::slotDeInitializeLowPowerMode()
{
    if (wires.isEmpty())
        return;
    // What is typed counts, while the wires are there.
    commitEditedBox();
    pages->setEnabled(false);
    setSending(false);
    // A recall has joined it.
    midiTab->slotDisconnectElements();
    for (const Wire& wire : std::exchange(wires, {}))
        wire.disconnect();
}

void LowPowerView::slotSyncComplete()
{
    setSending(true);
    pages->setEnabled(true);
    emit signalConnectGlobalSysex();
}

void LowPowerView::setSending(bool connected)
{
    for (ParameterPage* page :
         {static_cast<ParameterPage*>(audioTab), static_cast<ParameterPage*>(midiTab)}) {
        if (connected)
            page->slotConnectToSysexSending();
        else
            page->slotDisconnectToSysexSending();
    }
}
