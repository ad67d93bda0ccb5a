#!/bin/bash
# Makes the workbooks in samples/ with LibreOffice Calc (Debian package libreoffice-calc), which the tests themselves
# do not need. To be run again only when a workbook is to change.
set -euo pipefail
samples=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../../samples" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Cells of one row: cell TEXT, number TYPE VALUE [STYLE], formula EXPRESSION, gap.
cell() { echo "<table:table-cell office:value-type='string'><text:p>$1</text:p></table:table-cell>"; }
number() { echo "<table:table-cell office:value-type='$1' office:$2 table:style-name='${3:-Default}'/>"; }
formula() { echo "<table:table-cell table:formula='of:=$1'/>"; }
gap() { echo "<table:table-cell/>"; }
float() { for value; do number float "value='$value'"; done; }
row() { echo "<table:table-row>$*</table:table-row>"; }
sheet() { echo "<table:table table:name='$1'>${*:2}</table:table>"; }

# workbook NAME SHEETS...
workbook() {
  cat >"$work/$1.fods" <<FODS
<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:number="urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0" xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2"
 office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:automatic-styles>
<number:date-style style:name="d"><number:year number:style="long"/><number:text>-</number:text><number:month
 number:style="long"/><number:text>-</number:text><number:day number:style="long"/></number:date-style>
<number:time-style style:name="t"><number:hours/><number:text>:</number:text><number:minutes number:style="long"/>
</number:time-style>
<number:currency-style style:name="c"><number:number number:decimal-places="2"/><number:currency-symbol
 number:language="fr" number:country="FR">€</number:currency-symbol></number:currency-style>
<number:percentage-style style:name="p"><number:number number:decimal-places="0"/><number:text>%</number:text>
</number:percentage-style>
<number:boolean-style style:name="b"><number:boolean/></number:boolean-style>
<style:style style:name="bold" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
$(for style in d t c p b; do
  echo "<style:style style:name='${style^^}' style:family='table-cell' style:data-style-name='$style'/>"
done)
</office:automatic-styles>
<office:body><office:spreadsheet>${*:2}</office:spreadsheet></office:body></office:document>
FODS
}

heads=$(row "$(cell H1)$(cell H2)$(cell A1)$(cell A2)$(cell A3)")
workbook draft-angles "$(sheet Bands "$heads" "$(row "$(float 0 25 3 3 1.5)")" \
  "$(row "$(float 25 50 1.5 2.5 1)")" "$(row "$(float 50 101.6 1 1.5 1)")" "$(row "$(float 101.6 203.2 0.75 1 1)")")"
workbook cell-types "$(sheet Types \
  "$(row "$(cell Integer)$(float 42 -7)")" "$(row "$(cell Decimal)$(float 0.125 12345.678)")" \
  "$(row "$(cell Date)$(number date date-value=\'2024-02-29\' D)$(number time time-value=\'PT06H00M00S\' T)")" \
  "$(row "$(cell Currency)$(number currency value=\'12.5\' C)$(number currency value=\'-0.1\' C)")" \
  "$(row "$(cell Percent)$(number percentage value=\'0.25\' P)")" \
  "$(row "$(cell Boolean)$(number boolean boolean-value=\'true\' B)$(formula '1&gt;2')")" \
  "$(row "$(cell Error)$(formula 1/0)$(formula 'NA()')")" \
  "$(row "$(cell Formula)$(formula '[.B1]*2')$(formula '&quot;x&quot;&amp;[.B1]')")" \
  "$(row "$(cell Text)$(cell 抜き勾配)$(cell "Angle de dépouille")")" "$(row "$(cell Empty)$(gap)$(float 1)")" \
  "$(row "$(cell "<text:span text:style-name='bold'>Lo</text:span>ng")$(cell "$(printf 'x%.0s' {1..6000})")$(cell "$(printf '抜%.0s' {1..3000})")$(cell end)")")"
workbook second-sheet-active "$(sheet First "$(row "$(cell first)")")" "$(sheet Second "$(row "$(cell second)")")"
workbook empty-first-cell "$(sheet Table "$(row "$(gap)$(cell right)")" "$(row "$(cell below)")")"

calc() {
  soffice "-env:UserInstallation=file://$work/profile" --headless --convert-to xls --outdir "$samples" "$@" 2>/dev/null
}
calc "$work"/*.fods

# Without a window Calc takes the first sheet for the active one, but keeps what an .xls says: byte 14 of the record
# that describes the window.
mv "$samples/second-sheet-active.xls" "$work"
window=$(LC_ALL=C grep -obUaP -m1 '\x3d\x00\x12\x00' "$work/second-sheet-active.xls" | cut -d: -f1)
printf '\1' | dd of="$work/second-sheet-active.xls" bs=1 seek=$((window + 14)) conv=notrunc status=none
calc "$work/second-sheet-active.xls"
