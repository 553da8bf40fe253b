#pragma once

#include "parametertable.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

// A map out of a file, brought into line with the table of parameters: all that the store's table
// has, each within its range, and nothing else. The one way by which the blank templates and
// imported files become values.
struct AlignedMap {
    QVariantMap values;
    // Taken from the factory values, as they were not there or no number.
    QStringList missing;
    // Not in the table, and left out.
    QStringList unknown;
    // Fractions that were cut, and numbers that were beyond their range.
    QStringList changed;

    // What was done to the map, for the user; one text a kind, none when nothing was.
    QStringList inWords() const;
};

// parameters: those of one store, with nothing else among them. True and false pass for 1 and 0.
// What is missing and left out is also told in the debug log.
AlignedMap aligned(const QVariantMap& parameters, Parameter::Store store);
