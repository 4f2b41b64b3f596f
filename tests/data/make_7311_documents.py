#!/usr/bin/env python3
"""Writes the expected ASCII documents of the QX7311 family for tests/reports.

Each case lists by hand the window state that tests/reports/AsciiDocument7311Test.cpp sets up;
this script lays the document out from the rules of the configuration document: the fixed-pitch
table, the chip drawn in characters, the option lines and the two output tables. It shares no
code with the program. The banner art is the team's own and is taken from an existing golden
document. Run with --check to compare the drawing routine against the QX4860 golden document
first."""
import os
import sys
from decimal import Decimal, ROUND_HALF_UP

CRLF = "\r\n"
HERE = os.path.dirname(os.path.abspath(__file__))
TITLE = "Pendulon(tm) 3.71"
BUILD = "Build #: 3.71.10"


def read(name):
    with open(os.path.join(HERE, name), "rb") as fh:
        return fh.read().decode("latin-1")


ART = CRLF.join(read("ascii-4860-8pin.txt").split(CRLF)[:5]) + CRLF


# ---- numbers ----------------------------------------------------------------------------------

def general(v):
    """General number form: up to 15 significant digits, no trailing zeros."""
    if v == int(v) and abs(v) < 1e15:
        return str(int(v))
    s = "%.15g" % v
    if "e" in s:
        raise ValueError(s)
    return s


def fixed5(text):
    """The "##0.00000" pattern of a number text: 15 significant digits, half away from zero."""
    d = Decimal("%.15g" % leading_number(text))
    return str(d.quantize(Decimal("0.00001"), rounding=ROUND_HALF_UP))


def leading_number(text):
    s = text.strip()
    out = ""
    for ch in s:
        if ch.isdigit() or ch == "." or (ch == "-" and not out):
            out += ch
        else:
            break
    try:
        return float(out)
    except ValueError:
        return 0.0


# ---- text table ---------------------------------------------------------------------------------

def format_cell(text, width, ctype, fmt):
    if ctype == 1 and text and (text[0].isdigit() or text[0] == "-"):
        text = fixed5(text)
    text = text[:width]
    result = [" "] * width
    if fmt == 0:
        s = (" " + text)[:width]
        result[:len(s)] = s
    elif fmt == 2:
        if len(text) >= 2:
            start = round((width - len(text)) / 2 + 1)
            if start > width or start < 1:
                start = 1
            for k, ch in enumerate(text):
                if start - 1 + k < width:
                    result[start - 1 + k] = ch
        else:
            return text
    else:
        raise ValueError(fmt)
    return "".join(result)


def make_table(t):
    widths = t["widths"]
    heavy = "=" + "".join("=" * w + "=" for w in widths) + CRLF
    blank = "|" + "".join(" " * w + "|" for w in widths) + CRLF
    out = (t["title"] + CRLF if t["title"] else "") + heavy
    rows = t["rows"]
    for r in range(1, len(rows) + 1):
        line = list(blank)
        for c, w in enumerate(widths):
            fmt, ctype = (2, 0) if r <= t["heading"] else (0, t["types"][c])
            cell = format_cell(rows[r - 1][c], w, ctype, fmt)
            # Behind the cell's left edge: the (c+1)-th "|".
            count, at = -1, 0
            for i, ch in enumerate(line):
                if ch == "|":
                    count += 1
                if count == c:
                    at = i + 1
                    break
            for k, ch in enumerate(cell):
                if at + k < len(line):
                    line[at + k] = ch
        line = "".join(line)
        if r < t["heading"]:
            out += line
        elif r == t["heading"] or r == len(rows):
            out += line + heavy
        else:
            out += line + blank
    return out


# ---- chip drawing -------------------------------------------------------------------------------

def split_pin(text):
    if ";" not in text:
        return text, ""
    name, bar = text.split(";", 1)
    bar = bar[:len(name)]
    return name, ("" if bar.strip() == "" else bar)


