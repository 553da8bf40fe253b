#pragma once

#include <QElapsedTimer>

#include <algorithm>

// How long an input must wait before it is opened. JUCE's ALSA reader thread polls for 100 ms at a
// time, and only then notices that its last input was closed; an input that is opened sooner finds
// it "still running" and then never hears anything. JUCE has one reader for the whole process, and
// so has JucePorts one of these.
class InputPause
{
public:
    static constexpr qint64 readerPollMs = 100;
    // The thread must also have come to run, and have ended.
    static constexpr qint64 pauseMs = 2 * readerPollMs;

    void inputOpened() { ++openInputs; }
    void inputClosed()
    {
        if (--openInputs == 0)
            lastClosed.start();
    }
    // From now, in milliseconds; 0 while the reader has an input to stay for.
    qint64 remainingMs() const
    {
        if (openInputs > 0 || !lastClosed.isValid())
            return 0;
        return std::max<qint64>(0, pauseMs - lastClosed.elapsed());
    }

private:
    int openInputs = 0;
    QElapsedTimer lastClosed;
};
