#!/usr/bin/python3
"""Makes .xlsx workbooks with openpyxl and XlsxWriter (Debian packages python3-openpyxl and python3-xlsxwriter), which
the tests themselves do not need: in samples/ those that are also there as .xls, in workbooks/ beside this script what
other writers, and other ways to write an archive, give. To be run again only when a workbook is to change."""

import contextlib
import datetime
import io
import pathlib
import unittest.mock
import zipfile

import openpyxl
import xlsxwriter

HERE = pathlib.Path(__file__).parent
SAMPLES, WORKBOOKS = HERE.parents[1] / "samples", HERE / "workbooks"
TYPES = [
    ["Integer", 42, -7], ["Decimal", 0.125, 12345.678], ["Date", datetime.date(2024, 2, 29), datetime.time(6)],
    ["Currency", 12.5, -0.1], ["Percent", 0.25], ["Boolean", True, False], ["Error", "#DIV/0!", "#N/A"],
    ["Formula", 84, "x42"], ["Text", "抜き勾配", "Angle de dépouille"], ["Empty", None, 1],
    ["Long", "x" * 6000, "抜" * 3000, "end"],
]


def with_openpyxl(path, *sheets, active=0):
    book = openpyxl.Workbook()
    book.remove(book.active)
    for number, rows in enumerate(sheets):
        sheet = book.create_sheet(f"Sheet {number}")
        for row in rows:
            sheet.append(row)
        for row in sheet.iter_rows():
            if row[0].value in ("Currency", "Percent"):
                for cell in row[1:]:
                    cell.number_format = '#,##0.00\\ [$€-40C]' if row[0].value == "Currency" else "0%"
    book.active = active
    book.save(path)


def with_xlsxwriter(path):
    book = xlsxwriter.Workbook(path)
    sheet = book.add_worksheet("Types")
    formats = {"Date": "yyyy-mm-dd", "Currency": "[$€-40C]#,##0.00", "Percent": "0%"}
    for number, (head, *values) in enumerate(TYPES):
        sheet.write_string(number, 0, head)
        style = book.add_format({"num_format": formats.get(head, "General")})
        for column, value in enumerate(values, 1):
            if head == "Formula":
                sheet.write_formula(number, column, "=B1*2" if column == 1 else '="x"&B1', style, value)
            elif head == "Error":
                sheet.write_formula(number, column, "=1/0" if column == 1 else "=NA()", style, value)
            else:
                sheet.write(number, column, value, style)
    book.close()


class Unseekable(io.RawIOBase):
    """A stream that makes the archive put sizes and checksums behind the data."""

    def __init__(self, path):
        self.file = open(path, "wb")

    def writable(self):
        return True

    def write(self, data):
        return self.file.write(data)


def repack(source, path, streamed):
    """The same parts in another archive: streamed, with 64-bit sizes, or in another case and without compression."""
    limits = {"ZIP64_LIMIT": 1, "ZIP_FILECOUNT_LIMIT": 1} if streamed else {}
    with (unittest.mock.patch.multiple(zipfile, **limits) if limits else contextlib.nullcontext(),
          zipfile.ZipFile(source) as old, zipfile.ZipFile(Unseekable(path) if streamed else path, "w") as new):
        for name in old.namelist():
            entry = zipfile.ZipInfo(name if streamed else name.upper())
            entry.compress_type = zipfile.ZIP_DEFLATED if streamed else zipfile.ZIP_STORED
            with new.open(entry, "w", force_zip64=streamed) as part:
                part.write(old.read(name))


WORKBOOKS.mkdir(exist_ok=True)
with_openpyxl(SAMPLES / "draft-angles.xlsx", [["H1", "H2", "A1", "A2", "A3"], [0, 25, 3, 3, 1.5],
              [25, 50, 1.5, 2.5, 1], [50, 101.6, 1, 1.5, 1], [101.6, 203.2, 0.75, 1, 1]])
with_openpyxl(SAMPLES / "second-sheet-active.xlsx", [["first"]], [["second"]], active=1)
with_openpyxl(SAMPLES / "empty-first-cell.xlsx", [[None, "right"], ["below"]])
with_xlsxwriter(SAMPLES / "cell-types.xlsx")
with_openpyxl(WORKBOOKS / "openpyxl-cell-types.xlsx", TYPES)
repack(SAMPLES / "cell-types.xlsx", WORKBOOKS / "streamed-zip64.xlsx", True)
repack(SAMPLES / "cell-types.xlsx", WORKBOOKS / "upper-case-stored.xlsx", False)
