#!/usr/bin/env python3
"""Independent computation of QX7311-family entry files, family checksums and fuse rows from
window settings, for the random configurations of tests/entryfile/RandomImage7311Test.cpp.

Usage: check_7311_random.py SETTINGS.json RESULTS.json

Each setting holds the window's fields as texts and values; this script works out the image
from the rules of the entry file and lays it out. It shares no code with the program."""
import json
import sys
from decimal import Decimal, ROUND_HALF_UP

CRLF = "\r\n"
CODES = ["Ref/2", "Ref/4", "Ref/8", "Ref", "CPLL", "CPLL/2", "CPLL/4", "CPLL/8", "UPLL",
         "UPLL/2", "UPLL/4", "UPLL/8", "SPLL", "SPLL/2", "SPLL/4", "SPLL/8", "SPLL/3", "SPLL/6",
         "SPLL/12", "Off", "SPLL/5", "SPLL/10", "SPLL/20", "SPLL/40", "SPLL/12", "SPLL/24",
         "SPLL/48", "SPLL/96", "SPLL/13", "SPLL/26", "SPLL/52", "SPLL/104"]
PARTS = {"QX7311": "qx7311s", "QX7311F": "qx7311fs", "QX7311I": "qx7311is",
         "QX7312": "qx7312s", "QX7312F": "qx7312fs", "QX7312I": "qx7312is"}


def val(text):
    s = text.strip()
    out = ""
    for ch in s:
        if ch.isdigit() or ch == "." or (ch in "+-" and not out):
            out += ch
        else:
            break
    try:
        return float(out)
    except ValueError:
        return 0.0


def pq(data):
    p = val(data.split("P:", 1)[1]) if "P:" in data else 0.0
    q = val(data.split("Q:", 1)[1]) if "Q:" in data else 0.0
    return int(p), int(q)


def code(text):
    for n, c in enumerate(CODES):
        if c.lower() == text.lower():
            return n
    if text.lower() == "ref/3":
        return 2
    raise ValueError(text)


def divisor(text):
    return int(text.split("/")[1]) if "/" in text else 1


def image(s):
    f = [0.0] * 24
    i = [0] * 69
    f[0] = val(s["ref"])
    div = divisor(s["cpu"])
    for n in range(8):
        v = val(s["cpll"][n])
        f[n + 1] = 0.0 if (n < 4 and s["suspend"] and s["susCPU"]) else v / div
        f[n + 16] = v + v
    f[9] = val(s["spll"])
    f[10] = val(s["upll"])
    for k in range(4):
        f[11 + k] = val(s["desiredClk"][k])
    f[15] = val(s["desiredClkF"])

    vco_all = max([val(d) for d in s["cpllData"]] + [val(s["spllData"]), val(s["upllData"])])
    i[0] = 0 if s["shutdown"] else 1
    i[1] = i[2] = 1 if s["volt5"] else 0
    i[3] = 0
    i[4] = 0 if (not s["volt5"] and vco_all >= 110) else 1
    sus = s["suspend"]
    i[5] = 1 if sus else 0
    off = lambda text: 1 if val(text) == 0 else 0
    listoff = lambda text: 1 if "off" in text.lower() else 0
    i[6] = s["susUPLL"] if sus else off(s["upll"])
    i[7] = s["susSPLL"] if sus else off(s["spll"])
    i[8] = s["susCPLL"] if sus else s["offCPLL"]
    i[9] = s["susXbuff"] if sus else listoff(s["xbuff"])
    i[10] = s["susClkF"] if sus else listoff(s["clkF"])
    i[11] = s["susCPU"] if sus else listoff(s["cpu"])
    for k in range(4):
        i[15 - k] = s["susClk"][k] if sus else listoff(s["clk"][k])
    i[16] = 1
    i[17] = 3 if max(2 * val(s["upll"]), val(s["upllData"])) < 60 else 2
    i[18], i[19] = (3, 3) if s["upll"].strip().lower() == "off" else pq(s["upllData"])
    i[20] = 3 if max(2 * val(s["spll"]), val(s["spllData"])) < 60 else 2
    i[21], i[22] = (3, 3) if s["spll"].strip().lower() == "off" else pq(s["spllData"])
    i[23] = s["clkFIndex"]
    i[24] = s["cpuIndex"]
    for k in range(4):
        i[28 - k] = code(s["clk"][k])
    for n in range(8):
        b = 29 + 5 * n
        is_off = s["cpll"][n].strip().lower() == "off"
        p, q = pq(s["cpllData"][n])
        i[b:b + 5] = [off(s["cpll"][n]), 1, 2, 3 if is_off else p, q]
    m = 3003 if s["device"] in ("QX7312", "QX7312I") and f[0] >= 25 else 3000
    part = PARTS[s["device"]] + ("c" if s["volt5"] else "l") + "-" + s["revision"]
    return f, i, m, part


def fixed(v):
    d = Decimal("%.15g" % v).quantize(Decimal("0.00001"), rounding=ROUND_HALF_UP)
    text = str(d)
    return " " * abs(len(text) - 9) + text


def pad(s, n):
    return s + " " * (n - len(s)) if n > len(s) else s


