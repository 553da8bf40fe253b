#include "controlpage.h"

#include "freqspinbox.h"
#include "nowrapdial.h"
#include "selectallspinbox.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace
{

const QString resetSuffix = QStringLiteral("_reset");

template <typename Row> const Row* rowNamed(const QList<Row>& rows, const QString& name)
{
    const auto found = std::find_if(rows.cbegin(), rows.cend(),
                                    [&name](const Row& row) { return row.name == name; });
    return found == rows.cend() ? nullptr : &*found;
}

// The strips' controls are told apart from other widgets by their exact class.
bool isOfClass(const QObject* object, const char* name)
{
    return qstrcmp(object->metaObject()->className(), name) == 0;
}

int middleOf(const QAbstractSlider* slider)
{
    return (slider->maximum() - slider->minimum()) / 2 + slider->minimum();
}

QString resetColor(const QColor& fill)
{
    if (fill == QColor(3, 174, 239))
        return QStringLiteral("blue");
    if (fill == QColor(235, 7, 139))
        return QStringLiteral("pink");
    if (fill == QColor(154, 106, 173))
        return QStringLiteral("purple");
    return QStringLiteral("yellow");
}

} // namespace

QWidget* ControlPage::Control::widget() const
{
    return button != nullptr ? static_cast<QWidget*>(button) : slider;
}

const char* ControlPage::Control::changeSignal() const
{
    return button != nullptr ? SIGNAL(toggled(bool)) : SIGNAL(valueChanged(int));
}

int ControlPage::Control::value() const
{
    return button != nullptr ? int{button->isChecked()} : slider->value();
}

ControlPage::ControlPage(QWidget* parent, const QString& spokenName)
    : QWidget(parent)
    , host(new QWidget(this))
    , spoken(spokenName)
{
    host->setObjectName(QStringLiteral("stripForm"));
}

void ControlPage::adoptForm(const QList<ControlRow>& formRows,
                            const QList<ButtonRow>& formButtonRows)
{
    rows = formRows;
    buttonRows = formButtonRows;
    const QList<QWidget*> widgets = host->findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        adopt(widget);
    slotSetCustomUiElements();
    slotConnectSpinboxes();
    for (const Control& control : qAsConst(controls)) {
        if (control.box != nullptr)
            showInBox(control);
        showState(control);
    }
}

void ControlPage::adopt(QWidget* widget)
{
    const QString name = widget->objectName();
    Control control;
    if (isOfClass(widget, "QToolButton")) {
        // A press takes no focus, so a number that is typed would not commit by itself.
        widget->installEventFilter(this);
        if (name.contains(resetSuffix)) {
            connect(widget, SIGNAL(clicked()), SLOT(slotResetDials()));
            return;
        }
        control.button = static_cast<QToolButton*>(widget);
        control.buttonRow = rowNamed(buttonRows, name);
    } else {
        control.row = rowNamed(rows, name);
        control.slider = qobject_cast<QAbstractSlider*>(widget);
        if (control.slider == nullptr || control.row == nullptr)
            return;
        control.box = host->findChild<QAbstractSpinBox*>(name + boxSuffix);
        control.reset = host->findChild<QToolButton*>(name + resetSuffix);
        widget->installEventFilter(this);
    }
    if (control.box != nullptr) {
        const bool isWhole = qobject_cast<SelectAllSpinbox*>(control.box) != nullptr;
        const bool isFreq = qobject_cast<FreqSpinBox*>(control.box) != nullptr;
        control.toBox = {widget, SIGNAL(valueChanged(int)), this, slotToBox()};
        if (isWhole)
            control.fromBox = {control.box, SIGNAL(signalSetDial(int)), this,
                               SLOT(slotLinkSpinboxtoDial(int))};
        else
            control.fromBox = {control.box,
                               isFreq ? SIGNAL(signalTrueValue(double))
                                      : SIGNAL(signalSetDial(double)),
                               this, slotFromBox()};
        indexOfObject.insert(control.box, controls.size());
    }
    connect(widget, control.changeSignal(), SLOT(slotShowState()));
    indexOfObject.insert(widget, controls.size());
    indexOfName.insert(name, controls.size());
    controls.append(control);
}

const ControlPage::Control* ControlPage::controlOf(const QObject* object) const
{
    const auto found = indexOfObject.constFind(object);
    return found == indexOfObject.cend() ? nullptr : &controls.at(*found);
}

