// The mixer's section of the state file, and the mix that a new mixer begins with.
#include "simulatedmixer.h"

#include <QJsonValue>

namespace
{

constexpr int largestValue = 0xFF << 7 | 0x7F; // two bytes of the wire

const QString liveKey = QStringLiteral("live");
const QString slotsKey = QStringLiteral("slots");
const QString flashKey = QStringLiteral("globals");
const QString modeKey = QStringLiteral("mode");
const QString channelKey = QStringLiteral("channel");

QString slotLetter(int slot) { return QString(QChar(u'A' + slot)); }

QJsonObject changed(const ParameterTable& table, const SimulatedMixer::Values& values)
{
    QJsonObject object;
    for (int i = 0; i < table.size(); ++i) {
        const int value = values[static_cast<size_t>(i)];
        if (value != table[i].factory)
            object.insert(table[i].name, value);
    }
    return object;
}

// Sets `values` to the factory's with the object's changes.
void read(const QJsonValue& section, const QString& where, const ParameterTable& table,
          SimulatedMixer::Values& values, QStringList& complaints)
{
    if (section.isUndefined())
        return;
    if (!section.isObject()) {
        complaints.append(QStringLiteral("%1 is no object").arg(where));
        return;
    }
    values = table.factoryValues();
    const QJsonObject object = section.toObject();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const int index = table.find(entry.key());
        const int value = entry.value().toInt(-1);
        if (index < 0 || value < 0 || value > largestValue)
            complaints.append(QStringLiteral("%1: %2 is not usable").arg(where, entry.key()));
        else
            values[static_cast<size_t>(index)] = value;
    }
}

} // namespace

QJsonObject SimulatedMixer::toJson() const
{
    QJsonObject slotObjects;
    for (int i = 0; i < frames::slotCount; ++i)
        slotObjects.insert(slotLetter(i), changed(presetTable(), slot(i)));
    return {
        {liveKey, changed(presetTable(), m_live)},
        {slotsKey, slotObjects},
        {flashKey, changed(globalTable(), m_flash)},
        {modeKey, m_mode},
        {channelKey, m_channel},
    };
}

QStringList SimulatedMixer::fromJson(const QJsonObject& section)
{
    QStringList complaints;
    read(section.value(liveKey), liveKey, presetTable(), m_live, complaints);
    const QJsonValue slotObjects = section.value(slotsKey);
    if (!slotObjects.isUndefined() && !slotObjects.isObject())
        complaints.append(QStringLiteral("slots is no object"));
    for (int i = 0; i < frames::slotCount; ++i) {
        read(slotObjects.toObject().value(slotLetter(i)), frames::slotName(i), presetTable(),
             m_slots[static_cast<size_t>(i)], complaints);
    }
    read(section.value(flashKey), flashKey, globalTable(), m_flash, complaints);
    m_globals = m_flash;
    const int mode = section.value(modeKey).toInt(m_mode);
    if (!frames::modeName(mode).isEmpty())
        m_mode = mode;
    const int channel = section.value(channelKey).toInt(m_channel);
    if (!frames::channelName(channel).isEmpty())
        m_channel = channel;
    return complaints;
}

SimulatedMixer::Values SimulatedMixer::startingMix()
{
    struct Setting {
        const char* name;
        int value;
    };
    // A small band: voice and guitar, a pair of keys, bass, drums in stereo and a spare.
    static constexpr Setting mix[] = {
        {"faderframe_ch1_fader", 8938},
        {"faderframe_ch2_fader", 8400},
        {"faderframe_ch3_fader", 7600},
        {"faderframe_ch4_fader", 7600},
        {"faderframe_ch5_fader", 8600},
        {"faderframe_ch6_fader", 8000},
        {"faderframe_ch7_fader", 8000},
        {"faderframe_ch8_fader", 5000},
        {"faderframe_ch8_mute", 1},
        {"faderframe_aux1_fader", 7800},
        {"faderframe_aux2_fader", 7200},
        {"faderframe_aux3_fader", 5600},
        {"faderframe_aux3_mute", 1},
        {"faderframe_phones_fader", 8200},
        {"faderframe_mains_fader", 8938},
        {"channelstrip_ch1_trim", 24},
        {"channelstrip_ch2_trim", 18},
        {"channelstrip_ch1_highPass_bypass", 0},
        {"channelstrip_ch1_highPass_freq", 110},
        {"channelstrip_ch1_eq_hi_gain", 10300},
        {"channelstrip_ch1_eq_mid_freq", 2500},
        {"channelstrip_ch1_eq_mid_gain", 10200},
        {"channelstrip_ch1_compressor_thresh", 8200},
        {"channelstrip_ch1_compressor_gain", 10400},
        {"channelstrip_ch2_pan", 9940},
        {"channelstrip_ch2_eq_low_gain", 9600},
        {"channelstrip_ch3_stereo", 1},
        {"channelstrip_ch3_pan", 9900},
        {"channelstrip_ch4_pan", 10100},
        {"channelstrip_ch5_eq_low_gain", 10450},
        {"channelstrip_ch5_eq_low_freq", 90},
        {"channelstrip_ch5_compressor_ratio", 400},
        {"channelstrip_ch6_pan", 9920},
        {"channelstrip_ch6_gate_thresh", 6500},
        {"channelstrip_ch7_pan", 10080},
        {"channelstrip_ch7_gate_thresh", 6500},
        {"channelstrip_ch1_aux1_routing_send_level", 8800},
        {"channelstrip_ch2_aux1_routing_send_level", 7000},
        {"channelstrip_ch5_aux2_routing_send_level", 7600},
        {"reverbtab_ch1_send_level", 7400},
        {"reverbtab_ch2_send_level", 6800},
        {"reverbtab_level", 7600},
        {"reverbtab_decay_time", 1800},
    };
    Values values = presetTable().factoryValues();
    for (const auto& setting : mix) {
        const int index = presetTable().find(QLatin1String(setting.name));
        Q_ASSERT(index >= 0);
        values[static_cast<size_t>(index)] = setting.value;
    }
    return values;
}
