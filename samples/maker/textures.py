"""Textures of the sample models, drawn by arithmetic alone.

A picture is a list of rows, the top row first; a pixel is (red, green, blue, alpha), each 0 to 1.
All pictures tile: noise is taken on a lattice that wraps round, and patterns divide the size.
Pictures meant to be tinted by a material's face colour are kept light and nearly grey.
"""

import math
import struct

# ------------------------------------------------------------------------------------ noise


def hash01(*numbers):
    """A fixed pseudo-random number in [0, 1) for a tuple of integers.

    Not the random module: a value must depend only on its place, never on the order of calls.
    """
    h = 2166136261
    for n in numbers:
        h = ((h ^ (n & 0xFFFFFFFF)) * 16777619) & 0xFFFFFFFF
        h ^= h >> 15
    h = (h * 0x2C1B3C6D) & 0xFFFFFFFF
    h ^= h >> 12
    h = (h * 0x297A2D39) & 0xFFFFFFFF
    h ^= h >> 15
    return h / 4294967296.0


def smoothstep(lo, hi, x):
    t = min(1.0, max(0.0, (x - lo) / (hi - lo)))
    return t * t * (3 - 2 * t)


def noise(x, y, period_x, period_y, seed):
    """Value noise in [0, 1); repeats after period_x, period_y lattice cells."""
    ix, iy = math.floor(x), math.floor(y)
    sx, sy = smoothstep(0, 1, x - ix), smoothstep(0, 1, y - iy)

    def at(i, j):
        return hash01((ix + i) % period_x, (iy + j) % period_y, seed)

    top = at(0, 0) + (at(1, 0) - at(0, 0)) * sx
    bottom = at(0, 1) + (at(1, 1) - at(0, 1)) * sx
    return top + (bottom - top) * sy


def fractal(u, v, cells, octaves, seed):
    """Several octaves of noise over the unit square, in [0, 1)."""
    total, weight, norm = 0.0, 1.0, 0.0
    for octave in range(octaves):
        total += weight * noise(u * cells, v * cells, cells, cells, seed + octave)
        norm += weight
        weight *= 0.5
        cells *= 2
    return total / norm


def mix(a, b, t):
    return tuple(p + (q - p) * t for p, q in zip(a, b))


def shade(colour, factor):
    return tuple(c * factor for c in colour)


def draw(size, pixel):
    """The picture whose pixel at column x, row y is pixel(x, y), with alpha 1 if left out."""
    rows = []
    for y in range(size):
        rows.append([(*c, 1.0)[:4] for c in (pixel(x, y) for x in range(size))])
    return rows


# --------------------------------------------------------------------------------- pictures


def stone():
    """Courses of cut stone in running bond, light enough to be painted any colour."""
    def pixel(x, y):
        course = y // 16
        shifted = (x + 16 * (course % 2)) % 128
        block = shifted // 32
        lx, ly = shifted % 32, y % 16
        edge = min(lx, 31 - lx, ly, 15 - ly) + 1.6 * (fractal(x / 128, y / 128, 16, 2, 5) - 0.5)
        grain = fractal(x / 128, y / 128, 16, 3, 11)
        if edge < 0.9:
            return shade((0.56, 0.54, 0.50), 0.85 + 0.3 * grain)
        tint = 0.80 + 0.16 * hash01(block, course, 3)
        warm = hash01(block, course, 7)
        light = 1.0 + (0.06 if ly < 3 or lx < 3 else 0.0) - (0.09 if ly > 12 or lx > 28 else 0.0)
        return shade(mix((0.97, 0.95, 0.90), (0.93, 0.90, 0.86), warm),
                     tint * light * (0.82 + 0.3 * grain))
    return draw(128, pixel)


