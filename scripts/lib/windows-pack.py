"""Packs a folder as a zip that is the same whenever its files are: sorted, one date, one packing.

    windows-pack.py FOLDER ZIP SECONDS      (SECONDS since 1970: the date of every file)
"""
import pathlib
import sys
import time
import zipfile

folder, target = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
date = time.gmtime(int(sys.argv[3]))[:6]
with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
    for file in sorted(path for path in folder.rglob("*") if path.is_file()):
        entry = zipfile.ZipInfo(file.relative_to(folder.parent).as_posix(), date)
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.external_attr = 0o644 << 16
        archive.writestr(entry, file.read_bytes())
