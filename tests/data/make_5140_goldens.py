#!/usr/bin/env python3
"""Writes the expected QX5140 entry files of the QX5140 entry-file tests.

Each case starts from the state of the QX5140 window that tests/entryfile/EntryFile5140Test.cpp
sets up and checks first: the desired frequencies, the options, the case on show (the source
labels) and the loops' selected data entries. From that state this script works out the image
by the QX5140's mapping rules, written here from the description of the format, and lays it out
with the QX7311 family's file layout (make_7311_goldens.py, which shares no code with the
program)."""
import os

import make_7311_goldens as g

CRLF = g.CRLF

# Fuse codes of the source texts in the code table's dividers.
CODES = ["Ref/2", "Ref/4", "Ref/8", "Ref", "CPLL", "CPLL/2", "CPLL/4", "CPLL/8", "UPLL",
         "UPLL/2", "UPLL/4", "UPLL/8", "SPLL", "SPLL/2", "SPLL/4", "SPLL/8", "SPLL/3", "SPLL/6",
         "SPLL/12", "Off", "SPLL/5", "SPLL/10", "SPLL/20", "SPLL/40", "SPLL/12", "SPLL/24",
         "SPLL/48", "SPLL/96", "SPLL/13", "SPLL/26", "SPLL/52", "SPLL/104"]


