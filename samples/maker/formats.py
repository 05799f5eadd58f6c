"""The two text formats of the sample models: dotXSI and DirectX text.

A file holds one top-level frame. A keyword and its brace share a line and numbers begin on the
line after it: the editor reads line by line and looks for keywords anywhere in a line.
"""

from maker.shapes import IDENTITY


def num(value):
    """Six significant digits, as a C++ stream writes a float."""
    return "%g" % value


class Pool:
    """Numbers values in the order of their first use."""

    def __init__(self):
        self.items = {}

    def __call__(self, value):
        return self.items.setdefault(value, len(self.items))


def separated(lines, last=";"):
    """Ends each line of a list but the last with a comma."""
    return [line + "," for line in lines[:-1]] + [lines[-1] + last]


def semis(values):
    return "".join(num(v) + ";" for v in values)


def polygon(indices, number=None):
    head = "" if number is None else "%d;" % number
    return head + "%d;%s;" % (len(indices), ",".join(map(str, indices)))


XSI_HEAD = """xsi 0101txt 0032

SI_CoordinateSystem coord {
   1;\n   0;\n   1;\n   0;\n   2;\n   5;\n}



SI_Angle {\n   0;\n}

SI_Camera  Camera1 {
   1.297981; 2.646989; 3.466687;;
   -1.766339; 1.376721; 2.805893;;
   0.000000;\n   60.000031;\n   0.100000;\n   32768.000000;\n}

SI_Ambience {\n   0.500000; 0.500000; 0.500000;;\n}

SI_Fog {
   0;\n   0;
   0.500000; 0.500000; 0.500000;;
   20.000000;\n   100.000000;\n}

SI_Light  light1 {
   0;
   1.000000; 1.000000; 1.000000;;
   0.000000; 5.966998; 0.000000;;
}


"""


def matrix_lines(matrix):
    return separated([",".join(num(v) for v in matrix[r:r + 4]) for r in (0, 4, 8, 12)], ";;")


def xsi_material(m, emissive_frame):
    def colour(c, *more):
        # In an emissive frame a colour without blue has red and green exchanged in the file;
        # the reader exchanges them back.
        r, g, b = (c[1], c[0], c[2]) if emissive_frame and c[2] == 0.0 else c
        return semis((r, g, b, *more)) + ";"

    lines = ["SI_Material {", "   " + colour(m.face, m.alpha), "   " + num(m.power) + ";",
             "   " + colour(m.specular), "   " + colour(m.emissive), "   2;",
             "   " + colour(m.ambient)]
    if m.texture:
        # Mapping type, sizes, crop, swap, repeats, alternates, scale, offset, projection,
        # blending type and the factors: the values the editor gives every texture.
        values = ["4;", "0;0;", "0;0;0;0;", "0;", "1;1;", "0;0;", "1;1;", "0;0;",
                  *matrix_lines(IDENTITY), "3;", "1;", "0.75;", "1;", "0;", "0;", "0;", "0;"]
        lines += ["", "   SI_Texture2D  {", '      "%s";' % m.texture]
        lines += ["      " + v for v in values] + ["   }"]
    return lines + ["}"]


def xsi_block(name, faces_of_values):
    """A numbered block: each value once, then the polygons that index them."""
    pool = Pool()
    polygons = [polygon([pool(v) for v in face], k) for k, face in enumerate(faces_of_values)]
    return ["", name + " {", "   %d;" % len(pool.items),
            *("   " + line for line in separated([semis(v) for v in pool.items])), "",
            "   %d;" % len(polygons), *("   " + line for line in separated(polygons)), "}"]


def xsi_mesh(frame, suffix):
    faces, places, slots = frame.mesh.faces, Pool(), Pool()
    polygons = [polygon([places(p) for p in f[0]]) for f in faces]
    owners = ["%d" % slots(f[2]) for f in faces]
    body = ["%d;" % len(places.items), *separated([semis(p) for p in places.items]), "",
            "%d;" % len(polygons), *separated(polygons), "",
            "MeshMaterialList {", "   %d;" % len(slots.items), "   %d;" % len(owners),
            *("   " + line for line in separated(owners)), ""]
    for m in slots.items:
        body += ["   " + line if line else "" for line in xsi_material(m, "e" in frame.flags)]
    body.append("}")
    body += xsi_block("SI_MeshNormals", frame.mesh.normals())
    if any(m.texture for m in slots.items):
        body += xsi_block("SI_MeshTextureCoords", [f[1] for f in faces])
    if faces[0][4]:
        body += xsi_block("SI_MeshVertexColors", [f[4] for f in faces])
    return ["Mesh %s%s {" % (frame.name, suffix), *("   " + line if line else "" for line in body), "}"]


