#!/usr/bin/env python3
"""Writes panel.neu, the model that the example studies work on.

A fuselage panel of 1200 x 600 mm: an aluminium skin, three stringers (beams), two frame chords
(bars), a machined fitting block (solids) that hangs under the middle and carries a lug, held by
four gussets (parabolic plates) and four tie rods, and a glass-fibre doubler (laminate) beside it.
Units: mm, N, t, s, degrees Celsius; so stresses are in N/mm2 and densities in t/mm3.

The results are no finite-element results. They follow from the first term of Navier's series for a
simply supported orthotropic plate under the cabin pressure and the force on the lug:

    w(x, y) = w0 sin(pi x / a) sin(pi y / b)

Usage: make_panel.py [FILE]     (default: panel.neu beside this script)
"""

import math
import os
import sys

sys.dont_write_bytecode = True  # leave nothing beside the example but the example
import neutral_file as neutral  # noqa: E402

A, B = 1200.0, 600.0  # the panel's length and width
NX, NY = 24, 12  # its skin elements
STEP = A / NX
SKIN, SKIN_EDGE = 3.0, 5.0  # thicknesses
BLOCK_X, BLOCK_Y = (11, 12, 13), (5, 6, 7)  # grid lines of the fitting block
BLOCK_Z = (0.0, -30.0, -60.0)
LUG = 441
STRINGERS, FRAMES = (3, 6, 9), (6, 18)  # grid lines they run along
STRINGER_TOP, STRINGER_BOTTOM = 12.0, -33.0  # outer fibres from the neutral axis
FRAME_FIBRE = 10.0
ROD_AREA = 113.0973
GUSSET_TIP = 250.0  # how far the gussets reach from the middle
LAYUP, PLY, PLY_ANGLES = 1, 0.25, (0.0, 90.0, 90.0, 0.0)

PRESSURE, LUG_FORCE, LUG_MOMENT = 0.008, -500.0, 6000.0

ALUMINIUM, STEEL, GLASS = 1, 2, 3
E_ALUMINIUM, NU_ALUMINIUM, E_STEEL = 70000.0, 0.33, 210000.0
E1_GLASS, E2_GLASS, NU_GLASS, TENSION_GLASS = 24000.0, 23000.0, 0.14, 350.0

# FEMAP's numbers for kinds of elements, and for their shapes.
ROD, BAR, BEAM, PLATE, PLATE_PARABOLIC, LAMINATE, SOLID, RIGID = 1, 2, 5, 17, 18, 21, 25, 29
LINE2, QUAD4, QUAD8, BRICK8, RIGID_LIST = 0, 4, 5, 8, 13

# ID, title, kind (0 isotropic, 1 orthotropic in its plane), reals by place.
MATERIALS = [
    (ALUMINIUM, "AlMg3 - EN AW-5754/H22", 0,
     {0: E_ALUMINIUM, 6: NU_ALUMINIUM, 36: 2.38e-5, 39: 2.38e-5, 41: 2.38e-5, 42: 132.0,
      45: 132.0, 47: 132.0, 48: 9.0e8, 49: 2.66e-9, 50: 0.02, 51: 20.0, 52: 130.0, 54: 130.0,
      56: 75.0}),
    (STEEL, "Stahl S355 - gewalzt/geölt", 0,
     {0: E_STEEL, 6: 0.3, 36: 1.2e-5, 39: 1.2e-5, 41: 1.2e-5, 42: 50.0, 45: 50.0, 47: 50.0,
      48: 4.6e8, 49: 7.85e-9, 50: 0.01, 51: 20.0, 52: 355.0, 54: 355.0, 56: 205.0}),
    (GLASS, "GFK-Köper 0°/90°", 1,
     {0: E1_GLASS, 1: E2_GLASS, 3: 4200.0, 4: 3100.0, 5: 3100.0, 6: NU_GLASS, 36: 1.4e-5,
      39: 1.6e-5, 49: 1.85e-9, 51: 20.0, 52: TENSION_GLASS, 53: 340.0, 54: 280.0, 55: 270.0,
      56: 75.0, 57: 0.0}),
]

