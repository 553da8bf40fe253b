// MidiManager's ports of the HUI bridge.
#include "midimanager.h"

#include "huiports.h"

#include <QMessageBox>

void MidiManager::slotEnableHuiPort(bool enabled)
{
    if (!enabled)
        turnHuiOff();
    // Under the box it waits for the user; asking again would open another.
    else if (huiPorts.empty() && !huiBoxIsOpen)
        turnHuiOn();
}

void MidiManager::turnHuiOn()
{
    HuiPort hostInput{huiports::input, true, {}};
    if (!openHuiPort(hostInput)) {
        tellHuiInputMissing();
        emit signalHUIPortButton(false);
        return;
    }
    // The control input is opened under the name found for its output: both bear the same name.
    huiPorts = {hostInput,
                {huiports::output, false, {}},
                {controlOutputName, true, {}},
                {controlOutputName, false, {}}};
    for (std::size_t i = 1; i < huiPorts.size(); ++i)
        openHuiPort(huiPorts[i]);
    emit signalConnectHuiStuff();
    lightBankIndicators(huiPorts.back().name);
}

void MidiManager::turnHuiOff()
{
    if (huiPorts.empty())
        return;
    emit signalDisconnectHuiStuff();
    // The control ports first, then the virtual input and output.
    for (const int position : {2, 3, 0, 1})
        closeHuiPort(huiPorts[static_cast<std::size_t>(position)]);
    huiPorts.clear();
}

bool MidiManager::openHuiPort(HuiPort& port)
{
    const auto found =
        portNamed(port.isInput ? systemPorts->inputs() : systemPorts->outputs(), port.name);
    port.identifier = found.identifier;
    return port.isInput ? openMidiInput(found) : openMidiOutput(found);
}

void MidiManager::closeHuiPort(const HuiPort& port)
{
    if (port.isInput)
        closeMidiInput(port.name);
    else
        closeMidiOutput(port.name);
}

// A port that came back is another one: what was open under its name leads nowhere.
void MidiManager::reopenHuiPorts()
{
    for (HuiPort& port : huiPorts)
        reopenHuiPort(port);
}

void MidiManager::reopenHuiPort(HuiPort& port)
{
    const auto& present = port.isInput ? knownInputNames : knownOutputNames;
    // A twin in front of it changes nothing.
    if (present.contains({port.name, port.identifier}))
        return;
    const auto found = portNamed(present, port.name);
    port.identifier = found.identifier;
    if (found.identifier.isEmpty())
        return;
    closeHuiPort(port);
    const bool isOpen = port.isInput ? openMidiInput(found) : openMidiOutput(found);
    if (isOpen && !port.isInput && port.name != huiports::output)
        lightBankIndicators(port.name);
}

// These tell the mixer that somebody listens to its bank buttons.
void MidiManager::lightBankIndicators(const QString& name)
{
    constexpr int bankLeftNote = 14;
    constexpr int bankRightNote = 15;
    outputNoteOn(name, 0, bankLeftNote, 127);
    outputNoteOn(name, 0, bankRightNote, 127);
}

void MidiManager::tellHuiInputMissing()
{
    QMessageBox box(
        QMessageBox::Critical, QStringLiteral("Error"),
        QStringLiteral(
            "The HUI feature requries %1, a free virtual MIDI port maker. Please install loopMIDI, "
            "create 2 midi ports, and try again.<br><br>When adding the ports within loopMIDI, "
            "just use the default names: 'loopMIDI Port' and 'loopMIDI Port 1'.%2")
            .arg(huiports::makerLink(), huiports::otherMaker()),
        QMessageBox::Ok);
    box.setTextFormat(Qt::RichText);
    huiBoxIsOpen = true;
    box.exec();
    huiBoxIsOpen = false;
}
