"""Brings the folder that the Windows build is made from to the state of this working tree.

    windows-copy.py FOLDER COMMIT [--png]

The folder is the same for every clone, so that what is built there is kept; it is no repository, so the name of the
commit is written into it. With --png the pictures are PNG under the names that they have as SVG. A file that is the
same already is left alone, and is not compiled again."""

import pathlib
import subprocess
import sys

import svg_as_png

folder, commit = pathlib.Path(sys.argv[1]), sys.argv[2]
as_png = "--png" in sys.argv
listing = folder.with_name(folder.name + ".files")
originals = folder.with_name(folder.name + ".svg")


def is_picture(name):
    return name.endswith(".svg") and name.startswith(("src/", "data/desktop/"))


def write(path, content):
    """Returns whether the file was another one."""
    if path.is_file() and path.read_bytes() == content:
        return False
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)
    return True


told = subprocess.run(["git", "ls-files", "-z"], check=True, capture_output=True).stdout.decode()
names = [name for name in told.split("\0") if name and pathlib.Path(name).is_file()]
if listing.exists():
    for name in set(listing.read_text(encoding="utf-8").splitlines()) - set(names):
        (folder / name).unlink(missing_ok=True)
        (originals / name).unlink(missing_ok=True)
for name in names:
    content = pathlib.Path(name).read_bytes()
    if name == "cmake/commit.txt" and commit:
        content = f"{commit}\n".encode()
    if as_png and is_picture(name):
        recipe = " ".join(svg_as_png.ZOOMS).encode()
        if write(originals / name, content + recipe) or not (folder / name).exists():
            write(folder / name, svg_as_png.drawn(name))
    else:
        (originals / name).unlink(missing_ok=True)
        write(folder / name, content)
    (folder / name).chmod(pathlib.Path(name).stat().st_mode)
listing.write_text("".join(f"{name}\n" for name in names), encoding="utf-8")
