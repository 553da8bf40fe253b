// Which page is shown, and whether the mixer's panel shows the same one.

#include "channelselector.h"
#include "fullpowerview.h"
#include "modes.h"
#include "sysexmanager.h"

#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>

#include <algorithm>

void FullPowerView::slotChangeTabViews()
{
    auto* tab = qobject_cast<QPushButton*>(sender());
    if (tab == nullptr)
        return;
    if (!tab->isChecked()) {
        // The one that is on stays on.
        tab->setChecked(true);
        return;
    }
    QPushButton* const tabs[]{form.surroundTabButton, form.channelStripTabButton,
                              form.reverbTabButton, form.midiTabButton, form.usbTabButton};
    const auto page =
        std::distance(std::begin(tabs), std::find(std::begin(tabs), std::end(tabs), tab));
    form.mainTabWidget->setCurrentIndex(static_cast<int>(page));
    if (tab == form.surroundTabButton && auxTabsLocked)
        emit signalSendTabViewSysex(static_cast<int>(sysex::Mode::Surround));
    else if (tab == form.channelStripTabButton && selector->isSelected(channels::phones))
        emit signalSendTabViewSysex(static_cast<int>(sysex::Mode::Phones));
    else if (tab == form.reverbTabButton)
        emit signalSendTabViewSysex(static_cast<int>(sysex::Mode::Reverb));
    for (QPushButton* other : tabs) {
        if (other == tab)
            continue;
        const WireCut cut({other, SIGNAL(toggled(bool)), this, SLOT(slotChangeTabViews())});
        other->setChecked(false);
    }
}

void FullPowerView::slotChangeTabViewFromSysex(int tabNum)
{
    QPushButton* const tabs[]{form.surroundTabButton, form.channelStripTabButton,
                              form.reverbTabButton};
    if (tabNum < 0 || tabNum >= static_cast<int>(std::size(tabs)) || tabs[tabNum]->isHidden())
        return;
    // With the phones selected, the mixer would be sent back from its faders to the phones.
    const WireCut cut(tabs[tabNum] == form.channelStripTabButton ? modeWire() : Wire{});
    tabs[tabNum]->setChecked(true);
}

Wire FullPowerView::modeWire()
{
    return {this, SIGNAL(signalSendTabViewSysex(int)), sysexManager, SLOT(slotSendModeChange(int))};
}

Wire FullPowerView::channelSelectWire()
{
    return {this, SIGNAL(signalSelectChannelView(int)), sysexManager,
            SLOT(slotSendChannelSelect(int))};
}

void FullPowerView::slotEnableViewChanging(bool enabled)
{
    sysexManager->setViewChangingEnabled(enabled);
    const auto set = [](const Wire& wire, bool connected) {
        if (connected)
            wire.connect();
        else
            wire.disconnect();
    };
    set({sysexManager, SIGNAL(signalViewChange(int)), this, SLOT(slotChangeTabViewFromSysex(int))},
        enabled);
    set({sysexManager, SIGNAL(signalChannelSelect(int)), this,
         SLOT(slotSelectChannelViewFromSysex(int))},
        enabled);
    set(modeWire(), enabled && mode.isLive());
    set(channelSelectWire(), enabled && mode.isLive());
}

void FullPowerView::slotSetAuxTabLocking(bool locked)
{
    auxTabsLocked = locked;
    QStringList names{channels::selectName(channels::mains)};
    for (int aux = 1; aux <= channels::lastAux - channels::mains; ++aux) {
        for (const char* kind : {"mute", "fader", "fader_level", "select"})
            names.append(QStringLiteral("faderframe_aux%1_%2").arg(aux).arg(QLatin1String(kind)));
    }
    bool wasSelected = false;
    for (const QString& name : std::as_const(names)) {
        auto* control = form.faderGroupBox->findChild<QWidget*>(name);
        control->setEnabled(!locked);
        const auto* select = qobject_cast<QPushButton*>(control);
        wasSelected = wasSelected || (select != nullptr && select->isChecked());
    }
    form.reverbTabButton->setEnabled(!locked);
    if (!locked)
        return;

    if (wasSelected) {
        // The mixer moves to an input by itself, and is not told.
        const WireCut tabCut(
            {form.channelStripTabButton, SIGNAL(toggled(bool)), this, SLOT(slotChangeTabViews())});
        channelSelectWire().disconnect();
        const bool wasOn = form.channelStripTabButton->isChecked();
        selector->selectOnly(1);
        if (!wasOn)
            form.channelStripTabButton->setChecked(false);
        // Also if view linking is off: it has always been so. But not before the sync.
        if (mode.isLive())
            channelSelectWire().connect();
    }
    if (form.reverbTabButton->isChecked())
        form.surroundTabButton->setChecked(true);
}

// The mixer's panel selected one. Told of the phones, the panel would go from its faders to them.
void FullPowerView::slotSelectChannelViewFromSysex(int selectedChannel)
{
    const bool isPhones = selectedChannel < 1 || selectedChannel >= channels::phones;
    const bool wasLinked = isPhones && isViewLinkingStored();
    if (wasLinked)
        slotEnableViewChanging(false);
    selector->selectOnly(selectedChannel);
    if (wasLinked)
        slotEnableViewChanging(true);
}
