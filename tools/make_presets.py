#!/usr/bin/env python3
"""Makes the files of resources/presets/: the preset library, the blank templates, the global settings and the
setlist.

make_presets.py          writes them
make_presets.py --check  complains of those that are not as they would be made

All of them start from the factory values below, the same that are compiled into the program.
"""

import json
import sys
from decimal import ROUND_FLOOR, Decimal
from pathlib import Path

PRESETS = Path(__file__).resolve().parent.parent / "resources" / "presets"

CHANNELS = range(1, 9)
AUXES = range(1, 4)
BANKS = range(1, 4)
ROTARIES = range(1, 5)
FADERS_OF_A_BANK = range(1, 10)
BUTTONS = range(1, 16)
LETTERS = "ABCDEFGHIJKL"

LONGEST_NAME = 24
FADER_MIN, FADER_MAX = 3000, 10600
CENTRE, LEFT, RIGHT = 10000, 9900, 10100

STRIP = {
    "eq_bypass": 0,
    "eq_hi_freq": 324,  # tens of Hz
    "eq_hi_gain": 10000,
    "eq_low_freq": 276,
    "eq_low_gain": 10000,
    "eq_mid_freq": 346,
    "eq_mid_gain": 10000,
    "eq_mid_q": 100,
    "compressor_bypass": 0,
    "compressor_attack": 10,
    "compressor_gain": 10000,
    "compressor_release": 50,
    "compressor_thresh": 10000,
    "compressor_ratio": 300,
    "gate_bypass": 0,
    "gate_attack": 10,
    "gate_gain": 7600,
    "gate_release": 50,
    "gate_thresh": 3000,
}


def lowest_trim(channel):
    """dB at the dial's first position; the channels after the second have a pad."""
    return 0 if channel <= 2 else -16


def preset_defaults():
    preset = {"preset_name": "DefaultPreset"}
    for n in CHANNELS:
        preset[f"faderframe_ch{n}_fader"] = FADER_MIN
        preset[f"faderframe_ch{n}_mute"] = False
        preset[f"faderframe_ch{n}_solo"] = False
        strip = f"channelstrip_ch{n}_"
        preset[strip + "trim"] = -lowest_trim(n)
        preset[strip + "highPass_freq"] = 80
        preset[strip + "highPass_bypass"] = 1
        preset[strip + "pan"] = CENTRE
        if n % 2:
            preset[strip + "stereo"] = 0
        preset.update({strip + name: value for name, value in STRIP.items()})
        for aux in AUXES:
            preset[f"{strip}aux{aux}_routing_pan"] = CENTRE
            preset[f"{strip}aux{aux}_routing_pre_post"] = True
            preset[f"{strip}aux{aux}_routing_send_level"] = FADER_MIN
        preset[f"reverbtab_ch{n}_send_level"] = FADER_MIN
    for output in ["aux1", "aux2", "aux3", "phones", "mains"]:
        preset[f"faderframe_{output}_fader"] = FADER_MIN
        preset[f"faderframe_{output}_mute"] = False
    preset["channelstrip_phones_monitor_select"] = 9
    preset.update({"channelstrip_mains_" + name: value for name, value in STRIP.items()})
    preset["reverbtab_pre_post"] = True
    preset["reverbtab_pre_delay"] = 20
    preset["reverbtab_decay_time"] = 1000
    preset["reverbtab_damping"] = 50
    preset["reverbtab_diffusion"] = 50
    preset["reverbtab_level"] = 0
    preset["reverbtab_bypass"] = False
    return preset


