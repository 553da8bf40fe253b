#include "updatecheck.h"

#include "diskfile.h"
#include "exchange.h"
#include "jsonfile.h"
#include "presetnames.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDesktopServices>
#include <QJsonObject>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QPushButton>
#include <QSettings>
#include <QVersionNumber>

#include <utility>

namespace
{

const QString skipKey = QStringLiteral("softwareUpdateSkipVersion");
const QString askedPath = QStringLiteral("/products/j-sum/editor/softwareVersionCheck.json");
const QString downloadName = QStringLiteral("download");
const QString skipName = QStringLiteral("skipVersion");

constexpr int longestVersion = 32;
constexpr int longestNotes = 2000;

// Without zeros at its end: 1.2 is 1.2.0.
QVersionNumber versionIn(const QString& text)
{
    return QVersionNumber::fromString(text).normalized();
}

bool tellsVersion(const QString& text)
{
    return text.size() <= longestVersion && !QVersionNumber::fromString(text).isNull();
}

QUrl secure(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && url.scheme() == QStringLiteral("https") && !url.host().isEmpty()
        ? url
        : QUrl();
}

UpdateResult failed(const QString& error)
{
    UpdateResult result;
    result.error = error;
    return result;
}

QString failureOf(const QNetworkReply& reply)
{
    switch (reply.error()) {
    case QNetworkReply::InsecureRedirectError:
        return QStringLiteral("The server points to an address that is not secure.");
    case QNetworkReply::ContentNotFoundError:
        return QStringLiteral("The server tells of no version.");
    default:
        return QStringLiteral("The server could not be asked: %1.").arg(reply.errorString());
    }
}

} // namespace

QUrl updatecheck::addressOf(const QString& host)
{
    const QUrl url = secure(QStringLiteral("https://") + host + askedPath);
    // A host that is more than that would move or hide the path.
    const bool isPlain = url.path() == askedPath && url.userInfo().isEmpty() && !url.hasQuery()
        && !url.hasFragment();
    return isPlain ? url : QUrl();
}

UpdateResult updatecheck::judged(const QByteArray& body, const QString& ownVersion,
                                 const QString& skipped)
{
    const auto object = JsonFile::parsed(body);
    UpdateResult result;
    result.version = object ? object->value(QStringLiteral("version")).toString() : QString();
    if (!tellsVersion(result.version))
        return failed(QStringLiteral("The server's answer can't be understood."));
    result.url = secure(object->value(QStringLiteral("url")).toString());
    result.notes = shortened(object->value(QStringLiteral("notes")).toString(), longestNotes);
    const QVersionNumber found = versionIn(result.version);
    if (found <= versionIn(ownVersion))
        result.kind = UpdateResult::Kind::Same;
    else if (tellsVersion(skipped) && found == versionIn(skipped))
        result.kind = UpdateResult::Kind::Skipped;
    else
        result.kind = UpdateResult::Kind::Newer;
    return result;
}

UpdateCheck::UpdateCheck(QNetworkAccessManager* networkManager, QSettings* preferences,
                         QWidget* parentWindow)
    : QObject(parentWindow)
    , network(networkManager)
    , settings(preferences)
    , window(parentWindow)
    , ownVersion(QCoreApplication::applicationVersion())
{
    patience.setSingleShot(true);
    connect(&patience, SIGNAL(timeout()), this, SLOT(slotTimeout()));
}

UpdateCheck::~UpdateCheck() { stop(); }

void UpdateCheck::readVersionFile(const QString& path)
{
    ownVersion = QCoreApplication::applicationVersion();
    address.clear();
    const auto bytes = diskfile::readFile(path);
    const auto object = bytes ? JsonFile::parsed(*bytes) : std::nullopt;
    const QString version =
        object ? object->value(QStringLiteral("version")).toString() : QString();
    if (!tellsVersion(version)) {
        qDebug() << "no version is told by" << path;
        return;
    }
    ownVersion = version;
    address = updatecheck::addressOf(object->value(QStringLiteral("host")).toString());
}

// The request

void UpdateCheck::checkAtStart()
{
    const bool isWanted = settings->value(QStringLiteral("autoCheckForUpdates"), true).toBool();
    if (isWanted && address.isValid() && !isRunning())
        ask();
}

