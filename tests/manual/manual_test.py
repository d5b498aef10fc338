#!/usr/bin/env python3
"""The sources of the manual against the program, and that what compares them can fail."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "docs/manual/tools"))

import check_sources  # noqa: E402
import literals  # noqa: E402
import source  # noqa: E402


def texts(code):
    return [text for _, text in literals.literals(code)]


class Sources(unittest.TestCase):
    def test_agree_with_the_program(self):
        self.assertEqual(check_sources.faults(), [])

    def test_the_example_is_what_its_generator_makes(self):
        sys.path.insert(0, str(ROOT / "docs/manual/example"))
        import make_example
        with tempfile.TemporaryDirectory() as folder:
            records, service = pathlib.Path(folder, "records"), pathlib.Path(folder, "service")
            make_example.main(records, service)
            for made, kept in ((records, ROOT / "samples/example"), (service, ROOT / "docs/manual/example/service")):
                for path in made.iterdir():
                    self.assertTrue(path.read_bytes() == (kept / path.name).read_bytes(), path.name)


class Literals(unittest.TestCase):
    def test_neighbours_are_one(self):
        self.assertEqual(texts('f(QStringLiteral("あ"\n  "い") + u"う" u"え");'), ["あい", "うえ"])

    def test_comments_includes_and_characters_are_none(self):
        self.assertEqual(texts('// "あ"\n#include "い.h"\n/* "う" */ \'"\' x = "え"; // 終わり'), ["え"])

    def test_escapes_stay(self):
        self.assertEqual(texts(r'a("あ\n\"い\"。");'), [r'あ\n\"い\"。'])

    def test_raw_text_is_read(self):
        self.assertEqual(texts('a(R"x(あ"い)x");'), ['あ"い'])

    def test_sentences_and_what_a_box_says_count(self):
        self.assertTrue(literals.is_message("", "値がありません"))
        self.assertTrue(literals.is_message("", "よろしいですか？"))
        self.assertTrue(literals.is_message("", "J-SHIS OffLine"))
        self.assertTrue(literals.is_message("m_prompt.Tell(QStringLiteral(", "失敗"))
        self.assertFalse(literals.is_message("setText(QStringLiteral(", "失敗"))
        self.assertFalse(literals.is_message("", "plain"))

    def test_controls_are_known_by_how_they_are_made(self):
        self.assertEqual(literals.control_name('NamedButton<QPushButton>("a", QStringLiteral(', "追加"), "追加")
        self.assertEqual(literals.control_name('Entry(menu, "b", QStringLiteral(', "開く(&O)..."), "開く")
        self.assertEqual(literals.control_name('Entry(menu, "b", QStringLiteral("開く"), QStringLiteral(', "開きます。"), "")
        self.assertEqual(literals.control_name('AddField(*layout, m_a, QStringLiteral(', "キャンセル"), "")
        self.assertEqual(literals.control_name('Entry(menu); setText(QStringLiteral(', "開く"), "")

    def test_the_sources_hold_many(self):
        self.assertGreater(len(literals.found()), 300)
        self.assertGreater(len(literals.controls()), 40)


class Faults(unittest.TestCase):
    def test_a_new_message_is_told(self):
        self.assertEqual(len(check_sources.message_faults({"新しい。": "src/a.cpp:1"}, [], [])), 1)

    def test_a_message_that_is_gone_is_told(self):
        self.assertEqual(len(check_sources.message_faults({}, ["古い。"], [])), 1)
        self.assertEqual(len(check_sources.message_faults({}, [], ["古い。"])), 1)

    def test_a_message_that_stands_twice_is_told(self):
        told = {"文。": "src/a.cpp:1"}
        self.assertEqual(len(check_sources.message_faults(told, ["文。", "文。"], [])), 1)
        self.assertEqual(len(check_sources.message_faults(told, ["文。"], ["文。"])), 1)

    def test_a_screen_without_a_picture_is_told(self):
        row = {"picture": "top", "class": "CDlgTop", "title": "題"}
        chapters = [("one", "# 題\n{{figure top: 画面}}\n")]
        self.assertEqual(check_sources.picture_faults(chapters, [row], {"CDlgTop"}, '"top"'), [])
        self.assertEqual(len(check_sources.picture_faults(chapters, [row], {"CDlgTop", "CFrmNew"}, '"top"')), 1)
        self.assertEqual(len(check_sources.picture_faults(chapters, [row], set(), '"top"')), 1)
        self.assertEqual(len(check_sources.picture_faults(chapters, [row], {"CDlgTop"}, "")), 1)
        self.assertEqual(len(check_sources.picture_faults([("one", "# 題\n")], [row], {"CDlgTop"}, '"top"')), 1)

    def test_a_control_that_no_chapter_names_is_told(self):
        self.assertEqual(check_sources.control_faults([("one", "「追加」を押す")], {"追加": "src/a.cpp:1"}), [])
        self.assertEqual(len(check_sources.control_faults([("one", "「追加」を押す")], {"削る": "src/a.cpp:1"})), 1)

    def test_a_reference_to_nothing_is_told(self):
        for wrong in ("{{fig none}}", "{{chapter none}}", "{{run none}}", "{{value none}}", "{{value adjust_none_error}}", "{{table none}}"):
            self.assertEqual(len(check_sources.reference_faults([("one", f"# 題\n{wrong}\n")])), 1, wrong)

    def test_every_chapter_has_a_title(self):
        self.assertEqual([title for title in (source.title_of(text) for _, text in source.chapters()) if not title], [])


if __name__ == "__main__":
    unittest.main()
