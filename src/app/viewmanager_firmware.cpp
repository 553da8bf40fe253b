// The shell's side of the firmware check and update: dialogs, console, log and versions.
#include "viewmanager.h"

#include "sysexmanager.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

namespace
{

const QString foundMark = QStringLiteral("9 TYPE_VERSION 0 ");
const QString expectedMark = QStringLiteral("TYPE_VERSION 0 ");

// More than any check prints before its marks, and little enough to search at every line.
constexpr int checkOutputLimit = 64 * 1024;

// Decimal pairs without separators, as the tool prints a version: "10203" is 1.2.3.
QString formatFwVersion(const QString& packed)
{
    constexpr int digits = 6;
    if (packed.size() > digits)
        return QStringLiteral("fw format error");
    const QString padded = packed.rightJustified(digits, QLatin1Char('0'));
    return QStringLiteral("%1.%2.%3")
        .arg(padded.mid(0, 2).toInt())
        .arg(padded.mid(2, 2).toInt())
        .arg(padded.mid(4, 2).toInt());
}

// Laying out one endless line would stop the window for minutes.
constexpr int longestLine = 1000;

// The text with a line end wherever a line would grow beyond longestLine; column is where it
// begins.
QString breakLongLines(const QString& text, int column)
{
    QString broken;
    broken.reserve(text.size() + text.size() / longestLine);
    for (const QChar character : text) {
        const bool endsLine = character == QLatin1Char('\n');
        if (!endsLine && column >= longestLine) {
            broken += QLatin1Char('\n');
            column = 0;
        }
        broken += character;
        column = endsLine ? 0 : column + 1;
    }
    return broken;
}

struct VersionText {
    qsizetype begin = -1;
    qsizetype end = -1;
};

// The text between a mark and the next bracket; begin and end are -1 unless both are there.
VersionText findVersion(const QString& text, const QString& mark, qsizetype from)
{
    const auto at = text.indexOf(mark, from);
    if (at < 0)
        return {};
    const auto begin = at + mark.size();
    const auto end = text.indexOf(QLatin1Char('('), begin);
    return end < 0 ? VersionText{} : VersionText{begin, end};
}

} // namespace

void ViewManager::connectFirmwareDialogs()
{
    for (QPushButton* button :
         {fwOutOfDateDialogForm.cancel, fwOutOfDateDialogForm.update, fwForceDialogForm.cancel,
          fwForceDialogForm.update, fwErrorDialogForm.cancel, fwErrorDialogForm.update})
        innerDialogs.closeBy(button);
    const struct {
        QObject* sender;
        const char* signal;
        const char* slot;
    } rows[]{
        {sysexManager, SIGNAL(signalOpenFwOOD()), SLOT(slotFirmwareIsOutOfDate())},
        {sysexManager, SIGNAL(signalFwError(QString)), SLOT(slotFirmwareFailed(QString))},
        {sysexManager, SIGNAL(signalOpenRestartDialog()), SLOT(slotMixerRestarts())},
        {fwOutOfDateDialogForm.update, SIGNAL(clicked()), SLOT(slotStartFirmwareUpdate())},
        {fwForceDialogForm.update, SIGNAL(clicked()), SLOT(slotStartFirmwareUpdate())},
    };
    for (const auto& row : rows)
        connect(row.sender, row.signal, row.slot);
    connect(sysexManager, SIGNAL(signalCloseRestartDialog()), restartDialog, SLOT(close()));
    connect(sysexManager, SIGNAL(signalCloseRestartDialog()), SLOT(slotHideDisableWidget()));
    connect(fwErrorDialogForm.update, SIGNAL(clicked()), sysexManager,
            SLOT(slotSendRestartMessage()));
}

void ViewManager::slotFirmwareIsOutOfDate()
{
    innerDialogs.open(fwOutOfDateDialog, fwOutOfDateDialogForm.update);
}

void ViewManager::slotStartFirmwareUpdate()
{
    sysexManager->slotDidAttemptFwUpdate();
    innerDialogs.open(fwProgressDialog, fwProgressDialog);
    emit sysexManager->signalUpdateFirmware();
}

