"""A smock mill on a meadow. Its sails, fantail and pennant turn; frames reach five levels deep."""

import math

from maker.parts import DARK_WOOD, FORWARD, GRASS, IRON, ROCK, STONE, WHITE, WOOD, arch, window
from maker.shapes import (Frame, Material, Mesh, beam, box, lathe, loft, move, mul, ngon, prism,
                          ring, scale, turn)
from maker.textures import fractal, hash01, smoothstep


def meadow_height(x, z):
    r = math.hypot(x, z)
    rough = fractal(x / 12 + 0.5, z / 12 + 0.5, 4, 3, 7) - 0.5
    return 0.85 * (1 - smoothstep(1.9, 4.2, r)) + 0.8 * rough * smoothstep(2.0, 3.4, r)


def meadow():
    mesh = Mesh(crease=70)
    crag = [0.90 + 0.16 * hash01(j, 3) for j in range(18)]
    rings = [ring(4.1, -1.5, 18),                        # round: a cap must be convex
             [(x * c, y, z * c) for c, (x, y, z) in zip(crag, ring(4.9, -0.8, 18))]]
    for r in (5.2, 4.4, 3.5, 2.7, 1.9, 0.0):
        rings.append([(x, meadow_height(x, z), z) for x, _, z in ring(r, 0, 18)])
    loft(mesh, rings, lambda i, j: ROCK if i < 2 else GRASS, 0.33, caps="b")

    for k in range(8):                                   # stepping stones, winding to the door
        x, z = 0.9 * math.sin(0.55 * k) * k / 8, 1.95 + 0.42 * k
        mesh.at(turn("x", -90), turn("y", 50.0 * k), move(x, meadow_height(x, z), z))
        stone = [(0.19 * (0.85 + 0.3 * hash01(k, c)) * math.cos(math.pi * c / 3),
                  0.19 * (0.85 + 0.3 * hash01(k, c)) * math.sin(math.pi * c / 3)) for c in range(6)]
        prism(mesh, stone, -0.12, 0.04, STONE)
    return mesh


def trees():
    bark = Material("bark", (0.45, 0.36, 0.30), texture="planks.bmp")
    leaves = Material("leaves", (0.70, 0.92, 0.62), power=0.0, texture="grass.tga")
    mesh = Mesh(crease=60)
    for number, (x, z, size) in enumerate(((-3.6, 1.2, 1.0), (-3.2, 2.2, 0.72), (3.3, -2.4, 1.1))):
        mesh.at(scale(size, size, size), move(x, meadow_height(x, z), z))
        lathe(mesh, [(0.20, -0.2), (0.12, 0.5), (0.09, 1.0)], 6, bark, caps="bt")
        crown = []
        for i, (r, y) in enumerate(((0.0, 0.62), (0.56, 0.85), (0.74, 1.35), (0.46, 1.95), (0.0, 2.25))):
            swell = [0.82 + 0.36 * hash01(i, j, number) for j in range(7)]
            crown.append([(px * s, y + (0.22 * (s - 1) if r else 0), pz * s)
                          for s, (px, _, pz) in zip(swell, ring(r, y, 7, 0.5 * (i % 2)))])
        loft(mesh, crown, leaves, 0.6)
    return mesh


def fence():
    mesh = Mesh()
    places = []
    for k in range(6):
        a = math.radians(105 + 22 * k)
        places.append((4.75 * math.sin(a), 4.75 * math.cos(a)))
    tops = [(x, meadow_height(x, z), z) for x, z in places]
    for x, y, z in tops:
        beam(mesh, (x, y - 0.2, z), (x, y + 0.55, z), 0.11, 0.11, DARK_WOOD)
    for (xa, ya, za), (xb, yb, zb) in zip(tops, tops[1:]):
        for lift in (0.22, 0.44):
            beam(mesh, (xa, ya + lift, za), (xb, yb + lift, zb), 0.05, 0.09, WOOD)
    return mesh


