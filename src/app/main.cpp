#include "presetslock.h"
#include "secondeditor.h"
#include "startup.h"
#include "viewmanager.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>

#include <juce_events/juce_events.h>

int main(int argc, char* argv[])
{
#ifdef JSUM_STRICT_CONNECTIONS
    installStrictConnections();
#endif
    // The instrument speaks with a point, whatever the system's language.
    QLocale::setDefault(QLocale::c());
    findResources(argc > 0 ? argv[0] : nullptr);
    // JUCE's audio device list, asked once at a connection, wants its message manager.
    const juce::ScopedJuceInitialiser_GUI juce;
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(JSUM_VERSION));
    QApplication::setWindowIcon(
        QIcon(QStringLiteral(":/ui_images/ui_images/jsum_editor_icon.svg")));

    // Before anything in that folder is read: to read it at the start is also to mend it.
    const PresetsLock lock(QStringLiteral("resources/presets"));
    if (lock.access() == JsonFile::Access::LookOnly && !mayGoOnWithoutSaving())
        return 0;
    ViewManager window(lock.access());
    window.show();
    return QApplication::exec();
}
