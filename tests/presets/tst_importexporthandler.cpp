#include "filesize.h"
#include "globalimportexporthandler.h"
#include "globalpresetinterface.h"
#include "importexporthandler.h"
#include "presetdefaults.h"
#include "storefixture.h"

#include <QAction>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>

// Exports and imports as the user does them: choosers, questions, reports, and what becomes of
// files, library and globals.
class TestImportExportHandler : public LibraryTest
{
    Q_OBJECT

    std::unique_ptr<QWidget> window;
    std::unique_ptr<GlobalPresetInterface> globals;
    ImportExportHandler* presetHandler = nullptr;
    GlobalImportExportHandler* globalHandler = nullptr;
    QDir out;

    void prepare() override
    {
        QStandardPaths::setTestModeEnabled(true);
        LibraryTest::prepare();
        QDir(folder->path()).mkdir("out");
        out.setPath(folder->path() + "out");
        globals = std::make_unique<GlobalPresetInterface>();
        folder->give(*globals);
        globals->slotSetJSONPath();
        window = std::make_unique<QWidget>();
        window->show();
        presetHandler = new ImportExportHandler(store.get(), window.get());
        globalHandler = new GlobalImportExportHandler(globals.get(), window.get());
        connect(globalHandler, SIGNAL(signalImportGlobalMap(QVariantMap)), globals.get(),
                SLOT(slotImportGlobalMap(QVariantMap)));
        connect(presetHandler, SIGNAL(signalAddOrRemovePreset()), this, SLOT(list()));
        connect(presetHandler, SIGNAL(signalDeselectMultiple()), this, SLOT(deselect()));
        connect(presetHandler, SIGNAL(signalPresetMenu(int)), this, SLOT(menu(int)));
        connect(presetHandler, SIGNAL(signalEnableDeleteButton(bool)), this, SLOT(remove(bool)));
        events.clear();
    }

