#pragma once

#include "channelstriptab.h"
#include "parameterpage.h"
#include "testcase.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QDir>
#include <QLineEdit>
#include <QToolButton>

// Writes down what pages raise: the stores and the sends each in their order, then the rest.
class Recorder : public QObject
{
    Q_OBJECT

    QStringList stores;
    QStringList sends;
    QStringList others;

public:
    // All since the last time.
    QString take()
    {
        const QString all = (stores + sends + others).join(", ");
        for (QStringList* list : {&stores, &sends, &others})
            list->clear();
        return all;
    }

public slots:
    void store(const QString& name, const QVariant& value, int preset)
    {
        QCOMPARE(preset, -1);
        stores.append(QString("store %1=%2").arg(name, value.toString()));
    }
    void send(const QString& name, int value)
    {
        sends.append(QString("send %1=%2").arg(name).arg(value));
    }
    void global(const QString& name, int value)
    {
        others.append(QString("global %1=%2").arg(name).arg(value));
    }
    void check() { others.append("check"); }
};

// A window of pages that is active, so that their boxes can have the focus.
class PageTestCase : public TestCase
{
protected:
    QScopedPointer<QWidget> window;
    Recorder heard;

    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(QDir::setCurrent(JSUM_SOURCE_DIR));
    }
    void showWindow(QWidget* widget)
    {
        window.reset(widget);
        widget->show();
        widget->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(widget));
        heard.take();
    }
    void connectAll(ParameterPage* page)
    {
        connect(page, SIGNAL(signalStoreValue(QString, QVariant, int)), &heard,
                SLOT(store(QString, QVariant, int)));
        connect(page, SIGNAL(signalCheckSavedState(int)), &heard, SLOT(check()));
        connect(page, SIGNAL(signalSendPresetParameter(QString, int)), &heard,
                SLOT(send(QString, int)));
        page->slotConnectElements();
        page->slotConnectToSysexSending();
    }

    // What is heard of a change, as "channelstrip_ch1_pan=10000", that the mixer makes, and of one
    // that the user makes.
    static QString stored(const QString& change) { return "store " + change + ", check"; }
    static QString once(const QString& c) { return QString("store %1, send %1, check").arg(c); }

    static void click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }
    static void drag(QWidget* control, int pixelsUp)
    {
        const QPoint from = control->rect().center();
        QTest::mousePress(control, Qt::LeftButton, {}, from);
        QTest::mouseMove(control, from - QPoint(0, pixelsUp));
        QTest::mouseRelease(control, Qt::LeftButton, {}, from - QPoint(0, pixelsUp));
    }
    // Leaves the box focused: nothing is committed yet.
    static void type(QWidget* box, const QString& number)
    {
        click(box->findChild<QLineEdit*>());
        QVERIFY(box->hasFocus());
        QTest::keyClicks(box, number);
    }

    static QAbstractSlider* slider(const QWidget* page, const QString& name)
    {
        return page->findChild<QAbstractSlider*>(name);
    }
    static QToolButton* button(const QWidget* page, const QString& name)
    {
        return page->findChild<QToolButton*>(name);
    }
    static QAbstractSpinBox* box(const QWidget* page, const QString& control)
    {
        return page->findChild<QAbstractSpinBox*>(control + "_level");
    }
    // A control's value, and what the button or the box says.
    static QString state(const QWidget* page, const QString& name)
    {
        if (const QToolButton* onOff = button(page, name); onOff != nullptr)
            return QString("%1 %2").arg(onOff->isChecked()).arg(onOff->text()).trimmed();
        const QAbstractSpinBox* number = box(page, name);
        return QString("%1 %2")
            .arg(slider(page, name)->value())
            .arg(number ? number->text() : "")
            .trimmed();
    }
    // As the style sheet of a reset button tells it; the rest of the sheet is always the same.
    static QString resetPicture(const QWidget* page, const QString& dial)
    {
        QString sheet = button(page, dial + "_reset")->styleSheet();
        sheet.remove("QToolButton{background-color: transparent;image: "
                     "url(:/ui_images/ui_images/pan_reset_");
        return sheet.remove(".svg);} QToolButton:pressed{background-color: transparent;image: "
                            "url(:/ui_images/ui_images/pan_reset_pressed.svg)}");
    }

    // Goes through every untouched box at many places of its control, and finds nothing changed.
    void passThroughBoxes(QWidget* page, int step)
    {
        for (QAbstractSlider* control : page->findChildren<QAbstractSlider*>()) {
            QAbstractSpinBox* number = box(page, control->objectName());
            for (int value = control->minimum(); number && value <= control->maximum();
                 value += step) {
                control->setValue(value);
                const QString before = state(page, control->objectName());
                heard.take();
                number->setFocus();
                QVERIFY(number->hasFocus());
                number->clearFocus();
                QCOMPARE(heard.take(), "");
                QCOMPARE(state(page, control->objectName()), before);
            }
        }
    }
};
