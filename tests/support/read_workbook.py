"""Reads workbooks back with readers that know nothing of ours, and prints what they found as JSON.

usage: read_workbook.py --one|--both FILE...

For each file: "sheet" is what xlrd finds, its rows as lists of texts; "csv", with --both, what xls2csv writes,
cells parted by U+001F; "longest" the length of the longest record in the stream.
"""
import json
import struct
import subprocess
import sys

import xlrd
from xlrd.compdoc import CompDoc

CELL = "\x1f"


def longest_record(path, biff):
    with open(path, "rb") as file:
        document = CompDoc(file.read(), logfile=sys.stderr)
    memory, base, size = document.locate_named_stream("Workbook" if biff == 80 else "Book")
    at, longest = base, 0
    while at < base + size:
        length = struct.unpack_from("<H", memory, at + 2)[0]
        longest = max(longest, length)
        at += 4 + length
    assert at == base + size, "records and stream end at different places"
    return longest


def with_xlrd(path):
    book = xlrd.open_workbook(path)
    sheet = book.sheet_by_index(0)
    types = {kind for row in range(sheet.nrows) for kind in sheet.row_types(row)}
    assert types <= {xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_TEXT}, types
    return {"biff": book.biff_version, "page": book.codepage, "sheets": book.sheet_names(),
            "rows": [sheet.row_values(row) for row in range(sheet.nrows)]}


def with_xls2csv(path, biff):
    # It has no table for the Chinese page: there the bytes are passed on as they are.
    pages = ["-d", "utf-8"] if biff == 80 else ["-s", "8859-1", "-d", "8859-1"]
    found = subprocess.run(["xls2csv", "-q", "0", "-c", CELL, *pages, path], check=True, capture_output=True)
    return found.stdout.decode("utf-8" if biff == 80 else "cp936", "replace")


def read(path, both):
    sheet = with_xlrd(path)
    return {"sheet": sheet, "csv": with_xls2csv(path, sheet["biff"]) if both else None,
            "longest": longest_record(path, sheet["biff"])}


json.dump([read(path, sys.argv[1] == "--both") for path in sys.argv[2:]], sys.stdout)
