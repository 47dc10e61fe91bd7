#!/usr/bin/env bash
# Optimises the example's study by SciPy beside the stand-in, which takes FEMAP's place: over COM, with
# the programs that users get. Runs in the Wine that tools/run-wine-tests.sh makes:
#
#   RUN_INSTEAD=tests/clients/under-wine.sh tools/run-wine-tests.sh build/windows-release
set -euo pipefail
top=$(realpath -- "$(dirname "${BASH_SOURCE[0]}")/../..")
programs=$top/build/windows-release/programs
work=$(mktemp -d)
standin=
cleanUp()
{
    [[ -z $standin ]] || kill "$standin" 2>/dev/null || true
    rm -rf -- "$work"
}
trap cleanUp EXIT
# Where Windows looks for the solver that the study names.
export WINEPATH=Z:${programs//\//\\}

mkdir "$work/study"
cp "$top"/examples/{panel.neu,loop.study} "$work/study"
cd "$work/study"
wine "$programs/velmar-study.exe" --femap=embedded loop.study >/dev/null
for generation in classic modern; do
    echo "== beside a $generation FEMAP"
    wine "$programs/test-standin.exe" "--$generation" --model "Z:$work/study/panel.neu" &
    standin=$!
    cat >"$work/velmar-evaluate" <<EVALUATE
#!/bin/sh
exec wine '$programs/velmar-evaluate.exe' "\$@"
EVALUATE
    chmod +x "$work/velmar-evaluate"
    /usr/bin/python3 "$top/examples/clients/optimise_scipy.py" "$work/study" \
        --evaluate "$work/velmar-evaluate" --femap running
    kill "$standin"
    wait "$standin" 2>/dev/null || true
    standin=
done
