#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

// Asks and sets the USB audio driver's sample rate and buffer size through the external tool, one
// call at a time. ViewManager owns it.
class UsbAudio : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 largestOutput = 64 * 1024;
    int patienceMs = 10000; // until a call that hangs is killed; from the next one on

    UsbAudio(const QString& toolPath, QObject* parent);
    ~UsbAudio() override;

    // The shell's: whether the tool is at work on the firmware. A call waits for its end.
    std::function<bool()> isToolBusy;

    QProcess* process() const { return usbSettingsProcess; }
    // A setting that waits is made first.
    void ask();
    // menu: "usb_sample_rate" or "usb_buffer". The last choice of each wins.
    void set(const QString& menu, const QString& text);

public slots:
    void slotReadOutput();
    void slotFinished(int exitCode);

signals:
    // What the driver told of a menu, without a line's end.
    void signalTold(QString menu, QString text);
    // Of a setting, in a sentence; one of asking leaves a debug line.
    void signalFailed(QString why);

private slots:
    void slotRunNext();
    void slotError(QProcess::ProcessError error);
    void slotGiveUp();

private:
    struct Setting {
        QString menu;
        QString text;
    };
    void start(const QStringList& arguments);
    void fail(const QString& why);

    const QString tool;
    QProcess* const usbSettingsProcess;
    QTimer patience;
    QTimer retry;
    QList<Setting> settings;
    bool isAsking = false;  // soon
    bool isSetting = false; // now
    qint64 outputSize = 0;
    QString failure;
};
