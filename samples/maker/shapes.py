"""Solids and frames of the sample models.

Lengths are in model units, y is up. Points are row vectors: p' = p * M, so in mul(a, b) matrix a
acts first. Every face is wound counter-clockwise seen from outside, that is, by the right-hand
rule its normal points out of the solid. The helpers below keep to that, also under mirroring.
"""

import math
from dataclasses import dataclass, field

# --------------------------------------------------------------------------------- matrices

IDENTITY = (1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0)


def mul(*matrices):
    result = matrices[0]
    for b in matrices[1:]:
        a = result
        result = tuple(sum(a[4 * r + k] * b[4 * k + c] for k in range(4))
                       for r in range(4) for c in range(4))
    return result


def move(x, y, z):
    return IDENTITY[:12] + (x, y, z, 1.0)


def scale(x, y, z):
    return (x, 0.0, 0.0, 0.0, 0.0, y, 0.0, 0.0, 0.0, 0.0, z, 0.0, 0.0, 0.0, 0.0, 1.0)


def turn(axis, degrees):
    """A right-handed turn about the x, y or z axis."""
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    i, j = {"x": (1, 2), "y": (2, 0), "z": (0, 1)}[axis]
    m = list(IDENTITY)
    m[5 * i], m[4 * i + j], m[4 * j + i], m[5 * j] = c, s, -s, c
    return tuple(m)


def moved(p, m):
    return tuple(p[0] * m[k] + p[1] * m[4 + k] + p[2] * m[8 + k] + m[12 + k] for k in range(3))


def minus(a, b):
    return tuple(p - q for p, q in zip(a, b))


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def dot(a, b):
    return sum(p * q for p, q in zip(a, b))


def unit(a):
    length = math.sqrt(dot(a, a))
    return tuple(p / length for p in a)


def area_normal(points):
    """The sum of the triangle fan's cross products: twice the area, along the normal."""
    total = (0.0, 0.0, 0.0)
    for a, b in zip(points[1:], points[2:]):
        c = cross(minus(a, points[0]), minus(b, points[0]))
        total = tuple(p + q for p, q in zip(total, c))
    return total


# ---------------------------------------------------------------------------- model records


@dataclass(frozen=True)
class Material:
    name: str
    face: tuple                       # red, green, blue
    alpha: float = 1.0
    power: float = 12.0
    specular: tuple = (0.1, 0.1, 0.1)
    emissive: tuple = (0.0, 0.0, 0.0)
    texture: str = ""

    @property
    def ambient(self):
        return tuple(0.14 * c for c in self.face)


class Mesh:
    """Faces with their corner data; `normals` computes the normals at the end."""

    def __init__(self, crease=50.0):
        self.faces = []               # (points, uvs, material, smooth, colours)
        self.crease = math.cos(math.radians(crease))
        self.place = IDENTITY

    def at(self, *matrices):
        """Moves faces added from now on by these matrices, applied in order."""
        self.place = mul(IDENTITY, *matrices)
        return self

    def face(self, points, uvs, material, smooth=True, colours=None):
        def rounded(values, digits):
            return tuple(round(v, digits) + 0.0 for v in values)      # + 0.0: no negative zero

        if not material.texture:
            uvs = [(0.0, 0.0)] * len(points)          # unused: keeps the files small
        corners = []
        for k, point in enumerate(points):
            corner = [rounded(moved(point, self.place), 3), uvs[k], colours and colours[k]]
            if corners and corners[-1][0] == corner[0]:
                # A lathe's pole: two corners coincide, and the one kept takes the mean u, v.
                corners[-1][1] = tuple((a + b) / 2 for a, b in zip(corners[-1][1], uvs[k]))
            else:
                corners.append(corner)
        if corners[0][0] == corners[-1][0]:
            corners.pop()
        if len(corners) < 3:
            return
        m = self.place
        if dot(cross(m[0:3], m[4:7]), m[8:11]) < 0:                   # mirrored: turn it round
            corners.reverse()
        places = [c[0] for c in corners]
        assert dot(area_normal(places), area_normal(places)) > 1e-10, "degenerate face"
        self.faces.append((places, [rounded(c[1], 3) for c in corners], material, smooth,
                           colours and [rounded(c[2], 3) for c in corners]))

    def normals(self):
        """A list of corner normals for each face: smooth across edges flatter than the crease."""
        flat = [area_normal(f[0]) for f in self.faces]
        around = {}
        for k, f in enumerate(self.faces):
            for p in f[0]:
                around.setdefault(p, []).append(k)
        result = []
        for k, (points, _, _, smooth, _) in enumerate(self.faces):
            own, corner_normals = unit(flat[k]), []
            for p in points:
                total = flat[k]
                if smooth:
                    parts = [flat[g] for g in around[p]
                             if self.faces[g][3] and dot(unit(flat[g]), own) > self.crease]
                    total = tuple(map(sum, zip(*parts)))
                corner_normals.append(tuple(round(v, 3) + 0.0 for v in unit(total)))
            result.append(corner_normals)
        return result


@dataclass
class Frame:
    name: str
    matrix: tuple = IDENTITY
    mesh: Mesh = None
    flags: str = ""                   # of "e" emissive, "2" both sides, "h" animated, "g"
    key_type: int = 3                 # 1 scale, 2 place, 3 turns about x, y, z in degrees
    keys: list = field(default_factory=list)                          # (time, values)
    children: list = field(default_factory=list)

    def add(self, *frames):
        self.children.extend(frames)
        return self

    def walk(self):
        yield self
        for child in self.children:
            yield from child.walk()


