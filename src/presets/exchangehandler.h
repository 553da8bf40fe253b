#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

class QFileDialog;
class QMessageBox;

// The base of the two exchange handlers: their file choosers, questions and reports, none of which
// blocks, and the wait for a moment at which what was chosen may run. The parent, a window, is what
// the choosers and boxes stand over.
class ExchangeHandler : public QObject
{
    Q_OBJECT

public:
    // Both are the shell's, set before anything is chosen; one that is empty counts as false and
    // true. Whether a flow or a recall runs: what was chosen waits for its end.
    std::function<bool()> isBusy;
    // Whether its menu entry is enabled. An import that comes at its turn when it is not is refused
    // in a box; an export goes on.
    std::function<bool()> mayImport;

protected:
    using Chosen = std::function<void(const QStringList& paths)>;
    struct ExportFile {
        QString path;
        QByteArray bytes;
    };

    explicit ExchangeHandler(QObject* parent);

    // One chooser at a time: while one is open these bring it to the front, and choose nothing.
    // filter: as "Presets (*.jsumpreset)", beside which all files can be chosen.
    void chooseFiles(const QString& title, const QString& filter, bool several, Chosen chosen);
    void chooseNewFile(const QString& title, const QString& filter, const QString& suggested,
                       Chosen chosen);
    void chooseFolder(const QString& title, Chosen chosen);

    // One after the other, each when the one before is through with its question and nothing runs.
    void whenFree(std::function<void()> work);
    void importWhenFree(std::function<void()> import);

    // Asks once what becomes of files that exist, then writes. A single file that was written is
    // not reported. what: in the report, as "presets".
    void write(const QString& title, const QString& what, const QList<ExportFile>& files);
    // A box of plain text.
    void tell(const QString& title, const QString& text, const QStringList& lines = {});

private slots:
    void slotChosen(QStringList paths);
    void slotAnswered();
    void slotRunWaiting();

private:
    // Null while one is open.
    QFileDialog* newChooser(const QString& title, const QString& filter, Chosen chosen);
    QMessageBox* newBox(const QString& title, const QString& text, const QStringList& lines);
    void writeNow(const QString& title, const QString& what, const QList<ExportFile>& files,
                  bool isSingle);

    QPointer<QFileDialog> chooser;
    Chosen whenChosen;
    QPointer<QMessageBox> question;
    std::function<void(bool replace)> whenAnswered;
    QList<std::function<void()>> waiting;
    QTimer waitTimer;
    bool working = false;
};
