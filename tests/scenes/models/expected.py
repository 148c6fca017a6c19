#!/usr/bin/env python3
"""Computes the dumps of the scenes in this folder from their shapes and the formulas for them, without the library.

Writes NAME.json beside each NAME.wrl that is a whole scene. Points are row vectors, so that in a * b the matrix a acts
first; what stands behind a shape here is the matrix that brings it to the world."""
import json
import math
import os

Q = 1.5707963  # the quarter turn as the scenes write it
QUARTER = 1.5707964897155762  # the quarter turn that makes a cone stand, as its contract states it
WHITE = (1, 1, 1)
I = [[float(r == c) for c in range(4)] for r in range(4)]


def mul(*ms):
    out = I
    for m in ms:
        out = [[sum(out[r][k] * m[k][c] for k in range(4)) for c in range(4)] for r in range(4)]
    return out


def T(x, y, z):
    return [I[0], I[1], I[2], [x, y, z, 1.0]]


def S(x, y, z):
    return [[x, 0, 0, 0], [0, y, 0, 0], [0, 0, z, 0], [0, 0, 0, 1.0]]


def R(axis, angle):
    """Rodrigues' formula, each row being what becomes of a unit vector."""
    n = math.sqrt(sum(a * a for a in axis))
    u = [a / n for a in axis]
    rows = []
    for e in range(3):
        v = [float(i == e) for i in range(3)]
        cross = [u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]]
        dot = sum(a * b for a, b in zip(u, v))
        rows.append([v[i] * math.cos(angle) + cross[i] * math.sin(angle) + u[i] * dot * (1 - math.cos(angle))
                     for i in range(3)] + [0.0])
    return rows + [[0, 0, 0, 1.0]]


def onto(a, b):
    """The shortest rotation of a onto b."""
    cross = [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]
    sine, cosine = math.sqrt(sum(c * c for c in cross)), sum(p * q for p, q in zip(a, b))
    return R(cross, math.atan2(sine, cosine)) if sine > 1e-9 else I


def at(p, m, w=1.0):
    q = list(p) + [w]
    return [sum(q[k] * m[k][c] for k in range(4)) for c in range(3)]


def flat(m):
    return [x for row in m for x in row]


def mat(diffuse=WHITE, specular=(0, 0, 0), emission=(0, 0, 0), shininess=64.0, alpha=1.0, diffuse_alpha=None):
    return {"ambient": [0.2, 0.2, 0.2, alpha], "diffuse": [*diffuse, alpha if diffuse_alpha is None else diffuse_alpha],
            "specular": [*specular, alpha], "emission": [*emission, alpha], "shininess": shininess}


