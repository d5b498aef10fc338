#!/usr/bin/env python3
"""Checks the finished manual, and the table of pages beside it: check_pdf.py manual.pdf

Needs pdftotext and pdfinfo. WeasyPrint leaves objects uncompressed, so that outlines and links can be read."""

import pathlib
import re
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

import source  # noqa: E402


def call(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True, encoding="utf-8").stdout


def plain(text):
    return re.sub(r"\s", "", text)


def objects(data):
    return {int(number): body for number, body in re.findall(rb"\n(\d+) 0 obj\n(.*?)\nendobj", data, re.S)}


def faults(pdf):
    wrong = []
    count = int(re.search(r"Pages:\s+(\d+)", call("pdfinfo", pdf)).group(1))
    pages = [plain(page) for page in call("pdftotext", pdf, "-").split("\f")][:count]
    if count < 20:
        wrong.append(f"{count} pages only")
    whole = "".join(pages)
    chapters = source.chapters()
    places = dict(line.split("\t") for line in pdf.with_suffix(".pages").read_text(encoding="utf-8").splitlines())
    for identity, text in chapters:
        for head in [source.title_of(text), *(line[3:] for line in text.split("\n") if line.startswith("## "))]:
            place = identity if head == source.title_of(text) else f"{identity}/{head}"
            number = int(places.pop(place, 0))
            if not 1 <= number <= count or plain(head) not in pages[number - 1]:
                wrong.append(f"{place}: not on page {number}")
    wrong += [f"a page for {place}, which is no place" for place in places]
    wrong += [f"no text can find the title {row['title']}" for row in source.pictures() if plain(row["title"]) not in whole]
    wrong += [f"no text can find the message {row['text']}" for row in source.messages()
              if plain(row["text"].replace("\\n", " ").replace("\\\\", "\\")) not in whole]

    held = objects(pdf.read_bytes())
    sheets = {number for number, body in held.items() if re.search(rb"/Type\s*/Page\b", body)}
    outlines = [body for body in held.values() if b"/Title" in body and (b"/Parent" in body) and b"/Dest" in body]
    heads = sum(1 + text.count("\n## ") for _, text in chapters)
    if len(outlines) < heads:
        wrong.append(f"{len(outlines)} bookmarks for {heads} headings")
    for body in outlines:
        target = re.search(rb"/Dest\s*\[\s*(\d+) 0 R", body)
        if not target or int(target.group(1)) not in sheets:
            wrong.append(f"a bookmark without a page: {body[:80]!r}")
    names = set(re.findall(rb"\(([^()]+)\)\s*(?:\[|\d+ 0 R)", b"".join(held.values())))
    links = [match for body in held.values() for match in re.findall(rb"/S\s*/GoTo[^>]*?/D\s*\(([^()]*)\)|/Dest\s*\(([^()]*)\)", body)]
    targets = {a or b for a, b in links}
    if not targets:
        wrong.append("no links")
    wrong += [f"a link to nothing: {target!r}" for target in targets if target not in names]
    return wrong, f"{count} pages, {len(outlines)} bookmarks, {len(links)} links"


def main():
    wrong, told = faults(pathlib.Path(sys.argv[1]))
    print("\n".join([*wrong, told]))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
