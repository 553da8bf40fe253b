#include "statereport.h"

namespace statereport
{

namespace
{

QString yesNo(bool value) { return value ? QStringLiteral("yes") : QStringLiteral("no"); }

QString digits(const SimulatedMixer::Lights& lights)
{
    QString text;
    for (const bool light : lights)
        text += light ? u'1' : u'0';
    return text;
}

void addControls(QStringList& lines, const ControlSurface& controls)
{
    QString positions;
    SimulatedMixer::Lights touched{};
    for (int strip = 0; strip < ControlSurface::strips; ++strip) {
        positions += QStringLiteral(" %1").arg(controls.position(strip));
        touched[static_cast<size_t>(strip)] = controls.isTouched(strip);
    }
    lines.append(QStringLiteral("light bank %1%2")
                     .arg(int{controls.bankLight(0)})
                     .arg(int{controls.bankLight(1)}));
    lines.append(QStringLiteral("surface map %1").arg(controls.mapBank()));
    lines.append(QStringLiteral("surface faders") + positions);
    lines.append(QStringLiteral("surface touched ") + digits(touched));
}

int differences(const SimulatedMixer::Values& one, const SimulatedMixer::Values& other)
{
    int count = 0;
    for (size_t i = 0; i < one.size(); ++i)
        count += one[i] != other[i];
    return count;
}

void addValues(QStringList& lines, const QString& kind, const ParameterTable& table,
               const SimulatedMixer::Values& values)
{
    for (int i = 0; i < table.size(); ++i)
        lines.append(QStringLiteral("%1 %2 %3")
                         .arg(kind, table[i].name)
                         .arg(values[static_cast<size_t>(i)]));
}

void addMixer(QStringList& lines, const SimulatedMixer& mixer)
{
    lines.append(
        QStringLiteral("mode %1 %2").arg(mixer.mode()).arg(frames::modeName(mixer.mode())));
    lines.append(QStringLiteral("channel %1").arg(mixer.channel()));
    lines.append(QStringLiteral("dsp-updating ") + yesNo(mixer.dspUpdating()));
    lines.append(QStringLiteral("stereo-updating ") + yesNo(mixer.stereoUpdating()));
    lines.append(QStringLiteral("communication-ended ") + yesNo(mixer.communicationEnded()));
    lines.append(QStringLiteral("mute-version ") + yesNo(!mixer.answersVersion()));
    lines.append(QStringLiteral("light mute ") + digits(mixer.lights(0x11)));
    lines.append(QStringLiteral("light solo ") + digits(mixer.lights(0x12)));
    lines.append(QStringLiteral("light record ") + digits(mixer.lights(0x13)));
    addControls(lines, mixer.controls());
    for (const auto& [address, value] : mixer.surface()) {
        lines.append(
            QStringLiteral("surface %1 %2 %3 %4")
                .arg(address.status == 0x90 ? QStringLiteral("note") : QStringLiteral("cc"))
                .arg(address.channel)
                .arg(address.number)
                .arg(value));
    }
    const auto factory = presetTable().factoryValues();
    for (int slot = 0; slot < frames::slotCount; ++slot)
        lines.append(QStringLiteral("changed-in-slot %1 %2")
                         .arg(QChar(u'A' + slot))
                         .arg(differences(mixer.slot(slot), factory)));
    lines.append(
        QStringLiteral("not-in-flash %1").arg(differences(mixer.globals(), mixer.flash())));
    addValues(lines, QStringLiteral("live"), presetTable(), mixer.live());
    addValues(lines, QStringLiteral("global"), globalTable(), mixer.globals());
    addValues(lines, QStringLiteral("flash"), globalTable(), mixer.flash());
}

} // namespace

QStringList lines(const Simulator& simulator, const QString& name)
{
    const FirmwareState stored = simulator.storedFirmware();
    QStringList all{
        QStringLiteral("plugged %1")
            .arg(simulator.isPlugged()      ? QStringLiteral("yes")
                     : simulator.isComing() ? QStringLiteral("coming")
                                            : QStringLiteral("no")),
        QStringLiteral("queued %1").arg(simulator.queued()),
        QStringLiteral("firmware running ") + simulator.mixer().firmware().text(),
        QStringLiteral("firmware stored ") + stored.version.text(),
        QStringLiteral("firmware failure ") + stored.failure,
    };
    addMixer(all, simulator.mixer());
    if (name.isEmpty())
        return all;
    QStringList wanted;
    for (const QString& line : std::as_const(all)) {
        if (line.section(u' ', 0, 0) == name || line.section(u' ', 1, 1) == name)
            wanted.append(line);
    }
    return wanted;
}

QStringList slotLines(const SimulatedMixer& mixer, int slot)
{
    QStringList lines;
    addValues(lines, QStringLiteral("slot %1").arg(QChar(u'A' + slot)), presetTable(),
              mixer.slot(slot));
    return lines;
}

} // namespace statereport
