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

#include <climits>
#include <functional>

// The three number boxes beside a neighbour that takes the focus from them, in a window that is
// active, on a system whose numbers have commas.
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

    // Until Escape closes it.
    void openMenu(QAbstractSpinBox* box, const std::function<void(QMenu*)>& whileOpen)
    {
        QTimer::singleShot(0, this, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu != nullptr);
            QCoreApplication::processEvents(); // the platform's word of its new window
            whileOpen(menu);
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, edit(box)->mapToGlobal(at));
        QApplication::sendEvent(edit(box), &event);
    }

protected:
    void prepare() override
    {
        QLocale::setDefault(QLocale::German);
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
        freq->slotSetFrequencyScaling(12345.7); // finer than it is shown anywhere
        neighbour = add<QLineEdit>("neighbour");
        form->resize(300, 200);
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        neighbour->setFocus();
    }

private slots:
    void firstClickSelectsAll()
    {
        press(decimal);
        release(decimal);
        QCOMPARE(edit(decimal)->selectedText(), "123.45");
        press(decimal);
        release(decimal);
        QVERIFY(!edit(decimal)->hasSelectedText());
        QCOMPARE(edit(decimal)->cursorPosition(), 1);
    }

    void drag()
    {
        const std::tuple<QString, int, QList<int>, QList<double>> rows[]{
            {"whole", 1, {5, -2}, {128, 126}},
            {"whole", 1, {-500, 10}, {1, 1}}, // past the end
            {"decimal", 1, {5}, {173.45}},
            {"decimal", 4, {5}, {123.95}},
            {"decimal", 1, {50, -40}, {200, 200}},
            {"freq", 1, {5, -2}, {12350, 12348}},
            // Dropped, not clamped; the limit itself counts.
            {"freq", 1, {7654, 2, -1}, {19999, 20000}},
            {"freq", 1, {-9344, -2, 1}, {3001, 3000}},
        };
        for (const auto& [name, cursor, moves, reported] : rows) {
            prepare();
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
            // A drag selects no text, the next press may.
            QVERIFY(edit(target)->isReadOnly());
            press(target, cursor);
            QVERIFY(!edit(target)->isReadOnly());
            up(target, 1);
            QVERIFY(edit(target)->isReadOnly());
        }
        QCOMPARE(freq->text(), "3001 Hz"); // in Hz as long as it has the focus
    }

    // Straight on, or when the focus comes back; what the drag left selected does not matter.
    void typing()
    {
        const std::tuple<QString, QString, double> rows[]{
            {"whole", "250", 250},     {"decimal", "-3.5", -3.5}, {"freq", "4500", 4500},
            {"decimal", "-3,5", -3.5}, {"decimal", ",5", 0.5},    {"decimal", "1,2.,3", 1.23},
            {"decimal", "-,", 123.45}, // as it was
            {"whole", "10,5", 10},     {"whole", "10.5", 10},     {"freq", "4500,5", 4500},
            {"freq", "250", 3000}, // the limit
        };
        for (const auto& [name, typed, number] : rows) {
            for (const QString before : {"", "drag", "drag and back"}) {
                prepare();
                QAbstractSpinBox* target = box(name);
                if (before.startsWith("drag")) {
                    press(target);
                    release(target);
                    press(target);
                    at.rx() += 20;
                    up(target, 0);
                    release(target);
                }
                if (before != "drag") {
                    neighbour->setFocus();
                    target->setFocus(Qt::TabFocusReason);
                    QVERIFY(!edit(target)->styleSheet().contains("transparent"));
                }
                QSignalSpy reports(target, commitSignal(target));
                QTest::keyClicks(target, typed);
                QTest::keyClick(target, before.isEmpty() ? Qt::Key_Enter : Qt::Key_Return);
                QVERIFY(!target->hasFocus());
                QCOMPARE(reports.size(), 1);
                QCOMPARE(reports.first().first().toDouble(), number);
            }
        }
    }

    // To open it is no leaving: half a number stays as it is. What it pastes is reported once.
    void contextMenuIsPartOfTheBox()
    {
        const std::tuple<QString, QString, QString, double> rows[]{
            {"whole", "2", "50", 250},
            {"decimal", "-", "3.5", -3.5},
            {"decimal", "3.", "5", 3.5},
            {"freq", "45", "00", 4500},
        };
        for (const auto& [name, typed, rest, number] : rows) {
            for (const bool pastes : {false, true}) {
                prepare();
                QApplication::clipboard()->setText(QString::number(number).replace('.', ','));
                QAbstractSpinBox* target = box(name);
                press(target, 1, Qt::RightButton);
                QSignalSpy reports(target, commitSignal(target));
                if (!pastes)
                    QTest::keyClicks(target, typed);
                const QString text = target->text();
                const QString selected = edit(target)->selectedText();
                openMenu(target, [&](QMenu* menu) {
                    QCOMPARE(target->text(), text);
                    QCOMPARE(edit(target)->selectedText(), selected);
                    for (QAction* action : menu->actions()) {
                        if (pastes && action->text().startsWith("&Paste"))
                            action->trigger();
                    }
                });
                if (!pastes)
                    QTest::keyClicks(target, rest);
                QCOMPARE(reports.size(), 0);
                neighbour->setFocus();
                QCOMPARE(reports.size(), 1);
                QCOMPARE(reports.first().first().toDouble(), number);
                QTest::mouseRelease(edit(target), Qt::RightButton, {}, at);
            }
        }
    }

    // The event filter sees what Qt would keep from a disabled widget.
    void disabled()
    {
        form->setEnabled(false);
        press(whole);
        up(whole, 100);
        release(whole);
        QCOMPARE(whole->value(), 123);
    }

    // By cursor position, from 0 on; the last one holds for all behind it.
    void scrollDivisor()
    {
        using Divisors = QList<double>;
        for (const auto& [value, decimals, divisors] :
             {std::tuple(12.3, 1, Divisors{0.1, 1, 1, 10, 10}),
              {123.0, 0, {0.1, 1, 1, 1}},
              {-12.34, 2, {0.1, 0.1, 1, 1, 10, 10, 100}}}) {
            decimal->setDecimals(decimals);
            decimal->setValue(value);
            for (int cursor = 0; cursor < int(divisors.size()); ++cursor)
                QCOMPARE(decimal->slotGetScrollDivisorFromCursorPos(cursor), divisors[cursor]);
            QCOMPARE(decimal->slotGetScrollDivisorFromCursorPos(INT_MAX), divisors.last());
            QVERIFY(decimal->slotGetScrollDivisorFromCursorPos(INT_MIN) > 0);
        }
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

    void frequencyScaling()
    {
        for (const auto& [highest, hz, shown, reported] :
             {std::tuple(6000.0, 1234.0, "1.23 kHz", 1234.0), // finer than shown
              {999.0, 999.0, "999 Hz", 999.0},
              {1000.0, 5000.0, "1.00 kHz", 1000.0},
              {400.0, 39.9, "40 Hz", 40.0},
              {400.0, qQNaN(), "40 Hz", 40.0}}) {
            freq->slotSetRange(40.0, highest);
            QSignalSpy reports(freq, SIGNAL(signalTrueValue(double)));
            freq->slotSetFrequencyScaling(hz);
            QCOMPARE(reports.size(), 1);
            // Passing through changes nothing.
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(freq->text(), shown);
                QCOMPARE(reports.last().first().toDouble(), reported);
                freq->setFocus();
                QCOMPARE(freq->text(), QString("%1 Hz").arg(reported));
                neighbour->setFocus();
            }
        }
    }

    void arrowKeysKeepToTheLimits()
    {
        for (const auto& [key, start, stepped, limit] :
             {std::tuple(Qt::Key_Up, 395.0, 405.0, 400.0), {Qt::Key_Down, 45.0, 35.0, 40.0}}) {
            prepare();
            freq->slotSetRange(40, 400);
            freq->slotSetFrequencyScaling(start);
            freq->setSingleStep(10);
            freq->setFocus();
            QTest::keyPress(freq, key);
            QCOMPARE(freq->value(), stepped);
            QTest::keyRelease(freq, key);
            QCOMPARE(freq->value(), limit);
            QTest::keyPress(freq, key);
            QCOMPARE(freq->value(), limit);
        }
    }
};

QTEST_MAIN(TestSpinBoxes)
#include "tst_spinboxes.moc"
