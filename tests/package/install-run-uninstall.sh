#!/usr/bin/env bash
# Installs what ./package made, uses it, takes it away again and looks for what is left. Needs a Wine
# folder of its own and a screen:
#
#   RUN_INSTEAD=tests/package/install-run-uninstall.sh tools/run-wine-tests.sh build/windows-release
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
top=$PWD
# Wine would put the Start menu's entries into the menus of this machine, too.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES-};winemenubuilder.exe="
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
entry='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\VelmarFemapInterface'
home=$(winepath -u "$(wine cmd /c 'echo %USERPROFILE%' 2>/dev/null | tr -d '\r')" 2>/dev/null)
folder=$home/AppData/Local/Programs/VelmarFemapInterface
menu="$home/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"

fail()
{
    echo "FAILED: $*" >&2
    exit 1
}

says() { echo "-- $*"; }

# Everything on the disk but temporary files.
disk() { (cd "$WINEPREFIX/drive_c" && find . -ipath '*/temp/*' -prune -o -print | sort); }

# All that the registry has for this user but what Wine keeps there for itself.
registry()
{
    wine reg export 'HKCU\Software' "$(winepath -w "$work/all.reg" 2>/dev/null)" /y >/dev/null 2>&1
    iconv -f UTF-16 -t UTF-8 "$work/all.reg" |
        awk '/^\[/ { isWines = /\\Software\\Wine/ } !isWines'
}

valueOf()
{
    wine reg query "$entry" /v "$1" 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_[A-Z]*  *//p'
}

# Usage: waitFor WHAT COMMAND...
waitFor()
{
    local what=$1 tries=0
    shift
    until "$@"; do
        ((++tries <= 200)) || fail "$what"
        sleep 0.1
    done
}

