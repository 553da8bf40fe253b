#include "freqspinbox.h"
#include "selectalldoublespinbox.h"
#include "selectallspinbox.h"
#include "testcase.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

#include <climits>

// The three number boxes beside a neighbour that takes the focus from them, in a window that is
// active.
class TestSpinBoxes : public TestCase
{
    Q_OBJECT

    QScopedPointer<QWidget> form;
    SelectAllSpinbox* whole = nullptr;
    SelectAllDoubleSpinbox* decimal = nullptr;
    FreqSpinBox* freq = nullptr;
    QLineEdit* neighbour = nullptr;
    QPoint at;

    template <typename Widget> Widget* add(const QString& name)
    {
        auto* widget = new Widget(form.get());
        widget->setObjectName(name);
        form->layout()->addWidget(widget);
        return widget;
    }

    QAbstractSpinBox* box(const QString& name) { return form->findChild<QAbstractSpinBox*>(name); }
    QAbstractSpinBox* boxOfRow() { return box(QTest::currentDataTag()); }
    static QLineEdit* edit(QWidget* box) { return box->findChild<QLineEdit*>(); }
    static QByteArray commitSignal(const QAbstractSpinBox* box)
    {
        if (qobject_cast<const FreqSpinBox*>(box) != nullptr)
            return SIGNAL(signalTrueValue(double));
        return qobject_cast<const SelectAllSpinbox*>(box) != nullptr
            ? SIGNAL(signalSetDial(int))
            : SIGNAL(signalSetDial(double));
    }

    // At the text place before the character of that index.
    void press(QWidget* box, int cursor = 1, Qt::MouseButton button = Qt::LeftButton)
    {
        QLineEdit* text = edit(box);
        at = text->rect().center();
        for (int x = 0; x < text->width() && text->cursorPositionAt({x, at.y()}) <= cursor; ++x)
            at.setX(x);
        QTest::mousePress(text, button, {}, at);
    }
    void up(QWidget* box, int pixels)
    {
        at.ry() -= pixels;
        QTest::mouseMove(edit(box), at);
    }
    void release(QWidget* box) { QTest::mouseRelease(edit(box), Qt::LeftButton, {}, at); }

