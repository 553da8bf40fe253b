#include "lineinput.h"

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace
{
constexpr qsizetype longestLine = 16 * 1024 * 1024;
}

LineInput::LineInput(QObject* parent)
    : QObject(parent)
    , m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_notifier, SIGNAL(activated(QSocketDescriptor, QSocketNotifier::Type)), this,
            SLOT(slotRead()));
}

void LineInput::queue(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
}

void LineInput::print(const QString& line)
{
    queue(line);
    std::fflush(stdout);
}

std::optional<QString> LineInput::next()
{
    if (m_lines.empty())
        return {};
    const QString line = m_lines.front();
    m_lines.pop_front();
    return line;
}

void LineInput::stop()
{
    m_lines.clear();
    m_notifier.setEnabled(false);
}

void LineInput::slotRead()
{
    char buffer[65536];
    const ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size > 0) {
        m_input.append(buffer, size);
    } else {
        m_notifier.setEnabled(false);
        m_ended = true;
        if (!m_input.isEmpty())
            m_input.append('\n');
    }
    takeLines();
    emit signalReady();
}

void LineInput::takeLines()
{
    qsizetype begin = 0;
    for (auto end = m_input.indexOf('\n'); end >= 0; end = m_input.indexOf('\n', begin)) {
        if (!m_tooLong)
            m_lines.push_back(QString::fromUtf8(m_input.mid(begin, end - begin)));
        m_tooLong = false;
        begin = end + 1;
    }
    m_input.remove(0, begin);
    if (m_input.size() > longestLine) {
        print(QStringLiteral("error: the line is too long"));
        m_input.clear();
        m_tooLong = true;
    }
}
