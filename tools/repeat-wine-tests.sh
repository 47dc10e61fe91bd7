#!/usr/bin/env bash
# Runs the Windows tests again and again under Wine, to find what fails now and then.
#
#   tools/repeat-wine-tests.sh TIMES [ctest arguments]
#
# Each round has a screen and a Wine folder of its own and keeps to one processor; each processor
# takes one round after the other. What a failing round printed is shown and kept below build/repeat.
# After each round no program of it may be left: one that is counts as a failure, is named and ended.
# A round with failed tests during which the machine itself stood still for half the time that tests
# wait tells nothing: it is named, its output is kept as well, and it is run again.
# Stops at the first round in which no test ran at all. Ends well only if every round was without
# fault.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit
build=build/windows-release
logs=build/repeat
longestRest=5  # seconds
processors=$(nproc)
times=${1-}
if [[ ! $times =~ ^[1-9][0-9]*$ ]]; then
    awk 'NR > 1 { if (!/^#/) exit; sub(/^# ?/, ""); print }' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
shift
rm -rf -- "$logs"
mkdir -p "$logs"

# Wine's programs and screens that carry this round's mark in their environment. No other program is
# looked at.
leftOf()
{
    local folder program
    for folder in /proc/[0-9]*; do
        program=$(readlink "$folder/exe" 2>/dev/null) || continue
        [[ ${program##*/} == wine* || ${program##*/} == Xvfb ]] || continue
        if grep -qzx "VELMAR_ROUND=$1" "$folder/environ" 2>/dev/null; then
            echo "${folder#/proc/}"
        fi
    done
}

# Usage: watchRests PID. As long as that process runs, says how long the processor let a program
# rest that had asked for a second, whenever that was too long.
watchRests()
{
    local last now
    IFS=. read -r last _ </proc/uptime
    while sleep 1 && kill -0 "$1" 2>/dev/null; do
        IFS=. read -r now _ </proc/uptime
        ((now - last <= longestRest)) ||
            echo "$(date +%T): the machine stood still for $((now - last)) s"
        last=$now
    done
}

# Usage: oneRound NUMBER [ctest arguments]. Only a round with a fault leaves its log. Fails if the
# round tells nothing and is to be run again.
oneRound()
{
    local round=$1 start=$SECONDS faults=() left=() pid summary watcher
    local log=$logs/$round.log rests=$logs/$round.rests mark=$$-$round shell=$BASHPID
    shift
    watchRests "$shell" >"$rests" &
    watcher=$!
    VELMAR_ROUND=$mark tools/run-wine-tests.sh "$build" \
        --no-tests=error "$@" >"$log" 2>&1 </dev/null || faults+=("ended with code $?")
    kill "$watcher"
    wait "$watcher" 2>/dev/null
    summary=$(grep -E 'tests passed, [0-9]+ tests failed' "$log")
    [[ $summary == *" out of $tests" ]] || faults+=("not all of the $tests tests ran")

    sleep 1  # for what is about to end by itself
    mapfile -t left < <(leftOf "$mark")
    for pid in "${left[@]}"; do
        faults+=("left over: $pid $(tr '\0' ' ' <"/proc/$pid/cmdline" 2>/dev/null)")
        kill "$pid" 2>/dev/null
    done

    if ((${#faults[@]} == 0)); then
        rm -f -- "$log" "$rests"
        echo "$round" >>"$logs/good"
        echo "round $round of $times: $summary ($((SECONDS - start)) s)"
        return
    fi
    if [[ -s $rests && -n $summary ]] && ((${#left[@]} == 0)); then
        local kept=$logs/$round.still-$start
        mv -- "$log" "$kept"
        echo "round $round of $times tells nothing and is run again; all of its output: $PWD/$kept"
        cat -- "$rests"
        return 1
    fi
    echo "round $round of $times FAILED; all of its output: $PWD/$log"
    printf '    %s\n' "${faults[@]}"
    cat -- "$rests"
    grep -E -A 8 'Failure$|\*\*\*|exception' "$log" | head -n 100
    if [[ -z $summary ]]; then
        echo "Stopped: what follows would tell nothing."
        touch "$logs/stop"
    fi
}

# The rounds of one processor, one after the other.
roundsOf()
{
    local processor=$1 round
    shift
    taskset -cp "$processor" "$BASHPID" >/dev/null || return
    for ((round = processor + 1; round <= times; round += processors)); do
        until [[ -e $logs/stop ]] || oneRound "$round" "$@"; do
            :
        done
    done
}

# The first list of the tests is written down below the build; the processors do not write it at once.
tests=$(tools/run-wine-tests.sh "$build" -N "$@" 2>/dev/null </dev/null |
    sed -n 's/^Total Tests: //p')
if ((${tests:-0} == 0)); then
    echo "No test is there to be run. First: cmake --workflow --preset windows-release" >&2
    exit 1
fi
touch "$logs/good"
for ((processor = 0; processor < processors; ++processor)); do
    roundsOf "$processor" "$@" &
done
wait
good=$(wc -l <"$logs/good") bad=$(find "$logs" -name '*.log' | wc -l)
again=$(find "$logs" -name '*.still-*' | wc -l)
echo "$good rounds without fault, $bad with; $((times - good - bad)) not run; $again run again"
((bad == 0 && good == times))