    static void wheel(QWidget* box, int notches)
    {
        const QPointF place = edit(box)->rect().center();
        QWheelEvent event(place, edit(box)->mapToGlobal(place), {}, QPoint(0, 120 * notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        // Only what comes from outside gives the focus.
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::instance()->notify(edit(box), &event);
    }

    static void rowPerBox()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("committed");
        QTest::newRow("whole") << "250" << 250.0;
        QTest::newRow("decimal") << "-3.5" << -3.5;
        QTest::newRow("freq") << "4500" << 4500.0;
    }

protected:
    void prepare() override
    {
        form.reset(new QWidget);
        new QVBoxLayout(form.get());
        whole = add<SelectAllSpinbox>("whole");
        whole->setRange(1, 1000);
        whole->setSuffix(" ms");
        whole->setValue(123);
        decimal = add<SelectAllDoubleSpinbox>("decimal");
        decimal->setRange(-70, 200);
        decimal->setSuffix(" dB");
        decimal->setValue(123.45);
        freq = add<FreqSpinBox>("freq");
        freq->slotSetFrequencyScaling(12345);
        neighbour = add<QLineEdit>("neighbour");
        form->resize(300, 200);
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        neighbour->setFocus();
    }

private slots:
    void firstClickSelectsAll_data() { rowPerBox(); }
    void firstClickSelectsAll()
    {
        QAbstractSpinBox* target = boxOfRow();
        press(target);
        release(target);
        const QString number = edit(target)->selectedText();
        QVERIFY(number == "123" || number == "123.45" || number == "12345");
        press(target);
        release(target);
        QVERIFY(!edit(target)->hasSelectedText());
        QCOMPARE(edit(target)->cursorPosition(), 1);
    }

    void typedNumberIsReportedOnce_data() { rowPerBox(); }
    void typedNumberIsReportedOnce()
    {
        QFETCH(QString, typed);
        QAbstractSpinBox* target = boxOfRow();
        for (const bool byReturn : {true, false}) {
            press(target);
            release(target);
            QSignalSpy commits(target, commitSignal(target));
            QTest::keyClicks(target, typed);
            QCOMPARE(commits.size(), 0);
            if (byReturn)
                QTest::keyClick(target, Qt::Key_Return);
            else
                neighbour->setFocus();
            QCOMPARE(commits.size(), 1);
            QTEST(commits.first().first().toDouble(), "committed");
            QVERIFY(!target->hasFocus());
            QVERIFY(!edit(target)->hasSelectedText());
        }
    }

    void wheelIsReportedOnLeaving_data() { rowPerBox(); }
    void wheelIsReportedOnLeaving()
    {
        QAbstractSpinBox* target = boxOfRow();
        QSignalSpy commits(target, commitSignal(target));
        wheel(target, 2);
        QCOMPARE(commits.size(), 0);
        QVERIFY(!edit(target)->hasSelectedText());
        neighbour->setFocus();
        QCOMPARE(commits.size(), 1);
        const double expected = target == whole ? 125.0 : target == decimal ? 125.45 : 12347.0;
        QCOMPARE(commits.first().first().toDouble(), expected);
    }

    void drag_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QList<int>>("moves");
        QTest::addColumn<QList<double>>("reported");
        using Moves = QList<int>;
        using Values = QList<double>;
        QTest::newRow("ms") << "whole" << 1 << Moves{5, -2} << Values{128, 126};
        QTest::newRow("ms past the end") << "whole" << 1 << Moves{-500, 10} << Values{1, 1};
        QTest::newRow("units") << "decimal" << 3 << Moves{5, -2} << Values{128.45, 126.45};
        QTest::newRow("tens") << "decimal" << 1 << Moves{5} << Values{173.45};
        QTest::newRow("tenths") << "decimal" << 4 << Moves{5} << Values{123.95};
        QTest::newRow("hundredths") << "decimal" << 6 << Moves{-5} << Values{123.40};
        QTest::newRow("dB past the end") << "decimal" << 1 << Moves{50, -40} << Values{200, 200};
        QTest::newRow("Hz") << "freq" << 1 << Moves{5, -2} << Values{12350, 12348};
        // Dropped, not clamped; the limit itself counts.
        QTest::newRow("Hz past the end")
            << "freq" << 1 << Moves{7654, 2, -1} << Values{19999, 20000};
    }
    void drag()
    {
        QFETCH(QString, name);
        QFETCH(int, cursor);
        QFETCH(QList<int>, moves);
        QFETCH(QList<double>, reported);
        QAbstractSpinBox* target = box(name);
        QSignalSpy steps(target, commitSignal(target));
        // The same click selects the text and begins the drag.
        press(target, cursor);
        for (const int pixels : moves)
            up(target, pixels);
        release(target);
        QTest::mouseMove(edit(target), {1, 1});

        QList<double> values;
        for (const QList<QVariant>& step : steps)
            values.append(step.first().toDouble());
        QCOMPARE(values, reported);
        QCOMPARE(target->property("value").toDouble(), reported.last());
        if (name == "freq")
            QCOMPARE(freq->text(), QString("%1 Hz").arg(reported.last()));
    }

    void draggedTextIsNotToBeSelected_data() { rowPerBox(); }
    void draggedTextIsNotToBeSelected()
    {
        QAbstractSpinBox* target = boxOfRow();
        QMetaObject::invokeMethod(target, "slotSetTextColorBrightness", Q_ARG(int, 242));
        press(target);
        QVERIFY(!edit(target)->isReadOnly());
        up(target, 3);
        release(target);
        QVERIFY(edit(target)->isReadOnly());
        QCOMPARE(edit(target)->styleSheet(),
                 "selection-background-color: transparent; selection-color: rgb(242,242,242);");
        press(target);
        QVERIFY(!edit(target)->isReadOnly());
        QCOMPARE(edit(target)->styleSheet(), target == freq ? "padding: 0px" : "");
    }

