#!/bin/bash
# Makes the .xls workbooks in samples/, and the same as .xlsx for tests, with LibreOffice Calc (Debian package
# libreoffice-calc), which the tests themselves do not need. To be run again only when a workbook is to change.
set -euo pipefail
samples=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../../samples" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# sheet NAME, then its rows, then end. row CELLS...: numbers, texts, formulas (=...), nothing (''), or TYPE:VALUE.
sheet() { echo "<table:table table:name='$1'>"; }
end() { echo "</table:table>"; }
row() {
  local cell
  echo "<table:table-row>"
  for cell; do
    case $cell in
      '') echo "<table:table-cell/>" ;;
      =*) echo "<table:table-cell table:formula='of:$cell'/>" ;;
      [-0-9]*) echo "<table:table-cell office:value-type='float' office:value='$cell'/>" ;;
      currency:* | percentage:*) typed "$cell" value ;;
      date:* | time:* | boolean:*) typed "$cell" "${cell%%:*}-value" ;;
      *) echo "<table:table-cell office:value-type='string'><text:p>$cell</text:p></table:table-cell>" ;;
    esac
  done
  echo "</table:table-row>"
}
typed() {
  echo "<table:table-cell office:value-type='${1%%:*}' office:$2='${1#*:}' table:style-name='cell-${1%%:*}'/>"
}

# workbook NAME: of the sheets on standard input.
workbook() {
  local sheets oasis=urn:oasis:names:tc:opendocument:xmlns
  sheets=$(cat)
  cat >"$work/$1.fods" <<FODS
<?xml version="1.0" encoding="UTF-8"?>
<office:document office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.spreadsheet"
 xmlns:office="$oasis:office:1.0" xmlns:table="$oasis:table:1.0" xmlns:text="$oasis:text:1.0" xmlns:of="$oasis:of:1.2"
 xmlns:style="$oasis:style:1.0" xmlns:fo="$oasis:xsl-fo-compatible:1.0" xmlns:number="$oasis:datastyle:1.0">
<office:automatic-styles>
<number:date-style style:name="date" number:language="ja" number:country="JP"><number:year number:style="long"/>
<number:text>-</number:text><number:month/><number:text>-</number:text><number:day/></number:date-style>
<number:time-style style:name="time"><number:hours/><number:text>:</number:text><number:minutes/></number:time-style>
<number:currency-style style:name="currency"><number:number number:decimal-places="2"/><number:currency-symbol
 number:language="fr" number:country="FR">€</number:currency-symbol></number:currency-style>
<number:percentage-style style:name="percentage"><number:number/><number:text>%</number:text></number:percentage-style>
<number:boolean-style style:name="boolean"><number:boolean/></number:boolean-style>
$(for type in date time currency percentage boolean; do
  echo "<style:style style:name='cell-$type' style:family='table-cell' style:data-style-name='$type'/>"
done)
<style:style style:name="bold" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
</office:automatic-styles>
<office:body><office:spreadsheet>$sheets</office:spreadsheet></office:body></office:document>
FODS
}

{
  sheet Bands
  row H1 H2 A1 A2 A3
  row 0 25 3 3 1.5
  row 25 50 1.5 2.5 1
  row 50 101.6 1 1.5 1
  row 101.6 203.2 0.75 1 1
  end
} | workbook draft-angles
{
  sheet Types
  row Integer 42 -7
  row Decimal 0.125 12345.678
  row Date date:2024-02-29 time:PT06H00M00S
  row Currency currency:12.5 currency:-0.1
  row Percent percentage:0.25
  row Boolean boolean:true '=1&gt;2'
  row Error =1/0 '=NA()'
  row Formula '=[.B1]*2' '=&quot;x&quot;&amp;[.B1]'
  row Text 抜き勾配 "Angle de dépouille"
  row Empty '' 1
  # Together more than one record of the file holds.
  row '<text:span text:style-name="bold">Lo</text:span>ng' "$(printf 'x%.0s' {1..6000})" \
    "$(printf '抜%.0s' {1..3000})" end
  end
} | workbook cell-types
{ sheet First; row first; end; sheet Second; row second; end; } | workbook second-sheet-active
{ sheet Table; row '' right; row below; end; } | workbook empty-first-cell

calc() { # FORMAT FOLDER FILES...
  soffice "-env:UserInstallation=file://$work/profile" --headless --convert-to "$1" --outdir "$2" "${@:3}"
}
calc xls "$samples" "$work"/*.fods

# Without a window Calc takes the first sheet for the active one, but keeps what an .xls says: byte 14 of the record
# that describes the window.
mv "$samples/second-sheet-active.xls" "$work"
window=$(LC_ALL=C grep -obUaP -m1 '\x3d\x00\x12\x00' "$work/second-sheet-active.xls" | cut -d: -f1)
printf '\1' | dd of="$work/second-sheet-active.xls" bs=1 seek=$((window + 14)) conv=notrunc status=none
calc xls "$samples" "$work/second-sheet-active.xls"

# The same as .xlsx, beside those of other writers.
calc xlsx "$work" "$samples"/{cell-types,second-sheet-active}.xls
for name in cell-types second-sheet-active; do
  mv "$work/$name.xlsx" "$samples/../tests/sheetreader/workbooks/calc-$name.xlsx"
done
