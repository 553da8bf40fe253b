#include "editorrig.h"
#include "globalpresetinterface.h"
#include "miditab.h"
#include "parametertable.h"
#include "surroundtab.h"
#include "testcase.h"
#include "usbtab.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>

// The global settings between their pages, the settings dialog and the mixer, over the system's
// MIDI. Starting takes longest, so it is one process, in which a step begins where the last one
// ended.
class TestGlobals : public TestCase, EditorRig
{
    Q_OBJECT

    static constexpr int globalSize = 208;
    const QString globalSent = QStringLiteral("^from host .* (global|map) ");

    QWidget* settings() { return window->findChild<QWidget*>("settingsDialogForm"); }
    QAction* action(const QString& text)
    {
        for (QAction* each : window->findChildren<QAction*>())
            if (each->text() == text)
                return each;
        return nullptr;
    }

    // What the store holds, and what the controls show.
    Values held() { return valuesOf(window->globals()->document()["Global"].toMap()); }
    Values onScreen()
    {
        Values values;
        for (const Parameter& parameter : parametertable::globals())
            values[parameter.key] = value(parameter.key);
        return values;
    }
    // Not that of the parked face, which has a mapping's page too.
    QWidget* ofKey(const QString& key)
    {
        auto* onPage = view(key);
        return onPage != nullptr ? onPage : settings()->findChild<QWidget*>(key);
    }
    static void press(QWidget* button) { qobject_cast<QAbstractButton*>(button)->click(); }
    static int isDown(const QWidget* button)
    {
        return qobject_cast<const QAbstractButton*>(button)->isChecked();
    }
    int value(const QString& key)
    {
        const auto* widget = ofKey(key);
        if (const auto* box = qobject_cast<const QSpinBox*>(widget))
            return box->value();
        const auto* choice = widget->findChild<QButtonGroup*>();
        return choice ? choice->checkedId() : isDown(widget);
    }
    void setByHand(const QString& key, int to)
    {
        auto* widget = ofKey(key);
        if (auto* box = qobject_cast<QSpinBox*>(widget))
            box->setValue(to);
        else if (const auto* choice = widget->findChild<QButtonGroup*>())
            choice->button(to)->click();
        else if (value(key) != to)
            press(widget);
    }
    // A page's own button, whose message is the last of what the page has sent.
    bool saves(QWidget* page)
    {
        const QString save = "^from host .* save globals to flash";
        const int before = simulator->count(save);
        press(page->findChild<QWidget*>("globalSendButton"));
        return simulator->waitFor(save, before + 1);
    }
    // Each value was sent once, and nothing moved mixer or view.
    void checkSentWhole()
    {
        QVERIFY(simulator->waitFor(globalSent, globalSize));
        QVERIFY(saves(settings()));
        QCOMPARE(simulator->count(globalSent), globalSize);
        const QRegularExpression moves(R"(^from host .*\| (mode|channel) \d)");
        QCOMPARE(simulator->linesSinceMark().filter(moves).join("; "), QString());
        checkAgreement();
    }
    void checkAgreement()
    {
        const Values mixers = mixer("global");
        QCOMPARE(differences(mixers, held(), globalSize), QString());
        QCOMPARE(differences(mixers, onScreen(), globalSize), QString());
    }
    QString closeBox()
    {
        QString text;
        for (auto* box : window->findChildren<QMessageBox*>()) {
            text += box->text();
            delete box;
        }
        return text;
    }
    bool choose(const QString& path)
    {
        auto* chooser = window->findChild<QFileDialog*>();
        if (chooser == nullptr)
            return false;
        chooser->findChild<QLineEdit*>("fileNameEdit")->setText(QDir::current().filePath(path));
        static_cast<QDialog*>(chooser)->accept();
        return QTest::qWaitFor([this] { return window->findChild<QMessageBox*>() != nullptr; },
                               patienceMs);
    }
    // Of both channels: the dialog's button, the strip's, and what the store and the mixer hold.
    QString phantom()
    {
        const Values mixers = mixer("global");
        QString states;
        for (const char* channel : {"ch1", "ch2"}) {
            const QString key = channel + QString("_phantom");
            const auto* strip = control(QString("channelstrip_%1_phantom").arg(channel));
            states += QString(" %1%2%3%4")
                          .arg(value(key))
                          .arg(isDown(strip))
                          .arg(held()[key])
                          .arg(mixers[key]);
        }
        return states.trimmed();
    }

private slots:
    void cleanup() { leaveFolder(); }

    void globals()
    {
        QVERIFY(enterFolder(RESOURCES, SIMULATOR));
        openWindow();
        QSettings().setValue("view_linking_enable", true);
        QVERIFY(plug());
        for (const auto step :
             {&TestGlobals::clear, &TestGlobals::everyPage, &TestGlobals::fromTheMixer,
              &TestGlobals::import, &TestGlobals::phantomFromAllSides,
              &TestGlobals::unplugUnderAChooser}) {
            (this->*step)();
            if (QTest::currentTestFailed())
                return;
        }
    }

private:
    void clear()
    {
        QVERIFY(simulator->command("global led_brightness 5"));
        QTRY_COMPARE_WITH_TIMEOUT(value("led_brightness"), 5, patienceMs);
        simulator->mark();
        action("Reset Globals to Default")->trigger();
        QVERIFY(!closeBox().isEmpty());
        checkSentWhole();
    }