def mill_tower():
    mesh = Mesh()
    lathe(mesh, [(1.82, -0.6), (1.62, 1.3)], 8, STONE, 8, 0.78, -0.5, smooth=False, caps="bt")
    lathe(mesh, [(1.60, 0.80), (2.10, 1.30)], 8, DARK_WOOD, 8, 0.8, -0.5, smooth=False, caps="bt")
    lathe(mesh, [(1.40, 1.3), (0.98, 5.15)], 8, WOOD, 8, 0.5, -0.5, smooth=False, caps="bt")
    deck = [(1.25, 1.30), (2.28, 1.30), (2.28, 1.42), (1.25, 1.42), (1.25, 1.30)]
    lathe(mesh, deck, 8, WOOD, 16, 0.9, -0.5, smooth=False)
    for y in (1.70, 1.98):                               # the rails
        rail = [(2.15, y - 0.03), (2.21, y - 0.03), (2.21, y + 0.03), (2.15, y + 0.03), (2.15, y - 0.03)]
        lathe(mesh, rail, 8, WHITE, phase=-0.5, smooth=False)
    posts, rim = ring(2.18, 0, 8, -0.5), ring(1.0, 0, 8, -0.5)
    for (x, _, z), (ex, _, ez) in zip(posts, rim):
        beam(mesh, (x, 1.4, z), (x, 2.02, z), 0.09, 0.09, WHITE)
        beam(mesh, (ex * 1.41, 1.4, ez * 1.41), (ex * 0.985, 5.15, ez * 0.985), 0.09, 0.09, WHITE)
    lathe(mesh, [(1.00, 5.02), (1.12, 5.06), (1.12, 5.2), (1.0, 5.24)], 16, WHITE, caps="bt")

    prism(mesh, arch(0.86, 1.18, -0.1), 1.2, 1.69, WHITE)
    prism(mesh, arch(0.70, 1.08, -0.1), 1.2, 1.73, DARK_WOOD, 1.0)
    box(mesh, (-0.55, -0.4, 1.3), (0.55, 0.02, 1.98), STONE, 0.8)
    beam(mesh, (0.72, 1.12, 1.45), (0.72, 1.12, 1.86), 0.05, 0.05, IRON)
    tilt = math.degrees(math.atan2(0.42 * math.cos(math.pi / 8), 3.85))
    for side, y in ((0, 2.75), (0, 4.15), (90, 3.4), (270, 3.4)):
        apothem = (1.40 - 0.42 * (y - 1.3) / 3.85) * math.cos(math.pi / 8)
        window(mesh, mul(turn("x", -tilt), move(0, y, apothem), turn("y", side)), 0.34, 0.5)
    return mesh


def mill_cap():
    slate = Material("slate", (0.50, 0.58, 0.70), power=30.0, specular=(0.25, 0.25, 0.3),
                     texture="shingles.tga")
    gold = Material("gold", (0.95, 0.72, 0.25), power=50.0, specular=(0.9, 0.8, 0.4))
    mesh = Mesh()
    mesh.at(scale(1, 1, 1.15))
    lathe(mesh, [(1.05, -0.12), (1.14, -0.12), (1.10, 0.22)], 12, WOOD, 8, 0.8, caps="bt")
    lathe(mesh, [(1.08, 0.20), (1.26, 0.14), (1.20, 0.50), (1.02, 0.86), (0.70, 1.18), (0.36, 1.40),
                 (0.10, 1.62), (0.0, 1.62)], 12, slate, 6, 0.85, caps="b")
    mesh.at()
    lathe(mesh, [(0.04, 1.5), (0.04, 1.66), (0.13, 1.76), (0.11, 1.9), (0.02, 1.96), (0.02, 2.72),
                 (0.0, 2.76)], 6, gold, caps="b")
    box(mesh, (-0.34, 0.24, 0.9), (0.34, 0.86, 1.42), DARK_WOOD, 0.8)
    for x in (-0.42, 0.42):                              # the gallows of the fantail
        beam(mesh, (x, 0.1, -0.8), (x, 0.75, -2.12), 0.09, 0.11, WHITE)
        beam(mesh, (x, 0.28, -1.2), (x, 1.3, -2.05), 0.07, 0.09, WHITE)
    beam(mesh, (-0.45, 0.75, -2.08), (0.45, 0.75, -2.08), 0.07, 0.07, WHITE)
    return mesh


def mill_hub():
    mesh = Mesh(crease=40).at(FORWARD)
    lathe(mesh, [(0.17, -0.9), (0.17, 0.12)], 8, IRON, caps="b")
    lathe(mesh, [(0.17, 0.12), (0.30, 0.14), (0.30, 0.46), (0.20, 0.56), (0.0, 0.60)], 8, IRON)
    return mesh


