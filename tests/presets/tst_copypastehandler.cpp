#include "copypastehandler.h"
#include "storefixture.h"

#include <QSignalSpy>

// Copies and pastes of presets and channels, as the library, the controls and the mixer get them.
class TestCopyPasteHandler : public LibraryTest
{
    Q_OBJECT

    std::unique_ptr<Recorder> recorder;
    std::unique_ptr<CopyPasteHandler> handler;

    void prepare() override
    {
        LibraryTest::prepare();
        recorder = std::make_unique<Recorder>(store.get());
        handler = std::make_unique<CopyPasteHandler>(store.get());
        read(libraryOf({"[CONNECTION SYNC]", "a", "b"}));
        select(1);
    }
    // Makes the preset current without a recall; the mixer is in sync then.
    void select(int presetNum)
    {
        store->slotSetCurrentPreset(presetNum);
        store->slotSetSyncStatus(true);
    }
    void edit(const QString& name, int value) { store->slotStoreValue(name, value, -1); }

    static QVariantMap blankTemplate()
    {
        QFile file(JSUM_SOURCE_DIR "/resources/presets/Blank.jsumpreset");
        const bool open = file.open(QIODevice::ReadOnly);
        return open ? QJsonDocument::fromJson(file.readAll()).toVariant().toMap() : QVariantMap();
    }
    // Every parameter, each with a value of its own.
    static QVariantMap numbered(const QString& name, int first)
    {
        QVariantMap preset = blankTemplate();
        for (QVariant& value : preset)
            value = first++;
        preset.insert("preset_name", name);
        return preset;
    }

private slots:
    void channel()
    {
        // From one channel to the other, their parts of the names, and what changes of the target.
        const std::tuple<int, int, QString, QString, QString, int> rows[]{
            {1, 3, "_ch1_", "_ch3_",
             "^(channelstrip_ch3_(trim|highPass|eq|compressor|gate|pan|aux[123]_routing)_?|"
             "faderframe_ch3_(fader|mute|solo)$|reverbtab_ch3_send_level$)",
             36},
            {9, 9, "_mains_", "_mains_", "_mains_(eq|compressor|gate|fader|mute)", 21},
            {10, 12, "_aux1_", "_aux3_",
             "^(channelstrip_ch[1-8]_aux3_routing_|faderframe_aux3_(fader|mute)$)", 26},
            {13, 13, "_phones_", "_phones_", "_phones_(fader|mute|monitor_select)$", 3},
            {9, 8, "", "", "^none$", 0},
            {8, 9, "", "", "^none$", 0},
            {13, 12, "", "", "^none$", 0},
        };
        for (const auto& [from, to, fromWord, toWord, keys, count] : rows) {
            const QVariantMap source = numbered("[CONNECTION SYNC]", 1000);
            QVariantMap target = numbered("target", 2000);
            const QVariantMap library{{"Preset_000", source}, {"Preset_001", target}};
            read(QJsonDocument::fromVariant(library).toJson());
            select(0);
            handler->slotSetCurrentChannel(from);
            handler->slotCopyChannel();
            select(1);
            handler->slotSetCurrentChannel(to);
            handler->slotPasteChannel();

            QStringList sent;
            for (const QString& key : target.keys().filter(QRegularExpression(keys))) {
                target[key] = source.value(QString(key).replace(toWord, fromWord));
                sent << key;
            }
            QCOMPARE(sent.size(), count);
            QCOMPARE(store->workingPreset(1), target);
            // Not in a recall's brackets: a stereo partner follows.
            const QString events =
                "cut lock recall:target " + sent.join(' ') + " join free dirty:1 done";
            const QString values = "=\\d+";
            QCOMPARE(recorder->take().remove(QRegularExpression(values)),
                     sent.isEmpty() ? QString() : events);
        }
    }

    void preset()
    {
        edit("reverbtab_pre_delay", 42);
        edit("junk", 5);
        handler->slotCopyPreset();
        edit("reverbtab_pre_delay", 43);
        select(2);
        edit("reverbtab_damping", 7); // the copy has none
        const QByteArray before = onDisk();
        QSignalSpy deselected(handler.get(), SIGNAL(signalDeselectMultiple()));
        handler->slotPastePreset();
        QCOMPARE(recorder->take(),
                 QString("stereo-off cut lock recall:b reverbtab_damping=7 reverbtab_pre_delay=42 "
                         "join free dirty:2 stereo-on done"));
        QCOMPARE(deselected.size(), 1);
        QCOMPARE(onDisk(), before);
        QVERIFY(!store->workingPreset(2).contains("junk"));
    }

    void newPreset()
    {
        edit("reverbtab_pre_delay", 42);
        edit("junk", 5);
        handler->slotCopyPreset();
        QSignalSpy selected(handler.get(), SIGNAL(signalPresetMenu(int)));
        handler->slotPasteNewPreset();
        handler->slotPasteNewPreset();
        QCOMPARE(selected.value(1), QVariantList{4});
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "a", "b", "a copy1", "a copy2"}));
        QCOMPARE(presetOnDisk("Preset_004"),
                 (QJsonObject{{"preset_name", "a copy2"}, {"reverbtab_pre_delay", 42}}));
        store->slotCheckSaveState(1); // keeps its edits, unlike at a save-as
        store->slotCheckSaveState(4);
        QCOMPARE(recorder->take(), QString("dirty:1 clean:4"));

        const QByteArray before = onDisk();
        store->slotSetDemoModeEnabled(true);
        handler->slotPasteNewPreset();
        QCOMPARE(names().size(), 6);
        store->slotSetDemoModeEnabled(false);
        QCOMPARE(names().size(), 5);
        QCOMPARE(onDisk(), before);
    }

    void clear()
    {
        store->slotSetDemoModeEnabled(true); // without the mixer's pace
        QVariantMap blank = blankTemplate();
        QVariantMap wanted = blank;
        wanted.insert({{"preset_name", "a"}, {"reverbtab_pre_delay", 55}});
        edit("reverbtab_damping", 1);
        edit("reverbtab_diffusion", 1);
        blank.remove("reverbtab_damping");
        blank.insert({{"reverbtab_diffusion", "much"}, {"reverbtab_pre_delay", 55}, {"junk", 1}});
        folder->write("Blank.jsumpreset", QJsonDocument::fromVariant(blank).toJson());
        handler->slotClearPreset();
        QCOMPARE(store->workingPreset(1), wanted);
    }

    // What can't be shown and sent must not change a preset behind the controls' back.
    void notNow()
    {
        const auto pasteAll = [this] {
            store->slotSetCurrentPreset(2);
            handler->slotPastePreset();
            handler->slotPasteNewPreset();
            handler->slotPasteChannel();
            handler->slotClearPreset();
        };
        edit("faderframe_ch1_fader", 5000);
        handler->slotCopyPreset();
        handler->slotCopyChannel();
        store->slotSetSyncStatus(false);
        pasteAll();
        select(1);
        // Out of the events that a recall lets in.
        QMetaObject::invokeMethod(handler.get(), pasteAll, Qt::QueuedConnection);
        store->slotRecallPreset(-1);
        store->slotCheckSaveState(2);
        QVERIFY(recorder->take().endsWith("clean:2"));
        QCOMPARE(names().size(), 3);

        store->slotSetCurrentPreset(3);
        QCOMPARE(store->currentPresetNumber(), 2);
    }
};

QTEST_MAIN(TestCopyPasteHandler)
#include "tst_copypastehandler.moc"