# ID, title, material, kind, values of "pval" by place.
BEAM_SECTION = {0: 312.0, 1: 95000.0, 2: 21000.0, 3: 0.0, 4: 940.0, 5: 0.42, 6: 0.5, 7: 2.4e-8}
PROPERTIES = [
    (1, "Außenhaut 3 mm - Mittelfeld", ALUMINIUM, PLATE, {0: SKIN, 7: 2.0e-10, 8: -1.5, 9: 1.5}),
    (2, "Außenhaut 5 mm - Rand/Niete", ALUMINIUM, PLATE,
     {0: SKIN_EDGE, 1: 5.0, 2: 5.0, 3: 5.0, 7: 3.5e-10, 8: -2.5, 9: 2.5}),
    (3, "Knotenblech 4 mm", ALUMINIUM, PLATE_PARABOLIC, {0: 4.0, 8: -2.0, 9: 2.0}),
    (4, "Träger Ø12 - Gurt/Steg", ALUMINIUM, BEAM,
     {**BEAM_SECTION, **{place + 20: value for place, value in BEAM_SECTION.items()}}),
    (5, "Spantgurt 20 x 6 - quer", ALUMINIUM, BAR,
     {0: 120.0, 1: 4000.0, 2: 360.0, 4: 1160.0, 5: 0.83, 6: 0.83}),
    (6, "Zugstange Ø12 - Beschlag/Haut", STEEL, ROD,
     {0: ROD_AREA, 4: 2035.752, 5: 6.0, 7: 1.0e-8, 8: 250.0}),
    (7, "Beschlagblock - gefräst", STEEL, SOLID, {}),
    (8, "GFK-Aufdopplung [0/90]s", 0, LAMINATE, {2: 28.0, 3: 20.0}, LAYUP),
]

# ID, title, kind (1 over time, 2 over temperature), points.
FUNCTIONS = [
    (1, "Lasthistorie - Landung 1 g/2,5 g", 1,
     [(0.0, 0.0), (0.05, 1.0), (0.12, 2.5), (0.2, -0.35), (0.35, 1.2), (1.0, 1.0)]),
    (2, "E-Modul über Temperatur", 2,
     [(-55.0, 1.035), (-20.0, 1.018), (20.0, 1.0), (80.0, 0.962), (120.0, 0.93)]),
]

# ID, what its loads sit on (13 mesh, 14 geometry, 15 and 16 temperature of nodes and elements),
# kind of load, title, loads: (node, element, curve or surface; face or degrees of freedom; values).
# The curve and the surface are the CAD edge and face of the skin; they are not part of this file.
ALL_DOF = (1, 1, 1)
FACE_1 = (1, 0, 0)
LOADS = [
    (1, 13, 1, "Gerätelast Fz [Öse Ø12]", [(LUG, ALL_DOF, (0.0, 0.0, LUG_FORCE))]),
    (2, 13, 2, "Moment - Öse/Bolzen", [(LUG, ALL_DOF, (0.0, LUG_MOMENT, 0.0))]),
    (3, 14, 178, "Innendruck / Außenhaut", [(1, FACE_1, (PRESSURE,))]),
    (4, 13, 42, "Anpressdruck - Dichtleiste",
     [(1, FACE_1, (0.02,)), (24, FACE_1, (0.025,))]),
    (5, 15, 9, "Temperatur Öse -20/+50 °C", [(401, (), (45.0,)), (LUG, (), (50.0,))]),
    (6, 16, 43, "Temperatur Knotenblech", [(301, (), (-20.5,))]),
    (7, 13, 46, "Strahlung - Triebwerk", [(13, FACE_1, (0.85, 0.6, 293.15, 0.75))]),
    (8, 13, 44, "Wärmestrom - Sonne", [(100, FACE_1, (0.0012,))]),
    (9, 13, 45, "Konvektion - Kabinenluft", [(101, FACE_1, (1.2e-5, 22.0))]),
    (10, 14, 122, "Kantenlast - Spant links", [(3, ALL_DOF, (-1.5, 0.0, 0.25))]),
    (11, 13, 3, "Auflagersetzung", [(1, (0, 0, 1), (0.0, 0.0, -0.5))]),
]


# ---- mesh ----

def skin_node(i, j):
    return j * (NX + 1) + i + 1


