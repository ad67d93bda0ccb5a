#!/bin/bash
# Does everything from a fresh Debian 12 machine to the result: set-up, build, then the main job under Wine.
set -euo pipefail
scripts=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# The language of whoever runs this must not change the result.
export LC_ALL=C.UTF-8

"$scripts/setup.sh" --build mingw mfxhost mfx_screenshot
exec "$scripts/with-wine.sh" "$scripts/main-job.sh" "$@"