def draw_chip(device, pins, indent):
    w = max(14, len(device) + 8)
    n = int(pins[0])
    rows = n // 2
    middle = n // 4 + 1 if rows % 2 == 1 else n // 4
    margin = max([indent] + [len(split_pin(pins[k])[0]) for k in range(1, rows + 1)])
    inner = w - 2

    def centred(text):
        left = (inner - len(text)) // 2
        return " " * left + text + " " * (inner - len(text) - left)

    out = " " * margin + "    " + "_" * w + "    " + CRLF
    for k in range(1, rows + 1):
        lname, lbar = split_pin(pins[k])
        rname, rbar = split_pin(pins[n + 1 - k])
        above = list(" " * margin)
        if lbar:
            start = margin - len(lname)
            above[start:start + len(lbar)] = lbar
        above = "".join(above)
        above += ("  _| " + centred("\\__/") + " |_  ") if k == 1 else ("  _|" + " " * w + "|_  ")
        out += above + rbar + CRLF
        out += lname.rjust(margin) + " |_| " + centred(device if k == middle else "") + \
            " |_| " + rname + CRLF
    out += " " * margin + "   |" + "_" * w + "|   " + CRLF
    return out


def pins_7311(option):
    s2 = "S2/SUSPEND;   _______" if "suspend" in option.lower() else "S2"
    oe = "SHUTDOWN;___________" if "shutdown" in option.lower() else "OE"
    return ["20", "32Xout", "32K", "CLKC", "VDD", "GND", "XTALIN", "XTALOUT", "XBUF", "CLKD",
            "CPU", "CLKB", "CLKA", "CLKF", "S0", "S1", "AVDD", s2, oe, "VBATT", "NC"]


def pins_7312(option):
    s2 = "S2/SUSPEND;   _______" if "suspend" in option.lower() else "S2"
    oe = "SHUTDOWN;___________" if "shutdown" in option.lower() else "OE"
    return ["16", "CLKC", "VDD", "GND", "XTALIN", "XTALOUT", "XBUF", "CLKD", "CPU", "CLKB",
            "CLKA", "GND", "S0", "S1", "AVDD", s2, oe]


# ---- the cases ------------------------------------------------------------------------------------

