#include "diskfile.h"
#include "filesize.h"
#include "jsonfile.h"
#include "testcase.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

const QByteArray oldText = "{\n    \"a\": 1\n}\n";
const QByteArray newText = "{\n    \"a\": 2,\n    \"b\": true\n}\n";

// Documents of different lengths, in which the last key tells whether the first one's document is
// all there.
QByteArray numbered(int number)
{
    const QByteArray count = QByteArray::number(number);
    return "{\n    \"first\": " + count + ",\n    \"filling\": \""
        + QByteArray(100000 + number * 7919 % 300000, 'x') + "\",\n    \"last\": " + count
        + "\n}\n";
}

// What the killed process does: saves one document after the other and tells of each.
int saveForEver(const QString& path, int number)
{
    for (JsonFile file(path);; ++number) {
        if (file.write(numbered(number)) != JsonFile::WriteResult::Written)
            return 1;
        QTextStream(stdout) << number << Qt::endl;
    }
}

} // namespace

class TestJsonFile : public TestCase
{
    Q_OBJECT

    using Result = JsonFile::WriteResult;

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    QString kept;

    void prepare() override { useFolderIn(QDir::tempPath()); }
    void useFolderIn(const QString& place)
    {
        folder.reset();
        folder = std::make_unique<QTemporaryDir>(place + "/tst_jsonfile-XXXXXX");
        path = folder->filePath("jsum.json");
        kept = path + ".bak";
    }

    static void put(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    static QByteArray content(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "(none)";
    }

    // The contents of what has been set aside.
    QList<QByteArray> aside() const
    {
        QList<QByteArray> contents;
        for (const QString& name : names().filter("jsum.json.bad-"))
            contents << content(folder->filePath(name));
        return contents;
    }

    QStringList names() const
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }

private slots:
    void cleanup()
    {
        if (::geteuid() != ::getuid() && ::seteuid(::getuid()) != 0)
            qFatal("cannot become root again");
        if (folder)
            ::chmod(QFile::encodeName(folder->path()), 0700);
        folder.reset();
    }

