#!/bin/bash
# check-tidy.sh [REGEX]: runs clang-tidy with the checks of .clang-tidy over the programs' and libraries' sources, or
# those whose path matches, and fails when it finds something. All of them take some twenty minutes. Needs a configured
# build, and what scripts/setup.sh --checks installs.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
build=build/mingw
command -v clang-tidy >/dev/null || { echo "clang-tidy is missing: scripts/setup.sh --checks" >&2; exit 1; }
[[ -e $build/compile_commands.json ]] || { echo "$build is not configured: cmake --preset mingw" >&2; exit 1; }

# clang reads the headers of GCC's C++ library and of Windows; its own stand in for those of the compiler.
options=(--extra-arg-before=--target=x86_64-w64-mingw32 --extra-arg=-Wno-unknown-warning-option)
for option in -nostdinc++ -nostdlibinc; do options+=("--extra-arg=$option"); done
# MFC prescribes a macro and names that clang would warn of; GCC's -Wconversion leaves signs alone in C++.
for name in inconsistent-missing-override overloaded-virtual sign-conversion; do options+=("--extra-arg=-Wno-$name"); done
while read -r folder; do
  [[ $folder =~ /gcc/[^/]+/[^/]+/include(-fixed)?$ ]] || options+=(--extra-arg=-isystem --extra-arg="$folder")
done < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 >/dev/null |
  sed -n '/<...> search starts here/,/^End/s/^ //p')

# What is built for Visual Studio alone, tests and benchmarks stay out.
mapfile -t sources < <(git ls-files '*.cpp' | grep -Ev '^(tests|bench)/|^framework/ExtensionDll.cpp$' | grep -E -- "${1:-}")
failed=0
for source in "${sources[@]}"; do
  nice clang-tidy -p "$build" --quiet --warnings-as-errors='*' "${options[@]}" "$source" \
    2> >(grep -v 'warnings\? generated' >&2) || failed=$((failed + 1))
done
echo "${#sources[@]} sources, $failed with findings"
((failed == 0))
