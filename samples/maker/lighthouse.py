"""A lighthouse and a cottage on an islet in clear water, with a jetty and a boat."""

from maker.parts import DARK_WOOD, GRASS, IRON, MIRROR, ROCK, STONE, WHITE, WOOD, arch, window
from maker.shapes import (Frame, Material, Mesh, beam, box, lathe, loft, move, mul, prism, ring,
                          scale, turn)
from maker.textures import hash01


def islet_rock():
    mesh = Mesh()
    profile = ((4.1, -0.95), (3.75, -0.15), (3.3, 0.35), (2.85, 0.85), (2.4, 1.12), (1.3, 1.2), (0.0, 1.2))
    rings = []
    for i, (r, y) in enumerate(profile):
        rough = (0.0, 0.26, 0.30, 0.22, 0.05, 0.0, 0.0)[i]           # the plateau is level
        points = []
        for j, (x, _, z) in enumerate(ring(1.0, 0, 20, 0.5 * (i % 2))):
            s = r * (1 + rough * (hash01(i, j, 1) - 0.5) * 1.6)
            points.append((1.18 * x * s, y + 1.3 * rough * (hash01(i, j, 2) - 0.5), z * s))
        rings.append(points)
    loft(mesh, rings, lambda i, j: GRASS if i > 3 or i == 3 and hash01(j, 5) > 0.5 else ROCK, 0.4,
         smooth=False, split=True, caps="b")

    for number, (x, z, size) in enumerate(((-4.4, 1.5, 0.62), (-3.9, 2.35, 0.40), (3.7, -2.9, 0.55),
                                           (-2.4, -3.9, 0.45), (4.9, 1.2, 0.36))):
        mesh.at(scale(size, size, size), turn("y", 70.0 * number), move(x, 0.0, z))
        rings = []
        for i, (r, y) in enumerate(((0.0, -1.0), (0.9, -0.5), (1.05, 0.2), (0.55, 0.75), (0.0, 0.9))):
            lumps = [0.78 + 0.4 * hash01(i, j, number) for j in range(6)]
            rings.append([(px * s, y + (0.25 * (s - 1) if r else 0.0), pz * s)
                          for s, (px, _, pz) in zip(lumps, ring(r, y, 6, 0.5 * (i % 2)))])
        loft(mesh, rings, ROCK, 0.5, smooth=False, split=True)
    return mesh


def sea():
    """A round block of clear water, through which the foot of the rock shows."""
    water = Material("water", (0.62, 0.92, 1.0), alpha=0.72, power=60.0, specular=(0.7, 0.7, 0.7),
                     texture="water.bmp")
    mesh = Mesh(crease=60)
    rings = [ring(6.0, -1.0, 28)]
    for i, r in enumerate((6.0, 5.1, 4.2, 3.2, 0.0)):
        rings.append([(x, 0.11 * (hash01(i, j, 9) - 0.5) if r else 0.0, z)
                      for j, (x, _, z) in enumerate(ring(r, 0, 28))])
    loft(mesh, rings, water, 0.3, caps="b")
    return mesh


def lighthouse_tower():
    red = Material("redwall", (0.86, 0.22, 0.17), power=16.0, texture="stone.tga")
    white = Material("whitewall", (1.0, 1.0, 1.0), power=16.0, texture="stone.tga")
    door = Material("door", (0.45, 0.62, 0.60), texture="planks.bmp")
    mesh = Mesh(crease=60)
    lathe(mesh, [(1.34, -0.3), (1.28, 0.16), (1.16, 0.22), (1.10, 0.22)], 16, STONE, 8, 0.8, caps="bt")
    walls = [(1.08 - 0.42 * k / 6 + 0.10 * (1 - k / 6) ** 3, 0.2 + 0.72 * k) for k in range(7)]
    lathe(mesh, walls, 16, lambda i, j: white if i % 2 == 0 else red, 6, 0.85, caps="bt")
    prism(mesh, arch(0.66, 1.12, 0.15), 0.8, 1.24, STONE, 0.8)
    prism(mesh, arch(0.48, 1.02, 0.2), 0.8, 1.29, door, 1.2)
    for k in range(3):                                   # steps
        box(mesh, (-0.42, -0.2, 1.1), (0.42, 0.2 - 0.09 * k, 1.42 + 0.16 * k), STONE, 0.8)
    for y, side in ((2.0, 0), (2.9, 120), (3.75, 0), (2.0, 240)):
        r = 1.08 - 0.42 * (y - 0.2) / 4.32 + 0.10 * (1 - (y - 0.2) / 4.32) ** 3
        window(mesh, mul(turn("x", -5), move(0, y, r - 0.01), turn("y", side)), 0.2, 0.34)
    return mesh


