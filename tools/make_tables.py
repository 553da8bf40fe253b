#!/usr/bin/env python3
"""Makes resources/tables/*.txt.

make_tables.py          writes them
make_tables.py --check  complains of those that are not as they would be made

Every number is ended by a comma and has two decimals or none: the editor reads no other fractions.
"""

import sys
from decimal import ROUND_FLOOR, ROUND_HALF_UP, Decimal
from pathlib import Path

TABLES = Path(__file__).resolve().parent.parent / "resources" / "tables"

TRIM_DIAL_POSITIONS = 41
FREQUENCIES = 512  # the index is a 9-bit number

FADER_MIN, FADER_MAX = Decimal(3000), Decimal(10600)
LEVEL_MIN, LEVEL_MAX = Decimal(-70), Decimal(6)
LEVEL_STEP = Decimal("0.5")


def trim(lowest):
    return [Decimal(lowest + position) for position in range(TRIM_DIAL_POSITIONS)]


def logarithmic(lowest, highest):
    """Hz, from end to end of a frequency dial's range."""
    ratio = Decimal(highest) / lowest
    return [lowest * ratio ** (Decimal(i) / (FREQUENCIES - 1)) for i in range(FREQUENCIES)]


def fader_position(level):
    """The volume curve: dB to the position of a fader."""
    x = (level - LEVEL_MIN) / (LEVEL_MAX - LEVEL_MIN)
    position = x**3 * (FADER_MAX - FADER_MIN) + FADER_MIN
    return (position + Decimal("0.5")).to_integral_value(ROUND_FLOOR)


def phones():
    """Displayed dB and sent position, in steps of half a dB.

    At the bottom of the curve several steps share a position; only the first of them is kept, so
    that a received position has one entry.
    """
    displayed, sent = [], []
    level = LEVEL_MIN
    while level <= LEVEL_MAX:
        position = fader_position(level)
        if not sent or position > sent[-1]:
            displayed.append(level)
            sent.append(position)
        level += LEVEL_STEP
    return displayed, sent


def reals(values):
    hundredth = Decimal("0.01")
    return "".join(f"{value.quantize(hundredth, ROUND_HALF_UP)},\n" for value in values)


def integers(values):
    return "".join(f"{int(value)},\n" for value in values)


def tables():
    displayed, sent = phones()
    return {
        "trimTableNoPad.txt": reals(trim(0)),
        "trimTableWithPad.txt": reals(trim(-16)),
        "highPassFreqTable-9bit.txt": reals(logarithmic(40, 400)),
        "lowEQFreqTable-9bit.txt": reals(logarithmic(20, 400)),
        "midEQFreqTable-9bit.txt": reals(logarithmic(200, 6000)),
        "highEQFreqTable-9bit.txt": reals(logarithmic(3000, 20000)),
        "phonesDisplayTable.txt": reals(displayed),
        "phonesSysexSendTable.txt": integers(sent),
    }


def main(arguments):
    if arguments == ["--check"]:
        wrong = 0
        for name, text in tables().items():
            path = TABLES / name
            if not path.is_file() or path.read_bytes() != text.encode("ascii"):
                print(f"{name} is not what make_tables.py makes", file=sys.stderr)
                wrong += 1
        return 1 if wrong else 0
    if arguments:
        print("usage: make_tables.py [--check]", file=sys.stderr)
        return 64
    TABLES.mkdir(parents=True, exist_ok=True)
    for name, text in tables().items():
        (TABLES / name).write_text(text, encoding="ascii", newline="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
