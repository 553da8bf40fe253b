#pragma once

#include "channelstriptab.h"
#include "presetpage.h"
#include "testcase.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QDir>
#include <QLineEdit>
#include <QToolButton>

// Writes down what pages store and send, each in its order.
class Recorder : public QObject
{
    Q_OBJECT

    QStringList stores;
    QStringList sends;

public:
    // All since the last time.
    QString take()
    {
        const QString all = (stores + sends).join(", ");
        stores.clear();
        sends.clear();
        return all;
    }

public slots:
    void store(const QString& name, const QVariant& value, int preset)
    {
        QCOMPARE(preset, -1);
        stores.append(QString("store %1=%2").arg(name, value.toString()));
    }
    void storeGlobal(const QString& name, const QVariant& value) { store(name, value, -1); }
    void send(const QString& name, int value)
    {
        sends.append(QString("send %1=%2").arg(name).arg(value));
    }
};

// A window of pages that is active, so that their boxes can have the focus.
class PageTestCase : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(QDir::setCurrent(JSUM_SOURCE_DIR));
    }

protected:
    QScopedPointer<QWidget> window;
    Recorder heard;

    void showWindow(QWidget* widget)
    {
        window.reset(widget);
        widget->show();
        widget->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(widget));
        heard.take();
    }
    void connectAll(PresetPage* page)
    {
        connect(page, SIGNAL(signalStoreValue(QString, QVariant, int)), &heard,
                SLOT(store(QString, QVariant, int)));
        connect(page, SIGNAL(signalSendPresetParameter(QString, int)), &heard,
                SLOT(send(QString, int)));
        page->slotConnectElements();
        page->slotConnectToSysexSending();
    }

    // What is heard of a change by the user, as "channelstrip_ch1_pan=10000".
    static QString once(const QString& change) { return QString("store %1, send %1").arg(change); }

    static void click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }
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
};
