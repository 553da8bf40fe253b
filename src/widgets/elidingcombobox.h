#pragma once

#include <QComboBox>

// A menu that is narrower than its longest entry: the entry shown ends in an ellipsis, and the list
// opens as wide as its entries are.
class ElidingComboBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
