#include "dialogparts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace dialogparts
{

QLabel* addLabel(QWidget* parent, const char* name, const QString& text, const QRect& place)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    // What is shown may come from a tool or a port's name: never markup.
    label->setTextFormat(Qt::PlainText);
    label->setGeometry(place);
    return label;
}

QLabel* addRichLabel(QWidget* parent, const char* name, const QString& text, const QRect& place)
{
    QLabel* label = addLabel(parent, name, text, place);
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    return label;
}

QLabel* setupDialog(QWidget* dialog, const char* name, const QString& title)
{
    dialog->setObjectName(QLatin1String(name));
    dialog->setProperty("panel", QStringLiteral("dialog"));
    dialog->setAttribute(Qt::WA_StyledBackground);
    dialog->setAccessibleName(title);
    QLabel* heading =
        addLabel(dialog, "title", title, {0, 0, dialog->width(), margin + buttonHeight});
    heading->setProperty("panel", QStringLiteral("heading"));
    heading->setAlignment(Qt::AlignCenter);
    return heading;
}

QPushButton* addButton(QWidget* dialog, const char* name, const QString& text, int place,
                       const QString& toolTip)
{
    auto* button = new QPushButton(text, dialog);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAutoDefault(true);
    // Two fit into the narrowest dialog.
    constexpr int space = 8;
    const int width = std::min(buttonWidth, (dialog->width() - 2 * margin - space) / 2);
    button->setGeometry(dialog->width() - margin - width - place * (width + space),
                        dialog->height() - margin - buttonHeight, width, buttonHeight);
    return button;
}

QLabel* addNamedValue(QWidget* dialog, const char* name, const QString& caption, int y)
{
    const int half = dialog->width() / 2;
    QLabel* left = addLabel(dialog, "", caption, {margin, y, half - margin - 8, 20});
    left->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    left->setProperty("panel", QStringLiteral("caption"));
    QLabel* value = addLabel(dialog, name, {}, {half + 8, y, half - margin - 8, 20});
    value->setAccessibleName(caption);
    return value;
}

QLineEdit* addLineEdit(QWidget* dialog, const char* name, const QString& accessibleName,
                       const QString& toolTip, const QRect& place)
{
    auto* edit = new QLineEdit(dialog);
    edit->setObjectName(QLatin1String(name));
    edit->setAccessibleName(accessibleName);
    edit->setToolTip(toolTip);
    edit->setGeometry(place);
    return edit;
}

} // namespace dialogparts
