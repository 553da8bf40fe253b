#include "controlpage.h"

#include "choicegroup.h"
#include "editedbox.h"
#include "freqspinbox.h"
#include "nowrapdial.h"
#include "selectallspinbox.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
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

// A number or a menu that the pointer only comes by.
bool isPassedByWheel(const QObject* object)
{
    const bool turns = qobject_cast<const QSpinBox*>(object) != nullptr
        || qobject_cast<const QComboBox*>(object) != nullptr;
    return turns && !static_cast<const QWidget*>(object)->hasFocus();
}

} // namespace

QAbstractSlider* ControlPage::Control::slider() const
{
    return qobject_cast<QAbstractSlider*>(object);
}

QToolButton* ControlPage::Control::button() const { return qobject_cast<QToolButton*>(object); }

ControlPage::ControlPage(QWidget* parent, const QString& spokenName)
    : QWidget(parent)
    , host(new QWidget(this))
    , spoken(spokenName)
{
    host->setObjectName(QStringLiteral("stripForm"));
}

void ControlPage::adoptForm(const QList<ControlRow>& formRows,
                            const QList<ButtonRow>& formButtonRows,
                            const QList<ChoiceRow>& choiceRows)
{
    rows = formRows;
    buttonRows = formButtonRows;
    const QList<QWidget*> widgets = host->findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        adopt(widget);
    for (const ChoiceRow& row : choiceRows)
        adoptChoice(row);
    slotSetCustomUiElements();
    slotConnectSpinboxes();
    for (const Control& control : std::as_const(controls)) {
        if (control.box != nullptr)
            showInBox(control);
        showState(control);
    }
}

void ControlPage::adopt(QWidget* widget)
{
    const QString name = widget->objectName();
    if (isOfClass(widget, "QToolButton")) {
        // A press takes no focus, so a number that is typed would not commit by itself.
        widget->installEventFilter(this);
        if (name.contains(resetSuffix)) {
            connect(widget, SIGNAL(clicked()), SLOT(slotResetDials()));
            return;
        }
    }
    Control control{widget, kindOf(widget), rowNamed(rows, name), rowNamed(buttonRows, name)};
    if (control.kind == nullptr || (control.row == nullptr && control.buttonRow == nullptr))
        return;
    if (control.row != nullptr)
        widget->installEventFilter(this);
    if (control.slider() != nullptr) {
        control.box = host->findChild<QAbstractSpinBox*>(name + boxSuffix);
        control.reset = host->findChild<QToolButton*>(name + resetSuffix);
        linkBox(control);
    } else if (control.row != nullptr) {
        // Neither the wheel on its way over the page nor half a number changes anything.
        widget->setFocusPolicy(Qt::StrongFocus);
        if (auto* number = qobject_cast<QSpinBox*>(widget); number != nullptr) {
            number->setKeyboardTracking(false);
            number->setRange(control.row->parameter->lowest, control.row->parameter->highest);
        }
    }
    addControl(control);
}

void ControlPage::adoptChoice(const ChoiceRow& row)
{
    QWidget* part = host->findChild<QWidget*>(row.name);
    auto* group = new ChoiceGroup(part, row.takesNearest);
    group->setObjectName(row.name);
    for (const ChoiceRow::Button& button : row.buttons)
        group->addButton(part->findChild<QAbstractButton*>(button.name), button.value);
    addControl({group, kindOf(group)});
}

void ControlPage::addControl(const Control& control)
{
    control.wireTo(this, SLOT(slotShowState())).connect();
    indexOfObject.insert(control.object, controls.size());
    if (control.box != nullptr)
        indexOfObject.insert(control.box, controls.size());
    indexOfName.insert(control.name(), controls.size());
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
    for (const Control& control : std::as_const(controls))
        if (control.row != nullptr)
            look(control);
}

void ControlPage::look(const Control& control) const
{
    const ControlRow& row = *control.row;
    if (auto* dial = qobject_cast<NoWrapDial*>(control.object); dial != nullptr) {
        dial->slotSetFillColor(row.color);
        dial->slotSetDialThickness(row.thickness);
        dial->slotSetCenteredDial(row.centered);
    }
    if (auto* freq = qobject_cast<FreqSpinBox*>(control.box); freq != nullptr) {
        const auto [lowest, highest] = boxLimits(row);
        freq->slotSetRange(lowest, highest);
    }
}

std::optional<int> ControlPage::setControl(const Control& control, int value)
{
    const int before = control.value();
    const std::optional<int> taken = control.kind->set(control.object, value);
    // A linked button's text may tell another's state, so it is shown also if nothing moved.
    if (control.value() == before)
        showState(control);
    return taken;
}

void ControlPage::slotShowState()
{
    if (const Control* control = controlOf(sender()); control != nullptr)
        showState(*control);
}

void ControlPage::showState(const Control& control)
{
    if (control.buttonRow != nullptr && !control.buttonRow->textOn.isEmpty())
        control.button()->setText(control.value() != 0 ? control.buttonRow->textOn
                                                       : control.buttonRow->textOff);
    else if (auto* dial = qobject_cast<NoWrapDial*>(control.object); dial != nullptr)
        slotSetResetStylesheet(dial, dial->value());
    showOwnState(control);
}

void ControlPage::slotResetDials()
{
    if (sender() == nullptr)
        return;
    const Control* control = controlNamed(sender()->objectName().remove(resetSuffix));
    if (control == nullptr)
        return;
    if (QAbstractSlider* slider = control->slider(); slider != nullptr)
        slider->setValue(middleOf(slider));
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
        if (auto* dial = qobject_cast<NoWrapDial*>(control.object); dial != nullptr)
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
        if (widget->hasFocus() && !keepsFocusOnGround(widget))
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
    if (event->type() == QEvent::Wheel && isPassedByWheel(watched)) {
        event->ignore();
        return true;
    }
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
