#include "testcase.h"
#include "updatecheck.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QTcpServer>
#include <QTemporaryDir>

#include <memory>

using Kind = UpdateResult::Kind;
Q_DECLARE_METATYPE(Kind)

// The check against a server of its own, over TLS: what is asked, taken, refused and shown.
class TestUpdateCheck : public TestCase
{
    Q_OBJECT

    QTemporaryDir folder;
    QSslConfiguration identity;
    std::unique_ptr<QSslServer> server;
    std::unique_ptr<QTcpServer> plainServer;
    std::unique_ptr<QSettings> settings;
    std::unique_ptr<QWidget> window;
    UpdateCheck* check = nullptr;
    QByteArray answer;
    QList<QByteArray> requests;
    QList<QUrl> opened;
    bool drips = false;

    void prepare() override
    {
        drips = false;
        requests.clear();
        opened.clear();
        server = std::make_unique<QSslServer>();
        server->setSslConfiguration(identity);
        QVERIFY(server->listen(QHostAddress::LocalHost));
        connect(server.get(), SIGNAL(pendingConnectionAvailable()), this, SLOT(serve()));
        QFile::remove(folder.filePath("settings"));
        settings = std::make_unique<QSettings>(folder.filePath("settings"), QSettings::IniFormat);
        window = std::make_unique<QWidget>();
        window->show();
        auto* network = new QNetworkAccessManager(window.get());
        check = new UpdateCheck(network, settings.get(), window.get());
        connect(network, SIGNAL(finished(QNetworkReply*)), check, SLOT(slotReply(QNetworkReply*)));
        tell(QString("{\"version\": \"0.1.0\", \"host\": \"localhost:%1\"}")
                 .arg(server->serverPort()));
    }

