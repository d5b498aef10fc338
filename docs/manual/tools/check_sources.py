#!/usr/bin/env python3
"""Holds the manual's sources together: chapters, references, pictures, and its messages against those of the program.
Standard library alone. Prints what is wrong and fails; check_pdf.py looks at the finished manual."""

import collections
import pathlib
import re
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

import literals  # noqa: E402
import runs  # noqa: E402
import source  # noqa: E402

SCREEN = re.compile(r"^class (C(?:Frm|Dlg)[A-Za-z0-9]+|CAboutDlg|CPropertyQa)\b", re.M)
TAKEN = re.compile(r'"([a-z0-9_]+)"')  # a picture's name stands in the program as it is


def screens(root):
    """Every class of a screen or dialog of the window."""
    return {name for path in (root / "src/window").rglob("*.h") for name in SCREEN.findall(path.read_text(encoding="utf-8"))}


def message_faults(told, indexed, explained):
    """Texts of the sources against those of the index and those that need none."""
    doubled = [text for text, count in collections.Counter(indexed).items() if count > 1]
    return ([f"messages.csv has it twice: {text}" for text in doubled]
            + [f"{told[text]}: neither in messages.csv nor in explanations.txt: {text}"
               for text in told if text not in indexed and text not in explained]
            + [f"messages.csv: no longer in the sources: {text}" for text in indexed if text not in told]
            + [f"explanations.txt: no longer in the sources: {text}" for text in explained if text not in told]
            + [f"both in messages.csv and in explanations.txt: {text}" for text in explained if text in indexed])


def picture_faults(chapters, pictures, classes, program):
    """Every screen has a picture, every picture is taken by the program and stands once in the manual."""
    listed = [row["picture"] for row in pictures]
    placed = [match[0] for _, text in chapters for match in source.FIGURE.findall(text)]
    taken = set(TAKEN.findall(program))
    pictured = {row["class"] for row in pictures}
    return ([f"no picture of {name} in pictures.csv" for name in sorted(classes - pictured)]
            + [f"pictures.csv: there is no {name}" for name in sorted(pictured - classes - {""})]
            + [f"pictures.csv: {name} stands {placed.count(name)} times in the manual" for name in listed if placed.count(name) != 1]
            + [f"figure {name} is not in pictures.csv" for name in placed if name not in listed]
            + [f"tremlo_pictures does not take {name}" for name in listed if name not in taken])


def control_faults(chapters, controls):
    """Every control is named in a chapter."""
    told = "".join(text for _, text in chapters)
    return [f"{place}: no chapter names the control {name}" for name, place in controls.items() if name not in told]


def reference_faults(chapters):
    known = {identity for identity, _ in chapters}
    placed = {match[0] for _, text in chapters for match in source.FIGURE.findall(text)}
    faults = []
    for identity, text in chapters:
        if not text.startswith("# "):
            faults.append(f"{identity}: does not begin with its title")
        faults += [f"{identity}: no figure {name}" for name in source.FIGURE_REFERENCE.findall(text) if name not in placed]
        faults += [f"{identity}: no chapter {name}" for name in source.CHAPTER_REFERENCE.findall(text) if name not in known]
        faults += [f"{identity}: no run {name}" for name in source.RUN.findall(text) if name not in runs.RUNS]
        faults += [f"{identity}: no value {name}" for name in source.VALUE.findall(text) if not runs.is_value(name)]
        faults += [f"{identity}: no table {name}" for name in source.TABLE.findall(text) if name not in runs.TABLES]
    return faults


def explanations():
    lines = (source.MANUAL / "explanations.txt").read_text(encoding="utf-8").split("\n")
    return [line for line in lines if line and not line.startswith("# ")]


def faults(root=source.ROOT):
    chapters = source.chapters()
    rows = source.messages()
    pictures_program = "".join(path.read_text(encoding="utf-8") for path in sorted((root / "tests/pictures").glob("*.cpp")))
    return (message_faults(literals.found(root), [row["text"] for row in rows], explanations())
            + [f"messages.csv: no cause or action: {row['text']}" for row in rows if not (row["cause"] and row["action"])]
            + picture_faults(chapters, source.pictures(), screens(root), pictures_program)
            + control_faults(chapters, literals.controls(root))
            + reference_faults(chapters))


if __name__ == "__main__":
    wrong = faults()
    print("\n".join(wrong) or "The sources of the manual agree with the program")
    sys.exit(1 if wrong else 0)
