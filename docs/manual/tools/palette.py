#!/usr/bin/env python3
"""Makes palette pictures of screenshots, a third of the size: palette.py FOLDER"""

import pathlib
import sys

from PIL import Image

for path in sorted(pathlib.Path(sys.argv[1]).glob("*.png")):
    with Image.open(path) as picture:
        if picture.mode != "P":
            picture.convert("RGB").quantize(256, method=Image.Quantize.MEDIANCUT, dither=Image.Dither.NONE).save(path, optimize=True)