const ControlPage::Control* ControlPage::controlNamed(const QString& name) const
{
    const auto found = indexOfName.constFind(name);
    return found == indexOfName.cend() ? nullptr : &controls.at(*found);
}

void ControlPage::slotSetCustomUiElements()
{
    for (const Control& control : qAsConst(controls))
        if (control.row != nullptr)
            look(control);
}

void ControlPage::look(const Control& control) const
{
    const ControlRow& row = *control.row;
    if (auto* dial = qobject_cast<NoWrapDial*>(control.slider); dial != nullptr) {
        dial->slotSetFillColor(row.color);
        dial->slotSetDialThickness(row.thickness);
        dial->slotSetCenteredDial(row.centered);
    }
    if (auto* freq = qobject_cast<FreqSpinBox*>(control.box); freq != nullptr) {
        const auto [lowest, highest] = boxLimits(row);
        freq->slotSetRange(lowest, highest);
    }
}

void ControlPage::setControl(const Control& control, int value)
{
    if (control.button != nullptr)
        control.button->setChecked(value != 0);
    else
        control.slider->setValue(value);
    // Also if nothing moved: a linked button's text may tell another's state.
    showState(control);
}

void ControlPage::slotShowState()
{
    if (const Control* control = controlOf(sender()); control != nullptr)
        showState(*control);
}

void ControlPage::showState(const Control& control)
{
    if (control.button != nullptr) {
        if (control.buttonRow != nullptr && !control.buttonRow->textOn.isEmpty())
            control.button->setText(control.value() != 0 ? control.buttonRow->textOn
                                                         : control.buttonRow->textOff);
    } else if (auto* dial = qobject_cast<NoWrapDial*>(control.slider); dial != nullptr) {
        slotSetResetStylesheet(dial, dial->value());
    }
}

void ControlPage::slotResetDials()
{
    if (sender() == nullptr)
        return;
    const Control* control = controlNamed(sender()->objectName().remove(resetSuffix));
    if (control != nullptr && control->slider != nullptr)
        control->slider->setValue(middleOf(control->slider));
}

void ControlPage::slotSetResetStylesheet(NoWrapDial* dial, int value)
{
    const Control* control = controlOf(dial);
    if (control == nullptr || control->reset == nullptr || (styled && !isVisible()))
        return;
    const QString picture = value == middleOf(dial)
        ? QStringLiteral("off")
        : QStringLiteral("on_%1").arg(resetColor(dial->fillColor()));
    const QString style = QStringLiteral("QToolButton{background-color: transparent;image: "
                                         "url(:/ui_images/ui_images/pan_reset_%1.svg);} "
                                         "QToolButton:pressed{background-color: transparent;image: "
                                         "url(:/ui_images/ui_images/pan_reset_pressed.svg)}")
                              .arg(picture);
    // Every step of a drag comes by here, and a new sheet is dear: Qt reads its pictures four
    // times.
    if (control->reset->styleSheet() != style)
        control->reset->setStyleSheet(style);
}

bool ControlPage::event(QEvent* event)
{
    // Until then a new sheet costs nothing.
    styled |= event->type() == QEvent::Polish;
    return QWidget::event(event);
}

void ControlPage::showEvent(QShowEvent* event)
{
    for (const Control& control : std::as_const(controls))
        if (auto* dial = qobject_cast<NoWrapDial*>(control.slider); dial != nullptr)
            slotSetResetStylesheet(dial, dial->value());
    QWidget::showEvent(event);
}

void ControlPage::clearFocusOnPress(QWidget* area)
{
    area->installEventFilter(this);
    focusAreas.append(area);
}

void ControlPage::resetFocus()
{
    const QList<QWidget*> widgets = findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        if (widget->hasFocus())
            widget->clearFocus();
}

// A ring has no room for a focus frame, so its name shows that it has the focus.
void ControlPage::lightCaption(const QObject* control, bool lit) const
{
    auto* caption = host->findChild<QLabel*>(control->objectName() + QStringLiteral("_caption"));
    if (caption == nullptr)
        return;
    caption->setProperty("lit", lit);
    caption->style()->unpolish(caption);
    caption->style()->polish(caption);
}

bool ControlPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        if (focusAreas.contains(watched)) {
            resetFocus();
        } else if (isOfClass(watched, "QToolButton")) {
            if (auto* box = qobject_cast<QAbstractSpinBox*>(QApplication::focusWidget());
                box != nullptr)
                box->clearFocus();
        }
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        lightCaption(watched, event->type() == QEvent::FocusIn);
    return QWidget::eventFilter(watched, event);
}
