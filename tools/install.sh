# Sourced by the scripts that need programs: `need THING:PACKAGE ...` installs the packages whose
# thing, a command or a path, is missing. With everything there it uses no network; for those who may
# not install it prints the one command that does, and fails.

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

    mapfile -t missing < <(printf '%s\n' "${missing[@]}" | sort -u)
    local install="apt-get update && apt-get install --no-install-recommends -y ${missing[*]}"
    if ! command -v apt-get >/dev/null || ((EUID != 0)); then
        printf 'Something is missing. This installs it on Debian 12, as root:\n\n    %s\n\n' \
            "$install" >&2
        return 1
    fi
    echo "Installing: ${missing[*]}"
    DEBIAN_FRONTEND=noninteractive sh -c "$install" >/dev/null
}

needToBuild=(g++:g++ cmake:cmake ninja:ninja-build)
needToTest=("${needToBuild[@]}" /usr/include/gtest/gtest.h:libgtest-dev
    /usr/include/gmock/gmock.h:libgmock-dev python3:python3)
needToBench=("${needToTest[@]}" /usr/include/benchmark/benchmark.h:libbenchmark-dev)
needWindows=("${needToBuild[@]}" x86_64-w64-mingw32-g++-posix:g++-mingw-w64-x86-64-posix
    /usr/src/googletest/CMakeLists.txt:googletest)
needWine=("${needWindows[@]}" wine:wine /usr/lib/wine/wine64:wine64
    /usr/share/wine/fonts:fonts-wine Xvfb:xvfb xauth:xauth xdotool:xdotool import:imagemagick)
needPackage=("${needWine[@]}" x86_64-w64-mingw32-strip:binutils-mingw-w64-x86-64 python3:python3
    cmark-gfm:cmark-gfm zip:zip makensis:nsis)
