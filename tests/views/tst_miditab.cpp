#include "globalpresetinterface.h"
#include "miditab.h"
#include "pagefixture.h"
#include "pagestyle.h"

#include <QLabel>
#include <QSpinBox>

class TestMidiTab : public PageTestCase
{
    Q_OBJECT

    GlobalPresetInterface store;
    MidiTab* tab = nullptr;

    void open(const QSize& size)
    {
        auto* parent = new QWidget;
        parent->setStyleSheet(pageStyleSheet());
        tab = new MidiTab(parent, &store, size);
        parent->resize(size);
        connect(tab, SIGNAL(signalStoreGlobal(QString, QVariant)), &heard,
                SLOT(storeGlobal(QString, QVariant)));
        connect(tab, SIGNAL(signalSendParameter(QString, int)), &heard, SLOT(send(QString, int)));
        tab->slotConnectElements();
        tab->slotConnectToSysexSending();
        showWindow(parent);
    }
    QSpinBox* number(const QString& key) const { return tab->findChild<QSpinBox*>(key); }
    void showBank(const QString& digit) { click(button(tab, "midiBank" + digit)); }
    int shown(const QString& key) const
    {
        return number(key) != nullptr ? number(key)->value() : int{button(tab, key)->isChecked()};
    }
    // The boxes of the shown bank that are marked, and what the header says.
    QString clashes() const
    {
        QStringList all;
        for (const QSpinBox* box : tab->findChildren<QSpinBox*>())
            if (box->isVisible() && box->property("clash").toBool()
                && box->toolTip().endsWith(box->accessibleDescription()))
                all.append(box->objectName().section('_', 1) + ' ' + box->accessibleDescription());
        return all.join('\n') + '|' + tab->findChild<QLabel*>("midiClashes")->text();
    }

protected:
    void prepare() override { open(MidiTab::usualSize); }

private slots:
    void eachFamily_data()
    {
        QTest::addColumn<int>("moved");
        QTest::addColumn<int>("told"); // by the mixer
        QTest::addColumn<int>("stored");
        QTest::newRow("miditab_bank3_channel") << 16 << 4 << 5;
        QTest::newRow("miditab_fader9_bank2_cc") << 127 << 4 << 4;
        QTest::newRow("miditab_select1_bank1_note") << 0 << 4 << 4;
        QTest::newRow("miditab_rotary4_bank3_cc") << 64 << 4 << 4;
        QTest::newRow("miditab_button01_bank2_note") << 64 << 4 << 4;
        QTest::newRow("miditab_presetbutton_bank1_note") << 64 << 4 << 4;
        QTest::newRow("miditab_diamond_bank3_down_note") << 64 << 4 << 4;
        for (const char* toggle : {"miditab_select9_toggle", "miditab_button15_toggle",
                                   "miditab_presetbutton_toggle", "miditab_diamond_toggle"})
            QTest::newRow(toggle) << 1 << 0 << 0;
    }
    void eachFamily()
    {
        const QString key = QTest::currentDataTag();
        QFETCH(int, moved);
        QFETCH(int, told);
        QFETCH(int, stored);
        if (QSpinBox* box = number(key); box != nullptr) {
            showBank(key.section("bank", 1).first(1));
            type(box, QString::number(moved));
            QCOMPARE(heard.take(), "");
            QTest::keyClick(box, Qt::Key_Return);
        } else {
            QCOMPARE(button(tab, key)->text(), "MOMENTARY");
            click(button(tab, key));
            QCOMPARE(button(tab, key)->text(), "TOGGLE");
        }
        QCOMPARE(heard.take(), once(QString("%1=%2").arg(key).arg(moved)));
        tab->slotReceiveMidiParams(key, told);
        QCOMPARE(shown(key), stored);
        QCOMPARE(heard.take(), QString("store %1=%2").arg(key).arg(stored));
    }

