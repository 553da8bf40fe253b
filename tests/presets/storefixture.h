#pragma once

#include "presetinterface.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <utility>

// A folder with a "presets" folder in it, as a store's resources folder.
class StoreFolder
{
public:
    StoreFolder() { QDir(folder.path()).mkdir(QStringLiteral("presets")); }

    QString path() const { return folder.path() + QLatin1Char('/'); }
    QString file(const QString& name) const { return path() + QStringLiteral("presets/") + name; }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile out(file(name));
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
    }
    QByteArray bytes(const QString& name) const
    {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    template <typename Store> void give(Store& store) const
    {
        store.resourcesFolder = path();
        store.useResourcesFolder = true;
    }

private:
    QTemporaryDir folder;
};

// A library of one-parameter presets of these names; the parameter's value is the preset's number.
inline QByteArray libraryOf(const QStringList& names)
{
    QJsonObject library;
    for (int i = 0; i < names.size(); ++i) {
        library.insert(QString("Preset_%1").arg(i, 3, 10, QChar('0')),
                       QJsonObject{{"preset_name", names.at(i)}, {"reverbtab_pre_delay", i}});
    }
    return QJsonDocument(library).toJson();
}

// Writes down what a store raises, in order.
class Recorder : public QObject
{
    Q_OBJECT

public:
    explicit Recorder(PresetInterface* store)
    {
        connect(store, SIGNAL(signalRecallPreset(QVariantMap)), this, SLOT(recall(QVariantMap)));
        connect(store, SIGNAL(signalPresetMenu(int)), this, SLOT(menu(int)));
        connect(store, SIGNAL(signalPresetDirty(int, bool)), this, SLOT(dirty(int, bool)));
        connect(store, SIGNAL(signalAddOrRemovePreset()), this, SLOT(list()));
        connect(store, SIGNAL(signalSendPresetParameter(QString, int)), this,
                SLOT(send(QString, int)));
        connect(store, SIGNAL(signalDisconnectFromSysexSending()), this, SLOT(cut()));
        connect(store, SIGNAL(signalConnectToSysexSending()), this, SLOT(join()));
        connect(store, SIGNAL(signalPresetListEnabled(bool)), this, SLOT(enabled(bool)));
        connect(store, SIGNAL(signalStereoUpdatingStatus(bool)), this, SLOT(stereo(bool)));
        connect(store, SIGNAL(signalPresetIsReadyToReceive()), this, SLOT(ready()));
        connect(store, SIGNAL(signalPresetDoneRecalling()), this, SLOT(done()));
    }

    // All since the last call, in one line.
    QString take() { return std::exchange(events, {}).join(QLatin1Char(' ')); }

private slots:
    void recall(QVariantMap preset) { events << "recall:" + preset["preset_name"].toString(); }
    void menu(int row) { events << QString("menu:%1").arg(row); }
    void dirty(int preset, bool on) { events << QString(on ? "dirty:%1" : "clean:%1").arg(preset); }
    void list() { events << QString("list"); }
    void send(QString name, int value) { events << QString("%1=%2").arg(name).arg(value); }
    void cut() { events << QString("cut"); }
    void join() { events << QString("join"); }
    void enabled(bool on) { events << (on ? "free" : "lock"); }
    void stereo(bool on) { events << (on ? "stereo-on" : "stereo-off"); }
    void ready() { events << QString("ready"); }
    void done() { events << QString("done"); }

private:
    QStringList events;
};

// The base of the library's tests: a store that is made anew for each, and its file.
class LibraryTest : public TestCase
{
    Q_OBJECT

protected:
    std::unique_ptr<StoreFolder> folder;
    std::unique_ptr<PresetInterface> store;

    void prepare() override
    {
        store.reset();
        folder = std::make_unique<StoreFolder>();
        store = std::make_unique<PresetInterface>();
        folder->give(*store);
        store->slotUpdateJSONPath();
    }

    void read(const QByteArray& bytes)
    {
        folder->write("jsum.json", bytes);
        store->slotReadJSON();
    }
    QByteArray onDisk() const { return folder->bytes("jsum.json"); }
    QJsonObject presetOnDisk(const QString& key) const
    {
        return QJsonDocument::fromJson(onDisk()).object().value(key).toObject();
    }
    // Of the presets, in their order.
    QStringList names() const
    {
        ReorderableListWidget list;
        store->slotPopulatePresetMenu(&list);
        QStringList rows;
        for (int row = 0; row < list.count(); ++row)
            rows << list.item(row)->text();
        return rows;
    }
};
