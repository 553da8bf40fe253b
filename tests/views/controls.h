#pragma once

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QButtonGroup>
#include <QHash>
#include <QTest>

// The controls of a view.
class Controls
{
    const QWidget* root = nullptr;
    mutable QHash<QString, QWidget*> found; // a search goes through all of the view

public:
    void findIn(const QWidget* view) { root = view; }

    // By name or, those of a page too, by key
    template <typename Widget = QWidget> Widget* at(const QString& name) const
    {
        QWidget* widget = found.value(name);
        if (widget == nullptr) {
            widget = name.startsWith("channelstrip_")
                ? root->findChild<QWidget*>(name.section('_', 0, 1))
                      ->findChild<QWidget*>(name.section('_', 2))
                : root->findChild<QWidget*>(name);
            found.insert(name, widget);
        }
        return qobject_cast<Widget*>(widget);
    }
    QAbstractButton* button(const QString& name) const { return at<QAbstractButton>(name); }
    QAbstractSlider* slider(const QString& key) const { return at<QAbstractSlider>(key); }
    QButtonGroup* choice(const QString& key) const { return at(key)->findChild<QButtonGroup*>(); }
    int shown(const QString& key) const
    {
        if (slider(key) != nullptr)
            return slider(key)->value();
        return choice(key) != nullptr ? choice(key)->checkedId() : int{button(key)->isChecked()};
    }
    void set(const QString& key, int value)
    {
        if (slider(key) != nullptr)
            slider(key)->setValue(value);
        else if (choice(key) == nullptr)
            button(key)->setChecked(value != 0);
        else if (QAbstractButton* chosen = choice(key)->button(value); chosen != nullptr)
            chosen->click();
    }
    void click(const QString& name, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(at(name), Qt::LeftButton, modifiers);
    }
};
