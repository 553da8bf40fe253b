#pragma once

#include "relay.h"
#include "sequencerclient.h"

#include <array>
#include <memory>
#include <vector>

// The two virtual ports between the editor's HUI bridge and a recording program: what is written to
// one is read from the same. Owned by main.
class LoopPorts
{
public:
    static constexpr int noSequencer = 2;
    static constexpr int namesTaken = 3;
    static const std::array<QString, 2> names;

    // tell: takes what is worth a line.
    explicit LoopPorts(std::function<void(const QString&)> tell);

    // 0, or what the program is to end with; `error` says why.
    int open(QString& error);

private:
    struct Loop {
        int id;
        std::unique_ptr<Relay> relay;
    };

    void relay(int id, const QByteArray& message);

    std::function<void(const QString&)> m_tell;
    SequencerClient m_client;
    std::vector<Loop> m_loops;
};
