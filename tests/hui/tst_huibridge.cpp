#include "fakeports.h"
#include "huiinputhandler.h"
#include "huioutputhandler.h"
#include "sysexmanager.h"
#include "testcase.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>

namespace
{

const QString mixer = QStringLiteral("J-Sum Audio Control");
const QString surface = QStringLiteral("J-Sum Control Surface");
const QString toHost = QStringLiteral("loopMIDI Port");
const QString fromHost = QStringLiteral("loopMIDI Port 1");
const QStringList mixerPorts{mixer, surface};
const QStringList hostPorts{toHost, fromHost};

} // namespace

// The bridge from one port to the other: SysexManager and its handlers on ports made up.
class TestHuiBridge : public TestCase
{
    Q_OBJECT

    std::unique_ptr<SysexManager> manager;
    FakePorts* ports = nullptr;

    void prepare() override
    {
        auto fake = std::make_unique<FakePorts>();
        ports = fake.get();
        manager = std::make_unique<SysexManager>(nullptr, std::move(fake));
        plug(mixerPorts + hostPorts);
        manager->slotEnableHuiPort(true);
        ports->sent.clear();
    }
    void plug(const QStringList& names)
    {
        ports->plug(names);
        manager->midi()->slot_PollDevices();
    }
    // words: where messages come from, and their bytes, in turn: "host b00264 b02210".
    void receive(const QString& words)
    {
        QString port;
        for (const QString& word : words.split(' ', Qt::SkipEmptyParts)) {
            const bool isName = word == "host" || word == "surface" || word == "audio";
            if (isName)
                port = word == "host" ? fromHost : word == "surface" ? surface : mixer;
            else
                give(port, QByteArray::fromHex(word.toLatin1()));
        }
    }
    void give(const QString& port, const QByteArray& bytes)
    {
        manager->slotReceiveMidiInput(port, MidiMessage(bytes.constData(), int(bytes.size())));
    }
    // What left since the last call, in the same form.
    QString sent()
    {
        QStringList words;
        QString last;
        for (const auto& message : ports->sent) {
            const QString name = message.identifier.section('-', 2);
            const QString port = name == toHost ? "host" : name == surface ? "surface" : "audio";
            if (port != last)
                words << port;
            last = port;
            words << message.bytes.toHex();
        }
        ports->sent.clear();
        return words.join(' ');
    }
    static QString hui(const char* payload)
    {
        return QStringLiteral("audio f000015f2310%1f7").arg(QLatin1String(payload));
    }
    QStringList openPorts() const { return ports->openInputs + ports->openOutputs; }

private slots:
    void messages_data()
    {
        QTest::addColumn<QString>("left");
        const auto row = [](const QString& came, const QString& left = {}) {
            QTest::newRow(qPrintable(came)) << left;
        };
        row("host b00264 b02210", "surface b00364");
        row("host b0077f b02700 b00000 b02001", "surface b0087f b00100");
        row("host b00c25 b02c42", "audio f000015f2310110500000001f7");
        row("host b00c00 b02c02 b00c07 b02c43",
            "audio f000015f2310110000000000f7 f000015f2310120700000001f7");
        row("host b00c01 b02c47 b00c01 b02c07",
            "audio f000015f2310130100000001f7 f000015f2310130100000000f7");
        row("host b00c05 b02c12", "audio f000015f2310110500000001f7"); // any high bit is on
        row("host b00c0e b02c43", "audio f000015f2310120e00000001f7"); // which the mixer ignores
        row("host b00c03 b02c40 b00c03 b02c45 b00c03 b02d42 b02c42");
        // A misfit costs its pair and whatever began with it; the next whole pair works.
        row("host b00264 b00364 b02300 b00365 b02300", "surface b00465");
        row("host b00264 b02300 b02200 b00c03 b00c04 b02c42");
        row("host b00800 b02800 b00b00 b00d01 b00f05 b02f43 b01040");
        // What is none of the first channel's control changes disturbs no pair.
        row("host b00264 b10364 bf0c01 900000 c005 e00040 a00013 d010 f8 ff f0000066f7 b02210",
            "surface b00364");

        row("surface b0037f", "host b0027f b02200");
        row("surface b0010a b00801", "host b0000a b02000 b00701 b02700");
        row("surface b00940 b00a00", "host b00840 b02800 b00900 b02900"); // by the same rule
        row("surface b00005", "host b07f05 b07f00");
        row("surface b10305 bf0305 910101 9f0e00 c001 e00040 a00101 f8");
        row("surface 900101 900100 900840", "host b00f00 b02f47 b00f00 b02f07 b00f07 b02f47");
        row("surface 80017f", "host b00f00 b02f47"); // the velocity counts, also of a note-off
        row("surface 900e7f", "host b00f0a b02f41");
        row("surface 900e00", "host b00f0a b02f01 surface 900e7f 900f7f");
        row("surface 800f00", "host b00f0a b02f03 surface 900e7f 900f7f");
        row("surface 901a7f 901b7f", "host b00f0e b02f45 b00f0e b02f43");
        row("surface 901c7f 901d00", "host b00f0e b02f41 b00f0e b02f04");
        row("surface 90007f 90097f 900d7f 90107f 90197f 901e7f");

        row(hui("020300000001") + ' ' + hui("020300000000"), "host b00f03 b02f40 b00f03 b02f00");
        // Presses alone, whatever the value; the touch's end releases both, once.
        row("audio f000015f2310120500000000f7 f000015f2310110500000001f7 "
            "f000015f2310110500000001f7 f000015f2310020400000000f7 f000015f2310020500000000f7 "
            "f000015f2310020500000000f7",
            "host b00f05 b02f43 b00f05 b02f42 b00f05 b02f42 b00f04 b02f00 "
            "b00f05 b02f00 b00f05 b02f02 b00f05 b02f03 b00f05 b02f00");
        // Out of range: nothing, and nothing is due.
        row("audio f000015f2310110500000002f7 f000015f2310120501000001f7 "
            "f000015f2310110800000001f7 f000015f2310100500000001f7 f000015f2310130500000001f7 "
            "f000015f23100205000000f7 f000015f2310020500000000f7",
            "host b00f05 b02f00");
        row("surface f000015f2310020500000001f7 host f000015f2310020500000001f7");
    }
    void messages()
    {
        receive(QTest::currentDataTag());
        QTEST(sent(), "left");
    }