    // Each key has its own control, and what is missing is as delivered.
    void recall()
    {
        QVariantMap globals;
        for (const Parameter& parameter : parametertable::globals())
            globals.insert(parameter.key, parameter.bounded(static_cast<int>(globals.size()) % 90));
        for (const QVariantMap& map : {globals, QVariantMap()}) {
            tab->slotRecallGlobal(map);
            int count = 0;
            for (const Parameter& parameter : parametertable::globals()) {
                if (!parameter.key.startsWith("miditab_"))
                    continue;
                ++count;
                QCOMPARE(shown(parameter.key), map.value(parameter.key, parameter.factoryValue));
            }
            QCOMPARE(count, 155);
        }
        QCoreApplication::processEvents();
        QCOMPARE(clashes(), "|");
        QCOMPARE(heard.take(), "");
        click(button(tab, "miditab_diamond_toggle"));
        QCOMPARE(heard.take(), once("miditab_diamond_toggle=1"));
    }

    void clashesOfTheShownBank()
    {
        const QString three = "fader3_bank1_cc Clash: CC 10 is sent by rotary 1 too.";
        tab->slotReceiveMidiParams("miditab_fader3_bank1_cc", 10); // as button 01's note
        QCOMPARE(clashes(), "|");                                  // more may come
        QTRY_COMPARE(clashes(),
                     "rotary1_bank1_cc Clash: CC 10 is sent by fader 3 too.\n" + three
                         + "|Clash: CC 10");
        tab->slotReceiveMidiParams("miditab_button01_bank2_note", 29);
        tab->slotReceiveMidiParams("miditab_select9_bank2_note", 29);
        QCoreApplication::processEvents();
        QVERIFY(clashes().endsWith("|Clash: CC 10"));
        showBank("2");
        QCOMPARE(clashes(),
                 "diamond_bank2_right_note Clash: note 29 is sent by mains select, button 01 too.\n"
                 "select9_bank2_note Clash: note 29 is sent by diamond right, button 01 too.\n"
                 "button01_bank2_note Clash: note 29 is sent by diamond right, mains select too."
                 "|Clash: note 29");
        tab->slotReceiveMidiParams("miditab_rotary1_bank1_cc", 100); // out of sight
        tab->slotRecallGlobal({{"miditab_fader3_bank1_cc", 10}, {"miditab_rotary1_bank1_cc", 100}});
        QTRY_COMPARE(clashes(), "|");
        showBank("1");
        QCOMPARE(clashes(), "|");
        QCOMPARE(number("miditab_fader3_bank1_cc")->toolTip(),
                 "The CC that fader 3 sends in bank 1, 0 to 127.");
    }

    // A number that is typed belongs to the bank in which it was typed. The toggles stay.
    void banks()
    {
        type(number("miditab_fader1_bank1_cc"), "77");
        showBank("2");
        QCOMPARE(heard.take(), once("miditab_fader1_bank1_cc=77"));
        QVERIFY(!number("miditab_fader1_bank1_cc")->isVisible());
        QCOMPARE(shown("miditab_fader1_bank2_cc"), 1);
        tab->slotShowBank(3);
        QVERIFY(number("miditab_fader1_bank2_cc")->isVisible());
        showBank("1");
        button(tab, "midiBank1")->setFocus();
        QTest::keyClick(button(tab, "midiBank1"), Qt::Key_Right);
        number("miditab_select1_bank2_note")->setFocus();
        for (const char* next : {"miditab_select1_toggle", "miditab_select2_bank2_note"}) {
            QTest::keyClick(tab->window()->focusWidget(), Qt::Key_Tab);
            QCOMPARE(tab->window()->focusWidget()->objectName(), next);
        }
    }

    void nothingStandsOnAnother()
    {
        for (const QSize& size : {MidiTab::usualSize, MidiForm::smallest}) {
            open(size);
            QList<QRect> places;
            for (const QWidget* control : tab->findChildren<QWidget*>()) {
                const auto* key = qobject_cast<const QToolButton*>(control);
                if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus
                    || control->focusProxy() != nullptr)
                    continue;
                const QRect place(control->mapTo(tab, QPoint()), control->size());
                QVERIFY(tab->rect().contains(place));
                for (const QRect& other : std::as_const(places))
                    QVERIFY2(!other.intersects(place), qPrintable(control->objectName()));
                places.append(place);
                if (key != nullptr)
                    QVERIFY(key->fontMetrics().horizontalAdvance(key->text()) <= key->width());
            }
            QCOMPARE(places.size(), 1 + 43 + 26 + 1);
        }
    }
};

QTEST_MAIN(TestMidiTab)
#include "tst_miditab.moc"