def gusset_nodes(side):
    """IDs and places of a side's own nodes (+1 or -1): four at the bottom, two half-way up."""
    first, edge = (421, BLOCK_Y[-1]) if side > 0 else (427, BLOCK_Y[0])
    rows = [(step, BLOCK_Z[2]) for step in (1, 2, 3, 4)] + [(2, BLOCK_Z[1]), (4, BLOCK_Z[1])]
    return {first + n: (600.0, (edge + side * step) * STEP, z)
            for n, (step, z) in enumerate(rows)}


def block_node(i, j, layer):
    if layer == 0:
        return skin_node(i, j)
    return 401 + 9 * (layer - 1) + 3 * BLOCK_Y.index(j) + BLOCK_X.index(i)


def make_nodes():
    nodes = {skin_node(i, j): (i * STEP, j * STEP, 0.0)
             for j in range(NY + 1) for i in range(NX + 1)}
    for layer in (1, 2):
        for j in BLOCK_Y:
            for i in BLOCK_X:
                nodes[block_node(i, j, layer)] = (i * STEP, j * STEP, BLOCK_Z[layer])
    nodes.update(gusset_nodes(+1))
    nodes.update(gusset_nodes(-1))
    nodes[LUG] = (600.0, 300.0, -90.0)
    return nodes


def make_gussets():
    """Two eight-node plates on either side of the block: corners, then the middles of the sides."""
    gussets = []
    for side, edge in ((+1, BLOCK_Y[-1]), (-1, BLOCK_Y[0])):
        bottom1, bottom2, bottom3, bottom4, middle2, middle4 = gusset_nodes(side)
        top = [skin_node(12, edge + side * step) for step in range(5)]
        corner, half = block_node(12, edge, 2), block_node(12, edge, 1)
        gussets.append((corner, bottom2, top[2], top[0], bottom1, middle2, top[1], half))
        gussets.append((bottom2, bottom4, top[4], top[2], bottom3, middle4, top[3], middle2))
    return gussets


def make_elements():
    """ID, property, kind, shape, nodes; ascending IDs."""
    def quad(i, j):
        return (skin_node(i, j), skin_node(i + 1, j), skin_node(i + 1, j + 1), skin_node(i, j + 1))

    def brick(i, j, layer):
        return tuple(block_node(i + di, j + dj, level) for level in (layer + 1, layer)
                     for di, dj in ((0, 0), (1, 0), (1, 1), (0, 1)))

    elements = []

    def add(first, prop, kind, shape, meshes):
        elements.extend((first + n, prop, kind, shape, mesh) for n, mesh in enumerate(meshes))

    for j in range(NY):
        for i in range(NX):
            edge = i in (0, NX - 1) or j in (0, NY - 1)
            add(j * NX + i + 1, 2 if edge else 1, PLATE, QUAD4, [quad(i, j)])
    add(301, 3, PLATE_PARABOLIC, QUAD8, make_gussets())
    add(401, 7, SOLID, BRICK8, [brick(i, j, layer) for layer in (0, 1)
                                for j in BLOCK_Y[:2] for i in BLOCK_X[:2]])
    add(501, 8, LAMINATE, QUAD4, [quad(i, j) for j in (5, 6) for i in (13, 14, 15, 16)])
    add(601, 0, RIGID, RIGID_LIST, [(LUG,)])
    for n, j in enumerate(STRINGERS):
        add(1001 + n * NX, 4, BEAM, LINE2,
            [(skin_node(i, j), skin_node(i + 1, j)) for i in range(NX)
             if not (j == BLOCK_Y[1] and i in BLOCK_X[:2])])  # the block interrupts a stringer
    for n, i in enumerate(FRAMES):
        add(1101 + n * NY, 5, BAR, LINE2,
            [(skin_node(i, j), skin_node(i, j + 1)) for j in range(NY)])
    add(1201, 6, ROD, LINE2, [(block_node(i, j, 2), skin_node(i + 4 * (i - 12), j + 2 * (j - 6)))
                              for j in (5, 7) for i in (11, 13)])
    return elements


# ---- results ----

