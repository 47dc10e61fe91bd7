#!/usr/bin/env python3
"""Points of the example panel on a cluster, by dask.distributed, each in a folder of its own.

    cluster_dask.py FOLDER [--scheduler ADDRESS]

Without an address a cluster of two workers is made on this machine. The responses are held against
those of the same points computed one after the other; the exit code is 1 when they differ.
"""

import argparse
import os
import sys

sys.dont_write_bytecode = True
from dask.distributed import Client, LocalCluster  # noqa: E402

import panel_optimum as known  # noqa: E402
import velmar_study  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
POINTS = [{known.SKIN: skin, known.EDGE: edge} for skin in (2.0, 3.5, 5.0) for edge in (3.0, 6.0)]


def evaluate(folder, values, program, options):
    """Runs on a worker, which sees the same folders."""
    if HERE not in sys.path:
        sys.path.insert(0, HERE)
    import velmar_study as on_the_worker
    return on_the_worker.evaluate_in_a_copy(folder, values, program, options)


def on_cluster(client, arguments, options):
    folder = os.path.abspath(arguments.folder)
    futures = [client.submit(evaluate, folder, values, arguments.evaluate, options, pure=False)
               for values in POINTS]
    return client.gather(futures)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    velmar_study.add_arguments(parser)
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of a cluster that runs already")
    arguments = parser.parse_args()
    options = [f"--femap={arguments.femap}"]
    if arguments.scheduler:
        with Client(arguments.scheduler) as client:
            answers = on_cluster(client, arguments, options)
    else:
        with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, \
                Client(cluster) as client:
            answers = on_cluster(client, arguments, options)
    study = velmar_study.Study(arguments.folder, arguments.evaluate, options)
    is_same = True
    for values, answer in zip(POINTS, answers):
        alone = study.evaluate(**values)
        is_same = is_same and answer == alone
        print(values, answer, "" if answer == alone else f"but one after the other {alone}")
    return 0 if is_same else 1


if __name__ == "__main__":
    sys.exit(main())
