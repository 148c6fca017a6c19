#!/usr/bin/env python3
"""Writes the scenes of this folder: small files that would take long, or much memory, if nothing bounded them.

A function makes the text of one scene, whose name is that of the function; large ones are packed with gzip.
"""

import gzip
import math
import pathlib

FOLDER = pathlib.Path(__file__).resolve().parent
VRML10 = "#VRML V1.0 ascii\n"
VRML20 = "#VRML V2.0 utf8\n"
LARGEST_TEXT = 8_000


def uses(node, levels=30):
    """Groups that use one another twice: two to the power of their number of nodes."""
    text = f"{VRML20}DEF a0 Group {{ children [ {node} ] }}\n"
    for i in range(1, levels):
        text += f"DEF a{i} Group {{ children [ USE a{i - 1} USE a{i - 1} ] }}\n"
    return text


def prototypes(body, levels=40):
    """Prototypes whose bodies are two instances of the one before."""
    text = f"{VRML20}PROTO A0 [ ] {{ {body} }}\n"
    for i in range(1, levels):
        text += f"PROTO A{i} [ ] {{ A{i - 1} {{ }} A{i - 1} {{ }} }}\n"
    return text + f"A{levels - 1} {{ }}\n"


def use_solids():
    return uses("Shape { geometry Box { } } Shape { geometry Sphere { } } Shape { geometry Cylinder { } }")


def use_transforms():
    return uses("Transform { rotation 1 1 1 0.5 scaleOrientation 1 0 1 0.2 scale 1 2 3 children Group { } } " * 20)


def use_caps():
    corners = [f"{math.cos(i * math.pi / 20):.3f} {math.sin(i * math.pi / 20):.3f}" for i in range(41)]
    return uses(f"Shape {{ geometry Extrusion {{ crossSection [ {' '.join(corners)} ] spine [ 0 0 0 0 1 0 ] }} }}")


def use_stars():
    """Outlines that cross themselves some hundreds of times."""
    corners = [f"{math.cos(i * 19 * 2 * math.pi / 41):.3f} {math.sin(i * 19 * 2 * math.pi / 41):.3f}" for i in range(42)]
    return uses(f"Shape {{ geometry Extrusion {{ crossSection [ {' '.join(corners)} ] spine [ 0 0 0 0 1 0 ] }} }}")


def use_instance():
    return uses("P { }").replace("DEF a0", f"PROTO P [ ] {{ {'a ' * 1000} }}\nDEF a0", 1)


def prototype_words():
    return prototypes("a " * 1000)


def prototype_transforms():
    return prototypes("Transform{}" * 200)


def prototype_prototypes():
    return prototypes("PROTO B[]{}" * 200)


def prototype_values():
    """A value that is captured anew at each level, and doubled."""
    text = VRML20 + "PROTO A0 [ field MFString c [ ] ] { x IS c x IS c }\n"
    for i in range(1, 22):
        text += f"PROTO A{i} [ field MFString c [ ] ] {{ A{i - 1} {{ c IS c }} A{i - 1} {{ c IS c }} }}\n"
    return text + f"A21 {{ c [ {'a ' * 300_000} ] }}\n"


def prototype_fields():
    fields = "".join(f"field SFFloat f{i} 1 " for i in range(10_000))
    return f"{VRML20}PROTO P [ {fields} ] {{ Group {{ }} }}\n" + "P { }\n" * 10_000


def prototype_name():
    """A long name in front of many fields that the prototype doesn't have: there is a note of each."""
    name = "P" * 800_000
    return f"{VRML20}PROTO {name} [ ] {{ Box {{ }} }}\n{name} {{ {'a 1 ' * 400_000}}}\n"


def prototype_references():
    return f"{VRML20}PROTO P [ field SFFloat f 1 ] {{ Group {{ {'a IS f ' * 10_000} }} }}\n" + "P { }\n" * 10_000


def instance_text():
    return f"{VRML20}PROTO P [ field MFFloat f [ ] ] {{ Group {{ }} }}\nDEF x P {{ {'f [ ] ' * 100_000} }}\n" + "USE x\n" * 60_000


def nested_appearances():
    return VRML20 + "Shape { appearance " * 480 + "Box { } " * 600_000 + "} " * 480


def point_sets():
    return f"{VRML10}Coordinate3 {{ point [ {'0 0 0, ' * 80_000} ] }}\n" + "PointSet { }\n" * 40_000


def strips():
    points = f"Coordinate3 {{ point [ {'0 0 0, ' * 80_000} ] }}\n"
    return VRML10 + points + "TriangleStripSet { numVertices [ 3 ] }\n" * 15_000


def pixels():
    image = "Appearance { texture PixelTexture { image 8192 8192 3 0 } }"
    return VRML20 + f"Shape {{ appearance {image} geometry Box {{ }} }}\n" * 10


def padded_grids():
    grid = "ElevationGrid { xDimension 1024 zDimension 1024 xSpacing 1 zSpacing 1 height 0 }"
    return VRML20 + f"Shape {{ geometry {grid} }}\n" * 100


def swept_points():
    sweep = f"Extrusion {{ crossSection [ {'0 0, ' * 5_790} ] spine [ {'0 0 0, ' * 5_790} ] }}"
    return VRML20 + f"Shape {{ geometry {sweep} }}\n" * 10


def files_dots():
    """Names of thousands of components that lead nowhere."""
    names = ("./" * (1000 + 60 * i) + "none.png" for i in range(100))
    return VRML20 + "Box {}" + "".join(f'ImageTexture {{ url "{name}" }}\n' for name in names)


def files_missing():
    """Missing files, for each of which a careless lookup lists the whole folder."""
    names = [f"none{i}" for i in range(3000)]
    nodes = "".join(f'Inline {{ url "{name}.wrl" }} ImageTexture {{ url "{name}.png" }}\n' for name in names)
    return VRML20 + "Box {}" + nodes


def transforms_run_on():
    """Lists that don't end with their nodes: the rest is read as a part of each, and again behind it."""
    return VRML20 + "DEF a Transform { children [ Transform ] }\n" * 150


def transforms_run_on_long():
    """The same with much text in few statements."""
    points = "1.25 2.5 3.75, " * 20_000
    shape = f"Shape {{ geometry IndexedFaceSet {{ coord Coordinate {{ point [ {points} ] }} coordIndex [ 0 1 2 -1 ] }} }}\n"
    return VRML20 + "DEF a Transform { children [ Transform ] }\n" * 14 + shape


def shapes_run_on():
    return VRML20 + "Shape { appearance Appearance { material Group { children [ Shape ] } } geometry Box { } }\n" * 80


SCENES = [files_dots, files_missing, transforms_run_on, transforms_run_on_long, shapes_run_on, use_solids,
          use_transforms, use_caps, use_stars, use_instance, prototype_words, prototype_transforms,
          prototype_prototypes, prototype_values, prototype_fields, prototype_name, prototype_references, instance_text,
          nested_appearances, point_sets, strips, pixels, padded_grids, swept_points]


def main():
    for scene in SCENES:
        text = scene().encode()
        name = scene.__name__.replace("_", "-")
        if len(text) <= LARGEST_TEXT:
            (FOLDER / f"{name}.wrl").write_bytes(text)
        else:
            (FOLDER / f"{name}.wrl.gz").write_bytes(gzip.compress(text, mtime=0))


if __name__ == "__main__":
    main()
