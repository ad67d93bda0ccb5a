#!/bin/bash
# check-format.sh [--mend]: fails when a C++ file is not formatted as .clang-format says, and names each such file.
# --mend formats them. Needs Debian's clang-format, which scripts/setup.sh --checks installs.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
command -v clang-format >/dev/null || { echo "clang-format is missing: scripts/setup.sh --checks" >&2; exit 1; }

mapfile -d '' files < <(git ls-files -z '*.cpp' '*.h')
if [[ ${1:-} == --mend ]]; then
  clang-format -i "${files[@]}"
elif output=$(clang-format --dry-run -Werror "${files[@]}" 2>&1); then
  echo "${#files[@]} C++ files are formatted"
else
  # The places, without the lines of code below each.
  grep -E '^[^ ].*:[0-9]+:[0-9]+: ' <<<"$output" >&2 || echo "$output" >&2
  echo "scripts/check-format.sh --mend formats them" >&2
  exit 1
fi
