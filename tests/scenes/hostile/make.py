#!/usr/bin/env python3
"""Makes the packed scenes of this folder anew; each function says what its scene is for."""

import gzip
import pathlib

FOLDER = pathlib.Path(__file__).parent
HEADER = "#VRML V2.0 utf8\n"


def pack(name, text):
    (FOLDER / name).write_bytes(gzip.compress(text.encode(), mtime=0))


# --- Files that a scene asks for


def files_dots():
    """Names of thousands of components that lead nowhere, each looked at on its own by a careless lookup."""
    names = ("./" * (1000 + 60 * i) + "none.png" for i in range(100))
    pack("files-dots.wrl.gz", HEADER + "Box {}" + "".join(f'ImageTexture {{ url "{name}" }}\n' for name in names))


def files_missing():
    """Missing files, for each of which a careless lookup lists the whole folder."""
    names = [f"none{i}" for i in range(3000)]
    nodes = "".join(f'Inline {{ url "{name}.wrl" }} ImageTexture {{ url "{name}.png" }}\n' for name in names)
    pack("files-missing.wrl.gz", HEADER + "Box {}" + nodes)


if __name__ == "__main__":
    files_dots()
    files_missing()
