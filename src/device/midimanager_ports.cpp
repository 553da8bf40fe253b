// MidiManager's listing, opening and closing, the same for both directions.
#include "midimanager.h"

#include "huiports.h"

#include <QDebug>

namespace
{

// Positions behind the removed one move up, and the map with them.
template <typename OpenPort>
void removePort(std::vector<OpenPort>& ports, QMap<QString, int>& index, const QString& name)
{
    const int position = index.take(name);
    ports.erase(ports.begin() + position);
    for (int& other : index) {
        if (other > position)
            --other;
    }
}

// A port that another of its name has replaced is as dead as one whose name is gone.
template <typename OpenPort>
void pruneStale(std::vector<OpenPort>& ports, QMap<QString, int>& index,
                const QList<MidiPortInfo>& present, const QString& spared)
{
    for (const QString& name : index.keys()) {
        const QString& identifier = ports[static_cast<std::size_t>(index[name])].identifier;
        if (!present.contains({name, identifier}) && !name.contains(spared))
            removePort(ports, index, name);
    }
}

// A failed open leaves its null at the end; the next open takes that place, or a port that is tried
// again and again would pile them up.
template <typename OpenPort> OpenPort& append(std::vector<OpenPort>& ports, OpenPort opened)
{
    if (!ports.empty() && !ports.back().port)
        ports.pop_back();
    return ports.emplace_back(std::move(opened));
}

} // namespace

QList<MidiPortInfo> MidiManager::listInputs()
{
    const QList<MidiPortInfo> ports = systemPorts->inputs();
    pruneStale(openInputs, openInputIndex, ports, huiports::input);
    return ports;
}

QList<MidiPortInfo> MidiManager::listOutputs()
{
    const QList<MidiPortInfo> ports = systemPorts->outputs();
    // The shorter text spares both virtual ports.
    pruneStale(openOutputs, openOutputIndex, ports, huiports::output);
    return ports;
}

QStringList MidiManager::getMidiInputDevices() { return namesOf(listInputs()); }

QStringList MidiManager::getMidiOutputDevices() { return namesOf(listOutputs()); }

bool MidiManager::openMidiInput(QString name)
{
    return openMidiInput(portNamed(systemPorts->inputs(), name));
}

bool MidiManager::openMidiOutput(QString name)
{
    return openMidiOutput(portNamed(systemPorts->outputs(), name));
}

bool MidiManager::openMidiInput(const MidiPortInfo& found)
{
    const auto& [name, identifier] = found;
    auto port = identifier.isEmpty() ? nullptr : systemPorts->openInput(identifier, this);
    auto& opened = append(openInputs, {std::move(port), identifier});
    if (!opened.port) {
        qDebug() << "error adding input device" << name;
        return false;
    }
    qDebug() << "open input device" << name;
    openInputIndex[name] = static_cast<int>(openInputs.size()) - 1;
    opened.port->start();
    return true;
}

bool MidiManager::openMidiOutput(const MidiPortInfo& found)
{
    const auto& [name, identifier] = found;
    auto port = identifier.isEmpty() ? nullptr : systemPorts->openOutput(identifier);
    if (!append(openOutputs, {std::move(port), identifier}).port) {
        qDebug() << "error adding output device" << name;
        return false;
    }
    qDebug() << "open output device" << name;
    openOutputIndex[name] = static_cast<int>(openOutputs.size()) - 1;
    return true;
}

bool MidiManager::closeMidiInput(QString name)
{
    const auto entry = openInputIndex.constFind(name);
    if (entry == openInputIndex.constEnd())
        return false;
    qDebug() << "close input device" << name;
    openInputs[static_cast<std::size_t>(*entry)].port->stop();
    removePort(openInputs, openInputIndex, name);
    return true;
}

bool MidiManager::closeMidiOutput(QString name)
{
    if (!openOutputIndex.contains(name))
        return false;
    // Spelled so.
    qDebug() << "close ouput device" << name;
    removePort(openOutputs, openOutputIndex, name);
    return true;
}
