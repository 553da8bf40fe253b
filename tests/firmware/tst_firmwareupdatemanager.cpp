#include "firmwareupdatemanager.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

// Runs the manager against small tools in a folder of the test's own.
class TestFirmwareUpdateManager : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QString startFolder = QDir::currentPath();
    QStringList heard;
    QString console;
    std::unique_ptr<FirmwareUpdateManager> manager;

    void prepare() override
    {
        manager.reset();
        folder = std::make_unique<QTemporaryDir>();
        QDir(folder->path()).mkpath("resources/firmware");
        QDir::setCurrent(folder->path());
        heard.clear();
        console.clear();
    }

    void makeManager(const char* tool)
    {
        if (tool) {
            QFile file("resources/dfucons.exe");
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QByteArray("#!/bin/sh\n") + tool + "\n");
            file.close();
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
        manager = std::make_unique<FirmwareUpdateManager>();
        connect(manager.get(), SIGNAL(signalOpenFwOOD()), this, SLOT(hearOutOfDate()));
        connect(manager.get(), SIGNAL(signalFwMatch()), this, SLOT(hearMatch()));
        connect(manager.get(), SIGNAL(signalOpenRestartDialog()), this, SLOT(hearOpenRestart()));
        connect(manager.get(), SIGNAL(signalCloseRestartDialog()), this, SLOT(hearCloseRestart()));
        connect(manager.get(), SIGNAL(signalUpdateComplete()), this, SLOT(hearComplete()));
        connect(manager.get(), SIGNAL(signalFwError(QString)), this, SLOT(hearError(QString)));
        connect(manager.get(), SIGNAL(signalConsoleText(QString)), this, SLOT(hearText(QString)));
    }

public slots:
    void hearOutOfDate() { heard << "out of date"; }
    void hearMatch() { heard << "match"; }
    void hearOpenRestart() { heard << "restart?"; }
    void hearCloseRestart() { heard << "restarted"; }
    void hearComplete() { heard << "complete"; }
    void hearError(QString text) { heard << "error:" + text; }
    void hearText(QString text) { console += text; }

private slots:
    void cleanup()
    {
        manager.reset();
        QDir::setCurrent(startFolder);
    }

    void checkEnds()
    {
        const struct {
            const char* tool;
            QString found;
            QString expected;
            bool updated;
            QStringList heard;
        } rows[]{
            {"exit 0", "1.2.3", "1.2.3", false, {"match", "match"}},
            {"exit 0", "", "", true, {"match", "restarted", "match"}},
            {"exit 38", "1.2.3", "1.2.4", false, {"out of date"}},
            {"exit 38", "1.2.3", "1.2.3", false, {"match"}},
            {"kill -SEGV $$", "", "", false, {"match"}},
            {nullptr, "", "", false, {"match"}},
        };
        for (const auto& row : rows) {
            prepare();
            makeManager(row.tool);
            manager->foundVersion = row.found;
            manager->expectedVersion = row.expected;
            manager->updateSucceeded = row.updated;
            manager->slot_CheckFWStarted();
            QTRY_COMPARE(heard, row.heard);
            QTest::qWait(20);
            QCOMPARE(heard, row.heard);
            QVERIFY(!manager->updateSucceeded);
        }
        QVERIFY(console.contains("could not be started"));
    }

    void outputIsPassedOnWhole()
    {
        // Two megabytes without a line end, and a character cut in two between writes.
        makeManager("head -c 2000000 /dev/zero | tr '\\0' x; printf '\\303'; sleep 0.2; "
                    "printf '\\251'; exit 0");
        manager->slot_CheckFWStarted();
        QTRY_VERIFY_WITH_TIMEOUT(heard.contains("match"), 10000);
        QCOMPARE(console.count('x'), 2000000);
        QVERIFY(console.contains(QChar(0xE9)));
    }

    void abortedCheckIsSilentAndTheNextOneCounts()
    {
        makeManager("if [ -e second ]; then exit 0; fi; touch second; exec sleep 60");
        manager->slot_CheckFWStarted();
        QTRY_VERIFY(QFile::exists("resources/second"));
        const auto processes = manager->findChildren<QProcess*>();
        // The tool may be up before its start was noticed here.
        const auto isRunning = [](QProcess* it) { return it->state() != QProcess::NotRunning; };
        const QPointer<QProcess> first =
            *std::find_if(processes.begin(), processes.end(), isRunning);
        manager->slotAbortCheck();
        QVERIFY(isRunning(first)); // its end was not waited for
        manager->slot_CheckFWStarted();
        QTRY_COMPARE(heard, QStringList({"match", "match"}));
        QTRY_VERIFY(!first);
    }

    void theEndWaitsForNoToolAndKillsNoFlasher()
    {
        QTest::failOnWarning(QRegularExpression("^QProcess: Destroyed"));
        makeManager("if [ $1 = chipversions ]; then exec sleep 60; fi; sleep 0.2; touch done");
        manager->slot_CheckFWStarted();
        manager->slot_UpgradeFWStarted();
        manager.reset();
        QVERIFY(!QFile::exists("resources/done"));
        QTRY_VERIFY(QFile::exists("resources/done"));
    }

    void hangingCheckIsKilled()
    {
        makeManager("touch begun; exec sleep 60");
        manager->slot_CheckFWStarted();
        QTRY_VERIFY(QFile::exists("resources/begun"));
        QVERIFY(QMetaObject::invokeMethod(manager.get(), "slotCheckTimeout"));
        QTRY_COMPARE(heard, QStringList({"match"}));
    }

    void updateEnds()
    {
        const QStringList good{"complete", "restart?"};
        for (const auto& [tool, wanted] :
             {std::pair("echo 1; exit 0", good),
              {"exit 5", good}, // only the error stream counts
              {"echo 1; printf 'no\\nboard\\n' >&2; exit 0", {"error:noboard"}}}) {
            prepare();
            makeManager(tool);
            manager->slot_UpgradeFWStarted();
            QVERIFY(manager->isUpdating());
            manager->slot_UpgradeFWStarted(); // refused while one runs
            QTRY_VERIFY(!manager->isUpdating());
            QCOMPARE(heard, wanted);
        }
    }

    void aNewUpdateStartsWithoutTheOldError()
    {
        makeManager("[ -e again ] || echo bad >&2; touch again");
        manager->slot_UpgradeFWStarted();
        QTRY_VERIFY(!manager->isUpdating());
        manager->slot_UpgradeFWStarted();
        QTRY_VERIFY(!manager->isUpdating());
        QCOMPARE(heard, QStringList({"error:bad", "complete", "restart?"}));
    }
};

QTEST_MAIN(TestFirmwareUpdateManager)
#include "tst_firmwareupdatemanager.moc"
