#!/usr/bin/env python3
"""Independent computation of the QX5140 cases, written from the device's description of the
search, for checking the program from outside.

Reads a JSON list of configurations from the first argument (or standard input) and prints a
JSON list of results, one per configuration: {"sources": [[4 texts], ...], "fault": bool}.

A configuration: {"reference": 14.31818, "ppm": 1000, "desired": [a0, a1, b, c],
"private": [a, b, c], "select": false, "voltage": 5.0}.
"""
import json
import sys

NO_SOLUTION = 5000000


def round_even(x):
    return int(round(x))


def ppm(actual, desired):
    if desired == 0:
        return NO_SOLUTION
    raw = (actual / desired - 1.0) * 1000000.0
    if raw != raw or abs(raw) > 2.0 ** 31:
        return NO_SOLUTION
    r = round_even(raw)
    if r > 2147483647 or r < -2147483648 or abs(r) > NO_SOLUTION:
        return NO_SOLUTION
    return r


class Loop:
    def __init__(self, min_p, max_p, min_q, max_q, vco_min, vco_max):
        self.min_p, self.max_p, self.min_q, self.max_q = min_p, max_p, min_q, max_q
        self.vco_min, self.vco_max = vco_min, vco_max
        self.ref = 0.0
        self.target = 0.0

    def best_ppm(self):
        """The closest solution of either sign: its signed error, or 5000000."""
        best = NO_SOLUTION
        t = self.target
        if t * 1.01 < self.vco_min or t * 0.99 > self.vco_max:
            return best
        r = t / 2.0 / self.ref
        for q in range(round_even(self.min_q + 1), round_even(self.max_q) + 1):
            p0 = round_even(r * q)
            for p in (p0 - 1, p0, p0 + 1):
                if p < self.min_p or p > self.max_p:
                    continue
                a = p / q
                e = ppm(a, r)
                vco = 2.0 * self.ref * a
                if vco < self.vco_min or vco > self.vco_max:
                    continue
                if abs(e) < abs(best):
                    best = e
        return best


def maximum_q(reference, default):
    r = round_even(reference / 0.15)
    return default if r >= default else r


def cpll_q_max(fpll, fref, qmax, freqs):
    d = 0.0
    for f in freqs:
        if f > 0 and abs(f - fpll) > d:
            d = abs(f - fpll)
    if 60.0 * fref / 14.31818 > d:
        return round_even(qmax)
    q = round_even(3927.0 * fref / 14.31818 / d)
    if q < 65 and 40.0 * fref / 14.31818 <= fpll <= 68.0 * fref / 14.31818:
        q = 65
    return q if q <= qmax else round_even(qmax)


REF_DIV = [1, 2, 4, 8]
CPLL_DIV = [2, 4, 8, 16]
UPLL_DIV = [2, 4, 8, 16]
SPLL_DIV = sorted({b * m for b in (1, 3, 5, 12, 13) for m in (2, 4, 8, 16)})
assert SPLL_DIV == [2, 4, 6, 8, 10, 12, 16, 20, 24, 26, 40, 48, 52, 80, 96, 104, 192, 208]


def common_vco(f1, f2, f3, divs, vmax, vmin, maxppm):
    """(vco, d1, d2, d3) of the shared loop; vco 0 when none."""
    best = NO_SOLUTION
    result = (0.0, 0, 0, 0)
    if not (f1 > 0) or not (f2 > 0):
        return result
    usable = divs[:-1]
    for d1 in reversed(usable):
        for d2 in reversed(usable):
            for d3 in reversed(usable):
                v1, v2, v3 = d1 * f1, d2 * f2, d3 * f3
                v = max(v1, v2, v3)
                if v > vmax or v < vmin:
                    continue
                e12 = abs(ppm(v1, v2))
                if not (f3 > 0):
                    if e12 <= maxppm and e12 < best:
                        best, result = e12, (v, d1, d2, 0)
                else:
                    e13, e23 = abs(ppm(v1, v3)), abs(ppm(v2, v3))
                    if max(e12, e13, e23) <= maxppm and e12 + e13 + e23 < best:
                        best, result = e12 + e13 + e23, (v, d1, d2, d3)
                if best == 0:
                    return result
    return result