    // From each state of the host's half, every control change there is: how many send, and what
    // completes the pair afterwards.
    void everyControlChange_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("sending");
        QTest::newRow("idle") << "" << 0;
        QTest::newRow("fader begun") << "host b00564" << 128;
        QTest::newRow("zone selected") << "host b00c05" << 24;
    }
    void everyControlChange()
    {
        QFETCH(QString, before);
        int sending = 0;
        for (int number = 0; number < 128; ++number) {
            for (int value = 0; value < 128; ++value) {
                receive(before);
                for (const char* status : {"\xb1", "\xb8", "\xbf"})
                    give(fromHost, QByteArray(status) + char(number) + char(value));
                QVERIFY(ports->sent.isEmpty());
                give(fromHost, QByteArray("\xb0") + char(number) + char(value));
                sending += !sent().isEmpty();

                QString completing = "host b00c01 b02c43";
                QString completed = "audio f000015f2310120100000001f7";
                if (before.isEmpty() && number < 8) {
                    completing = QString::asprintf("host b02%d00", number);
                    completed = QString::asprintf("surface b00%d%02x", number + 1, value);
                } else if (before.isEmpty() && number == 12) {
                    completing = "host b02c43";
                    completed = QString::asprintf("audio f000015f231012%02x00000001f7", value % 16);
                }
                receive(completing);
                QCOMPARE(sent(), completed);
            }
        }
        QTEST(sending, "sending");
    }

    void nothingIsLostInAFlood()
    {
        constexpr int pairs = 50000;
        for (int i = 0; i < pairs; ++i) {
            receive(QStringLiteral("host b002%1 b02200 surface b004%1")
                        .arg(i % 128, 2, 16, QChar('0')));
        }
        QCOMPARE(ports->sent.size(), 3 * pairs);
        for (int i = 0; i < pairs; i += 997) {
            const char value = char(i % 128);
            QCOMPARE(ports->sent[3 * i].bytes, QByteArray("\xb0\x03") + value);
            QCOMPARE(ports->sent[3 * i + 1].bytes, QByteArray("\xb0\x03") + value);
            QCOMPARE(ports->sent[3 * i + 2].bytes, QByteArray::fromHex("b02300"));
        }
        ports->sent.clear();
        give(fromHost, QByteArray("\xf0") + QByteArray(1024 * 1024, 1) + '\xf7');
        receive("host b00264 b02210");
        QCOMPARE(sent(), QString("surface b00364"));
    }

    void onAndOff()
    {
        QCOMPARE(openPorts().size(), 6); // the mixer's two among them
        // On is on: no port twice, and no new handler, whatever was begun.
        receive("host b00264");
        manager->slotEnableHuiPort(true);
        QCOMPARE(openPorts().size(), 6);
        receive("host b02200");
        QCOMPARE(sent(), QString("surface b00364"));

        receive(hui("110500000001") + " host b00264");
        sent();
        manager->slotEnableHuiPort(false);
        manager->slotEnableHuiPort(false);
        QCOMPARE(openPorts().size(), 2);
        receive("host b02200 surface b00301 900e00");
        receive(hui("020500000000"));
        QCOMPARE(sent(), QString()); // the release that was due is lost
        manager->slotEnableHuiPort(true);
        QCOMPARE(sent(), QString("surface 900e7f 900f7f"));
        receive("host b02200 " + hui("020500000000"));
        QCOMPARE(sent(), QString("host b00f05 b02f00"));

        for (int i = 0; i < 1000; ++i) {
            manager->slotEnableHuiPort(false);
            manager->slotEnableHuiPort(true);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(manager->findChildren<HuiOutputHandler*>().size(), 1);
        QCOMPARE(manager->findChildren<HuiInputHandler*>().size(), 1002); // all but one idle
        QCOMPARE(openPorts().size(), 6);
        sent();
        receive("host b00264 b02210 surface b0037f");
        QCOMPARE(sent(), QString("surface b00364 host b0027f b02200"));
    }

    void portsThatComeBackAreOpenedAnew()
    {
        const auto present = ports->inputList;
        const auto without = [&](const QString& name) {
            QList<MidiPortInfo> list;
            for (const auto& port : present) {
                if (port.name != name)
                    list << port;
            }
            return list;
        };
        const auto poll = [&](const QList<MidiPortInfo>& list) {
            ports->inputList = ports->outputList = list;
            const QStringList before = openPorts();
            manager->midi()->slot_PollDevices();
            return openPorts() != before;
        };
        QVERIFY(!poll(without(fromHost))); // never pruned
        QVERIFY(poll(present));            // its new input stands behind all others now
        QCOMPARE(ports->openInputs.last(), "id-0-" + fromHost);
        QVERIFY(!poll(without(toHost)));
        QVERIFY(poll(present));
        QCOMPARE(ports->openOutputs.last(), "id-0-" + toHost);
        QCOMPARE(sent(), QString());
        QVERIFY(poll(without(surface)));
        receive("host b00264 b02210"); // lost, with a line
        QVERIFY(poll(present));
        QCOMPARE(sent(), QString("surface 900e7f 900f7f"));
        // Replaced within one poll, which only the identifier tells.
        auto replaced = present;
        replaced.last().identifier = "id-1-" + fromHost;
        QVERIFY(poll(replaced));
        QVERIFY(!poll(replaced));
        QVERIFY(!poll(QList<MidiPortInfo>{{fromHost, "id-2-twin"}} + replaced));
        QCOMPARE(openPorts().size(), 6);
        manager->slotEnableHuiPort(false);
        QVERIFY(!poll(without(fromHost)) && !poll(present)); // none of its business any more
    }

    // The mixer's names change while the bridge is on.
    void whatIsClosedIsWhatWasOpened()
    {
        const QString second = "2- " + surface;
        plug({mixer, surface, "2- " + mixer, second, toHost, fromHost});
        receive("host b00264 b02210");
        QCOMPARE(sent(), QString("surface b00364"));
        plug({"2- " + mixer, second, toHost, fromHost});
        manager->slotEnableHuiPort(false);
        QCOMPARE(openPorts(), QStringList({"id-0-2- " + mixer, "id-0-2- " + mixer}));
        manager->slotEnableHuiPort(true);
        QVERIFY(ports->openInputs.contains("id-0-" + second));
        QVERIFY(ports->openOutputs.contains("id-0-" + second));
    }

    void halfABridge_data()
    {
        QTest::addColumn<QString>("missing");
        QTest::addColumn<QString>("left");
        QTest::newRow("the host's input") << toHost << "surface b00364";
        QTest::newRow("the control port") << surface << "audio f000015f2310110000000001f7";
    }
    void halfABridge()
    {
        QFETCH(QString, missing);
        QSignalSpy button(manager.get(), SIGNAL(signalHUIPortButton(bool)));
        manager->slotEnableHuiPort(false);
        QStringList present = mixerPorts + hostPorts;
        present.removeOne(missing);
        plug(present);
        manager->slotEnableHuiPort(true);
        sent();
        receive("host b00264 b02210 b00c00 b02c42");
        QFETCH(QString, left);
        QVERIFY(sent().contains(left));
        QCOMPARE(button.count(), 0);
    }

    // One box at a time, whatever is asked under it; then the switch is told.
    void withoutTheHostsOutput()
    {
        manager->slotEnableHuiPort(false);
        plug(mixerPorts + QStringList{toHost});
        sent();
        QSignalSpy button(manager.get(), SIGNAL(signalHUIPortButton(bool)));
        int boxes = 0;
        QTimer::singleShot(0, manager.get(), [&] {
            manager->slotEnableHuiPort(true);
            manager->slotEnableHuiPort(false);
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (auto* box = qobject_cast<QMessageBox*>(widget)) {
                    ++boxes;
                    QCOMPARE(box->windowTitle(), QString("Error"));
                    QVERIFY(box->text().contains("feature requries <a "));
                    box->accept();
                }
            }
        });
        manager->slotEnableHuiPort(true);
        QCOMPARE(boxes, 1);
        QCOMPARE(button, QList<QVariantList>{{false}});
        QCOMPARE(openPorts().size(), 2);
        QCOMPARE(sent(), QString());
        // Nothing is asked in the demo.
        manager->slotSetDemoModeEnabled(true);
        manager->slotEnableHuiPort(true);
        QCOMPARE(button.count(), 1);
    }
};

QTEST_MAIN(TestHuiBridge)
#include "tst_huibridge.moc"
