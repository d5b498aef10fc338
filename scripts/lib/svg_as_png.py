"""Draws an SVG as PNG in several sizes, which stand in one file one behind the other: the largest first, since a program
that expects one picture takes that.

    svg_as_png.py PICTURE.svg >PICTURE.png"""

import subprocess
import sys

# Times the size that the SVG states; the last is that size itself.
ZOOMS = ("4", "3", "2", "1.5", "1")


def drawn(svg):
    pictures = [subprocess.run(["rsvg-convert", "--zoom", zoom, svg], check=True, capture_output=True) for zoom in ZOOMS]
    return b"".join(picture.stdout for picture in pictures)


if __name__ == "__main__":
    sys.stdout.buffer.write(drawn(sys.argv[1]))
