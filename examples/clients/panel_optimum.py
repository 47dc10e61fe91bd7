"""The example panel's optimum in closed form, to hold what an optimiser finds against.

The mass grows with both thicknesses, and only the skin's, Prop 1, bends the panel less. So the
optimum has the thinnest edge and just so thick a skin that the deflection is at its limit.
"""

import os
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import make_panel as panel  # noqa: E402

SKIN, EDGE = "ThicknessAtProp1", "ThicknessAtProp2"
DEFLECTION, MASS = "T3Translat4AtNode163", "TotalMass"
LIMIT = 3.0  # of the deflection in the middle, mm
BOUNDS = {SKIN: (1.0, 8.0), EDGE: (2.0, 8.0)}  # mm


def deflection(thickness):
    """In the middle of the panel with a skin of that thickness."""
    kept, panel.SKIN = panel.SKIN, thickness
    try:
        return panel.Plate().w0
    finally:
        panel.SKIN = kept


def optimum():
    """Thickness of the skin and of the edge. The stiffness is a constant and a part that grows with
    the cube of the thickness; the deflection is the load over it."""
    bare = 1.0 / deflection(0.0)
    of_cube = 1.0 / deflection(1.0) - bare
    return ((1.0 / LIMIT - bare) / of_cube) ** (1.0 / 3.0), BOUNDS[EDGE][0]
