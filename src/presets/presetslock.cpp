#include "presetslock.h"

#include <QDateTime>
#include <QDebug>
#include <QFileInfo>

namespace
{

// Longer than it takes to make the sign, from the name in the folder to the hold on the file.
constexpr qint64 makingMs = 2000;

bool isOlder(const QString& file, qint64 ms)
{
    const QDateTime changed = QFileInfo(file).lastModified();
    return qAbs(changed.msecsTo(QDateTime::currentDateTime())) > ms;
}

} // namespace

PresetsLock::PresetsLock(const QString& folder)
    : lock(folder + QStringLiteral("/editor.lock"))
{
    lock.setStaleLockTime(0); // an editor runs for hours, and no age makes its sign worthless
    if (lock.tryLock(0))
        return;
    // A folder in which nothing can be made is nobody's, whatever sign was put there before.
    heldByAnother = lock.error() == QLockFile::LockFailedError && QFileInfo(folder).isWritable();
    // Under another name of this machine, or without any content, a sign tells of no process that
    // could be looked for. But who runs holds the file itself, and it can't be removed then.
    if (heldByAnother && isOlder(lock.fileName(), makingMs) && lock.removeStaleLockFile())
        heldByAnother = !lock.tryLock(0);
    if (heldByAnother)
        qDebug() << "another editor uses the presets in" << folder;
    else if (!lock.isLocked())
        qDebug() << "no lock can be made in" << folder;
}