    void tell(const QString& versionFile)
    {
        QFile file(folder.filePath("version.json"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(versionFile.toUtf8());
        file.close();
        check->readVersionFile(file.fileName());
    }
    static QByteArray ok(const QByteArray& body, const QByteArray& head = "200 OK")
    {
        return "HTTP/1.1 " + head + "\r\nContent-Length: " + QByteArray::number(body.size())
            + "\r\nConnection: close\r\n\r\n" + body;
    }
    QMessageBox* box()
    {
        for (auto* each : window->findChildren<QMessageBox*>()) {
            if (each->isVisible())
                return each;
        }
        return nullptr;
    }
    UpdateResult result(const QSignalSpy& spy) const
    {
        return spy.value(0).value(0).value<UpdateResult>();
    }

private slots:
    void initTestCase()
    {
        const QString key = folder.filePath("key.pem");
        const QString certificate = folder.filePath("certificate.pem");
        QCOMPARE(QProcess::execute("openssl",
                                   {"req", "-x509", "-newkey", "ec", "-pkeyopt",
                                    "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2", "-subj",
                                    "/CN=localhost", "-addext", "subjectAltName=DNS:localhost",
                                    "-keyout", key, "-out", certificate}),
                 0);
        QFile keyFile(key);
        QVERIFY(keyFile.open(QIODevice::ReadOnly));
        const QList<QSslCertificate> trusted = QSslCertificate::fromPath(certificate);
        identity.setLocalCertificate(trusted.first());
        identity.setPrivateKey(QSslKey(&keyFile, QSsl::Ec));
        QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
        trusting.setCaCertificates(trusted);
        QSslConfiguration::setDefaultConfiguration(trusting);
        QDesktopServices::setUrlHandler("https", this, "open");
    }

    void cleanupTestCase() { QDesktopServices::unsetUrlHandler("https"); }

    void replies_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("text"); // of the box
        QTest::addColumn<QString>("buttons");
        const auto row = [](const char* name, const QByteArray& reply, Kind kind,
                            const QString& text, const QString& buttons = "OK") {
            QTest::newRow(name) << reply << kind << text << buttons;
        };
        const QString unknown = "Whether there is a newer version could not be found out.\n";
        const QString garbled = unknown + "The server's answer can't be understood.";
        const QString upToDate = "J-Sum Editor 0.1.0 is up to date.";
        row("newer",
            ok("{\"version\": \"0.2.0\", \"url\": \"https://x.example/e\", \"notes\": \"<b>\"}"),
            Kind::Newer, "J-Sum Editor 0.2.0 is there; this is 0.1.0.\n\n<b>",
            "Download|Skip This Version|Later");
        row("no secure download", ok("{\"version\": \"0.10\", \"url\": \"http://x.example\"}"),
            Kind::Newer, "J-Sum Editor 0.10 is there; this is 0.1.0.", "Skip This Version|Later");
        row("skipped", ok("{\"version\": \"0.3\"}"), Kind::Skipped,
            "J-Sum Editor 0.3 is there; this is 0.1.0.", "Skip This Version|Later");
        row("same", ok("{\"version\": \"0.1\"}"), Kind::Same, upToDate);
        row("older", ok("{\"version\": \"0.0.9-rc\"}"), Kind::Same, upToDate);
        row("no JSON", ok("<html>"), Kind::Failed, garbled);
        row("no text", ok("{\"version\": 2}"), Kind::Failed, garbled);
        row("no number", ok("{\"version\": \"new\"}"), Kind::Failed, garbled);
        row("long", ok("{\"version\": \"1." + QByteArray(31, '1') + "\"}"), Kind::Failed, garbled);
        row("oversized", ok("{\"version\": \"2\", \"n\": \"" + QByteArray(70000, 'x') + "\"}"),
            Kind::Failed, unknown + "The server's answer is too long.");
        row("missing", ok("{\"version\": \"2\"}", "404 Not Found"), Kind::Failed,
            unknown + "The server tells of no version.");
        row("redirected to plain text", "plain", Kind::Failed,
            unknown + "The server points to an address that is not secure.");
        row("redirected", "secure", Kind::Newer, "J-Sum Editor 0.2 is there; this is 0.1.0.",
            "Skip This Version|Later");
    }
    void replies()
    {
        QFETCH(const QByteArray, reply);
        QFETCH(const Kind, kind);
        QFETCH(const QString, text);
        QFETCH(const QString, buttons);
        answer = reply;
        if (reply == "plain" || reply == "secure") {
            plainServer = std::make_unique<QTcpServer>();
            QVERIFY(plainServer->listen(QHostAddress::LocalHost));
            const QString target = reply == "plain"
                ? QString("http://localhost:%1/").arg(plainServer->serverPort())
                : QString("https://localhost:%1/moved").arg(server->serverPort());
            answer = ok("", "302 Found\r\nLocation: " + target.toUtf8());
        }
        settings->setValue("softwareUpdateSkipVersion", "0.3.0");
        QSignalSpy checked(check, SIGNAL(signalChecked(UpdateResult)));
        check->checkAtStart();
        if (kind != Kind::Same)
            check->checkByHand(); // the same request
        QTRY_COMPARE(checked.size(), 1);
        QCOMPARE(result(checked).kind, kind);
        QCOMPARE(requests.first().split('\r').first(),
                 QByteArray("GET /products/j-sum/editor/softwareVersionCheck.json HTTP/1.1"));
        QCOMPARE(requests.size(), reply == "secure" ? 2 : 1);
        if (kind == Kind::Same) {
            QVERIFY(box() == nullptr);
            check->checkByHand();
        }
        QTRY_VERIFY(box() != nullptr);
        QCOMPARE(box()->text(), text);
        QCOMPARE(box()->textFormat(), Qt::PlainText);
        QSet<QString> shown;
        for (QAbstractButton* button : box()->buttons())
            shown << button->text().remove('&');
        const QStringList wanted = buttons.split('|');
        QCOMPARE(shown, QSet(wanted.cbegin(), wanted.cend()));
        QVERIFY(plainServer == nullptr || !plainServer->hasPendingConnections());
        plainServer.reset();
    }

    void atStart()
    {
        QSignalSpy checked(check, SIGNAL(signalChecked(UpdateResult)));
        settings->setValue("autoCheckForUpdates", false);
        check->checkAtStart();
        QVERIFY(!check->isRunning());
        settings->remove("autoCheckForUpdates");
        answer = ok("{\"version\": \"0.2.0\", \"url\": \"https://x.example/e\"}");
        check->checkAtStart();
        QTRY_VERIFY(box() != nullptr);
        QVERIFY(!box()->isModal());
        box()->findChild<QPushButton*>("download")->click();
        QCOMPARE(opened, QList<QUrl>{QUrl("https://x.example/e")});
        check->checkAtStart();
        QTRY_VERIFY(box() != nullptr);
        box()->findChild<QPushButton*>("skipVersion")->click();
        QCOMPARE(settings->value("softwareUpdateSkipVersion").toString(), QString("0.2.0"));
        answer = ok("garbage");
        for (int quiet = 3; quiet < 5; ++quiet) {
            check->checkAtStart();
            QTRY_COMPARE(checked.size(), quiet);
            QVERIFY(box() == nullptr);
            answer = ok("{\"version\": \"0.2\"}");
        }
    }

    void noReply()
    {
        QSignalSpy checked(check, SIGNAL(signalChecked(UpdateResult)));
        // Byte by byte, for ever.
        drips = true;
        answer = "HTTP/1.1 200 OK\r\nContent-Length: 9000\r\n\r\n";
        QCOMPARE(check->patienceMs, 10000);
        check->patienceMs = 400;
        check->checkByHand();
        QTRY_VERIFY(!requests.isEmpty());
        QTest::qWait(150);
        QVERIFY(check->isRunning());
        QTRY_COMPARE(checked.size(), 1);
        QCOMPARE(result(checked).error, QString("The server did not answer in time."));

        checked.clear();
        server->close();
        check->checkByHand();
        QTRY_COMPARE(checked.size(), 1);
        QVERIFY(result(checked).error.startsWith("The server could not be asked: "));
        QTRY_VERIFY(box() != nullptr);
    }

    void closing()
    {
        QSignalSpy checked(check, SIGNAL(signalChecked(UpdateResult)));
        drips = true;
        answer = "HTTP/1.1 200 OK\r\n";
        check->checkByHand();
        QTRY_VERIFY(!requests.isEmpty());
        check->stop();
        QVERIFY(!check->isRunning());
        check->checkByHand();
        window.reset();
        QTest::qWait(50);
        QCOMPARE(checked.size(), 0);
    }

    void versionFiles()
    {
        QCoreApplication::setApplicationVersion("7.7");
        const std::tuple<QString, QString, bool> rows[]{
            {"{\"version\": \"0.5\", \"host\": \"a.example:81\"}", "0.5", true},
            {"{\"version\": \"0.5\"}", "0.5", false},
            {"{\"version\": \"0.5\", \"host\": \"a/b?\"}", "0.5", false},
            {"{\"version\": \"0.5\", \"host\": \"me@a.example\"}", "0.5", false},
            {"{\"version\": \"0.5\", \"host\": \"a:99999\"}", "0.5", false},
            {"{\"version\": \"0.5\", \"host\": \"\"}", "0.5", false},
            {"{\"version\": 5, \"host\": \"a.example\"}", "7.7", false},
            {"{\"version\": \"x\", \"host\": \"a.example\"}", "7.7", false},
            {"[1]", "7.7", false},
        };
        for (const auto& [text, version, asks] : rows) {
            tell(text);
            QCOMPARE(check->version(), version);
            check->checkAtStart();
            QCOMPARE(check->isRunning(), asks);
            check->stop();
        }
        check->readVersionFile(folder.path());
        QCOMPARE(check->version(), QString("7.7"));
        check->checkByHand();
        QVERIFY(box()->text().endsWith("No address to ask for updates is known."));
    }

public slots:
    void serve()
    {
        while (QTcpSocket* socket = server->nextPendingConnection())
            connect(socket, SIGNAL(readyRead()), this, SLOT(reply()));
    }
    void reply()
    {
        auto* socket = qobject_cast<QTcpSocket*>(sender());
        requests << socket->readAll();
        socket->write(requests.last().startsWith("GET /moved") ? ok("{\"version\": \"0.2\"}")
                                                               : answer);
        if (!drips)
            return;
        auto* timer = new QTimer(socket);
        connect(timer, SIGNAL(timeout()), this, SLOT(drip()));
        timer->start(50);
    }
    void drip() { qobject_cast<QTcpSocket*>(sender()->parent())->write("x"); }
    void open(const QUrl& url) { opened << url; }
};

QTEST_MAIN(TestUpdateCheck)
#include "tst_updatecheck.moc"
