#include "presetslock.h"

#include <QDateTime>
#include <QDebug>
#include <QFileInfo>

namespace
{

// Longer than an editor takes from making its sign's file to holding it: until then the sign of one
// that is just starting looks like one that was left behind.
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
    // A sign without content, or from when this machine had another name, counts as held, since its
    // process can't be looked for. But a running editor keeps its file from being removed: where it
    // can be removed, nobody runs.
    if (heldByAnother && isOlder(lock.fileName(), makingMs) && lock.removeStaleLockFile())
        heldByAnother = !lock.tryLock(0);
    if (heldByAnother)
        qDebug() << "another editor uses the presets in" << folder;
    else if (!lock.isLocked())
        qDebug() << "no lock can be made in" << folder;
}
