#!/usr/bin/env python3
"""Writes the expected ASCII configuration documents of the QX3350 document tests.

The window settings are those of the entry-file cases in make_3350_goldens.py; the test in
tests/reports/QX3350DocumentTest.cpp sets the window up the same way. This script lays the
document out line by line as the document, the chip drawing and the text table prescribe. It
shares no code with the program."""
import os
from decimal import Decimal, ROUND_HALF_UP

from make_3350_goldens import CASES, lead

CRLF = "\r\n"
ART = [r"|  |  /\  |~\ |\ | |  | /~~\ |",
       r"|  | /  \ |_/ | \| |--| |  | |",
       r"\  / |--| |\  |  | |  | |  | |",
       r" \/  |  | | \ |  | |  | \__/ |__ MARLIN WORKS"]
TITLE = "Pendulon(tm) 3.71"
BUILD = "Build #: 3.71.10"
# The family checksums of the cases, as make_3350_goldens.py works them out.
CHECKSUMS = {}
with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "entry",
                       "QX3350_checksums.txt")) as fh:
    for line in fh:
        name, value = line.split()
        CHECKSUMS[name] = value
# The text fields of the summary by case: comments, customer, FAE.
SUMMARY = {"QX3350_SC": ("Golden document", "Test customer", "Test engineer")}


def fixed5(v):
    """A number in the form ##0.00000, halves away from zero."""
    return str(Decimal(repr(v)).quantize(Decimal("0.00001"), rounding=ROUND_HALF_UP))


def general(v):
    return ("%.15g" % v) if v != int(v) else str(int(v))


def pins(oe):
    # Pins 7 and 8 are not connected; the drawing names them so.
    return ["8", "VDD", "XTALOUT", "XTALIN", "OE" if oe else "PD", "VSS", "CLKOUT", "NC", "NC"]


def draw_chip(device, pin, indent):
    w = max(14, int(Decimal(2 * (len(device) / 2 + 4)).quantize(Decimal(1),
                                                              rounding="ROUND_HALF_EVEN")))
    n = int(pin[0])
    rows = n // 2
    middle = n // 4 + 1 if rows % 2 == 1 else n // 4
    margin = max([indent] + [len(pin[k]) for k in range(1, rows + 1)])
    inner = w - 2

    def centred(text):
        left = (inner - len(text)) // 2
        return " " * left + text + " " * (inner - len(text) - left)

    out = " " * margin + "    " + "_" * w + "    " + CRLF
    for k in range(1, rows + 1):
        left, right = pin[k], pin[n + 1 - k]
        if k == 1:
            out += " " * margin + "  _| " + centred("\\__/") + " |_  " + CRLF
        else:
            out += " " * margin + "  _|" + " " * w + "|_  " + CRLF
        out += left.rjust(margin) + " |_| " + centred(device if k == middle else "") + " |_| "
        out += right + CRLF
    out += " " * margin + "   |" + "_" * w + "|   " + CRLF
    return out


def cell(text, width, numeric, centre):
    if numeric and text and (text[0].isdigit() or text[0] == "-"):
        text = fixed5(lead(text) if text[0] != "-" else -lead(text[1:]))
    text = text[:width]
    if centre:
        if len(text) < 2:
            return text + " " * (width - len(text))
        start = int(Decimal((width - len(text)) / 2 + 1).quantize(Decimal(1),
                                                                  rounding="ROUND_HALF_EVEN"))
        if start > width or start < 1:
            start = 1
        s = " " * (start - 1) + text
        return (s + " " * width)[:width]
    return (" " + text + " " * width)[:width]


def table(desired, source, actual_entry):
    widths = [9, 9, 14, 14, 9]
    numeric = [False, False, True, True, False]
    heavy = "=" + "".join("=" * w + "=" for w in widths) + CRLF
    out = "OUTPUT CLK" + CRLF + heavy
    head = ["", "", "Desired", "Actual", "PPM"]
    out += "|" + "".join(cell(head[c], widths[c], False, True) + "|" for c in range(5)) + CRLF
    out += heavy
    if lead(desired) <= 0:
        row = ["CLKOUT", "(" + source + ")", "Off", "--", "--"]
    else:
        ppm = actual_entry.split(":")[1]
        ppm_value = -lead(ppm[1:]) if ppm.startswith("-") else lead(ppm)
        row = ["CLKOUT", "(" + source + ")", desired, general(lead(actual_entry)),
               general(ppm_value)]
    out += "|" + "".join(cell(row[c], widths[c], numeric[c], False) + "|" for c in range(5))
    out += CRLF + heavy
    return out


def document(name, c):
    comments, customer, fae = SUMMARY.get(name, ("", "", ""))
    part = "qx3350" + ("s" if c["soic"] else "z")
    part += "i" if c["device"] == "QX3350I" else ("c" if c["volt5"] else "l")
    if c["revision"]:
        part += "-" + c["revision"]
    source = c["divisor"]
    divisor = int(source.split("/")[1]) if "/" in source else 1
    base = c["ref"] if source.startswith("R") else c["pll"]
    desired = fixed5(base / divisor) if base > 0 else "Off"
    pll_text = ("%.1f" % c["pll"]) if c["pll"] > 0 else "Off"
    out = "".join(row + CRLF for row in ART) + "=" * 50 + CRLF + CRLF
    out += "Modification Date: Jan/02/2002" + CRLF + "Comments: " + comments + CRLF
    out += "Customer: " + customer + CRLF + "FAE: " + fae + CRLF
    out += "P/N: " + part + CRLF
    out += draw_chip(c["device"], pins(c["oe"]), 5) + CRLF
    out += "Reference Input: " + ("%.5f" % c["ref"]) + " MHz"
    out += (" (Crystal)" if c["crystal"] else " (External)") + CRLF
    out += "Operating Voltage: " + ("5.0V" if c["volt5"] else "3.3V") + CRLF
    out += "PLL: Desired = " + pll_text + CRLF
    out += "PD/OE: " + ("OE" if c["oe"] else "PD") + CRLF
    out += "ASYNC/SYNC: " + ("SYNCH" if c["sync"] else "ASYNCH") + CRLF + CRLF
    out += table(desired, source, c["actual"]) + CRLF
    out += "Entry File: " + name + ".ent" + CRLF
    out += "CHECKSUM: " + CHECKSUMS[name] + CRLF
    out += "(Generated by " + TITLE + " - " + BUILD + ")"
    return out


here = os.path.dirname(os.path.abspath(__file__))
for name in ("QX3350_SC", "QX3350_TZ", "QX3350I_SC", "QX3350I_TZ"):
    with open(os.path.join(here, "ascii-" + name.lower().replace("_", "-") + ".txt"), "wb") as fh:
        fh.write(document(name, CASES[name]).encode("latin-1"))
