#!/bin/bash
# with-wine.sh COMMAND...: runs the command with a Wine server that keeps running between programs and with a
# virtual screen, and ends both afterwards. MFX_USE_DISPLAY=1 uses the screen of DISPLAY instead.
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
export MFX_WINEPREFIX=${MFX_WINEPREFIX:-$root/build/wineprefix}
mkdir -p "$root/build/logs"

# Inside another run for this prefix everything is there already.
[[ ${MFX_WITH_WINE:-} != "$MFX_WINEPREFIX" ]] || exec "$@"
export MFX_WITH_WINE=$MFX_WINEPREFIX

# One run per prefix at a time: windows of two runs would take the focus from each other.
exec 9<"$MFX_WINEPREFIX"
flock -n 9 || { echo "Waiting for another run in $MFX_WINEPREFIX to end ..." >&2; flock 9; }

server() { WINEPREFIX=$MFX_WINEPREFIX setsid /usr/lib/wine/wineserver64 "$@" </dev/null >/dev/null 2>&1 9<&-; }

screen=
clean_up() {
  trap '' INT TERM
  server -k || true
  [[ -z $screen ]] || { kill "$screen" && wait "$screen"; } 2>/dev/null || true
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Server and screen get their own session and no streams of ours: Ctrl+C must not end them before the programs,
# and a pipe we write to must not stay open for their sake. The screen also ends when this script is killed.
if [[ -z ${DISPLAY:-} || ${MFX_USE_DISPLAY:-} != 1 ]]; then
  exec 8< <(exec setpriv --pdeathsig TERM setsid Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset -nolisten tcp \
    3>&1 >"$root/build/logs/xvfb.log" 2>&1 </dev/null 9<&-)
  screen=$!
  read -r -t 30 -u 8 display || { cat "$root/build/logs/xvfb.log"; echo "Xvfb did not start"; exit 1; } >&2
  exec 8<&-
  export DISPLAY=:$display
fi

# A server that is still running belongs to a run that was killed, whose screen is gone.
server -k || true
server -p
# The first window starts the desktop process, which would keep that program's output open: start it here, and keep
# it by a program that waits until the server ends.
rundll() { exec setsid "$root/scripts/wine-run" rundll32 "$@" </dev/null >/dev/null 2>&1 9<&-; }
(rundll user32.dll,GetDesktopWindow)
rundll user32.dll,WaitMessage &

status=0
"$@" 9<&- || status=$?
exit "$status"
