#!/usr/bin/env python3
"""What an installation puts in place, what the desktop then makes of a project file, and what taking it back leaves.

    install_test.py --build FOLDER --cmake CMAKE CASE...

Everything happens in a home of the test's own; the program is replaced by one that writes down how it was started."""

import argparse
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import tempfile
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PATIENCE = 60.0
TYPE = "application/x-tremlo"
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
ALWAYS = ["share/applications/tremlo.desktop", "share/mime/packages/tremlo.xml",
          "share/metainfo/org.tremlo.tremlo.metainfo.xml", "share/icons/hicolor/scalable/apps/tremlo.svg",
          *(f"share/icons/hicolor/{size}x{size}/apps/tremlo.png" for size in ICON_SIZES),
          *(f"share/man/man1/{name}.1" for name in ("tremlo", "tremlo-cli", "tremlo-report")),
          "share/bash-completion/completions/tremlo-cli"]
PROGRAMS = ("tremlo", "tremlo-cli", "tremlo-report")
TABLES = [str(path.relative_to(ROOT / "data")) for folder in ("DamCoef", "LowSpec", "SystemData")
          for path in (ROOT / "data" / folder).iterdir()]
EXAMPLES = [str(path.relative_to(ROOT / "samples")) for path in (ROOT / "samples").rglob("*") if path.is_file()]
tools = argparse.Namespace()  # the words of the command line


def files_below(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file() or path.is_symlink())