# ----------------------------------------------------------------------------------- solids


def planar(points, size):
    """Texture coordinates projected along the axis nearest to the face's normal."""
    n = area_normal(points)
    axis = max(range(3), key=lambda k: abs(n[k]))
    sign = 1.0 if n[axis] > 0 else -1.0
    pick = {0: lambda p: (-sign * p[2], p[1]), 1: lambda p: (p[0], -sign * p[2]),
            2: lambda p: (sign * p[0], p[1])}[axis]
    return [tuple(c * size for c in pick(p)) for p in points]


def ngon(mesh, points, material, uv=0.5, smooth=False):
    mesh.face(points, planar(points, uv), material, smooth)


def loft(mesh, rings, material, us, vs=None, closed=True, smooth=True, split=False, caps=""):
    """Skins rings of equally many points. Seen from outside, points run to the right and rings
    upward. us and vs give the texture coordinates of points and rings; without vs the texture is
    projected flat, with us as its size. The material may be a function of (ring, point). split makes
    triangles; caps "b" and "t" close the first and the last ring by one polygon each."""
    n = len(rings[0])
    pick = material if callable(material) else lambda i, j: material
    for i in range(len(rings) - 1):
        for j in range(n if closed else n - 1):
            k = (j + 1) % n
            points = [rings[i][j], rings[i][k], rings[i + 1][k], rings[i + 1][j]]
            parts = [(0, 1, 2), (0, 2, 3)] if (i + j) % 2 else [(0, 1, 3), (1, 2, 3)]
            for part in parts if split else [(0, 1, 2, 3)]:
                corners = [points[c] for c in part]
                if vs is None:
                    uvs = planar(corners, us)
                else:
                    u, v = us[j:j + 2], vs[i:i + 2]
                    uvs = [((u[0], v[0]), (u[1], v[0]), (u[1], v[1]), (u[0], v[1]))[c] for c in part]
                mesh.face(corners, uvs, pick(i, j), smooth)
    if "b" in caps:
        ngon(mesh, rings[0][::-1], pick(0, 0))
    if "t" in caps:
        ngon(mesh, rings[-1], pick(len(rings) - 2, 0))


def ring(radius, y, n, phase=0.0):
    """n points about the y axis; point 0 looks along +z, the next ones go toward +x."""
    angles = [2 * math.pi * (j + phase) / n for j in range(n)]
    return [(radius * math.sin(a), y, radius * math.cos(a)) for a in angles]


def lathe(mesh, profile, n, material, repeat=1.0, v_size=0.5, phase=0.0, smooth=True, caps=""):
    """Turns a profile of (radius, y) about the y axis, bottom first for an outer surface."""
    rings = [ring(r, y, n, phase) for r, y in profile]
    vs = [0.0]
    for (r0, y0), (r1, y1) in zip(profile, profile[1:]):
        vs.append(vs[-1] + math.hypot(r1 - r0, y1 - y0) * v_size)
    loft(mesh, rings, material, [repeat * j / n for j in range(n + 1)], vs, smooth=smooth, caps=caps)


def box(mesh, lo, hi, material, uv=0.5):
    """An upright box; material may be a dict of "+x", "-x", ... with "" for the rest."""
    for axis in range(3):
        a, b = (axis + 1) % 3, (axis + 2) % 3
        for sign, level in (("-", lo), ("+", hi)):
            points = []
            for pa, pb in ((lo[a], lo[b]), (hi[a], lo[b]), (hi[a], hi[b]), (lo[a], hi[b])):
                p = [0.0, 0.0, 0.0]
                p[axis], p[a], p[b] = level[axis], pa, pb
                points.append(tuple(p))
            chosen = material
            if isinstance(material, dict):
                chosen = material.get(sign + "xyz"[axis], material.get(""))
            ngon(mesh, points if sign == "+" else points[::-1], chosen, uv)


def beam(mesh, a, b, width, depth, material, uv=0.5):
    """A bar from a to b, with the grain of its texture lengthwise."""
    along = unit(minus(b, a))
    side = (0.0, 1.0, 0.0) if abs(along[1]) < 0.9 else (0.0, 0.0, 1.0)
    x = unit(cross(along, side))
    z = cross(x, along)
    length = math.sqrt(dot(minus(b, a), minus(b, a)))
    before = mesh.place
    mesh.at((*x, 0.0, *along, 0.0, *z, 0.0, *a, 1.0), before)
    box(mesh, (-width / 2, 0, -depth / 2), (width / 2, length, depth / 2), material, uv)
    mesh.at(before)


def prism(mesh, outline, z0, z1, material, uv=0.5, sides=None):
    """Extrudes a convex outline in x, y (counter-clockwise seen from +z) from z0 to z1."""
    ngon(mesh, [(x, y, z1) for x, y in outline], material, uv)
    ngon(mesh, [(x, y, z0) for x, y in reversed(outline)], material, uv)
    for (xa, ya), (xb, yb) in zip(outline, outline[1:] + outline[:1]):
        ngon(mesh, [(xa, ya, z0), (xb, yb, z0), (xb, yb, z1), (xa, ya, z1)], sides or material, uv)
