// Which channels are selected, which page is shown, and the links between selected channels.

#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "fullpowerview.h"
#include "nowrapdial.h"
#include "portableslider.h"
#include "reverbtabform.h"
#include "sysexmanager.h"

#include <QDebug>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QToolButton>

#include <algorithm>

namespace
{

constexpr int lastInput = 8;
constexpr int mains = 9;
constexpr int firstAux = 10;
constexpr int lastAux = 12;
constexpr int phones = 13;
constexpr int surroundMode = 6;
constexpr int phonesMode = 13;
constexpr int reverbMode = 5;

// Where the digit of an input stands in its select button's name.
constexpr int digitPlace = 13;

const QString phonesSelectName = QStringLiteral("faderframe_phones_select");
const QString mainsSelectName = QStringLiteral("faderframe_mains_select");

QString auxSelectName(int aux) { return QStringLiteral("faderframe_aux%1_select").arg(aux); }

int channelOf(const QString& selectName)
{
    QString word = selectName;
    word.remove(QLatin1String("faderframe_")).remove(QLatin1String("_select"));
    if (word.startsWith(QLatin1String("aux")))
        return word.sliced(3).toInt() + mains;
    if (word == QLatin1String("phones"))
        return phones;
    if (word == QLatin1String("mains"))
        return mains;
    return word.remove(QLatin1String("ch")).toInt();
}

QString selectNameOf(int channel)
{
    if (channel >= 1 && channel <= lastInput)
        return ChannelSelection::selectName(channel);
    if (channel == mains)
        return mainsSelectName;
    if (channel >= firstAux && channel <= lastAux)
        return auxSelectName(channel - mains);
    return phonesSelectName;
}

// 0 if the name is not an input's.
int inputOf(const QString& selectName)
{
    const int digit = selectName.size() > digitPlace ? selectName.at(digitPlace).digitValue() : 0;
    return digit >= 1 && digit <= lastInput && selectName == ChannelSelection::selectName(digit)
        ? digit
        : 0;
}

} // namespace

const QStringList& FullPowerView::selectedChannels() const
{
    return channelStripTab->selection().names();
}

void FullPowerView::setSelectedChannels(const QStringList& names)
{
    channelStripTab->selection().set(names);
}

QPushButton* FullPowerView::selectButton(const QString& name) const
{
    const auto found =
        std::find_if(selectButtons.cbegin(), selectButtons.cend(),
                     [&name](const QPushButton* button) { return button->objectName() == name; });
    return found == selectButtons.cend() ? nullptr : *found;
}

bool FullPowerView::isOutputSelected() const
{
    return std::any_of(selectedChannels().cbegin(), selectedChannels().cend(),
                       [](const QString& name) { return inputOf(name) == 0; });
}

bool FullPowerView::isStereo(int channel) const
{
    const auto* stereo = channelStripTab->channelStrips()
                             .at(channel - 1)
                             ->findChild<QToolButton*>(QStringLiteral("stereo"));
    return stereo->isChecked();
}

bool FullPowerView::isSelectingTogether(int channel) const
{
    return shiftSelectActive && channel <= lastInput && !isOutputSelected();
}

void FullPowerView::slotSelectChannelView()
{
    auto* button = qobject_cast<QPushButton*>(sender());
    if (button == nullptr)
        return;
    const int channel = channelOf(button->objectName());
    if (button->isChecked()) {
        form.channelStripTabButton->setChecked(true);
        emit signalSelectChannelView(channel);
        // Not before the sync is complete: linked controls would pass on to each other what
        // arrives.
        if (isSelectingTogether(channel) && isLive())
            selectTogether(channel);
        else
            selectAlone(button);
    } else if (isSelectingTogether(channel)) {
        deselect(button, channel);
    } else {
        // A plain click on a selected channel leaves it alone selected.
        button->setChecked(true);
    }
}

void FullPowerView::uncheckQuietly(QPushButton* button)
{
    const WireCut cut({button, SIGNAL(toggled(bool)), this, SLOT(slotSelectChannelView())});
    button->setChecked(false);
}

void FullPowerView::selectAlone(QPushButton* button)
{
    for (QPushButton* other : qAsConst(selectButtons))
        if (other != button)
            uncheckQuietly(other);
    const QStringList before = selectedChannels();
    for (const QString& one : before)
        for (const QString& other : before)
            if (one != other)
                slotDisconnectSelected(one, other);
    setSelectedChannels({button->objectName()});
}