void ViewManager::slotMixerRestarts()
{
    fwProgressDialog->close();
    restartDialog->show();
    restartDialog->raise();
}

void ViewManager::slotFirmwareFailed(QString message)
{
    fwOutOfDateDialog->close();
    fwProgressDialog->close();
    fwProgressDialogForm.progressBar->reset();
    fwErrorDialogForm.errorMsg->setText(message);
    fwErrorDialog->show();
    fwErrorDialog->raise();
    fwErrorDialogForm.update->setFocus();
}

void ViewManager::openFirmwareLog()
{
    fwLogFile = new QFile(resourcesInAppData ? QStringLiteral("%1fwLog.txt").arg(resourcesFolder)
                                             : QStringLiteral("resources/fwLog.txt"),
                          this);
    slotClearFwLog();
}

void ViewManager::slotClearFwLog()
{
    // Anything but a regular file could block or swallow the log.
    const QFileInfo info(*fwLogFile);
    if ((!info.exists() || info.isFile())
        && fwLogFile->open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qDebug() << "Firmware log file found.  Cleared?" << (fwLogFile->size() == 0);
        fwLogFile->close();
    }
    fwProgressDialogForm.console->clear();
}

void ViewManager::slotAddTextToFwConsole(QString text)
{
    if (!fwVersionsFound) {
        fwCheckOutput = (fwCheckOutput + text).right(checkOutputLimit);
        if (fwCheckOutput.contains(foundMark))
            slotFindAndFormatFwVersion(fwCheckOutput);
    }

    QTextEdit* console = fwProgressDialogForm.console;
    QTextCursor cursor(console->document());
    if (console->document()->isEmpty()) {
        cursor.insertText(QDateTime::currentDateTime().toString(Qt::TextDate) + QLatin1Char('\n'));
    }
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(breakLongLines(text.right(consoleLimit), cursor.positionInBlock()));
    const int excess = console->document()->characterCount() - consoleLimit;
    if (excess > 0) {
        cursor.setPosition(0);
        cursor.setPosition(excess, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    console->moveCursor(QTextCursor::End);
    writeFirmwareLog();
}

void ViewManager::writeFirmwareLog()
{
    const QFileInfo info(*fwLogFile);
    if (!info.isFile() || !fwLogFile->open(QIODevice::WriteOnly)) {
        qDebug() << "Firmware log file not found; was not written to.";
        return;
    }
    fwLogFile->write(fwProgressDialogForm.console->toPlainText().toUtf8());
    fwLogFile->close();
}

void ViewManager::slotSetFwProgressBar(int value)
{
    if (fwProgressDialog->isHidden())
        return;
    qDebug() << "fw progress value" << value;
    fwProgressDialogForm.progressBar->setValue(value * 2);
}

void ViewManager::slotFwCheckStarted()
{
    fwCheckOutput.clear();
    fwVersionsFound = false;
}

void ViewManager::slotFindAndFormatFwVersion(QString text)
{
    const VersionText found = findVersion(text, foundMark, 0);
    if (found.end < 0)
        return;
    // Behind the found one, which holds the shorter mark too.
    const VersionText expected = findVersion(text, expectedMark, found.end);
    if (expected.end < 0)
        return;

    fwVersionsFound = true;
    fwCheckOutput.clear();
    const QString foundVersion = formatFwVersion(text.mid(found.begin, found.end - found.begin));
    const QString expectedVersion =
        formatFwVersion(text.mid(expected.begin, expected.end - expected.begin));
    slotSetFirmwareVersions(foundVersion, expectedVersion);
    // The comparison behind the out-of-date dialog is made with these.
    sysexManager->slotSetFirmwareVersions(foundVersion, expectedVersion);
}

void ViewManager::slotSetFirmwareVersions(QString foundVersion, QString expectedVersion)
{
    aboutDialogForm.fw_found->setText(foundVersion);
    aboutDialogForm.expected->setText(expectedVersion);
    fwOutOfDateDialogForm.found->setText(foundVersion);
    fwOutOfDateDialogForm.expected->setText(expectedVersion);
    fwForceDialogForm.version->setText(QStringLiteral("firmware version %1?").arg(expectedVersion));
}
