#pragma once

#include "fakeports.h"
#include "sysexmanager.h"
#include "testcase.h"
#include "viewmanager.h"

#include <QAction>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

// The base of the tests of the whole window, in a folder of its own and on MIDI ports of its own.
class WindowTest : public TestCase
{
    Q_OBJECT

    const QString startFolder = QDir::currentPath();

private slots:
    void cleanup()
    {
        window.reset();
        QDir::setCurrent(startFolder);
    }

protected:
    const QStringList mixerPorts{"J-Sum Audio Control", "J-Sum Control Surface"};
    std::unique_ptr<QTemporaryDir> folder;
    FakePorts* ports = nullptr;
    std::unique_ptr<ViewManager> window;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder->path());
        QDir::setCurrent(folder->path());
        QDir().mkdir("resources");
    }
    void open(JsonFile::Access presetsAccess = JsonFile::Access::Full)
    {
        window.reset();
        auto fake = std::make_unique<FakePorts>();
        ports = fake.get();
        window = std::make_unique<ViewManager>(std::move(fake), presetsAccess);
        window->show();
    }
    void plug(const QStringList& names)
    {
        ports->plug(names);
        window->sysex()->midi()->slot_PollDevices();
    }
    void unplug()
    {
        ports->unplug();
        window->sysex()->midi()->slot_PollDevices();
    }
    // What the mixer says, behind the frame's head.
    void hear(const QByteArray& hex)
    {
        const QByteArray bytes = QByteArray::fromHex("f000015f23" + hex + "f7");
        window->sysex()->slotReceiveMidiInput(mixerPorts.first(),
                                              MidiMessage(bytes.constData(), int(bytes.size())));
    }
    QAction* action(const QString& text) const
    {
        for (QAction* candidate : window->findChildren<QAction*>())
            if (candidate->text() == text)
                return candidate;
        return nullptr;
    }
};