def suffix_of(frame):
    """Only frames with a mesh carry their flags in the name."""
    return "__" + frame.flags if frame.mesh and frame.flags else ""


def check_name(frame):
    # The reader finds its keywords anywhere in a line, so no name may contain one.
    assert frame.name == frame.name.lower()
    assert not any(word in frame.name for word in ("frame", "mesh", "template", "__"))


def write_xsi(path, root):
    """dotXSI as the editor's own Save lays it out: opening and saving reproduces these bytes."""
    lines = []

    def frame_lines(frame, depth):
        check_name(frame)
        suffix, body = suffix_of(frame), []
        body += ["FrameTransformMatrix {", *("   " + line for line in matrix_lines(frame.matrix)), "}", ""]
        if frame.mesh:
            body += xsi_mesh(frame, suffix)
        lines.append("   " * depth + "Frame frm-%s%s {" % (frame.name, suffix))
        lines.append("")
        lines.extend("   " * (depth + 1) + line if line else "" for line in body)
        for child in frame.children:
            frame_lines(child, depth + 1)
        lines.append("   " * depth + "}")

    frame_lines(root, 0)
    animated = [f for f in root.walk() if f.keys]
    if animated:
        lines += ["", "", "AnimationSet {"]
    for f in animated:
        assert f.mesh, "only frames with a mesh keep their keys in a save"
        name = f.name + suffix_of(f)
        keys = ["%d; %d; %s" % (time, len(v), ", ".join(map(num, v))) for time, v in f.keys]
        keys = [key + ";;," for key in keys[:-1]] + [keys[-1] + ";;;"]
        lines += ["   Animation anim-%s {" % name, "      {frm-%s}" % name, "      SI_AnimationKey {",
                  "         %d;" % f.key_type, "         %d;" % len(keys),
                  *("         " + key for key in keys), "      }", "   }"]
    if animated:
        lines.append("}")
    path.write_text(XSI_HEAD + "\n".join(lines) + "\n", newline="\n")


def write_x(path, root):
    """DirectX text. Here, texture coordinates belong to the vertices, and v points down."""
    out = ["xof 0302txt 0032", "", "Header {", "   1;", "   0;", "   1;", "}", ""]

    def vectors(rows):
        return separated([semis(row) for row in rows], ";")

    def packed(values):
        rows = [",".join(values[k:k + 24]) for k in range(0, len(values), 24)]
        return separated(rows, ";;")

    def x_mesh(frame):
        faces, corners, slots, normals = frame.mesh.faces, Pool(), Pool(), Pool()
        polygons = [polygon([corners(c) for c in zip(f[0], f[1])]) for f in faces]
        owners = ["%d" % slots(f[2]) for f in faces]
        turned = [polygon([normals(n) for n in face]) for face in frame.mesh.normals()]
        body = ["%d;" % len(corners.items), *vectors([c[0] for c in corners.items]), "",
                "%d;" % len(polygons), *separated(polygons), "", "MeshMaterialList {",
                " %d;" % len(slots.items), " %d;" % len(owners), *(" " + r for r in packed(owners))]
        for m in slots.items:
            body += [" Material %s {" % m.name, "  %s;" % semis((*m.face, m.alpha)),
                     "  %s;" % num(m.power), "  %s;" % semis(m.specular),
                     "  %s;" % semis(m.emissive)]
            if m.texture:
                body += ["  TextureFilename {", '   "%s";' % m.texture, "  }"]
            body.append(" }")
        body += ["}", "", "MeshNormals {", " %d;" % len(normals.items),
                 *(" " + r for r in vectors(normals.items)), " %d;" % len(turned),
                 *(" " + r for r in separated(turned)), "}"]
        if any(m.texture for m in slots.items):
            down = [(u, round(1 - v, 3)) for _, (u, v) in corners.items]
            body += ["", "MeshTextureCoords {", " %d;" % len(down), *(" " + r for r in vectors(down)), "}"]
        return ["Mesh {", *(" " + line if line else "" for line in body), "}"]

    def frame_lines(frame, depth):
        check_name(frame)
        body = ["FrameTransformMatrix {", *(" " + line for line in matrix_lines(frame.matrix)), "}", ""]
        if frame.mesh:
            body += x_mesh(frame)
        out.append(" " * depth + "Frame %s%s {" % (frame.name, suffix_of(frame)))
        out.extend(" " * (depth + 1) + line if line else "" for line in body)
        for child in frame.children:
            out.append("")
            frame_lines(child, depth + 1)
        out.append(" " * depth + "}")

    frame_lines(root, 0)
    path.write_text("\n".join(out) + "\n", newline="\n")