    void everyPage()
    {
        action("Preferences...")->trigger();
        for (QWidget* page :
             {settings(), static_cast<QWidget*>(view<SurroundTab>({})),
              static_cast<QWidget*>(view<MidiTab>({})), static_cast<QWidget*>(view<UsbTab>({}))}) {
            for (const Parameter& parameter : parametertable::globals())
                if (page->isAncestorOf(ofKey(parameter.key)))
                    setByHand(parameter.key,
                              parameter.factoryValue == parameter.highest ? parameter.lowest
                                                                          : parameter.highest);
            QVERIFY(saves(page));
            checkAgreement();
            QCOMPARE(differences(mixer("flash"), held(), globalSize), QString());
        }
        for (const Parameter& parameter : parametertable::globals())
            QVERIFY2(value(parameter.key) != parameter.factoryValue, qPrintable(parameter.key));
        press(settings()->findChild<QWidget*>("close_button"));
    }

    void fromTheMixer()
    {
        simulator->mark();
        for (const Parameter& parameter : parametertable::globals()) {
            const QString kind = parameter.key.startsWith("miditab_") ? "map" : "global";
            const int to = (parameter.lowest + parameter.highest) / 2;
            simulator->tell(QString("%1 %2 %3").arg(kind, parameter.key).arg(to).toLatin1());
        }
        QVERIFY(simulator->hasAnswered());
        QTRY_COMPARE_WITH_TIMEOUT(differences(mixer("global"), held(), globalSize), QString(),
                                  patienceMs);
        simulator->mark();
        QVERIFY(saves(settings()));
        QCOMPARE(simulator->count(globalSent), 0);
        checkAgreement();
    }

    // The file in which the clear kept what was there.
    void import()
    {
        simulator->mark();
        action("Import Global Mappings")->trigger();
        QVERIFY(choose("resources/presets/backups/before-import.jsumglobalmap"));
        QVERIFY(closeBox().startsWith("The global mappings are now those of"));
        checkSentWhole();
        QCOMPARE(value("led_brightness"), 5);
        // View and panel are linked again.
        QVERIFY(simulator->command("channel 3"));
        QTRY_VERIFY_WITH_TIMEOUT(isDown(view("faderframe_ch3_select")), patienceMs);
        press(view("faderframe_ch4_select"));
        QVERIFY(simulator->waitFor(R"(^from host .*\| channel 4)"));
    }

    // With both strips selected only a press on a strip moves both.
    void phantomFromAllSides()
    {
        press(view("faderframe_ch1_select"));
        QTest::mouseClick(view("faderframe_ch2_select"), Qt::LeftButton, Qt::ShiftModifier);
        const struct {
            std::function<void()> act;
            QString states;
            int messages;
        } rows[]{
            {[&] { press(control("channelstrip_ch2_phantom")); }, "1111 1111", 2},
            {[&] { press(ofKey("ch1_phantom")); }, "0000 1111", 1},
            {[&] { simulator->command("global ch2_phantom 0"); }, "0000 0000", 0},
            {[&] { simulator->command("global ch1_phantom 1"); }, "1111 0000", 0},
            {[&] { window->globals()->slotRecallGlobal(); }, "1111 0000", 0},
        };
        for (const auto& row : rows) {
            simulator->mark();
            row.act();
            QVERIFY(saves(settings()));
            const int messages = simulator->count(globalSent);
            QTRY_COMPARE_WITH_TIMEOUT(phantom(), row.states, patienceMs);
            QCOMPARE(messages, row.messages);
        }
        QVERIFY(simulator->command("global phantom_voltage 0"));
        QTRY_COMPARE_WITH_TIMEOUT(
            qobject_cast<QAbstractButton*>(control("channelstrip_ch2_phantom"))->text(),
            QString("12v"), patienceMs);
    }

    void unplugUnderAChooser()
    {
        const Values before = held();
        action("Import Global Mappings")->trigger();
        QVERIFY(simulator->command("unplug"));
        QTRY_VERIFY_WITH_TIMEOUT(!window->sysex()->isConnected(), patienceMs);
        QVERIFY(choose("resources/presets/backups/before-import.jsumglobalmap"));
        QVERIFY(closeBox().startsWith("Nothing was imported"));
        QVERIFY(plug());
        QCOMPARE(differences(before, held(), globalSize), QString());
        checkAgreement();
        while (window->globals()->globalSaveTimer->isActive())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCOMPARE(
            differences(before, valuesOf(document("global.json")["Global"].toMap()), globalSize),
            QString());
    }
};

QTEST_MAIN(TestGlobals)
#include "tst_globals.moc"
