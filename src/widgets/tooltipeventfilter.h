#pragma once

#include <QObject>

// Switches tooltips off and on: installed on a widget, it swallows tooltip events while its flag is
// false. The main window owns one and writes the flag directly.
class ToolTipEventFilter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool toolTipsEnabled = true;

    bool eventFilter(QObject* watched, QEvent* event) override;
};
