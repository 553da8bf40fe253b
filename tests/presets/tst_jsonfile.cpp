#include "jsonfile.h"
#include "testcase.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sched.h>
#include <sys/mount.h>
#endif

namespace
{

const QByteArray oldText = "{\n    \"a\": 1\n}\n";
const QByteArray newText = "{\n    \"a\": 2,\n    \"b\": true\n}\n";

#ifdef Q_OS_LINUX

bool tellKernel(const QString& name, const QByteArray& text)
{
    QFile file("/proc/self/" + name);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        && file.write(text) == text.size();
}

// Mounts made from here on belong to this process alone and end with it.
bool enterOwnMounts()
{
    const QByteArray user = "0 " + QByteArray::number(::getuid()) + " 1";
    const QByteArray group = "0 " + QByteArray::number(::getgid()) + " 1";
    if (::unshare(CLONE_NEWNS) != 0
        && (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 || !tellKernel("uid_map", user)
            || !tellKernel("setgroups", "deny") || !tellKernel("gid_map", group))) {
        return false;
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool mountMemory(const QString& folder, int pages)
{
    const QByteArray size = "size=" + QByteArray::number(pages * ::sysconf(_SC_PAGESIZE));
    return ::mount("memory", QFile::encodeName(folder), "tmpfs", 0, size) == 0;
}

bool makeReadOnly(const QString& folder)
{
    const unsigned long flags = MS_REMOUNT | MS_RDONLY;
    return ::mount(nullptr, QFile::encodeName(folder), nullptr, flags, nullptr) == 0;
}

bool mountFile(const QString& file, const QString& over)
{
    return ::mount(QFile::encodeName(file), QFile::encodeName(over), nullptr, MS_BIND, nullptr)
        == 0;
}

void unmount(const QString& at) { ::umount2(QFile::encodeName(at), MNT_DETACH); }

#else

bool enterOwnMounts() { return false; }
bool mountMemory(const QString&, int) { return false; }
bool makeReadOnly(const QString&) { return false; }
bool mountFile(const QString&, const QString&) { return false; }
void unmount(const QString&) { }

#endif

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
    for (;; ++number) {
        if (jsonfile::write(path, numbered(number)) != jsonfile::WriteResult::Written)
            return 1;
        const QByteArray line = QByteArray::number(number) + '\n';
        if (::write(STDOUT_FILENO, line.constData(), static_cast<size_t>(line.size())) < 0)
            return 2;
    }
}

} // namespace

Q_DECLARE_METATYPE(jsonfile::WriteResult)

class TestJsonFile : public TestCase
{
    Q_OBJECT

    using Result = jsonfile::WriteResult;

    std::unique_ptr<QTemporaryDir> folder;
    QString path;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        path = folder->filePath("jsum.json");
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

    QString kept() const { return path + ".bak"; }

    // The contents of what has been set aside.
    QList<QByteArray> aside() const
    {
        const QDir dir(QFileInfo(path).path());
        QList<QByteArray> contents;
        for (const QString& name : dir.entryList({"jsum.json.bad-*"}, QDir::Files, QDir::Name))
            contents << content(dir.filePath(name));
        return contents;
    }

    QStringList names() const
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }

public:
    static inline bool hasOwnMounts = false;

private slots:
    void cleanup()
    {
        if (hasOwnMounts) {
            unmount(path);
            unmount(folder->path());
        }
        ::chmod(QFile::encodeName(folder->path()), 0700);
        folder.reset();
    }

    void savesKeepTheVersionBefore()
    {
        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        QCOMPARE(names(), QStringList{"jsum.json"});
        ::chmod(QFile::encodeName(path), 0640);

        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(content(path), newText);
        QCOMPARE(content(kept()), oldText);
        // A shorter one leaves nothing of the longer one behind it.
        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        QCOMPARE(content(path), oldText);
        QCOMPARE(content(kept()), newText);
        for (const QString& name : {path, kept()}) {
            struct stat status;
            QCOMPARE(::stat(QFile::encodeName(name), &status), 0);
            QCOMPARE(status.st_mode & 07777, 0640u);
        }
        // The same once more must not cost the version before.
        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        QCOMPARE(content(kept()), newText);
        QCOMPARE(names().size(), 2);
    }

    void slipsOfTheCallerAreRefused()
    {
        put(path, oldText);
        for (const QByteArray& bytes : {QByteArray(), QByteArray("null\n"), QByteArray("[\n]\n"),
                                        QByteArray("{\n    \"a\": 1,\n"), QByteArray("{")}) {
            QCOMPARE(jsonfile::write(path, bytes), Result::Untouched);
        }
        QCOMPARE(names(), QStringList{"jsum.json"});
        QCOMPARE(content(path), oldText);
    }

