#pragma once

#include "channelstriptab.h"
#include "fakeports.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "presetcodec.h"
#include "presetinterface.h"
#include "sysexmanager.h"
#include "testcase.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHash>
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
#include <utility>

inline const QString syncName = QStringLiteral("[CONNECTION SYNC]");
inline const QStringList fewNames{syncName, "One", "Two", "Three"};
inline const QString ch1 = QStringLiteral("faderframe_ch1_fader");
inline const QString ch2 = QStringLiteral("faderframe_ch2_fader");
inline const QString gain = QStringLiteral("channelstrip_ch1_eq_hi_gain");

// Of few parameters, so that a recall is short; what a preset lacks counts as 0.
inline QVariantMap smallPreset(const QString& name, int number)
{
    return {{"preset_name", name},
            {ch1, 5000 + 100 * number},
            {ch2, 6000 + 100 * number},
            {gain, 10000 + 100 * number}};
}
inline QVariantMap libraryOf(const QStringList& names)
{
    QVariantMap library;
    for (int i = 0; i < names.size(); ++i)
        library.insert(QString("Preset_%1").arg(i, 3, 10, QChar('0')), smallPreset(names[i], i));
    return library;
}

// What its recall sends.
inline QString recallOf(int number)
{
    QStringList words;
    for (const QString& key : {gain, ch1, ch2})
        words << QString("%1=%2").arg(key).arg(smallPreset({}, number)[key].toInt());
    return words.join(' ');
}

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
class Desk : public QMainWindow
{
    Q_OBJECT

    QTemporaryDir folder;
    mutable QHash<QString, QWidget*> found; // a search goes through all of the view
    QStringList words;                      // sent
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
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    PresetInterface presets;
    GlobalPresetInterface globals;
    FakePorts* ports = new FakePorts;
    SysexManager sysex{nullptr, std::unique_ptr<MidiPorts>(ports)};
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

    // The mixer
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
    // Those of which screen, store and mixer say different things.
    QStringList apart(const QStringList& keys = {ch1, ch2, gain})
    {
        take();
        QStringList different;
        for (const QString& key : keys)
            if (shown(key) != value(key) || shown(key) != mixer.value(key, shown(key)))
                different << QString("%1: %2 %3 %4")
                                 .arg(key)
                                 .arg(shown(key))
                                 .arg(value(key))
                                 .arg(mixer.value(key));
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

    // The controls, by name or, those of a page too, by key
    template <typename Widget = QWidget> Widget* at(const QString& name) const
    {
        QWidget* widget = found.value(name);
        if (widget == nullptr) {
            widget = name.startsWith("channelstrip_")
                ? view->findChild<QWidget*>(name.section('_', 0, 1))
                      ->findChild<QWidget*>(name.section('_', 2))
                : view->findChild<QWidget*>(name);
            found.insert(name, widget);
        }
        return qobject_cast<Widget*>(widget);
    }
    QAbstractButton* button(const QString& name) const { return at<QAbstractButton>(name); }
    QAbstractSlider* slider(const QString& key) const { return at<QAbstractSlider>(key); }
    int shown(const QString& key) const
    {
        return slider(key) != nullptr ? slider(key)->value() : int{button(key)->isChecked()};
    }
    void set(const QString& key, int value)
    {
        if (slider(key) != nullptr)
            slider(key)->setValue(value);
        else
            button(key)->setChecked(value != 0);
    }
    void click(const QString& name, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(at(name), Qt::LeftButton, modifiers);
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
