#pragma once

#include "fakeports.h"
#include "presetcodec.h"
#include "sysexmanager.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <utility>

// The far end of the device link: what a mixer would hear and say.
class MixerEnd
{
    QStringList words; // sent
    QHash<QString, int> mixer;

    void take()
    {
        for (const QByteArray& bytes : ports->sentBytes()) {
            const QByteArray body = bytes.mid(5, 7);
            const auto parameter = sysex::decodePresetParameter(std::span<const std::uint8_t, 6>(
                reinterpret_cast<const std::uint8_t*>(body.constData()) + 1, 6));
            if (body.startsWith('\2')) {
                words << QString("%1=%2").arg(parameter.name).arg(parameter.value);
                mixer[parameter.name] = parameter.value;
            } else if (!body.startsWith('\14') || body.at(4) == 0) {
                words << body.toHex();
            }
        }
        ports->sent.clear();
    }

public:
    FakePorts* ports = new FakePorts;
    SysexManager sysex{nullptr, std::unique_ptr<MidiPorts>(ports)};

    void plug(const QStringList& more = {"loopMIDI Port", "loopMIDI Port 1"})
    {
        ports->plug(QStringList{"J-Sum Audio Control", "J-Sum Control Surface"} + more);
        sysex.midi()->slot_PollDevices();
    }
    void unplug()
    {
        ports->unplug();
        sysex.midi()->slot_PollDevices();
    }
    void versionReply() { hear("00000000010a03"); }
    void endMarker() { hear("0a0c0101"); } // of the live memory
    void changePreset() { hear("0d"); }    // to the live memory
    void slotEndMarker(int slot) { hear("0a" + QByteArray(1, char(slot - 1)).toHex() + "0100"); }
    // Up to the end of the sync.
    void start()
    {
        plug();
        versionReply();
        endMarker();
        sent();
    }
    void hear(const QByteArray& hex)
    {
        const QByteArray bytes = QByteArray::fromHex("f000015f23" + hex + "f7");
        sysex.slotReceiveMidiInput("J-Sum Audio Control",
                                   MidiMessage(bytes.constData(), int(bytes.size())));
    }
    void hear(const QString& key, int value)
    {
        take();
        mixer[key] = value;
        if (key.startsWith("faderframe_"))
            emit sysex.signalReceiveMainwindowPresetParams(key, value);
        else if (key.startsWith("channelstrip_"))
            emit sysex.signalReceiveChannelStripParams(key, value);
        else
            emit sysex.signalReceiveReverbParams(key, value);
    }
    // What it got since the last time: parameters as "key=value", the rest as bytes. Without the
    // stereo status around each recall.
    QString sent()
    {
        take();
        return std::exchange(words, {}).join(' ');
    }
    // What it holds; fallback if it was never told.
    int held(const QString& key, int fallback)
    {
        take();
        return mixer.value(key, fallback);
    }
};
