#include "miditab.h"

#include "choicegroup.h"
#include "panelmap.h"

#include <QEvent>
#include <QLabel>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStyle>
#include <QToolButton>

#include <map>
#include <utility>

namespace
{

constexpr int clashesTold = 3;

// What a sender sends: whether it is a note, and which.
using Message = std::pair<bool, int>;

QString textOf(const Message& message)
{
    return QStringLiteral("%1 %2")
        .arg(message.first ? QStringLiteral("note") : QStringLiteral("CC"))
        .arg(message.second);
}

QString allOf(const QStringList& messages)
{
    const qsizetype more = messages.size() - clashesTold;
    if (messages.isEmpty())
        return {};
    return QStringLiteral("Clash: ") + messages.mid(0, clashesTold).join(QStringLiteral(", "))
        + (more > 0 ? QStringLiteral(" and %1 more").arg(more) : QString());
}

} // namespace

MidiTab::MidiTab(QWidget* parent, GlobalPresetInterface* globals, const QSize& size)
    : GlobalTab(parent, QStringLiteral("MIDI mapping"), globals)
    , form(hostWidget(), size, spokenName())
{
    setObjectName(QStringLiteral("midiTabForm"));
    resize(size);
    addGlobalSendButton(hostWidget(),
                        form.saveCorner
                            - QPoint(globalSendButtonSize.width(), globalSendButtonSize.height()));
    clashTimer.setSingleShot(true);
    connect(&clashTimer, SIGNAL(timeout()), SLOT(slotMarkClashes()));
    adoptTab(form.controlRows, form.buttonRows, {}, {});

    auto* banks = new ChoiceGroup(this, false);
    for (qsizetype index = 0; index < form.bankButtons.size(); ++index)
        banks->addButton(form.bankButtons.at(index), static_cast<int>(index));
    connect(banks, SIGNAL(valueChanged(int)), SLOT(slotShowBank(int)));
    banks->setValue(0);
}

bool MidiTab::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        // Boxes and toggles stand in the coordinates of the map.
        if (const Control* control = controlOf(watched); control != nullptr)
            form.map->light(static_cast<QWidget*>(watched)->geometry().center());
    } else if (event->type() == QEvent::FocusOut) {
        form.map->lightNone();
    }
    return GlobalTab::eventFilter(watched, event);
}

void MidiTab::slotReceiveMidiParams(QString key, int value)
{
    receive(key, key.contains(QLatin1String("channel")) ? value + 1 : value);
}

void MidiTab::slotShowBank(int index)
{
    if (index < 0 || index >= form.pages->count())
        return;
    form.pages->setCurrentIndex(index);
    slotMarkClashes();
}

void MidiTab::showOwnState(const Control& control)
{
    const auto* widget = static_cast<const QWidget*>(control.object);
    if (widget->parentWidget() == form.pages->currentWidget() && !clashTimer.isActive())
        clashTimer.start(0);
}

QSpinBox* MidiTab::boxOf(const MidiForm::Sender& sender) const
{
    const QString key = sender.pattern.arg(form.pages->currentIndex() + 1);
    return static_cast<QSpinBox*>(controlNamed(key)->object);
}

void MidiTab::slotMarkClashes()
{
    clashTimer.stop();
    std::map<Message, QStringList> sent;
    const auto messageOf = [this](const MidiForm::Sender& sender) {
        return Message(sender.isNote, boxOf(sender)->value());
    };
    for (const MidiForm::Sender& sender : std::as_const(form.senders))
        sent[messageOf(sender)].append(sender.spoken);

    QStringList clashes;
    for (const auto& [message, names] : sent)
        if (names.size() > 1)
            clashes.append(textOf(message));
    form.clashes->setText(allOf(clashes));

    for (const MidiForm::Sender& sender : std::as_const(form.senders)) {
        const Message message = messageOf(sender);
        QStringList others = sent.at(message);
        others.removeOne(sender.spoken);
        mark(sender,
             others.isEmpty() ? QString()
                              : QStringLiteral("Clash: %1 is sent by %2 too.")
                                    .arg(textOf(message), others.join(QStringLiteral(", "))));
    }
}

void MidiTab::mark(const MidiForm::Sender& sender, const QString& clash)
{
    QSpinBox* box = boxOf(sender);
    if (box->accessibleDescription() == clash)
        return;
    const bool wasMarked = !box->accessibleDescription().isEmpty();
    box->setAccessibleDescription(clash);
    const QString& toolTip = controlOf(box)->row->toolTip;
    box->setToolTip(clash.isEmpty() ? toolTip : toolTip + QLatin1Char('\n') + clash);
    if (wasMarked == !clash.isEmpty())
        return;
    box->setProperty("clash", !wasMarked);
    box->style()->unpolish(box);
    box->style()->polish(box);
}
