#pragma once

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

// A page of dials, faders and buttons, each built from a row: the links between a control and its
// number box, the reset buttons, and what takes the focus from a box. The strips and the reverb
// page derive from it; the holder of the pages owns them.
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
        // One of the two.
        QAbstractSlider* slider = nullptr;
        QToolButton* button = nullptr;
        const ControlRow* row = nullptr;
        const ButtonRow* buttonRow = nullptr;
        QAbstractSpinBox* box = nullptr;
        QToolButton* reset = nullptr;
        Wire toBox{};
        Wire fromBox{};

        QWidget* widget() const;
        const char* changeSignal() const;
        int value() const;
    };

    // spokenName: of the page, as "Channel 3".
    ControlPage(QWidget* parent, const QString& spokenName);

    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

    // To be called once, when the form stands on the host: walks it, and makes all links and looks.
    void adoptForm(const QList<ControlRow>& rows, const QList<ButtonRow>& buttonRows);
    const QList<Control>& allControls() const { return controls; }
    // By the control or its box; null for any other object.
    const Control* controlOf(const QObject* object) const;
    const Control* controlNamed(const QString& name) const;

    // What is out of range is bounded; a button is on for anything but 0.
    void setControl(const Control& control, int value);
    virtual void showState(const Control& control);

    // A press on this widget takes the focus from all of the page's widgets.
    void clearFocusOnPress(QWidget* area);

    // The slots that link a control and its box, by which a page may call them otherwise.
    virtual const char* slotToBox() const { return SLOT(slotLinkDialToSpinbox(int)); }
    virtual const char* slotFromBox() const { return SLOT(slotLinkDoubleSpinboxtoDial(double)); }

    QString spokenName() const { return spoken; }

    QList<double> trimTable;

private:
    void adopt(QWidget* widget);
    void look(const Control& control) const;
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
