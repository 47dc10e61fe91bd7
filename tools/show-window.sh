#!/usr/bin/env bash
# Shows the form under Wine beside a stand-in for FEMAP that has a model open.
#
#   tools/show-window.sh MODEL.neu
#
# Without a display it does so on one that nobody sees, saves a picture and ends.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
top=$PWD
build=$top/build/windows-release
folder=$top/build/window

# Starts both programs on the screen that is there; $1 is the model.
start()
{
    local model=$1 tries=0
    cp -- "$model" "$folder/"
    model=$(winepath -w "$folder/${model##*/}" 2>/dev/null)
    export TEMP=$folder
    cd "$folder"
    wine "$build/programs/femap-standin.exe" --model "$model" >standin.txt 2>&1 \
        </dev/null &
    standin=$!
    until grep -q ready standin.txt; do
        if ! kill -0 "$standin" 2>/dev/null || ((++tries > 300)); then
            cat standin.txt >&2
            exit 1
        fi
        sleep 0.2
    done
    # shellcheck disable=SC2016 # the "$" are the program's own
    wine "$build/programs/VelmarFemapInterface.exe" '$window.log$DEBUG' </dev/null \
        >form.txt 2>&1 &
    form=$!
}

picture()
{
    local tries=0
    until xdotool search --onlyvisible --name 'Velmar-Femap Interface' >/dev/null 2>&1; do
        if ! kill -0 "$form" 2>/dev/null || ((++tries > 300)); then
            cat form.txt >&2
            exit 1
        fi
        sleep 0.2
    done
    sleep 1
    import -window root window.png
    echo "Picture of the screen: $folder/window.png"
    kill "$form" "$standin" 2>/dev/null || true
}

if [[ ${1-} == --picture ]]; then
    start "$2"
    picture
    exit
fi

source tools/install.sh
need "${needWine[@]}"
model=$1
rm -rf -- "$folder"
mkdir -p "$folder"
echo "== Building the Windows programs"
if ! { cmake --preset windows-release && cmake --build --preset windows-release \
    --target VelmarFemapInterface femap-standin; } >"$folder/build.log" 2>&1; then
    tail -n 40 "$folder/build.log"
    exit 1
fi

if [[ -z ${DISPLAY-} ]]; then
    MODEL=$model RUN_INSTEAD='tools/show-window.sh --picture "$MODEL"' \
        tools/run-wine-tests.sh "$build"
    exit
fi

export WINEPREFIX=${WINEPREFIX-$folder/wine} WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
mkdir -p "$WINEPREFIX"
wine wineboot -i >/dev/null 2>&1 </dev/null
wineserver -k || true
wineserver -w
start "$model"
echo "== The form is open; FEMAP's selection dialogs appear as windows of the stand-in"
wait "$form" || true
kill "$standin" 2>/dev/null || true
