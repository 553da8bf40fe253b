// soak MINUTES [SEED]: a random run. Rounds of what the user and the mixer's panel do, with unplugs
// in between and in the midst; after each round all has to agree.
#include "agreement.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <functional>

namespace
{

constexpr int actionsOfARound = 10;
constexpr int mostPresets = 18;
const QString setlistLetters = "ABCDEFGHIJKL";
const QString versionReply = "raw f000015f2300000000010205f7";

void print(const QString& text)
{
    std::fputs(qPrintable(text), stdout);
    std::fflush(stdout);
}

// Of all that is said of the work only wires that could not be made are of interest here.
void handleMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type != QtFatalMsg && !text.startsWith("QObject::"))
        return;
    print(text + '\n');
    std::abort();
}

} // namespace

class Soak : public QObject, Agreement
{
    Q_OBJECT

    struct Failure {
        QString reason;
    };
    struct Action {
        QString name;
        int weight;
        std::function<void()> run;
    };

    QRandomGenerator random;
    QList<Action> deck; // each as many times as its weight
    QMap<QString, int> tally;
    int mouseTime = 0;
    // What the simulator is told when so many parameters have passed.
    QString ambush;
    int ambushIn = 0;

public:
    explicit Soak(quint32 seed)
        : random(seed)
    {
    }

    bool run(int minutes)
    {
        bool agrees = start();
        int rounds = 0;
        const QDeadlineTimer end(minutes * 60000LL);
        for (; agrees && !end.hasExpired(); ++rounds)
            agrees = runRound(rounds + 1);
        QStringList counts;
        for (auto action = tally.cbegin(); action != tally.cend(); ++action)
            counts.append(QString("%1 %2").arg(action.key()).arg(*action));
        print(QString("%1 rounds, %2; %3\n")
                  .arg(rounds)
                  .arg(counts.join(", "), agrees ? "no disagreement" : "FAILED"));
        leaveFolder();
        return agrees;
    }

private slots:
    void slotParameterPassed()
    {
        if (!ambush.isEmpty() && --ambushIn == 0)
            simulator->tell(ambush.toLatin1());
    }

private:
    // Chance

    int below(int limit) { return random.bounded(limit); }
    bool chance(int percent) { return below(100) < percent; }
    template <class List> auto anyOf(const List& from)
    {
        require(!from.isEmpty(), "there is nothing to choose from");
        return from[below(int(from.size()))];
    }
    int anyRowToMove() { return 1 + below(list()->count() - 1); }

    // Rounds

    bool start()
    {
        if (!enterFolder(RESOURCES, SIMULATOR) || !simulator->command("randomise 1"))
            return false;
        openWindow();
        QSettings().setValue("view_linking_enable", chance(50));
        for (const char* signal : {SIGNAL(signalReceiveMainwindowPresetParams(QString, int)),
                                   SIGNAL(signalReceiveChannelStripParams(QString, int)),
                                   SIGNAL(signalReceiveReverbParams(QString, int))})
            connect(window->sysex(), signal, SLOT(slotParameterPassed()));
        connect(window->presets(), SIGNAL(signalSendPresetParameter(QString, int)),
                SLOT(slotParameterPassed()));
        return plug();
    }

    bool runRound(int number)
    {
        print(QString("round %1:").arg(number));
        QStringList wrong;
        try {
            for (int count = 0; count < actionsOfARound; ++count)
                act();
            waitForAutosave();
            wrong = disagreements();
        } catch (const Failure& failure) {
            wrong = {failure.reason};
        }
        print(wrong.isEmpty() ? QString("\n") : "\n  " + wrong.join("\n  ") + '\n');
        return wrong.isEmpty();
    }

    void act()
    {
        if (deck.isEmpty())
            for (const Action& action : allActions())
                deck.append(QList<Action>(action.weight, action));
        const Action action = list()->count() > mostPresets ? deck.first() : anyOf(deck);
        print(' ' + action.name + ',');
        ++tally[action.name];
        if (chance(25)) {
            ambush = anyOf(QStringList{"unplug", "unplug", "sync", "mode 5", "channel 9",
                                       versionReply, parameterChange(), parameterChange()});
            ambushIn = 1 + below(2 * presetSize);
        }
        action.run();
        QCoreApplication::processEvents();
        finishAmbush();
        settle();
        require(window->fullPower()->isVisible(), "the full-power face is not shown");
    }

    void finishAmbush()
    {
        const QString told = ambushIn > 0 ? QString() : ambush;
        ambush.clear();
        if (told.isEmpty())
            return;
        print(" (" + told + "),");
        ++tally["in the midst"];
        require(simulator->hasAnswered(), "the simulator does not answer");
        if (told.startsWith("set "))
            crossed.insert(told.section(' ', 1, 1));
        if (told == "unplug")
            replug();
    }