OFF = "Off"
CASES = {
    "ascii-7311-5v.txt": dict(
        device="QX7311", part="qx7311sc-01", volt="5.0V", ref="14.31818 MHz", mode="Select+oe",
        comments="Eight selections", file="cpu7311.ent", checksum="372",
        cpll=["66.6", "100", OFF, "75", "50", "133.3", OFF, "90"],
        cpll_actual=["66.59091  PPM:-136", "100.22726  PPM:2273", OFF, "75.00000  PPM:0",
                     "50.00000  PPM:0", "133.30000  PPM:0", OFF, "90.00000  PPM:0"],
        spll="48", upll=OFF, suspend=False, sus_cpll=False, sus_spll=False, sus_upll=False,
        off_cpll=False,
        # source, desired caption, actual entry, suspend box
        outputs=[("CPLL/2", " CPLL/2", "CPLL/2", 0),
                 ("SPLL/2", " 24.00000", "24.00401  PPM:167", 0),
                 ("Ref", " 14.31818", "14.31818", 0),
                 ("CPLL/4", " CPLL/4", "CPLL/4", 0),
                 (OFF, " Off", OFF, 0),
                 ("Ref", " 14.31818", "14.31818", 0),
                 ("SPLL/3", " 16.00000", "16.00267  PPM:167", 0)]),
    "ascii-7311f-3v.txt": dict(
        device="QX7311F", part="qx7311fsl", volt="3.3V", ref="25.00000 MHz",
        mode="Select+shutdown", comments="", file="f3v.ent", checksum="246",
        cpll=["70", "50", "40", "33.33333", OFF, OFF, OFF, OFF],
        cpll_actual=["70.00000  PPM:0", "50.00000  PPM:0", "40.00000  PPM:0", "33.33333  PPM:0",
                     OFF, OFF, OFF, OFF],
        spll=OFF, upll="24", suspend=False, sus_cpll=False, sus_spll=False, sus_upll=False,
        off_cpll=False,
        outputs=[("CPLL", " CPLL", "CPLL", 0),
                 ("UPLL", " 24.00000", "24.00000  PPM:0", 0),
                 ("UPLL/2", " 12.00000", "12.00000  PPM:0", 0),
                 ("Ref/8", " 3.12500", "3.12500", 0),
                 ("Ref/3", " 8.33333", "8.33333", 0),
                 (OFF, " Off", OFF, 0),
                 (OFF, " Off", OFF, 0)]),
    "ascii-7312-5v.txt": dict(
        device="QX7312", part="qx7312sc-03", volt="5.0V", ref="27.00000 MHz", mode="Select+oe",
        comments="No CLKF", file="board7312.ent", checksum="371",
        cpll=["100", "66.66", "50", "40", "33.33", "25", "20", "80"],
        cpll_actual=["100.00000  PPM:0", "66.60000  PPM:-900", "50.00000  PPM:0",
                     "40.00000  PPM:0", "33.30000  PPM:-900", "25.00000  PPM:0",
                     "20.00000  PPM:0", "80.00000  PPM:0"],
        spll="66", upll="48", suspend=False, sus_cpll=False, sus_spll=False, sus_upll=False,
        off_cpll=False,
        outputs=[("CPLL/4", " CPLL/4", "CPLL/4", 0),
                 ("SPLL/12", " 5.50000", "5.50000  PPM:0", 0),
                 ("SPLL/13", " 5.07692", "5.07692  PPM:0", 0),
                 ("UPLL/8", " 6.00000", "6.00000  PPM:0", 0),
                 ("SPLL/104", " 0.63462", "0.63462  PPM:0", 0),
                 ("Ref", " 27.00000", "27.00000", 0),
                 (OFF, " Off", OFF, 0)]),
    "ascii-7312i-suspend.txt": dict(
        device="QX7312I", part="qx7312isl-01", volt="3.3V", ref="14.31818 MHz",
        mode="SUSPEND+oe", comments="Suspend", file="sus.ent", checksum="281",
        cpll=[OFF, OFF, OFF, OFF, "60", "50", "40", "30"],
        cpll_actual=[OFF, OFF, OFF, OFF, "60.00000  PPM:0", "50.00000  PPM:0",
                     "40.00000  PPM:0", "30.00000  PPM:0"],
        spll="33.33333", upll="12", suspend=True, sus_cpll=True, sus_spll=True,
        sus_upll=False, off_cpll=False,
        outputs=[("CPLL", " CPLL", "CPLL", 1),
                 ("CPLL/2", " CPLL/2", "CPLL/2", 1),
                 ("SPLL/5", " 6.66667", "6.66667  PPM:0", 0),
                 ("Ref/2", " 7.15909", "7.15909", 1),
                 ("UPLL/4", " 3.00000", "3.00000  PPM:0", 0),
                 ("Ref", " 14.31818", "14.31818", 1),
                 (OFF, " Off", OFF, 0)]),
}
LABELS = ["CPU", "CLKA", "CLKB", "CLKC", "CLKD", "XBUF", "CLKF"]
KHZ = " 32.768 kHz"


def absolute(text):
    v = abs(leading_number(text))
    return OFF if v == 0 else general(v) + " MHz"


def ppm(entry):
    return general(leading_number(entry.split(":", 1)[1])) if ":" in entry else "0"


def divisor(source):
    return int(source.split("/")[1]) if "/" in source else 1


