#pragma once

#include "mixerports.h"
#include "sysexassembler.h"

#include <QObject>

#include <alsa/asoundlib.h>

#include <array>
#include <memory>

class QSocketNotifier;

// The mixer's ports on the ALSA sequencer: one client named "J-Sum" whose ports appear and vanish.
class AlsaPorts : public QObject, public MixerPorts
{
    Q_OBJECT

public:
    AlsaPorts();
    ~AlsaPorts() override;

    // Without this nothing else works. Returns what went wrong; empty when nothing did.
    QString open();

    void setEvents(Events events) override { m_events = std::move(events); }
    QString show(bool readable, bool writable) override;
    bool hasRoom(MixerPort port, qsizetype size) override;
    bool send(MixerPort port, const QByteArray& bytes) override;

private slots:
    void slotReadEvents();

private:
    struct CloseSequencer {
        void operator()(snd_seq_t* seq) const { snd_seq_close(seq); }
    };
    struct FreeCodec {
        void operator()(snd_midi_event_t* codec) const { snd_midi_event_free(codec); }
    };

    static size_t indexOf(MixerPort port) { return port == MixerPort::AudioControl ? 0 : 1; }
    int idOf(MixerPort port) const { return m_ids[indexOf(port)]; }
    bool sendEvent(snd_seq_event_t& event, MixerPort port);
    bool sendShort(MixerPort port, const QByteArray& bytes);
    void handle(const snd_seq_event_t& event);
    void handlePiece(MixerPort port, int sender, const QByteArray& piece);
    void report(MixerPort port, const QList<SysexAssembler::Result>& results);

    Events m_events;
    std::unique_ptr<snd_seq_t, CloseSequencer> m_seq;
    std::unique_ptr<snd_midi_event_t, FreeCodec> m_codec;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::array<int, 2> m_ids{-1, -1}; // -1 while the port does not exist
    std::array<SysexAssembler, 2> m_assemblers;
};
