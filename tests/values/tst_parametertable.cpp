#include "parametertable.h"
#include "testcase.h"

#include <QRegularExpression>

// Each parameter's encoding and range. The factory values are held against the shipped files.
class TestParameterTable : public TestCase
{
    Q_OBJECT

private slots:
    void rangesAndEncodings()
    {
        using enum Encoding;
        struct Family {
            const char* keys;
            Encoding encoding;
            int lowest;
            int highest;
            int count;
        };
        constexpr Family families[]{
            {"faderframe_(ch[1-8]|aux[1-3]|phones|mains)_fader", faderPosition, 3000, 10600, 13},
            {"faderframe_(ch[1-8]|aux[1-3]|phones|mains)_mute", onOff, 0, 1, 13},
            {"faderframe_ch[1-8]_solo", onOff, 0, 1, 8},
            {"channelstrip_ch[1-8]_trim", trimTable, 0, 40, 8},
            {"channelstrip_ch[1-8]_highPass_freq", hertz, 40, 400, 8},
            {"channelstrip_ch[1-8]_highPass_bypass", onOff, 0, 1, 8},
            {"channelstrip_ch[1357]_stereo", onOff, 0, 1, 4},
            {"channelstrip_ch[1-8]_(aux[123]_routing_)?pan", plain, 9900, 10100, 32},
            {"channelstrip_ch[1-8]_aux[123]_routing_pre_post", onOff, 0, 1, 24},
            {"channelstrip_ch[1-8]_aux[123]_routing_send_level", faderPosition, 3000, 10600, 24},
            {"channelstrip_(ch[1-8]|mains)_(eq|compressor|gate)_bypass", onOff, 0, 1, 27},
            {"channelstrip_(ch[1-8]|mains)_eq_(hi|mid|low)_gain", linearLevel, 8200, 11800, 27},
            {"channelstrip_(ch[1-8]|mains)_eq_hi_freq", tensOfHertz, 300, 2000, 9},
            {"channelstrip_(ch[1-8]|mains)_eq_mid_freq", hertz, 200, 6000, 9},
            {"channelstrip_(ch[1-8]|mains)_eq_low_freq", hertz, 20, 400, 9},
            {"channelstrip_(ch[1-8]|mains)_eq_mid_q", hundredths, 10, 1000, 9},
            {"channelstrip_(ch[1-8]|mains)_compressor_ratio", hundredths, 0, 1000, 9},
            {"channelstrip_(ch[1-8]|mains)_compressor_gain", linearLevel, 10000, 12400, 9},
            {"channelstrip_(ch[1-8]|mains)_(compressor|gate)_thresh", linearLevel, 3000, 11000, 18},
            {"channelstrip_(ch[1-8]|mains)_(compressor|gate)_attack", plain, 1, 1000, 18},
            {"channelstrip_(ch[1-8]|mains)_(compressor|gate)_release", plain, 1, 3000, 18},
            {"channelstrip_(ch[1-8]|mains)_gate_gain", linearLevel, 3600, 10000, 9},
            {"channelstrip_phones_monitor_select", plain, 1, 12, 1},
            {"reverbtab_(ch[1-8]_send_)?level", faderPosition, 3000, 10600, 9},
            {"reverbtab_(pre_post|bypass)", onOff, 0, 1, 2},
            {"reverbtab_pre_delay", plain, 0, 200, 1},
            {"reverbtab_decay_time", plain, 100, 10000, 1},
            {"reverbtab_(damping|diffusion)", plain, 0, 100, 2},

            {"ch[12]_phantom|ch[3-8]_line_phono", onOff, 0, 1, 8},
            {"hardware_limiter|expander_control|pass_thru_(width|rotaries)", onOff, 0, 1, 4},
            {"(mode_backlighting|tone_gen)_enable", onOff, 0, 1, 2},
            {"led_brightness", plain, 0, 31, 1},
            {"tone_gen_freq", plain, 20, 16000, 1},
            {"phantom_voltage", plain, 0, 1, 1},
            {"phones_impedance|surroundtab_format", plain, 0, 2, 2},
            {"surroundtab_enable", onOff, 0, 1, 1},
            {"surroundtab_bass_management", plain, 39, 200, 1},
            {"surroundtab_ch[1-8]_assign", plain, 0, 3, 8},
            {"surroundtab_rotary[1-4]_radius", plain, 0, 127, 4},
            {"surroundtab_rotary[1-4]_angle", plain, 0, 359, 4},
            {"usbtab_ch[1-8]_(in|out)put_prepost", onOff, 0, 1, 16},
            {"miditab_bank[123]_channel", plain, 1, 16, 3},
            {"miditab_(fader[1-9]|rotary[1-4])_bank[123]_cc", plain, 0, 127, 39},
            {"miditab_(select[1-9]|button(0[1-9]|1[0-5])|presetbutton)_bank[123]_note", plain, 0,
             127, 75},
            {"miditab_diamond_bank[123]_(left|up|right|down)_note", plain, 0, 127, 12},
            {"miditab_(select[1-9]|button(0[1-9]|1[0-5])|presetbutton|diamond)_toggle", onOff, 0, 1,
             26},
        };
        QStringList keys;
        for (const auto& all : {parametertable::preset(), parametertable::globals()})
            for (const Parameter& parameter : all)
                keys.append(parameter.key);
        QCOMPARE(parametertable::preset().size(), std::size_t{329});
        QCOMPARE(parametertable::globals().size(), std::size_t{208});
        QCOMPARE(keys.removeDuplicates(), 0);
        for (const Family& family : families) {
            const QRegularExpression exactly(QString("^(%1)$").arg(family.keys));
            const QStringList found = keys.filter(exactly);
            QCOMPARE(found.size(), family.count);
            for (const QString& key : found) {
                const Parameter* parameter = parametertable::find(key);
                QVERIFY2(parameter != nullptr && parameter->encoding == family.encoding,
                         qPrintable(key));
                QCOMPARE(parameter->lowest, family.lowest);
                QCOMPARE(parameter->highest, family.highest);
                keys.removeOne(key);
            }
        }
        QCOMPARE(keys, QStringList());
        QVERIFY(parametertable::find("preset_name") == nullptr);
    }
};

QTEST_APPLESS_MAIN(TestParameterTable)
#include "tst_parametertable.moc"
