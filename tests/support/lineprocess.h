#pragma once

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

// A program of ours in a process of its own, driven by its line commands. What it prints is kept
// and can be waited for. Machines that emulate are slow: the waits are long, and end at once when
// what they wait for is there.
class LineProcess
{
public:
    static constexpr int patienceMs = 120000;

    explicit LineProcess(const QString& program)
        : m_program(program)
    {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
    }
    ~LineProcess() { stop(); }

    bool start(const QStringList& arguments = {})
    {
        m_process.start(m_program, arguments);
        return m_process.waitForStarted(patienceMs);
    }

    void stop()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(patienceMs))
            m_process.kill();
    }

    // SIGTERM, which all of them take for an ordinary end. Its status.
    int terminate()
    {
        m_process.terminate();
        m_process.waitForFinished(patienceMs);
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    // Whether the program took the command.
    bool command(const QByteArray& line)
    {
        tell(line);
        const bool taken = hasAnswered() && m_answer.startsWith("ok");
        if (!taken)
            qWarning() << m_program << line << m_answer;
        return taken;
    }

    // Gives the command at once, with no event passing here. Its answer is among the lines.
    void tell(const QByteArray& line)
    {
        ++m_unanswered;
        m_process.write(line + '\n');
        m_process.waitForBytesWritten(patienceMs);
    }
    // Waits for the answers to all that it was told.
    bool hasAnswered()
    {
        return wait([this] { return m_unanswered == 0; });
    }

    // How many lines since the mark match.
    int count(const QString& pattern)
    {
        read();
        return int(m_lines.filter(QRegularExpression(pattern)).size());
    }
    bool waitFor(const QString& pattern, int times = 1)
    {
        return wait([&] { return count(pattern) >= times; });
    }
    // Forgets what was printed up to here.
    void mark()
    {
        read();
        m_lines.clear();
    }
    QStringList linesSinceMark() const { return m_lines; }

private:
    template <typename Condition> bool wait(Condition condition)
    {
        return QTest::qWaitFor(
            [&] {
                read();
                return condition();
            },
            patienceMs);
    }
    void read()
    {
        m_rest += m_process.readAll();
        for (auto end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
            m_lines.append(QString::fromUtf8(m_rest.left(end)));
            m_rest.remove(0, end + 1);
            if (m_lines.last().startsWith("ok") || m_lines.last().startsWith("error: ")) {
                m_answer = m_lines.last();
                --m_unanswered;
            }
        }
    }

    QString m_program;
    QProcess m_process;
    QByteArray m_rest;
    QStringList m_lines; // since the mark
    QString m_answer;
    int m_unanswered = 0;
};
