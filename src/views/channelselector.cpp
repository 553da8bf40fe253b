#include "channelselector.h"

#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "faderframe.h"
#include "nowrapdial.h"
#include "portableslider.h"
#include "reverbtabform.h"

#include <QDebug>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>

ChannelSelector::ChannelSelector(QObject* parent, const ViewMode& viewMode, FaderFrame* faderFrame,
                                 ChannelStripTab* strips, ReverbTabForm* reverb,
                                 CopyPasteHandler* copyPaste, QPushButton* channelTabButton)
    : QObject(parent)
    , mode(viewMode)
    , faders(faderFrame)
    , channelStripTab(strips)
    , reverbTabForm(reverb)
    , copyPasteHandler(copyPaste)
    , channelTab(channelTabButton)
    , selection(strips->selection())
    , selectButtons(faderFrame->findChildren<QPushButton*>())
{
    const QString first = channels::selectName(1);
    button(first)->setChecked(true);
    selection.set({first});
}

Wire ChannelSelector::toggledWire(QPushButton* select)
{
    return {select, SIGNAL(toggled(bool)), this, SLOT(slotSelectChannelView())};
}

QList<Wire> ChannelSelector::wires()
{
    QList<Wire> toggled;
    for (QPushButton* select : selectButtons)
        toggled.append(toggledWire(select));
    return toggled;
}

QPushButton* ChannelSelector::button(const QString& name) const
{
    const auto found =
        std::find_if(selectButtons.cbegin(), selectButtons.cend(),
                     [&name](const QPushButton* select) { return select->objectName() == name; });
    return found == selectButtons.cend() ? nullptr : *found;
}

bool ChannelSelector::isSelected(int channel) const
{
    return button(channels::selectName(channel))->isChecked();
}

QToolButton* ChannelSelector::stereoButton(int channel) const
{
    return channelStripTab->channelStrips()
        .at(channel - 1)
        ->findChild<QToolButton*>(QStringLiteral("stereo"));
}

QPushButton* ChannelSelector::partnerOf(int channel) const
{
    const int partner = channelStripTab->channelStrips().at(channel - 1)->partnerNumber();
    return button(channels::selectName(partner));
}

bool ChannelSelector::isOutputSelected() const
{
    return std::any_of(selectedChannels().cbegin(), selectedChannels().cend(),
                       [](const QString& name) { return channels::inputOf(name) == 0; });
}

bool ChannelSelector::isSelectingTogether(int channel) const
{
    return shiftSelectActive && channel <= channels::lastInput && !isOutputSelected();
}

void ChannelSelector::select(QObject* pressed)
{
    auto* select = qobject_cast<QPushButton*>(pressed);
    if (select == nullptr)
        return;
    const int channel = channels::numberOf(select->objectName());
    if (select->isChecked()) {
        channelTab->setChecked(true);
        emit signalSelectChannelView(channel);
        // Not before the sync is complete: linked controls would pass on to each other what
        // arrives.
        if (isSelectingTogether(channel) && mode.isLive())
            selectTogether(channel);
        else
            selectAlone(select);
    } else if (isSelectingTogether(channel)) {
        deselect(select, channel);
    } else {
        // A plain click on a selected channel leaves it alone selected.
        select->setChecked(true);
    }
}

void ChannelSelector::checkQuietly(QPushButton* select, bool checked)
{
    const WireCut cut(toggledWire(select));
    select->setChecked(checked);
}

void ChannelSelector::selectAlone(QPushButton* select)
{
    for (QPushButton* other : selectButtons)
        if (other != select)
            checkQuietly(other, false);
    const QStringList before = selectedChannels();
    for (const QString& one : before)
        for (const QString& other : before)
            if (one != other)
                setLinked(one, other, false);
    selection.set({select->objectName()});
}

void ChannelSelector::selectTogether(int channel)
{
    if (stereoButton(channel)->isChecked()) {
        QPushButton* partner = partnerOf(channel);
        if (selectedChannels().contains(partner->objectName()))
            return;
        checkQuietly(partner, true);
    }
    shiftSelect(channel);
}