class Model:
    def __init__(self):
        self.factor = 1.0

    def make(self, kind, name, material, **fields):
        return {"type": kind, "name": name, "material": material, **fields}

    def scaled(self, m):
        return flat(mul(m, S(*[self.factor] * 3)))

    def points(self, ps, m):
        return [[x * self.factor for x in at(p, m)] for p in ps]

    def box(self, w, h, d, m, material=mat(), name=""):
        ps = [(sx * w / 2, sy * h / 2, sz * d / 2) for sz in (-1, 1) for sx, sy in ((-1, -1), (1, -1), (1, 1), (-1, 1))]
        return self.make("brixBox", name, material, points=self.points(ps, m))

    def sphere(self, r, m, material=mat(), name=""):
        return self.make("brixSphere", name, material, radius=r, matrix=self.scaled(m))

    def dot(self, p, m, material=mat(), name=""):
        return self.make("brixDot", name, material, point=self.points([p], m)[0])

    def standing(self, h, m):
        return mul(R((1, 0, 0), -QUARTER), T(0, -h / 2, 0), m)

    def cone(self, r, h, m, material=mat(), name="", bottom=True):
        placed = self.scaled(self.standing(h, m))
        side = self.make("brixCone", name, material, height=h, bottomRadius=r, topRadius=0.0, matrix=placed)
        return [side] + ([self.make("brixDisk", name, material, innerRadius=0.0, outerRadius=r, matrix=placed)] if bottom else [])

    def cylinder(self, r, h, m, material=mat(), name="", disks=None):
        placed = self.standing(h, m)
        bottom, rim, axis = at((0, 0, 0), placed), at((r, 0, 0), placed), at((0, 0, 1), placed, 0.0)
        radius = math.dist(bottom, rim)
        length = math.sqrt(sum(a * a for a in axis))
        turn = onto((0, 0, 1), [a / length for a in axis])
        top = [b + a * h for a, b in zip(axis, bottom)]
        one, two = disks or (material, material)
        disk = lambda centre, m2: self.make("brixDisk", name, m2, innerRadius=0.0, outerRadius=radius,
                                            matrix=self.scaled(mul(turn, T(*centre))))
        return [self.make("brixCylinder", name, material, height=h, radius=r, matrix=self.scaled(placed)),
                disk(bottom, one), disk(top, two)]

    def faces(self, ps, runs, m, material=mat(), name="", **texture):
        return self.make("CKelPolyface", name, material, **texture, points=self.points(ps, m), faces=runs)

    def line(self, ps, m, material=mat(), name="", kind="CKelPolyline"):
        return self.make(kind, name, material, points=self.points(ps, m))

    def mesh(self, rows, columns, ps, m, material=mat(), name=""):
        return self.make("CKelPolyMesh", name, material, rows=rows, columns=columns, points=self.points(ps, m))


def group(name, *items):
    flat_items = [x for item in items for x in (item if isinstance(item, list) else [item])]
    return {"name": name, "objects": [x for x in flat_items if "type" in x],
            "groups": [x for x in flat_items if "type" not in x]}


def save(scene, *items, units="meters", result="VRMLLoadOK", warning=0, textures=()):
    folder = os.path.dirname(os.path.abspath(__file__))
    text = json.dumps({"result": result, "units": units, "warning": warning, "world": group("", *items),
                       "textures": list(textures)})
    with open(os.path.join(folder, scene + ".json"), "w", encoding="utf8") as f:
        for head in ('{"name"', '{"type"'):  # a line for each group and object
            text = text.replace(head, "\n" + head)
        f.write(text + "\n")


def cad_v1():
    o = Model()
    m0 = [[0, 10, 0, 0], [-10, 0, 0, 0], [0, 0, 10, 0], [1, 2, 3, 1]]
    ps = [(0, 0, 0), (4, 0, 0), (4, 2, 0), (0, 2, 0), (0, 0, 1), (4, 0, 1)]
    d = [(0.5, 0.25, 0), (0, 0.5, 0.25), (0.25, 0, 0.5)]
    s = [(0.125, 0.25, 0.5), (0.5, 0.125, 0.25), (0.25, 0.5, 0.125)]
    e = [(0, 0, 0.0625), (0, 0.0625, 0), (0.0625, 0, 0)]
    paint = [mat(d[i], s[i], e[i], (i + 1) * 32.0, 1 - (i + 1) * 0.125) for i in range(3)]

    def plate(m, name):
        polygon = lambda run, i: o.line([ps[k] for k in run], m, paint[i], name, "CKelPolygon")
        return group("Plate", polygon((3, 2, 1, 0), 2), polygon((0, 1, 5, 4), 0), polygon((0, 4, 3), 1),
                     o.line([ps[0], ps[1]], m, paint[0], name), o.line([ps[1], ps[2], ps[3]], m, paint[1], name),
                     o.faces([ps[0], ps[1], ps[4], ps[5]], [[0, 1, 3], [2, 3, 1]], m, paint[0], name))

    inner = mul(S(2, 1, 1), R((0, 0, 1), Q), T(4, 0, 0), m0)
    brown = mat(d[0])
    save("cad-v1",
         group("Assembly", plate(m0, ""), o.box(1, 2, 3, inner, brown, "Bracket"), o.cone(0.5, 3.0, inner, brown),
               o.dot((2, 2, 2), m0, brown), o.dot((3, 3, 3), m0, brown)),
         o.box(1, 2, 3, T(0, 0, 50), brown), plate(T(0, 0, 50), "Plate"))


