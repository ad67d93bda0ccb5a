#!/usr/bin/python3
"""Makes the workbooks in samples/, and those of the same cells by other writers in tests/sheetreader/workbooks/: with
openpyxl, XlsxWriter and LibreOffice Calc (Debian packages python3-openpyxl, python3-xlsxwriter, libreoffice-calc). The
tests need none of these. To be run again only when a workbook is to change."""

import contextlib
import datetime
import io
import pathlib
import subprocess
import tempfile
import unittest.mock
import zipfile
from xml.sax.saxutils import escape

import openpyxl
import xlsxwriter

ROOT = pathlib.Path(__file__).parents[1]
SAMPLES, WORKBOOKS = ROOT / "samples", ROOT / "tests/sheetreader/workbooks"

# Workbooks as (name of a sheet, its rows). In TYPES the first cell of a row says what the others are.
BANDS = [("Bands", [["H1", "H2", "A1", "A2", "A3"], [0, 25, 3, 3, 1.5], [25, 50, 1.5, 2.5, 1], [50, 101.6, 1, 1.5, 1],
                    [101.6, 203.2, 0.75, 1, 1]])]
TYPES = [("Types", [
    ["Integer", 42, -7], ["Decimal", 0.125, 12345.678], ["Date", datetime.date(2024, 2, 29), datetime.time(6)],
    ["Currency", 12.5, -0.1], ["Percent", 0.25], ["Boolean", True, False], ["Error", "#DIV/0!", "#N/A"],
    ["Formula", 84, "x42"], ["Text", "抜き勾配", "Angle de dépouille"], ["Empty", None, 1],
    ["Long", "x" * 6000, "抜" * 3000, "end"],  # together more than one record of an .xls holds
])]
TWO_SHEETS = [("First", [["first"]]), ("Second", [["second"]])]
EMPTY_FIRST_CELL = [("Table", [[None, "right"], ["below"]])]
FORMATS = {"Date": "yyyy-mm-dd", "Currency": "[$€-40C]#,##0.00", "Percent": "0%"}
FORMULAS = {"#DIV/0!": "=1/0", "#N/A": "=NA()", 84: "=B1*2", "x42": '="x"&B1'}


def with_openpyxl(path, sheets, active=0):
    book = openpyxl.Workbook()
    book.remove(book.active)
    for number, (_, rows) in enumerate(sheets):
        sheet = book.create_sheet(f"Sheet {number}")
        for row in rows:
            sheet.append(row)
        for row in sheet.iter_rows():
            if row[0].value in ("Currency", "Percent"):
                for cell in row[1:]:
                    cell.number_format = '#,##0.00\\ [$€-40C]' if row[0].value == "Currency" else "0%"
    book.active = active
    book.save(path)


def with_xlsxwriter(path, sheets):
    book = xlsxwriter.Workbook(path)
    for name, rows in sheets:
        sheet = book.add_worksheet(name)
        for number, (head, *values) in enumerate(rows):
            sheet.write_string(number, 0, head)
            style = book.add_format({"num_format": FORMATS.get(head, "General")})
            for column, value in enumerate(values, 1):
                if head in ("Formula", "Error"):
                    sheet.write_formula(number, column, FORMULAS[value], style, value)
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


def fods_cell(head, value):
    """A cell of an OpenDocument table. The first cell of a row has no head."""
    def typed(kind, attribute, text):
        return (f"<table:table-cell office:value-type='{kind}' office:{attribute}='{text}' "
                f"table:style-name='cell-{kind}'/>")

    if value is None:
        return "<table:table-cell/>"
    if value is False or head in ("Formula", "Error"):
        formula = FORMULAS.get(value, "=1>2").replace("B1", "[.B1]")
        return f"<table:table-cell table:formula='of:{escape(formula, {chr(34): '&quot;'})}'/>"
    if value is True:
        return typed("boolean", "boolean-value", "true")
    if head == "Date":
        kind, text = ("time", f"{value:PT%HH%MM%SS}") if isinstance(value, datetime.time) else ("date", value)
        return typed(kind, f"{kind}-value", text)
    if head in ("Currency", "Percent"):
        return typed("currency" if head == "Currency" else "percentage", "value", value)
    if isinstance(value, str):
        text = '<text:span text:style-name="bold">Lo</text:span>ng' if value == "Long" else value
        return f"<table:table-cell office:value-type='string'><text:p>{text}</text:p></table:table-cell>"
    return f"<table:table-cell office:value-type='float' office:value='{value}'/>"


