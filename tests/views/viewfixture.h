#pragma once

#include "channelstriptab.h"
#include "controls.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "library.h"
#include "mixerend.h"
#include "presetinterface.h"
#include "testcase.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QJsonDocument>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QMenuBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

#include <functional>
#include <memory>

// Does something while another thing waits: when events pass for the nth time.
class Meanwhile : public QObject
{
public:
    Meanwhile(int nth, std::function<void()> what)
        : left(nth)
        , action(std::move(what))
    {
        startTimer(0);
    }

protected:
    void timerEvent(QTimerEvent* event) override
    {
        if (--left > 0)
            return;
        killTimer(event->timerId());
        action();
    }

private:
    int left;
    const std::function<void()> action;
};

// The window with the view in it, which follows the mixer as the shell does. The working directory
// is its own, with a library and a setlist in it. Making one takes half a second.
class Desk : public QMainWindow, public MixerEnd, public Controls
{
    Q_OBJECT

    QTemporaryDir folder;

public:
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    PresetInterface presets;
    GlobalPresetInterface globals;
    QWidget settingsDialog{this};
    // Clear, copy, paste, paste to new; copy and paste of a channel; auto populate.
    std::array<QAction*, 7> actions{};
    std::unique_ptr<FullPowerView> view;
    ReorderableListWidget* list = nullptr;

    explicit Desk(const QVariantMap& library = libraryOf(fewNames),
                  const QVariantMap& preferences = {}, const QVariantMap& setlist = {{"A", "One"}})
    {
        QLoggingCategory::setFilterRules("default.debug=false");
        QDir::setCurrent(folder.path());
        QDir().mkpath("resources/presets");
        for (const QString name : {"tables", "presets/Blank.jsumpreset"})
            QFile::link(JSUM_SOURCE_DIR "/resources/" + name, "resources/" + name);
        QFile::copy(JSUM_SOURCE_DIR "/resources/presets/global.json",
                    "resources/presets/global.json");
        write("jsum.json", library);
        write("setlist.json", setlist);
        for (auto key = preferences.cbegin(); key != preferences.cend(); ++key)
            settings.setValue(key.key(), key.value());
        presets.slotUpdateJSONPath();
        presets.slotReadJSON();
        globals.slotSetJSONPath();
        globals.slotReadGlobal();
        sysex.slotDidAttemptFwUpdate(); // or it would look for the firmware tool
        connect(&sysex, SIGNAL(signalConnected(bool)), SLOT(slotConnected(bool)));
        connect(&sysex, SIGNAL(signalInitFullPowerMode()), SLOT(slotEnter()));

        for (const char* name : {"view_linking_enable", "hui", "auto_check_for_updates"}) {
            auto* button = new QToolButton(&settingsDialog);
            button->setObjectName(name);
            button->setCheckable(true);
        }
        settingsDialog.hide();
        view = std::make_unique<FullPowerView>(false, QString(), &sysex, &presets, &globals,
                                               &settingsDialog, &settings, this);
        findIn(view.get());
        list = view->findChild<ReorderableListWidget*>();
        for (QAction*& action : actions)
            action = menuBar()->addAction("action");
        view->slotInitFullPowerMenuActions(actions[0], actions[1], actions[2], actions[3],
                                           actions[4], actions[5], actions[6]);
        resize(view->size());
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("the window does not become active");
    }

    // Those of which screen, store and mixer say different things.
    QStringList apart(const QStringList& keys = {ch1, ch2, gain})
    {
        QStringList different;
        for (const QString& key : keys) {
            const int there = held(key, shown(key));
            if (shown(key) != value(key) || shown(key) != there)
                different
                    << QString("%1: %2 %3 %4").arg(key).arg(shown(key)).arg(value(key)).arg(there);
        }
        return different;
    }

    // The store
    QVariantMap preset(int number) const { return presets.workingPreset(number); }
    int value(const QString& key, int number = -1) const
    {
        return preset(number < 0 ? presets.currentPresetNumber() : number).value(key).toInt();
    }
    static QVariantMap file(const QString& name)
    {
        QFile in("resources/presets/" + name);
        return in.open(QIODevice::ReadOnly)
            ? QJsonDocument::fromJson(in.readAll()).toVariant().toMap()
            : QVariantMap();
    }
    // A dirty one with "*".
    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list->count(); ++row)
            texts << list->item(row)->text() + (list->item(row)->font().italic() ? "*" : "");
        return texts;
    }

    void clickRow(int row)
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    }
    // A click as from the window system: it waits in its queue until events pass that the user
    // brings in. QTest's are delivered at once, whatever is let pass.
    void post(const QWidget* widget, const QRect& place) const
    {
        const QPointF local = widget->mapTo(this, place.center());
        const QPointF global = windowHandle()->mapToGlobal(local);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QWindowSystemInterface::handleMouseEvent<QWindowSystemInterface::AsynchronousDelivery>(
                windowHandle(), local, global,
                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                type);
    }
    void postRow(int row) const { post(list->viewport(), list->visualItemRect(list->item(row))); }
    // Whatever went before: it is stored once and sent once.
    void moveOnce()
    {
        QSignalSpy stored(view.get(), SIGNAL(signalStoreValue(QString, QVariant, int)));
        sent();
        const int moved = shown(ch1) + 7;
        set(ch1, moved);
        QCOMPARE(sent(), QString("%1=%2").arg(ch1).arg(moved));
        QCOMPARE(stored.size(), 1);
        QCOMPARE(value(ch1), moved);
    }
    static void type(const QString& keys) { QTest::keyClicks(QApplication::focusWidget(), keys); }

    void press(const QString& dialog, const QString& name)
    {
        QTest::mouseClick(at(dialog)->findChild<QWidget*>(name), Qt::LeftButton);
    }
    bool isOpen(const QString& dialog) const { return at(dialog)->isVisible(); }
    bool isSheetOpen() const
    {
        const QWidget* fader = at(ch1);
        return view->childAt(fader->mapTo(view.get(), fader->rect().center())) != fader;
    }

private slots:
    void slotConnected(bool on)
    {
        if (!on)
            view->slotDeInitializeFullPowerMode();
    }
    void slotEnter()
    {
        view->slotDeInitializeFullPowerMode();
        view->slotShowPresets(true);
        for (QAction* action : {actions[2], actions[3], actions[5]})
            action->setEnabled(false);
        view->slotInitializeFullPowerMode();
    }

private:
    static void write(const QString& name, const QVariantMap& document)
    {
        QFile out("resources/presets/" + name);
        if (!out.open(QIODevice::WriteOnly)
            || out.write(QJsonDocument::fromVariant(document).toJson()) < 0)
            qFatal("cannot write %s", qPrintable(name));
    }
};
