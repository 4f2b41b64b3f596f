#!/usr/bin/env python3
"""Checks QX5140 entry files written by the program against the mapping worked out
independently in make_5140_goldens.py.

The first argument names a JSON file holding a list of {"fields": ..., "ent": path}: the
window's fields as pendulon-cli --json prints them, and the entry file saved in that state.
Prints a JSON list with one text per mismatch (empty when all agree)."""
import json
import os
import re
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import make_5140_goldens as m  # noqa: E402


def val(text):
    # The leading number of a text; "Off" and other words read as 0.
    found = re.match(r"\s*[-+]?(\d+\.?\d*|\.\d+)", text or "")
    return float(found.group(0)) if found else 0.0


PQ = m.pq


def pq(data):
    if "P:" not in data:
        return 0, 0
    return PQ(data)


def case_of(fields):
    def text(name):
        return fields[name].get("text", fields[name].get("caption", ""))

    def on(name):
        return bool(fields[name]["value"])

    return dict(
        five=on("opt5V"), select=on("optSelect"), shutdown=on("optShutdown"),
        ref=val(text("cboFRef")),
        a=(text("txtClkA(0)"), text("txtClkA(1)")), b=text("txtClkB"), c=text("txtClkC"),
        suspend=tuple(int(on(n)) for n in ("chkSuspendClockA", "chkSuspendClockB",
                                           "chkSuspendClockC")),
        loops=tuple(int(on(n)) for n in ("chkSuspendCPLL", "chkSuspendUPLL", "chkSuspendSPLL")),
        labels=(text("lblClkASrcDiv"), text("lblClkBSrcDiv"), text("lblClkCSrcDiv")),
        cpll=(text("cboCPLLData(0)"), text("cboCPLLData(1)")), spll=text("cboSPLLData"),
        upll=text("cboUPLLData"))


def main():
    items = json.load(open(sys.argv[1]))
    problems = []
    # Text values read by their leading number, counters of "Off".
    m.num = val
    m.pq = pq
    for n, item in enumerate(items):
        case = case_of(item["fields"])
        f, i = m.image_of(case)
        lines = open(item["ent"], encoding="latin-1").read().splitlines()
        got_f = [float(l[4:14]) for l in lines if l.startswith("# f ")]
        got_i = [int(l[4:14]) for l in lines if l.startswith("# i ")]
        got_b = [l for l in lines if l.startswith("# b ")]
        if len(got_f) != 24 or len(got_i) != 69:
            problems.append("%d: %d frequencies and %d integers in %s" %
                            (n, len(got_f), len(got_i), item["ent"]))
            continue
        if got_b != ["# b %d" % (2 if case["select"] else 1)]:
            problems.append("%d: %s" % (n, got_b))
        for k in range(24):
            if abs(got_f[k] - f[k]) > 0.000006:
                problems.append("%d: f(%d) is %s, expected %s" % (n, k, got_f[k], f[k]))
        for k in range(69):
            if got_i[k] != i[k]:
                problems.append("%d: i(%d) is %s, expected %s" % (n, k, got_i[k], i[k]))
    print(json.dumps(problems))


if __name__ == "__main__":
    main()
