#!/bin/bash
# The main job: what the module offers, then a rule document converted to inches and radians, written, read back and
# shown. Expects a build (scripts/run.sh makes one).
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
out=build/main-job
mkdir -p "$out"

mfxhost() {
  echo
  echo "$ mfxhost $*"
  scripts/wine-run build/mingw/bin/mfxhost.exe "$@"
}

mfxhost list
mfxhost convert samples/all-rules.xml --length in --angle rad -o "$out/all-rules-in-rad.xml"
mfxhost show "$out/all-rules-in-rad.xml"
