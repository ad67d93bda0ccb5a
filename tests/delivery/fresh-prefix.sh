#!/bin/bash
# fresh-prefix.sh COMMAND...: runs the command under a Wine prefix of its own, in which nothing was installed yet.
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
base=$root/build/wineprefix
work=$(mktemp -d "$root/build/fresh-prefix.XXXXXX")
trap 'rm -rf "$work"' EXIT
# Files are shared by links, since nobody writes to those of Windows; Wine replaces the registry's as a whole.
cp -al "$base"/. "$work"
rm -rf "$work"/{*.reg,wineserver,drive_c/users}
cp -a "$base"/*.reg "$work"
cp -a "$base/drive_c/users" "$work/drive_c"
MFX_WINEPREFIX=$work "$root/scripts/with-wine.sh" "$@"
