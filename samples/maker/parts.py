"""Materials and small parts that more than one sample model uses."""

import math

from maker.shapes import Material, box, scale, turn

# Axes of a solid of revolution: the lathe turns about y, these lay that axis along z.
FORWARD = turn("x", 90)
# A mirror image; faces added under it are wound the other way round, so they still look outward.
MIRROR = scale(-1, 1, 1)

WOOD = Material("wood", (1.0, 0.95, 0.90), texture="planks.bmp")
DARK_WOOD = Material("darkwood", (0.55, 0.50, 0.47), texture="planks.bmp")
WHITE = Material("white", (0.93, 0.92, 0.88), power=20.0, specular=(0.15, 0.15, 0.15))
IRON = Material("iron", (0.25, 0.27, 0.30), power=40.0, specular=(0.6, 0.6, 0.6))
GRASS = Material("grass", (1.0, 1.0, 0.95), power=0.0, specular=(0.0, 0.0, 0.0), texture="grass.tga")
ROCK = Material("rock", (0.95, 0.90, 0.84), power=0.0, specular=(0.0, 0.0, 0.0), texture="rock.tga")
STONE = Material("stone", (0.95, 0.88, 0.78), texture="stone.tga")
PANE = Material("pane", (0.20, 0.32, 0.45), power=60.0, specular=(0.8, 0.8, 0.8),
                emissive=(0.05, 0.07, 0.09))


def window(mesh, place, width, height):
    """A framed window that looks along +z, its middle at the origin of place."""
    mesh.at(place)
    w, h = width / 2, height / 2
    box(mesh, (-w - 0.06, -h - 0.06, -0.15), (w + 0.06, h + 0.06, 0.04), WHITE)
    box(mesh, (-w, -h, -0.05), (w, h, 0.05), PANE)
    box(mesh, (-0.02, -h, 0.0), (0.02, h, 0.07), WHITE)


def arch(width, height, bottom=0.0):
    """The outline of a round-headed opening: nine corners, counter-clockwise."""
    w = width / 2
    head = [(w * math.cos(a), height - w + w * math.sin(a))
            for a in (math.pi * k / 6 for k in range(7))]
    return [(-w, bottom), (w, bottom)] + head