def cad_v2():
    o = Model()
    so = R((1, 0, 0), Q)
    m = mul(T(-1, 0, 0), R((0, 0, 1), Q), so, S(1, 2, 1), R((1, 0, 0), -Q), T(1, 0, 0), T(10, 20, 30))
    ps = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
    rest = {"specular": (1, 0.5, 0.25), "emission": (0.125, 0, 0), "shininess": 64.0, "alpha": 0.75}
    blue = (0.25, 0.5, 0.75)
    side = lambda place, colour, name: group("Side", o.faces(ps, [[0, 1, 2, 3], [3, 2, 0]], place, mat(colour, **rest), name))
    save("cad-v2",
         group("Body", side(m, (1, 0, 0), ""), o.line([ps[0], ps[1], ps[2]], m, mat(blue)),
               o.line([ps[2], (5, 5, 5)], m, mat(blue)), o.box(2, 4, 6, m, mat(blue))),
         side(T(0, 0, -40), blue, "Side"), group("Ball", o.sphere(3.0, I, mat(blue), "Ball")),
         o.sphere(3.0, mul(R((1, 0, 0), 3.1415927), T(0, 7, 0)), mat(blue)))


def molecule():
    o = Model()
    grey = mat((0.75, 0.75, 0.75), shininess=32.0)

    def water(m):
        return group("Water", o.sphere(1.5, m, mat((1, 0, 0))), o.sphere(1.0, mul(T(3, 0, 0), m)),
                     o.sphere(1.0, mul(T(0, 3, 0), m)),
                     o.cylinder(0.25, 3.0, mul(R((0, 0, 1), -Q), T(1.5, 0, 0), m), grey),
                     o.cylinder(0.25, 3.0, mul(T(0, 1.5, 0), m), grey))

    save("molecule", water(I), water(mul(R((0, 0, 1), Q), T(30, 0, 0))), o.sphere(1.5, I, mat((1, 0, 0))))


def robot():
    o = Model()
    orange = mat((1, 0.5, 0))

    def arm(m, hand_name, tool_name):
        inner = mul(R((1, 0, 0), Q), T(0, -3, 0), m)
        return group("Arm", o.cylinder(1.0, 6.0, m, orange), group("Hand", o.cone(2.0, 4.0, inner, orange, hand_name)),
                     group("Tool", o.sphere(1.0, mul(S(2, 1, 0.5), T(0, 0, 5), inner), orange, tool_name)))

    shoulder = mul(R((0, 0, 1), Q), T(4, 8, 0))
    mirror = S(1, -1, 1)
    save("robot",
         group("Robot", group("Trunk", o.box(8, 20, 4, T(0, 10, 0), mat((0.25, 0.25, 0.25)))),
               arm(mul(shoulder, T(0, 10, 0)), "", ""), arm(mul(shoulder, T(-40, 0, 0), T(0, 10, 0)), "Hand", "Tool")),
         group("Hand", o.cone(2.0, 4.0, mirror, orange, "Hand")), group("Tool", o.sphere(1.0, mirror, orange, "Tool")))


def rooms():
    o = Model()
    brown = mat((0.5, 0.25, 0.125))
    up = T(0, 100, 0)
    away = T(0, 0, -100)
    save("rooms",
         group("House", group("Table", o.box(10, 4, 6, T(100, 0, 0), brown)), o.box(2, 2, 2, up, brown),
               o.cone(3.0, 5.0, up, brown, bottom=False), group("Chest", o.cylinder(2.0, 6.0, up, brown)),
               o.box(2, 2, 2, T(1, 100, 0), brown), o.box(2, 8, 2, I, mat((0, 1, 0)))),
         group("Table", o.box(10, 4, 6, away, brown, "Table")), group("Chest", o.cylinder(2.0, 6.0, away, brown, "Chest")))