def global_defaults():
    settings = {
        "ch1_phantom": 0,
        "ch2_phantom": 0,
        "phantom_voltage": 1,
        "hardware_limiter": 0,
        "mode_backlighting_enable": 1,
        "led_brightness": 16,
        "tone_gen_enable": 0,
        "tone_gen_freq": 440,
        "pass_thru_width": 0,
        "pass_thru_rotaries": 0,
        "phones_impedance": 1,
        "expander_control": 0,
        "surroundtab_format": 1,
        "surroundtab_enable": 0,
        "surroundtab_bass_management": 39,
        "miditab_diamond_toggle": 0,
        "miditab_presetbutton_toggle": 0,
    }
    for n in CHANNELS:
        if n > 2:
            settings[f"ch{n}_line_phono"] = 1
        settings[f"surroundtab_ch{n}_assign"] = (n - 1) // 2
        settings[f"usbtab_ch{n}_input_prepost"] = False
        settings[f"usbtab_ch{n}_output_prepost"] = False
    for rotary in ROTARIES:
        settings[f"surroundtab_rotary{rotary}_radius"] = 63
        settings[f"surroundtab_rotary{rotary}_angle"] = 0
    for number in FADERS_OF_A_BANK:
        settings[f"miditab_select{number}_toggle"] = 0
    for button in BUTTONS:
        settings[f"miditab_button{button:02}_toggle"] = 0
    for bank in BANKS:
        settings[f"miditab_bank{bank}_channel"] = bank
        for number in FADERS_OF_A_BANK:
            settings[f"miditab_fader{number}_bank{bank}_cc"] = number
            settings[f"miditab_select{number}_bank{bank}_note"] = number
        for rotary in ROTARIES:
            settings[f"miditab_rotary{rotary}_bank{bank}_cc"] = 9 + rotary
        for button in BUTTONS:  # they step over the preset button's note
            settings[f"miditab_button{button:02}_bank{bank}_note"] = button + (9 if button < 4 else 10)
        settings[f"miditab_presetbutton_bank{bank}_note"] = 13
        for note, direction in enumerate(["up", "down", "left", "right"], start=26):
            settings[f"miditab_diamond_bank{bank}_{direction}_note"] = note
    return settings


def fader(db):
    """The volume curve: dB to the position of a fader."""
    x = (Decimal(db) + 70) / 76
    position = x**3 * (FADER_MAX - FADER_MIN) + FADER_MIN
    return int((position + Decimal("0.5")).to_integral_value(ROUND_FLOOR))


def level(db):
    return round((db + 100) * 100)


