#!/bin/bash
# test.sh [--debug] [CTEST-OPTIONS...]: set-up, build, then all tests under Wine. --debug tests the build with
# library assertions and undefined-behaviour trapping.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
# Tests of a language set it themselves; the language of whoever runs them must not matter.
export LC_ALL=C.UTF-8

preset=mingw
if [[ ${1:-} == --debug ]]; then
  preset=mingw-debug
  shift
fi
scripts/setup.sh --build "$preset"
exec scripts/with-wine.sh ctest --preset "$preset" --output-on-failure -j2 "$@"
