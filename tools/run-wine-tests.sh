#!/bin/sh
# Runs the tests of a Windows build under Wine, with a screen that nobody sees and a Wine folder of
# their own.
#
#   tools/run-wine-tests.sh BUILD_DIR [ctest arguments]
#
# With the variable RUN_INSTEAD set, that command runs instead of ctest.
set -eu
# Every Windows program has a page at 0x7ffe0000. Where Linux scatters addresses, the heap of about one
# in 8000 lies there already, and Wine does not start it.
case $(cat /proc/self/personality) in
*[4567cdef]????) ;;
*) setarch -R true 2>/dev/null && exec setarch -R "$0" "$@" ;;
esac
build=$1
shift
work=$(mktemp -d)
export WINEPREFIX="$work/prefix" WINEDEBUG=-all LC_ALL=C.UTF-8
# No offers to fetch add-ons, and no window when a program crashes: it ends with code 5 at once.
export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
screen= holder=
cleanUp()
{
    # One that is still starting would start Wine's server again.
    if [ -n "$holder" ]; then
        kill "$holder" 2>/dev/null || true
        wait "$holder" 2>/dev/null || true
    fi
    wineserver -k >/dev/null 2>&1 || true
    wineserver -w || true
    if [ -n "$screen" ]; then
        kill "$screen" 2>/dev/null || true
        wait "$screen" 2>/dev/null || true
    fi
    rm -rf "$work"
}
trap cleanUp EXIT
trap 'exit 130' INT TERM

Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
screen=$!
tries=0
while [ ! -s "$work/display" ]; do
    tries=$((tries + 1))
    [ "$tries" -le 100 ] || exit 1
    sleep 0.1
done
DISPLAY=":$(cat "$work/display")"
export DISPLAY

mkdir -p "$WINEPREFIX"
wine wineboot -i >/dev/null 2>&1 </dev/null
# The first start leaves two service managers behind, with which starting a COM server may hang.
wineserver -k || true
wineserver -w
ln -s /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
# Wine's background programs start now and not inside a test, whose output they would hold open.
wineserver -p
# The heap puts a mark behind each block; the tests look whether the marks are still there. Where no
# window has long lists, with which that takes Wine minutes, it also looks after freed blocks. The
# numbers are Windows' flags for that.
{
    printf 'Windows Registry Editor Version 5.00\r\n\r\n'
    find "$build" -name '*.exe' -printf '%f\n' | sort -u | while read -r program; do
        case $program in
        system_test.exe | windows_test.exe | reliability_test.exe) flags=30 ;;
        *) flags=10 ;;
        esac
        printf '[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\'
        printf 'Image File Execution Options\\%s]\r\n"GlobalFlag"=dword:000000%s\r\n\r\n' \
            "$program" "$flags"
    done
} >"$work/heap.reg"
wine reg import "Z:$work/heap.reg" >/dev/null 2>&1 </dev/null
export VELMAR_HEAP_CHECKED=1
# Without a window manager Wine draws captions and gives the focus itself.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 </dev/null
# A command line that waits holds the desktop. A second after the last program Wine ends it, and then
# every test would wait more than a second for one of its own.
mkfifo "$work/silence"
wine cmd <>"$work/silence" >/dev/null 2>&1 &
holder=$!

if [ -n "${RUN_INSTEAD-}" ]; then
    sh -c "$RUN_INSTEAD"
else
    ctest --test-dir "$build" --output-on-failure "$@"
fi
