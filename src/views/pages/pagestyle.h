#pragma once

#include <QString>

// The look of the full-power view and its pages, compiled in.
QString pageStyleSheet();

// The look of the in-window dialogs, of the shell's too; the other holds it already.
QString dialogStyleSheet();
