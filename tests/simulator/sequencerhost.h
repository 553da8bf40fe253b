#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QThread>

#include <alsa/asoundlib.h>

// A host on the system's sequencer, with the pools that a program gets by itself: it lists the
// ports that it could open, connects to them, sends without any pace and keeps what arrives, piece
// by piece.
class SequencerHost
{
public:
    bool open()
    {
        if (snd_seq_open(&m_seq, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0)
            return false;
        snd_seq_set_client_name(m_seq, "test host");
        m_port = snd_seq_create_simple_port(
            m_seq, "all",
            SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ | SND_SEQ_PORT_CAP_WRITE
                | SND_SEQ_PORT_CAP_SUBS_WRITE,
            SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
        return m_port >= 0;
    }
    ~SequencerHost()
    {
        if (m_seq)
            snd_seq_close(m_seq);
    }

    QStringList inputs() const { return names(SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ); }
    QStringList outputs() const
    {
        return names(SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE);
    }
    bool listenTo(const QString& name)
    {
        const auto address = find(name);
        return address.client
            && snd_seq_connect_from(m_seq, m_port, address.client, address.port) >= 0;
    }
    bool speakTo(const QString& name)
    {
        m_target = find(name);
        return m_target.client
            && snd_seq_connect_to(m_seq, m_port, m_target.client, m_target.port) >= 0;
    }

    // One event for each piece of a SysEx that is handed over.
    bool sendSysex(QByteArray piece)
    {
        snd_seq_event_t event;
        snd_seq_ev_clear(&event);
        snd_seq_ev_set_sysex(&event, static_cast<unsigned>(piece.size()), piece.data());
        return send(event);
    }
    bool sendController(int channel, int number, int value)
    {
        snd_seq_event_t event;
        snd_seq_ev_clear(&event);
        snd_seq_ev_set_controller(&event, static_cast<unsigned char>(channel - 1),
                                  static_cast<unsigned>(number), value);
        return send(event);
    }

    // What came since the last call; with a delay, as one that is slow at each event.
    void read(QList<QByteArray>& arrived, unsigned long delayMs = 0)
    {
        snd_seq_event_t* event = nullptr;
        while (snd_seq_event_input(m_seq, &event) >= 0 && event) {
            if (event->type == SND_SEQ_EVENT_SYSEX)
                arrived.append(QByteArray(static_cast<const char*>(event->data.ext.ptr),
                                          static_cast<qsizetype>(event->data.ext.len))
                                   .toHex());
            else if (event->type == SND_SEQ_EVENT_CONTROLLER)
                arrived.append(QByteArray("cc ") + QByteArray::number(event->data.control.value));
            if (delayMs)
                QThread::msleep(delayMs);
        }
    }

private:
    bool send(snd_seq_event_t& event)
    {
        snd_seq_ev_set_source(&event, static_cast<unsigned char>(m_port));
        snd_seq_ev_set_subs(&event);
        snd_seq_ev_set_direct(&event);
        return snd_seq_event_output_direct(m_seq, &event) >= 0;
    }
    template <typename Visit> void visitPorts(Visit visit) const
    {
        snd_seq_client_info_t* client = nullptr;
        snd_seq_port_info_t* port = nullptr;
        snd_seq_client_info_alloca(&client);
        snd_seq_port_info_alloca(&port);
        snd_seq_client_info_set_client(client, -1);
        while (snd_seq_query_next_client(m_seq, client) >= 0) {
            snd_seq_port_info_set_client(port, snd_seq_client_info_get_client(client));
            snd_seq_port_info_set_port(port, -1);
            while (snd_seq_query_next_port(m_seq, port) >= 0)
                visit(port);
        }
    }
    QStringList names(unsigned capabilities) const
    {
        QStringList found;
        visitPorts([&](const snd_seq_port_info_t* port) {
            const QString name = QString::fromUtf8(snd_seq_port_info_get_name(port));
            if (name.startsWith("J-Sum")
                && (snd_seq_port_info_get_capability(port) & capabilities) == capabilities)
                found.append(name);
        });
        return found;
    }
    snd_seq_addr_t find(const QString& name) const
    {
        snd_seq_addr_t address{};
        visitPorts([&](const snd_seq_port_info_t* port) {
            if (name == QString::fromUtf8(snd_seq_port_info_get_name(port)))
                address = *snd_seq_port_info_get_addr(port);
        });
        return address;
    }

    snd_seq_t* m_seq = nullptr;
    int m_port = -1;
    snd_seq_addr_t m_target{};
};
