#include "reverbtabform.h"

#include "forms/reverbform.h"

ReverbTabForm::ReverbTabForm(QWidget* parent)
    : PresetPage(parent, QStringLiteral("Reverb"), {})
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
    return controlNamed(ReverbForm::levelName())->wireTo(this, SIGNAL(signal_reverb_level(int)));
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
