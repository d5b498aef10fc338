"""The sources of the manual: its chapters, its pictures, its messages. Standard library alone."""

import csv
import pathlib
import re

MANUAL = pathlib.Path(__file__).resolve().parent.parent
ROOT = MANUAL.parent.parent

FIGURE = re.compile(r"^\{\{figure ([a-z0-9_]+)( small)?: (.+)\}\}$", re.M)
FIGURE_REFERENCE = re.compile(r"\{\{fig ([a-z0-9_]+)\}\}")
CHAPTER_REFERENCE = re.compile(r"\{\{chapter ([a-z0-9-]+)\}\}")
RUN = re.compile(r"^\{\{run ([a-z0-9_]+)\}\}$", re.M)
VALUE = re.compile(r"\{\{value ([a-z0-9_]+)\}\}")
TABLE = re.compile(r"^\{\{table ([a-z_]+)\}\}$", re.M)
MESSAGES = "{{messages}}"
ANY = re.compile(r"\{\{[^}]*\}\}")


def chapters():
    """(id, Markdown) in their order; the id is the file's name behind its number."""
    return [(path.stem.split("-", 1)[1], path.read_text(encoding="utf-8")) for path in sorted(MANUAL.glob("[0-9][0-9]-*.md"))]


def title_of(text):
    return text.split("\n", 1)[0].removeprefix("# ").strip()


def pictures():
    """Rows of pictures.csv: picture, class (may be empty), title in words that its screen or figure shows."""
    with open(MANUAL / "pictures.csv", encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def messages():
    """Rows of messages.csv: text, cause, action."""
    with open(MANUAL / "messages.csv", encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))