class Plate:
    """The deflected panel."""

    def __init__(self):
        rigidity = E_ALUMINIUM * SKIN ** 3 / (12.0 * (1.0 - NU_ALUMINIUM ** 2))
        self.along = rigidity + E_ALUMINIUM * BEAM_SECTION[1] / (B / (len(STRINGERS) + 1))
        self.across = rigidity + E_ALUMINIUM * 4000.0 / (A / len(FRAMES))
        self.twist = 2.0 * rigidity
        self.load = 16.0 * PRESSURE / math.pi ** 2 + 4.0 * LUG_FORCE / (A * B)
        stiffness = self.along / A ** 4 + self.twist / (A * B) ** 2 + self.across / B ** 4
        self.w0 = self.load / (math.pi ** 4 * stiffness)
        self.nu_rigidity = NU_ALUMINIUM * rigidity

    def translation(self, x, y, z):
        slope_x, slope_y = self.slopes(x, y)
        w = self.w0 * math.sin(math.pi * x / A) * math.sin(math.pi * y / B)
        return (-z * slope_x, -z * slope_y, w)

    def slopes(self, x, y):
        u, v = math.pi * x / A, math.pi * y / B
        return (self.w0 * math.pi / A * math.cos(u) * math.sin(v),
                self.w0 * math.pi / B * math.sin(u) * math.cos(v))

    def curvatures(self, x, y):
        """Along, across (both positive where the outside is in tension) and the twist."""
        u, v = math.pi * x / A, math.pi * y / B
        wave = self.w0 * math.pi ** 2 * math.sin(u) * math.sin(v)
        twist = self.w0 * math.pi ** 2 / (A * B) * math.cos(u) * math.cos(v)
        return wave / A ** 2, wave / B ** 2, twist

    def skin_stress(self, x, y, z):
        """X, Y, shear and von Mises stress at a height above the middle of the skin."""
        along, across, twist = self.curvatures(x, y)
        factor = E_ALUMINIUM * z / (1.0 - NU_ALUMINIUM ** 2)
        sx = factor * (along + NU_ALUMINIUM * across)
        sy = factor * (across + NU_ALUMINIUM * along)
        txy = -E_ALUMINIUM / (1.0 + NU_ALUMINIUM) * z * twist
        return sx, sy, txy, math.sqrt(sx * sx - sx * sy + sy * sy + 3.0 * txy * txy)

    def corner_force(self, x, y):
        """What a quarter of an element gives to its corner."""
        wave = math.sin(math.pi * x / A) * math.sin(math.pi * y / B)
        return self.load * wave * STEP ** 2 / 4.0

    def reaction(self, x, y):
        """Upward force of the support on an edge node: shear of the plate times the mesh width."""
        u, v = math.pi * x / A, math.pi * y / B
        rest = self.twist - self.nu_rigidity
        at_short_edge = self.along / A ** 2 + rest / B ** 2
        at_long_edge = self.across / B ** 2 + rest / A ** 2
        on_short_edge = x in (0.0, A)
        shear = at_short_edge * math.sin(v) / A if on_short_edge else at_long_edge * math.sin(u) / B
        return -self.w0 * math.pi ** 3 * shear * STEP


def rod_force(ends):
    """The lug hangs on the four rods, which carry nothing but tension."""
    (x1, y1, z1), (x2, y2, z2) = ends
    length = math.sqrt((x2 - x1) ** 2 + (y2 - y1) ** 2 + (z2 - z1) ** 2)
    return -LUG_FORCE / 4.0 * length / (z2 - z1)


def gusset_stress(y):
    """A cantilever of the block's height that takes a quarter of the lug's force at its tip."""
    from_tip = GUSSET_TIP - abs(y - B / 2.0)
    return abs(LUG_FORCE) / 4.0 * from_tip / (4.0 * BLOCK_Z[2] ** 2 / 6.0)


def solid_stress(x):
    """Force over area and moment over section modulus of the block."""
    side = (BLOCK_X[-1] - BLOCK_X[0]) * STEP
    return LUG_FORCE / side ** 2 + LUG_MOMENT * (x - A / 2.0) / (side ** 4 / 12.0)


def nodal_results(plate, nodes):
    vectors = {number: {} for number in (1, 2, 3, 4, 5, 6, 7, 8, 54)}
    for node, (x, y, z) in nodes.items():
        shift = plate.translation(x, y, z)
        slope_x, slope_y = plate.slopes(x, y)
        rotation = (slope_y, -slope_x, 0.0)
        for first, values in ((1, shift), (5, rotation)):
            vectors[first][node] = math.sqrt(sum(v * v for v in values))
            for place, value in enumerate(values):
                vectors[first + 1 + place][node] = value
        if z == 0.0 and (x in (0.0, A) or y in (0.0, B)):
            vectors[54][node] = plate.reaction(x, y)
    return vectors