def code(text):
    """The fuse code of a source text as the window shows it. A loop's divider is halved
    first: the QX5140's loops run at twice their target, and the code table counts the
    divisions of the loop's own clock. An empty text is an output left off."""
    text = text.strip() or "Off"
    if text[0].upper() in "CSU":
        front, _, behind = text.partition("/")
        d = int(behind) if behind else 0
        if d == 2:
            text = front
        elif d != 0:
            text = front + "/" + str(d // 2)
        else:
            text = ""
    return [c.lower() for c in CODES].index(text.lower())


def vco(data):
    return float(data.split()[0])


def pq(data):
    p = int(data.split("P:")[1].split()[0])
    q = int(data.split("Q:")[1].split()[0])
    return p, q


def divisor(text):
    return int(text.split("/")[1]) if "/" in text else 1


def num(text):
    return 0.0 if text == "Off" else float(text)


# A case: the voltage, pin 8, the reference, the desired texts (CLKA in both select states),
# the suspend checks of CLKA, CLKB, CLKC and of CPLL, UPLL, SPLL, the source labels of CLKA,
# CLKB, CLKC, and the selected entries of the loops' data lists.
CASES = {
    # Output Enable at 5 V from 20 MHz: 50, 25 and 12.5 MHz, the first case, all on UPLL.
    "QX5140_OE": dict(
        five=True, select=False, shutdown=False, ref=20.0,
        a=("50.0", "Off"), b="25.0", c="12.5", suspend=(0, 0, 0), loops=(0, 0, 0),
        labels=("UPLL/2", "UPLL/4", "UPLL/8"),
        cpll=("0.000000 P:5 Q:2", "0.000000 P:5 Q:2"), spll="0.000000 P:5 Q:2",
        upll="100.000000 P:10 Q:4"),
    # Select/Suspend at 3.3 V from 20 MHz: CLKA 50 and 40 MHz on CPLL/2, CLKB 25 suspended with
    # its UPLL ("Outputs && PLLs"), CLKC 12.5.
    "QX5140_Select": dict(
        five=False, select=True, shutdown=False, ref=20.0,
        a=("50.0", "40.0"), b="25.0", c="12.5", suspend=(0, 1, 0), loops=(0, 1, 0),
        labels=("CPLL/2", "UPLL/4", "UPLL/8"),
        cpll=("100.000000 P:10 Q:4", "80.000000 P:6 Q:3"), spll="0.000000 P:5 Q:2",
        upll="100.000000 P:10 Q:4"),
}


def desired_cpll(case, state):
    if not case["select"]:
        return 0.0
    la, lb, lc = case["labels"]
    if la[0] == "C":
        return num(case["a"][state]) * divisor(la)
    if lb[0] == "C":
        return 0.0 if state == 0 and case["suspend"][1] else num(case["b"]) * divisor(lb)
    if lc[0] == "C":
        return 0.0 if state == 0 and case["suspend"][2] else num(case["c"]) * divisor(lc)
    return 0.0


def image_of(case):
    f = [0.0] * 24
    i = [0] * 69
    c0, c1 = vco(case["cpll"][0]), vco(case["cpll"][1])
    s, u = vco(case["spll"]), vco(case["upll"])
    f[0] = case["ref"]
    f[9], f[10] = s, u
    f[11], f[12] = num(case["c"]), num(case["b"])
    f[13] = num(case["a"][1] if case["suspend"][0] else case["a"][0])
    f[16], f[20] = desired_cpll(case, 0), desired_cpll(case, 1)
    if case["select"]:
        i[0] = 1
        i[5] = 1 if any(case["suspend"]) else 0
    else:
        i[0] = 0 if case["shutdown"] else 1
        i[5] = 0
    if i[5] == 1:
        i[10] = 1
        i[13], i[14], i[15] = case["suspend"]
        i[8], i[6], i[7] = case["loops"]  # CPLL, UPLL, SPLL
    else:
        i[10] = 0
        a_off = (num(case["a"][0]) == 0 and num(case["a"][1]) == 0) if case["select"] \
            else num(case["a"][0]) == 0
        i[13], i[14], i[15] = int(a_off), int(num(case["b"]) == 0), int(num(case["c"]) == 0)
        i[8] = int(c0 == 0 and c1 == 0)
        i[7] = int(s == 0)
        i[6] = int(u == 0)
    five = case["five"]
    largest = max(c0, c1, s, u)
    i[1] = i[2] = 1 if five else 0
    i[3] = 0
    i[4] = 0 if (not five and largest >= 110) else 1
    i[16] = 1
    i[17] = 3 if u < 60 else 2
    i[20] = 3 if s < 60 else 2
    i[9], i[11], i[12] = 0, 0, 1
    i[18], i[19] = pq(case["upll"])
    i[21], i[22] = pq(case["spll"])
    i[23] = i[24] = 3
    i[25] = code("Off")
    i[26], i[27], i[28] = (code(x) for x in case["labels"])
    # Every CPU block off, with the counters of the empty image; the CPLL's states on top.
    for n in range(8):
        i[29 + 5 * n: 34 + 5 * n] = [1, 1, 2, 0, 0]
    if c0 != 0:
        i[29:34] = [0, 1, 2] + list(pq(case["cpll"][0]))
    if c1 != 0:
        i[49:54] = [0, 1, 2] + list(pq(case["cpll"][1]))
    return f, i


def as_7311_case(case):
    f, i = image_of(case)
    return dict(device="QX5140", out=False, f=f, config=i[:29],
                blocks=[i[29 + 5 * n: 34 + 5 * n] for n in range(8)],
                part=("qx5140sc" if case["five"] else "qx5140sl") + "-01",
                b=2 if case["select"] else 1, m=3004 if case["ref"] >= 25 else 3002)


def entry_text(case, details):
    c = as_7311_case(case)
    text = g.entry_text(c, details)
    # The QX5140 carries its bonding option between "# r" and "# m".
    return text.replace("# r d" + CRLF, "# r d" + CRLF + "# b " + str(c["b"]) + CRLF, 1)


if __name__ == "__main__":
    here = os.path.join(os.path.dirname(os.path.abspath(__file__)), "entry")
    for name, case in CASES.items():
        for details, suffix in ((True, "details"), (False, "lean")):
            with open(os.path.join(here, name + "_" + suffix + ".ent"), "wb") as fh:
                fh.write(entry_text(case, details).encode("latin-1"))
        # No vector: a CPU block that is off holds P 0, which its field (P less 3) cannot take,
        # and the QX5140 offers no vector anyway.
        print(name, "family checksum", g.family_checksum(g.image(as_7311_case(case))))
