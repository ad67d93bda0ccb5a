#!/bin/bash
# Prepares a Debian 12 machine: packages, cross-built libraries, Wine prefix, locales; all but the packages go to build/.
# setup.sh [--checks] [--build PRESET [TARGETS...]]: --checks also installs what the checks of the code need; --build
# also builds that CMake preset, or just these targets of it. A step that was done before is skipped.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
root=$PWD
build=$root/build
deps=$build/deps
checks=()
if [[ ${1:-} == --checks ]]; then
  checks=(clang clang-format clang-tidy)
  shift
fi
preset=
targets=()
if [[ ${1:-} == --build ]]; then
  preset=$2
  ((${#@} == 2)) || targets=(--target "${@:3}")
fi

packages=(
  g++-mingw-w64-x86-64-posix cmake ninja-build librsvg2-bin libxml2-utils fp-utils nsis fakeroot
  python3 python3-attr python3-jsonschema python3-pil python3-sarif-python-om
  dpkg-dev ca-certificates googletest libcli11-dev nlohmann-json3-dev
  libz-mingw-w64-dev tcl
  wine64 fonts-wine fonts-noto-cjk locales xvfb
  # Wine loads these when they are there, and its windows behave differently without them.
  libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1
  "${checks[@]}"
)
# A library is added by its name here and a function make_NAME below.
libraries=(pugixml googletest cli11 json benchmark libzip libxlsxwriter sqlite)

steps=$((4 + ${#libraries[@]}))
[[ -z $preset ]] || steps=$((steps + 2))
step=0
log=

announce() {
  step=$((step + 1))
  printf '[%d/%d] %s ... ' "$step" "$steps" "$1"
}

# logged NAME COMMAND...: the output goes to the log NAME. When it fails, on_exit shows the log's end.
logged() {
  local start=$SECONDS
  log=$build/logs/$1.log
  # Some programs survive Ctrl+C; the set-up must not go on after them.
  (trap 'exit 130' INT TERM; "${@:2}") >"$log" 2>&1 </dev/null 9>&-
  log=
  echo "done ($((SECONDS - start)) s)"
}

on_exit() {
  [[ -n $log ]] || return 0
  echo "failed"
  tail -n 40 "$log" >&2
  echo "The complete output is in $log" >&2
}

# once TITLE NAME STAMP: runs make_NAME unless the stamp shows that the function, and what it builds with, succeeded
# before as they are now.
once() {
  local recipe
  recipe=$(declare -f "make_$2" fetch_source use_package keep_notice cross_build; cat cmake/mingw-w64.cmake)
  announce "$1"
  if [[ -f $3 && $(<"$3") == *"$recipe" ]]; then
    echo "ready"
  else
    logged "$2" follow_recipe "$2" "$3" "$recipe"
  fi
}

# follow_recipe NAME STAMP RECIPE: make_NAME runs in an empty folder and sets the variable version for the stamp.
follow_recipe() {
  local version='' work=$build/work/$1
  rm -rf "$work"
  mkdir -p "$work"
  cd "$work"
  set -x
  "make_$1"
  set +x
  mkdir -p "${2%/*}"
  printf '%s\n%s\n' "$version" "$3" >"$2"
  cd "$root"
  rm -rf "$work"
}

install_packages() {
  local as_root=()
  ((EUID == 0)) || as_root=(sudo)
  as_root+=(env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300)
  # An unreachable third-party source must not stop the set-up: the installation tells whether something is missing.
  "${as_root[@]}" update || true
  "${as_root[@]}" install --no-install-recommends "$@"
}

# Writes the machine's own Debian entries as source entries, so that a local mirror or proxy stays in use.
# Entries signed by somebody else, discs, and suites such as backports are left out.
write_source_entries() {
  local codename suites
  codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
  suites="^($codename|stable|oldstable)(-updates|-security|/updates)?\$"
  mkdir -p "$1"
  # /dev/null stands for the files that do not exist on this machine.
  shopt -s nullglob
  awk -v suites="$suites" '
    /^[ \t]*deb[ \t]/ {
      sub(/#.*/, "")
      if (/cdrom:/) next
      options = ""
      if (match($0, /\[[^]]*\]/)) {
        options = substr($0, RSTART, RLENGTH) " "
        sub(/\[[^]]*\]/, "")
      }
      if (options ~ /signed-by/ && options !~ /debian-archive-keyring/) next
      if ($3 ~ suites && /[ \t]main([ \t]|$)/) print "deb-src " options $2, $3, "main"
    }' /dev/null /etc/apt/sources.lis[t] /etc/apt/sources.list.d/*.list >"$1/debian.list"
  awk -v suites="$suites" '
    BEGIN { RS = ""; FS = "\n" }
    {
      wanted = 1; kept = ""; chosen = ""
      for (i = 1; i <= NF; i++) {
        if ($i ~ /^#/) continue
        key = tolower($i); sub(/:.*/, "", key)
        value = $i; sub(/^[^:]*:[ \t]*/, "", value)
        if (key == "types") { if (value !~ /(^|[ \t])deb([ \t]|$)/) wanted = 0 }
        else if (key == "components") { if (value !~ /(^|[ \t])main([ \t]|$)/) wanted = 0 }
        else if (key == "suites") {
          n = split(value, words, /[ \t]+/)
          for (j = 1; j <= n; j++) if (words[j] ~ suites) chosen = chosen " " words[j]
        } else {
          if (key == "enabled" && tolower(value) ~ /^(no|false|0)/) wanted = 0
          if (key == "signed-by" && value !~ /debian-archive-keyring/) wanted = 0
          kept = kept $i "\n"
        }
      }
      if (wanted && chosen != "") print "Types: deb-src\nSuites:" chosen "\nComponents: main\n" kept
    }' /dev/null /etc/apt/sources.list.d/*.sources >"$1/debian.sources"
  shopt -u nullglob
}

# Downloads and unpacks a Debian source package into the current folder. The machine's apt set-up is not touched.
fetch_source() {
  local apt=$build/apt
  write_source_entries "$apt/sources.list.d"
  mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
  # apt would otherwise download as the user _apt, who often cannot read the project's folder.
  local options=(
    -o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$apt/sources.list.d"
    -o "Dir::State::Lists=$apt/lists" -o "Dir::Cache=$apt/cache" -o APT::Sandbox::User=root
  )
  apt-get "${options[@]}" update
  apt-get "${options[@]}" source "$1"
  version=$(sed -n 's/^Version: //p' ./*.dsc)
  keep_notice "$1" ./*/debian/copyright
}

# Takes the version of an installed Debian package whose files a library is made of.
use_package() {
  version=$(dpkg-query -W -f='${Version}' "$1")
  keep_notice "$1" "/usr/share/doc/$1/copyright"
}

# keep_notice PACKAGE FILES...: version and notice of what is linked or shipped; packaging/ collects them.
keep_notice() {
  mkdir -p "$deps/share/$1"
  cat "${@:2}" >"$deps/share/$1/copyright"
  echo "$version" >"$deps/share/$1/version"
}

# cross_build SOURCES CMAKE-OPTIONS...
cross_build() {
  cmake -S "$1" -B out -G Ninja --toolchain "$root/cmake/mingw-w64.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$deps" -DBUILD_SHARED_LIBS=OFF "${@:2}"
  cmake --build out
  cmake --install out
}

make_pugixml() {
  fetch_source pugixml
  cross_build pugixml-*/ -DPUGIXML_WCHAR_MODE=ON
}

make_googletest() {
  use_package googletest
  cross_build /usr/src/googletest
}

make_benchmark() {
  fetch_source benchmark
  # Debian leaves the git version empty; 0.0.0 stands for "take the project's own".
  cross_build benchmark-*/ -DBENCHMARK_ENABLE_TESTING=OFF -DBENCHMARK_ENABLE_WERROR=OFF \
    -DBENCHMARK_INSTALL_DOCS=OFF -DGIT_VERSION=0.0.0
}

make_cli11() {
  use_package libcli11-dev
  mkdir -p "$deps/include" "$deps/share/cmake"
  cp -r /usr/include/CLI "$deps/include"
  cp -r /usr/share/cmake/CLI11 "$deps/share/cmake"
}

make_json() {
  use_package nlohmann-json3-dev
  mkdir -p "$deps/include" "$deps/share/cmake"
  cp -r /usr/include/nlohmann "$deps/include"
  cp -r /usr/share/cmake/nlohmann_json "$deps/share/cmake"
}

make_libzip() {
  fetch_source libzip
  # Only what .xlsx files need: deflate, by Debian's zlib for MinGW.
  cross_build libzip-*/ -DBUILD_{TOOLS,REGRESS,EXAMPLES,DOC}=OFF \
    -DENABLE_{COMMONCRYPTO,GNUTLS,MBEDTLS,OPENSSL,WINDOWS_CRYPTO,BZIP2,LZMA,ZSTD}=OFF \
    -DZLIB_USE_STATIC_LIBS=ON
}

make_libxlsxwriter() {
  fetch_source libxlsxwriter
  keep_notice libxlsxwriter ./*/debian/copyright /usr/share/common-licenses/MPL-2.0
  cd libxlsxwriter-*/
  # With MinGW, too, names of files are UTF-8, as they are with Visual Studio.
  sed -i '/__MINGW32__/,/#endif/d' src/packager.c
  sed -i '/minizip\/zip.c/,/iowin32/s/if(MSVC)/if(WIN32)/' CMakeLists.txt
  cd ..
  # MD5 is for pictures. Numbers get the fewest digits that read back, in every locale.
  cross_build libxlsxwriter-*/ -DUSE_NO_MD5=ON -DUSE_DTOA_LIBRARY=ON -DZLIB_USE_STATIC_LIBS=ON
}

make_sqlite() {
  local options=(-DSQLITE_THREADSAFE=1 -DSQLITE_OMIT_LOAD_EXTENSION -DSQLITE_DQS=0)
  local folder
  fetch_source sqlite3
  # Its makefile takes no path with blanks.
  folder=$(mktemp -d)
  mv sqlite3-*/ "$folder/sqlite3"
  cd "$folder/sqlite3"
  # The sources in one file are made by the machine's own tools; Tcl generates parts of them.
  ./configure --disable-tcl
  make sqlite3.c shell.c
  x86_64-w64-mingw32-gcc -O2 "${options[@]}" -c sqlite3.c
  mkdir -p "$deps/bin"
  x86_64-w64-mingw32-ar rcs "$deps/lib/libsqlite3.a" sqlite3.o
  # The benchmark of imports compares with SQLite's own program.
  x86_64-w64-mingw32-gcc -O2 "${options[@]}" -municode shell.c sqlite3.o -o "$deps/bin/sqlite3.exe"
  cp sqlite3.h "$deps/include"
  rm -rf "$folder"
}

# Of the packages whose files are linked or shipped as they are, and of the installer's: notices alone.
keep_notices_of_packages() {
  local version
  use_package nsis-common
  use_package libz-mingw-w64-dev
  use_package mingw-w64-x86-64-dev
  use_package gcc-mingw-w64-x86-64-posix-runtime
  cat /usr/share/common-licenses/GPL-3 >>"$deps/share/gcc-mingw-w64-x86-64-posix-runtime/copyright"
}

make_wineprefix() {
  local wineserver=/usr/lib/wine/wineserver64 caption_fonts
  version=$(/usr/lib/wine/wine64 --version)
  # No windows on the user's screen, and the prefix gets its final place only when it is complete.
  unset DISPLAY
  export MFX_WINEPREFIX=$PWD/prefix
  trap 'WINEPREFIX=$MFX_WINEPREFIX $wineserver -k' EXIT
  WINEARCH=win64 "$root/scripts/wine-run" wineboot --init
  cp /usr/share/wine/fonts/* prefix/drive_c/windows/Fonts

  # Lists of strings are given to regedit as bytes, each string and the list itself ended by a zero.
  caption_fonts=$(printf 'NotoSansCJK-Bold.ttc,Noto Sans CJK %s\0' JP KR SC TC | od -An -v -tx1 | tr -d '\n')
  caption_fonts=${caption_fonts# }
  cat >settings.reg <<REG
Windows Registry Editor Version 5.00

; A crash must end the program at once and with its exit code.
[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\AeDebug]
"Debugger"="false"

; No window manager runs here: Wine would wait two seconds for one whenever a dialog closes.
[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"
"Decorated"="N"

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"MS UI Gothic"="Noto Sans CJK JP"
"MS Gothic"="Noto Sans CJK JP"
"MS PGothic"="Noto Sans CJK JP"
"Meiryo"="Noto Sans CJK JP"
"Meiryo UI"="Noto Sans CJK JP"
"Yu Gothic UI"="Noto Sans CJK JP"
"Gulim"="Noto Sans CJK KR"
"Malgun Gothic"="Noto Sans CJK KR"
"SimSun"="Noto Sans CJK SC"
"NSimSun"="Noto Sans CJK SC"
"Microsoft YaHei"="Noto Sans CJK SC"
"Microsoft YaHei UI"="Noto Sans CJK SC"
"MingLiU"="Noto Sans CJK TC"
"PMingLiU"="Noto Sans CJK TC"
"Microsoft JhengHei"="Noto Sans CJK TC"
"Microsoft JhengHei UI"="Noto Sans CJK TC"

; The font of captions; Wine links its regular face to the fonts above, but not the bold one.
[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink]
"Tahoma Bold"=hex(7):${caption_fonts// /,},00
REG
  "$root/scripts/wine-run" regedit /S settings.reg
  WINEPREFIX=$MFX_WINEPREFIX $wineserver -k
  trap - EXIT

  # Wine links the profile's folders to those of the host's user; programs shall not write there.
  find prefix/drive_c/users -type l -execdir rm {} \; -execdir mkdir {} \;
  # It names the folder of the server's socket: a copy of the prefix would end up at the same server.
  rm prefix/wineserver
  rm -rf "$build/wineprefix"
  mv prefix "$build/wineprefix"
}

make_locales() {
  rm -rf "$build/locales"
  mkdir "$build/locales"
  for locale in ja_JP ko_KR zh_CN zh_TW fr_FR fr_CA; do
    localedef -i "$locale" -f UTF-8 "$build/locales/$locale.UTF-8"
  done
}

mkdir -p "$build/logs"
trap on_exit EXIT
# One set-up at a time, also when two scripts are started at once.
exec 9>"$build/.setup-lock"
flock -n 9 || { echo "Waiting for another set-up to finish ..."; flock 9; }

announce "Debian packages"
installed=" $(dpkg-query -W -f='${Package}=${db:Status-Status} ' "${packages[@]}" 2>/dev/null || true)"
missing=()
for package in "${packages[@]}"; do
  [[ $installed == *" $package=installed "* ]] || missing+=("$package")
done
if ((${#missing[@]})); then logged packages install_packages "${missing[@]}"; else echo "ready"; fi

for library in "${libraries[@]}"; do
  once "Library $library" "$library" "$deps/stamps/$library"
done
announce "Notices of packages"
logged notices keep_notices_of_packages
once "Wine prefix" wineprefix "$build/wineprefix/.stamp"
once "Locales" locales "$build/locales/.stamp"

if [[ -n $preset ]]; then
  announce "Configuring $preset"
  logged "$preset-configure" cmake --preset "$preset"
  announce "Building $preset"
  logged "$preset-build" cmake --build --preset "$preset" "${targets[@]}"
fi