def planks():
    """Four upright boards with grain, butt joints and nails."""
    def pixel(x, y):
        board, lx = x // 32, x % 32
        joint = int(128 * hash01(board, 1)) & ~7
        ly = (y - joint) % 128
        piece = hash01(board, 2)
        wobble = 3.0 * noise(y / 16, board, 8, 4, 21)
        grain = noise((x + wobble) / 2.0, y / 32, 64, 4, 30 + board)
        fine = fractal(x / 128, y / 128, 32, 2, 40)
        colour = mix((0.66, 0.48, 0.30), (0.80, 0.62, 0.42), 0.75 * grain + 0.25 * piece)
        colour = shade(colour, (0.80 + 0.20 * piece) * (0.88 + 0.24 * fine))
        if lx == 0 or lx == 31 or ly == 0:
            return shade(colour, 0.34)
        if lx == 1 or ly == 1:
            return shade(colour, 1.16)
        if lx in (8, 9, 22, 23) and ly in (6, 7, 120, 121):
            return (0.22, 0.20, 0.19)
        return colour
    return draw(128, pixel)


def shingles():
    """Rows of round-ended roof shingles, each row lapping over the one below it."""
    def pixel(x, y):
        row, ly = y // 16, y % 16

        def lap(r):
            """Shingle number, and how far it hangs over the row below, at column x of row r."""
            shifted = (x + 8 * (r % 2)) % 128
            dx = (shifted % 16 - 7.5) / 8
            return shifted // 16, 9 * math.sqrt(max(0.0, 1 - dx * dx)), abs(dx)

        above, hang, dx = lap(row - 1)
        if ly < hang:
            depth, owner, number, to_edge = ly + 16, row - 1, above, hang - ly
        else:
            number, next_hang, dx = lap(row)
            depth, owner = ly, row
            to_edge = 16 + next_hang - ly
        tone = 0.72 + 0.28 * hash01(number, owner % 8, 51)
        light = 0.72 + 0.30 * smoothstep(4, 18, depth)
        if ly >= hang:                           # the shadow of the row above
            light *= 0.55 + 0.45 * smoothstep(0, 6, ly - hang)
        if to_edge < 1.3:
            light *= 1.15
        elif dx > 0.9:
            light *= 0.62
        return shade((0.92, 0.90, 0.90), tone * light * (0.86 + 0.26 * fractal(x / 128, y / 128, 16, 3, 53)))
    return draw(128, pixel)


