#pragma once

#include "sysexassembler.h"

#include <QHash>
#include <QObject>

#include <alsa/asoundlib.h>

#include <functional>
#include <memory>
#include <optional>

class QSocketNotifier;

// One client of the ALSA sequencer: ports that come and go, whole messages in, messages out, and
// how much room there is for them. The simulator, the loop ports and the HUI host own one each.
class SequencerClient : public QObject
{
    Q_OBJECT

public:
    struct Events {
        // A whole message on one of our ports, or what came that is none.
        std::function<void(int port, const QByteArray&)> received;
        // Something else worth a line.
        std::function<void(const QString&)> tell;
    };
    struct Address {
        int client;
        int port;
    };

    SequencerClient();
    ~SequencerClient() override;

    // Without this nothing else works. Returns what went wrong; empty when nothing did.
    QString open(const QByteArray& clientName);
    void setEvents(Events events) { m_events = std::move(events); }

    // Readable: others may read from it. The port's number, or what went wrong with it below 0.
    int addPort(const QString& name, bool readable, bool writable);
    // These return what went wrong; empty when nothing did.
    QString changePort(int port, bool readable, bool writable);
    QString describe(const char* what, int error) const;
    void removePort(int port);
    // What is still on its way in or out.
    void dropAll();

    // The first port of exactly this name that others may open, of any client but this one.
    std::optional<Address> findPort(const QString& name) const;
    // Whatever leaves there comes to our port, or whatever leaves ours goes there.
    bool readFrom(int port, Address there);
    bool writeTo(int port, Address there);

    // Whether everybody who reads from the port can take this now.
    bool hasRoom(int port, qsizetype size) const;
    // What begins with 0xF0, or continues such a message, leaves byte by byte as it is, however
    // illegal, and no longer than largestPiece; anything else must be MIDI messages. False where
    // nothing could be sent.
    bool send(int port, const QByteArray& bytes);

private slots:
    void slotReadEvents();

private:
    struct CloseSequencer {
        void operator()(snd_seq_t* seq) const { snd_seq_close(seq); }
    };
    struct FreeCodec {
        void operator()(snd_midi_event_t* codec) const { snd_midi_event_free(codec); }
    };
    struct Port {
        QString name;
        SysexAssembler assembler;
    };

    bool sendEvent(snd_seq_event_t& event, int port);
    bool sendShort(int port, const QByteArray& bytes);
    void handle(const snd_seq_event_t& event);
    void tellSubscription(const snd_seq_event_t& event, const QString& name);
    void report(int port, const QList<SysexAssembler::Result>& results);

    Events m_events;
    std::unique_ptr<snd_seq_t, CloseSequencer> m_seq;
    std::unique_ptr<snd_midi_event_t, FreeCodec> m_codec;
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_descriptor = -1;
    QHash<int, Port> m_open;
};
