"""Lines of a FEMAP neutral file of version 11: one function for each kind of entity."""

VERSION = 11.0
RIGID = 29


def real(number):
    """A real as FEMAP writes it: always with a point."""
    if number == 0.0:
        return "0."
    text = f"{number:.7G}"
    mantissa, exponent, power = text.partition("E")
    return (mantissa if "." in mantissa else mantissa + ".") + exponent + power


def record(*values):
    """One line of values, each followed by a comma."""
    return "".join((real(v) if isinstance(v, float) else str(v)) + "," for v in values)


def table(values, per_line):
    return [record(*values[i:i + per_line]) for i in range(0, len(values), per_line)]


def counted(values, per_line):
    return [record(len(values))] + table(values, per_line)


def placed(values, size):
    """An array of reals of which only some places are used."""
    return [float(values.get(place, 0.0)) for place in range(size)]


def each(lines_of, rows):
    return [line for row in rows for line in lines_of(*row)]


def block(number, lines):
    return ["   -1", f"{number:6}"] + lines + ["   -1"]


def header_block():
    return block(100, ["<NULL>", record(VERSION)])


def material_lines(number, title, kind, reals):
    flags = [0, 0, 0, 0, kind, 0, 0, 0, 0, 0]
    return ([record(number, -601, 104, kind, 0, 1, 0), title] + counted(flags, 10)
            + counted([0] * 25, 10) + counted(placed(reals, 200), 10) + counted([0] * 50, 10)
            + counted([0] * 70, 10))


def property_lines(number, title, material, kind, values, layup=0):
    return ([record(number, 110, material, kind, 1, 0, layup), title, record(0, 0, 0, 0)]
            + counted([0] * 10, 8) + counted(placed(values, 75), 5) + [record(0), record(0)])


def layup_lines(number, plies):
    """Plies are (material, thickness, angle)."""
    return ([record(number), "<NULL>", record(len(plies))]
            + [record(material, 0, 0, thickness, angle) for material, thickness, angle in plies]
            + [record(0)])


def node_lines(number, x, y, z):
    return [record(number, 0, 0, 1, 46, 0, 0, 0, 0, 0, 0, x, y, z, 0, 0)]


def element_lines(number, prop, kind, shape, mesh, orientation, offset, followers):
    """Line elements have an axis and a vector as orientation and offset, planar ones an angle and a
    distance in the first place; rigid ones have the nodes that they move."""
    slots = list(mesh) + [0] * (20 - len(mesh))
    lines = [record(number, 124, prop, kind, shape, 1, 0, 0, 0, 0, 0, 0, 0, 0)]
    lines += table(slots, 10) + [record(*orientation, 0, 0, 0, 0, 0, 0)]
    lines += [record(*offset)] * 2
    if kind != RIGID:
        return lines + [record(*[0] * 16)]
    return (lines + [record(*[0] * 12, 1, 0, 0, 0)]
            + [record(node, 0, 1.0, 1, 1, 1, 0, 0, 0) for node in followers]
            + [record(-1, 0, 0.0, 0, 0, 0, 0, 0, 0)])


def function_lines(number, title, kind, points):
    return ([record(number, kind), title]
            + [record(n, x, y) for n, (x, y) in enumerate(points, start=1)]
            + [record(-1, 0.0, 0.0)])


def constraint_lines(title, definition, supports):
    """Supports are (node, the six degrees of freedom that are held)."""
    lines = [record(1, 0), title]
    lines += [record(node, 120, 1, *held, 0, 1) for node, held in supports]
    lines += [record(-1, -1, -1, *[0] * 8)]
    lines += [record(-1, -1, -1, *[0] * 8, 0.0, 0.0, 0.0, 0, 0)] * 3
    return lines + [record(-1, -1, -1, 0), record(1, 18, 7), definition, record(-1, 0, 0)]


