"""The Japanese texts of the sources, as they stand in string literals. Standard library alone."""

import re

from source import ROOT

TOKEN = re.compile(r'R"(\w*)\((?P<raw>.*?)\)\1"|"(?P<text>(?:[^"\\\n]|\\.)*)"|\'(?:[^\'\\\n]|\\.)*\'|//[^\n]*|/\*.*?\*/|^[ \t]*#[ \t]*include[^\n]*',
                   re.S | re.M)
PREFIX = re.compile(r"(?:u8|u|U|L)$")
JAPANESE = re.compile(r"[ぁ-んァ-ヶ一-龠]")
# What a program says is a sentence, or ends like one: "...ではありません", "…です", "…ください（…）".
SENTENCE = re.compile(r"[。？]")
ENDING = re.compile(r"(ません|ます|です|ました|ください|ありません)(（[^）]*）)?：?$")
# Text handed to a box directly counts, whatever it looks like.
BOX = re.compile(r"(?:\bTell|\bAsk|\bRefused|\bRefuse)\(\s*(?:QStringLiteral\(|QString::fromUtf8\(|QString::fromUtf16\()?\s*u?$")


def literals(text):
    """(offset, text) of the literals of a C++ source; neighbours that the compiler joins are one."""
    joined, end, start = [], None, 0
    for token in TOKEN.finditer(text):
        held = token.group("text") if token.group("text") is not None else token.group("raw")
        if held is None:
            continue
        between = text[end:token.start()] if end is not None else "x"
        if not PREFIX.sub("", between.strip()).strip():
            joined[-1] = (joined[-1][0], joined[-1][1] + held)
        else:
            start = token.start()
            joined.append((start, held))
        end = token.end()
    return joined


def is_message(before, held):
    if held.endswith("OffLine"):
        return True
    if not JAPANESE.search(held):
        return False
    return bool(SENTENCE.search(held) or ENDING.search(held) or BOX.search(before))


def found(root=ROOT):
    """text: the first place where it stands, of every text that reads like something said to the user: by the window, and
    by the programs without one."""
    texts = {}
    for path in sorted([*(root / "src").rglob("*"), *(root / "apps").rglob("*")]):
        if path.suffix not in (".cpp", ".h"):
            continue
        source = path.read_text(encoding="utf-8")
        for offset, held in literals(source):
            if is_message(source[max(0, offset - 80):offset], held):
                line = source.count("\n", 0, offset) + 1
                texts.setdefault(held, f"{path.relative_to(root)}:{line}")
    return texts