void FullPowerView::selectTogether(int channel)
{
    if (isStereo(channel)) {
        const int partner = channelStripTab->channelStrips().at(channel - 1)->partnerNumber();
        const QString name = ChannelSelection::selectName(partner);
        if (selectedChannels().contains(name))
            return;
        QPushButton* partnerButton = selectButton(name);
        const WireCut cut(
            {partnerButton, SIGNAL(toggled(bool)), this, SLOT(slotSelectChannelView())});
        partnerButton->setChecked(true);
    }
    slotShiftSelect(channel);
}

void FullPowerView::deselect(QPushButton* button, int channel)
{
    if (!isStereo(channel)) {
        slotShiftDeSelect(channel);
        return;
    }
    // Of a pair one stands in the selection and the other's button is lit with it.
    const int partner = channelStripTab->channelStrips().at(channel - 1)->partnerNumber();
    QPushButton* partnerButton = selectButton(ChannelSelection::selectName(partner));
    if (selectedChannels().contains(button->objectName())) {
        uncheckQuietly(partnerButton);
        slotShiftDeSelect(channel);
    } else {
        partnerButton->setChecked(false);
    }
}

void FullPowerView::slotShiftSelect(int selectedChannel)
{
    if (selectedChannel < 1 || selectedChannel > lastInput) {
        qDebug() << "shouldn't be able to shift click an output track";
        return;
    }
    const QString name = ChannelSelection::selectName(selectedChannel);
    QStringList selected = selectedChannels();
    if (!selected.isEmpty() && selected.last() != name)
        slotConnectSelected(selected.last(), name);
    if (!selected.contains(name))
        setSelectedChannels(selected << name);
}

void FullPowerView::showChannelOf(const QString& selectName)
{
    const int channel = channelOf(selectName);
    channelStripTab->slotSelectChannelStrip(channel);
    copyPasteHandler->slotSetCurrentChannel(channel);
}

void FullPowerView::slotShiftDeSelect(int deselectedChannel)
{
    if (deselectedChannel < 1 || deselectedChannel > lastInput) {
        qDebug() << "shouldn't be able to shift deselect an output track";
        return;
    }
    const QString name = ChannelSelection::selectName(deselectedChannel);
    QStringList selected = selectedChannels();
    const auto place = selected.indexOf(name);
    if (place < 0) {
        showChannelOf(selected.last());
        return;
    }
    if (selected.size() == 1) {
        // At least one channel stays selected.
        selectButton(name)->setChecked(true);
        return;
    }
    selected.removeAt(place);
    setSelectedChannels(selected);
    if (place == 0) {
        slotDisconnectSelected(name, selected.first());
    } else {
        slotDisconnectSelected(selected.at(place - 1), name);
        if (place < selected.size()) {
            slotDisconnectSelected(name, selected.at(place));
            slotConnectSelected(selected.at(place - 1), selected.at(place));
        }
    }
    showChannelOf(selected.last());
}

void FullPowerView::endMultipleSelection()
{
    if (shiftSelectActive || selectedChannels().size() > 1)
        slotDeselectMultiple();
}

void FullPowerView::slotDeselectMultiple()
{
    if (selectedChannels().isEmpty())
        return;
    const QScopedValueRollback<bool> together(shiftSelectActive, true);
    const QString stays = selectedChannels().last();
    for (QPushButton* button : qAsConst(selectButtons)) {
        if (!button->isChecked() || button->objectName() == stays)
            continue;
        // One that is only lit as a stereo partner has no links of its own.
        if (selectedChannels().contains(button->objectName()))
            button->setChecked(false);
        else
            uncheckQuietly(button);
    }
}

