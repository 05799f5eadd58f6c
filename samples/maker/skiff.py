"""A small ship over its landing, with the engines lit and a dish that sweeps round."""

import math

from maker.parts import FORWARD, MIRROR
from maker.shapes import (IDENTITY, Frame, Material, Mesh, beam, box, lathe, loft, move, mul, ring,
                          scale, turn)

PLATE = Material("plate", (0.92, 0.94, 0.98), power=30.0, specular=(0.35, 0.35, 0.4), texture="hull.bmp")
STRIPE = Material("stripe", (1.0, 0.48, 0.14), power=30.0, specular=(0.35, 0.3, 0.25), texture="hull.bmp")
BELLY = Material("belly", (0.42, 0.46, 0.54), power=30.0, specular=(0.3, 0.3, 0.3), texture="hull.bmp")
STEEL = Material("steel", (0.34, 0.36, 0.40), power=30.0, specular=(0.3, 0.3, 0.3))


def landing_pad():
    tread = Material("tread", (0.80, 0.82, 0.90), power=20.0, specular=(0.2, 0.2, 0.2), texture="deck.tga")
    mark = Material("mark", (0.95, 0.70, 0.16))
    mesh = Mesh()
    rings = [ring(r, y, 24, 0.5) for r, y in ((4.3, -0.45), (4.75, -0.3), (4.75, -0.1), (4.6, 0.0),
                                              (3.7, 0.0), (3.4, 0.0), (0.0, 0.0))]
    loft(mesh, rings, lambda i, j: mark if i == 4 and j % 4 < 3 or i == 1 and j % 2 else tread, 1.0,
         smooth=False, caps="b")
    mesh.at(move(0, -0.45, 0))
    lathe(mesh, [(1.6, -0.75), (1.3, -0.1), (1.9, 0.0)], 12, BELLY, 6, 0.6, smooth=False, caps="bt")
    return mesh


def beacons():
    """Colours without blue in an emissive frame, as on the engines."""
    amber = Material("amber", (1.0, 0.6, 0.0), power=0.0, specular=(0.5, 0.3, 0.0), emissive=(0.8, 0.42, 0.0))
    mesh = Mesh()
    for x, y, z in ring(4.2, 0, 6):
        mesh.at(move(x, y, z))
        lathe(mesh, [(0.12, 0.0), (0.12, 0.05), (0.06, 0.13)], 6, amber, smooth=False, caps="bt")
    return mesh


def hull_ring(z, w, top, bottom, n=20):
    """A rounded section, from the right side over the top; shallower below than above."""
    points = []
    for j in range(n):
        c, s = math.cos(2 * math.pi * j / n), math.sin(2 * math.pi * j / n)
        x = w * math.copysign(abs(c) ** 0.75, c)
        points.append((x, (top if s > 0 else bottom) * math.copysign(abs(s) ** 0.85, s), z))
    return points


