#pragma once

#include <QListWidget>

// The list of presets in the preset drawer, which PresetInterface fills and reads. The full-power
// view owns it.
class ReorderableListWidget : public QListWidget
{
    Q_OBJECT

public:
    explicit ReorderableListWidget(QWidget* parent = nullptr);
};
