# Sourced by the scripts that need programs: `need THING:PACKAGE ...` installs the packages whose
# thing, a command or a path, is missing. With everything there it uses no network.

need()
{
    local pair thing missing=()
    for pair in "$@"; do
        thing=${pair%%:*}
        if [[ $thing == /* ]]; then
            [[ -e $thing ]] || missing+=("${pair##*:}")
        else
            command -v "$thing" >/dev/null || missing+=("${pair##*:}")
        fi
    done
    ((${#missing[@]})) || return 0

    echo "Installing: ${missing[*]}"
    if ! command -v apt-get >/dev/null || ((EUID != 0)); then
        echo "Please install these Debian packages first, or run this as root on Debian 12:" \
            "${missing[*]}" >&2
        return 1
    fi
    apt-get update -q >/dev/null &&
        DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends "${missing[@]}" >/dev/null
}

needToBuild=(g++:g++ cmake:cmake ninja:ninja-build)
needToTest=("${needToBuild[@]}" /usr/include/gtest/gtest.h:libgtest-dev
    /usr/include/gmock/gmock.h:libgmock-dev python3:python3)
needToBench=("${needToTest[@]}" /usr/include/benchmark/benchmark.h:libbenchmark-dev)
needWindows=("${needToBuild[@]}" x86_64-w64-mingw32-g++-posix:g++-mingw-w64-x86-64-posix
    /usr/src/googletest/CMakeLists.txt:googletest)
needWine=("${needWindows[@]}" wine:wine /usr/lib/wine/wine64:wine64
    /usr/share/wine/fonts:fonts-wine Xvfb:xvfb xauth:xauth xdotool:xdotool import:imagemagick)