def ship_hull():
    mesh = Mesh(crease=42)
    sections = ((-3.7, 0.56, 0.36, 0.30), (-3.3, 0.74, 0.52, 0.40), (-2.2, 0.95, 0.70, 0.50),
                (-0.8, 1.00, 0.74, 0.54), (0.8, 0.90, 0.62, 0.50), (2.2, 0.66, 0.44, 0.40),
                (3.4, 0.40, 0.27, 0.27), (4.2, 0.20, 0.15, 0.15), (4.55, 0.05, 0.05, 0.05))

    def paint(i, j):
        if 11 <= j < 19:
            return BELLY
        if j in (2, 7) or i >= 6:
            return STRIPE
        return PLATE

    rings = [hull_ring(*section) for section in sections]
    # The plating runs along the ship and is mirrored on its two sides.
    us = [1.5 * abs(1 - ((j + 5) % 20) / 10.0) for j in range(20)] + [0.75]
    loft(mesh, rings, paint, us, [0.42 * s[0] for s in sections], caps="bt")
    beam(mesh, (0, 0, 4.5), (0, 0, 5.3), 0.04, 0.04, STEEL)

    mesh.at(FORWARD, move(0, 0.02, -3.7))                # the ring round the main engine
    lathe(mesh, [(0.0, 0.05), (0.20, 0.0), (0.26, -0.32), (0.32, -0.32), (0.36, 0.1)], 12, STEEL, caps="t")

    for side in (IDENTITY, MIRROR):                # two tail fins, leaning outward
        mesh.at(turn("z", 68), move(0.52, 0.45, 0), side)
        blade(mesh, [(0.0, 0.11, -2.0, -3.5), (0.85, 0.07, -2.75, -3.75), (1.35, 0.04, -3.2, -3.85)],
              lambda i, j: PLATE if i < 1 else STRIPE)

    for foot, knee in (((0.0, -1.1, 2.2), (0.0, -0.3, 1.9)), ((0.95, -1.1, -1.9), (0.55, -0.3, -1.6)),
                       ((-0.95, -1.1, -1.9), (-0.55, -0.3, -1.6))):
        mesh.at()
        beam(mesh, knee, foot, 0.12, 0.12, STEEL)
        mesh.at(move(*foot))
        lathe(mesh, [(0.26, -0.10), (0.26, -0.05), (0.10, 0.03)], 8, STEEL, smooth=False, caps="bt")
    return mesh


def blade(mesh, sections, material):
    """A wing along +x from (x, half thickness, front z, rear z) sections, closed at both ends."""
    rings = []
    for x, t, front, rear in sections:
        chord = front - rear
        rings.append([(x, y * t, rear + s * chord) for s, y in
                      ((0.0, 0.0), (0.30, 0.75), (0.68, 1.0), (0.92, 0.6), (1.0, 0.0),
                       (0.92, -0.6), (0.68, -1.0), (0.30, -0.75))])
    us = (0.0, 0.3, 0.65, 0.9, 1.0, 0.9, 0.65, 0.3, 0.0)
    loft(mesh, rings, material, us, [0.5 * s[0] for s in sections], caps="bt")


def wing(side):
    mesh = Mesh(crease=42).at(turn("z", 7), move(0.7, -0.12, 0), side)
    blade(mesh, [(0.0, 0.17, 1.3, -2.7), (1.0, 0.14, 0.3, -2.6), (1.9, 0.11, -0.5, -2.5),
                 (2.3, 0.10, -0.8, -2.45)],
          lambda i, j: STRIPE if i == 1 else BELLY if 4 <= j else PLATE)
    return mesh


def engine_pod():
    mesh = Mesh(crease=42).at(FORWARD)
    profile = [(0.0, -0.95), (0.24, -0.95), (0.30, -1.4), (0.36, -1.4), (0.44, -0.8), (0.46, 0.5),
               (0.38, 1.15), (0.31, 1.2), (0.25, 1.05), (0.10, 1.05), (0.0, 1.5)]

    def paint(i, j):
        return STRIPE if i == 4 else PLATE if i in (5, 6) else STEEL

    lathe(mesh, profile, 12, paint, 3, 0.5)
    return mesh


def glow(size):
    """A hot core and a translucent plume."""
    core = Material("core", (1.0, 0.75, 0.0), power=0.0, specular=(0.5, 0.4, 0.0), emissive=(1.0, 0.7, 0.0))
    plume = Material("plume", (0.6, 0.2, 0.0), alpha=0.38, power=0.0, specular=(0.3, 0.1, 0.0),
                     emissive=(0.9, 0.32, 0.0))
    mesh = Mesh(crease=80).at(scale(size, size, size), FORWARD)
    lathe(mesh, [(0.0, -0.16), (0.13, -0.10), (0.19, 0.0)], 10, core, caps="t")
    lathe(mesh, [(0.0, -1.5), (0.11, -1.0), (0.21, -0.35), (0.20, 0.0)], 10, plume, caps="t")
    return mesh


