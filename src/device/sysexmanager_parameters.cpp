// SysexManager's preset and global parameters: thin shells over the codecs.
#include "sysexmanager.h"

#include "globalcodec.h"
#include "midimappingcodec.h"
#include "presetcodec.h"

#include <QDebug>

namespace
{

void print(const sysex::LogLines& lines)
{
    for (const auto& line : lines)
        qDebug() << line;
}

// syxData begins behind 0xF0.
sysex::PayloadView payloadOf(const uchar* syxData)
{
    return sysex::PayloadView(syxData + sysex::at::payload, sysex::payloadSize);
}

} // namespace

void SysexManager::sendEncoded(sysex::Type type, const sysex::Encoded& message)
{
    print(message.lines);
    if (message.payload)
        sendFrame(type, *message.payload);
}

void SysexManager::slotSendPresetParameters(QString parameterName, int dataValue)
{
    if (!connected)
        return;
    if (viewChangingEnabled)
        slotFindModeChangeFromParameterName(parameterName);
    sendEncoded(sysex::Type::PresetParameter,
                sysex::encodePresetParameter(parameterName, dataValue));
}

void SysexManager::slotSendGlobalParameters(QString parameterName, int dataValue)
{
    qDebug() << "syx: slotSendGlobalParameters" << parameterName << dataValue << connected;
    if (!connected)
        return;
    if (viewChangingEnabled)
        slotFindModeChangeFromParameterName(parameterName);
    sendEncoded(sysex::Type::GlobalParameter,
                sysex::encodeGlobalParameter(parameterName, dataValue));
}

void SysexManager::slotSendMidiParameters(QString parameterName, int dataValue)
{
    if (connected) {
        sendEncoded(sysex::Type::GlobalParameter,
                    sysex::encodeMidiMapping(parameterName, dataValue));
    }
}

void SysexManager::slotReceivePresetParameters(uchar* syxData)
{
    receivePresetParameter(payloadOf(syxData));
}

void SysexManager::receivePresetParameter(sysex::PayloadView payload)
{
    const auto parameter = sysex::decodePresetParameter(payload);
    print(parameter.lines);
    switch (parameter.view) {
    case sysex::View::FaderFrame:
        emit signalReceiveMainwindowPresetParams(parameter.name, parameter.value);
        break;
    case sysex::View::ChannelStrip:
        emit signalReceiveChannelStripParams(parameter.name, parameter.value);
        break;
    case sysex::View::ReverbTab:
        emit signalReceiveReverbParams(parameter.name, parameter.value);
        break;
    default:
        break;
    }
}

void SysexManager::slotReceiveGlobalParameters(uchar* syxData)
{
    receiveGlobalParameter(payloadOf(syxData));
}

void SysexManager::receiveGlobalParameter(sysex::PayloadView payload)
{
    emitGlobal(sysex::decodeGlobalParameter(payload));
}

void SysexManager::slotReceiveMidiParameters(int ctrlType, int ctrlTypeNum, int bankNum,
                                             int msgType, int value)
{
    emitGlobal(sysex::decodeMidiMapping(ctrlType, ctrlTypeNum, bankNum, msgType, value));
}

void SysexManager::emitGlobal(const sysex::Decoded& parameter)
{
    print(parameter.lines);
    switch (parameter.view) {
    case sysex::View::SurroundTab:
        emit signalReceiveSurroundParams(parameter.name, parameter.value);
        break;
    case sysex::View::MidiMapping:
        emit signalReceiveMidiParams(parameter.name, parameter.value);
        break;
    case sysex::View::Settings:
        emit signalReceiveMainwindowGlobalParams(parameter.name, parameter.value);
        break;
    case sysex::View::UsbTab:
        emit signalReceiveUSBParams(parameter.name, parameter.value);
        break;
    default:
        break;
    }
}