    void savesKeepTheVersionBefore()
    {
        QCOMPARE(JsonFile(path).write(oldText), Result::Written);
        QCOMPARE(names(), QStringList{"jsum.json"});
        ::chmod(QFile::encodeName(path), 0640);
        QCOMPARE(JsonFile(path).write(newText), Result::Written);
        QCOMPARE(content(kept), oldText);
        // The same once more must not cost the version before.
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(JsonFile(path).write(oldText), Result::Written);
            QCOMPARE(content(path), oldText);
            QCOMPARE(content(kept), newText);
        }
        for (const QString& name : {path, kept}) {
            struct stat status;
            QCOMPARE(::stat(QFile::encodeName(name), &status), 0);
            QCOMPARE(status.st_mode & 07777, 0640u);
        }
        // What an earlier save has left is not parsed again; another program's change must be.
        JsonFile file(path);
        QCOMPARE(file.write(oldText), Result::Written);
        put(path, QByteArray(oldText).replace('}', ' '));
        QCOMPARE(file.write(oldText), Result::Written);
        QCOMPARE(content(kept), newText);
        QCOMPARE(names().size(), 3);
    }

    void changedByAnother()
    {
        const QByteArray other = "{\"other\": 1}";
        const auto kinds = [&] { return names().filter("jsum.json.other-"); };
        JsonFile file(path);
        QVERIFY(!file.readAtStart());
        put(path, other); // where nothing was
        QCOMPARE(file.write(oldText), Result::Written);
        QCOMPARE(content(path), oldText);
        QCOMPARE(kinds().size(), 1);
        QCOMPARE(content(folder->filePath(kinds().first())), other);

        QCOMPARE(file.write(newText), Result::Written); // its own
        put(path, newText);                             // the same again
        QCOMPARE(file.write(oldText), Result::Written);
        QCOMPARE(kinds().size(), 1);
        put(path, other + ' ');
        QVERIFY(limitFileSize(3)); // no room for what would be lost
        QCOMPARE(file.write(newText), Result::Untouched);
        QVERIFY(limitFileSize(RLIM_INFINITY));
        QCOMPARE(content(path), other + ' ');
        QCOMPARE(file.write(newText), Result::Written);
        QCOMPARE(kinds().size(), 2);
        QCOMPARE(names().size(), 4);
    }

    // In a folder that another editor uses, not even what is broken is mended.
    void onlyLookedAt()
    {
        QVERIFY(QDir(folder->path()).mkdir("backups"));
        put(kept, oldText);
        put(path + ".new", "{ \"half");
        for (const char* bytes : {"{\"a\":1}", "{", ""}) {
            if (*bytes != 0)
                put(path, bytes);
            else
                QFile::remove(path);
            const QStringList before = names();
            JsonFile file(path, JsonFile::Access::LookOnly);
            QCOMPARE(file.load(), std::optional(QVariantMap({{"a", 1}}))); // shown all the same
            QCOMPARE(file.write(newText), Result::Untouched);
            QCOMPARE(names(), before);
            QCOMPARE(content(path), *bytes != 0 ? QByteArray(bytes) : "(none)");
            QCOMPARE(content(kept), oldText);
            QVERIFY(QDir(folder->filePath("backups")).isEmpty());
        }
    }

    void slipsOfTheCallerAreRefused()
    {
        put(path, oldText);
        for (const char* bytes : {"", "null\n", "[\n]\n", "{\n    \"a\": 1,\n", "{"})
            QCOMPARE(JsonFile(path).write(bytes), Result::Untouched);
        QCOMPARE(content(path), oldText);
        QCOMPARE(names(), QStringList{"jsum.json"});
        QCOMPARE(JsonFile(folder->filePath("no/folder.json")).write(newText), Result::Untouched);
    }

    void badFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        // Without its last line feed it is still a document.
        for (qsizetype length = 0; length < newText.size() - 1; ++length)
            QTest::addRow("cut at %d", static_cast<int>(length)) << newText.first(length);
        QTest::newRow("not UTF-8") << QByteArray("{\"a\": \"\xC3\x28\xFF\"}");
        QTest::newRow("tail of a longer one") << newText + "}\n";
        QTest::newRow("hole inside a text")
            << QByteArray("{\"first_") + QByteArray(4096, '\0') + QByteArray("ter\": 1}");
        QTest::newRow("deep nesting") << QByteArray(100000, '[');
    }
    void badFiles()
    {
        QFETCH(QByteArray, bytes);
        // Neither it nor its copy is any good: it stays, and reads as it is.
        put(path, bytes);
        put(kept, bytes);
        QCOMPARE(JsonFile(path).readAtStart(), QJsonObject());
        QCOMPARE(diskfile::readFile(path), bytes);
        QCOMPARE(names().size(), 2);

        // With nothing but a good copy and what an interrupted save has left.
        QFile::remove(path);
        for (const char* ending : {".bak", ".new", ".bak.new"})
            put(path + ending, ending == QLatin1String(".bak") ? oldText : "{ \"half");
        QCOMPARE(JsonFile(path).readAtStart(), QJsonObject({{"a", 1}}));
        QCOMPARE(content(path), oldText);
        QCOMPARE(names(), QStringList{"jsum.json"});

        // With a good copy: set aside, and the copy is in its place.
        put(path, bytes);
        put(kept, oldText);
        QCOMPARE(JsonFile(path).readAtStart(), QJsonObject({{"a", 1}}));
        QCOMPARE(content(path), oldText);
        QCOMPARE(aside(), QList{bytes});

        // Met at a save: set aside as well, in the same second, and no good copy is lost to it.
        put(path, bytes);
        put(kept, oldText);
        QCOMPARE(JsonFile(path).write(newText), Result::Written);
        QCOMPARE(content(path), newText);
        QCOMPARE(content(kept), oldText);
        QCOMPARE(aside(), (QList{bytes, bytes}));
        QCOMPARE(names().size(), 4);
    }

    // A pipe that nobody reads would hold the program for ever, as would all of /dev/zero.
    void notAFile()
    {
        for (const QString kind : {"folder", "pipe", "a terabyte", "/dev/zero"}) {
            prepare();
            if (kind == "folder")
                QVERIFY(QDir().mkdir(path));
            else if (kind == "pipe")
                QCOMPARE(::mkfifo(QFile::encodeName(path), 0600), 0);
            else if (kind == "/dev/zero")
                QVERIFY(QFile::link(kind, path));
            else
                put(path, oldText);
            if (kind == "a terabyte" && !QFile::resize(path, qint64{1} << 40))
                continue; // this file system has no such files
            put(kept, oldText);
            QVERIFY(!JsonFile(path).readAtStart());
            QCOMPARE(JsonFile(path).write(newText), Result::Untouched);
            JsonFile(path).keepDailyCopy(folder->path());
            QCOMPARE(names().size(), 2);
            QCOMPARE(content(kept), oldText);
        }
    }

    // A name that is taken for good must not keep the user from saving.
    void somethingElseAsCopy()
    {
        for (const char* ending : {".bak", ".new", ".bak.new"}) {
            prepare();
            QVERIFY(QDir().mkpath(path + ending + "/full"));
            for (const QByteArray& before : {oldText, QByteArray("{")}) {
                put(path, before);
                JsonFile(path).readAtStart();
                QCOMPARE(JsonFile(path).write(newText), Result::Written);
                QCOMPARE(content(path), newText);
            }
        }
    }

    void links()
    {
        // A chain of relative ones, the first through a folder that is a link itself.
        QVERIFY(QDir(folder->path()).mkpath("far/off"));
        QVERIFY(QFile::link("far/off", folder->filePath("near")));
        QVERIFY(QFile::link("near/../second", path));
        QVERIFY(QFile::link("off/real.json", folder->filePath("far/second")));
        const QString real = folder->filePath("far/off/real.json");

        QCOMPARE(JsonFile(path).write(oldText), Result::Written);
        QCOMPARE(JsonFile(path).write(newText), Result::Written);
        QCOMPARE(content(real), newText);
        put(real, "{");
        JsonFile(path).readAtStart();
        QCOMPARE(content(real), oldText);
        QCOMPARE(names(), (QStringList{"far", "jsum.json", "near"}));
    }

    // The folder takes no new names, with the file itself writable and not.
    void noPermission()
    {
        constexpr uid_t nobody = 65534; // root may write everywhere
        folder.reset();
        if (::geteuid() == 0 && ::seteuid(nobody) != 0)
            QSKIP("no right to become somebody else");
        prepare();
        put(path, "{");
        put(kept, newText);
        QCOMPARE(::chmod(QFile::encodeName(folder->path()), 0500), 0);
        JsonFile(path).readAtStart();
        QCOMPARE(content(path), newText);
        QCOMPARE(JsonFile(path).write(oldText), Result::Written);
        ::chmod(QFile::encodeName(path), 0400);
        QCOMPARE(JsonFile(path).write(newText), Result::Untouched);
        QCOMPARE(content(path), oldText);
        QCOMPARE(content(kept), newText);
        QCOMPARE(names().size(), 2);
    }

    // With ever more space, each write of a save fails for a while.
    void diskFull()
    {
        for (const bool whole : {true, false}) {
            prepare();
            const QByteArray older = "{\"older\": 1}";
            const QByteArray old = whole ? "{\"old\": \"longer than older\"}" : "{\"old\": \"cut o";
            const QByteArray next = "{\"next\": \"longer than what was there\"}";
            QSet<Result> seen;
            for (rlim_t space = 0; space <= static_cast<rlim_t>(next.size()); ++space) {
                put(path, old);
                put(kept, older);
                QVERIFY(limitFileSize(space));
                const Result result = JsonFile(path).write(next);
                QVERIFY(limitFileSize(RLIM_INFINITY));

                seen << result;
                QCOMPARE(content(path), result == Result::Written ? next : old);
                QCOMPARE(content(kept), !whole || result == Result::Untouched ? older : old);
                QCOMPARE(aside().size(), !whole && result == Result::Written ? 1 : 0);
                QCOMPARE(names().size(), 2 + aside().size());
            }
            QCOMPARE(seen.size(), whole ? 3 : 2); // restored in the one case only
        }
    }

    void killedAtAnyMoment()
    {
        // In memory the time goes into the steps themselves, not into waiting for a disk.
        if (QFileInfo("/dev/shm").isWritable())
            useFolderIn("/dev/shm");
        QRandomGenerator random(20261121);
        int saved = 0;
        put(path, numbered(0));
        QElapsedTimer time;
        time.start();
        for (int kills = 0; (saved < 1000 || kills < 150) && time.elapsed() < 8000; ++kills) {
            QProcess saver;
            saver.start(QCoreApplication::applicationFilePath(),
                        {"--save-for-ever", path, QString::number(saved + 1)});
            QVERIFY(saver.waitForReadyRead());
            QTest::qSleep(1 + random.bounded(30));
            QThread::usleep(random.bounded(1000u));
            saver.kill();
            QVERIFY(saver.waitForFinished());
            QCOMPARE(saver.exitStatus(), QProcess::CrashExit);
            const int reported = saver.readAllStandardOutput().trimmed().split('\n').last().toInt();
            const auto object = JsonFile(path).readAtStart();
            QVERIFY(object);
            const int found = object->value("last").toInt();
            QVERIFY(found == reported || found == reported + 1);
            QCOMPARE(diskfile::readFile(path), numbered(found));
            saved = found;
        }
        QVERIFY(saved > 0);
    }

    // It must not take a half-written file for a broken one, and put an old version in its place.
    void anotherEditorStartsMeanwhile()
    {
        if (QFileInfo("/dev/shm").isWritable())
            useFolderIn("/dev/shm");
        put(path, numbered(0));
        QProcess saver;
        saver.start(QCoreApplication::applicationFilePath(), {"--save-for-ever", path, "1"});
        QVERIFY(saver.waitForReadyRead());
        for (int start = 0; start < 300; ++start)
            JsonFile(path, JsonFile::Access::LookOnly).load();
        QCOMPARE(saver.state(), QProcess::Running);
        saver.kill();
        QVERIFY(saver.waitForFinished());
        QCOMPARE(aside().size() + names().filter(".other-").size(), 0);
    }

    void dailyCopies()
    {
        const QString copies = folder->filePath("backups");
        put(path, oldText);
        JsonFile(path).keepDailyCopy(copies);
        QVERIFY(!QFileInfo::exists(copies));

        QVERIFY(QDir().mkdir(copies));
        for (const char* other : {"jsum-live-2026-01-01.json", "global-2026-01-01.json"})
            put(copies + "/" + other, "mine");
        put(copies + "/jsum-2026-10-02.json.new", "{ \"half");
        for (int day = 25; day <= 34; ++day) {
            // The first of the day counts that is a document.
            for (const QByteArray& bytes : {QByteArray("{"), oldText, newText}) {
                put(path, bytes);
                JsonFile(path).keepDailyCopy(copies, QDate(2026, 9, 30).addDays(day));
            }
        }
        const QStringList left = QDir(copies).entryList(QDir::Files, QDir::Name);
        QCOMPARE(left.size(), 2 + 7);
        QCOMPARE(left.value(1), QString("jsum-2026-10-28.json"));
        QCOMPARE(content(copies + "/jsum-2026-10-28.json"), oldText);
        // A clock that has gone back.
        JsonFile(path).keepDailyCopy(copies, QDate(1970, 1, 1));
        QCOMPARE(content(copies + "/jsum-1970-01-01.json"), newText);
    }
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--save-for-ever")
        return saveForEver(arguments.value(2), arguments.value(3).toInt());
    TestJsonFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_jsonfile.moc"