    // Nothing is under way any more, either way. What waited for a flow's end may send once more.
    void settle()
    {
        for (int times = 0; times < 2; ++times) {
            simulator->mark();
            QSignalSpy heard(window->sysex(), SIGNAL(signalReceiveSysexForHUI(uchar*)));
            require(rests(), "the progress box stays open");
            require(arrived(), "what the editor sends does not arrive");
            command("hui 16 0 1"); // nothing comes of it
            require(QTest::qWaitFor([&] { return !heard.isEmpty(); }, patienceMs),
                    "what the mixer sends does not arrive");
            QCoreApplication::processEvents();
        }
    }

    void replug()
    {
        require(QTest::qWaitFor([this] { return !window->sysex()->isConnected(); }, patienceMs),
                "the editor does not see that the mixer is gone");
        require(plug(), "the mixer's live memory does not arrive");
    }

    static void require(bool fulfilled, const QString& otherwise)
    {
        if (!fulfilled)
            throw Failure{otherwise};
    }

    // The panel

    void command(const QString& line) { require(simulator->command(line.toLatin1()), line); }

    QString parameterChange()
    {
        QString key = anyOf(current().keys());
        // For one of several selected channels it is told that the next ones' controls follow, and
        // not their stored values. So the panel moves none of these but the last.
        QStringList selected = window->fullPower()->selectedChannels();
        selected.removeLast();
        const QString select = QString("faderframe_%1_select").arg(key.section('_', 1, 1));
        if (key.startsWith("channelstrip_") && selected.contains(select))
            key = "reverbtab_damping";
        const auto* slider = qobject_cast<QAbstractSlider*>(control(key));
        return QString("set %1 %2")
            .arg(key)
            .arg(slider ? random.bounded(slider->minimum(), slider->maximum() + 1) : below(2));
    }

    // The user: presses as from the system

    // Pressed at the first place, let go at the last. Where an unplug has hidden it, nothing.
    void press(QWidget* widget, const QList<QPoint>& path, Qt::KeyboardModifiers keys = {})
    {
        const auto deliver = [&](QEvent::Type type, QPoint place, Qt::MouseButton held,
                                 Qt::MouseButton button) {
            const QPoint local = widget->mapTo(window.get(), place);
            qt_handleMouseEvent(window->windowHandle(), local, window->mapToGlobal(local), held,
                                button, type, keys, ++mouseTime);
        };
        if (!widget->isVisible())
            return;
        mouseTime += 1000; // no double click
        deliver(QEvent::MouseButtonPress, path.first(), Qt::LeftButton, Qt::LeftButton);
        for (const QPoint& place : path.mid(1))
            deliver(QEvent::MouseMove, place, Qt::LeftButton, Qt::NoButton);
        deliver(QEvent::MouseButtonRelease, path.last(), Qt::NoButton, Qt::LeftButton);
    }
    void press(QWidget* button, Qt::KeyboardModifiers keys = {})
    {
        press(button, {button->rect().center()}, keys);
    }
    void pressRow()
    {
        const QListWidgetItem* item = list()->item(below(list()->count()));
        list()->scrollToItem(item);
        press(list()->viewport(), {list()->visualItemRect(item).center()});
    }

    // Names what the dialog asks for. Where an unplug has closed it, nothing is done.
    void answer(const QString& dialog, const QString& button)
    {
        if (view(dialog)->isHidden())
            return;
        if (auto* edit = view(dialog)->findChild<QLineEdit*>(); edit != nullptr)
            edit->setText(QString("Song %1").arg(below(6)));
        press(view(dialog)->findChild<QWidget*>(button));
        require(rests(), "the progress box stays open");
    }
    void ask(const QString& opener, const QString& dialog, const QString& button)
    {
        press(view(opener));
        answer(dialog, button);
    }

    // Of those that are on screen: dials, faders, number boxes, buttons that stay down, resets.
    QWidget* anyControl()
    {
        QList<QWidget*> controls;
        for (QWidget* part : {view("frame"), view("faderGroupBox")}) {
            for (QWidget* widget : part->findChildren<QWidget*>()) {
                const auto* button = qobject_cast<QAbstractButton*>(widget);
                const bool isControl = button != nullptr
                    ? button->isCheckable() || button->objectName().endsWith("_reset")
                    : qobject_cast<QAbstractSlider*>(widget)
                        || qobject_cast<QAbstractSpinBox*>(widget);
                if (isControl && widget->isVisible() && widget->isEnabled()
                    && widget != view("showPreset"))
                    controls.append(widget);
            }
        }
        return anyOf(controls);
    }

