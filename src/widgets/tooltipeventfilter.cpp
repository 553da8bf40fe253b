#include "tooltipeventfilter.h"

#include <QEvent>

bool ToolTipEventFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip && !toolTipsEnabled)
        return true;
    return QObject::eventFilter(watched, event);
}
