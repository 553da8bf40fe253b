#include "reverbtabform.h"

#include "forms/reverbform.h"

#include <QAbstractSlider>

ReverbTabForm::ReverbTabForm(QWidget* parent)
    : ParameterPage(parent, QStringLiteral("Reverb"), {})
{
    setObjectName(QStringLiteral("reverbTabForm"));
    const ReverbForm form(hostWidget(), spokenName());
    setGeometry(hostWidget()->geometry());
    adoptForm(ReverbForm::controlRows(), ReverbForm::buttonRows());
    for (QWidget* area : form.focusAreas)
        clearFocusOnPress(area);
    levelWire().connect();
}

Wire ReverbTabForm::levelWire()
{
    const Control* level = controlNamed(ReverbForm::levelName());
    return {level->slider, SIGNAL(valueChanged(int)), this, SIGNAL(signal_reverb_level(int))};
}

void ReverbTabForm::slotReceiveReverbParams(QString jsonName, int value)
{
    if (jsonName.startsWith(QLatin1String("reverbtab_")))
        receive(jsonName, value);
}

void ReverbTabForm::slot_reverb_level(int value)
{
    const WireCut cut(levelWire());
    setControl(*controlNamed(ReverbForm::levelName()), value);
}