class Install(unittest.TestCase):
    prefix_name = ".local"

    def setUp(self):
        self.home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="tremlo-install-")))
        self.env = {"HOME": str(self.home), "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8",
                    "XDG_DATA_DIRS": "/usr/local/share:/usr/share", "XDG_CURRENT_DESKTOP": "GNOME"}
        self.prefix = self.home / self.prefix_name
        self.place = self.prefix / "lib/tremlo"

    def run_tool(self, *words, **changes):
        done = subprocess.run([str(word) for word in words], env=self.env | changes, cwd=self.home, capture_output=True,
                              text=True)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stdout.strip()

    def install(self, **changes):
        """Installs the build; the list of files goes to a folder of the test's, as the build keeps that of its user."""
        manifest = tools.build / "install_manifest.txt"
        former = manifest.read_bytes() if manifest.exists() else None
        try:
            self.run_tool(tools.cmake, "--install", tools.build, "--prefix", self.prefix, **changes)
            self.listed = self.home / "listed"
            self.listed.mkdir(exist_ok=True)
            shutil.copy(manifest, self.listed)
            return manifest.read_text().split("\n")
        finally:
            if former is None:
                manifest.unlink(missing_ok=True)
            else:
                manifest.write_bytes(former)

    def uninstall(self):
        return self.run_tool(ROOT / "scripts/uninstall", self.listed)

    def caches(self, folder):
        """What the desktop's own commands keep below a folder of share."""
        kept = [name for name in files_below(folder)
                if name.startswith("share/mime/") and not name.startswith("share/mime/packages/")]
        return kept + [name for name in files_below(folder) if name.endswith("mimeinfo.cache")]

    def replace_program(self, path):
        """A program in its place that writes its words down."""
        self.started = self.home / "started"
        path.unlink()
        path.write_text(f'#!/bin/sh\nprintf "%s\\n" "$0" "$@" >"{self.started}.new"\nmv "{self.started}.new" "{self.started}"\n')
        path.chmod(0o755)

    def open_by_double_click(self, program):
        project = self.home / "設計 1.trml"
        shutil.copy(ROOT / "README.md", project)  # the type is known by the name alone
        self.assertEqual(self.run_tool("xdg-mime", "query", "filetype", project), TYPE)
        if " " not in self.env["XDG_DATA_DIRS"]:  # at which the command stumbles
            self.assertEqual(self.run_tool("xdg-mime", "query", "default", TYPE), "tremlo.desktop")
        self.run_tool("gio", "open", project)
        end = time.monotonic() + PATIENCE
        while not self.started.exists() and time.monotonic() < end:
            time.sleep(0.02)  # the desktop tells no end of its starting a program
        self.assertEqual(self.started.read_text().splitlines(), [str(program), str(project)])

    # --- the cases

    def test_every_file_is_listed(self):
        listed = [str(pathlib.Path(name).relative_to(self.prefix)) for name in self.install()]
        self.assertEqual(sorted(listed + self.caches(self.prefix)), files_below(self.prefix))
        self.assertEqual(len(listed), len(set(listed)))
        for name in [*ALWAYS, *(f"bin/{name}" for name in PROGRAMS), *(f"lib/tremlo/{name}" for name in (*PROGRAMS, *TABLES)),
                     *(f"share/doc/tremlo/examples/{name}" for name in EXAMPLES)]:
            self.assertIn(name, listed)
        self.assertEqual(os.readlink(self.prefix / "bin/tremlo"), "../lib/tremlo/tremlo")

    def test_double_click_opens_a_project(self):
        self.install()
        self.replace_program(self.place / "tremlo")
        self.open_by_double_click(self.prefix / "bin/tremlo")

    def test_double_click_below_an_odd_prefix(self):
        self.prefix = self.home / 'a "b" $HOME `c`'  # no backslash for cmake, no per cent sign for GLib
        self.place = self.prefix / "lib/tremlo"
        self.install()
        self.env["XDG_DATA_DIRS"] = f"{self.prefix}/share:/usr/share"
        self.replace_program(self.place / "tremlo")
        self.open_by_double_click(self.prefix / "bin/tremlo")

    def test_a_staged_install_is_left_for_its_machine(self):
        stage = self.home / "stage"
        self.prefix = pathlib.Path("/usr")
        self.install(DESTDIR=str(stage))
        self.assertEqual(self.caches(stage / "usr"), [])
        entry = (stage / "usr/share/applications/tremlo.desktop").read_bytes()
        self.assertEqual(entry, (ROOT / "data/desktop/tremlo.desktop").read_bytes())

    def test_the_desktop_data_is_valid(self):
        self.install()
        self.run_tool("desktop-file-validate", self.prefix / "share/applications/tremlo.desktop")
        self.run_tool("desktop-file-validate", ROOT / "data/desktop/tremlo.desktop")

    def test_icons_have_their_sizes(self):
        self.install()
        for size in ICON_SIZES:
            head = (self.prefix / f"share/icons/hicolor/{size}x{size}/apps/tremlo.png").read_bytes()[:24]
            self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual([int.from_bytes(head[at:at + 4], "big") for at in (16, 20)], [size, size])

    def test_uninstall_leaves_nothing_of_ours(self):
        self.install()
        (self.place / "_cache").mkdir()
        (self.place / "_cache/tile.png").write_bytes(b"x")
        self.assertEqual(self.uninstall(), "")
        self.assertEqual([name for name in files_below(self.prefix) if name not in self.caches(self.prefix)], [])
        self.assertFalse(self.place.exists())
        self.assertFalse((self.prefix / "share/doc/tremlo").exists())
        self.assertEqual(self.run_tool("xdg-mime", "query", "default", TYPE), "")

    def test_tables_of_the_user_outlive_a_new_install_and_an_uninstall(self):
        self.install()
        own = self.place / "LowSpec/h20_h.csv"
        own.write_text("mine")
        (self.place / "LowSpec/見本.txt").unlink()
        changed = self.place / "DamCoef/H20_Ehd_H.csv"
        self.install()
        self.assertEqual(own.read_text(), "mine")
        changed.write_text("changed beside its 見本.txt")
        # As the list of the first install has it.
        with (self.listed / "install_manifest.txt").open("a") as listing:
            listing.write("".join(f"\n{self.place}/LowSpec/{path.name}" for path in (ROOT / "data/LowSpec").iterdir()))
        told = self.uninstall()
        self.assertEqual(own.read_text(), "mine")
        self.assertTrue((self.place / "LowSpec/h17.csv").exists())
        self.assertTrue(changed.exists())
        self.assertIn(str(own), told)
        self.assertIn(str(changed), told)
        self.assertEqual(sorted(path.name for path in self.place.iterdir()), ["DamCoef", "LowSpec"])

    def test_the_folder_to_unpack_runs_and_registers_where_it_is(self):
        out = self.home / "packed"
        self.run_tool(tools.cmake.with_name("cpack"), "--config", tools.build / "CPackConfig.cmake", "-B", out)
        packed, = out.glob("tremlo-1.0-*.tar.gz")
        with tarfile.open(packed) as archive:
            tops = {name.split("/")[0] for name in archive.getnames()}
            self.assertEqual(tops, {packed.name.removesuffix(".tar.gz")})
            archive.extractall(self.home)
        folder = self.home / packed.name.removesuffix(".tar.gz")
        shutil.rmtree(out)
        for name in [*ALWAYS, "register", "README.txt", *(f"lib/tremlo/{name}" for name in TABLES),
                     *(f"share/doc/tremlo/examples/{name}" for name in EXAMPLES)]:
            self.assertTrue((folder / name).is_file(), name)
        self.assertEqual(self.caches(folder), [])
        moved = self.home / 'new "place" $1 \\e'
        folder.rename(moved)
        self.assertIn(f"LowSpec：{moved}/lib/tremlo/LowSpec", self.run_tool(moved / "bin/tremlo-cli", "tables"))
        self.run_tool(moved / "register")
        self.replace_program(moved / "lib/tremlo/tremlo")
        self.open_by_double_click(moved / "bin/tremlo")
        self.run_tool(moved / "register", "--remove")
        self.assertEqual(self.run_tool("xdg-mime", "query", "default", TYPE), "")
        self.assertEqual([name for name in files_below(self.prefix) if name not in self.caches(self.prefix)], [])

    def test_completion_knows_every_command_and_its_options(self):
        self.install()
        script = f"""
            . {self.prefix}/share/bash-completion/completions/tremlo-cli
            complete_words() {{ COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tremlo_cli; echo "${{COMPREPLY[@]}}"; }}
            complete_words {self.prefix}/bin/tremlo-cli ""
            complete_words {self.prefix}/bin/tremlo-cli project ""
            complete_words {self.prefix}/bin/tremlo-cli adjust --
            complete_words {self.prefix}/bin/tremlo-cli project verify --
            complete_words {self.prefix}/bin/tremlo-cli tab
            cd {ROOT} && complete_words tremlo-cli response READ"""
        words, group, adjust, verify, start, files = self.run_tool("bash", "-c", script).splitlines()
        for command in ("adjust", "attenuate", "batch", "distances", "faults", "fourier", "inspect", "project", "response",
                        "tables", "--help", "--version"):
            self.assertIn(command, words.split())
        self.assertEqual(sorted(group.split()), ["copy", "new", "show", "verify"])
        for option in ("--seed", "--target", "--out", "--json", "--data"):
            self.assertIn(option, adjust.split())
        self.assertIn("--json", verify.split())
        self.assertNotIn("--seed", verify.split())
        self.assertEqual((start, files), ("tables", "README.md"))


if __name__ == "__main__":
    words = argparse.ArgumentParser()
    words.add_argument("--build", required=True, type=pathlib.Path)
    words.add_argument("--cmake", required=True, type=pathlib.Path)
    words.add_argument("cases", nargs="+")
    words.parse_args(namespace=tools)
    suite = unittest.TestSuite(Install(case) for case in tools.cases)
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())
