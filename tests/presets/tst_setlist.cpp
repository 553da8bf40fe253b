#include "setlist.h"
#include "storefixture.h"

#include <QWheelEvent>

class TestSetlist : public TestCase
{
    Q_OBJECT

    std::unique_ptr<StoreFolder> folder;
    std::unique_ptr<QWidget> drawer;
    std::unique_ptr<Setlist> setlist;
    QList<QComboBox*> menus;
    ReorderableListWidget list;
    QString enabled; // the slots that were told to have buttons, since the last filling

    void prepare() override { folder = std::make_unique<StoreFolder>(); }

    // A drawer with the wires that the view makes.
    void open(const QByteArray& file, const QStringList& presets)
    {
        if (!file.isNull())
            folder->write("setlist.json", file);
        menus.clear();
        drawer = std::make_unique<QWidget>();
        for (char letter = 'A'; letter <= 'L'; ++letter) {
            menus << new QComboBox(drawer.get());
            menus.last()->setObjectName(QString("setlist%1").arg(letter));
        }
        setlist = std::make_unique<Setlist>();
        setlist->resourcesFolder = folder->path();
        setlist->resourcesInAppData = true;
        setlist->slotUpdateJSONPath();
        setlist->slotInitComponents(menus);
        connect(setlist.get(), SIGNAL(signalGetPresetList()), this, SLOT(fill()));
        connect(setlist.get(), SIGNAL(signalUpdateSendsAndReceives(bool, QChar)), this,
                SLOT(note(bool, QChar)));
        setNames(presets);
    }
    void setNames(const QStringList& presets)
    {
        list.setNames(QStringList("[CONNECTION SYNC]") + presets);
        fill();
    }
    // Of all menus; one that offers no such name as "?".
    QString shown() const
    {
        QStringList texts;
        for (const QComboBox* const menu : menus)
            texts << (menu->currentIndex() == -1 ? QString("?") : menu->currentText());
        return texts.join(' ').replace("[OFF]", "-");
    }
    QString offered(qsizetype slot) const
    {
        QStringList texts;
        for (int i = 2; i < menus.at(slot)->count(); ++i)
            texts << menus.at(slot)->itemText(i);
        return texts.join(' ');
    }
    bool isOnDisk(const QByteArray& entry) const
    {
        return folder->bytes("setlist.json").contains(entry);
    }
    const QStringList names = QString("a b c d e f g h i j k l m").split(' ');

public slots:
    void fill()
    {
        enabled.clear();
        setlist->slotPopulateSetlistMenus(&list);
        setlist->slotRecallSetlist();
    }
    void note(bool on, QChar letter) { enabled += on ? QString(letter) : QString(); }

private slots:
    void files_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("wanted");
        const QString none = "? ? ? ? ? ? ? ? ? ? ? ?";
        QTest::newRow("none") << QByteArray() << none;
        QTest::newRow("empty") << QByteArray("") << none;
        QTest::newRow("cut off") << QByteArray(R"({"A":"a","B":)") << none;
        QTest::newRow("no object") << QByteArray(R"(["a","b"])") << none;
        QTest::newRow("all kinds of values")
            << QByteArray(R"({"A":"a","B":{"x":"b"},"C":["b"],"D":null,"E":5,"F":true,"G":"gone",
                              "H":"A","I":"[OFF]","J":"[DEFAULT]","K":"","a":"b","M":"b","":"b"})")
            << "a ? ? ? ? ? ? ? - [DEFAULT] ? ?";
    }
    // A slot is changed after it: the rest of what the menus show is kept.
    void files()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, wanted);
        open(file, {"a", "b"});
        QCOMPARE(shown(), wanted);
        menus.at(11)->setCurrentText("b");
        QCOMPARE(shown(), wanted.chopped(1) + "b");
        open({}, {"a", "b"});
        QCOMPARE(shown(), wanted.chopped(1) + "b");
        QVERIFY(!isOnDisk("\"M\""));
    }

    void onePresetStandsInOneSlot()
    {
        open("{}", {"a", "b", "B"});
        menus.first()->setCurrentText("b");
        QCOMPARE(offered(0), QString("a b B"));
        QCOMPARE(offered(1), QString("a B"));
        QVERIFY(isOnDisk(R"("A": "b")"));
        menus.first()->setCurrentText("a");
        QCOMPARE(shown().first(3), QString("a ?"));
        QCOMPARE(offered(11), QString("b B"));
        QVERIFY(setlist->holds("a") && !setlist->holds("b"));
    }

    void afterDelete()
    {
        open(R"({"A":"a","B":"b","C":"[DEFAULT]","D":"[OFF]"})", {"a", "b"});
        setNames({"b"});
        QCOMPARE(shown().first(3), QString("? b"));
        QCOMPARE(enabled, QString("ABCEFGHIJKL"));
        setlist->slotPopulateSetlistAfterDelete(&list);
        QCOMPARE(shown(), QString("- b - - - - - - - - - -"));
        QVERIFY(isOnDisk(R"("C": "[OFF]")"));
    }

    void autoPopulate_data()
    {
        QTest::addColumn<QStringList>("presets");
        QTest::addColumn<QString>("wanted");
        QTest::newRow("no preset") << QStringList() << "- - - - - - - - - - - -";
        QTest::newRow("three") << names.first(3) << "a b c - - - - - - - - -";
        QTest::newRow("twelve") << names.first(12) << "a b c d e f g h i j k l";
        QTest::newRow("thirteen") << names << "a b c d e f g h i j k l";
        QTest::newRow("one name twice") << QStringList{"a", "a", "b"} << "a - b - - - - - - - - -";
    }
    void autoPopulate()
    {
        QFETCH(QStringList, presets);
        QFETCH(QString, wanted);
        const QByteArray before = R"({"A":"c","B":"gone","C":"a","L":"[DEFAULT]"})";
        open(before, presets);
        setlist->slotAutoPopulateSetlist(&list);
        QCOMPARE(shown(), wanted);
        // The choice by hand is what is kept, not a state on the way.
        QCOMPARE(folder->bytes("setlist.json.bak"), before);
        setlist->slotClearSetlist();
        QCOMPARE(shown(), QString("- - - - - - - - - - - -"));
    }

    void failedWrite()
    {
        open({}, {"a", "b"});
        QDir().mkdir(folder->file("setlist.json"));
        QTest::ignoreMessage(QtDebugMsg, "Setlist not found on write");
        menus.first()->setCurrentText("a");
        QDir().rmdir(folder->file("setlist.json"));
        menus.at(1)->setCurrentText("b");
        QVERIFY(isOnDisk(R"("A": "a")") && isOnDisk(R"("B": "b")"));
    }

    void demoModeLeavesNoTrace()
    {
        const QByteArray before = R"({"A":"a"})";
        open(before, {"a", "b"});
        setlist->slotSetDemoModeEnabled(true);
        menus.at(1)->setCurrentText("b");
        QVERIFY(setlist->holds("b"));
        setlist->slotSetDemoModeEnabled(false);
        QVERIFY(!setlist->holds("b"));
        QCOMPARE(folder->bytes("setlist.json"), before);
    }

    void wheelPassesOver()
    {
        open(R"({"A":"a"})", {"a", "b"});
        drawer->show();
        QWheelEvent event({5, 5}, menus.first()->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                          Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(menus.first(), &event);
        QCOMPARE(menus.first()->currentText(), QString("a"));
    }
};

QTEST_MAIN(TestSetlist)
#include "tst_setlist.moc"