void ChannelSelector::deselect(QPushButton* select, int channel)
{
    if (!stereoButton(channel)->isChecked()) {
        shiftDeselect(channel);
    } else if (selectedChannels().contains(select->objectName())) {
        // Of a pair one stands in the selection and the other's button is lit with it.
        checkQuietly(partnerOf(channel), false);
        shiftDeselect(channel);
    } else {
        partnerOf(channel)->setChecked(false);
    }
}

void ChannelSelector::selectOnly(int channel)
{
    const QString name = channels::selectName(channel);
    QPushButton* target = button(name);
    const QScopedValueRollback<bool> alone(shiftSelectActive, false);
    // The target first, or what is unchecked would check itself again.
    if (target->isChecked() && selectedChannels() != QStringList(name)) {
        selectAlone(target);
        showChannelOf(name);
    } else {
        target->setChecked(true);
    }
}

void ChannelSelector::shiftSelect(int channel)
{
    if (!channels::isInput(channel)) {
        qDebug() << "shouldn't be able to shift click an output track";
        return;
    }
    const QString name = channels::selectName(channel);
    QStringList selected = selectedChannels();
    if (!selected.isEmpty() && selected.last() != name)
        setLinked(selected.last(), name, true);
    if (!selected.contains(name))
        selection.set(selected << name);
}

void ChannelSelector::showChannelOf(const QString& selectName)
{
    const int channel = channels::numberOf(selectName);
    channelStripTab->slotSelectChannelStrip(channel);
    copyPasteHandler->slotSetCurrentChannel(channel);
}

void ChannelSelector::shiftDeselect(int channel)
{
    if (!channels::isInput(channel)) {
        qDebug() << "shouldn't be able to shift deselect an output track";
        return;
    }
    const QString name = channels::selectName(channel);
    QStringList selected = selectedChannels();
    const auto place = selected.indexOf(name);
    if (place < 0) {
        showChannelOf(selected.last());
        return;
    }
    if (selected.size() == 1) {
        // At least one channel stays selected.
        button(name)->setChecked(true);
        return;
    }
    selected.removeAt(place);
    selection.set(selected);
    if (place == 0) {
        setLinked(name, selected.first(), false);
    } else {
        setLinked(selected.at(place - 1), name, false);
        if (place < selected.size()) {
            setLinked(name, selected.at(place), false);
            setLinked(selected.at(place - 1), selected.at(place), true);
        }
    }
    showChannelOf(selected.last());
}

void ChannelSelector::endMultipleSelection()
{
    if (shiftSelectActive || selectedChannels().size() > 1)
        deselectMultiple();
}

void ChannelSelector::deselectMultiple()
{
    if (selectedChannels().isEmpty())
        return;
    const QScopedValueRollback<bool> together(shiftSelectActive, true);
    const QString stays = selectedChannels().last();
    for (QPushButton* select : selectButtons) {
        if (!select->isChecked() || select->objectName() == stays)
            continue;
        if (selectedChannels().contains(select->objectName())) {
            select->setChecked(false);
        } else {
            // Only lit as a stereo partner: it has no links of its own, but its page may be shown.
            checkQuietly(select, false);
            showChannelOf(stays);
        }
    }
}

QList<Wire> ChannelSelector::links(const QString& older, const QString& newer) const
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
    linkBothWays(faders, QStringLiteral("faderframe_ch%1_fader"), false);
    linkBothWays(faders, QStringLiteral("faderframe_ch%1_mute"), true);
    linkBothWays(faders, QStringLiteral("faderframe_ch%1_solo"), true);
    return wires;
}

void ChannelSelector::setLinked(const QString& older, const QString& newer, bool linked) const
{
    for (const Wire& wire : links(older, newer)) {
        if (linked)
            wire.connect();
        else
            wire.disconnect();
    }
}
