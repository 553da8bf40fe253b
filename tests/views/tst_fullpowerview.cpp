#include "viewfixture.h"

namespace
{

const QString liveMemoryRequest = QStringLiteral("0a0c0000000000");

QStringList readKeys()
{
    QFile blank(JSUM_SOURCE_DIR "/resources/presets/Blank.jsumpreset");
    if (!blank.open(QIODevice::ReadOnly))
        return {};
    QStringList keys = QJsonDocument::fromJson(blank.readAll()).toVariant().toMap().keys();
    keys.removeAll("preset_name");
    return keys;
}
// The 329 parameters.
const QStringList allKeys = readKeys();

const QMap<QString, void (Desk::*)()> events{{"unplug", &Desk::unplug},
                                             {"version", &Desk::versionReply},
                                             {"end marker", &Desk::endMarker},
                                             {"preset change", &Desk::changePreset}};

} // namespace

// The mode's entry, the live state, the recalls, and what the controls store and send.
class TestFullPowerView : public TestCase
{
    Q_OBJECT

private slots:
    void nothingTouchedDuringTheSyncIsSent()
    {
        Desk desk;
        desk.plug();
        desk.versionReply();
        QCOMPARE(desk.sent(), liveMemoryRequest);
        for (const QString& key : allKeys)
            desk.set(key, desk.shown(key) + 1);
        desk.clickRow(2);
        desk.changePreset();
        QCOMPARE(desk.list->currentRow(), 0);
        desk.set(ch1, 8000);
        QCOMPARE(desk.sent(), QString());
        for (int marker = 0; marker < 2; ++marker) {
            desk.endMarker();
            desk.moveOnce();
        }
    }