def tables(case):
    has32k = not case["device"].startswith("QX7312")
    rows = [["S2:S0", "Desired", "Actual", "PPM", "Option", "", "", "Desired", "Actual", "PPM",
             "Option"]]
    for n in range(8):
        r = [format(n, "03b")]
        if leading_number(case["cpll"][n]) == 0:
            r += [OFF, "--", "--"]
        else:
            a = case["cpll_actual"][n]
            r += [case["cpll"][n], general(leading_number(a)), ppm(a)]
        suspended = n < 4 and case["suspend"] and case["sus_cpll"]
        r += ["Suspend" if suspended else "--", "", "", "", "", "", ""]
        rows.append(r)
    for k, (source, desired, actual, sus) in enumerate(case["outputs"]):
        r = rows[k + 1]
        r[6] = LABELS[k]
        if "off" in source.lower():
            r[7:10] = [OFF, "--", "--"]
        elif source[0] == "C":
            r[7:10] = [desired.strip(), "C", "--"]
        else:
            r[7:10] = [desired.strip(), general(leading_number(actual)), ppm(actual)]
        if k < 6:
            r[10] = "Suspend" if case["suspend"] and sus else "--"
    # The QX7312 models have no 32k output at all.
    rows[8][6:10] = ["32k"] + ([KHZ, KHZ, "0"] if has32k else ["n/a", "n/a", "--"])
    first = dict(title="CPLL FREQUENCIES".ljust(50) + " OUTPUT CLOCKS", heading=1,
                 widths=[7, 11, 11, 7, 8, 0, 8, 20, 12, 7, 10],
                 types=[0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0], rows=rows)

    rows2 = [["S2:S0", "CPU", "CLKA", "CLKB", "CLKC", "CLKD", "XBUF", "CLKF", "32k"]]
    for n in range(8):
        suspended = n < 4 and case["suspend"] and case["sus_cpll"]
        r = [format(n, "03b") + (" (Suspend)" if suspended else "")]
        cpll = leading_number(case["cpll_actual"][n])
        for source, _, _, _ in case["outputs"]:
            if "off" in source.lower():
                r.append(OFF)
            elif source[0] == "C":
                off = leading_number(case["cpll"][n]) == 0 or cpll == 0
                r.append(OFF if off else general(cpll / divisor(source)))
            else:
                r.append(source[0])
        r.append(KHZ if has32k else "n/a")
        rows2.append(r)
    second = dict(title="ACTUAL OUTPUT FREQUENCIES", heading=1, widths=[7] + [12] * 8,
                  types=[0] + [1] * 8, rows=rows2)
    return make_table(first) + CRLF + make_table(second)


def document(case):
    out = ART + CRLF
    out += ("Modification Date: Jan/02/2002" + CRLF + "Comments: " + case["comments"] + CRLF +
            "Customer: Test customer" + CRLF + "FAE: Test engineer" + CRLF)
    out += "P/N: " + case["part"] + CRLF
    pins = pins_7312(case["mode"]) if case["device"].startswith("QX7312") else \
        pins_7311(case["mode"])
    out += draw_chip(case["device"], pins, 5) + CRLF
    out += "Reference Input: " + case["ref"] + CRLF
    out += "Operating Voltage: " + case["volt"] + CRLF
    cpll = OFF if case["off_cpll"] else ("Suspend" if case["sus_cpll"] else "--")
    out += "CPLL: " + cpll + CRLF
    out += "SPLL: Desired = " + absolute(case["spll"]) + (", Suspend" if case["sus_spll"] else "")
    out += CRLF
    out += "UPLL: Desired = " + absolute(case["upll"]) + (", Suspend" if case["sus_upll"] else "")
    out += CRLF + CRLF
    out += tables(case) + CRLF
    out += "Entry File: " + case["file"] + CRLF
    out += "CHECKSUM: " + case["checksum"] + CRLF
    out += "(Generated by " + TITLE + " - " + BUILD + ")"
    return out


def check_drawing():
    """The drawing routine against the QX4860 golden document, which was worked out by hand."""
    golden = read("ascii-4860-14pin.txt")
    pins = ["14", "FS1", "FS2", "FS3", "AGND", "GND", "PD;__", "XTALIN", "XTALOUT", "OER", "OEA",
            "CLKA", "VDD", "REFCLK", "FS0"]
    drawing = draw_chip("QX4860", pins, 5)
    assert drawing in golden, drawing
    golden8 = read("ascii-4860-8pin.txt")
    pins8 = ["8", "FS0", "GND", "XTALIN", "XTALOUT", "FS1", "CLKA", "VDD", "REFCLK"]
    assert draw_chip("QX4860F", pins8, 5) in golden8
    print("drawing matches the QX4860 golden documents")


if __name__ == "__main__":
    check_drawing()
    if "--check" in sys.argv:
        sys.exit(0)
    for name, case in CASES.items():
        with open(os.path.join(HERE, name), "wb") as fh:
            fh.write(document(case).encode("latin-1"))
        print("wrote", name)
