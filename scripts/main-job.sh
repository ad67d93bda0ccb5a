#!/bin/bash
# The main job: what the module offers, a rule document converted to inches and radians, written, read back and shown,
# what an import reads of a workbook, and the dialog of a rule. Expects a build (scripts/run.sh makes one).
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
out=build/main-job
mkdir -p "$out"

mfxhost() {
  echo
  echo "$ mfxhost $*"
  timeout 120 scripts/wine-run build/mingw/bin/mfxhost.exe "$@"
}

mfxhost list
mfxhost convert samples/all-rules.xml --length in --angle rad -o "$out/all-rules-in-rad.xml"
mfxhost show "$out/all-rules-in-rad.xml"
mfxhost sheet samples/draft-angles.xlsx

# The dialog of a rule: opened, photographed and cancelled.
picture=$out/variable-draft-angle.png
scripts/wine-run build/mingw/bin/mfx_screenshot.exe "Variable Draft Angle" "$picture" &
mfxhost configure samples/all-rules.xml --rule 19040 -o "$out/all-rules-configured.xml" --lang english
wait $!
echo "The dialog looked like this: $picture"