def terrain():
    o = Model()
    hill, blue = T(5, 0, 10), mat((0, 0, 1))
    high = mul(S(2, 2, 2), T(0, 100, 0))
    h = [0, 1, 2, 3, 4, 5.5]
    surface = [(10 * i, h[i + 3 * j], 20 * j) for i in range(3) for j in range(2)]
    g = [1, 2, 3, 4, 5, 0]
    p = lambda i, j: (2 * i, g[i + 2 * j], 4 * j)
    green = mat((0.25, 0.5, 0.125), emission=(0.25, 0.5, 0.125))
    strip = {"normals": [], "counts": [3, 2]}
    strip_points = [(0, 0, 0), (1, 0, 0), (0, 1, 0), (1, 1, 0), (2, 0, 0)]
    save("terrain",
         group("Hill", group("Surface", o.mesh(3, 2, surface, hill, green, "Surface")),
               [o.line([p(i, j) for j in range(3)], hill) for i in range(2)],
               [o.line([p(i, j) for i in range(2)], hill) for j in range(3)]),
         [o.dot(q, I, blue) for q in ((1, 2, 3), (4, 5, 6), (7, 8, 9))],
         o.make("CKelMultipleTriangleStrip", "", blue, points=o.points(strip_points, high), **strip),
         o.mesh(3, 2, surface, high, blue))


def sweep():
    o = Model()
    spine = [(0, 0, 0), (20, 0, 0), (20, 20, 0), (20, 20, 20)]
    half = math.sqrt(0.5)
    tangents = [(1, 0, 0), (half, half, 0), (0, half, half), (0, 0, 1)]
    pipe = [at(p, mul(onto((0, 1, 0), t), T(*s))) for s, t in zip(spine, tangents)
            for p in ((1, 0, 0), (0, 0, 1), (-1, 0, 0))]
    turns = [mul(S(1, 1, 2), R((0, 1, 0), Q)), mul(S(3, 1, 4), R((0, 1, 0), 3.1415927)), I]
    beam = [at(p, mul(turn, T(0, y, 0))) for turn, y in zip(turns, (0, 10, 30)) for p in ((1, 0, 1), (1, 0, -1))]
    save("sweep", group("Pipe", o.mesh(4, 3, pipe, I, mat(), "Pipe")), o.mesh(3, 2, beam, T(0, 0, 50)),
         o.mesh(4, 3, pipe, T(0, 0, 50)), result="VRMLLoadWarnings", warning=1)


def pictures():
    o = Model()
    ps = [(0, 0, 0), (30, 0, 0), (30, 30, 0), (0, 30, 0)]
    lies = {"id": 1, "wrapS": 0, "wrapT": 1, "rotation": math.degrees(Q), "scale": [2, 3],
            "coordinates": [[0, 0], [1, 0], [1, 1], [0, 1]]}
    glass = mat(WHITE, (0, 0.5, 0), alpha=0.5, diffuse_alpha=1.0)
    wall = lambda m, name: group("Wall", group("Square", o.faces(ps, [[0, 1, 2, 3]], m, glass, name, texture=lies)))
    pixels = {"id": 2, "wrapS": 1, "wrapT": 0, "rotation": 0.0, "scale": [1, 1], "coordinates": [[0.5, 0.25]]}
    save("pictures", wall(I, ""), o.faces([(0, 0, 5), (30, 0, 5), (30, 30, 5)], [[0, 1, 2]], I, mat(), texture=pixels),
         o.box(1, 1, 1, I, mat((1, 0, 0))), wall(T(0, 0, -9), "Square"),
         textures=[{"id": 1, "name": "tile.png", "width": 3, "height": 2}, {"id": 2, "name": "", "width": 2, "height": 3}])


