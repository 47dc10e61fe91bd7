#!/usr/bin/env python3
"""A design of experiments on the example panel and a response surface of it, by OpenTURNS.

    surface_openturns.py FOLDER [-j N]

The points are computed by one call of velmar-evaluate, N at a time. The surface is held against
points that it was not made of; the exit code is 1 when it is off.
"""

import argparse
import csv
import os
import sys

sys.dont_write_bytecode = True
import openturns as ot  # noqa: E402

import panel_optimum as known  # noqa: E402
import velmar_study  # noqa: E402

POINTS, DEGREE = 20, 3
TOLERANCE = 0.01  # relative


def design():
    """A Latin hypercube, the same one each time."""
    ot.RandomGenerator.SetSeed(1)
    ranges = [ot.Uniform(low, high) for low, high in known.BOUNDS.values()]
    return ot.LHSExperiment(ot.ComposedDistribution(ranges), POINTS).generate()


def compute(study, points, jobs):
    """One row a point: into points.csv, out of results.csv."""
    table, results = (os.path.join(study.folder, name) for name in ("points.csv", "results.csv"))
    with open(table, "w", encoding="utf-8", newline="") as file:
        writer = csv.writer(file)
        writer.writerow(known.BOUNDS)
        writer.writerows([repr(float(value)) for value in point] for point in points)
    if os.path.exists(results):
        os.remove(results)
    study.run("--points", table, "--results", results, "-j", str(jobs))
    with open(results, encoding="utf-8", newline="") as file:
        rows = list(csv.DictReader(file))
    # With several at a time they end in any order.
    found = {tuple(float(row[name]) for name in known.BOUNDS): float(row[known.DEFLECTION])
             for row in rows}
    return ot.Sample([[found[tuple(point)]] for point in points])


def surface(points, deflections):
    dimension = points.getDimension()
    basis = ot.OrthogonalProductPolynomialFactory(
        [ot.LegendreFactory()] * dimension, ot.LinearEnumerateFunction(dimension))
    terms = basis.getEnumerateFunction().getStrataCumulatedCardinal(DEGREE)
    low, high = zip(*known.BOUNDS.values())
    scaled = ot.Sample([[2.0 * (value - a) / (b - a) - 1.0 for value, a, b in zip(point, low, high)]
                        for point in points])
    fit = ot.LeastSquaresMetaModelSelectionFactory()
    algorithm = ot.FunctionalChaosAlgorithm(
        scaled, deflections, ot.ComposedDistribution([ot.Uniform(-1.0, 1.0)] * dimension),
        ot.FixedStrategy(basis, terms), ot.LeastSquaresStrategy(fit))
    algorithm.run()
    model = algorithm.getResult().getMetaModel()
    return lambda point: model([2.0 * (value - a) / (b - a) - 1.0
                                for value, a, b in zip(point, low, high)])[0]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    velmar_study.add_arguments(parser)
    parser.add_argument("-j", type=int, default=2, metavar="N", help="points at a time")
    arguments = parser.parse_args()
    study = velmar_study.Study(arguments.folder, arguments.evaluate,
                               [f"--femap={arguments.femap}"])
    points = design()
    model = surface(points, compute(study, points, arguments.j))
    worst = 0.0
    for skin in (1.5, 3.0, 4.5, 6.5):
        said, is_so = model([skin, 3.0]), known.deflection(skin)
        worst = max(worst, abs(said / is_so - 1.0))
        print(f"skin {skin} mm: surface {said:.5f} mm, in closed form {is_so:.5f} mm")
    print(f"{POINTS} points; off by at most {100.0 * worst:.2f} %")
    return 0 if worst <= TOLERANCE else 1


if __name__ == "__main__":
    sys.exit(main())
