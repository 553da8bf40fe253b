#pragma once

#include <QString>

// The look of the mixing pages, compiled in.
QString pageStyleSheet();
