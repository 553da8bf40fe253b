#pragma once

#include <QString>
#include <QVariant>

#include <span>

// Every parameter of the mixer, told once: what its number means, its range and its factory value.
// The stores' default maps, the ranges of controls, and the limits of what goes out and comes in
// are all read here. What a parameter looks like is told by its page's form.

// What a parameter's integer means, and with it how a control's box shows it.
enum class Encoding {
    plain,         // the number itself, in a whole-number box
    linearLevel,   // (dB + 100) * 100
    faderPosition, // 3000 to 10600 on the volume curve
    hundredths,
    trimTable, // the index of an entry in dB
    hertz,
    tensOfHertz,
    onOff, // 0 or 1
};

struct Parameter {
    enum class Store { Preset, Global };
    enum class Type { Number, Truth };

    QString key;
    Encoding encoding;
    int lowest; // in the encoding's own unit, as the control holds it
    int highest;
    int factoryValue;
    Store store;
    Type type;

    // The value, or the end of the range that it is beyond. The factory value stays, also where it
    // is out of the range.
    int bounded(int value) const;
    // The number that a box shows for a value within the range; of a table, the index.
    double shown(int value) const;
    // The value as a file holds it: an integer, or true and false.
    QVariant stored(int value) const;
};

namespace parametertable
{

// The 329 of a preset, and the 208 that don't change with one.
std::span<const Parameter> preset();
std::span<const Parameter> globals();

// Null for any other key.
const Parameter* find(const QString& key);
// key: must be a parameter's.
const Parameter& at(const QString& key);

} // namespace parametertable