def canopy():
    glass = Material("canopyglass", (0.35, 0.70, 0.95), alpha=0.42, power=90.0, specular=(1.0, 1.0, 1.0))
    mesh = Mesh(crease=80).at(scale(1, 1, 2.3))
    dome = [(0.46 * math.cos(a), 0.50 * math.sin(a)) for a in (0.0, 0.3, 0.65, 1.0, 1.3)] + [(0.0, 0.5)]
    lathe(mesh, dome, 16, glass, caps="b")
    # The rim; its cap is the cockpit's floor, a little below the glass.
    lathe(mesh, [(0.52, -0.12), (0.52, 0.0), (0.47, 0.04), (0.45, -0.03)], 16,
          lambda i, j: STRIPE if i < 2 else BELLY, 4, 0.5, caps="bt")
    return mesh


def cockpit():
    seat = Material("seat", (0.55, 0.24, 0.18), power=8.0)
    screen = Material("screen", (0.15, 0.35, 0.30), emissive=(0.10, 0.55, 0.40))
    mesh = Mesh()
    box(mesh, (-0.2, 0.0, -0.40), (0.2, 0.12, 0.05), seat)
    mesh.at(turn("x", -14), move(0, 0.06, -0.36))
    box(mesh, (-0.19, 0.0, -0.06), (0.19, 0.34, 0.05), seat)
    mesh.at(turn("x", -35), move(0, 0.04, 0.5))
    box(mesh, (-0.24, 0.0, -0.04), (0.24, 0.18, 0.04), {"": STEEL, "-z": screen})
    return mesh


def dish():
    mesh = Mesh(crease=40)
    lathe(mesh, [(0.10, -0.1), (0.05, 0.0), (0.05, 0.22)], 8, STEEL, caps="bt")
    mesh.at(turn("x", 55), move(0, 0.30, 0))
    lathe(mesh, [(0.0, -0.06), (0.20, -0.02), (0.40, 0.13), (0.38, 0.15), (0.19, 0.02), (0.0, 0.0)], 12,
          PLATE, 4, 0.8)
    beam(mesh, (0, -0.01, 0), (0, 0.28, 0), 0.03, 0.03, STRIPE)
    return mesh


def wing_light(colour):
    mesh = Mesh()
    lathe(mesh, [(0.0, -0.08), (0.07, -0.03), (0.07, 0.03), (0.0, 0.08)], 6,
          Material("light", colour, power=0.0, specular=(0.0, 0.0, 0.0), emissive=colour))
    return mesh


def skiff():
    pulse = [(t, (1.0, 1.0, z)) for t, z in ((0, 1.0), (6, 1.3), (12, 0.85), (18, 1.2), (24, 1.0))]
    sweep = [(t, (0.0, y, 0.0)) for t, y in ((0, 0.0), (40, 120.0), (80, 240.0), (120, 360.0))]
    hull = Frame("hull", mul(turn("x", -1), move(0, 1.2, -0.1)), ship_hull()).add(
        Frame("canopy", mul(turn("x", 9), move(0, 0.58, 1.15)), canopy()).add(
            Frame("cockpit", mesh=cockpit())),
        Frame("dish", move(0, 0.78, -1.5), dish(), "h", keys=sweep),
        Frame("glow_main", move(0, 0.02, -3.78), glow(1.25), "eh", 1, pulse))
    for name, side, sign, colour in (("right", MIRROR, -1, (0.0, 1.0, 0.0)),
                                     ("left", IDENTITY, 1, (1.0, 0.0, 0.0))):
        # Seen along the ship, toward +z, the left wing lies on +x.
        pod = Frame("pod_" + name, move(3.05 * sign, 0.16, -1.5), engine_pod()).add(
            Frame("glow_" + name, move(0, 0, -1.05), glow(1.2), "eh", 1, pulse))
        hull.add(Frame("wing_" + name, mesh=wing(side)).add(
            pod, Frame("lamp_" + name, move(3.05 * sign, 0.66, -1.3), wing_light(colour), "e")))
    return Frame("landing", mul(turn("y", 32), move(0, -1.4, 0)), landing_pad()).add(
        Frame("beacons", mesh=beacons(), flags="e"), hull)
