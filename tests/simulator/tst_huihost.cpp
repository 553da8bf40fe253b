#include "hostcommands.h"
#include "pieces.h"
#include "relay.h"
#include "testcase.h"

#include <QSignalSpy>

namespace
{

QByteArray hex(const QString& text) { return QByteArray::fromHex(text.toLatin1()); }

} // namespace

// The host's commands and its strict ear, and the road that its messages share with the loop ports.
class TestHuiHost : public TestCase
{
    Q_OBJECT

    QByteArray sent;
    std::unique_ptr<HuiHost> host;
    std::unique_ptr<QSignalSpy> lines;

    void prepare() override
    {
        sent.clear();
        host = std::make_unique<HuiHost>([this](const QByteArray& bytes) {
            sent += bytes;
            return true;
        });
        lines = std::make_unique<QSignalSpy>(host.get(), SIGNAL(signalLine(QString)));
    }
    QString run(const QString& line)
    {
        return HostCommands(*host, [] { return QString(); }).run(line).answer;
    }

private slots:
    void commands_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* line, const char* bytes) {
            QTest::newRow(line) << QByteArray(bytes);
        };
        row("fader 8 16383", "b0077fb0277f");
        row("light channel-6 mute on", "b00c05b02c42");
        row("light 0x0e 3 off", "b00c0eb02c03");
        row("light digits-1 4 on", "b00c13b02c42"); // what is written on the button
        row("ping", "900000");
        row("meter 2 right 12", "a0011c");
        row("display 9 on", "f0000066050010086f6e2020f7");
        row("ring 12 5", "b01b05");
        row("reset", "ff");
        row("raw f0*3 01", "f0f0f001");
        // Refused.
        for (const char* line :
             {"fader 9 1", "fader 1 16384", "light 30 0 on", "light channel-1 8 on",
              "light channel-1 mute", "meter 1 middle 1", "display 10 x", "echo maybe", "raw x"})
            row(line, "");
    }
    void commands()
    {
        const QString answer = run(QTest::currentDataTag());
        QFETCH(QByteArray, bytes);
        QCOMPARE(sent, QByteArray::fromHex(bytes));
        QCOMPARE(answer.startsWith("ok"), !bytes.isEmpty());
    }

    // Which of the messages are told as unexpected, in order.
    void unexpected_data()
    {
        QTest::addColumn<QString>("unexpected");
        const auto row = [](const char* messages, const char* bad) {
            QTest::newRow(messages) << QString(bad);
        };
        row("b00f05 b02f43 b00f0e b02f05 b0027f b02200", "");
        row("b02f43 b00f05 b02f48 b00f0a b02f47", "b02f43 b02f48 b02f47"); // no zone, no port
        row("b00f05 b00364 b02300 b00f05", "b00f05 b00f05");               // half a switch
        row("b00364 b02200 b00364 90007f", "b00364 b02200 b00364 90007f"); // half a fader, a reply
        row("b10364 b12300 b00840 b02840 b00f1e f0f7 f8",
            "b10364 b12300 b00840 b02840 b00f1e f0f7 f8");
    }
    void unexpected()
    {
        for (const QString& message : QString(QTest::currentDataTag()).split(' '))
            host->receive(hex(message));
        const bool isClean = host->end();
        QStringList bad;
        for (const QVariantList& line : *lines) {
            const QString text = line[0].toString();
            if (text.startsWith("unexpected"))
                bad << text.section(" | ", -1).remove(' ');
        }
        QTEST(bad.join(' '), "unexpected");
        QCOMPARE(isClean, bad.isEmpty());
    }

    void whatIsToldBeforehandIsNoFault()
    {
        QCOMPARE(run("allow b008"), QString("ok"));
        QCOMPARE(run("echo on"), QString("ok"));
        for (const char* message : {"b00840", "b00364", "b02310"})
            host->receive(hex(message));
        QCOMPARE(sent, hex("b00364b02310")); // a motor's echo
        QVERIFY(host->end());
    }

    void messagesAndPieces()
    {
        QCOMPARE(messagesIn(hex("b00264b02210f00166f7fff8f001900000")),
                 QList<QByteArray>({hex("b00264"), hex("b02210"), hex("f00166f7"), hex("ff"),
                                    hex("f8"), hex("f001"), hex("900000")}));
        const QByteArray sysex = '\xf0' + QByteArray(600, 1) + '\xf7';
        const auto pieces = piecesOf(sysex);
        QCOMPARE(pieces.size(), 3);
        QCOMPARE(pieces.join(), sysex);
    }

    // A reader without room is waited for, in order; then it must not hold up the others; and the
    // queue has an end.
    void aSlowReader()
    {
        bool hasRoom = false;
        QByteArray arrived;
        QStringList told;
        Relay relay({[&](qsizetype) { return hasRoom; },
                     [&](const QByteArray& bytes) { arrived += bytes; },
                     [&](const QString& text) { told << text; }});
        relay.add("a");
        relay.add("b");
        QTest::qWait(50);
        QCOMPARE(arrived, QByteArray());
        hasRoom = true;
        QTRY_COMPARE(arrived, QByteArray("ab"));
        hasRoom = false;
        for (std::size_t i = 0; i < Relay::mostWaiting + 2; ++i)
            relay.add("c");
        QCOMPARE(told.size(), 1);
        QTest::qWait(RoomPatience::patienceMs / 2);
        QCOMPARE(arrived.size(), 2);
        QTRY_COMPARE(arrived.size(), qsizetype(2 + Relay::mostWaiting));
    }
};

QTEST_GUILESS_MAIN(TestHuiHost)
#include "tst_huihost.moc"