def mill_sail():
    cloth = Material("cloth", (1.0, 1.0, 0.98), power=0.0, specular=(0.0, 0.0, 0.0), texture="sail.pic")
    mesh = Mesh()
    beam(mesh, (0, 0.1, 0), (0, 3.45, 0), 0.13, 0.13, WOOD)

    def sheet(x0, x1, y0, y1, steps, back, material, caps):
        """A thin board, turned less and less out of the wind toward the tip."""
        rings, vs = [], []
        for i in range(steps + 1):
            y = y0 + (y1 - y0) * i / steps
            a = math.radians(25 - 5.5 * y)
            corners = ((x0, 0.0), (x1, 0.0), (x1, back), (x0, back))
            rings.append([(x * math.cos(a) + z * math.sin(a), y, z * math.cos(a) - x * math.sin(a))
                          for x, z in corners])
            vs.append(i / steps)
        loft(mesh, rings, material, (0.0, 1.0, 1.0, 0.0, 0.0), vs, smooth=False)
        ngon(mesh, rings[0][::-1], caps)
        ngon(mesh, rings[-1], caps)

    sheet(0.09, 1.0, 0.85, 3.35, 4, -0.02, cloth, WOOD)
    sheet(-0.26, -0.08, 0.95, 3.3, 1, -0.03, WHITE, WHITE)
    for y in (0.9, 3.3):
        a = math.radians(25 - 5.5 * y)
        ends = [(x * math.cos(a) - 0.05 * math.sin(a), y, -x * math.sin(a) - 0.05 * math.cos(a))
                for x in (-0.25, 0.98)]
        beam(mesh, *ends, 0.05, 0.05, WOOD)
    return mesh


def fantail():
    mesh = Mesh()
    red = Material("vane", (0.78, 0.20, 0.15), texture="planks.bmp")
    mesh.at(turn("z", -90))
    lathe(mesh, [(0.05, -0.5), (0.05, -0.09), (0.11, -0.09), (0.11, 0.09), (0.05, 0.09), (0.05, 0.5)],
          6, IRON, caps="bt")
    for k in range(6):
        mesh.at(turn("y", 60), move(0, 0.06, 0), turn("x", 60 * k))
        prism(mesh, [(0.0, 0.02), (0.04, 0.0), (0.15, 0.66), (-0.13, 0.7)], -0.012, 0.012, red, 1.2)
    return mesh


def pennant():
    """One sheet of cloth, drawn from both sides, with colours that fade along it."""
    red = Material("pennant", (0.95, 0.30, 0.18), power=0.0, specular=(0.0, 0.0, 0.0))
    mesh = Mesh(crease=80)

    def post(k):
        half, x = 0.19 * (1 - k / 7), -0.18 * k
        z = 0.07 * math.sin(1.4 * k)
        return [(x, half, z), (x, -half, z)], (0.95, 0.25 + 0.09 * k, 0.15, 1.0)

    for k in range(7):
        (a, b), here = post(k)
        (c, d), there = post(k + 1)
        u0, u1 = k / 7, (k + 1) / 7
        points, colours = [a, c, d, b], [here, there, there, here]
        uvs = [(u0, 1.0), (u1, 1.0), (u1, 0.0), (u0, 0.0)]
        # At the tip, the two right corners coincide, and the face becomes a triangle.
        mesh.face(points, uvs, red, True, colours)
    return mesh


def lantern():
    # No blue at all: in the file, the emissive frame's red and green are exchanged.
    flame = Material("flame", (1.0, 0.66, 0.0), power=0.0, specular=(0.4, 0.2, 0.0),
                     emissive=(0.85, 0.5, 0.0))
    mesh = Mesh()
    lathe(mesh, [(0.0, -0.26), (0.07, -0.24), (0.11, 0.0), (0.0, 0.12)], 6, flame, smooth=False)
    return mesh


def windmill():
    def spin(axis, turns, times):
        angle = {"x": 0, "y": 1, "z": 2}[axis]
        return [(t, tuple(360.0 * turns * k / (len(times) - 1) if n == angle else 0.0 for n in range(3)))
                for k, t in enumerate(times)]

    hub = Frame("hub", mul(turn("x", -8), move(0, 0.58, 1.5)), mill_hub(), "h",
                keys=spin("z", -1, (0, 30, 60, 90, 120)))
    for k in range(4):
        hub.add(Frame("sail%d" % (k + 1), mul(turn("z", 90 * k + 20), move(0, 0, 0.3)), mill_sail()))
    sway = [(t, (0.0, y, 0.0)) for t, y in ((0, 0.0), (20, 14.0), (40, 3.0), (60, -12.0), (80, 0.0))]
    cap = Frame("cap", mul(turn("y", 12), move(0, 5.24, 0)), mill_cap()).add(
        hub,
        Frame("fantail", move(0, 1.3, -2.05), fantail(), "h", keys=spin("x", 2, (0, 20, 40, 60))),
        Frame("pennant", move(0, 2.48, 0), pennant(), "2h", keys=sway))
    tower = Frame("tower", move(0, 0.85, 0), mill_tower()).add(
        Frame("lantern", move(0.72, 1.02, 1.82), lantern(), "e"), cap)
    return Frame("mill", mul(turn("y", 35), move(0, -3.4, 0))).add(
        Frame("meadow", mesh=meadow()), Frame("trees", mesh=trees()), Frame("fence", mesh=fence()), tower)
