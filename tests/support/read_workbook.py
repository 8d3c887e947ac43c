"""Reads workbooks back with readers that know nothing of ours, and prints what they found as JSON.

usage: read_workbook.py FILE...

For each file: "sheet" is what xlrd finds, its rows as lists of texts; "csv" what xls2csv writes, cells parted
by U+001F, or None where it cannot read what the sheet holds; "longest" the length of the stream's longest record.
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


def beyond_xls2csv(texts, eight):
    """What xls2csv cannot read, whoever wrote it. In the shared texts of an 8.0 file it takes a low byte of 0 or
    1 (as in 一 and 送) for an option byte, counts 65,536 texts at most, and knows no pairs of halves. It has no
    table for the Chinese page of the others: there the bytes are passed on as they are, but a soft hyphen."""
    if not eight:
        return any(b"\xad" in text.encode("cp936") for text in texts)
    return len(texts) > 0x10000 or any(ord(c) % 256 < 2 or ord(c) > 0xFFFF for text in texts for c in text)


def with_xls2csv(path, sheet):
    eight = sheet["biff"] == 80
    if beyond_xls2csv({text for row in sheet["rows"] for text in row}, eight):
        return None
    pages = ["-d", "utf-8"] if eight else ["-s", "8859-1", "-d", "8859-1"]
    found = subprocess.run(["xls2csv", "-q", "0", "-c", CELL, *pages, path], check=True, capture_output=True)
    return found.stdout.decode("utf-8" if eight else "cp936", "replace")


def read(path):
    sheet = with_xlrd(path)
    return {"sheet": sheet, "csv": with_xls2csv(path, sheet), "longest": longest_record(path, sheet["biff"])}


json.dump([read(path) for path in sys.argv[1:]], sys.stdout)
