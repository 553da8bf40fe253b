#include "elidingcombobox.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>

void ElidingComboBox::showPopup()
{
    view()->setMinimumWidth(view()->sizeHintForColumn(0)
                            + view()->verticalScrollBar()->sizeHint().width());
    QComboBox::showPopup();
}

void ElidingComboBox::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText =
        option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, room.width());
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