    void contextMenuIsPartOfTheBox_data() { rowPerBox(); }
    void contextMenuIsPartOfTheBox()
    {
        QFETCH(QString, typed);
        QApplication::clipboard()->setText(typed);
        QAbstractSpinBox* target = boxOfRow();
        press(target, 1, Qt::RightButton);
        const QString selected = edit(target)->selectedText();
        QSignalSpy reports(target, commitSignal(target));
        QTimer::singleShot(0, this, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu != nullptr);
            QCOMPARE(edit(target)->selectedText(), selected);
            QCOMPARE(reports.size(), 0);
            for (QAction* action : menu->actions()) {
                if (action->text().startsWith("&Paste"))
                    action->trigger();
            }
            menu->close();
        });
        QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, at, edit(target)->mapToGlobal(at));
        QApplication::sendEvent(edit(target), &menuEvent);
        neighbour->setFocus();
        QCOMPARE(reports.size(), 1);
        QTEST(reports.first().first().toDouble(), "committed");

        // The menu took the release of the button.
        const QPointF place = at - QPoint(0, 8);
        QMouseEvent hover(QEvent::MouseMove, place, edit(target)->mapToGlobal(place), Qt::NoButton,
                          Qt::NoButton, {});
        QApplication::sendEvent(edit(target), &hover);
        QCOMPARE(reports.size(), 1);
        QTest::mouseRelease(edit(target), Qt::RightButton, {}, at);
    }

    void disabled()
    {
        form->setEnabled(false);
        for (QAbstractSpinBox* target :
             {static_cast<QAbstractSpinBox*>(whole), static_cast<QAbstractSpinBox*>(decimal),
              static_cast<QAbstractSpinBox*>(freq)}) {
            press(target);
            up(target, 100);
            release(target);
        }
        QCOMPARE(whole->value(), 123);
        QCOMPARE(decimal->value(), 123.45);
        QCOMPARE(freq->trueValue(), 12445.0);
        QCOMPARE(freq->text(), "12.45 kHz");
    }

    void dragAtTheEndsOfAnInteger()
    {
        whole->setRange(INT_MIN, INT_MAX);
        for (const int end : {INT_MAX, INT_MIN}) {
            whole->setValue(end);
            press(whole);
            up(whole, end > 0 ? 9 : -9);
            release(whole);
            QCOMPARE(whole->value(), end);
        }
    }

    void scrollDivisor_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        // By cursor position, from 0 on; the last one holds for all behind it.
        QTest::addColumn<QList<double>>("divisors");
        using Divisors = QList<double>;
        QTest::newRow("12.3") << 12.3 << 1 << Divisors{0.1, 1, 1, 10, 10};
        QTest::newRow("1.23") << 1.23 << 2 << Divisors{1, 1, 10, 10, 100};
        QTest::newRow("123") << 123.0 << 0 << Divisors{0.1, 1, 1, 1};
        QTest::newRow("-1.5") << -1.5 << 1 << Divisors{1, 1, 1, 10, 10};
        QTest::newRow("-12.34") << -12.34 << 2 << Divisors{0.1, 0.1, 1, 1, 10, 10, 100};
    }
    void scrollDivisor()
    {
        QFETCH(QList<double>, divisors);
        QFETCH(int, decimals);
        QFETCH(double, value);
        decimal->setDecimals(decimals);
        decimal->setValue(value);
        QList<double> found;
        for (int cursor = 0; cursor < int(divisors.size()); ++cursor)
            found.append(decimal->slotGetScrollDivisorFromCursorPos(cursor));
        QCOMPARE(found, divisors);
        QCOMPARE(decimal->slotGetScrollDivisorFromCursorPos(INT_MAX), divisors.last());
        QVERIFY(decimal->slotGetScrollDivisorFromCursorPos(INT_MIN) > 0);
    }

    void keyO()
    {
        whole->setFocus();
        whole->setRange(-1, 10);
        whole->setValue(5);
        QTest::keyClick(whole, Qt::Key_O);
        QCOMPARE(whole->value(), 5);
        whole->setSpecialValueText("off");
        QTest::keyClick(whole, Qt::Key_O);
        QCOMPARE(whole->value(), -1);
        QCOMPARE(edit(whole)->selectedText(), "off");
    }

    void frequencyScaling_data()
    {
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<double>("hz");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<double>("reported");
        QTest::newRow("above") << 3000.0 << 20000.0 << 25000.0 << "20.00 kHz" << 20000.0;
        QTest::newRow("below") << 3000.0 << 20000.0 << 100.0 << "3.00 kHz" << 3000.0;
        QTest::newRow("finer than shown") << 200.0 << 6000.0 << 1234.0 << "1.23 kHz" << 1234.0;
        QTest::newRow("last in Hz") << 20.0 << 999.0 << 999.0 << "999 Hz" << 999.0;
        QTest::newRow("first in kHz") << 20.0 << 1000.0 << 5000.0 << "1.00 kHz" << 1000.0;
        QTest::newRow("no number") << 40.0 << 400.0 << qQNaN() << "40 Hz" << 40.0;
    }
    void frequencyScaling()
    {
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(double, hz);
        freq->slotSetRange(min, max);
        QSignalSpy reports(freq, SIGNAL(signalTrueValue(double)));
        freq->slotSetFrequencyScaling(hz);
        QTEST(freq->text(), "shown");
        QCOMPARE(reports.size(), 1);
        QTEST(reports.first().first().toDouble(), "reported");

        // Passing through changes nothing.
        QTest::keyClick(neighbour, Qt::Key_Backtab);
        QVERIFY(freq->hasFocus());
        QCOMPARE(freq->text(), QString("%1 Hz").arg(freq->shownValue(hz)));
        neighbour->setFocus();
        QTEST(freq->text(), "shown");
        QTEST(reports.last().first().toDouble(), "reported");
    }

    void frequencyArrivesWhileEdited()
    {
        freq->setFocus();
        QTest::keyClicks(freq, "70");
        freq->slotSetFrequencyScaling(5000);
        QCOMPARE(freq->text(), "5000 Hz");
        neighbour->setFocus();
        QCOMPARE(freq->trueValue(), 5000.0);
        QCOMPARE(freq->text(), "5.00 kHz");
    }

    void typedFrequencyOutsideTheLimits()
    {
        freq->slotSetRange(40, 400);
        for (const auto& [typed, reported] : {std::pair("7", 40.0), {"4000", 400.0}}) {
            freq->setFocus();
            freq->selectAll();
            QTest::keyClicks(freq, typed);
            QTest::keyClick(freq, Qt::Key_Enter);
            QCOMPARE(freq->trueValue(), reported);
        }
    }

    void arrowKeysKeepToTheLimits()
    {
        freq->slotSetRange(40, 400);
        freq->slotSetFrequencyScaling(395);
        freq->setSingleStep(10);
        freq->setFocus();
        QTest::keyPress(freq, Qt::Key_Up);
        QCOMPARE(freq->value(), 405.0);
        QTest::keyRelease(freq, Qt::Key_Up);
        QCOMPARE(freq->value(), 400.0);
        QTest::keyPress(freq, Qt::Key_Up);
        QCOMPARE(freq->value(), 400.0);
        QTest::keyRelease(freq, Qt::Key_Up);

        freq->setValue(45);
        QTest::keyPress(freq, Qt::Key_Down);
        QCOMPARE(freq->value(), 35.0);
        QTest::keyPress(freq, Qt::Key_Down);
        QCOMPARE(freq->value(), 40.0);
        freq->setValue(35);
        QTest::keyRelease(freq, Qt::Key_Down);
        QCOMPARE(freq->value(), 40.0);
    }
};

QTEST_MAIN(TestSpinBoxes)
#include "tst_spinboxes.moc"
