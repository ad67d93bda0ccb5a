#!/bin/bash
# fresh-prefix.sh COMMAND...: runs the command under a Wine prefix of its own, in which nothing was installed yet.
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
base=$root/build/wineprefix
work=$(mktemp -d "$root/build/fresh-prefix.XXXXXX")
trap 'rm -rf "$work"' EXIT
# Files of Windows are shared by links, since nobody writes to them. Other tests may write to Temp at this moment.
mkdir "$work/drive_c"
cp -a "$base"/{dosdevices,.update-timestamp,*.reg} "$work"
cp -al "$base"/drive_c/{windows,Program*} "$work/drive_c"
tar -c -C "$base/drive_c" --exclude=Temp --exclude=MfxKit users | tar -x -C "$work/drive_c"
MFX_WINEPREFIX=$work "$root/scripts/with-wine.sh" "$@"
