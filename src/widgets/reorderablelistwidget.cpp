#include "reorderablelistwidget.h"

ReorderableListWidget::ReorderableListWidget(QWidget* parent)
    : QListWidget(parent)
{
}
