#include "simulatorprocess.h"
#include "testcase.h"

#include <QTemporaryDir>
#include <QThread>

#include <alsa/asoundlib.h>

// The simulator's ports against a host that keeps no pace: one that writes everything at once and
// reads slowly, with the pools that a program gets by itself.
class TestSimulatorPorts : public TestCase
{
    Q_OBJECT

    QTemporaryDir folder;
    SimulatorProcess simulator{SIMULATOR, folder.filePath("state.json")};
    snd_seq_t* seq = nullptr;
    int port = -1;

    bool send(const char* hex)
    {
        QByteArray piece = QByteArray::fromHex(hex);
        snd_seq_event_t event;
        snd_seq_ev_clear(&event);
        snd_seq_ev_set_source(&event, static_cast<unsigned char>(port));
        snd_seq_ev_set_subs(&event);
        snd_seq_ev_set_direct(&event);
        snd_seq_ev_set_sysex(&event, static_cast<unsigned>(piece.size()), piece.data());
        return snd_seq_event_output_direct(seq, &event) >= 0;
    }

private slots:
    void cleanup()
    {
        if (seq)
            snd_seq_close(seq);
    }

    void nothingIsLost()
    {
        QVERIFY(simulator.start() && simulator.command("slot C faderframe_ch1_fader 10000"));
        QVERIFY(snd_seq_open(&seq, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) >= 0);
        constexpr unsigned ways = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ
            | SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
        port = snd_seq_create_simple_port(seq, "all", ways, SND_SEQ_PORT_TYPE_MIDI_GENERIC);
        snd_seq_addr_t mixer;
        QVERIFY(snd_seq_parse_address(seq, &mixer, "J-Sum:0") >= 0); // its first port
        QVERIFY(snd_seq_connect_to(seq, port, mixer.client, mixer.port) >= 0);
        QVERIFY(snd_seq_connect_from(seq, port, mixer.client, mixer.port) >= 0);

        // Slot C, into a pool of 200 cells, which 331 messages at once would overrun.
        QVERIFY(send("f000015f230a020100000000f7"));
        QSet<QByteArray> arrived;
        const auto whole = [&] {
            snd_seq_event_t* event = nullptr;
            while (snd_seq_event_input(seq, &event) >= 0 && event) {
                const auto& sysex = event->data.ext;
                if (event->type == SND_SEQ_EVENT_SYSEX)
                    arrived.insert(
                        QByteArray(static_cast<char*>(sysex.ptr), int(sysex.len)).toHex());
                QThread::msleep(8);
            }
            return arrived.contains("f000015f230a020101f7");
        };
        QVERIFY(QTest::qWaitFor(whole, SimulatorProcess::patienceMs));
        QCOMPARE(arrived.size(), 331);
        QVERIFY(arrived.contains("f000015f2302010100044e10f7"));

        for (int i = 0; i < 400; ++i)
            QVERIFY(send("f000015f230201010004456af7"));
        QVERIFY(simulator.waitFor("faderframe_ch1_fader = 8938", 400));
        QVERIFY(send("f000015f23") && send("0500000000") && send("000ef7"));
        QVERIFY(simulator.waitFor("mode 14 \\(trim\\)"));
    }
};

QTEST_GUILESS_MAIN(TestSimulatorPorts)
#include "tst_simulatorports.moc"
