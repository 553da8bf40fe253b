#include "controlrow.h"

BoxLimits boxLimits(const ControlRow& row)
{
    const Parameter& parameter = *row.parameter;
    return row.tableLimits.value_or(
        BoxLimits{parameter.shown(parameter.lowest), parameter.shown(parameter.highest)});
}

void setParameters(QList<ControlRow>& rows, const QString& prefix)
{
    for (ControlRow& row : rows)
        if (row.parameter == nullptr)
            row.parameter = &parametertable::at(prefix + row.name);
}