isThere() { xdotool search --onlyvisible --name '^Velmar-Femap Interface$' >/dev/null 2>&1; }
isGone() { ! isThere; }
hasNoEntry() { ! wine reg query "$entry" >/dev/null 2>&1; }
# The debugger lists the processes of this Wine folder alone; tests run without it otherwise.
processes() { WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe=' wine winedbg --command 'info proc' 2>/dev/null; }
hasNoStandin() { [[ $(processes) != *femap-standin* ]]; }
hasNoFolder() { [[ ! -e $folder ]]; }

tryIt() { wine cmd /c "$(winepath -w "$folder/try-it/try-it.cmd" 2>/dev/null)" </dev/null; }
install() { wine "$setup" /S </dev/null >/dev/null 2>&1; }

# As Windows does it: the program works on as a copy of itself.
uninstall() { wine "$folder/uninstall.exe" /S </dev/null >/dev/null 2>&1; }
# Waits for its end and learns how it ended.
uninstallAndWait()
{
    wine "$folder/uninstall.exe" /S "_?=$(winepath -w "$folder" 2>/dev/null)" </dev/null >/dev/null 2>&1
}

setup=$(ls build/package/VelmarFemapInterface-*-setup.exe)
archive=$(ls build/package/VelmarFemapInterface-*.zip)
version=${archive##*-}
version=${version%.zip}
unzip -q "$archive" -d "$work"
packed=$work/VelmarFemapInterface-$version
mkdir -p "$home/AppData/Local/Programs"  # as Windows has it

says "It installs silently, for the user alone"
disk >"$work/disk.before"
wine reg add "${entry%\\*}" /f >/dev/null 2>&1  # as Windows has it
registry >"$work/registry.before"
install || fail "setup ended with code $?"
[[ -f $folder/uninstall.exe ]] || fail "there is no $folder/uninstall.exe"
diff -r --exclude=uninstall.exe "$packed" "$folder" || fail "the disk does not hold what the zip holds"
[[ $(valueOf DisplayVersion) == "$version" ]] || fail "the list of apps shows \"$(valueOf DisplayVersion)\""
[[ $(valueOf QuietUninstallString) == *'uninstall.exe" /S' ]] || fail "no silent way to uninstall"
for link in 'Velmar-Femap Interface' 'Guide' 'Try it without FEMAP'; do
    [[ -f "$menu/Velmar-Femap Interface/$link.lnk" ]] || fail "the Start menu lacks $link"
done

grep -qaP '\$\0\$\0A\0L\0W\0A\0Y\0S' "$menu/Velmar-Femap Interface/Velmar-Femap Interface.lnk" ||
    fail "the form of the Start menu keeps no log"

says "It installs over itself"
install || fail "the second setup ended with code $?"
diff -r --exclude=uninstall.exe "$packed" "$folder" || fail "the second setup left something else"

says "The guide stands alone"
! grep -oE '(src|href)="[^"]*"' "$folder/guide.html" | grep -vE '^src="data:|^href="#' ||
    fail "the guide leads outside"

says "velmar-study replays the examples"
told=$(wine "$folder/velmar-study.exe" --version 2>/dev/null | tr -d '\r')
[[ $told == "velmar-study $version" ]] || fail "velmar-study says it is \"$told\""
for study in panel ombra; do
    mkdir "$work/$study"
    cp "$folder/try-it/panel.neu" "$folder/try-it/$study.study" "$work/$study/"
    (cd "$work/$study" && wine "$folder/velmar-study.exe" --femap=embedded --quiet "$study.study") \
        </dev/null >"$work/$study.out" 2>&1 || fail "$study.study: $(cat "$work/$study.out")"
    diff -r -x '*.neu' -x '*.study' "$top/tests/golden/example/$study" "$work/$study" ||
        fail "$study.study wrote other files than the golden ones"
done

says "The loop runs as the readme of the try-out shows"
mkdir "$work/loop"
cp "$folder"/try-it/{panel.neu,loop.study} "$work/loop/"
(cd "$work/loop" && export WINEPATH="$(winepath -w "$folder/try-it" 2>/dev/null)" &&
    wine "$folder/velmar-study.exe" --femap=embedded --quiet loop.study &&
    wine "$folder/velmar-evaluate.exe" --femap=embedded --prove) \
    </dev/null >"$work/loop.out" 2>&1 || fail "the loop: $(cat "$work/loop.out")"

says "A form that ends by an error says why, and where its log is"
code=0
wine "$folder/VelmarFemapInterface.exe" '$end.log$ALWAYS' </dev/null >/dev/null 2>"$work/end.err" || code=$?
[[ $code == 1 ]] || fail "a form without FEMAP ended with code $code"
grep -q '^VelmarFemapInterface: FEMAP does not run and could not be started: ' "$work/end.err" &&
    grep -q '^VelmarFemapInterface: The log of this run: .*end\.log' "$work/end.err" ||
    fail "it said: $(cat "$work/end.err")"

says "The form opens beside the stand-in, cannot be uninstalled meanwhile, and closes"
tryIt >"$work/try.out" 2>&1 &
try=$!
waitFor "the form did not appear" isThere
hasNoStandin && fail "there is no stand-in"
code=0
uninstallAndWait || code=$?
[[ $code == 2 ]] || fail "the uninstaller of a running form ended with code $code"
code=0
install || code=$?
[[ $code == 2 ]] || fail "setup over a running form ended with code $code"
[[ -f $folder/VelmarFemapInterface.exe ]] || fail "a running form was taken away"
xdotool key alt+F4
waitFor "the form did not close" isGone
code=0
wait "$try" || code=$?
[[ $code == 0 ]] || fail "try-it.cmd ended with code $code: $(cat "$work/try.out")"
! wine reg query 'HKLM\Software\Classes\femap.model' >/dev/null 2>&1 ||
    fail "the stand-in is still registered"
waitFor "the stand-in still runs" hasNoStandin

says "The stand-in ends also with a form that is ended"
tryIt >"$work/try.out" 2>&1 &
try=$!
waitFor "the form did not appear" isThere
wine taskkill /f /im VelmarFemapInterface.exe </dev/null >/dev/null 2>&1
wait "$try" || fail "try-it.cmd ended with code $?: $(cat "$work/try.out")"
waitFor "the stand-in still runs" hasNoStandin

says "It uninstalls silently, and nothing is left but what it did not bring"
echo mine >"$folder/notes.txt"
uninstall || fail "the uninstaller ended with code $?"
waitFor "the entry in the list of apps is still there" hasNoEntry
[[ $(cat "$folder/notes.txt") == mine ]] || fail "a file of the user is gone"
[[ $(ls -A "$folder") == notes.txt ]] || fail "left behind: $(ls -A "$folder")"
rm -r "$folder"
install || fail "setup ended with code $?"
uninstall || fail "the uninstaller ended with code $?"
waitFor "the folder is still there" hasNoFolder
waitFor "the entry in the list of apps is still there" hasNoEntry
registry | diff "$work/registry.before" - || fail "the registry is another one"
disk | diff "$work/disk.before" - || fail "the disk is another one"

echo "all is as it was"
