#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "windowtest.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>

class TestSettings : public WindowTest
{
    Q_OBJECT

    const QStringList all = mixerPorts + QStringList{"loopMIDI Port", "loopMIDI Port 1"};

    void prepare() override
    {
        WindowTest::prepare();
        QDir().mkpath("resources/presets");
        const QString shipped = JSUM_SOURCE_DIR "/resources/";
        QFile::link(shipped + "tables", "resources/tables");
        for (const QString name : {"Blank.jsumglobalmap", "jsum.json", "global.json"})
            QFile::copy(shipped + "presets/" + name, "resources/presets/" + name);
        open();
    }
    void enter(const QStringList& names)
    {
        plug(names);
        window->sysex()->slotDidAttemptFwUpdate();
        hear("00000000010a03");
    }
    void enter() { enter(all); }
    // Up to the end of the sync.
    void start()
    {
        enter();
        hear("0a0c0101");
        sent();
    }
    // Global parameters, as they stand on the wire behind the type.
    QStringList sent()
    {
        QStringList messages;
        for (const QByteArray& bytes : ports->sentBytes())
            if (bytes.size() > 5 && bytes.at(5) == 3)
                messages << bytes.mid(5, 7).toHex();
        ports->sent.clear();
        return messages;
    }
    QVariantMap stored() const { return window->globals()->document().value("Global").toMap(); }
    template <class Widget> Widget* at(const QString& name) const
    {
        return window->findChild<QWidget*>("settingsDialogForm")->findChild<Widget*>(name);
    }
    QToolButton* strip(int channel) const
    {
        return window->findChild<QWidget*>(QString("channelstrip_ch%1").arg(channel))
            ->findChild<QToolButton*>("phantom");
    }
    QString boxText() const
    {
        const auto* box = window->findChild<QMessageBox*>();
        return box != nullptr ? box->text() + box->informativeText() : QString();
    }
    void closeBoxes() const
    {
        for (QMessageBox* box : window->findChildren<QMessageBox*>())
            delete box;
    }
    // What the button and the strip of a channel show, and the file's map holds.
    QString phantom(int channel) const
    {
        const QString key = QString("ch%1_phantom").arg(channel);
        const auto* button = at<QToolButton>(key);
        return QString("%1%2%3 %4 %5")
            .arg(button->isChecked())
            .arg(strip(channel)->isChecked())
            .arg(stored().value(key).toInt())
            .arg(button->text(), strip(channel)->text());
    }

private slots:
    // What is moved, what goes out, and what is stored; the same heard back is shown and not sent.
    void eachControlBothWays_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        const struct {
            const char* name;
            int value;
            const char* message;
            const char* key;
            const char* text;
        } rows[]{
            {"ch3_line_phono", 0, "03060300270000", "ch3_line_phono", "Ch #3 Phono"},
            {"ch8_line_phono", 0, "03060800270000", "ch8_line_phono", "Ch #8 Phono"},
            {"hardware_limiter", 1, "03060000340001", "hardware_limiter", "ON"},
            {"mode_backlighting_enable", 0, "03060000350000", "mode_backlighting_enable", "OFF"},
            {"tone_gen_enable", 1, "03060000370001", "tone_gen_enable", "ON"},
            {"pass_thru_width", 1, "030600003c0001", "pass_thru_width", "ON"},
            {"pass_thru_rotaries", 1, "03060000440001", "pass_thru_rotaries", "ON"},
            {"expander_control", 1, "03060000450001", "expander_control", "ON"},
            {"phantom_voltage_12", 0, "030600003f0000", "phantom_voltage", " +12V"},
            {"phones_impedance_2", 2, "03060d00420002", "phones_impedance", "HIGH"},
            {"led_brightness", 31, "0306000036001f", "led_brightness", "31"},
            {"tone_gen_freq", 16000, "03060000387d00", "tone_gen_freq", "16000 Hz"},
        };
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.name << row.value << row.message << row.key << row.text;
    }
    void eachControlBothWays()
    {
        QFETCH(QString, name);
        QFETCH(int, value);
        QFETCH(QString, message);
        QFETCH(QString, key);
        QFETCH(QString, text);
        start();
        QSignalSpy stores(window.get(), SIGNAL(signalStoreGlobal(QString, QVariant)));
        auto* box = at<QSpinBox>(name);
        if (box != nullptr)
            box->setValue(value);
        else
            at<QAbstractButton>(name)->click();
        QCOMPARE(sent(), QStringList(message));
        QCOMPARE(stores.size(), 1);
        QCOMPARE(stores.first().at(0).toString(), key);
        QCOMPARE(stored().value(key), QVariant(value));
        QCOMPARE(box != nullptr ? box->text() : at<QAbstractButton>(name)->text(), text);
        // A recall of the factory's, silently; then the mixer says it.
        window->slotRecallGlobal({});
        QCOMPARE(stores.size(), 1);
        hear(message.toLatin1().constData());
        QCOMPARE(box != nullptr ? box->text() : at<QAbstractButton>(name)->text(), text);
        QVERIFY(box != nullptr ? box->value() == value
                               : at<QAbstractButton>(name)->isChecked() == (value != 0)
                        || name.endsWith("_12"));
        QCOMPARE(stores.size(), 2);
        QCOMPARE(sent(), QStringList());
        QVERIFY(window->globals()->globalSaveTimer->isActive());
    }

    // One value, two buttons, four sides.
    void phantomPowerOnBothButtons()
    {
        start();
        at<QToolButton>("ch1_phantom")->click();
        QCOMPARE(phantom(1), "111 ON 48v");
        QCOMPARE(sent(), QStringList("030601003e0001"));
        strip(1)->click();
        QCOMPARE(phantom(1), "000 OFF 48v");
        QCOMPARE(sent(), QStringList("030601003e0000"));
        strip(2)->click();
        QCOMPARE(phantom(2), "111 ON 48v");
        QCOMPARE(sent(), QStringList("030602003e0001"));
        // The press that follows counts.
        at<QToolButton>("ch2_phantom")->click();
        QCOMPARE(phantom(2), "000 OFF 48v");
        QCOMPARE(sent(), QStringList("030602003e0000"));
        hear("030602003e0001");
        QCOMPARE(phantom(2), "111 ON 48v");
        at<QRadioButton>("phantom_voltage_12")->click();
        QCOMPARE(phantom(2), "111 ON 12v");
        QCOMPARE(sent(), QStringList("030600003f0000"));
        hear("030600003f0001");
        QCOMPARE(phantom(1), "000 OFF 48v");
        hear("030600003f0005"); // there is no such voltage
        QCOMPARE(stored().value("phantom_voltage"), QVariant(1));
        window->slotRecallGlobal({{"ch1_phantom", 1}});
        QVERIFY(at<QToolButton>("ch1_phantom")->isChecked());
        QCOMPARE(sent(), QStringList());
        // Of channels that are selected together the press on a strip moves both, a press here one.
        window->globals()->slotRecallGlobal();
        QTest::mouseClick(window->findChild<QWidget*>("faderframe_ch2_select"), Qt::LeftButton,
                          Qt::ShiftModifier);
        at<QToolButton>("ch2_phantom")->click();
        QCOMPARE(sent(), QStringList("030602003e0000"));
        QCOMPARE(phantom(1) + phantom(2), "000 OFF 48v000 OFF 48v");
        strip(2)->click();
        QCOMPARE(phantom(1) + phantom(2), "111 ON 48v111 ON 48v");
        QCOMPARE(sent().size(), 2);
    }

    void nothingIsSentBeforeTheSync()
    {
        enter();
        sent();
        QVERIFY(!at<QToolButton>("hardware_limiter")->isEnabled());
        QVERIFY(!at<QPushButton>("globalSendButton")->isEnabled());
        at<QToolButton>("hardware_limiter")->click();
        action("Reset Globals to Default")->trigger();
        QCOMPARE(sent(), QStringList());
        hear("0a0c0101");
        const QStringList globals = sent();
        QCOMPARE(globals.size(), 208);
        QCOMPARE(globals.first(), "030600003f0001");
        ports->sent.clear();
        at<QPushButton>("globalSendButton")->click();
        QCOMPARE(ports->sentBytes().size(), 1);
    }

    // And what was there is kept in a file.
    void aClearReachesTheMixer()
    {
        start();
        at<QSpinBox>("led_brightness")->setValue(3);
        at<QToolButton>("view_linking_enable")->click();
        sent();
        action("Reset Globals to Default")->trigger();
        QCOMPARE(at<QSpinBox>("led_brightness")->value(), 16);
        QCOMPARE(ports->sentBytes().size(), 208); // the mixer's panel stays as it is
        QCOMPARE(sent().size(), 208);
        QTRY_VERIFY(!boxText().isEmpty());
        QVERIFY(QFile::exists("resources/presets/backups/before-import.jsumglobalmap"));
        closeBoxes();
    }

    // Free in a demo, and as it is stored afterwards.
    void demo()
    {
        QSettings().setValue("hui", true);
        window->slotEnterDemoMode();
        window->findChild<QWidget*>("demoDialogForm")->findChild<QPushButton*>("ok")->click();
        QVERIFY(at<QToolButton>("hardware_limiter")->isEnabled());
        at<QToolButton>("hardware_limiter")->click();
        QCOMPARE(at<QToolButton>("hardware_limiter")->text(), "ON");
        QVERIFY(at<QToolButton>("hui")->isChecked() && !at<QToolButton>("hui")->isEnabled());
        QVERIFY(QSettings().value("hui").toBool());
        enter();
        QCOMPARE(at<QToolButton>("hardware_limiter")->text(), "OFF");
    }

    void usbAudio()
    {
        QFile tool("resources/dfucons.exe");
        QVERIFY(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n"
                   "echo \"$@\" >> calls\n"
                   "case $1 in getaudiosettings)\n"
                   "printf 'Current SampleRate: 96000\\r\\nMinimum BufferSize: 300\\r\\n';;\n"
                   "setbuffersize) exit 3;; esac\n");
        tool.close();
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        const auto* rate = at<QComboBox>("usb_sample_rate");
        QCOMPARE(rate->currentIndex(), -1);
        start();
        action("Preferences...")->trigger();
        QTRY_COMPARE(rate->currentText(), "96000");
        QTRY_COMPARE(at<QComboBox>("usb_buffer")->currentText(), "300");
        at<QComboBox>("usb_sample_rate")->setCurrentText("44100");
        QTRY_COMPARE(rate->currentText(), "96000"); // as the driver says
        at<QComboBox>("usb_buffer")->setCurrentText("64");
        QTRY_COMPARE(boxText(), "The USB audio tool failed (3).");
        QTRY_COMPARE(at<QComboBox>("usb_buffer")->currentText(), "300");
        QCOMPARE(sent(), QStringList());
        QVERIFY(!stored().contains("usb_buffer"));
        QFile calls("calls");
        QVERIFY(calls.open(QIODevice::ReadOnly));
        QCOMPARE(calls.readAll().trimmed().split('\n'),
                 QList<QByteArray>({"getaudiosettings", "setsamplerate 44100", "getaudiosettings",
                                    "setbuffersize 64", "getaudiosettings"}));
        closeBoxes();
    }

    // What can be used on each face.
    void menuEntries_data()
    {
        QTest::addColumn<QString>("face");
        QTest::addColumn<QStringList>("off");
        const QStringList edit{
            "Copy Preset",   "Paste Preset",          "Paste Preset to New",    "Copy Channel",
            "Paste Channel", "Auto Populate Setlist", "Reset Preset to Default"};
        const QStringList needsMode{"Import Preset", "Import Global Mappings", "Preferences..."};
        const QStringList paste{"Paste Preset", "Paste Preset to New", "Paste Channel"};
        QTest::newRow("alone") << ""
                               << edit + needsMode
                + QStringList{"Reset Globals to Default", "Force Firmware Update"};
        QTest::newRow("connected") << "ports" << edit + needsMode;
        QTest::newRow("full power") << "mode" << paste;
        QTest::newRow("demo") << "demo"
                              << paste
                + QStringList{"Reset Globals to Default", "Force Firmware Update"};
        QTest::newRow("low power")
            << "low" << edit + QStringList{"Import Preset", "Import Global Mappings"};
    }
    void menuEntries()
    {
        QFETCH(QString, face);
        QFETCH(QStringList, off);
        if (face == "demo") {
            window->slotEnterDemoMode();
            window->findChild<QWidget*>("demoDialogForm")->findChild<QPushButton*>("ok")->click();
        } else if (face == "mode") {
            start();
        } else if (!face.isEmpty()) {
            plug(all);
            if (face == "low")
                window->slotInitLowPowerView();
        }
        for (const char* text :
             {"Copy Preset", "Paste Preset", "Paste Preset to New", "Copy Channel", "Paste Channel",
              "Auto Populate Setlist", "Reset Preset to Default", "Reset Globals to Default",
              "Force Firmware Update", "Import Preset", "Import Global Mappings", "Preferences...",
              "Export All Presets", "Export Global Mappings", "About JSum Editor",
              "Documentation...", "Check for Updates..."})
            QVERIFY2(action(text)->isEnabled() != off.contains(text), text);
    }

    // One face is shown and joined at a time.
    void lowPowerAndBack()
    {
        start();
        const QString fader = "faderframe_ch1_fader";
        const auto tell = [this, &fader](int value) {
            emit window->sysex()->signalReceiveMainwindowPresetParams(fader, value);
        };
        auto* full = window->fullPower()->findChild<QAbstractSlider*>(fader);
        const QString mapping = "miditab_fader1_bank1_cc";
        const auto* fullMapping = window->fullPower()->findChild<QSpinBox*>(mapping);
        tell(4000);
        for (int round = 0; round < 2; ++round) {
            emit window->sysex()->signalInitLowPowerMode();
            auto* low = window->findChild<QWidget*>("lowPowerView");
            QVERIFY(low->isVisible() && !window->fullPower()->isVisible());
            QCOMPARE(window->size(), QSize(800, 410));
            QVERIFY(!at<QToolButton>("ch1_phantom")->isEnabled());
            hear("0a0c0101");
            QVERIFY(at<QToolButton>("ch1_phantom")->isEnabled());
            tell(5000 + round);
            QCOMPARE(full->value(), 4000 + round);
            QCOMPARE(low->findChild<QAbstractSlider*>(fader)->value(), 5000 + round);
            emit window->globals()->signalRecallGlobal({{mapping, 60 + round}});
            QCOMPARE(low->findChild<QSpinBox*>(mapping)->value(), 60 + round);
            QCOMPARE(fullMapping->value(), 1);
            ports->sent.clear();
            at<QPushButton>("globalSendButton")->click();
            QCOMPARE(ports->sent.size(), 1);
            hear("00000000010a03");
            QVERIFY(!low->isVisible() && window->fullPower()->isVisible());
            tell(4001 + round);
            QCOMPARE(full->value(), 4001 + round);
            QCOMPARE(low->findChild<QAbstractSlider*>(fader)->value(), 5000 + round);
        }
    }

    // One click, one box, however often the mode was entered; and a failed port switches it off.
    void hui()
    {
        start();
        unplug();
        start();
        auto* hui = at<QToolButton>("hui");
        at<QToolButton>("huiHelp")->click();
        QCOMPARE(window->findChildren<QMessageBox*>().size(), 1);
        QVERIFY(boxText().contains("'loopMIDI Port' as your HUI Input"));
        closeBoxes();
        QSettings().setValue("hui", true);
        window->slotHUIPortButton(false);
        QCOMPARE(hui->text(), "OFF");
        QVERIFY(!QSettings().value("hui").toBool());
        window->slotHUIPortButton(true);
        QCOMPARE(hui->text() + QVariant(hui->isChecked()).toString(), "ONtrue");
    }

    // It goes with the mode and comes anew with the next; the switch stays.
    void huiWithTheMode()
    {
        QSettings().setValue("hui", true);
        QTimer closer;
        closer.callOnTimeout([] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->accept();
        });
        closer.start(10);
        auto* hui = at<QToolButton>("hui");
        const struct {
            QStringList ports;
            int lights;
            const char* text;
        } entries[]{{all, 2, "ON"}, {all, 2, "ON"}, {all.mid(0, 2), 0, "OFF"}, {all, 0, "OFF"}};
        for (const auto& entry : entries) {
            ports->sent.clear();
            enter(entry.ports);
            const QList<QByteArray> bytes = ports->sentBytes();
            QCOMPARE(bytes.count(QByteArray::fromHex("900e7f"))
                         + bytes.count(QByteArray::fromHex("900f7f")),
                     entry.lights);
            QCOMPARE(hui->text(), entry.text);
            QCOMPARE(hui->isChecked(), hui->text() == "ON");
            QCOMPARE(QSettings().value("hui").toBool(), hui->isChecked());
            plug(all.mid(2));
            QCOMPARE(ports->openInputs + ports->openOutputs, QStringList());
        }
    }
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"
