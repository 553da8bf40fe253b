#include "reorderablelistwidget.h"
#include "testcase.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

static const QString fixed = QStringLiteral("[CONNECTION SYNC]");

// Plays the rest of a drag's gesture in the event loop that the drag has of its own.
class PlayedList : public ReorderableListWidget
{
    Q_OBJECT

public:
    PlayedList()
    {
        connect(this, SIGNAL(signalReorderPresets()), this, SLOT(countReorder()));
        connect(this, SIGNAL(itemPressed(QListWidgetItem*)), this,
                SLOT(slotSetPresetDropBehavior()));
        setNames({fixed, "a", "b", "c", "d"});
        resize(200, 300);
        show();
    }
    QString order() const
    {
        QString texts;
        for (int row = 1; row < count(); ++row)
            texts += item(row)->text();
        return item(0)->text() == fixed ? texts : "moved";
    }
    // downBy: in parts of the row's height.
    QPoint at(int row, double downBy) const
    {
        const QRect rect = visualItemRect(item(row));
        const QPoint place(rect.center().x(), rect.top() + int(rect.height() * downBy));
        return viewport()->mapTo(this, place);
    }
    void drag(int from, QPoint to, const std::function<void()>& meanwhile)
    {
        restOfGesture = [=, this] {
            QTest::mouseMove(windowHandle(), to);
            meanwhile();
            QTest::mouseMove(windowHandle(), to + QPoint(1, 0));
            QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, to);
        };
        const QPoint start = at(from, 0.5);
        QTest::mousePress(windowHandle(), Qt::LeftButton, {}, start);
        for (const int pixels : {30, 31})
            QTest::mouseMove(windowHandle(), start + QPoint(0, pixels));
        if (QGuiApplication::mouseButtons() != Qt::NoButton)
            QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, start);
        QCoreApplication::processEvents();
    }
    int reorders = 0;

protected:
    void startDrag(Qt::DropActions actions) override
    {
        isDragging = true;
        QTimer::singleShot(0, this, restOfGesture);
        ReorderableListWidget::startDrag(actions);
        isDragging = false;
    }

private slots:
    void countReorder()
    {
        QVERIFY(!isDragging); // a refill would then fall into the drop
        ++reorders;
    }

private:
    std::function<void()> restOfGesture;
    bool isDragging = false;
};

class TestReorderableListWidget : public TestCase
{
    Q_OBJECT

private slots:
    void drag()
    {
        const struct {
            const char* what;
            int from;
            int onto;
            double downBy;
            QString order; // without the fixed row
        } rows[]{
            {"down, between two", 1, 3, 0.9, "bcad"},
            {"up, between two", 4, 2, 0.1, "adbc"},
            // Where a plain list would write one row's text over the other's.
            {"onto the upper half", 1, 3, 0.4, "bacd"},
            {"onto the lower half", 1, 3, 0.6, "bcad"},
            {"to the end", 2, 4, 4.0, "acdb"},
            {"below the fixed row", 3, 0, 0.8, "cabd"},
            {"above the fixed row", 3, 0, 0.2, "abcd"},
            {"the fixed row", 0, 3, 0.9, "abcd"},
            {"where it stands", 2, 1, 0.9, "abcd"},
        };
        for (const auto& row : rows) {
            PlayedList list;
            list.setCurrentRow(row.from);
            const QListWidgetItem* const item = list.item(row.from);
            QSignalSpy current(&list, SIGNAL(currentRowChanged(int)));
            list.drag(row.from, list.at(row.onto, row.downBy), [] {});
            QVERIFY2(list.order() == row.order, row.what);
            QCOMPARE(list.reorders, row.order == "abcd" ? 0 : 1);
            QCOMPARE(list.currentItem(), item);
            QVERIFY(item->isSelected());
            QCOMPARE(current.size(), 0); // nothing is recalled on the way
        }
    }

    // The row that was taken is the one that moves, if it is still there.
    void changesDuringADrag()
    {
        PlayedList list;
        list.drag(1, list.at(3, 0.9), [&] { list.setCurrentRow(4); });
        QCOMPARE(list.order(), QString("bcad"));
        QCOMPARE(list.currentRow(), 4);
        list.drag(1, list.at(3, 0.9), [&] { list.setNames({fixed, "e", "f", "g", "h"}); });
        QCOMPARE(list.order(), QString("efgh"));
    }

    void scrolling()
    {
        PlayedList list;
        QSignalSpy bar(&list, SIGNAL(signalPresetListScrollBarVisibility(bool)));
        QSignalSpy help(&list, SIGNAL(signalHideLiveMemoryHelp(bool)));
        const auto told = [](QSignalSpy& spy) { // since the last call
            QCoreApplication::processEvents();
            QString signs;
            while (!spy.isEmpty())
                signs += spy.takeFirst().first().toBool() ? '+' : '-';
            return signs;
        };
        list.setNames(QStringList(1000, "name"));
        QCOMPARE(told(bar) + ' ' + told(help), QString("+ "));
        list.setCurrentRow(500);
        QCOMPARE(told(bar) + ' ' + told(help), QString(" +"));
        list.setNames(QStringList(999, "name")); // keeps the place, and nothing blinks
        list.hide();
        list.setNames({fixed, "a"});
        QCOMPARE(told(bar) + ' ' + told(help), QString(" "));
        list.show();
        QCOMPARE(told(bar) + ' ' + told(help), QString("- -"));
    }
};

int main(int argc, char* argv[])
{
    // Here a drag can be played; on the other windowless platform it ends as soon as it begins.
    qputenv("QT_QPA_PLATFORM", "minimal");
    const QApplication app(argc, argv);
    TestReorderableListWidget test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_reorderablelistwidget.moc"
