#include "juceports.h"

#include "inputpause.h"

#include <QSet>
#include <QThread>

#include <cstdarg>
#include <cstdio>

#if defined(__linux__)
#include <alsa/asoundlib.h>
#endif

namespace
{

InputPause& inputPause()
{
    static InputPause pause;
    return pause;
}

QString fromJuce(const juce::String& text) { return QString::fromUtf8(text.toRawUTF8()); }

juce::String toJuce(const QString& text)
{
    return juce::String::fromUTF8(text.toUtf8().constData());
}

QList<MidiPortInfo> fromJuce(const juce::Array<juce::MidiDeviceInfo>& devices)
{
    QList<MidiPortInfo> ports;
    ports.reserve(devices.size());
    for (const auto& device : devices)
        ports.append({fromJuce(device.name), fromJuce(device.identifier)});
    return ports;
}

class JuceInputPort : public MidiInputPort
{
public:
    explicit JuceInputPort(std::unique_ptr<juce::MidiInput> opened)
        : input(std::move(opened))
    {
        inputPause().inputOpened();
    }
    ~JuceInputPort() override
    {
        input.reset();
        inputPause().inputClosed();
    }
    void start() override { input->start(); }
    void stop() override { input->stop(); }

private:
    std::unique_ptr<juce::MidiInput> input;
};

class JuceOutputPort : public MidiOutputPort
{
public:
    explicit JuceOutputPort(std::unique_ptr<juce::MidiOutput> opened)
        : output(std::move(opened))
    {
    }
    void sendMessageNow(const juce::MidiMessage& message) override
    {
        output->sendMessageNow(message);
    }

private:
    std::unique_ptr<juce::MidiOutput> output;
};

#if defined(__linux__)
// Without a sequencer every poll would print the same complaint, twice a second.
void printAlsaErrorOnce(const char* file, int line, const char* function, int error,
                        const char* format, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);

    static QSet<QByteArray> printed;
    const QByteArray message = QByteArray(function) + ": " + text;
    if (printed.contains(message))
        return;
    if (printed.size() < 100)
        printed.insert(message);
    std::fprintf(stderr, "ALSA lib %s:%i:(%s) %s%s%s\n", file, line, function, text,
                 error ? ": " : "", error ? snd_strerror(error) : "");
}

void quietenAlsa() { snd_lib_error_set_handler(printAlsaErrorOnce); }
#else
void quietenAlsa() { }
#endif

} // namespace

JucePorts::JucePorts() { quietenAlsa(); }

QList<MidiPortInfo> JucePorts::inputs() { return fromJuce(juce::MidiInput::getAvailableDevices()); }

QList<MidiPortInfo> JucePorts::outputs()
{
    return fromJuce(juce::MidiOutput::getAvailableDevices());
}

std::unique_ptr<MidiInputPort> JucePorts::openInput(const QString& identifier,
                                                    juce::MidiInputCallback* callback)
{
    QThread::msleep(static_cast<unsigned long>(inputPause().remainingMs()));
    auto input = juce::MidiInput::openDevice(toJuce(identifier), callback);
    if (!input)
        return nullptr;
    return std::make_unique<JuceInputPort>(std::move(input));
}

std::unique_ptr<MidiOutputPort> JucePorts::openOutput(const QString& identifier)
{
    auto output = juce::MidiOutput::openDevice(toJuce(identifier));
    if (!output)
        return nullptr;
    return std::make_unique<JuceOutputPort>(std::move(output));
}

QStringList JucePorts::audioOutputNames()
{
    QStringList names;
    {
        juce::AudioDeviceManager deviceManager;
        for (auto* type : deviceManager.getAvailableDeviceTypes()) {
            type->scanForDevices();
            for (const auto& name : type->getDeviceNames(false))
                names.append(fromJuce(name));
        }
    }
    // JUCE's audio devices silence ALSA themselves, and when they go, they let it speak.
    quietenAlsa();
    return names;
}