def plate_results(plate, x, y, top):
    """Stresses and moments of a skin element; the last two are those of its first corner."""
    upper, lower = plate.skin_stress(x, y, top), plate.skin_stress(x, y, -top)
    along, across, _ = plate.curvatures(x, y)
    rigidity = E_ALUMINIUM * (2.0 * top) ** 3 / (12.0 * (1.0 - NU_ALUMINIUM ** 2))
    corner = (x - STEP / 2.0, y - STEP / 2.0)
    return {7020: upper[0], 7021: upper[1], 7023: upper[2], 7033: upper[3], 7433: lower[3],
            7211: rigidity * (along + NU_ALUMINIUM * across),
            7212: rigidity * (across + NU_ALUMINIUM * along),
            85002: plate.corner_force(*corner), 107033: plate.skin_stress(*corner, top)[3]}


def element_results(plate, nodes, element):
    """The results of one element by vector."""
    _, prop, kind, _, mesh = element
    places = [nodes[node] for node in mesh]
    x, y = (sum(place[axis] for place in places) / len(places) for axis in range(2))
    if kind == PLATE:
        return plate_results(plate, x, y, (SKIN if prop == 1 else SKIN_EDGE) / 2.0)
    if kind == PLATE_PARABOLIC:
        return {7033: gusset_stress(y), 7433: gusset_stress(y)}
    if kind == LAMINATE:
        along, across, _ = plate.curvatures(x, y)
        outer = (SKIN + PLY) / 2.0 + PLY * (len(PLY_ANGLES) - 1)
        ply = E1_GLASS * outer * (along + NU_GLASS * across)
        return {6060: ply / TENSION_GLASS, 1000020: ply}
    if kind == SOLID:
        stress = solid_stress(x)
        return {60012: stress, 60031: abs(stress)}
    if kind == BEAM:
        bend = E_ALUMINIUM * plate.curvatures(*places[0][:2])[0]
        return {3164: STRINGER_TOP * bend, 3165: STRINGER_BOTTOM * bend}
    if kind == BAR:
        bend = E_ALUMINIUM * plate.curvatures(*places[0][:2])[1]
        return {3109: FRAME_FIBRE * bend, 3110: -FRAME_FIBRE * bend}
    if kind == ROD:
        force = rod_force(places)
        return {3036: force, 3106: force / ROD_AREA}
    return {}


# ID: title, output type (1 displacement, 3 force, 4 stress, 0 any), 7 at nodes or 8 at elements.
VECTORS = {
    1: ("Total Translation", 1, 7), 2: ("T1 Translation", 1, 7), 3: ("T2 Translation", 1, 7),
    4: ("T3 Translation", 1, 7), 5: ("Total Rotation", 1, 7), 6: ("R1 Rotation", 1, 7),
    7: ("R2 Rotation", 1, 7), 8: ("R3 Rotation", 1, 7), 54: ("T3 Constraint Force", 3, 7),
    3036: ("Rod Axial Force", 3, 8), 3106: ("Rod Axial Stress", 4, 8),
    3109: ("Bar EndA Max Stress", 4, 8), 3110: ("Bar EndA Min Stress", 4, 8),
    3164: ("Beam EndA Max Comb Stress", 4, 8), 3165: ("Beam EndA Min Comb Stress", 4, 8),
    6060: ("Laminate Max Failure Index", 0, 8), 7020: ("Plate Top X Normal Stress", 4, 8),
    7021: ("Plate Top Y Normal Stress", 4, 8), 7023: ("Plate Top XY Shear Stress", 4, 8),
    7033: ("Plate Top VonMises Stress", 4, 8), 7211: ("Plate X Bending Moment", 3, 8),
    7212: ("Plate Y Bending Moment", 3, 8), 7433: ("Plate Bot VonMises Stress", 4, 8),
    60012: ("Solid Z Normal Stress", 4, 8), 60031: ("Solid Von Mises Stress", 4, 8),
    85002: ("Elem C1 T3 GPForce", 3, 8),
    107033: ("PltC1 Top VonMises Stress", 4, 8), 1000020: ("Lam Ply1 X Normal Stress", 4, 8),
}
PARTS = {1: (2, 3, 4), 5: (6, 7, 8)}  # a total and its components


