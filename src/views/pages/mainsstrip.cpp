#include "mainsstrip.h"

#include "forms/outputforms.h"

MainsStrip::MainsStrip(QWidget* page, const Tables& displayTables)
    : PresetPage(page, QStringLiteral("Mains"), page->objectName())
    , tables(displayTables)
{
    setObjectName(QStringLiteral("mains_"));
    const MainsStripForm form(hostWidget(), spokenName());
    setGeometry(hostWidget()->geometry());
    adoptForm(MainsStripForm::controlRows(), MainsStripForm::buttonRows());
    for (QWidget* area : form.focusAreas)
        clearFocusOnPress(area);
    reverbWire().connect();
}

bool MainsStrip::isParameter(const Control& control) const
{
    return control.name() != MainsStripForm::reverbLevelName();
}

Wire MainsStrip::reverbWire()
{
    return controlNamed(MainsStripForm::reverbLevelName())
        ->wireTo(this, SIGNAL(signal_reverb_level(int)));
}

void MainsStrip::slot_reverb_level(int value)
{
    const WireCut cut(reverbWire());
    setControl(*controlNamed(MainsStripForm::reverbLevelName()), value);
}