void UpdateCheck::checkByHand()
{
    isByHand = true;
    if (!address.isValid())
        conclude(failed(QStringLiteral("No address to ask for updates is known.")));
    else if (!isRunning())
        ask();
}

void UpdateCheck::ask()
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(5);
    // Not compressed: what arrives is what is counted.
    request.setRawHeader("Accept-Encoding", "identity");
    failure.clear();
    reply = network->get(request);
    connect(reply, SIGNAL(readyRead()), this, SLOT(slotReadyRead()));
    patience.start(patienceMs);
}

void UpdateCheck::slotTimeout() { giveUp(QStringLiteral("The server did not answer in time.")); }

void UpdateCheck::slotReadyRead()
{
    if (!reply.isNull() && reply->bytesAvailable() > largestReply)
        giveUp(QStringLiteral("The server's answer is too long."));
}

void UpdateCheck::giveUp(const QString& why)
{
    failure = why;
    if (!reply.isNull())
        reply->abort(); // finishes it
}

void UpdateCheck::stop()
{
    patience.stop();
    isByHand = false;
    if (!box.isNull())
        box->close();
    // No more ours: what it then tells is passed over.
    if (QNetworkReply* const ended = std::exchange(reply, nullptr)) {
        ended->abort();
        ended->deleteLater();
    }
}

void UpdateCheck::slotReply(QNetworkReply* finished)
{
    if (finished == nullptr || finished != reply)
        return;
    patience.stop();
    reply.clear();
    finished->deleteLater();
    // One that was broken off is closed.
    const QByteArray body = finished->isOpen() ? finished->readAll() : QByteArray();
    if (failure.isEmpty() && finished->error() != QNetworkReply::NoError)
        failure = failureOf(*finished);
    if (failure.isEmpty() && body.size() > largestReply)
        failure = QStringLiteral("The server's answer is too long.");
    if (failure.isEmpty())
        conclude(updatecheck::judged(body, ownVersion, settings->value(skipKey).toString()));
    else
        conclude(failed(failure));
}

// The result

void UpdateCheck::conclude(const UpdateResult& result)
{
    emit signalChecked(result);
    if (isByHand || result.kind == UpdateResult::Kind::Newer)
        show(result);
    else
        qDebug().noquote() << "update check:" << result.version << result.error;
    isByHand = false;
}

void UpdateCheck::show(const UpdateResult& result)
{
    if (!box.isNull())
        box->close();
    shown = result;
    box = new QMessageBox(window);
    box->setWindowTitle(QStringLiteral("Check for Updates"));
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, SIGNAL(buttonClicked(QAbstractButton*)), this,
            SLOT(slotAnswered(QAbstractButton*)));
    if (result.kind == UpdateResult::Kind::Failed) {
        box->setText(QStringLiteral("Whether there is a newer version could not be found out.\n")
                     + result.error);
    } else if (result.kind == UpdateResult::Kind::Same) {
        box->setText(QStringLiteral("J-Sum Editor %1 is up to date.").arg(ownVersion));
    } else {
        const QString notes = result.notes.isEmpty()
            ? QString()
            : QStringLiteral("\n\n") + exchange::fewLines(result.notes.split(QLatin1Char('\n')));
        box->setText(
            QStringLiteral("J-Sum Editor %1 is there; this is %2.").arg(result.version, ownVersion)
            + notes);
        if (!result.url.isEmpty())
            box->addButton(QStringLiteral("Download"), QMessageBox::AcceptRole)
                ->setObjectName(downloadName);
        box->addButton(QStringLiteral("Skip This Version"), QMessageBox::DestructiveRole)
            ->setObjectName(skipName);
        QPushButton* const later = box->addButton(QStringLiteral("Later"), QMessageBox::RejectRole);
        box->setEscapeButton(later);
        box->setDefaultButton(later);
    }
    if (isByHand)
        return box->open();
    // Nobody asked: it neither takes the keyboard nor locks the window.
    box->setModal(false);
    box->setAttribute(Qt::WA_ShowWithoutActivating);
    box->show();
}

void UpdateCheck::slotAnswered(QAbstractButton* button)
{
    if (button->objectName() == downloadName)
        QDesktopServices::openUrl(shown.url);
    else if (button->objectName() == skipName)
        settings->setValue(skipKey, shown.version);
}
