"""A study's folder as a function: values in, responses out, by the program velmar-evaluate.

Numbers are read and written as the study's own files hold them: InputValues.txt and
OutputValues.txt, a line for each row, the name, two blanks and the value.
"""

import os
import shutil
import subprocess
import tempfile

# The files are in the code page of Windows; elsewhere they are in Windows-1252.
ENCODING = "mbcs" if os.name == "nt" else "cp1252"
# What of a study's folder a point does not need.
LEFT_BEHIND = shutil.ignore_patterns("*.csv", "*.log", "*.run.neu", "*.results.neu", "~*")


class PointFailed(RuntimeError):
    """A point that gave no responses; the text is what velmar-evaluate said."""


def read_values(path):
    """Name -> text of the value, in the order of the rows."""
    with open(path, encoding=ENCODING) as file:
        lines = [line.rstrip("\r\n") for line in file]
    rows = (line.rpartition("  ") for line in lines if line.strip())
    return {name.rstrip(): value.strip() for name, _, value in rows}


def write_values(path, values):
    with open(path, "w", encoding=ENCODING, newline="\r\n") as file:
        for name, value in values.items():
            file.write(f"{name}  {value}\n")


class Study:
    """A folder with an applied study. options: further arguments of velmar-evaluate."""

    def __init__(self, folder, program="velmar-evaluate", options=()):
        self.folder = os.path.abspath(folder)
        self.program = program
        self.options = list(options)
        self.nominal = read_values(os.path.join(self.folder, "InputValues.txt"))
        self.points = 0

    def evaluate(self, **values):
        """Responses as numbers, by name. What is not given stays nominal."""
        unknown = set(values) - set(self.nominal)
        if unknown:
            raise KeyError(f"the study has no input {', '.join(sorted(unknown))}")
        # repr keeps every digit; numpy's numbers are made plain ones first.
        given = {name: repr(float(value)) for name, value in values.items()}
        inputs = os.path.join(self.folder, "InputValues.txt")
        write_values(inputs, {**self.nominal, **given})
        self.points += 1
        try:
            self.run()
            outputs = read_values(os.path.join(self.folder, "OutputValues.txt"))
        finally:
            write_values(inputs, self.nominal)
        return {name: float(value) for name, value in outputs.items()}

    def run(self, *arguments):
        """velmar-evaluate in the study's folder."""
        done = subprocess.run([self.program, "--folder", self.folder, *self.options, *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              errors="replace", check=False)
        if done.returncode != 0:
            raise PointFailed(done.stdout.strip())
        return done.stdout


def evaluate_in_a_copy(folder, values, program="velmar-evaluate", options=()):
    """One point in a folder of its own, so that many can run at once."""
    with tempfile.TemporaryDirectory(prefix="velmar-point-") as scratch:
        copy = os.path.join(scratch, "study")
        shutil.copytree(folder, copy, ignore=LEFT_BEHIND)
        return Study(copy, program, options).evaluate(**values)


def add_arguments(parser):
    """The arguments that all clients have."""
    parser.add_argument("folder", help="the study's folder, after \"Apply\"")
    parser.add_argument("--evaluate", default="velmar-evaluate", metavar="PROGRAM",
                        help="where velmar-evaluate is, unless it is found by its name")
    parser.add_argument("--femap", default="embedded", choices=("embedded", "running"))
