#pragma once

#include <optional>

class QObject;

// What a page must know of a kind of control: how it is watched, read and set. The kinds are
// sliders, toggles, number boxes that stand alone, menus and choices; each is one row of a table.
struct ControlKind {
    // As SIGNAL() gives it.
    const char* changeSignal;
    // Of a menu its entry's data, or its place where the entries have none; -1 with no entry shown.
    int (*value)(const QObject* control);
    // Goes to the value or the end of the range that it is beyond, and gives what is to be stored
    // of it: the value itself, of a toggle 1 for anything but 0. Does and gives nothing where a
    // menu or a choice has no such entry.
    std::optional<int> (*set)(QObject* control, int value);
};

// Null for what is no control.
const ControlKind* kindOf(const QObject* object);