    void everyControlStoresAndSendsOnceAndEchoesNothing()
    {
        Desk desk;
        desk.start();
        QCOMPARE(allKeys.size(), 329);
        for (const QString& key : allKeys) {
            const int before = desk.shown(key);
            const QString style = desk.at(key)->styleSheet();
            desk.set(key, before + 1);
            if (desk.shown(key) == before)
                desk.set(key, before - 1);
            QVERIFY2(desk.shown(key) != before, qPrintable(key));
            QCOMPARE(desk.sent(), QString("%1=%2").arg(key).arg(desk.shown(key)));
            QCOMPARE(desk.value(key), desk.shown(key));
            desk.hear(key, before);
            QCOMPARE(desk.shown(key), before);
            QCOMPARE(desk.value(key), before);
            QCOMPARE(desk.sent(), QString());
            QCOMPARE(desk.at(key)->styleSheet(), style); // a button's colour follows too
        }
        desk.click(ch1, Qt::ControlModifier);
        QTest::mouseDClick(desk.at(ch1), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(desk.sent(), ch1 + "=8938"); // 0 dB, and it stays there
    }

    // The mixer holds what each control happens to show at start, the preset another value.
    void afterTheSyncPresetZeroIsTheMixer()
    {
        QVariantMap mixer;
        QVariantMap before{{"preset_name", syncName}};
        for (const Desk fresh; const QString& key : allKeys) {
            const int value = fresh.shown(key);
            mixer[key] = value;
            before[key] = fresh.button(key) != nullptr && value == 1 ? 0 : value + 1;
        }
        Desk desk({{"Preset_000", before}});
        desk.plug();
        desk.versionReply();
        for (const QString& key : allKeys)
            QCOMPARE(desk.shown(key), before[key].toInt());
        for (const QString& key : allKeys)
            desk.hear(key, mixer[key].toInt());
        desk.endMarker();
        QCOMPARE(desk.sent(), liveMemoryRequest);
        QSignalSpy written(&desk.presets, SIGNAL(signalStopLiveMemoryTimer()));
        QVERIFY(written.wait());
        const QVariantMap inFile = Desk::file("jsum.json")["Preset_000"].toMap();
        for (const QString& key : allKeys) {
            QCOMPARE(desk.shown(key), mixer[key].toInt());
            QCOMPARE(inFile[key].toInt(), mixer[key].toInt());
        }
        QCOMPARE(desk.rows(), QStringList{syncName}); // never shown dirty
    }

    void reentryDoublesNothing()
    {
        Desk desk;
        int count = 4;
        for (const bool unplugged : {true, false, true}) {
            desk.plug();
            desk.sent();
            desk.versionReply();
            desk.set(ch1, 8000);
            QCOMPARE(desk.sent(), liveMemoryRequest);
            desk.endMarker();
            desk.moveOnce();
            for (const int row : {2, 3, 2}) {
                desk.clickRow(row);
                QCOMPARE(desk.sent(), recallOf(row));
            }
            desk.actions[1]->trigger();
            desk.actions[3]->trigger(); // pastes it as a new one
            QCOMPARE(desk.list->count(), ++count);
            if (unplugged)
                desk.unplug();
        }
        desk.actions[3]->trigger();
        QCOMPARE(desk.list->count(), count);
    }

    void whatComesInTheMidstOfARecall_data()
    {
        QTest::addColumn<bool>("silently");
        for (const QString& event : events.keys()) {
            QTest::newRow(qPrintable(event)) << false;
            QTest::addRow("%s, the mixer's own", qPrintable(event)) << true;
        }
    }
    void whatComesInTheMidstOfARecall()
    {
        QFETCH(bool, silently);
        const QString event = QString(QTest::currentDataTag()).section(',', 0, 0);
        Desk desk;
        desk.start();
        desk.clickRow(2);
        desk.sent();
        const int recalled = silently ? 0 : 1;
        bool came = false;
        const Meanwhile meanwhile(1, [&] {
            came = desk.presets.isRecalling();
            (desk.*events[event])();
        });
        if (silently)
            desk.changePreset();
        else
            desk.list->setCurrentRow(recalled);
        QVERIFY(came);
        const QString whole = silently ? QString() : recallOf(recalled);
        const QMap<QString, QString> sent{
            {"version", liveMemoryRequest}, {"end marker", whole}, {"preset change", whole}};
        QCOMPARE(desk.sent(), sent[event]);
        QCoreApplication::processEvents();
        QCOMPARE(desk.sent(), QString());
        if (event == "unplug")
            desk.start();
        else if (event == "version")
            desk.endMarker();
        QCOMPARE(desk.list->currentRow(), event == "end marker" ? recalled : 0);
        QVERIFY(desk.list->isEnabled());
        desk.moveOnce();
        for (int preset = 1; preset <= 3; ++preset)
            if (preset != desk.list->currentRow())
                QCOMPARE(desk.preset(preset), smallPreset(fewNames.at(preset), preset));
        desk.clickRow(3);
        QCOMPARE(desk.sent(), recallOf(3));
        QCOMPARE(desk.shown(gain), 10300);
    }

    void whatComesInTheMidstOfAnEntry_data()
    {
        QTest::addColumn<bool>("underBox");
        for (const QString& event : events.keys())
            QTest::newRow(qPrintable(event)) << false;
        // Which tells that the ports of the control surface's bridge are not there.
        QTest::newRow("version, under a box") << true;
        QTest::newRow("unplug, under a box") << true;
    }
    void whatComesInTheMidstOfAnEntry()
    {
        QFETCH(bool, underBox);
        const QString event = QString(QTest::currentDataTag()).section(',', 0, 0);
        Desk desk(libraryOf(fewNames), {{"hui", underBox}});
        desk.plug({});
        bool came = false;
        const Meanwhile meanwhile(4, [&] {
            came = (QApplication::activeModalWidget() != nullptr) == underBox;
            (desk.*events[event])();
            if (event == "version")
                desk.endMarker();
            if (underBox)
                QApplication::activeModalWidget()->close();
        });
        desk.versionReply();
        QVERIFY(came);
        if (event != "version") {
            desk.set(ch1, 8000); // its own end marker is not there yet
            QCOMPARE(desk.sent(), event == "unplug" ? QString() : liveMemoryRequest);
            event == "unplug" ? desk.start() : desk.endMarker();
        }
        desk.moveOnce();
    }
};

QTEST_MAIN(TestFullPowerView)
#include "tst_fullpowerview.moc"
