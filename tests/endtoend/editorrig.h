#pragma once

#include "fullpowerview.h"
#include "presetfiles.h"
#include "presetinterface.h"
#include "reorderablelistwidget.h"
#include "simulatorprocess.h"
#include "sysexmanager.h"
#include "viewmanager.h"

#include <QAbstractSlider>
#include <QButtonGroup>
#include <QDir>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

#include <filesystem>
#include <memory>

// The real window in a folder of its own, and the simulator in a process of its own: what they
// hold, and how to wait for each other.
class EditorRig
{
protected:
    static constexpr int patienceMs = SimulatorProcess::patienceMs;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SimulatorProcess> simulator;
    std::unique_ptr<ViewManager> window;
    std::unique_ptr<QSignalSpy> syncs;

    // resources: as they ship. The simulator is not plugged in, and the window not there yet.
    bool enterFolder(const QString& resources, const QString& program)
    {
        folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder->path());
        QDir::setCurrent(folder->path());
        std::filesystem::copy(resources.toStdString(), "resources",
                              std::filesystem::copy_options::recursive);
        simulator = std::make_unique<SimulatorProcess>(program, folder->filePath("state.json"));
        return simulator->start({"--unplugged"});
    }
    void openWindow()
    {
        window = std::make_unique<ViewManager>();
        window->show();
        syncs = std::make_unique<QSignalSpy>(window->sysex(),
                                             SIGNAL(signalLiveMemoryFinishedSyncing()));
        window->sysex()->slotSendFwQuery(); // the first of a process goes nowhere, and waits
    }
    void leaveFolder()
    {
        window.reset();
        simulator.reset();
        QDir::setCurrent(startFolder);
    }

    // The mixer

    // "live", "global", "flash" or "slot A".
    Values mixer(const QString& what)
    {
        simulator->mark();
        simulator->command(what.contains(' ') ? what.toLatin1() : "state");
        const QRegularExpression line('^' + what + R"( (\S+) (\d+)$)");
        Values values;
        for (const QString& text : simulator->linesSinceMark().filter(line))
            values[text.section(' ', -2, -2)] = text.section(' ', -1).toInt();
        return values;
    }
    // All that the editor has sent is there.
    bool arrived()
    {
        const QString fence = "^from host .* save globals";
        const int before = simulator->count(fence);
        window->sysex()->slotSaveGlobalParamsToFlash();
        return simulator->waitFor(fence, before + 1);
    }
    bool isSynced(qsizetype times)
    {
        return QTest::qWaitFor([&] { return syncs->count() >= times; }, patienceMs);
    }
    bool plug()
    {
        simulator->mark();
        const auto before = syncs->count();
        return simulator->command("plug") && isSynced(before + 1);
    }

    // The editor

    template <class T = QWidget> T* view(const QString& name)
    {
        return window->fullPower()->findChild<T*>(name);
    }
    ReorderableListWidget* list() { return view<ReorderableListWidget>("presetlist"); }
    QWidget* progress() { return view("progressDialogForm"); }
    bool rests()
    {
        return QTest::qWaitFor([this] { return progress()->isHidden(); }, patienceMs);
    }
    // The store counts 501 ticks of a millisecond; QTest's waits give it one in ten.
    void waitForAutosave()
    {
        while (window->presets()->liveMemoryTimer->isActive())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QWidget* control(const QString& key)
    {
        if (!key.startsWith("channelstrip_"))
            return view(key);
        return view(key.section('_', 0, 1))->findChild<QWidget*>(key.section('_', 2));
    }
    int shown(const QString& key)
    {
        if (const auto* slider = qobject_cast<QAbstractSlider*>(control(key)))
            return slider->value();
        const auto* choice = control(key)->findChild<QButtonGroup*>();
        return choice ? choice->checkedId() : qobject_cast<QToolButton*>(control(key))->isChecked();
    }
    Values allShown()
    {
        Values values;
        for (const QString& key : current().keys())
            values[key] = shown(key);
        return values;
    }
    Values current() { return valuesOf(window->presets()->workingPreset(list()->currentRow())); }
    QString nameIn(int row) { return list()->item(row)->text(); }

private:
    QString startFolder = QDir::currentPath();
};
