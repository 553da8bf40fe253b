#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QUrl>

class QAbstractButton;
class QMessageBox;
class QNetworkAccessManager;
class QSettings;
class QWidget;

// What a check has found.
struct UpdateResult {
    enum class Kind {
        Newer,
        Skipped, // newer too, but the one that the user wants to hear no more of
        Same,    // or older
        Failed,
    };
    Kind kind = Kind::Failed;
    QString version;
    QUrl url;      // where it can be had: https, or empty
    QString notes; // plain text of at most 2000 characters
    QString error; // a sentence, where it failed
};
Q_DECLARE_METATYPE(UpdateResult)

// Asks the maker's server whether there is a newer version, and offers it. Knows this program's
// version and the server's address from a file that the build makes. ViewManager owns it.
//
// One request at a time, over https only, redirections included, of at most ten seconds and 64 KiB
// in all. Preferences: autoCheckForUpdates (absent counts as true), softwareUpdateSkipVersion.
class UpdateCheck : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 largestReply = 64 * 1024;
    int patienceMs = 10000; // from the next request on

    // All three outlive the check. window: what its boxes stand over. The network's
    // finished(QNetworkReply*) has to reach slotReply(): the owner connects it.
    UpdateCheck(QNetworkAccessManager* network, QSettings* settings, QWidget* window);
    ~UpdateCheck() override;

    // From a file that is missing or wrong: the version that is compiled in, and no address.
    void readVersionFile(const QString& path);
    QString version() const { return ownVersion; }

    // Quietly: shows nothing but a newer version that the user has not skipped. Nothing is asked
    // without an address, or if the user doesn't want it.
    void checkAtStart();
    // Shows whatever it finds. A check that runs already is made this one.
    void checkByHand();
    bool isRunning() const { return !reply.isNull(); }
    // Nothing is shown any more.
    void stop();

public slots:
    void slotReply(QNetworkReply* finished);

signals:
    // Before it is shown, if it is.
    void signalChecked(UpdateResult result);

private slots:
    void slotTimeout();
    void slotReadyRead();
    void slotAnswered(QAbstractButton* button);

private:
    void ask();
    void giveUp(const QString& why);
    void conclude(const UpdateResult& result);
    void show(const UpdateResult& result);

    QNetworkAccessManager* const network;
    QSettings* const settings;
    QWidget* const window;
    QString ownVersion;
    QUrl address;
    QPointer<QNetworkReply> reply;
    QTimer patience;
    QString failure; // why the reply was broken off, for what it then tells
    bool isByHand = false;
    QPointer<QMessageBox> box;
    UpdateResult shown;
};

namespace updatecheck
{

// The address to ask, from a host with or without a port; invalid for anything else.
QUrl addressOf(const QString& host);

// What a reply's body says to a program of that version. skipped: a version, or empty.
UpdateResult judged(const QByteArray& body, const QString& ownVersion, const QString& skipped);

} // namespace updatecheck
