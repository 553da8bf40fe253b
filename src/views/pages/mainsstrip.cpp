#include "mainsstrip.h"

#include "forms/outputforms.h"

#include <QAbstractSlider>

MainsStrip::MainsStrip(QWidget* page, const Tables& displayTables)
    : ParameterPage(page, QStringLiteral("Mains"), page->objectName())
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
    return control.widget()->objectName() != MainsStripForm::reverbLevelName();
}

Wire MainsStrip::reverbWire()
{
    const Control* level = controlNamed(MainsStripForm::reverbLevelName());
    return {level->slider, SIGNAL(valueChanged(int)), this, SIGNAL(signal_reverb_level(int))};
}

void MainsStrip::slot_reverb_level(int value)
{
    const WireCut cut(reverbWire());
    setControl(*controlNamed(MainsStripForm::reverbLevelName()), value);
}