    // With a file of its own for each, in the folder that exports go to.
    QStringList files(const QList<std::pair<QString, QByteArray>>& given) const
    {
        QStringList paths;
        for (const auto& [name, bytes] : given) {
            QFile file(out.filePath(name));
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                qFatal("cannot write");
            paths << file.fileName();
        }
        return paths;
    }
    QByteArray bytes(const QString& name) const
    {
        QFile file(out.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static QByteArray whole(const QVariantMap& changes)
    {
        QVariantMap preset = presetdefaults::preset();
        preset.insert(changes);
        return QJsonDocument::fromVariant(preset).toJson();
    }
    // The text of the one box that is open; it is closed by its button of that text.
    QString box(const QString& button = "OK")
    {
        QString text;
        for (auto* open : window->findChildren<QMessageBox*>()) {
            if (!open->isVisible())
                continue;
            text += open->text();
            for (QAbstractButton* each : open->buttons()) {
                if (each->text().remove('&') == button)
                    each->click();
            }
        }
        return text;
    }
    void choose(const QString& path)
    {
        QFileDialog* chooser = openChooser();
        QVERIFY(chooser != nullptr);
        chooser->selectFile(path);
        static_cast<QDialog*>(chooser)->accept();
        QCoreApplication::processEvents();
    }
    // Null unless there is exactly one.
    QFileDialog* openChooser()
    {
        QList<QFileDialog*> open = window->findChildren<QFileDialog*>();
        open.removeIf([](const QFileDialog* chooser) { return !chooser->isVisible(); });
        return open.size() == 1 ? open.first() : nullptr;
    }

    QStringList events;

public slots:
    void list() { events << "list"; }
    void deselect() { events << "deselect"; }
    void menu(int row) { events << QString("menu:%1").arg(row); }
    void remove(bool on) { events << (on ? "delete" : "keep"); }

private slots:
    void allOutAndInAgain()
    {
        const QStringList given{"[CONNECTION SYNC]", "Lead copy1", "lead", "Lead", "a/b", "aux"};
        read(libraryOf(given));
        presetHandler->exportAll(out.path());
        QCOMPARE(box(), QString("Exported presets: 5"));
        QCOMPARE(out.entryList(QDir::Files).join('|'),
                 QString("a_b.jsumpreset|aux_.jsumpreset|Lead (2).jsumpreset|"
                         "Lead copy1.jsumpreset|lead.jsumpreset"));
        QCOMPARE(bytes("lead.jsumpreset"),
                 QByteArray("{\n    \"preset_name\": \"lead\",\n    \"reverbtab_pre_delay\": 2\n}"
                            "\n"));

        read(libraryOf({"[CONNECTION SYNC]"}));
        QStringList paths;
        for (const QString& name : out.entryList(QDir::Files))
            paths << out.filePath(name);
        presetHandler->importFiles(paths);
        QCOMPARE(events.join(' '), QString("deselect list delete menu:5"));
        QVERIFY(box().startsWith("Imported presets: 5\n\na_b.jsumpreset: is now \"a/b\"; 328 "));
        QStringList back = names();
        QCOMPARE(QSet(back.cbegin(), back.cend()), QSet(given.cbegin(), given.cend()));
        for (int number = 1; number < back.size(); ++number) {
            const QJsonObject preset = presetOnDisk(QString("Preset_00%1").arg(number));
            QCOMPARE(preset["reverbtab_pre_delay"].toInt(), given.indexOf(back.at(number)));
        }
    }

    void goodAndBadTogether()
    {
        read(libraryOf({"[CONNECTION SYNC]", "Lead", "edited"}));
        store->slotSetCurrentPreset(2);
        store->slotStoreValue("reverbtab_pre_delay", 99, -1);
        presetHandler->importFiles(
            files({{"b", whole({{"preset_name", "Lead"}})},
                   {"a<i>", "{"},
                   {"C", whole({{"preset_name", "[OFF]"}, {"reverbtab_damping", 101}})},
                   {"d", whole({{"preset_name", "[CONNECTION SYNC]"}})},
                   {"e", whole({{"preset_name", "The Whole Band On Sunday Night"}})},
                   {"f", whole({{"preset_name", "The Whole Band On Sunday Night"}})}}));
        QCOMPARE(box().split('\n'),
                 QStringList({"Imported presets: 5", "Refused files: 1", "",
                              "a<i>: it is damaged, or no file of this editor",
                              "b: is now \"Lead copy1\"; \"Lead\" is not free",
                              "C: is now \"off\"; \"[OFF]\" is not free, 1 value was brought into "
                              "its range",
                              "d: is now \"[CONNECTION SYNC] copy1\"; \"[CONNECTION SYNC]\" is "
                              "not free",
                              "f: is now \"The Whole Band On Sunday\"; \"The Whole Band On Sunday "
                              "Night\" is not free",
                              "e: is now \"The Whole Band On Sunday Night\""}));
        QCOMPARE(events.join(' '), QString("deselect list delete menu:7"));
        QCOMPARE(store->workingPreset(2).value("reverbtab_pre_delay"), QVariant(99));
        QCOMPARE(presetOnDisk("Preset_002")["reverbtab_pre_delay"], QJsonValue(2));
        QCOMPARE(presetOnDisk("Preset_004")["reverbtab_damping"], QJsonValue(100));

        events.clear();
        const QByteArray before = onDisk();
        presetHandler->importFiles(files({{"a", "[]"}}));
        QCOMPARE(box(),
                 QString("Imported presets: 0\nRefused files: 1\n\na: it is damaged, or no "
                         "file of this editor"));
        QCOMPARE(onDisk(), before);
        QCOMPARE(events, QStringList());
        presetHandler->importFiles(files({{"a", whole({{"preset_name", "quiet"}})}}));
        QCOMPARE(box(), QString());
        QCOMPARE(names().last(), QString("quiet"));
    }

    void room()
    {
        QStringList many;
        for (int number = 0; number < 30; ++number)
            many << QString("f%1").arg(number, 2, 10, QChar('0'));
        QList<std::pair<QString, QByteArray>> given;
        for (const QString& name : std::as_const(many))
            given.append({name, whole({{"preset_name", name}})});
        const QStringList paths = files(given);

        presetHandler->importFiles(paths);
        QVERIFY(box().startsWith("Nothing was imported: the library is empty"));
        QCOMPARE(events, QStringList());

        QStringList library{"[CONNECTION SYNC]"};
        while (library.size() < 975)
            library << QString("p%1").arg(library.size());
        read(libraryOf(library));
        presetHandler->importFiles(paths);
        const QString text = box();
        QVERIFY(text.startsWith("Imported presets: 25\nFiles without room, as a library holds 1000 "
                                "presets: 5\n\nf00: is now \"f00\"\n"));
        QVERIFY(text.endsWith("f19: is now \"f19\"\n... and 5 more"));
        QCOMPARE(names().mid(975), many.first(25));
    }

    void whatExists_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QStringList>("files"); // of the two that exist, how they begin
        QTest::addColumn<QString>("report");
        QTest::newRow("replace") << "Replace" << QStringList({"{\n", "{\n"})
                                 << "Exported presets: 3";
        QTest::newRow("skip") << "Skip" << QStringList({"1", "2"}) << "Exported presets: 1";
        QTest::newRow("cancel") << "Cancel" << QStringList({"1", "2"}) << "";
    }
    void whatExists()
    {
        QFETCH(const QString, button);
        QFETCH(const QStringList, files);
        QFETCH(const QString, report);
        read(libraryOf({"[CONNECTION SYNC]", "a", "b", "c"}));
        this->files({{"b.jsumpreset", "1"}, {"c.jsumpreset", "2"}});
        presetHandler->exportAll(out.path());
        presetHandler->exportPreset("a", 1, out.filePath("b")); // waits for the answer
        QCOMPARE(box(button), QString("These files exist already:\n\nb.jsumpreset\nc.jsumpreset"));
        QVERIFY(bytes("b.jsumpreset").startsWith(files.at(0).toLatin1()));
        QVERIFY(bytes("c.jsumpreset").startsWith(files.at(1).toLatin1()));
        QCOMPARE(out.exists("a.jsumpreset"), button != "Cancel");
        const QString next = "This file exists already:\n\nb.jsumpreset";
        const QString both = report + next;
        const QString boxes = box("Cancel");
        QVERIFY2(boxes == both || boxes == next + report, qPrintable(boxes));
    }

    void exportThatFails()
    {
        read(libraryOf({"[CONNECTION SYNC]", "a", "b"}));
        out.mkdir("a.jsumpreset");
        files({{"b.jsumpreset", "mine"}});
        QVERIFY(limitFileSize(16));
        presetHandler->exportAll(out.path());
        box("Replace");
        QVERIFY(limitFileSize(RLIM_INFINITY));
        QCOMPARE(box(),
                 QString("Exported presets: 0\nWhat could not be written is as it was "
                         "before:\n\na.jsumpreset: a folder stands there\n"
                         "b.jsumpreset: input/output error"));
        QCOMPARE(bytes("b.jsumpreset"), QByteArray("mine"));
        QCOMPARE(out.entryList(QDir::Files), QStringList("b.jsumpreset"));
        presetHandler->exportPreset("gone", 1, out.filePath("g"));
        QCOMPARE(box(), QString("Nothing was exported: the preset is not there any more."));
    }

    void choosers()
    {
        read(libraryOf({"[CONNECTION SYNC]", "Lead", "x", "Lead"}));
        store->slotStoreValue("reverbtab_pre_delay", 77, 0);
        store->slotStoreValue("reverbtab_pre_delay", 78, 3);
        const std::tuple<QString, int, QString, int> rows[]{{"Lead", 3, "v1.2", 3},
                                                            {"Lead", 2, "typed.jsumpreset", 1},
                                                            {"[CONNECTION SYNC]", 0, "live", 77}};
        for (const auto& [name, row, typed, value] : rows) {
            QAction action;
            action.setObjectName(name);
            action.setData(row);
            connect(&action, SIGNAL(triggered()), presetHandler, SLOT(slotExportPreset()));
            action.trigger();
            choose(out.filePath(typed));
            const QByteArray json = bytes(QString(typed).remove(".jsumpreset") + ".jsumpreset");
            QCOMPARE(QJsonDocument::fromJson(json)["reverbtab_pre_delay"].toInt(), value);
            QCOMPARE(box(), QString());
        }
        // Where the last one ended.
        presetHandler->slotImportPreset();
        presetHandler->slotImportPreset();
        QVERIFY(openChooser() != nullptr);
        QCOMPARE(openChooser()->directory().canonicalPath(), out.canonicalPath());
        choose(out.filePath("live.jsumpreset"));
        QVERIFY(box().contains("live.jsumpreset: is now \"[CONNECTION SYNC] copy1\""));
        presetHandler->slotExportAllPresets();
        choose(out.path());
        QCOMPARE(box(), QString("Exported presets: 4"));
    }

    void waitsForItsMoment()
    {
        read(libraryOf({"[CONNECTION SYNC]", "a"}));
        bool busy = true;
        bool hasMode = true;
        presetHandler->isBusy = [&] { return busy; };
        presetHandler->mayImport = [&] { return hasMode; };
        const QStringList paths = files({{"n", whole({{"preset_name", "n"}})}});
        presetHandler->exportPreset("a", 1, out.filePath("a"));
        presetHandler->importFiles(paths);
        QTest::qWait(120);
        QCOMPARE(names().size(), 2);
        QVERIFY(!out.exists("a.jsumpreset"));
        busy = false;
        QTRY_COMPARE(names().size(), 3);
        QVERIFY(out.exists("a.jsumpreset"));

        hasMode = false;
        presetHandler->importFiles(paths);
        presetHandler->exportPreset("n", 2, out.filePath("n2"));
        QVERIFY(box().startsWith("Nothing was imported: the mixer"));
        QCOMPARE(names().size(), 3);
        QVERIFY(out.exists("n2.jsumpreset"));
        hasMode = true;
        store->slotSetDemoModeEnabled(true);
        events.clear();
        presetHandler->importFiles(paths);
        QCOMPARE(events.join(' '), QString("deselect list menu:3"));
    }

    void globalsOutAndIn()
    {
        QSignalSpy recalled(globals.get(), SIGNAL(signalRecallGlobal(QVariantMap)));
        globals->slotStoreGlobal("led_brightness", 3);
        globalHandler->exportGlobals(globals->document(), out.filePath("mine"));
        QCOMPARE(bytes("mine.jsumglobalmap"),
                 QByteArray("{\n    \"Global\": {\n        \"led_brightness\": 3\n    }\n}\n"));

        QStringList around;
        globalHandler->aroundChange = [&](const std::function<void()>& change) {
            around << QString::number(recalled.size());
            change();
            around << QString::number(recalled.size());
        };
        QVariantMap values = presetdefaults::globals();
        values.insert({{"ch1_phantom", 1}, {"phantom_voltage", 0}, {"led_brightness", 99}});
        globalHandler->importFiles(files({{"flat", QJsonDocument::fromVariant(values).toJson()}}));
        const QString undo =
            "\nTo undo this, import " + folder->file("backups/before-import.jsumglobalmap");
        QCOMPARE(box(),
                 "The global mappings are now those of flat.\n\n"
                 "1 value was brought into its range\n"
                 "Phantom power of 12 V is on now on input 1."
                     + undo);
        QCOMPARE(around.join(' '), QString("0 1"));
        values.insert("led_brightness", 31);
        QCOMPARE(recalled.value(0), QVariantList{values});
        QCOMPARE(globals->document(), (QVariantMap{{"Global", values}}));

        globalHandler->importFiles(files({{"p", whole({})}}));
        QCOMPARE(box(),
                 QString("Nothing was imported.\n\np: it holds a preset, and no global "
                         "mappings"));
        globalHandler->importFiles(files({{"a", "{}"}, {"b", "{}"}}));
        QVERIFY(box().startsWith("Nothing was imported: of global mappings, one file"));
        QCOMPARE(recalled.size(), 1);

        globalHandler->importFiles({globals->fileBeforeChange()});
        QCOMPARE(box(),
                 "The global mappings are now those of before-import.jsumglobalmap.\n" + undo);
        QCOMPARE(globals->document()["Global"].toMap()["led_brightness"].toInt(), 3);
        globalHandler->reportClear(globals->slotClearGlobalPreset());
        QVERIFY(box().startsWith("Nothing was reset"));
    }
};

QTEST_MAIN(TestImportExportHandler)
#include "tst_importexporthandler.moc"
