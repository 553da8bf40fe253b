#pragma once

#include "midiports.h"

#include <QByteArray>
#include <QList>
#include <QMap>

// Stands for all MIDI hardware: the test sets which ports the system lists, and reads what was sent
// to them.
class FakePorts : public MidiPorts
{
public:
    struct Sent {
        QString identifier;
        QByteArray bytes;
    };

    QList<MidiPortInfo> inputList;
    QList<MidiPortInfo> outputList;
    QList<Sent> sent;
    QStringList openInputs; // identifiers, in the order of opening
    QStringList openOutputs;
    int asked = 0; // for either list
    bool refuseToOpen = false;
    bool refuseInputs = false;
    QStringList audioNames{QStringLiteral("J-Sum")};

    // Each keeps its identifier while others come and go: "id-0-A" is the first port named A,
    // "id-1-A" the next.
    static QList<MidiPortInfo> named(const QStringList& names)
    {
        QList<MidiPortInfo> list;
        QMap<QString, int> twins;
        for (const QString& name : names)
            list.append({name, QStringLiteral("id-%1-%2").arg(twins[name]++).arg(name)});
        return list;
    }
    void plug(const QStringList& names) { inputList = outputList = named(names); }
    void unplug() { plug({}); }

    QList<QByteArray> sentBytes() const
    {
        QList<QByteArray> bytes;
        for (const auto& message : sent)
            bytes.append(message.bytes);
        return bytes;
    }

    QList<MidiPortInfo> inputs() override { return ++asked, inputList; }
    QList<MidiPortInfo> outputs() override { return ++asked, outputList; }
    std::unique_ptr<MidiInputPort> openInput(const QString& identifier,
                                             juce::MidiInputCallback*) override
    {
        if (refuseToOpen || refuseInputs)
            return nullptr;
        return std::make_unique<Input>(*this, identifier);
    }
    std::unique_ptr<MidiOutputPort> openOutput(const QString& identifier) override
    {
        if (refuseToOpen)
            return nullptr;
        return std::make_unique<Output>(*this, identifier);
    }
    QStringList audioOutputNames() override { return audioNames; }

private:
    // Among the open ones for as long as it lives.
    struct Input : MidiInputPort {
        Input(FakePorts& owner, const QString& id)
            : ports(owner)
            , identifier(id)
        {
            ports.openInputs.append(identifier);
        }
        ~Input() override { ports.openInputs.removeOne(identifier); }
        void start() override { }
        void stop() override { }

        FakePorts& ports;
        const QString identifier;
    };
    struct Output : MidiOutputPort {
        Output(FakePorts& owner, const QString& id)
            : ports(owner)
            , identifier(id)
        {
            ports.openOutputs.append(identifier);
        }
        ~Output() override { ports.openOutputs.removeOne(identifier); }
        void sendMessageNow(const juce::MidiMessage& message) override
        {
            const auto* bytes = reinterpret_cast<const char*>(message.getRawData());
            ports.sent.append({identifier, QByteArray(bytes, message.getRawDataSize())});
        }

        FakePorts& ports;
        const QString identifier;
    };
};