def grass():
    """A meadow from above: patches, tufts and a few flowers."""
    def pixel(x, y):
        patch = fractal(x / 128, y / 128, 4, 3, 61)
        blade = noise(x / 1.5, y / 5, 85, 26, 66)
        colour = mix((0.24, 0.43, 0.13), (0.54, 0.66, 0.25), 0.55 * patch + 0.45 * blade)
        cell = hash01(x // 4, y // 4, 69)
        if cell > 0.972 and (x % 4, y % 4) in ((1, 1), (2, 1), (1, 2), (2, 2)):
            return (0.98, 0.93, 0.60) if cell > 0.986 else (0.96, 0.96, 0.92)
        return shade(colour, 0.80 + 0.38 * fractal(x / 128, y / 128, 32, 2, 64))
    return draw(128, pixel)


def rock():
    """Layered rock with cracks where ridged noise folds over."""
    def pixel(x, y):
        u, v = x / 128, y / 128
        base = fractal(u, v, 4, 5, 71)
        bands = 0.5 + 0.5 * math.sin(2 * math.pi * (5 * v + 1.3 * fractal(u, v, 4, 3, 77)))
        crack = abs(2 * fractal(u, v, 4, 4, 83) - 1)
        colour = mix((0.55, 0.52, 0.49), (0.88, 0.84, 0.77), 0.6 * base + 0.4 * bands)
        return shade(colour, (0.72 + 0.42 * base) * (0.58 + 0.42 * smoothstep(0.0, 0.10, crack)))
    return draw(128, pixel)


def water():
    """Ripples: the web of light between the cells of a warped Voronoi pattern."""
    def pixel(x, y):
        u, v = x / 128, y / 128
        px = (u + 0.035 * math.sin(2 * math.pi * (2 * v + u))) * 7
        py = (v + 0.035 * math.sin(2 * math.pi * (2 * u - v))) * 7
        near = []
        for j in range(math.floor(py) - 1, math.floor(py) + 2):
            for i in range(math.floor(px) - 1, math.floor(px) + 2):
                cx = i + 0.15 + 0.7 * hash01(i % 7, j % 7, 91)
                cy = j + 0.15 + 0.7 * hash01(i % 7, j % 7, 92)
                near.append(math.hypot(px - cx, py - cy))
        near.sort()
        web = 1 - smoothstep(0.0, 0.30, near[1] - near[0])
        deep = mix((0.09, 0.31, 0.45), (0.20, 0.50, 0.62), fractal(u, v, 4, 4, 97))
        return mix(deep, (0.78, 0.93, 0.95), 0.55 * web * web)
    return draw(128, pixel)


def hull():
    """Hull plating: panels of several sizes with seams, rivets, louvres and hatches."""
    panels = []

    def split(x, y, w, h, seed):
        if max(w, h) > 64 or (max(w, h) > 24 and hash01(x, y, w, seed) < 0.78):
            cut = 8 * max(1, round((w if w >= h else h) * (0.3 + 0.4 * hash01(x, y, h, 5)) / 8))
            if w >= h:
                split(x, y, cut, h, seed + 1)
                split(x + cut, y, w - cut, h, seed + 2)
            else:
                split(x, y, w, cut, seed + 1)
                split(x, y + cut, w, h - cut, seed + 2)
        else:
            panels.append((x, y, w, h))

    split(0, 0, 128, 128, 101)
    owner = {}
    for panel in panels:
        x0, y0, w, h = panel
        for y in range(y0, y0 + h):
            for x in range(x0, x0 + w):
                owner[x, y] = panel

    def pixel(x, y):
        x0, y0, w, h = owner[x, y]
        lx, ly = x - x0, y - y0
        kind = hash01(x0, y0, 103)
        tone = 0.80 + 0.17 * hash01(x0, y0, 107)
        colour = shade((0.97, 0.98, 1.0), tone * (0.93 + 0.12 * fractal(x / 128, y / 128, 8, 4, 109)))
        if lx == 0 or ly == 0:
            return shade(colour, 0.42)
        if lx == 1 or ly == 1:
            return shade(colour, 1.10)
        if kind < 0.22 and 4 < lx < w - 4 and 4 < ly < h - 4:       # louvres
            return shade(colour, 0.40 if ly % 4 < 2 else 0.95)
        if kind > 0.88 and min(w, h) >= 16:                         # a round hatch
            ring = math.hypot(lx - w / 2, ly - h / 2)
            return shade(colour, 0.5 if abs(ring - 6) < 0.8 else 0.86 if ring < 6 else 1.0)
        if lx in (3, w - 3) and ly % 8 == 4:
            return shade(colour, 0.62)
        return colour
    return draw(128, pixel)


def deck():
    """Dark tread plate: raised lozenges leaning left and right by turns."""
    def pixel(x, y):
        cx, cy = x // 8, y // 8
        lx, ly = x % 8 - 3.5, y % 8 - 3.5
        if (cx + cy) % 2:
            lx = -lx
        along, across = (lx + ly) * 0.7071, (lx - ly) * 0.7071
        body = (along / 4.2) ** 2 + (across / 1.5) ** 2
        base = 0.40 + 0.14 * fractal(x / 64, y / 64, 8, 3, 121)
        if body < 1:
            base += 0.30 if across < 0 else 0.12
        if x == 0 or y == 0:
            base *= 0.45
        return (base * 0.97, base, base * 1.06)
    return draw(64, pixel)


def sail():
    """A mill sail: cloth spread over part of a lattice, the rest of the lattice open."""
    def pixel(x, y):
        u, v = (x + 0.5) / 128, 1 - (y + 0.5) / 128                 # v grows from hub to tip
        thread = 0.94 + 0.05 * ((x + y) % 2) + 0.10 * (fractal(x / 128, y / 128, 16, 3, 131) - 0.5)
        cloth_edge = 0.74 + 0.05 * math.sin(math.pi * u) + 0.012 * math.sin(9 * math.pi * u)
        lath = x % 25 < 3 or y % 12 < 3 or x >= 125 or y >= 125
        wood = (0.47, 0.33, 0.20)
        if v > cloth_edge and not lath:         # clear, but wood-coloured for the smoothing filter
            return (*wood, 0.0)
        if v > cloth_edge:
            return shade(wood, 0.8 + 0.5 * noise(x / 2, y / 2, 64, 64, 133))
        colour = shade((0.96, 0.90, 0.77), thread)
        if v > cloth_edge - 0.022:                                  # the rolled edge
            return shade((0.72, 0.60, 0.44), thread)
        if 30 <= x < 62 and 66 <= y < 92:                           # a patch, with its stitches
            border = min(x - 30, 61 - x, y - 66, 91 - y)
            colour = shade((0.70, 0.34, 0.24), thread)
            if border == 2 and (x + y) % 4 < 2:
                colour = (0.97, 0.93, 0.85)
        elif lath:                                                  # the lattice shows through
            colour = shade(colour, 0.86)
        if x % 32 == 31:                                            # seams
            colour = shade(colour, 0.76)
        return (*colour, 1.0)
    return draw(128, pixel)


def railing():
    """Iron railing of balusters and rings; the gaps are clear."""
    def pixel(x, y):
        lx = abs(x % 32 - 15.5)
        ring = math.hypot(lx, y - 26.5)
        solid = (y < 6 or 44 <= y < 48 or 58 <= y or lx < 1.6 and not 15 < y < 38
                 or lx > 13.8 or abs(ring - 10.2) < 1.7)
        iron = (0.90, 0.92, 0.95)
        if not solid:
            return (*iron, 0.0)
        grain = 0.84 + 0.24 * noise(x / 2, y / 2, 32, 32, 141)
        return shade(iron, grain * (1.0 if y in (0, 1, 44, 58) else 0.82))
    return draw(64, pixel)


# -------------------------------------------------------------------------------- encoders


def to_bytes(pixel, order):
    return bytes(min(255, max(0, int(pixel[i] * 255 + 0.5))) for i in order)


def encode_tga(rows):
    """Truevision, uncompressed 24 bit, the bottom row first (descriptor 0)."""
    header = struct.pack("<BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, len(rows[0]), len(rows), 24, 0)
    return header + b"".join(to_bytes(p, (2, 1, 0)) for row in reversed(rows) for p in row)


def encode_bmp(rows):
    """Windows bitmap, 24 bit, the bottom row first; rows are padded to four bytes."""
    width, height = len(rows[0]), len(rows)
    padding = b"\0" * (-3 * width % 4)
    body = b"".join(b"".join(to_bytes(p, (2, 1, 0)) for p in row) + padding for row in reversed(rows))
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(body), 2835, 2835, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 54 + len(body), 0, 0, 54) + info + body


def mixed_runs(pixels):
    """One row of one channel packet: runs as (length + 127, value), the rest as literals."""
    out, literals, i = bytearray(), [], 0

    def flush():
        for start in range(0, len(literals), 128):
            part = literals[start:start + 128]
            out.append(len(part) - 1)
            out.extend(b"".join(part))
        literals.clear()

    while i < len(pixels):
        run = 1
        while i + run < len(pixels) and run < 128 and pixels[i + run] == pixels[i]:
            run += 1
        if run >= 3:
            flush()
            out.append(run + 127)
            out.extend(pixels[i])
        else:
            literals.extend(pixels[i:i + run])
        i += run
    flush()
    return bytes(out)


def encode_pic(rows):
    """Softimage picture, mixed run lengths: one packet for the colours, one for alpha."""
    comment = b"Drawn by make_samples.py"
    header = struct.pack(">If80s4sHHfHH", 0x5380F634, 3.5, comment, b"PICT",
                         len(rows[0]), len(rows), 1.0, 3, 0)
    # chained, bits, type 2 (mixed runs), channel mask
    packets = bytes((1, 8, 2, 0xE0, 0, 8, 2, 0x10))
    body = b"".join(mixed_runs([to_bytes(p, (0, 1, 2)) for p in row])
                    + mixed_runs([to_bytes(p, (3,)) for p in row]) for row in rows)
    return header + packets + body


TEXTURES = {
    "stone.tga": stone, "shingles.tga": shingles, "grass.tga": grass, "rock.tga": rock,
    "deck.tga": deck, "planks.bmp": planks, "water.bmp": water, "hull.bmp": hull,
    "sail.pic": sail, "railing.pic": railing,
}
ENCODERS = {".tga": encode_tga, ".bmp": encode_bmp, ".pic": encode_pic}


def write_textures(folder):
    for name, picture in TEXTURES.items():
        (folder / name).write_bytes(ENCODERS[name[-4:]](picture()))
