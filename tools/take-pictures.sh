#!/usr/bin/env bash
# Takes the pictures of docs/pictures anew: the form and its dialog under Wine, on a screen that
# nobody sees, beside a stand-in for FEMAP with the example model open.
#
#   tools/take-pictures.sh              all of them
#   tools/take-pictures.sh SCENE...     only these: empty filled small contrast input output
#                                       findings preview busy
#
# With DOTS=144 they are taken on a screen of so many dots per inch, and with PICTURES=FOLDER they land
# there, to be looked at only. Look at each before it is committed.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"
build=build/windows-release

declare -A pictureOf=(
    [empty]=form-empty [filled]=form-filled [small]=form-small [contrast]=form-contrast
    [input]=dialog-inputs [output]=dialog-outputs
    [findings]=findings [preview]=preview [busy]=form-busy)
pictures=${PICTURES:-docs/pictures}

# Runs one scene on the screen that is there and takes its picture.
take()
{
    local scene=$1 folder
    folder=$(mktemp -d)
    # The Wine folder starts anew for that.
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "${DOTS:-96}" /f \
        >/dev/null 2>&1 </dev/null
    # What a theme draws here does not follow the colours.
    local theme=1
    [[ $scene == contrast ]] && theme=0
    wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager' /v ThemeActive \
        /d "$theme" /f >/dev/null 2>&1 </dev/null
    wineserver -k || true
    wineserver -w
    wineserver -p >/dev/null 2>&1  # it would keep what reads this script's output waiting
    wine cmd /c rem >/dev/null 2>&1 </dev/null

    (cd "$folder" && exec wine "$top/$build/tests/form_scenes.exe" \
        --gtest_filter="Scene.$scene") </dev/null >"$folder/output" 2>&1 &
    local program=$! place
    while kill -0 "$program" 2>/dev/null; do
        if [[ -e $folder/$scene.shown ]]; then
            place=$(tr -d '\r' <"$folder/$scene.shown")
            import -window root -crop "$place" +repage -colors 256 \
                "PNG8:$pictures/${pictureOf[$scene]}.png"
            rm "$folder/$scene.shown"
        fi
        sleep 0.1
    done
    if ! wait "$program"; then
        cat "$folder/output"
        exit 1
    fi
    rm -r "$folder"
    echo "$pictures/${pictureOf[$scene]}.png"
}

if [[ ${1-} == --on-this-screen ]]; then
    shift
    for scene in "$@"; do
        take "$scene"
    done
    exit
fi

scenes=("$@")
((${#scenes[@]})) || scenes=(empty filled small contrast input output findings preview busy)
for scene in "${scenes[@]}"; do
    if [[ ! -v pictureOf[$scene] ]]; then
        echo "There is no scene $scene." >&2
        exit 2
    fi
done
cmake --preset windows-release >/dev/null
cmake --build --preset windows-release --target form_scenes
mkdir -p "$pictures"
RUN_INSTEAD="tools/take-pictures.sh --on-this-screen ${scenes[*]}" tools/run-wine-tests.sh "$build"
