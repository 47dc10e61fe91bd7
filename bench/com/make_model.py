"""Writes a neutral file for the benchmark of reading through COM.

    make_model.py FILE NODES

So many nodes, as many plates, ten vectors of results at the nodes, and 1000 each of beam properties
and materials.
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "examples"))
import neutral_file as neutral  # noqa: E402

PROPERTIES = 1000
VECTORS = 10
BEAM = 5
PLATE = 17


def coordinate(node, axis):
    return (node * 7919 + axis) % 100000 / 1000


def model_lines(nodes):
    ids = range(1, nodes + 1)
    some = range(1, PROPERTIES + 1)
    lines = neutral.header_block()
    lines += neutral.block(601, neutral.each(neutral.material_lines, (
        (n, f"Material {n}", 0, {i: n + i / 64 for i in range(60)}) for n in some)))
    lines += neutral.block(402, neutral.each(neutral.property_lines, (
        (n, f"Beam {n}", 1, BEAM, {i: n + i / 64 for i in range(30)}) for n in some)))
    lines += neutral.block(403, neutral.each(neutral.node_lines, (
        (n, *(coordinate(n, axis) for axis in range(3))) for n in ids)))
    lines += neutral.block(404, neutral.each(neutral.element_lines, (
        (n, 1, PLATE, 4, [(n + step) % nodes + 1 for step in (0, 1, 12, 11)], (0.0, 0.0, 0.0),
         (0.0, 0.0, 0.0), ()) for n in ids)))
    lines += neutral.block(450, neutral.output_set_lines(1, "Results", "Benchmark"))
    lines += neutral.block(1051, [line for v in range(1, VECTORS + 1) for line in neutral.vector_lines(
        1, v, (f"T{v} Translation", 1, 7, (), True),
        {n: coordinate(n, v) / 1024 for n in ids})])
    return lines


def main():
    path, nodes = sys.argv[1], int(sys.argv[2])
    with open(path, "w", encoding="ascii", newline="\r\n") as file:
        file.writelines(line + "\n" for line in model_lines(nodes))


if __name__ == "__main__":
    main()
