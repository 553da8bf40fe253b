#include "presetslock.h"
#include "testcase.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>

static bool mayWrite(const PresetsLock& lock) { return lock.access() == JsonFile::Access::Full; }

// Two editors in one folder, each in a process of its own.
class TestPresetsLock : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QProcess editor;

    void prepare() override { folder = std::make_unique<QTemporaryDir>(); }
    void startEditor()
    {
        editor.start(QCoreApplication::applicationFilePath(), {"--use", folder->path()});
        QVERIFY(editor.waitForReadyRead());
        QCOMPARE(editor.readAll(), "alone\n");
    }
    bool isFree() const { return mayWrite(PresetsLock(folder->path())); }
    // In the name of a process that runs.
    void leave(const QByteArray& content)
    {
        QFile sign(folder->filePath("editor.lock"));
        QVERIFY(sign.open(QIODevice::WriteOnly) && sign.write(content) == content.size());
        sign.flush();
        sign.setFileTime(QDateTime::currentDateTime().addSecs(-10), QFile::FileModificationTime);
    }

private slots:
    void whoeverRunsHoldsIt()
    {
        startEditor();
        // No age makes it worthless.
        QFile sign(folder->filePath("editor.lock"));
        QVERIFY(sign.open(QIODevice::ReadWrite));
        sign.setFileTime(QDateTime::currentDateTime().addDays(-30), QFile::FileModificationTime);
        for (int i = 0; i < 2; ++i)
            QVERIFY(!isFree());
        editor.closeWriteChannel(); // it ends
        QVERIFY(editor.waitForFinished());
        QVERIFY(isFree());
        QVERIFY(QDir(folder->path()).isEmpty());
    }

    void whatIsLeftHoldsNobodyUp()
    {
        startEditor();
        editor.kill();
        QVERIFY(editor.waitForFinished());
        QVERIFY(QFile::exists(folder->filePath("editor.lock")));
        QVERIFY(isFree());

        leave({}); // it never reached the disk
        QVERIFY(isFree());
        leave("1\ninit\nthis machine under another name\n\n\n");
        QVERIFY(isFree());
    }

    void folderThatTakesNone() { QVERIFY(mayWrite(PresetsLock(folder->filePath("none")))); }
};

// The other editor: runs until its input ends.
static int useFolder(const QString& folder)
{
    const PresetsLock lock(folder);
    QTextStream(stdout) << (mayWrite(lock) ? "alone" : "second") << Qt::endl;
    QTextStream(stdin).readAll();
    return 0;
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--use")
        return useFolder(arguments.value(2));
    TestPresetsLock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_presetslock.moc"
