#!/usr/bin/env python3
"""A second implementation of the journal, over plain lists. It reads steps.txt and writes what has to stand in
the journal after it, before.txt, and after a refresh of both sides, after.txt:

    python3 tests/accounts/script/reference.py

Each step is add, edit or del, the kind by its key prefix, and the fields that are typed."""
import datetime
import pathlib

HERE = pathlib.Path(__file__).parent
KINDS = {"YS": (-9, 1), "YF": (9, 1), "FK": (10, -1), "SK": (-10, -1)}
CUSTOMERS = ["华兴", "恒.南", "百川"]
CHANNELS = ["环洋", "华兴"]


def stored(x):
    """As a statement's text keeps it."""
    return float(f"{x:.15g}")


class Journal:
    def __init__(self):
        self.rows, self.counter = [], 100.0

    def roll(self, start, party):
        before = [r for r in self.rows if r["party"] == party and r["sn"] < start]
        balance = max(before, key=lambda r: r["sn"])["qm"] if before else 0.0
        chain = [r for r in self.rows if r["party"] == party and r["sn"] != 0 and r["sn"] >= start]
        for row in sorted(chain, key=lambda r: r["sn"]):
            row["qc"] = balance
            balance = balance + row["yf"] - row["fk"]
            row["qm"] = balance

    def slot(self, day, key, present):
        others = [r for r in self.rows if r["key"] != key]
        older = max((r["sn"] for r in others if r["day"] < day), default=0.0)
        not_newer = [r for r in others if r["day"] <= day]
        last = max(not_newer, key=lambda r: r["sn"], default=None)
        low = last["sn"] if last else 0.0
        newer = min((r["sn"] for r in others if r["day"] > day and r["sn"] > low), default=None)
        if newer is None:
            if present > older:
                return present
            low += 2 if last and last["day"] == day else 30
            self.counter = float(int(low))
            return self.counter
        if older < present < newer:
            return present
        return (newer - low) / 4 + low

    def allocate(self, day, key):
        self.counter += 1
        newest = max((r["day"] for r in self.rows), default=None)
        if newest is not None and day < newest:
            return self.slot(day, key, 0.0)
        self.counter += 1 if day == newest else 30
        return self.counter

    def add(self, kind, key, day, party, amount):
        sn = stored(self.allocate(day, key))
        raises = KINDS[kind][1] > 0
        self.rows.append({"lb": KINDS[kind][0], "key": key, "day": day, "party": party, "sn": sn, "qc": None,
                          "qm": None, "yf": amount if raises else 0.0, "fk": 0.0 if raises else amount})
        self.roll(sn, party)

    def edit(self, kind, old, key, day, party, amount):
        row = next(r for r in self.rows if r["key"] == old)
        present, former = row["sn"], row["party"]
        for other in self.rows:
            if other["sn"] == present:
                other["sn"] = 0.0
        self.roll(present, former)
        sn = stored(self.slot(day, old, row["sn"]))
        point = party.find(".")
        party = party[:point] if point > 0 else party
        row.update(key=key, day=day, party=party, sn=sn)
        row["yf" if KINDS[kind][1] > 0 else "fk"] = amount
        self.roll(sn, party)

    def delete(self, key):
        self.rows = [r for r in self.rows if r["key"] != key]

    def text(self):
        lines = []
        for r in sorted(self.rows, key=lambda row: row["sn"]):
            cells = [f"{r['sn']:.15g}", str(r["lb"]), r["key"], r["day"].isoformat(), r["party"]]
            lines.append("|".join(cells + [f"{r[f]:.15g}" for f in ("yf", "fk", "qc", "qm")]))
        return "\n".join(lines) + "\n"


def main():
    journal = Journal()
    for line in (HERE / "steps.txt").read_text().splitlines():
        what, kind, *fields = line.split()
        if what == "add":
            key, day, party, amount = fields
            journal.add(kind, key, datetime.date.fromisoformat(day), party, float(amount))
        elif what == "edit":
            old, key, day, party, amount = fields
            journal.edit(kind, old, key, datetime.date.fromisoformat(day), party, float(amount))
        else:
            journal.delete(fields[0])
    (HERE / "before.txt").write_text(journal.text())
    for name in CUSTOMERS + CHANNELS:
        journal.roll(0.0, name)
    (HERE / "after.txt").write_text(journal.text())


if __name__ == "__main__":
    main()
