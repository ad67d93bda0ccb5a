#!/bin/bash
# at-dpi.sh DPI COMMAND...: runs the command with that many dots per inch, on a virtual screen of its own. Wine reads
# their number when the server of a prefix starts, so there is a second prefix; it shares the first one's files.
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
base=${MFX_WINEPREFIX:-$root/build/wineprefix}
export MFX_TEST_DPI=$1 MFX_WINEPREFIX=$root/build/wineprefix-$1-dpi
shift

if ! cmp -s "$base/.stamp" "$MFX_WINEPREFIX/.stamp"; then
  rm -rf "$MFX_WINEPREFIX"
  mkdir "$MFX_WINEPREFIX"
  cp -P -r "$base"/{.update-timestamp,dosdevices,system.reg,user.reg,userdef.reg} "$MFX_WINEPREFIX"
  ln -sfn "$base/drive_c" "$MFX_WINEPREFIX/dosdevices/c:"
  sed -i '/^\[Control Panel\\\\Desktop\]/a "LogPixels"=dword:'"$(printf %08x "$MFX_TEST_DPI")" \
    "$MFX_WINEPREFIX/user.reg"
  cp "$base/.stamp" "$MFX_WINEPREFIX"
fi
exec "$root/scripts/with-wine.sh" "$@"