def fods(sheets):
    """An OpenDocument table, as Calc reads it."""
    lines = []
    for name, rows in sheets:
        lines.append(f"<table:table table:name='{name}'>")
        for row in rows:
            lines += ["<table:table-row>", fods_cell(None, row[0]),
                      *(fods_cell(row[0], value) for value in row[1:]), "</table:table-row>"]
        lines.append("</table:table>")
    styles = "\n".join(f"<style:style style:name='cell-{kind}' style:family='table-cell' "
                       f"style:data-style-name='{kind}'/>"
                       for kind in ("date", "time", "currency", "percentage", "boolean"))
    oasis = "urn:oasis:names:tc:opendocument:xmlns"
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.spreadsheet"
 xmlns:office="{oasis}:office:1.0" xmlns:table="{oasis}:table:1.0" xmlns:text="{oasis}:text:1.0" xmlns:of="{oasis}:of:1.2"
 xmlns:style="{oasis}:style:1.0" xmlns:fo="{oasis}:xsl-fo-compatible:1.0" xmlns:number="{oasis}:datastyle:1.0">
<office:automatic-styles>
<number:date-style style:name="date" number:language="ja" number:country="JP"><number:year number:style="long"/>
<number:text>-</number:text><number:month/><number:text>-</number:text><number:day/></number:date-style>
<number:time-style style:name="time"><number:hours/><number:text>:</number:text><number:minutes/></number:time-style>
<number:currency-style style:name="currency"><number:number number:decimal-places="2"/><number:currency-symbol
 number:language="fr" number:country="FR">€</number:currency-symbol></number:currency-style>
<number:percentage-style style:name="percentage"><number:number/><number:text>%</number:text></number:percentage-style>
<number:boolean-style style:name="boolean"><number:boolean/></number:boolean-style>
{styles}
<style:style style:name="bold" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
</office:automatic-styles>
<office:body><office:spreadsheet>{chr(10).join(lines)}</office:spreadsheet></office:body></office:document>
"""


def with_calc(work, form, folder, *files):
    subprocess.run(["soffice", f"-env:UserInstallation=file://{work}/profile", "--headless", "--convert-to", form,
                    "--outdir", folder, *files], check=True)


def activate_second_sheet(xls):
    """Without a window Calc takes the first sheet for the active one, but keeps what an .xls says: byte 14 of the
    record that describes the window."""
    data = bytearray(xls.read_bytes())
    data[data.index(b"\x3d\x00\x12\x00") + 14] = 1
    xls.write_bytes(data)


def make_xls(work):
    books = {"draft-angles": BANDS, "cell-types": TYPES, "second-sheet-active": TWO_SHEETS,
             "empty-first-cell": EMPTY_FIRST_CELL}
    for name, sheets in books.items():
        (work / f"{name}.fods").write_text(fods(sheets), encoding="utf-8")
    with_calc(work, "xls", SAMPLES, *sorted(work.glob("*.fods")))
    second = (SAMPLES / "second-sheet-active.xls").rename(work / "second-sheet-active.xls")
    activate_second_sheet(second)
    with_calc(work, "xls", SAMPLES, second)
    with_calc(work, "xlsx", work, SAMPLES / "cell-types.xls")
    (work / "cell-types.xlsx").rename(WORKBOOKS / "calc-cell-types.xlsx")


if __name__ == "__main__":
    WORKBOOKS.mkdir(exist_ok=True)
    with_openpyxl(SAMPLES / "draft-angles.xlsx", BANDS)
    with_openpyxl(SAMPLES / "second-sheet-active.xlsx", TWO_SHEETS, active=1)
    with_openpyxl(SAMPLES / "empty-first-cell.xlsx", EMPTY_FIRST_CELL)
    with_xlsxwriter(SAMPLES / "cell-types.xlsx", TYPES)
    with_openpyxl(WORKBOOKS / "openpyxl-cell-types.xlsx", TYPES)
    repack(SAMPLES / "cell-types.xlsx", WORKBOOKS / "streamed-zip64.xlsx", True)
    repack(SAMPLES / "cell-types.xlsx", WORKBOOKS / "upper-case-stored.xlsx", False)
    with tempfile.TemporaryDirectory() as work_folder:
        make_xls(pathlib.Path(work_folder))