QList<Wire> FullPowerView::selectionWires(const QString& older, const QString& newer) const
{
    const int olderChannel = inputOf(older);
    const int newerChannel = inputOf(newer);
    if (olderChannel == 0 || newerChannel == 0 || olderChannel == newerChannel)
        return {};
    QList<Wire> wires;
    const auto link = [&wires](QObject* from, QObject* to, bool isButton) {
        if (from == nullptr || to == nullptr)
            return;
        if (isButton)
            wires.append({from, SIGNAL(toggled(bool)), to, SLOT(setChecked(bool))});
        else
            wires.append({from, SIGNAL(valueChanged(int)), to, SLOT(setValue(int))});
    };
    const QWidget* oldHost = channelStripTab->channelStrips().at(olderChannel - 1)->hostWidget();
    const QWidget* newHost = channelStripTab->channelStrips().at(newerChannel - 1)->hostWidget();
    // Only the newest strip is on screen, so it alone drives the older ones.
    const auto controls = oldHost->findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const QString name = control->objectName();
        const bool isButton = qobject_cast<QToolButton*>(control) != nullptr;
        const bool isDial = qobject_cast<NoWrapDial*>(control) != nullptr
            || qobject_cast<PortableSlider*>(control) != nullptr;
        if ((isButton || isDial) && !name.contains(QLatin1String("_reset"))
            && !name.contains(QLatin1String("trim")))
            link(newHost->findChild<QWidget*>(name), control, isButton);
    }
    // These are on screen for all channels.
    const auto linkBothWays = [&link, olderChannel, newerChannel](
                                  const QWidget* parent, const QString& pattern, bool isButton) {
        auto* one = parent->findChild<QWidget*>(pattern.arg(olderChannel));
        auto* other = parent->findChild<QWidget*>(pattern.arg(newerChannel));
        link(one, other, isButton);
        link(other, one, isButton);
    };
    linkBothWays(reverbTabForm->hostWidget(), QStringLiteral("reverbtab_ch%1_send_level"), false);
    linkBothWays(form.faderGroupBox, QStringLiteral("faderframe_ch%1_fader"), false);
    linkBothWays(form.faderGroupBox, QStringLiteral("faderframe_ch%1_mute"), true);
    linkBothWays(form.faderGroupBox, QStringLiteral("faderframe_ch%1_solo"), true);
    return wires;
}

void FullPowerView::slotConnectSelected(QString lastSelectedButton, QString newlyAddedButton)
{
    for (const Wire& wire : selectionWires(lastSelectedButton, newlyAddedButton))
        wire.connect();
}

void FullPowerView::slotDisconnectSelected(QString lastSelectedButton, QString newlyAddedButton)
{
    for (const Wire& wire : selectionWires(lastSelectedButton, newlyAddedButton))
        wire.disconnect();
}

void FullPowerView::slotSelectChannelViewFromSysex(int selectedChannel)
{
    QPushButton* target = selectButton(selectNameOf(selectedChannel));
    const bool isPhones = target->objectName() == phonesSelectName;
    const bool wasLinked = isPhones && isViewLinkingStored();
    if (wasLinked)
        slotEnableViewChanging(false);
    {
        // Whatever was pressed last here: the mixer selects one channel alone. The target first, or
        // what is unchecked would check itself again.
        const QScopedValueRollback<bool> alone(shiftSelectActive, false);
        if (target->isChecked() && selectedChannels() != QStringList(target->objectName())) {
            selectAlone(target);
            showChannelOf(target->objectName());
        } else {
            target->setChecked(true);
        }
    }
    if (wasLinked)
        slotEnableViewChanging(true);
}

// Pages

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
        emit signalSendTabViewSysex(surroundMode);
    else if (tab == form.channelStripTabButton && selectButton(phonesSelectName)->isChecked())
        emit signalSendTabViewSysex(phonesMode);
    else if (tab == form.reverbTabButton)
        emit signalSendTabViewSysex(reverbMode);
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
    if (tabNum < 0 || tabNum >= static_cast<int>(std::size(tabs)))
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
    set(modeWire(), enabled && isLive());
    set(channelSelectWire(), enabled && isLive());
}

void FullPowerView::slotSetAuxTabLocking(bool locked)
{
    auxTabsLocked = locked;
    QStringList names{mainsSelectName};
    for (int aux = 1; aux <= lastAux - mains; ++aux) {
        for (const char* kind : {"mute", "fader", "fader_level", "select"})
            names.append(QStringLiteral("faderframe_aux%1_%2").arg(aux).arg(QLatin1String(kind)));
    }
    bool wasSelected = false;
    for (const QString& name : qAsConst(names)) {
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
        {
            const QScopedValueRollback<bool> alone(shiftSelectActive, false);
            selectButton(ChannelSelection::selectName(1))->setChecked(true);
        }
        if (!wasOn)
            form.channelStripTabButton->setChecked(false);
        // Also if view linking is off: it has always been so.
        channelSelectWire().connect();
    }
    if (form.reverbTabButton->isChecked())
        form.surroundTabButton->setChecked(true);
}
