#!/usr/bin/env bash
# Runs the example's study from three optimisers, as docs/optimisers.md shows it: each in a folder of
# its own, each held against what is known of the panel.
#
#   tests/clients/run.sh PROGRAMS      the folder of the native programs
set -euo pipefail
programs=$(realpath -- "$1")
examples=$(realpath -- "$(dirname "${BASH_SOURCE[0]}")/../../examples")
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export PATH=$programs:$PATH

# The interpreter that Debian's packages are for.
for client in optimise_scipy surface_openturns cluster_dask; do
    echo "== $client"
    mkdir "$work/$client"
    cp "$examples"/{panel.neu,loop.study} "$work/$client"
    (cd "$work/$client" && velmar-study loop.study >/dev/null)
    /usr/bin/python3 "$examples/clients/$client.py" "$work/$client"
done
