#include "exchangehandler.h"

#include "exchange.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace
{

// As the question's buttons are known by when it is answered.
const QString replaceName = QStringLiteral("replace");
const QString skipName = QStringLiteral("skip");

bool isThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

void addButton(QMessageBox* box, const QString& text, const QString& name)
{
    box->addButton(text, QMessageBox::AcceptRole)->setObjectName(name);
}

} // namespace

ExchangeHandler::ExchangeHandler(QObject* parent)
    : QObject(parent)
{
    constexpr int lookAgainMs = 50;
    waitTimer.setInterval(lookAgainMs);
    connect(&waitTimer, SIGNAL(timeout()), this, SLOT(slotRunWaiting()));
}

// Choosers

QFileDialog* ExchangeHandler::newChooser(const QString& title, const QString& filter, Chosen chosen)
{
    if (!chooser.isNull() && chooser->isVisible()) {
        chooser->raise();
        chooser->activateWindow();
        return nullptr;
    }
    // Without a folder: it begins where the last one ended.
    chooser = new QFileDialog(qobject_cast<QWidget*>(parent()), title);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    // The handler asks itself, about the name with its suffix.
    chooser->setOption(QFileDialog::DontConfirmOverwrite);
    if (!filter.isEmpty())
        chooser->setNameFilters({filter, QStringLiteral("All files (*)")});
    whenChosen = std::move(chosen);
    // Queued: it is told before the chooser is closed.
    connect(chooser, SIGNAL(filesSelected(QStringList)), this, SLOT(slotChosen(QStringList)),
            Qt::QueuedConnection);
    return chooser;
}

void ExchangeHandler::chooseFiles(const QString& title, const QString& filter, bool several,
                                  Chosen chosen)
{
    QFileDialog* dialog = newChooser(title, filter, std::move(chosen));
    if (dialog == nullptr)
        return;
    dialog->setFileMode(several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog->open();
}

void ExchangeHandler::chooseNewFile(const QString& title, const QString& filter,
                                    const QString& suggested, Chosen chosen)
{
    QFileDialog* dialog = newChooser(title, filter, std::move(chosen));
    if (dialog == nullptr)
        return;
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->selectFile(suggested);
    dialog->open();
}

void ExchangeHandler::chooseFolder(const QString& title, Chosen chosen)
{
    QFileDialog* dialog = newChooser(title, QString(), std::move(chosen));
    if (dialog == nullptr)
        return;
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->open();
}

void ExchangeHandler::slotChosen(QStringList paths)
{
    if (const Chosen chosen = std::exchange(whenChosen, nullptr); chosen && !paths.isEmpty())
        chosen(paths);
}

// The wait

void ExchangeHandler::whenFree(std::function<void()> work)
{
    waiting.append(std::move(work));
    waitTimer.start();
    slotRunWaiting();
}

void ExchangeHandler::importWhenFree(std::function<void()> import)
{
    whenFree([this, import = std::move(import)] {
        if (!mayImport || mayImport())
            import();
        else
            tell(QStringLiteral("Import"),
                 QStringLiteral("Nothing was imported: the mixer is not connected any more."));
    });
}

void ExchangeHandler::slotRunWaiting()
{
    // An import lets events pass while its last preset is recalled.
    while (!working && !waiting.isEmpty() && question.isNull() && !(isBusy && isBusy())) {
        const QPointer<ExchangeHandler> self(this);
        working = true;
        waiting.takeFirst()();
        if (self.isNull())
            return;
        working = false;
    }
    if (waiting.isEmpty())
        waitTimer.stop();
}

// Files

void ExchangeHandler::write(const QString& title, const QString& what,
                            const QList<ExportFile>& files)
{
    const bool isSingle = files.size() == 1;
    QStringList there;
    for (const ExportFile& file : files) {
        if (isThere(file.path))
            there.append(exchange::shownName(file.path));
    }
    if (there.isEmpty())
        return writeNow(title, what, files, isSingle);

    question = newBox(title,
                      there.size() == 1 ? QStringLiteral("This file exists already:")
                                        : QStringLiteral("These files exist already:"),
                      there);
    addButton(question, QStringLiteral("Replace"), replaceName);
    if (!isSingle)
        addButton(question, QStringLiteral("Skip"), skipName);
    question->setDefaultButton(question->addButton(QMessageBox::Cancel));
    whenAnswered = [=, this](bool replace) {
        QList<ExportFile> chosen = files;
        if (!replace)
            chosen.removeIf([](const ExportFile& file) { return isThere(file.path); });
        writeNow(title, what, chosen, isSingle);
    };
    connect(question, SIGNAL(finished(int)), this, SLOT(slotAnswered()));
    question->open();
}

void ExchangeHandler::slotAnswered()
{
    const QAbstractButton* button = question.isNull() ? nullptr : question->clickedButton();
    question.clear();
    const auto answered = std::exchange(whenAnswered, nullptr);
    const QString name = button == nullptr ? QString() : button->objectName();
    if (name == replaceName || name == skipName)
        answered(name == replaceName);
    slotRunWaiting();
}

void ExchangeHandler::writeNow(const QString& title, const QString& what,
                               const QList<ExportFile>& files, bool isSingle)
{
    QStringList failures;
    for (const ExportFile& file : files) {
        const QString failure = exchange::writeFile(file.path, file.bytes);
        if (!failure.isEmpty())
            failures.append(exchange::shownName(file.path) + QStringLiteral(": ") + failure);
    }
    if (isSingle && failures.isEmpty())
        return;
    QString text = isSingle
        ? QStringLiteral("Nothing was exported.")
        : QStringLiteral("Exported %1: %2").arg(what).arg(files.size() - failures.size());
    if (!failures.isEmpty())
        text += QStringLiteral("\nWhat could not be written is as it was before:");
    tell(title, text, failures);
}

// Boxes

QMessageBox* ExchangeHandler::newBox(const QString& title, const QString& text,
                                     const QStringList& lines)
{
    // The lines are no informative text, which would take a name in them for markup.
    const QString below =
        lines.isEmpty() ? QString() : QStringLiteral("\n\n") + exchange::fewLines(lines);
    auto* box = new QMessageBox(QMessageBox::NoIcon, title, text + below, QMessageBox::NoButton,
                                qobject_cast<QWidget*>(parent()));
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}

void ExchangeHandler::tell(const QString& title, const QString& text, const QStringList& lines)
{
    QMessageBox* box = newBox(title, text, lines);
    box->addButton(QMessageBox::Ok);
    box->open();
}