    void touch()
    {
        QWidget* widget = anyControl();
        const QPoint centre = widget->rect().center();
        if (qobject_cast<QAbstractSlider*>(widget) != nullptr)
            press(widget, {centre, centre + QPoint(below(81) - 40, below(81) - 40)});
        else
            press(widget, chance(40) ? Qt::ShiftModifier : Qt::NoModifier);
        if (qobject_cast<QAbstractSpinBox*>(widget) != nullptr)
            QTest::keyClicks(widget, QString("%1\r").arg((below(2000) - 1000) / 10.0));
    }

    void sendSlots(const QString& letters, QWidget* button)
    {
        for (const QChar letter : letters)
            mayBeSaved.insert(inSlot(letter));
        const bool isEnabled = button->isEnabled();
        press(button);
        for (const QChar letter : letters) {
            sent.remove(letter);
            const Values values = saved(inSlot(letter));
            if (isEnabled && !values.isEmpty() && (ambushIn > 0 || ambush != "unplug"))
                sent[letter] = values;
        }
    }

    // The first one is taken when there are too many presets.
    QList<Action> allActions()
    {
        const auto words = [](const char* list) { return QString(list).split(", "); };
        const QStringList pages = words("mode 0, mode 1, mode 2, mode 5, mode 11, mode 13, sync, "
                                        "channel 1, channel 2, channel 5, channel 9, channel 13")
            << versionReply;
        const QStringList edits =
            words("Copy Preset, Paste Preset, Paste Preset to New, Copy Channel, Paste Channel, "
                  "Paste Channel, Auto Populate Setlist, Reset Preset to Default");
        return {
            {"delete", 3,
             [this] {
                 if (list()->count() < 4)
                     return;
                 list()->setCurrentRow(anyRowToMove());
                 ask("deletepreset", "deleteDialogForm", "delete_2");
             }},
            {"touch", 40, [this] { touch(); }},
            {"panel", 20, [this] { command(parameterChange()); }},
            {"page", 6, [=, this] { command(anyOf(pages)); }},
            {"panel preset", 3,
             [this] {
                 const QString slot = QString("slot ") + anyOf(setlistLetters);
                 command(QString("%1 randomise %2").arg(slot).arg(below(1000)));
                 command(slot + " recall");
                 sent.remove(slot.back());
             }},
            {"recall", 10, [this] { pressRow(); }},
            {"quick recalls", 6,
             [this] {
                 QWidget* then = anyControl();
                 QTimer::singleShot(0, this, [this] { pressRow(); }); // in the first one's events
                 pressRow();
                 press(then);
             }},
            {"edit menu", 8,
             [=, this] {
                 const QString title = anyOf(edits);
                 for (QAction* action : window->findChildren<QAction*>())
                     if (action->text() == title)
                         action->trigger(); // a disabled one does nothing
             }},
            {"save", 4,
             [this] {
                 mayBeSaved.insert(list()->currentItem()->text());
                 press(view("save"));
             }},
            {"save as", 2, [this] { ask("saveas", "saveAsDialogForm", "save"); }},
            {"revert", 3, [this] { press(view("revert")); }},
            {"rename", 2,
             [this] {
                 window->fullPower()->slotCheckToAllowRename(list()->currentItem());
                 answer("renameDialogForm", "rename");
             }},
            {"reorder", 2,
             [this] {
                 if (list()->model()->moveRow({}, anyRowToMove(), {}, anyRowToMove()))
                     emit list()->signalReorderPresets();
             }},
            {"setlist", 4,
             [this] {
                 auto* menu = view<QComboBox>(QString("setlist") + anyOf(setlistLetters));
                 menu->setCurrentIndex(below(menu->count()));
             }},
            {"send", 5,
             [this] {
                 const QString letter = anyOf(setlistLetters);
                 sendSlots(letter, view("send" + letter));
             }},
            {"send all", 1, [this] { sendSlots(setlistLetters, view("send_all")); }},
            {"receive", 5,
             [this] {
                 view<QRadioButton>(chance(50) ? "toNew" : "toSetlistSlot")->setChecked(true);
                 ask(QString("receive") + anyOf(setlistLetters), "receivePresetDialogForm",
                     "receive");
                 answer("receiveAsDialogForm", "receive");
             }},
            {"receive all", 1, [this] { ask("receive_all", "receiveAllDialogForm", "receive"); }},
            {"unplug", 2,
             [this] {
                 ambush.clear();
                 command("unplug");
                 replug();
             }},
        };
    }
};

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList words = application.arguments();
    const int minutes = words.value(1).toInt();
    if (minutes < 1 || words.size() > 3) {
        print("usage: soak MINUTES [SEED]\n");
        return 64;
    }
    qInstallMessageHandler(handleMessage);
    const quint32 seed =
        words.size() > 2 ? words[2].toUInt() : QRandomGenerator::global()->bounded(1000000000U);
    print(QString("seed %1\n").arg(seed));
    return Soak(seed).run(minutes) ? 0 : 1;
}

#include "soak.moc"
