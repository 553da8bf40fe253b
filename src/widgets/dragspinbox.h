#pragma once

#include <QDoubleSpinBox>
#include <QSpinBox>

class QLineEdit;

// What the number boxes have in common; Base is QSpinBox or QDoubleSpinBox. Dragging up and down on
// the text changes the number, the first click selects all of it, Return and Enter leave the box.
// Whatever the system's language, the number has a point and no group separators.
template <typename Base> class DragSpinBox : public Base
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override;
    // A comma becomes the point that it stands for.
    QValidator::State validate(QString& text, int& position) const override;

protected:
    // The style sheet is the text's from a press until the first step of a drag.
    DragSpinBox(QWidget* parent, const QString& editingStyle);

    // A press on the text, at a place in the line edit.
    virtual void startDrag(QPoint place) = 0;
    // The pointer is so many pixels above where it was pressed.
    virtual void drag(int pixelsUp) = 0;
    virtual bool canDrag() const { return this->isEnabled(); }

    // 0 to 255, the grey of the selected text while it is dragged.
    void setTextColorBrightness(int value) { grey = value; }

    // Whether the focus goes to, or comes back from, the box's own context menu. That is no
    // leaving: the menu's commands are about the text as it is being edited.
    bool isForOwnMenu(const QFocusEvent* event) const;

    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    QLineEdit* const edit;

private:
    bool press(QPoint place);
    void endDragLook();
    void follow(QPoint place);

    const QString plainStyle;
    bool dragging = false;
    int pressY = 0;
    bool selectAllPending = false;
    bool menuOpen = false;
    int grey = 200;
};

extern template class DragSpinBox<QSpinBox>;
extern template class DragSpinBox<QDoubleSpinBox>;
