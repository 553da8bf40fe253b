// MidiManager's listing, opening and closing, the same for both directions.
#include "midimanager.h"

#include <QDebug>

namespace
{

QStringList namesOf(const QList<MidiPortInfo>& ports)
{
    QStringList names;
    names.reserve(ports.size());
    for (const auto& port : ports)
        names.append(port.name);
    return names;
}

// Of two devices with the same name the first is taken.
QString identifierOf(const QList<MidiPortInfo>& ports, const QString& name)
{
    for (const auto& port : ports) {
        if (port.name == name)
            return port.identifier;
    }
    return {};
}

// Positions behind the removed one move up, and the map with them.
template <typename Port>
void removePort(std::vector<std::unique_ptr<Port>>& ports, QMap<QString, int>& index,
                const QString& name)
{
    const int position = index.take(name);
    ports.erase(ports.begin() + position);
    for (int& other : index) {
        if (other > position)
            --other;
    }
}

template <typename Port>
void pruneStale(std::vector<std::unique_ptr<Port>>& ports, QMap<QString, int>& index,
                const QStringList& present, QLatin1String spared)
{
    for (const QString& name : index.keys()) {
        if (!present.contains(name) && !name.contains(spared))
            removePort(ports, index, name);
    }
}

} // namespace

QStringList MidiManager::getMidiInputDevices()
{
    const QStringList names = namesOf(m_ports->inputs());
    pruneStale(openInputs, openInputIndex, names, QLatin1String("loopMIDI Port 1"));
    return names;
}

QStringList MidiManager::getMidiOutputDevices()
{
    const QStringList names = namesOf(m_ports->outputs());
    // The shorter text spares both virtual ports.
    pruneStale(openOutputs, openOutputIndex, names, QLatin1String("loopMIDI Port"));
    return names;
}

bool MidiManager::openMidiInput(QString name)
{
    const QString identifier = identifierOf(m_ports->inputs(), name);
    openInputs.push_back(identifier.isEmpty() ? nullptr : m_ports->openInput(identifier, this));
    if (!openInputs.back()) {
        qDebug() << "error adding input device" << name;
        return false;
    }
    qDebug() << "open input device" << name;
    openInputIndex[name] = static_cast<int>(openInputs.size()) - 1;
    openInputs.back()->start();
    return true;
}

bool MidiManager::openMidiOutput(QString name)
{
    const QString identifier = identifierOf(m_ports->outputs(), name);
    openOutputs.push_back(identifier.isEmpty() ? nullptr : m_ports->openOutput(identifier));
    if (!openOutputs.back()) {
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
    openInputs[static_cast<std::size_t>(*entry)]->stop();
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
