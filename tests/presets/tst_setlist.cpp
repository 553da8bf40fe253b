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
    int fills = 0;

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

public slots:
    void fill()
    {
        ++fills;
        setlist->slotPopulateSetlistMenus(&list);
        setlist->slotRecallSetlist();
    }

private slots:
    // A slot is changed after it: the rest of what the menus show is kept.
    void files()
    {
        const QString none = "? ? ? ? ? ? ? ? ? ? ? ?";
        for (const auto& [file, wanted] :
             {std::pair(QByteArray(), none),
              {R"({"A":"a","B":)", none},
              {R"(["a","b"])", none},
              {R"({"A":"a","B":{"x":"b"},"C":["b"],"D":null,"E":5,"F":true,"G":"gone",
                   "H":"A","I":"[OFF]","J":"[DEFAULT]","K":"","a":"b","M":"b","":"b"})",
               "a ? ? ? ? ? ? ? - [DEFAULT] ? ?"}}) {
            prepare();
            open(file, {"a", "b"});
            QCOMPARE(shown(), wanted);
            menus.at(11)->setCurrentText("b");
            QCOMPARE(shown(), wanted.chopped(1) + "b");
            open({}, {"a", "b"});
            QCOMPARE(shown(), wanted.chopped(1) + "b");
            QVERIFY(!isOnDisk("\"M\""));
        }
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
        setlist->slotPopulateSetlistAfterDelete(&list);
        QCOMPARE(shown(), QString("- b - - - - - - - - - -"));
        QVERIFY(isOnDisk(R"("C": "[OFF]")"));
    }

    void autoPopulate()
    {
        const QByteArray before = R"({"A":"c","B":"gone","C":"a","L":"[DEFAULT]"})";
        for (const auto& [presets, wanted] :
             {std::pair(QStringList(), "- - - - - - - - - - - -"),
              {QString("a b c d e f g h i j k l m").split(' '), "a b c d e f g h i j k l"},
              {{"a", "a", "b"}, "a - b - - - - - - - - -"}}) {
            open(before, presets);
            fills = 0;
            setlist->slotAutoPopulateSetlist(&list);
            QCOMPARE(fills, 1); // of a thousand names each
            QCOMPARE(shown(), wanted);
            // The choice by hand is what is kept, not a state on the way.
            QCOMPARE(folder->bytes("setlist.json.bak"), before);
        }
    }

    // What this map never held is not written over by it.
    void fileThatCannotBeRead()
    {
        QDir().mkdir(folder->file("setlist.json"));
        open({}, {"a", "b"});
        QDir().rmdir(folder->file("setlist.json"));
        folder->write("setlist.json", R"({"A":"b"})");
        menus.first()->setCurrentText("a");
        QCOMPARE(folder->bytes("setlist.json"), QByteArray(R"({"A":"b"})"));
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
