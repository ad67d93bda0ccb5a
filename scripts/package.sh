#!/bin/bash
# package.sh [--twice]: set-up, build, then the packages in build/mingw/packages: the zip, its symbols, the installer.
# --twice makes them once more from a clone of the last commit in another folder, and compares them byte by byte.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
export LC_ALL=C.UTF-8

scripts/setup.sh --build mingw mfx_packages
packages=build/mingw/packages
(cd "$packages" && sha256sum ./*.zip ./*.exe && du -b ./*.zip ./*.exe)

if [[ ${1:-} == --twice ]]; then
  [[ -z $(git status --porcelain) ]] || { echo "Commit the changes first" >&2; exit 1; }
  second=$(mktemp -d)
  trap 'rm -rf "$second"' EXIT
  git clone -q . "$second/another folder"
  "$second/another folder/scripts/package.sh"
  for package in "$packages"/*.{zip,exe}; do
    cmp "$package" "$second/another folder/$packages/${package##*/}"
    echo "${package##*/}: the same bytes"
  done
fi
