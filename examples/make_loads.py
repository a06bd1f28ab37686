#!/usr/bin/env python3
"""Makes NAME.s1p of every NAME.nec beside this script, with nec2c (Debian package nec2c)."""

import re
import subprocess
import tempfile
from pathlib import Path

REFERENCE = 50.0  # ohm


def impedances(deck):
    """Frequency in hertz and impedance at the feed, for each frequency of the deck."""
    with tempfile.TemporaryDirectory() as folder:
        output = Path(folder) / "output"
        subprocess.run(["nec2c", "-i", deck, "-o", output], check=True)
        text = output.read_text()
    number = r"[-+]?\d+\.\d+(?:E[-+]\d+)?"
    frequency = None
    for line in text.splitlines():
        if found := re.search(r"FREQUENCY\s*:\s*(" + number + r")\s*MHz", line, re.I):
            frequency = float(found[1]) * 1e6
        # Tag, segment, then volt, ampere, ohm, siemens (two numbers each) and watt.
        row = re.fullmatch(r"\s*\d+\s+\d+((?:\s*" + number + r"){9})\s*", line)
        if row and frequency:
            values = [float(x) for x in re.findall(number, row[1])]
            yield frequency, complex(values[4], values[5])
            frequency = None


def main():
    for deck in sorted(Path(__file__).parent.glob("*.nec")):
        title = deck.read_text().splitlines()[0].removeprefix("CM ")
        rows = [f"! {title}", f"! Made by nec2c from {deck.name}", f"# HZ S RI R {REFERENCE:g}"]
        for f, z in impedances(deck):
            s = (z - REFERENCE) / (z + REFERENCE)
            rows.append(f"{f:.0f} {s.real:.8f} {s.imag:.8f}")
        deck.with_suffix(".s1p").write_text("\n".join(rows) + "\n")


if __name__ == "__main__":
    main()
