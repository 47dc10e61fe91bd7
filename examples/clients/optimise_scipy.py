#!/usr/bin/env python3
"""Least mass of the example panel under a limit of its deflection, by SciPy.

    optimise_scipy.py FOLDER

FOLDER holds the study of examples/loop.study after "Apply". The result is held against the closed
optimum; the exit code is 1 when they differ.
"""

import argparse
import sys

sys.dont_write_bytecode = True
from scipy.optimize import minimize  # noqa: E402

import panel_optimum as known  # noqa: E402
import velmar_study  # noqa: E402

TOLERANCE = 1e-3  # of the thicknesses, relative
MOST_POINTS = 30


def optimise(study):
    names = list(known.BOUNDS)
    answers = {}

    def responses(thicknesses):
        key = tuple(thicknesses)
        if key not in answers:
            answers[key] = study.evaluate(**dict(zip(names, key)))
            mass, deflection = (answers[key][name] for name in (known.MASS, known.DEFLECTION))
            print("  ".join(f"{value:.6f}" for value in (*key, mass, deflection)), flush=True)
        return answers[key]

    start = [float(study.nominal[name]) for name in names]
    heaviest = responses(start)[known.MASS]
    return names, minimize(
        lambda x: responses(x)[known.MASS] / heaviest, start, method="SLSQP",
        bounds=list(known.BOUNDS.values()), options={"eps": 1e-4, "ftol": 1e-7},
        constraints={"type": "ineq",
                     "fun": lambda x: 1.0 - responses(x)[known.DEFLECTION] / known.LIMIT})


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    velmar_study.add_arguments(parser)
    arguments = parser.parse_args()
    study = velmar_study.Study(arguments.folder, arguments.evaluate,
                               [f"--femap={arguments.femap}"])
    print("skin  edge  mass  deflection")
    names, found = optimise(study)
    print(f"SciPy: {found.message}; {study.points} points")
    is_right = study.points <= MOST_POINTS
    for name, value, wanted in zip(names, found.x, known.optimum()):
        print(f"{name}: {value:.6f} mm, in closed form {wanted:.6f} mm")
        is_right = is_right and abs(value - wanted) <= TOLERANCE * wanted
    return 0 if found.success and is_right else 1


if __name__ == "__main__":
    sys.exit(main())
