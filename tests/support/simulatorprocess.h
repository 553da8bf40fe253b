#pragma once

#include "lineprocess.h"

// A jsum-simulator. Every message both ways is among its lines.
class SimulatorProcess : public LineProcess
{
public:
    // program: the simulator. stateFile: where its memory lives.
    SimulatorProcess(const QString& program, const QString& stateFile)
        : LineProcess(program)
        , m_stateFile(stateFile)
    {
    }

    bool start(const QStringList& more = {})
    {
        return LineProcess::start(QStringList{"--headless", "--state", m_stateFile} + more)
            && command("state");
    }

private:
    QString m_stateFile;
};
