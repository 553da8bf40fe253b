#include "sequencerclient.h"

#include "pieces.h"
#include "sequencerpool.h"

#include <QSocketNotifier>

#include <array>

namespace
{

// The kernel's own limit. Its pools are never resized by themselves, and what does not fit is
// dropped.
constexpr size_t largestPool = 2000;
// An event longer than this buffer would stand in front of all others for ever.
constexpr size_t inputBuffer = 128 * 1024;
constexpr int mostEventsAtOnce = 1024;

constexpr unsigned readableCaps = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
constexpr unsigned writableCaps = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
constexpr unsigned portType =
    SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_SOFTWARE | SND_SEQ_PORT_TYPE_PORT;

unsigned capabilities(bool readable, bool writable)
{
    return (readable ? readableCaps : 0) | (writable ? writableCaps : 0);
}

// Its own complaints name source files; what goes wrong is told in our words.
void keepQuiet(const char*, int, const char*, int, const char*, ...) { }

} // namespace

SequencerClient::SequencerClient() = default;

SequencerClient::~SequencerClient()
{
    // The notifier's descriptor goes with the sequencer.
    m_notifier.reset();
}

QString SequencerClient::describe(const char* what, int error) const
{
    return QStringLiteral("%1: %2").arg(QLatin1String(what),
                                        QString::fromLocal8Bit(snd_strerror(error)));
}

QString SequencerClient::open(const QByteArray& clientName)
{
    snd_lib_error_set_handler(keepQuiet);
    snd_seq_t* seq = nullptr;
    if (const int error = snd_seq_open(&seq, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK);
        error < 0)
        return describe("This machine has no MIDI sequencer (/dev/snd/seq)", error);
    m_seq.reset(seq);
    snd_midi_event_t* codec = nullptr;
    if (const int error = snd_midi_event_new(largestPiece, &codec); error < 0)
        return describe("no MIDI codec", error);
    m_codec.reset(codec);
    // Every event is to be whole by itself.
    snd_midi_event_no_status(codec, 1);

    snd_seq_set_client_name(seq, clientName.constData());
    snd_seq_set_client_pool_output(seq, largestPool);
    snd_seq_set_client_pool_output_room(seq, 1);
    snd_seq_set_client_pool_input(seq, largestPool);
    if (const int error = snd_seq_set_input_buffer_size(seq, inputBuffer); error < 0)
        return describe("no input buffer", error);

    pollfd descriptor{};
    if (snd_seq_poll_descriptors(seq, &descriptor, 1, POLLIN) != 1)
        return QStringLiteral("the sequencer cannot be waited for");
    m_descriptor = descriptor.fd;
    m_notifier = std::make_unique<QSocketNotifier>(descriptor.fd, QSocketNotifier::Read);
    connect(m_notifier.get(), SIGNAL(activated(QSocketDescriptor, QSocketNotifier::Type)), this,
            SLOT(slotReadEvents()));
    return {};
}

int SequencerClient::addPort(const QString& name, bool readable, bool writable)
{
    const int port = snd_seq_create_simple_port(m_seq.get(), name.toLatin1().constData(),
                                                capabilities(readable, writable), portType);
    if (port >= 0)
        m_open.insert(port, {name, {}});
    return port;
}

QString SequencerClient::changePort(int port, bool readable, bool writable)
{
    snd_seq_port_info_t* info = nullptr;
    snd_seq_port_info_alloca(&info);
    int error = snd_seq_get_port_info(m_seq.get(), port, info);
    snd_seq_port_info_set_capability(info, capabilities(readable, writable));
    if (error >= 0)
        error = snd_seq_set_port_info(m_seq.get(), port, info);
    return error < 0 ? describe("the port cannot be changed", error) : QString();
}

void SequencerClient::removePort(int port)
{
    snd_seq_delete_simple_port(m_seq.get(), port);
    m_open.remove(port);
}

void SequencerClient::dropAll()
{
    snd_seq_drop_output(m_seq.get());
    snd_seq_drop_input(m_seq.get());
}

std::optional<SequencerClient::Address> SequencerClient::findPort(const QString& name) const
{
    snd_seq_client_info_t* client = nullptr;
    snd_seq_client_info_alloca(&client);
    snd_seq_port_info_t* port = nullptr;
    snd_seq_port_info_alloca(&port);
    snd_seq_client_info_set_client(client, -1);
    while (snd_seq_query_next_client(m_seq.get(), client) >= 0) {
        const int number = snd_seq_client_info_get_client(client);
        if (number == snd_seq_client_id(m_seq.get()))
            continue;
        snd_seq_port_info_set_client(port, number);
        snd_seq_port_info_set_port(port, -1);
        while (snd_seq_query_next_port(m_seq.get(), port) >= 0) {
            // A program's end of a connection may bear the other end's name; nobody can open it.
            const bool isOpenToAll = snd_seq_port_info_get_capability(port)
                & (SND_SEQ_PORT_CAP_SUBS_READ | SND_SEQ_PORT_CAP_SUBS_WRITE);
            if (isOpenToAll && name == QString::fromLocal8Bit(snd_seq_port_info_get_name(port)))
                return Address{number, snd_seq_port_info_get_port(port)};
        }
    }
    return {};
}

bool SequencerClient::readFrom(int port, Address there)
{
    return snd_seq_connect_from(m_seq.get(), port, there.client, there.port) >= 0;
}

