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

# What stands on a button, beside a field or in a menu.
CONTROL = re.compile(r"(?:\bNamedButton<\w+>|\bMakeButton<\w+>|\baddButton|\bAddReset|\bAddField|\bEntry)\([^;{}]*$")
DECORATION = re.compile(r"\(&.\)|&|\.\.\.|\\t.*$")


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


def control_name(before, held):
    """What a user calls the control of that text, or nothing where it is none that needs explaining."""
    if not CONTROL.search(before) or is_message(before, held) or not JAPANESE.search(held):
        return ""
    name = DECORATION.sub("", held)
    return "" if name in ("キャンセル", "閉じる") or name.startswith("（") else name


def places(folders, text_of, root):
    """text: the first place where it stands, of every literal below the folders for which text_of gives a text."""
    texts = {}
    for path in sorted(path for folder in folders for path in (root / folder).rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        source = path.read_text(encoding="utf-8")
        for offset, held in literals(source):
            text = text_of(source[max(0, offset - 200):offset], held)
            if text:
                line = source.count("\n", 0, offset) + 1
                texts.setdefault(text, f"{path.relative_to(root)}:{line}")
    return texts


def found(root=ROOT):
    """Every text that reads like something said to the user: by the window, and by the programs without one."""
    return places(["src", "apps"], lambda before, held: held if is_message(before[-80:], held) else "", root)


def controls(root=ROOT):
    """The names of the window's buttons, fields and menu entries."""
    return places(["src/window"], control_name, root)