def gallery():
    grille = Material("grille", (0.30, 0.32, 0.36), power=30.0, specular=(0.3, 0.3, 0.3),
                      texture="railing.pic")
    mesh = Mesh()
    lathe(mesh, [(0.64, -0.16), (0.72, -0.02), (1.00, 0.14), (1.06, 0.16), (1.06, 0.26), (0.3, 0.26)],
          16, WHITE, caps="bt")
    # A thin wall of railing; the texture's height runs once up each of its sides.
    fence_rings = [ring(r, y, 16) for r, y in ((0.99, 0.26), (1.02, 0.26), (1.02, 0.70), (0.99, 0.70),
                                               (0.99, 0.26))]
    loft(mesh, fence_rings, grille, [float(j) for j in range(17)], (0.0, 0.0, 1.0, 1.0, 0.0), smooth=False)
    return mesh


def lantern_room():
    glass = Material("glass", (0.70, 0.90, 1.0), alpha=0.28, power=80.0, specular=(1.0, 1.0, 1.0))
    roof = Material("roof", (0.80, 0.20, 0.16), power=40.0, specular=(0.5, 0.4, 0.4))
    mesh = Mesh()
    lathe(mesh, [(0.56, 0.0), (0.56, 0.22), (0.50, 0.26)], 8, WHITE, phase=-0.5, smooth=False, caps="bt")
    lathe(mesh, [(0.46, 0.26), (0.46, 0.98)], 8, glass, phase=-0.5, smooth=False, caps="bt")
    for x, _, z in ring(0.48, 0, 8, -0.5):
        beam(mesh, (x, 0.24, z), (x, 1.0, z), 0.05, 0.05, IRON)
    lathe(mesh, [(0.60, 0.98), (0.62, 1.04), (0.50, 1.22), (0.28, 1.40), (0.09, 1.50), (0.07, 1.60),
                 (0.13, 1.68), (0.10, 1.78), (0.02, 1.82), (0.0, 2.3)], 12, roof, caps="b")
    return mesh


def lamp():
    light = Material("light", (1.0, 0.95, 0.75), power=10.0, emissive=(0.75, 0.65, 0.30))
    brass = Material("brass", (0.85, 0.65, 0.25), power=40.0, specular=(0.8, 0.7, 0.3))
    mesh = Mesh()
    lathe(mesh, [(0.16, 0.0), (0.08, 0.06), (0.08, 0.14)], 8, brass, caps="bt")
    lathe(mesh, [(0.10, 0.14), (0.22, 0.24), (0.25, 0.36), (0.22, 0.48), (0.10, 0.58)], 10, light, caps="bt")
    return mesh