bool SequencerClient::writeTo(int port, Address there)
{
    return snd_seq_connect_to(m_seq.get(), port, there.client, there.port) >= 0;
}

bool SequencerClient::hasRoom(int port, qsizetype size) const
{
    snd_seq_addr_t root{};
    root.client = static_cast<unsigned char>(snd_seq_client_id(m_seq.get()));
    root.port = static_cast<unsigned char>(port);
    snd_seq_query_subscribe_t* query = nullptr;
    snd_seq_query_subscribe_alloca(&query);
    snd_seq_query_subscribe_set_root(query, &root);
    snd_seq_query_subscribe_set_type(query, SND_SEQ_QUERY_SUBS_READ);
    for (int i = 0;; ++i) {
        snd_seq_query_subscribe_set_index(query, i);
        if (snd_seq_query_port_subscribers(m_seq.get(), query) < 0)
            return true;
        const int listener = snd_seq_query_subscribe_get_addr(query)->client;
        if (!sequencerpool::hasRoom(m_descriptor, listener, static_cast<int>(size)))
            return false;
    }
}

bool SequencerClient::send(int port, const QByteArray& bytes)
{
    if (!m_open.contains(port) || bytes.isEmpty())
        return false;
    const auto first = static_cast<quint8>(bytes[0]);
    // Data bytes in front continue a long SysEx.
    if (first != 0xF0 && first >= 0x80)
        return sendShort(port, bytes);
    snd_seq_event_t event;
    snd_seq_ev_clear(&event);
    QByteArray copy = bytes;
    snd_seq_ev_set_sysex(&event, static_cast<unsigned>(copy.size()), copy.data());
    return sendEvent(event, port);
}

bool SequencerClient::sendShort(int port, const QByteArray& bytes)
{
    snd_midi_event_reset_encode(m_codec.get());
    bool sent = false;
    for (const char byte : bytes) {
        snd_seq_event_t event;
        snd_seq_ev_clear(&event);
        if (snd_midi_event_encode_byte(m_codec.get(), static_cast<quint8>(byte), &event) != 1)
            continue;
        if (!sendEvent(event, port))
            return false;
        sent = true;
    }
    return sent;
}

bool SequencerClient::sendEvent(snd_seq_event_t& event, int port)
{
    snd_seq_ev_set_source(&event, static_cast<unsigned char>(port));
    snd_seq_ev_set_subs(&event);
    snd_seq_ev_set_direct(&event);
    return snd_seq_event_output_direct(m_seq.get(), &event) >= 0;
}

void SequencerClient::slotReadEvents()
{
    for (int i = 0; i < mostEventsAtOnce; ++i) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(m_seq.get(), &event);
        if (result == -ENOSPC) {
            m_events.tell(QStringLiteral("messages come too fast: some were lost"));
            continue;
        }
        if (result < 0)
            return;
        if (event)
            handle(*event);
    }
    // The rest may be in the library's buffer, where no notifier sees it.
    QMetaObject::invokeMethod(this, "slotReadEvents", Qt::QueuedConnection);
}

void SequencerClient::handle(const snd_seq_event_t& event)
{
    const int port = event.dest.port;
    const auto found = m_open.find(port);
    if (found == m_open.end())
        return;
    const int sender = event.source.client << 8 | event.source.port;
    switch (event.type) {
    case SND_SEQ_EVENT_PORT_SUBSCRIBED:
    case SND_SEQ_EVENT_PORT_UNSUBSCRIBED:
        tellSubscription(event, found->name);
        return;
    case SND_SEQ_EVENT_SYSEX: {
        const QByteArray piece(static_cast<const char*>(event.data.ext.ptr),
                               static_cast<qsizetype>(event.data.ext.len));
        report(port, found->assembler.add(sender, piece));
        return;
    }
    default:
        break;
    }
    std::array<unsigned char, 16> bytes{};
    const auto size = snd_midi_event_decode(m_codec.get(), bytes.data(), bytes.size(), &event);
    if (size <= 0) {
        m_events.tell(QStringLiteral("event of type %1, which is no MIDI").arg(event.type));
        return;
    }
    // Real-time messages may stand inside a SysEx; all others end it.
    if (bytes[0] < 0xF8)
        report(port, found->assembler.interrupt(sender));
    m_events.received(port, QByteArray(reinterpret_cast<const char*>(bytes.data()), size));
}

void SequencerClient::tellSubscription(const snd_seq_event_t& event, const QString& name)
{
    const auto& way = event.data.connect;
    m_events.tell(QStringLiteral("%1:%2 %3 %4:%5 (%6)")
                      .arg(way.sender.client)
                      .arg(way.sender.port)
                      .arg(event.type == SND_SEQ_EVENT_PORT_SUBSCRIBED
                               ? QStringLiteral("connects to")
                               : QStringLiteral("leaves"))
                      .arg(way.dest.client)
                      .arg(way.dest.port)
                      .arg(name));
}

void SequencerClient::report(int port, const QList<SysexAssembler::Result>& results)
{
    for (const auto& result : results) {
        if (result.kind == SysexAssembler::Result::Kind::TooLong)
            m_events.tell(QStringLiteral("a SysEx of more than %1 bytes is dropped")
                              .arg(SysexAssembler::largestMessage));
        else
            m_events.received(port, result.bytes);
    }
}
