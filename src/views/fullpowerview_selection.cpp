// Which channels are selected, and the links between selected channels.

#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "fullpowerview.h"
#include "nowrapdial.h"
#include "portableslider.h"
#include "reverbtabform.h"

#include <QDebug>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>

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
                       [](const QString& name) { return channels::inputOf(name) == 0; });
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
    return shiftSelectActive && channel <= channels::lastInput && !isOutputSelected();
}

void FullPowerView::slotSelectChannelView()
{
    auto* button = qobject_cast<QPushButton*>(sender());
    if (button == nullptr)
        return;
    const int channel = channels::numberOf(button->objectName());
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
        const QString name = channels::selectName(partner);
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
    QPushButton* partnerButton = selectButton(channels::selectName(partner));
    if (selectedChannels().contains(button->objectName())) {
        uncheckQuietly(partnerButton);
        slotShiftDeSelect(channel);
    } else {
        partnerButton->setChecked(false);
    }
}

void FullPowerView::slotShiftSelect(int selectedChannel)
{
    if (!channels::isInput(selectedChannel)) {
        qDebug() << "shouldn't be able to shift click an output track";
        return;
    }
    const QString name = channels::selectName(selectedChannel);
    QStringList selected = selectedChannels();
    if (!selected.isEmpty() && selected.last() != name)
        slotConnectSelected(selected.last(), name);
    if (!selected.contains(name))
        setSelectedChannels(selected << name);
}

void FullPowerView::showChannelOf(const QString& selectName)
{
    const int channel = channels::numberOf(selectName);
    channelStripTab->slotSelectChannelStrip(channel);
    copyPasteHandler->slotSetCurrentChannel(channel);
}

void FullPowerView::slotShiftDeSelect(int deselectedChannel)
{
    if (!channels::isInput(deselectedChannel)) {
        qDebug() << "shouldn't be able to shift deselect an output track";
        return;
    }
    const QString name = channels::selectName(deselectedChannel);
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
        if (selectedChannels().contains(button->objectName())) {
            button->setChecked(false);
        } else {
            // Only lit as a stereo partner: it has no links of its own, but its page may be shown.
            uncheckQuietly(button);
            showChannelOf(stays);
        }
    }
}

QList<Wire> FullPowerView::selectionWires(const QString& older, const QString& newer) const
{
    const int olderChannel = channels::inputOf(older);
    const int newerChannel = channels::inputOf(newer);
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
    QPushButton* target = selectButton(channels::selectName(selectedChannel));
    const bool isPhones = target->objectName() == channels::selectName(channels::phones);
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