class Factory:
    """A preset in the making, in the units that the controls show: dB, Hz, ms, and pan from -100 to 100."""

    def __init__(self, name, phones=-10, mains=0):
        assert len(name) <= LONGEST_NAME, name
        self.values = preset_defaults() | {
            "preset_name": name,
            "faderframe_phones_fader": fader(phones),
            "faderframe_mains_fader": fader(mains),
        }

    def channel(self, n, db, pan=0, trim=None, high_pass=None, monitors=None, reverb=None, **strip):
        """monitors: dB of the pre-fader send to each aux."""
        name = f"channelstrip_ch{n}_"
        self.values[f"faderframe_ch{n}_fader"] = fader(db)
        self.values[name + "pan"] = CENTRE + pan
        if trim is not None:
            self.values[name + "trim"] = trim - lowest_trim(n)
        if high_pass is not None:
            self.values |= {name + "highPass_freq": high_pass, name + "highPass_bypass": 0}
        for aux, send in (monitors or {}).items():
            self.values |= {
                f"{name}aux{aux}_routing_send_level": fader(send),
                f"{name}aux{aux}_routing_pre_post": False,
                f"{name}aux{aux}_routing_pan": CENTRE + pan,
            }
        if reverb is not None:
            self.values[f"reverbtab_ch{n}_send_level"] = fader(reverb)
        self.strip(name, **strip)

    def pair(self, n, db, width=100, **rest):
        """Two channels linked, their pans mirrored."""
        self.values[f"channelstrip_ch{n}_stereo"] = 1
        self.channel(n, db, pan=-width, **rest)
        self.channel(n + 1, db, pan=width, **rest)

    def strip(self, name, low=None, mid=None, high=None, compressor=None, gate=None):
        """low, high: Hz, dB; mid: Hz, dB, Q; compressor: threshold, ratio, attack, release, make-up gain;
        gate: threshold, gain when closed, attack, release."""
        if low:
            self.values |= {name + "eq_low_freq": low[0], name + "eq_low_gain": level(low[1])}
        if mid:
            self.values |= {
                name + "eq_mid_freq": mid[0],
                name + "eq_mid_gain": level(mid[1]),
                name + "eq_mid_q": round(mid[2] * 100),
            }
        if high:
            self.values |= {name + "eq_hi_freq": high[0] // 10, name + "eq_hi_gain": level(high[1])}
        if compressor:
            self.values |= {
                name + "compressor_thresh": level(compressor[0]),
                name + "compressor_ratio": round(compressor[1] * 100),
                name + "compressor_attack": compressor[2],
                name + "compressor_release": compressor[3],
                name + "compressor_gain": level(compressor[4]),
            }
        if gate:
            self.values |= {
                name + "gate_thresh": level(gate[0]),
                name + "gate_gain": level(gate[1]),
                name + "gate_attack": gate[2],
                name + "gate_release": gate[3],
            }

    def mains(self, **strip):
        self.strip("channelstrip_mains_", **strip)

    def auxes(self, *dbs):
        for aux, db in zip(AUXES, dbs):
            self.values[f"faderframe_aux{aux}_fader"] = fader(db)

    def reverb(self, db, decay, pre_delay=20, damping=50, diffusion=70):
        self.values |= {
            "reverbtab_level": fader(db),
            "reverbtab_decay_time": decay,
            "reverbtab_pre_delay": pre_delay,
            "reverbtab_damping": damping,
            "reverbtab_diffusion": diffusion,
        }


SPEECH = {"high_pass": 100, "low": (200, -3), "mid": (3000, 2, 1.0)}
SPEECH_COMPRESSOR = (-22, 3, 8, 150, 5)
SINGING = {"high_pass": 110, "mid": (2800, 2.5, 0.9), "high": (10000, 2), "compressor": (-20, 3.5, 6, 140, 5)}
LIMITER = (-4, 10, 1, 120, 0)


def band_on_stage():
    p = Factory("Band on Stage")
    p.channel(1, 0, trim=30, monitors={1: -4, 2: -10}, reverb=-12, **SINGING)
    p.channel(2, -4, pan=-25, trim=30, monitors={1: -12, 2: -6}, reverb=-14, **SINGING)
    p.channel(3, -3, trim=4, high_pass=40, low=(70, 4), mid=(380, -5, 1.4), high=(5000, 3),
              compressor=(-14, 4, 20, 90, 3), gate=(-32, -40, 1, 180))
    p.channel(4, -5, trim=2, high_pass=120, low=(200, 2), mid=(900, -3, 1.2), high=(6000, 3),
              compressor=(-16, 3, 12, 110, 3), gate=(-30, -30, 1, 140), reverb=-20)
    p.channel(5, -6, monitors={3: -8}, high_pass=40, low=(80, 2), mid=(700, 2, 0.8),
              compressor=(-18, 4, 25, 160, 4))
    p.channel(6, -9, pan=35, monitors={3: -14}, high_pass=90, mid=(2500, 2, 0.8))
    p.pair(7, -9, width=70, monitors={2: -14}, high_pass=60, mid=(400, -2, 1.0))
    p.auxes(-3, -3, -3)
    p.reverb(-8, decay=1800, pre_delay=35)
    p.mains(compressor=LIMITER)
    return p


def acoustic_duo():
    p = Factory("Acoustic Duo")
    p.channel(1, -1, pan=-15, trim=28, monitors={1: -6, 2: -10}, reverb=-9, **SINGING)
    p.channel(2, -1, pan=15, trim=28, monitors={1: -10, 2: -6}, reverb=-9, **SINGING)
    p.channel(3, -4, pan=-30, trim=6, monitors={1: -8}, high_pass=80, low=(180, -3), high=(9000, 3), reverb=-14)
    p.channel(4, -4, pan=30, trim=6, monitors={2: -8}, high_pass=80, low=(180, -3), high=(9000, 3), reverb=-14)
    p.auxes(-2, -2)
    p.reverb(-7, decay=2200, pre_delay=40, damping=40)
    return p


def solo_singer():
    p = Factory("Solo Singer with Looper")
    p.channel(1, 0, trim=30, monitors={1: 0, 2: -6}, reverb=-10, **SINGING)  # aux 1 feeds the looper
    p.channel(2, -3, trim=12, monitors={1: 0, 2: -8}, high_pass=80, mid=(250, -3, 1.2), reverb=-16)
    p.pair(3, -4, monitors={2: -8}, compressor=(-12, 2, 20, 200, 0))  # and comes back here
    p.auxes(0, -3)
    p.reverb(-8, decay=2000, pre_delay=30)
    p.mains(compressor=LIMITER)
    return p


def podcast_for_two():
    p = Factory("Podcast for Two", phones=-12, mains=-3)
    for n, pan in [(1, -10), (2, 10)]:
        p.channel(n, 0, pan=pan, trim=34, monitors={1: 0}, compressor=SPEECH_COMPRESSOR,
                  gate=(-45, -20, 3, 250), **SPEECH)
    p.pair(3, -18)  # jingles
    p.channel(5, -3, high_pass=150, high=(6000, -3))  # a caller, who hears the two through aux 1
    p.auxes(0)
    p.mains(compressor=(-8, 4, 5, 150, 2))
    return p


def stereo_playback():
    p = Factory("Stereo Playback", phones=-14)
    p.pair(7, 0)
    p.mains(low=(60, 1), high=(12000, 1))
    return p


def drum_kit():
    p = Factory("Drum Kit", phones=-8)
    p.channel(1, -2, trim=18, low=(60, 4), mid=(350, -6, 1.4), high=(4500, 4),
              compressor=(-14, 4, 25, 100, 3), gate=(-34, -50, 1, 200))  # bass drum
    p.channel(2, -3, trim=20, high_pass=90, low=(200, 2), mid=(700, -3, 1.5), high=(6500, 3),
              compressor=(-16, 4, 8, 120, 4), gate=(-32, -24, 1, 160), reverb=-14)  # snare
    p.channel(3, -12, pan=-35, high_pass=400, high=(10000, 2))  # hi-hat
    p.channel(4, -5, pan=-25, high_pass=70, low=(110, 3), mid=(450, -4, 1.3), gate=(-30, -30, 1, 300), reverb=-16)
    p.channel(5, -5, pan=30, high_pass=50, low=(80, 3), mid=(400, -4, 1.3), gate=(-30, -30, 1, 350), reverb=-16)
    p.channel(6, -10, compressor=(-24, 6, 3, 180, 6))  # room
    p.pair(7, -6, width=80, high_pass=250, high=(11000, 2), reverb=-22)  # overheads
    p.reverb(-9, decay=1200, pre_delay=15, damping=60)
    p.mains(compressor=(-10, 2, 30, 200, 2))
    return p


def reamp():
    p = Factory("Reamp", phones=-16, mains=-10)
    p.channel(8, -70, monitors={1: 0})  # the dry track, to the amplifier through aux 1 only
    p.channel(1, -3, pan=-20, trim=16, high_pass=80, gate=(-60, -20, 5, 300))  # close microphone
    p.channel(2, -9, pan=20, trim=24, high_pass=80)  # far microphone
    p.auxes(-6)
    return p


def choir_and_piano():
    p = Factory("Choir and Piano")
    p.pair(1, -3, width=60, trim=36, high_pass=130, low=(250, -2), high=(12000, 2), reverb=-8)
    p.pair(3, -6, width=80, high_pass=40, mid=(320, -2, 0.9), reverb=-14)
    p.channel(5, -2, high_pass=110, mid=(3000, 1.5, 0.9), reverb=-10, compressor=(-18, 2.5, 10, 200, 3))  # soloist
    p.reverb(-5, decay=3200, pre_delay=50, damping=35, diffusion=85)
    return p


def two_turntables():
    p = Factory("Two Turntables", phones=-6, mains=-2)
    for n in (3, 5):
        p.pair(n, -1, high_pass=40)
    p.channel(1, -3, trim=32, compressor=(-20, 5, 3, 120, 5), **SPEECH)  # announcements
    p.mains(low=(50, 1), compressor=LIMITER)
    return p


def keyboard_rig():
    p = Factory("Keyboard Rig")
    p.pair(1, -3, trim=4, reverb=-14, mid=(300, -2, 1.0))
    p.pair(3, -6, reverb=-10, high_pass=60)
    p.pair(5, -8, high=(9000, -2))
    p.channel(7, -4, high_pass=40, low=(90, 2), compressor=(-14, 3, 20, 120, 2))  # bass
    p.channel(8, -20, monitors={1: -4})  # click, loud in the player's ears
    p.auxes(-4)
    p.reverb(-9, decay=2400, pre_delay=25)
    return p


def conference_panel():
    p = Factory("Conference Panel", mains=-4)
    for n, pan in zip(range(1, 7), [-30, -20, -8, 8, 20, 30]):
        p.channel(n, -4, pan=pan, trim=32 if n <= 2 else 10, compressor=SPEECH_COMPRESSOR,
                  gate=(-42, -12, 5, 400), monitors={1: -3}, **SPEECH)
    p.pair(7, -12)  # film sound
    p.auxes(0)
    p.mains(mid=(2500, -2, 2.0), compressor=LIMITER)
    return p


def voice_over_booth():
    p = Factory("Voice-Over Booth", phones=-14, mains=-6)
    p.channel(1, 0, trim=36, high_pass=75, low=(160, 1.5), mid=(450, -2.5, 1.2), high=(11000, 2),
              compressor=(-24, 3, 5, 180, 6), gate=(-55, -18, 2, 300), monitors={1: -6})
    p.pair(7, -20)  # the picture's sound
    p.auxes(-3)
    return p


def factory_presets():
    return [make().values for make in (
        band_on_stage, acoustic_duo, solo_singer, podcast_for_two, stereo_playback, drum_kit, reamp,
        choir_and_piano, two_turntables, keyboard_rig, conference_panel, voice_over_booth)]


def files():
    sync = preset_defaults() | {"preset_name": "[CONNECTION SYNC]"}
    presets = [sync, *factory_presets()]
    names = [preset["preset_name"] for preset in presets]
    assert len(set(names)) == len(names)
    return {
        "jsum.json": {f"Preset_{number:03}": preset for number, preset in enumerate(presets)},
        "Blank.jsumpreset": preset_defaults(),
        "global.json": {"Global": global_defaults()},
        "Blank.jsumglobalmap": global_defaults(),
        "setlist.json": dict(zip(LETTERS, names[1:], strict=True)),
    }


def main(arguments):
    if arguments not in ([], ["--check"]):
        print("usage: make_presets.py [--check]", file=sys.stderr)
        return 64
    wrong = 0
    for name, document in files().items():
        path = PRESETS / name
        # As the program writes it, so that its first save changes nothing but values.
        text = json.dumps(document, indent=4, sort_keys=True, ensure_ascii=False) + "\n"
        if not arguments:
            path.write_text(text, encoding="utf-8", newline="\n")
        elif not path.is_file() or path.read_text(encoding="utf-8") != text:
            print(f"{name} is not what make_presets.py makes", file=sys.stderr)
            wrong += 1
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
