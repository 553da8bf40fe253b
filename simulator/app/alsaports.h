#pragma once

#include "mixerports.h"
#include "sequencerclient.h"

#include <array>

// The mixer's ports on the ALSA sequencer: one client named "J-Sum" whose ports appear and vanish.
class AlsaPorts : public MixerPorts
{
public:
    // Without this nothing else works. Returns what went wrong; empty when nothing did.
    QString open() { return m_client.open("J-Sum"); }

    void setEvents(Events events) override;
    QString show(bool readable, bool writable) override;
    bool hasRoom(MixerPort port, qsizetype size) override;
    bool send(MixerPort port, const QByteArray& bytes) override;

private:
    static size_t indexOf(MixerPort port) { return port == MixerPort::AudioControl ? 0 : 1; }
    int idOf(MixerPort port) const { return m_ids[indexOf(port)]; }

    SequencerClient m_client;
    std::array<int, 2> m_ids{-1, -1}; // -1 while the port does not exist
};
