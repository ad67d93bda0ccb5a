#!/bin/bash
# The main job: a company's rules from nothing. A document with the defaults gets the company's values, by keys and from
# a workbook, and is checked; a change of it is made in a plant's own document; a casting asks for its limits; a dialog
# shows a rule. Expects a build (scripts/run.sh makes one). All files end up in build/main-job.
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
out=$root/build/main-job
rm -rf "$out"
mkdir -p "$out"
cd "$out"
cp "$root"/samples/{draft-angles.xlsx,legacy-three-numbers.xml} .

mfxhost() { timeout 120 "$root/scripts/wine-run" "$root/build/mingw/bin/mfxhost.exe" "$@"; }

# shown EXIT-CODE ARGUMENTS...: a command as it is typed, with its output; it has to end with that exit code.
shown() {
  local words=("${@:2}") status=0
  for i in "${!words[@]}"; do [[ ${words[i]} != *' '* ]] || words[i]="\"${words[i]}\""; done
  echo
  echo "$ mfxhost ${words[*]}"
  mfxhost "${@:2}" 2>&1 || status=$?
  [[ $status == "$1" ]] || { echo "exit code $status instead of $1" >&2; exit 1; }
}

shown 0 list
shown 0 new company.xml
shown 0 set company.xml 19010/10067=5mm 19010/Steel=present 19010/Steel/10067=0.2in 19010/Steel/10068=12mm
shown 1 set company.xml 19010/10067=20mm
printf '\n$ copy samples\\draft-angles.xlsx .\n'
shown 0 import company.xml draft-angles.xlsx --rule 19040
shown 0 check company.xml
printf '\n$ copy samples\\legacy-three-numbers.xml .\n'
shown 1 check . --severity error
shown 1 diff company.xml --defaults

cp company.xml plant.xml
cp company.xml next.xml
printf '\n$ copy company.xml plant.xml\n$ copy company.xml next.xml\n'
shown 0 set plant.xml 19010/10067=6mm
shown 0 set next.xml 19030/29167=20 "19040/29183/2/angle1=2 deg"
shown 1 diff company.xml next.xml
echo
echo "$ mfxhost diff company.xml next.xml --json > change.json"
mfxhost diff company.xml next.xml --json >change.json || true
shown 0 apply plant.xml change.json
shown 0 limits plant.xml --material steel --size 150mm
shown 0 convert plant.xml --length in -o plant-in-inches.xml

# The dialog of a rule: opened, photographed and cancelled.
"$root/scripts/wine-run" "$root/build/mingw/bin/mfx_screenshot.exe" "Variable Draft Angle" variable-draft-angle.png &
shown 0 configure plant.xml --rule 19040 --lang english
wait $!
echo "The dialog looked like this: build/main-job/variable-draft-angle.png"