def cottage():
    tiles = Material("tiles", (0.86, 0.40, 0.28), texture="shingles.tga")
    plaster = Material("plaster", (1.0, 0.98, 0.92), texture="stone.tga")
    door = Material("greendoor", (0.40, 0.62, 0.42), texture="planks.bmp")
    mesh = Mesh()
    prism(mesh, [(-0.62, -0.2), (0.62, -0.2), (0.62, 0.78), (0.0, 1.36), (-0.62, 0.78)], -0.95, 0.95,
          plaster, 0.7)
    for side in (None, MIRROR):                          # one slab of roof, and its mirror image
        mesh.at(*([side] if side else []))
        rings = [[(x + dx, y + dy, z) for dx, dy, z in
                  ((0.0, 0.0, 1.08), (0.0, 0.0, -1.08), (-0.05, -0.06, -1.08), (-0.05, -0.06, 1.08))]
                 for x, y in ((0.80, 0.68), (0.0, 1.43))]
        rings[1][2] = (0.0, 1.35, -1.08)
        rings[1][3] = (0.0, 1.35, 1.08)
        loft(mesh, rings, tiles, (0.0, 2.2, 2.2, 0.0, 0.0), (0.0, 1.1), smooth=False, caps="bt")
    mesh.at()
    box(mesh, (-0.44, 0.9, -0.62), (-0.18, 1.66, -0.36), Material("chimney", (0.80, 0.42, 0.34),
                                                                 texture="stone.tga"), 0.9)
    prism(mesh, arch(0.36, 0.74, -0.1), 0.8, 1.0, door, 1.2)
    for z in (-0.45, 0.45):
        for side in (90, -90):
            window(mesh, mul(move(0.45 if z > 0 else -0.45, 0.42, 0.62), turn("y", side)), 0.26, 0.32)
    return mesh


def jetty():
    mesh = Mesh()
    for k in range(8):
        z = 3.3 + 0.33 * k
        left, right = -0.42 - 0.05 * hash01(k, 1), 0.42 + 0.05 * hash01(k, 2)
        box(mesh, (left, 0.36, z), (right, 0.43, z + 0.29), WOOD, 0.9)
    for z in (3.9, 4.8, 5.7):
        for x in (-0.4, 0.4):
            mesh.at(move(x, 0, z))
            lathe(mesh, [(0.07, -0.9), (0.07, 0.72), (0.0, 0.76)], 6, DARK_WOOD, caps="b")
    mesh.at()
    for k in range(5):                                   # steps up the rock
        box(mesh, (-0.4, 0.18 * k, 3.2 - 0.26 * k), (0.4, 0.46 + 0.18 * k, 3.52 - 0.26 * k), STONE, 0.8)
    return mesh


def boat():
    paint = Material("paint", (0.25, 0.48, 0.72), power=24.0, specular=(0.3, 0.3, 0.3))
    mesh = Mesh(crease=60)
    rings = []
    for z, w, h, hollow in ((-0.80, 0.27, 0.30, False), (-0.76, 0.28, 0.30, True), (-0.3, 0.36, 0.27, True),
                            (0.25, 0.34, 0.28, True), (0.66, 0.20, 0.33, True), (0.84, 0.08, 0.37, False),
                            (0.92, 0.02, 0.39, False)):
        half = [(0.35 * w, 0.0), (0.78 * w, 0.3 * h), (w, h)]
        outer = [(-x, y) for x, y in reversed(half)] + half
        inner = [(x * 0.82, max(y, 0.05) + 0.02 if hollow else h) for x, y in reversed(outer)]
        inner[0], inner[-1] = (w * 0.86, h), (-w * 0.86, h)
        rings.append([(x, y, z) for x, y in outer + inner])
    wood = Material("boatwood", (0.9, 0.85, 0.8), texture="planks.bmp")
    loft(mesh, rings, lambda i, j: paint if j < 5 else wood, 0.8, caps="bt")
    for z in (-0.35, 0.2):
        box(mesh, (-0.31, 0.19, z), (0.31, 0.22, z + 0.16), wood)
    return mesh


def lighthouse():
    top = Frame("gallery", move(0, 4.5, 0), gallery()).add(
        Frame("lantern", move(0, 0.26, 0), lantern_room()).add(Frame("lamp", move(0, 0.26, 0), lamp())))
    rock = Frame("rock", mesh=islet_rock()).add(
        Frame("tower", mul(turn("y", 15), move(-1.15, 1.2, -0.25)), lighthouse_tower()).add(top),
        Frame("cottage", mul(turn("y", -25), move(1.45, 1.2, -0.35)), cottage()))
    pier = Frame("jetty", turn("y", 8), jetty()).add(
        Frame("boat", mul(turn("z", 3), turn("y", 12), move(1.0, -0.07, 4.7)), boat()))
    return Frame("islet", mul(turn("y", 40), move(0, -2.6, 0))).add(rock, pier, Frame("sea", mesh=sea()))