# Body loads and options of a load set that uses none of them; a "." stands for a real.
BODY_LOADS = ["0 . 0 0 0 0 . 0", ". . . 0 0 0", ". . . 0 0 0", ". . . . . . 0 0", ". . . 0 0 0",
              ". . . 0", ". . . .", ". . . .", "0 0 0", "0 0 0", ". . . .", ". . .",
              ". . . . . .", ". . . . . . . . . . . .", "0 0 0 0 0 0 0 0 0", "0 0 0 0 0 0 0 0",
              "0 0 0 0 0 0 0 0", "0 0 0 0 0 0 0", "0 0 0 0 0 0 0 0 0 0 0"]


def mesh_load_lines(definition, kind, entity, freedom, values):
    five = list(values) + [0.0] * (5 - len(values))
    return [record(entity, kind, 10, 1, 0, 0, 0, definition), record(*freedom), record(*five),
            record(0, 0, 0, 0, 0), record(0, 0, 0, 0, 0), record(0, 0, 0), record(0.0, 0.0, 0.0)]


def geometry_load_lines(*load):
    """A load on geometry goes on with its direction and its variation, neither of which is used."""
    zero = record(0.0, 0.0, 0.0)
    return (mesh_load_lines(*load) + [record(0), zero, zero, record(0, 0), "<NULL>", "<NULL>"]
            + [zero] * 4 + [record(0.0, 0.0, 0.0, 0.0), record(0, 0, 0)])


def load_set_lines(title, definitions):
    """Definitions are (ID, 13 mesh, 14 geometry, 15 node or 16 element temperature, kind of load,
    title, loads), and a load is (entity, face or degrees of freedom, values)."""
    lines = [record(1, 0, 0.0), title]
    lines += [record(*[0.0 if c == "." else 0 for c in line.split()]) for line in BODY_LOADS]
    for sits_on, writer in ((13, mesh_load_lines), (14, geometry_load_lines)):
        for definition, data, kind, _, loads in definitions:
            for load in loads if data == sits_on else ():
                lines += writer(definition, kind, *load)
        lines.append(record(*[-1] * 6, 0, 0))
    for sits_on in (15, 16):
        lines += [record(entity, 10, 1, values[0], 0.0, 0, 0, definition)
                  for definition, data, _, _, loads in definitions if data == sits_on
                  for entity, _, values in loads]
        lines.append(record(-1, -1, -1, 0.0, 0.0, -1, 1, 0))
    lines.append(record(-1, 0, -1, 0.0, -1))
    for definition, data, kind, definition_title, _ in definitions:
        lines += [record(definition, data, kind), definition_title]
    return lines + [record(-1, 0, 0)]


def output_set_lines(number, title, source):
    notes = [source, "<NULL>", "<NULL>", "<NULL>", "<NULL>", "<NULL>"]
    return ([record(number), title, record(36, 1), record(0.0), record(len(notes))] + notes
            + [record(0, 0)])


def value_lines(values):
    """Runs of neighbouring IDs share a record: first and last ID, eight values, then ten a line."""
    runs = []
    for entity in sorted(values):
        if runs and runs[-1][-1] == entity - 1:
            runs[-1].append(entity)
        else:
            runs.append([entity])
    lines = []
    for run in runs:
        numbers = [values[entity] for entity in run]
        ends = (run[0],) if len(run) == 1 else (run[0], run[-1])
        lines.append(record(*ends, *numbers[:8]))
        lines += table(numbers[8:], 10)
    return lines


def vector_lines(output_set, number, description, values):
    """Description: title, output type, 7 at nodes or 8 at elements, the vectors it is made of, and
    whether the extremes are known (else the reader finds them)."""
    title, output, location, parts, known = description
    lowest, highest = min(values, key=values.get), max(values, key=values.get)
    low, high = values[lowest], values[highest]
    extremes = (low, high, max(abs(low), abs(high)))
    if not known:
        extremes, lowest, highest = (9.99e30, -9.99e30, 9.99e30), 0, 0
    return ([record(output_set, number, 1), title, record(*extremes)]
            + table(list(parts) + [0] * (20 - len(parts)), 10)
            + [record(0), record(lowest, highest, output, location), record(1, 0, 1)]
            + value_lines(values) + [record(-1, 0.0)])
