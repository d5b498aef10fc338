#!/usr/bin/env python3
"""Sets the manual: Markdown and pictures in, PDF out, and beside it the page of each chapter.

    build.py --program tremlo-cli --pictures DIR --out manual.pdf
"""

import argparse
import html
import logging
import os
import pathlib
import re
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

import markdown  # noqa: E402
import weasyprint  # noqa: E402

import source  # noqa: E402
from runs import TABLES, Runner  # noqa: E402


class Complaints(logging.Handler):
    """What WeasyPrint cannot do, an anchor that is not there above all, ends the build."""

    def __init__(self):
        super().__init__(logging.WARNING)
        self.lines = []

    def emit(self, record):
        self.lines.append(record.getMessage())


def commit_time():
    told = subprocess.run(["git", "log", "-1", "--format=%ct"], cwd=source.ROOT, capture_output=True, text=True)
    return told.stdout.strip() if told.returncode == 0 else "0"


def figure(match, pictures):
    name, small, caption = match.groups()
    path = pictures / f"{name}.png"
    if not path.exists():
        raise SystemExit(f"no picture {path}")
    size = ' class="small"' if small else ""
    return (f'<figure id="fig-{name}"><img{size} src="picture:{name}" alt="{html.escape(caption)}">'
            f"<figcaption>{inline(caption)}</figcaption></figure>")


def fetcher(pictures):
    """Pictures by their names: WeasyPrint writes of an address what depends on it into the PDF, and a path differs from
    one folder to the next."""
    def fetch(url, *arguments, **named):
        if url.startswith("picture:"):
            return {"string": (pictures / f"{url.removeprefix('picture:')}.png").read_bytes(), "mime_type": "image/png"}
        return weasyprint.default_url_fetcher(url, *arguments, **named)
    return fetch


def inline(text):
    """A cell or caption: plain, but for what stands in backticks."""
    return re.sub(r"`([^`]*)`", r"<code>\1</code>", html.escape(text))


def message_table():
    rows = "".join(f"<tr><td>{shown(row['text'])}</td><td>{inline(row['cause'])}</td><td>{inline(row['action'])}</td></tr>"
                   for row in sorted(source.messages(), key=lambda row: row["text"].lstrip("「」%1：:　 ")))
    return ('<table class="messages"><thead><tr><th>文</th><th>原因</th><th>対処</th></tr></thead><tbody>'
            + rows + "</tbody></table>")


def shown(text):
    """As the program shows it, on one line; dots where names or reasons join it."""
    text = text.replace("\\n", " ").replace("\\\\", "\\").strip()
    before = "…" if re.match(r"[」）：]|(が|の|を|に)(?!.{0,4}：)[あ1-9開正い]", text) else ""
    return html.escape(before + text + ("…）" if text.endswith("(") else ""))


def chapter_html(identity, text, pictures, runner):
    text = source.RUN.sub(lambda m: "<pre>" + html.escape(runner.shown(m.group(1))) + "</pre>", text)
    text = source.TABLE.sub(lambda m: TABLES[m.group(1)](), text)
    text = source.VALUE.sub(lambda m: runner.value(m.group(1)), text)
    text = source.FIGURE.sub(lambda m: figure(m, pictures), text)
    text = source.FIGURE_REFERENCE.sub(r'<a class="fig" href="#fig-\1"></a>', text)
    text = re.sub(r"（\{\{chapter ([a-z0-9-]+)\}\}）", r'（<a class="chap bare" href="#ch-\1"></a>）', text)
    text = source.CHAPTER_REFERENCE.sub(r'<a class="chap" href="#ch-\1"></a>', text)
    text = text.replace(source.MESSAGES, message_table())
    left = source.ANY.search(text)
    if left:
        raise SystemExit(f"{identity}: what is {left.group(0)}?")
    body = markdown.markdown(text, extensions=["tables", "fenced_code", "sane_lists", "md_in_html"])
    count = 0
    parts = body.split("<h2>")
    for i, part in enumerate(parts[1:], 1):
        count += 1
        parts[i] = f'<h2 id="ch-{identity}-{count}">' + part
    body = "".join(parts).replace("<h1>", f'<h1 id="ch-{identity}">', 1)
    return f'<section class="chapter">{body}</section>'


def contents(chapters):
    lines = []
    for number, (identity, text) in enumerate(chapters, 1):
        lines.append(f'<li class="ch"><a href="#ch-{identity}">第{number}章　{html.escape(source.title_of(text))}</a></li>')
        heads = [line[3:] for line in text.split("\n") if line.startswith("## ")]
        lines += [f'<li class="sec"><a href="#ch-{identity}-{k}">{number}.{k}　{html.escape(head)}</a></li>'
                  for k, head in enumerate(heads, 1)]
    return "<nav><h1>目次</h1><ul>" + "".join(lines) + "</ul></nav>"


def places(chapters):
    """What F1 can open, by anchor: a chapter by its name, a section behind it by its heading."""
    found = {}
    for identity, text in chapters:
        found[f"ch-{identity}"] = identity
        heads = [line[3:] for line in text.split("\n") if line.startswith("## ")]
        found |= {f"ch-{identity}-{k}": f"{identity}/{head}" for k, head in enumerate(heads, 1)}
    return found


def cover(runner):
    return ('<div class="cover"><h1>Tremlo</h1><p class="sub">取り扱い説明書</p>'
            f"<p>プログラムの版 {html.escape(runner.value('program_version'))}</p><br><br>"
            '<p class="note">同梱の表（<code>DamCoef</code>、<code>LowSpec</code>）と、この説明書の例題の現場、記録、断層は<b>見本</b>です。'
            "設計には、公表された表と実際の記録を使ってください。図の画面は架空のデータによるもので、地図の画像も見本です。</p></div>")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", type=pathlib.Path, required=True)
    parser.add_argument("--pictures", type=pathlib.Path, required=True)
    parser.add_argument("--out", type=pathlib.Path, required=True)
    call = parser.parse_args()
    os.environ.setdefault("SOURCE_DATE_EPOCH", commit_time())
    complaints = Complaints()
    logging.getLogger("weasyprint").addHandler(complaints)
    runner, chapters = Runner(call.program.resolve()), source.chapters()
    page = ('<!DOCTYPE html><html lang="ja"><head><meta charset="utf-8"><title>Tremlo 取り扱い説明書</title></head><body>'
            + cover(runner) + contents(chapters)
            + "".join(chapter_html(identity, text, call.pictures, runner) for identity, text in chapters) + "</body></html>")
    style = weasyprint.CSS(filename=str(source.MANUAL / "style.css"))
    document = weasyprint.HTML(string=page, base_url=str(source.MANUAL), url_fetcher=fetcher(call.pictures)).render(stylesheets=[style])
    pages = {anchor: None for anchor in places(chapters)}
    for number, sheet in enumerate(document.pages, 1):
        for anchor in sheet.anchors:
            if anchor in pages and pages[anchor] is None:
                pages[anchor] = number
    lost = [anchor for anchor, number in pages.items() if number is None]
    if lost:
        raise SystemExit(f"no page for {lost}")
    call.out.parent.mkdir(parents=True, exist_ok=True)
    partial = call.out.with_suffix(".partial")
    document.write_pdf(partial)
    if complaints.lines:
        partial.unlink()
        raise SystemExit("\n".join(complaints.lines))
    table = "".join(f"{place}\t{pages[anchor]}\n" for anchor, place in places(chapters).items())
    call.out.with_suffix(".pages").write_text(table, encoding="utf-8")
    partial.replace(call.out)
    print(f"{call.out}: {len(document.pages)} pages")


if __name__ == "__main__":
    main()