    void badFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        // Without its last line feed it is still a document.
        for (qsizetype length = 0; length < newText.size() - 1; ++length)
            QTest::addRow("cut at %d", static_cast<int>(length)) << newText.first(length);
        QTest::newRow("not UTF-8") << QByteArray("{\"a\": \"\xC3\x28\xFF\"}");
        QTest::newRow("array at the top") << QByteArray("[{\"a\": 1}]");
        QTest::newRow("text at the top") << QByteArray("\"a\"");
        QTest::newRow("two documents") << newText + newText;
        QTest::newRow("tail of a longer one") << newText + "}\n";
        QTest::newRow("hole inside a text")
            << QByteArray("{\"first_") + QByteArray(4096, '\0') + QByteArray("ter\": 1}");
        QTest::newRow("deep nesting") << QByteArray(100000, '[');
    }
    void badFiles()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!jsonfile::isDocument(bytes));

        // Neither it nor its copy is any good: it stays, and reads as it is.
        put(path, bytes);
        put(kept(), bytes);
        jsonfile::restoreAtStart(path);
        QCOMPARE(jsonfile::read(path), bytes);
        QCOMPARE(jsonfile::readAtStart(path), QJsonObject());
        QCOMPARE(names().size(), 2);

        // With a good copy: set aside, and the copy is in its place.
        put(kept(), oldText);
        QCOMPARE(jsonfile::readAtStart(path), QJsonObject({{"a", 1}}));
        QCOMPARE(content(path), oldText);
        QCOMPARE(aside(), QList{bytes});

        // Met at a save: set aside as well, in the same second, and no good copy is lost to it.
        put(path, bytes);
        put(kept(), oldText);
        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(content(path), newText);
        QCOMPARE(content(kept()), oldText);
        QCOMPARE(aside(), (QList{bytes, bytes}));
        QCOMPARE(names().size(), 4);
    }

    // The version that a save of our own has left is not parsed again; another's must be.
    void changedByOthersBetweenSaves()
    {
        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        put(path, QByteArray(oldText).replace('}', ' '));
        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(content(kept()), newText);
        const QString name = names().value(1);
        const auto date = QDateTime::fromString(name, "'jsum.json.bad-'yyyyMMdd-HHmmss");
        const auto now = QDateTime::currentDateTime();
        QVERIFY2(date <= now && date > now.addSecs(-60), qPrintable(name));
    }

    void missingFileComesBack()
    {
        put(kept(), oldText);
        put(path + ".new", "{ \"half");
        put(kept() + ".new", "{ \"half");
        jsonfile::restoreAtStart(path);
        QCOMPARE(content(path), oldText);
        QCOMPARE(names(), QStringList{"jsum.json"});

        QFile::remove(path);
        put(kept(), "{");
        jsonfile::restoreAtStart(path);
        QCOMPARE(names(), QStringList{"jsum.json.bak"});
        QVERIFY(!jsonfile::read(path));
        QCOMPARE(jsonfile::write(folder->filePath("nowhere/jsum.json"), newText),
                 Result::Untouched);
    }

    void notAFile_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"folder", "pipe", "link to itself", "/dev/zero", "/dev/full"})
            QTest::newRow(kind) << kind;
    }
    // A pipe that nobody reads would hold the program for ever, as would all of /dev/zero.
    void notAFile()
    {
        QFETCH(QString, kind);
        if (kind == "folder")
            QVERIFY(QDir().mkdir(path));
        else if (kind == "pipe")
            QCOMPARE(::mkfifo(QFile::encodeName(path), 0600), 0);
        else
            QVERIFY(QFile::link(kind == "link to itself" ? "jsum.json" : kind, path));
        put(kept(), oldText);

        QVERIFY(!jsonfile::read(path));
        QCOMPARE(jsonfile::write(path, newText), Result::Untouched);
        jsonfile::restoreAtStart(path);
        QVERIFY(!jsonfile::readAtStart(path));
        jsonfile::keepDailyCopy(path, folder->path());
        QCOMPARE(names().size(), 2);
        QCOMPARE(content(kept()), oldText);
    }

    void somethingElseAsCopy_data()
    {
        QTest::addColumn<QString>("ending");
        for (const char* ending : {".bak", ".new", ".bak.new"})
            QTest::newRow(ending) << ending;
    }
    // A name that is taken for good must not keep the user from saving.
    void somethingElseAsCopy()
    {
        QFETCH(QString, ending);
        put(path, oldText);
        QVERIFY(QDir().mkpath(path + ending + "/full"));
        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(content(path), newText);
        jsonfile::restoreAtStart(path);
        put(path, "{");
        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(content(path), newText);

        QVERIFY(QDir(path + ending).removeRecursively());
        QCOMPARE(::mkfifo(QFile::encodeName(path + ending), 0600), 0);
        jsonfile::restoreAtStart(path);
        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        QCOMPARE(content(path), oldText);
    }

    void vastFile()
    {
        put(path, oldText);
        if (::truncate(QFile::encodeName(path), off_t{1} << 40) != 0)
            QSKIP("this file system has no files of a terabyte");
        QVERIFY(!jsonfile::read(path));
        QCOMPARE(jsonfile::write(path, newText), Result::Untouched);
        jsonfile::restoreAtStart(path);
        QCOMPARE(QFileInfo(path).size(), qint64{1} << 40);
    }

    void links()
    {
        // A chain of relative ones, the first through a folder that is a link itself.
        QVERIFY(QDir(folder->path()).mkpath("far/off"));
        QVERIFY(QFile::link("far/off", folder->filePath("near")));
        QVERIFY(QFile::link("near/../second", path));
        QVERIFY(QFile::link("off/real.json", folder->filePath("far/second")));
        const QString real = folder->filePath("far/off/real.json");

        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        QCOMPARE(jsonfile::write(path, newText), Result::Written);
        QCOMPARE(content(real), newText);
        QCOMPARE(content(real + ".bak"), oldText);
        QFile::remove(real);
        jsonfile::restoreAtStart(path);
        QCOMPARE(content(real), oldText);
        put(real, "{");
        put(real + ".bak", newText);
        QCOMPARE(jsonfile::readAtStart(path)->size(), 2);
        QVERIFY(QFileInfo(path).isSymbolicLink());
        QCOMPARE(QDir(folder->filePath("far/off")).count(), 2u + 2u);
        QCOMPARE(names(), (QStringList{"far", "jsum.json", "near"}));
    }

    void noPermission()
    {
        const bool mounted = hasOwnMounts && mountMemory(folder->path(), 16);
        if (!mounted && ::geteuid() == 0)
            QSKIP("root may write everywhere, and has no right to mount a file system here");
        put(path, oldText);
        put(kept(), newText);
        put(folder->filePath("global.json"), "{");
        put(folder->filePath("global.json.bak"), newText);
        if (mounted) {
            QVERIFY(makeReadOnly(folder->path()));
        } else {
            for (const QString& name : names())
                ::chmod(QFile::encodeName(folder->filePath(name)), 0400);
            ::chmod(QFile::encodeName(folder->path()), 0500);
        }
        QCOMPARE(jsonfile::write(path, newText), Result::Untouched);
        QCOMPARE(jsonfile::write(folder->filePath("new.json"), newText), Result::Untouched);
        jsonfile::restoreAtStart(folder->filePath("global.json"));
        jsonfile::keepDailyCopy(path, folder->path());
        QCOMPARE(content(path), oldText);
        QCOMPARE(content(kept()), newText);
        QCOMPARE(content(folder->filePath("global.json")), "{");
    }

    // The folder's rights alone are wanting, with and without a copy from better days.
    void folderTakesNoNames()
    {
        QTemporaryDir outside;
        put(outside.filePath("writable"), oldText);
        const bool mounted = hasOwnMounts && mountMemory(folder->path(), 16);
        put(path, oldText);
        put(kept(), newText);
        if (mounted) {
            QVERIFY(makeReadOnly(folder->path()));
            QVERIFY(mountFile(outside.filePath("writable"), path));
        } else if (::geteuid() == 0) {
            QSKIP("root may write everywhere, and has no right to mount a file system here");
        } else {
            QCOMPARE(::chmod(QFile::encodeName(folder->path()), 0500), 0);
        }
        QCOMPARE(jsonfile::write(path, newText + "\n"), Result::Written);
        QCOMPARE(content(path), newText + "\n");
        put(path, "{");
        jsonfile::restoreAtStart(path);
        QCOMPARE(content(path), newText);
        put(path, "{");
        QCOMPARE(jsonfile::write(path, oldText), Result::Written);
        QCOMPARE(content(path), oldText);
        QCOMPARE(content(kept()), newText);
        QCOMPARE(names(), (QStringList{"jsum.json", "jsum.json.bak"}));
    }

    void diskFull_data()
    {
        QTest::addColumn<bool>("whole");
        QTest::newRow("document on disk") << true;
        QTest::newRow("bad file on disk") << false;
    }
    // A page less of free space each time, from plenty down to none: every write of a save fails
    // once.
    void diskFull()
    {
        QFETCH(bool, whole);
        if (!hasOwnMounts || !mountMemory(folder->path(), 64))
            QSKIP("no right to mount a file system here");
        const qsizetype page = ::sysconf(_SC_PAGESIZE);
        const QByteArray older = "{\"older\": \"" + QByteArray(4 * page, 'o') + "\"}";
        QByteArray old = "{\"old\": \"" + QByteArray(6 * page, 'p') + "\"}";
        const QByteArray next = "{\"next\": \"" + QByteArray(20 * page, 'n') + "\"}";
        if (!whole)
            old.chop(1);
        QSet<Result> seen;
        for (qsizetype fill = 20; fill < 64; ++fill) {
            put(path, old);
            put(kept(), older);
            QFile filler(folder->filePath("filler"));
            QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
            filler.write(QByteArray(fill * page, 'f'));
            filler.close();

            const Result result = jsonfile::write(path, next);
            seen << result;
            QCOMPARE(content(path), result == Result::Written ? next : old);
            QCOMPARE(content(kept()), !whole || result == Result::Untouched ? older : old);
            QCOMPARE(aside().size(), !whole && result == Result::Written ? 1 : 0);
            QVERIFY(!QFile::exists(path + ".new"));
            QVERIFY(!QFile::exists(kept() + ".new"));
            for (const QString& name : names())
                QFile::remove(folder->filePath(name));
        }
        QSet<Result> expected{Result::Written, Result::Untouched};
        if (whole)
            expected << Result::Restored;
        QCOMPARE(seen, expected);
    }

    void killedAtAnyMoment()
    {
        // In memory the time goes into the steps themselves, not into waiting for a disk.
        if (hasOwnMounts)
            mountMemory(folder->path(), 1024);
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
            const QList<QByteArray> told = saver.readAllStandardOutput().split('\n');
            const int reported = told.value(told.size() - 2).toInt();
            QVERIFY(reported > saved);

            const auto object = jsonfile::readAtStart(path);
            QVERIFY(object);
            const int found = object->value("last").toInt();
            QVERIFY2(found == reported || found == reported + 1,
                     qPrintable(QString("%1 reported, %2 found").arg(reported).arg(found)));
            QCOMPARE(jsonfile::read(path), numbered(found));
            saved = found;
        }
        qInfo() << saved << "saves," << aside().size() << "cut off in the file itself";
        QVERIFY(saved > 0);
    }

    void dailyCopies()
    {
        const QString copies = folder->filePath("backups");
        put(path, oldText);
        jsonfile::keepDailyCopy(path, copies, QDate(2026, 11, 1));
        QVERIFY(!QFileInfo::exists(copies));

        QVERIFY(QDir().mkdir(copies));
        for (const char* other : {"jsum-live-2026-01-01.json", "global-2026-01-01.json", "notes"})
            put(copies + "/" + other, "mine");
        put(copies + "/jsum-2026-10-02.json.new", "{ \"half");
        put(path, "{");
        jsonfile::keepDailyCopy(path, copies, QDate(2026, 11, 1));
        QCOMPARE(QDir(copies).count(), 2u + 4u);
        for (int day = 25; day <= 34; ++day) {
            put(path, "{\"day\": " + QByteArray::number(day) + "}");
            jsonfile::keepDailyCopy(path, copies, QDate(2026, 10, 1).addDays(day - 1));
            put(path, newText);
            jsonfile::keepDailyCopy(path, copies, QDate(2026, 10, 1).addDays(day - 1));
        }
        const QStringList left = QDir(copies).entryList(QDir::Files, QDir::Name);
        QCOMPARE(
            left,
            (QStringList{"global-2026-01-01.json", "jsum-2026-10-28.json", "jsum-2026-10-29.json",
                         "jsum-2026-10-30.json", "jsum-2026-10-31.json", "jsum-2026-11-01.json",
                         "jsum-2026-11-02.json", "jsum-2026-11-03.json",
                         "jsum-live-2026-01-01.json", "notes"}));
        // The first of the day counts.
        QCOMPARE(content(copies + "/jsum-2026-10-28.json"), "{\"day\": 28}");
        // A clock that has gone back.
        jsonfile::keepDailyCopy(path, copies, QDate(1970, 1, 1));
        QCOMPARE(content(copies + "/jsum-1970-01-01.json"), newText);
        QCOMPARE(QDir(copies).count(), 2u + 10u);
    }
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--save-for-ever")
        return saveForEver(arguments.value(2), arguments.value(3).toInt());
    // Before there are other threads, which a namespace of its own would not take along.
    TestJsonFile::hasOwnMounts = enterOwnMounts();
    TestJsonFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_jsonfile.moc"