def rounded(value):
    """Few digits, and no traces of zero, so that every machine writes the same ones."""
    return float(f"{value:.5E}") if abs(value) > 1e-12 else 0.0


def make_results(nodes, elements):
    """Vector ID -> entity ID -> value."""
    plate = Plate()
    vectors = nodal_results(plate, nodes)
    for element in elements:
        for vector, value in element_results(plate, nodes, element).items():
            vectors.setdefault(vector, {})[element[0]] = value
    return {vector: {entity: rounded(value) for entity, value in values.items()}
            for vector, values in sorted(vectors.items())}


# ---- the file ----

SKIN_EDGE_HELD = (0, 0, 1, 0, 0, 0)
CORNER_HELD = (1, 1, 1, 0, 0, 1)  # one node keeps the panel from floating
EXTREMES_UNKNOWN = (3, 5, 7433)  # as some solvers leave them
UP, NOWHERE = (0.0, 0.0, 1.0), (0.0, 0.0, 0.0)
STRINGER_OFFSET = (0.0, 0.0, -20.0)
DOUBLER_ANGLE = 45.0
DOUBLER_OFFSET = ((SKIN + PLY * len(PLY_ANGLES)) / 2.0, 0.0, 0.0)


def make_supports(nodes):
    return [(node, CORNER_HELD if (x, y) == (0.0, 0.0) else SKIN_EDGE_HELD)
            for node, (x, y, z) in nodes.items()
            if z == 0.0 and (x in (0.0, A) or y in (0.0, B))]


def element_lines(number, prop, kind, shape, mesh):
    orientation = {BEAM: UP, BAR: UP, LAMINATE: (DOUBLER_ANGLE, 0.0, 0.0)}.get(kind, NOWHERE)
    offset = {BEAM: STRINGER_OFFSET, LAMINATE: DOUBLER_OFFSET}.get(kind, NOWHERE)
    followers = [block_node(i, j, 2) for j in BLOCK_Y for i in BLOCK_X] if kind == RIGID else ()
    return neutral.element_lines(number, prop, kind, shape, mesh, orientation, offset, followers)


def result_blocks(number, title, results):
    lines = neutral.block(450, neutral.output_set_lines(number, title, "From: make_panel.py"))
    vectors = [(number, vector,
                (*VECTORS[vector], PARTS.get(vector, ()), vector not in EXTREMES_UNKNOWN), values)
               for vector, values in results.items()]
    return lines + neutral.block(1051, neutral.each(neutral.vector_lines, vectors))


def make_panel():
    nodes, elements = make_nodes(), make_elements()
    results = make_results(nodes, elements)
    proof = {vector: {entity: rounded(1.5 * value) for entity, value in values.items()}
             for vector, values in results.items() if vector <= 4}
    plies = [(GLASS, PLY, angle) for angle in PLY_ANGLES]
    block, each = neutral.block, neutral.each
    lines = neutral.header_block()
    lines += block(413, [neutral.record(1, 124), "Default Layer"])
    lines += block(601, each(neutral.material_lines, MATERIALS))
    lines += block(402, each(neutral.property_lines, PROPERTIES))
    lines += block(927, neutral.layup_lines(LAYUP, plies))
    lines += block(403, each(neutral.node_lines, [(node, *nodes[node]) for node in nodes]))
    lines += block(404, each(element_lines, elements))
    lines += block(506, neutral.constraint_lines("Gelenkige Lagerung - Rand",
                                                 "Auflager - umlaufend", make_supports(nodes)))
    lines += block(507, neutral.load_set_lines("Flug - Kabinendruck/Gerätelast", LOADS))
    lines += block(420, each(neutral.function_lines, FUNCTIONS))
    lines += result_blocks(1, "Betriebslast - Innendruck/Gerät", results)
    lines += result_blocks(2, "Prüflast - 1,5-fach", proof)
    return "".join(line + "\n" for line in lines)


def main():
    beside = os.path.join(os.path.dirname(os.path.abspath(__file__)), "panel.neu")
    path = sys.argv[1] if len(sys.argv) > 1 else beside
    with open(path, "w", encoding="cp1252", newline="") as file:
        file.write(make_panel())


if __name__ == "__main__":
    main()