class Search:
    def __init__(self, cfg):
        self.cfg = cfg
        v3 = cfg["voltage"] == 3.3
        top = 80.0 if v3 else 100.0
        vmin, vmax = 2 * 8.0, 2 * top
        ref = cfg["reference"]
        self.ref = ref
        self.sensitivity = cfg["ppm"]
        self.maxppm = round_even(cfg["ppm"])
        self.select = cfg["select"]
        self.d = list(cfg["desired"])
        self.cpll_limit_q = 65
        self.spll = Loop(5, 258, 2, maximum_q(ref, 65), vmin, vmax)
        self.upll = Loop(5, 1026, 2, maximum_q(ref, 129), vmin, vmax)
        self.cpll = Loop(5, 258, 2, maximum_q(ref, 65), vmin, vmax)
        for loop in (self.spll, self.upll, self.cpll):
            loop.ref = ref
        self.src_ppm = [0, 0, 0, 0]
        self.rows = [["", "", "", ""]]
        self.w = 0
        self.fault = False

    # ---- single sources
    def ref_div(self, desired):
        best_ppm, best = NO_SOLUTION, 0
        for d in REF_DIV:
            p = ppm(self.ref / d, desired)
            if abs(p) < abs(best_ppm):
                best_ppm = p
                if self.sensitivity > abs(p):
                    best = d
        if best == 0:
            return ""
        return "Ref" if best == 1 else "Ref/%d" % best

    def loop_div(self, loop, divs, name, desired):
        best_ppm, best = NO_SOLUTION, 0
        for d in reversed(divs):
            loop.target = d * desired
            e = loop.best_ppm()
            if abs(e) < abs(best_ppm):
                best_ppm, best = e, d
        return "" if best == 0 else "%s/%d" % (name, best)

    def spll_div(self, f):
        return self.loop_div(self.spll, SPLL_DIV, "SPLL", f)

    def upll_div(self, f):
        return self.loop_div(self.upll, UPLL_DIV, "UPLL", f)

    def cpll_div(self, f, f2):
        best_sum, best, p1, p2 = NO_SOLUTION, 0, 0, 0
        for d in reversed(CPLL_DIV):
            products = [d * f, d * f2]
            for which, freq in ((0, f), (1, f2)):
                if freq > 0:
                    self.cpll.target = products[which]
                    if self.select:
                        self.cpll.max_q = cpll_q_max(self.cpll.target, self.ref, self.cpll_limit_q,
                                                     products)
                    else:
                        self.cpll.max_q = self.cpll_limit_q
                    e = self.cpll.best_ppm()
                    if which == 0:
                        p1 = e
                    else:
                        p2 = e
            if f != 0 or f2 != 0:
                if abs(p1) + abs(p2) < best_sum:
                    best_sum, best = abs(p1) + abs(p2), d
        return "" if best == 0 else "CPLL/%d" % best

    def next_free(self, used, row, col):
        """Returns the used letters with the loop tried added."""
        f = self.d[col]
        if "U" not in used:
            self.rows[row][col] = self.upll_div(f)
            return used + "U"
        if "S" not in used:
            self.rows[row][col] = self.spll_div(f)
            return used + "S"
        if "C" not in used:
            self.rows[row][col] = self.cpll_div(f, 0)
            return used + "C"
        return used

    @staticmethod
    def dedupe(rows):
        out = []
        for r in rows:
            if r not in out:
                out.append(r)
        return out

    # ---- the search
    def run(self):
        d = self.d
        if d == [0, 0, 0, 0]:
            return
        self.share()
        if not self.select:
            self.complete()
        else:
            self.complete_select()

    def share(self):
        priv = self.cfg["private"]
        d = self.d
        groups = [
            # columns, frequencies, ref-row Off cells, loop-row Off cells, counted, privates
            ([0, 2, 3], [d[0], d[2], d[3]], [1], [1], [0, 2, 3], [0, 1, 2]),
            ([0, 2], [d[0], d[2], 0], [1], [1], [0, 2, 3], [0, 1]),
            ([0, 3], [d[0], d[3], 0], [1, 2], [1], [0, 3], [0, 2]),
            ([2, 3], [d[2], d[3], 0], [], [], [2, 3], [1, 2]),
        ]
        for cols, freqs, ref_off, loop_off, counted, privs in groups:
            if any(priv[p] for p in privs):
                continue
            attempts = ["R", "U", "C", "S"]
            for attempt in attempts:
                row = self.rows[self.w]
                if attempt == "R":
                    for c in cols:
                        row[c] = self.ref_div(d[c])
                    for c in ref_off:
                        row[c] = "Off"
                else:
                    if attempt == "C" and cols == [2, 3] and self.select:
                        continue
                    loop, divs, name = {"U": (self.upll, UPLL_DIV, "UPLL"),
                                        "C": (self.cpll, CPLL_DIV, "CPLL"),
                                        "S": (self.spll, SPLL_DIV, "SPLL")}[attempt]
                    vco, m1, m2, m3 = common_vco(freqs[0], freqs[1], freqs[2], divs,
                                                 loop.vco_max, loop.vco_min, self.maxppm)
                    if vco > 0:
                        for c in loop_off:
                            row[c] = "Off"
                        for c, m in zip(cols, (m1, m2, m3)):
                            if m > 0:
                                row[c] = "%s/%d" % (name, m)
                if sum(1 for c in counted if row[c] != "") < 2:
                    self.rows[self.w] = ["", "", "", ""]
                else:
                    self.rows.append(["", "", "", ""])
                    self.w = len(self.rows) - 1
        if len(self.rows) > 1 and self.rows[self.w] == ["", "", "", ""]:
            self.rows.pop()
            self.w = len(self.rows) - 1

    def complete(self):
        rows = self.rows
        if len(rows) > 1:
            last = len(rows) - 1
            i = 0
            while i <= last and i < len(rows):
                empty = [c for c in (0, 2, 3) if rows[i][c] == ""]
                if not empty:
                    i += 1
                    continue
                col = empty[0]
                used = [rows[i][c] for c in (0, 2, 3) if rows[i][c] != ""][0][0]
                self.w = i
                if "R" not in used:
                    rows[i][col] = self.ref_div(self.d[col])
                if rows[self.w][col] == "":
                    for _ in range(4):
                        used = self.next_free(used, self.w, col)
                        if rows[self.w][col] != "":
                            copy = list(rows[i])
                            copy[col] = ""
                            rows.append(copy)
                            self.w = len(rows) - 1
                    if rows[self.w][col] == "":
                        if len(rows) > 1:
                            rows.pop()
                            if i >= len(rows) - 1:
                                break
                        else:
                            rows[self.w][col] = "Off"
                i += 1
            return
        r = rows[0]
        if any(r[c] != "" for c in (0, 2, 3)):
            if all(r[c] != "" for c in (0, 2, 3)):
                return
            col = 0 if r[0] == "" else (2 if r[2] == "" else 3)
            used = [r[c] for c in (0, 2, 3) if r[c] != ""][0][0]
            self.w = 0
            if "R" not in used:
                r[col] = self.ref_div(self.d[col])
            if rows[0][col] == "":
                for _ in range(3):
                    used = self.next_free(used, self.w, col)
                    if rows[self.w][col] != "":
                        copy = list(rows[self.w])
                        copy[col] = ""
                        rows.append(copy)
                        self.w = len(rows) - 1
                if rows[self.w][col] == "":
                    if len(rows) > 1:
                        rows.pop()
                        self.w -= 1
                    else:
                        rows[self.w][col] = "Off"
            return
        r[1] = "Off"
        for c in (0, 2, 3):
            r[c] = self.ref_div(self.d[c])
        if all(r[c] == "" for c in (0, 2, 3)):
            self.enumerate()
            rows = self.rows
        self.one_reference()

    def enumerate(self):
        rows = self.rows
        for j in (0, 2, 3):
            used = ""
            self.w = len(rows) - 1
            for _ in range(3):
                used = self.next_free(used, self.w, j)
                if rows[self.w][j] == "":
                    continue
                second = {0: 2, 2: 3, 3: 0}[j]
                third = {(0, 2): 3, (2, 0): 3, (2, 3): 0, (3, 2): 0}.get((j, second), 2)
                t1 = used[-1]
                got_second = False
                for inner in range(2):
                    t2 = used[-1]
                    t1_new = self.next_free(t1, self.w, second)
                    if len(t1_new) > len(t1):
                        t2 += t1_new[-1]
                    t1 = t1_new
                    if rows[self.w][second] == "":
                        continue
                    got_second = True
                    self.next_free(t2, self.w, third)
                    if rows[self.w][third] != "":
                        copy = list(rows[self.w])
                        copy[second] = ""
                        copy[third] = ""
                        rows.append(copy)
                    else:
                        for c in (0, 2, 3):
                            if rows[self.w][c] == "":
                                rows[self.w][c] = "Off"
                        new = ["", rows[self.w][1], "", ""]
                        if inner == 0:
                            new[j] = rows[self.w][j]
                        rows.append(new)
                    self.w = len(rows) - 1
                if not got_second:
                    for c in (0, 2, 3):
                        if rows[self.w][c] == "":
                            rows[self.w][c] = "Off"
                    new = ["", rows[self.w][1], "", ""]
                    new[j] = rows[self.w][j]
                    rows.append(new)
                    self.w = len(rows) - 1
        if len(rows) == 1:
            for c in (0, 2, 3):
                rows[self.w][c] = "Off"
        elif any(rows[self.w][c] == "" for c in (0, 2, 3)):
            rows.pop()
            self.w = len(rows) - 1
        counts = [sum(1 for x in r if x != "Off") for r in rows]
        top = max(counts)
        if top > 0:
            rows[:] = [r for r, n in zip(rows, counts) if n == top]
        rows[:] = self.dedupe(rows)

    def one_reference(self):
        rows = self.rows
        r0 = rows[0]
        go_on = r0[2][:1] == "R" or r0[3][:1] == "R" or (len(rows) == 1 and r0[0][:1] == "R")
        if not go_on:
            return
        used = ""
        self.w = len(rows) - 1
        if rows[self.w][0] != "":
            first, second = 2, 3
        else:
            first, second = 0, (3 if rows[self.w][2] != "" else 2)
        for _ in range(3):
            used = self.next_free(used, self.w, first)
            if rows[self.w][first] == "":
                rows[self.w][first] = "Off"
            t = used[-1]
            for inner in range(2):
                t = self.next_free(t, self.w, second)
                if rows[self.w][second] == "":
                    rows[self.w][second] = "Off"
                copy = list(rows[self.w])
                copy[second] = ""
                if inner == 1:
                    copy[first] = ""
                rows.append(copy)
                self.w = len(rows) - 1
        rows.pop()
        rows[:] = self.dedupe(rows)

    def complete_select(self):
        rows = self.rows
        d = self.d
        a = "Off" if d[0] == 0 else (self.cpll_div(d[0], d[1]) or "Off")
        a1 = "Off" if d[1] == 0 else (self.cpll_div(d[0], d[1]) or "Off")
        rows[0][0], rows[0][1] = a, a1
        if len(rows) > 1:
            for r in rows:
                r[0], r[1] = a, a1
            return
        b, c = rows[0][2] != "", rows[0][3] != ""
        if b != c:
            self.fault = True
            return
        if b and c:
            return
        rows[0][2] = self.ref_div(d[2])
        rows[0][3] = self.ref_div(d[3])
        b_ref, c_ref = rows[0][2][:1] == "R", rows[0][3][:1] == "R"
        if not b_ref and not c_ref:
            self.w = 0
            for finder in (self.upll_div, self.spll_div):
                rows[self.w][2] = finder(d[2])
                if rows[self.w][2] != "":
                    base = rows[self.w]
                    rows.append([base[0], base[1], base[2], ""])
                    rows.append([base[0], base[1], "", ""])
                    self.w = len(rows) - 1
            if len(rows) == 1:
                rows[0][2] = "Off"
                for finder in (self.upll_div, self.spll_div):
                    rows[self.w][3] = finder(d[3])
                    if rows[self.w][3] != "":
                        base = rows[self.w]
                        rows.append([base[0], base[1], base[2], ""])
                        self.w = len(rows) - 1
                if rows[self.w][3] == "":
                    if len(rows) == 1:
                        rows[self.w][3] = "Off"
                    else:
                        rows.pop()
            else:
                rows.pop()
                for r in rows:
                    if r[2][:1] == "U":
                        r[3] = self.spll_div(d[3])
                    elif r[2][:1] == "S":
                        r[3] = self.upll_div(d[3])
                    if r[3] == "":
                        r[3] = "Off"
                rows[:] = self.dedupe(rows)
                off = [r for r in rows if r[3] == "Off"]
                if 0 < len(off) < len(rows):
                    rows[:] = [r for r in rows if r[3] != "Off"]
            return
        col, f = (3, d[3]) if b_ref else (2, d[2])
        rows[0][col] = self.upll_div(f)
        if rows[0][col] == "":
            rows[0][col] = self.spll_div(f) or "Off"
            return
        extra = list(rows[0])
        extra[col] = self.spll_div(f)
        if extra[col] != "":
            rows.append(extra)


def solve(cfg):
    s = Search(cfg)
    s.run()
    return {"sources": s.rows, "fault": s.fault}


def main():
    text = sys.argv[1] if len(sys.argv) > 1 else sys.stdin.read()
    print(json.dumps([solve(cfg) for cfg in json.loads(text)]))


if __name__ == "__main__":
    main()