COMMENT_I = [
    "  shutdown mode (0 for shutdown, 1 for output disable)", "  OutTTL (0 for 3V, 1 for 5V)",
    "  InTTL  (0 for 3V, 1 for 5V)", "  VCO3V  (Always 0)", "  VCOReg (0 if 3V AND VCO >= 110)",
    "  suspend option (0 for kill, 1 for suspend)", "  suspend UPLL", "  suspend SPLL",
    "  suspend CPLL", "  suspend XBUF", " suspend Floppy", " suspend CPU", " suspend CLKD",
    " suspend CLKC", " suspend CLKB", " suspend CLKA",
    " CPU_DLY1 (high order bit for CPU slew control delay)", " UPLL index", " UPLL P", " UPLL Q",
    " SPLL index", " SPLL P", " SPLL Q", " FSEL (0=SPLL/4, 1=SPLL/6, 2=SPLL/8, 3=OFF)",
    " ESEL - CPLL post divide (0=CPLL/2, 1=CPLL/4, 2=CPLL/8, 3=OFF)", " CLKD", " CLKC",
    " CLKB", " CLKA"]
CPU = [" shutdown (1-bit)", " CPU_DLY0 (low order bit for slew control delay) (1-bit)",
       " index", " P", " Q"]
F_TEXTS = {9: "  Desired SPLL", 10: " Desired UPLL",
           11: " Desired CLKA   == CLKC 5140, if suspended, f=pullup f",
           12: " Desired CLKB   == CLKB 5140", 13: " Desired CLKC   == CLKA 5140",
           14: " Desired CLKD", 15: " Desired Floppy"}


def comment_f(n, details):
    if not details:
        return ""
    if n == 0:
        return "  Reference Frequency"
    if n <= 8:
        return "  Desired CPUCLK freq sel " + format(n - 1, "03b")
    if n in F_TEXTS:
        return F_TEXTS[n]
    return " Desired CPLL freq sel " + format(n - 16, "03b")


def entry_text(s, header, details, out_of_range):
    f, i, m, part = image(s)
    out = header + CRLF
    if out_of_range:
        out += "***ONE OR MORE DESIRED PLL(S) IS OUT OF DEFAULT RANGE***" + CRLF
    out += CRLF + "# s " + pad(part, 15) + CRLF + "# r d" + CRLF + "# m " + str(m) + CRLF + CRLF
    for n in range(24):
        out += "# f " + pad(fixed(f[n]), 10) + ";" + str(n) + comment_f(n, details) + CRLF
    out += CRLF
    for n in range(29):
        c = COMMENT_I[n] if details or n in (18, 19, 21, 22) else ""
        out += "# i " + pad(str(i[n]), 10) + ";" + str(n) + c + CRLF
    n = 29
    for sel in range(8):
        for b in range(5):
            if details:
                c = " CPU%d" % sel + CPU[b] + (CRLF if b == 4 else "")
            else:
                c = " CPU%d" % sel + CPU[b] if b in (3, 4) else ""
            out += "# i " + pad(str(i[n]), 10) + ";" + str(n) + c + CRLF
            n += 1
    return out


def sum_bits(v, w):
    return (format(v, "b") if v >= 1 else "0").rjust(w, "0")


def checksum(i):
    text = ""
    for n in range(6, 14):
        k = 5 * n - 1
        text += str(i[k]) + str(i[k + 1]) + sum_bits(i[k + 2], 2)
        text += sum_bits(i[k + 3] - 3, 8) + sum_bits(i[k + 4] - 2, 6)
    text += "".join(str(i[n]) for n in range(17))
    text += sum_bits(i[17], 2) + sum_bits(i[18] - 3, 10) + sum_bits(i[19] - 2, 7)
    text += sum_bits(i[20], 2) + sum_bits(i[21] - 3, 8) + sum_bits(i[22] - 2, 6)
    text += sum_bits(i[23], 2) + sum_bits(i[24], 2)
    text += "".join(sum_bits(i[n], 5) for n in range(25, 29))
    return sum(int(text[p:p + 4], 2) for p in range(0, len(text) - 1, 4))


def bits(v, w):
    # Binary display: a value below 2 is its own digit; the counters here are never negative.
    assert v >= 0, v
    return format(v, "b").rjust(w, "0")


def rows(i):
    out = []
    for n in range(8):
        b = 29 + 5 * n
        out.append(str(i[b]) + str(i[b + 1]) + bits(i[b + 2], 2) + bits(i[b + 3] - 3, 8) +
                   bits(i[b + 4] - 2, 6) + bits(n, 4))
    r = "".join(str(i[n]) for n in range(17)) + bits(i[17], 2)
    both = i[18] == 3 and i[19] == 3
    r += bits(i[18] if both else i[18] - 3, 10) + bits(i[19] if both else i[19] - 2, 7)
    r += bits(i[20], 2)
    both = i[21] == 3 and i[22] == 3
    r += bits(i[21] if both else i[21] - 3, 8) + bits(i[22] if both else i[22] - 2, 6)
    r += bits(i[23], 2) + bits(i[24], 2) + "".join(bits(i[n], 5) for n in range(25, 29))
    out.append(r + "1000")
    return out


def main():
    with open(sys.argv[1]) as fh:
        settings = json.load(fh)
    results = []
    for s in settings:
        _, i, _, _ = image(s)
        results.append({
            "entry": entry_text(s, s["header"], s["details"], s["outOfRange"]),
            "checksum": checksum(i),
            "rows": rows(i),
        })
    with open(sys.argv[2], "w") as fh:
        json.dump(results, fh)


if __name__ == "__main__":
    main()
