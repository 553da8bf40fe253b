#pragma once

#include "controlkind.h"
#include "controlrow.h"
#include "wires.h"

#include <QHash>
#include <QList>
#include <QWidget>

#include <optional>

class NoWrapDial;
class QAbstractSlider;
class QAbstractSpinBox;
class QToolButton;

// A page of controls of every kind, each built from a row: the links between a dial or a fader and
// its number box, the reset buttons, and what takes the focus from a box. All pages derive from it;
// their holder owns them.
class ControlPage : public QWidget
{
    Q_OBJECT

public:
    // The root of the form: every control of the page is a descendant.
    QWidget* hostWidget() const { return host; }

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void slotConnectSpinboxes();
    void slotLinkDialToSpinbox(int value);
    // In the unit that the box shows, in a FreqSpinBox in Hz. A number that the box would show for
    // the control's present value leaves the control alone.
    void slotLinkDoubleSpinboxtoDial(double value);
    void slotLinkSpinboxtoDial(int value);
    // The index of the entry for a number: the equal one, or the nearest, which is then written to
    // the box of that name. -1 if the table is empty.
    int slotFindTableValueFromSpinboxValue(double value, QString objName, QList<double> table);

    void slotSetCustomUiElements();
    // Puts the dial of the reset button that was clicked to the middle of its range.
    void slotResetDials();
    // The sender's text or reset picture, as its state is.
    void slotShowState();
    // The picture of a dial's reset button, if it has one: whether value is off the middle. On a
    // page that is hidden it changes when the page is shown.
    void slotSetResetStylesheet(NoWrapDial* dial, int value);

protected:
    struct Control {
        // A widget, or the group of a choice's buttons.
        QObject* object = nullptr;
        const ControlKind* kind = nullptr;
        // One of the two; none for a choice.
        const ControlRow* row = nullptr;
        const ButtonRow* buttonRow = nullptr;
        QAbstractSpinBox* box = nullptr;
        QToolButton* reset = nullptr;
        Wire toBox{};
        Wire fromBox{};

        QString name() const { return object->objectName(); }
        int value() const { return kind->value(object); }
        Wire wireTo(QObject* receiver, const char* slot) const
        {
            return {object, kind->changeSignal, receiver, slot};
        }
        // Null for the other kinds.
        QAbstractSlider* slider() const;
        QToolButton* button() const;
    };

    // spokenName: of the page, as "Channel 3".
    ControlPage(QWidget* parent, const QString& spokenName);

    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

    // To be called once, when the form stands on the host: walks it, and makes all links and looks.
    void adoptForm(const QList<ControlRow>& rows, const QList<ButtonRow>& buttonRows,
                   const QList<ChoiceRow>& choiceRows = {});
    const QList<Control>& allControls() const { return controls; }
    // By the control or its box; null for any other object.
    const Control* controlOf(const QObject* object) const;
    const Control* controlNamed(const QString& name) const;

    // As ControlKind::set() does it.
    std::optional<int> setControl(const Control& control, int value);
    // What a page shows of a control's state beside the row's texts and the reset buttons.
    virtual void showOwnState(const Control& /*control*/) { }

    // A press on this widget takes the focus from all of the page's widgets but a rotary.
    void clearFocusOnPress(QWidget* area);

    // The slots that link a control and its box, by which a page may call them otherwise.
    virtual const char* slotToBox(const Control& /*control*/) const
    {
        return SLOT(slotLinkDialToSpinbox(int));
    }
    virtual const char* slotFromBox(const Control& /*control*/) const
    {
        return SLOT(slotLinkDoubleSpinboxtoDial(double));
    }

    QString spokenName() const { return spoken; }

    QList<double> trimTable;

private:
    void adopt(QWidget* widget);
    void adoptChoice(const ChoiceRow& row);
    void addControl(const Control& control);
    void linkBox(Control& control);
    void look(const Control& control) const;
    void showState(const Control& control);
    void showInBox(const Control& control);
    std::optional<double> boxNumber(const Control& control) const;
    int fromBoxNumber(const Control& control, double number);
    void resetFocus();
    void lightCaption(const QObject* control, bool lit) const;

    QWidget* const host;
    const QString spoken;
    QList<ControlRow> rows;
    QList<ButtonRow> buttonRows;
    QList<Control> controls;
    QHash<const QObject*, qsizetype> indexOfObject;
    QHash<QString, qsizetype> indexOfName;
    QList<QWidget*> focusAreas;
    bool styled = false;
};
