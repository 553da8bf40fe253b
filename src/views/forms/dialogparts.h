#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

// What the in-window dialogs of the shell and of the full-power view are built from. A dialog is a
// plain widget that has its size already; what is added becomes its child.
namespace dialogparts
{

inline constexpr int margin = 16;
inline constexpr int buttonHeight = 28;
inline constexpr int buttonWidth = 104;

// The frame and the heading. The dialog takes the name of its form.
QLabel* setupDialog(QWidget* dialog, const char* name, const QString& title);

QLabel* addLabel(QWidget* parent, const char* name, const QString& text, const QRect& place);
QLabel* addRichLabel(QWidget* parent, const char* name, const QString& text, const QRect& place);
// A line with its name at the left and its value, which it returns, at the right.
QLabel* addNamedValue(QWidget* dialog, const char* name, const QString& caption, int y);

// In the bottom row; place counts from the right, 0 is the rightmost.
QPushButton* addButton(QWidget* dialog, const char* name, const QString& text, int place,
                       const QString& toolTip);
QLineEdit* addLineEdit(QWidget* dialog, const char* name, const QString& accessibleName,
                       const QString& toolTip, const QRect& place);

} // namespace dialogparts
