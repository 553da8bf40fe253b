// The presses and keys that the view filters.

#include "channelselector.h"
#include "editedbox.h"
#include "faderframe.h"
#include "fullpowerview.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace
{

bool isFader(const QString& name)
{
    return name.startsWith(QLatin1String("faderframe_")) && name.contains(QLatin1String("_fader"))
        && !name.contains(QLatin1String("_level"));
}

} // namespace

QList<QWidget*> FullPowerView::filteredWidgets() const
{
    QList<QWidget*> widgets{form.frame, form.presetFrame, form.faderGroupBox};
    // Every fader, and every button: a press on one commits a number that is being typed.
    const auto children = viewContainer->findChildren<QWidget*>();
    for (QWidget* child : children)
        if (isFader(child->objectName()) || qobject_cast<QAbstractButton*>(child) != nullptr)
            widgets.append(child);
    return widgets;
}

bool FullPowerView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched->isWidgetType()) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        // The second press of a quick pair is a press as well.
        case QEvent::MouseButtonDblClick:
            return filterPress(static_cast<QWidget*>(watched), static_cast<QMouseEvent*>(event));
        case QEvent::KeyPress:
            return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool FullPowerView::filterPress(QWidget* watched, const QMouseEvent* event)
{
    const QString name = watched->objectName();
    if (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ControlModifier)
        && isFader(name)) {
        faders->setToZero(watched);
        return true;
    }
    const bool withShift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->button() == Qt::LeftButton) {
        // Other pages have controls of such names too.
        const bool isOnFaders = name.startsWith(QLatin1String("faderframe_"));
        const bool isSelect = isOnFaders && name.contains(QLatin1String("select"));
        const bool isSolo = isOnFaders && !isSelect && name.contains(QLatin1String("solo"));
        // Other modifiers leave it as it is.
        if (withShift || event->modifiers() == Qt::NoModifier) {
            if (isSelect)
                selector->setShift(withShift);
            if (isSolo)
                shiftSoloActive = withShift;
        }
        faders->setSoloAlone(shiftSoloActive);
        if (isSolo)
            faders->setPressedSolo(watched);
    }
    if (qobject_cast<QAbstractButton*>(watched) != nullptr)
        commitEditedBox();
    const bool isGround = name == QLatin1String("frame") || name == QLatin1String("presetFrame")
        || name.contains(QLatin1String("faderGroupBox"))
        || name.contains(QLatin1String("groupBox"));
    if (isGround) {
        const auto children = findChildren<QWidget*>();
        for (QWidget* child : children)
            if (child->hasFocus() && !keepsFocusOnGround(child))
                child->clearFocus();
    }
    return false;
}