def bindings():
    o = Model()
    ps = [(0, 0, 0), (30, 0, 0), (0, 30, 0), (0, 0, 30)]
    listed = [(1, 0, 0), (0, 1, 0), (0, 0, 1), (1, 1, 0)]
    paint = lambda i, shininess=16.0: mat(listed[i], shininess=shininess, alpha=0.5)
    polygon = lambda run, material: o.line([ps[i] for i in run], I, material, "", "CKelPolygon")
    line = lambda run, material: o.line([ps[i] for i in run], I, material)
    third = 1 / 3
    save("bindings",
         polygon((0, 1, 2), mat((third, third, third))), polygon((0, 3), mat((0.5, 0.5, 0))),
         polygon((1, 2, 3, 0), mat((0, 0, 0))),
         line((0, 1), mat((1, 1, 0))), line((2, 3, 1), mat((third, third, 0))),
         polygon((0, 1, 2), paint(3)), polygon((0, 2, 3), paint(0)),
         polygon((1, 2, 3), mat(WHITE, shininess=16.0, alpha=0.5)), polygon((0, 1, 3), paint(0)),
         o.cylinder(2.0, 10.0, I, paint(0), disks=(paint(1, 32.0), paint(2))),
         line((0, 1), paint(0)), line((2, 3), paint(0)),
         o.sphere(1.0, I, mat((0.5, 0.25, 0), specular=(0.5, 0.25, 0))),
         o.sphere(1.0, I, mat((0, 0.25, 0.5), emission=(0, 0.25, 0.5))), o.sphere(5.0, I, paint(0)))


def choices():
    o = Model()
    near = lambda name, far_name: group("Near", o.box(30, 1, 1, I, name=name), group("Far", o.box(1, 30, 1, I, name=far_name)))
    save("choices", near("", ""), o.box(1, 1, 30, I, name="yes"), o.box(2, 2, 2, T(100, 0, 0)),
         o.box(3, 3, 3, T(100, 0, 0), name="both"), group("Solid", o.box(4, 4, 4, I)), o.box(5, 5, 5, I),
         o.box(1, 1, 30, I), group("Far", o.box(1, 30, 1, I, name="Far")), near("Near", "Far"))


def names():
    o = Model()
    away = T(30, 0, 0)
    moved = mul(S(2, 2, 2), T(1, 1, 1), T(0, 0, 7), S(1, 2, 3), R((0, 0, 1), Q), T(0, 5, 0))
    green = mat((0, 1, 0))
    save("names",
         group("a", o.box(2, 2, 2, away, name="b"), group("c", o.sphere(1.0, away), o.box(2, 2, 2, away))),
         o.sphere(2.0, I, name="b"),
         group("a", o.box(2, 2, 2, away, name="a"), group("c", o.sphere(1.0, away, name="c"), o.sphere(2.0, away, name="c"))),
         group("a", o.box(4, 2, 2, I, name="a"), o.box(6, 2, 2, I), o.cylinder(1.0, 2.0, I, name="d")),
         o.box(4, 2, 2, I), o.cylinder(1.0, 2.0, I),
         group("e", group("e", o.box(8, 2, 2, I)), o.box(10, 2, 2, I)),
         group("e", o.box(8, 2, 2, I, name="e"), o.box(10, 2, 2, I, name="e")),
         o.box(2, 2, 2, mul(moved, moved), green), o.sphere(2.0, moved, green, "g"))


def small():
    o = Model()
    o.factor = 1000.0
    m = T(0.01, 0, 0)
    save("small", group("Pin", o.cylinder(0.005, 0.1, m), o.sphere(0.01, m)),
         o.line([(0, 0, 0), (0.02, 0, 0), (0, 0.03, 0)], I), units="millimeters")


for scene in (cad_v1, cad_v2, molecule, robot, rooms, terrain, sweep, pictures, bindings, choices, names, small):
    scene()
