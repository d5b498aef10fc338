#!/usr/bin/env python3
"""Does tremlo-cli of Windows write what that of Linux writes?

    compare_cli.py LINUX_PROGRAM WINDOWS_PROGRAM

Runs both with the same words in folders that hold the same files, one after the other, the second under Wine
(WINEPREFIX names its folder), and compares exit codes, standard output, standard error and every file. Bytes must be
equal, but for two kinds of numbers, in which the C libraries of the two systems differ by the last digits of sin, exp
and the like: the 17 digits of JSON and of a batch's summary, and the Fourier spectrum's file. A stored result that is equal
on one system may thus be close on the other when it is verified. Prints what it found and ends with 1 when
something differs by more than that.
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).resolve().parents[2]
# Of the largest value of the same list or column.
TOLERANCE = 1e-11

SITE = ["--zone", "7", "--site", "36.56144,136.61409"]
PLANE = "136.6,36.5,2,10,12,30,60"
KNET = "records/knet"
# More characters than Windows takes in a plain path.
DEEP = "/".join(["深い入れ物" * 6] * 10)
# The folder of the run; on Windows by the path of a share in the network.
SHARE, SHARE_ON_WINDOWS = "SHARE", r"\\tremlo\share"


class Service:
    """local_service.py as a process of this one."""

    def __init__(self, folder):
        self.process = subprocess.Popen(
            [sys.executable, SOURCE / "tests/service/local_service.py", "--work", folder],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.values = {}
        for line in self.process.stdout:
            if line == "ready\n":
                break
            name, _, value = line.strip().partition("=")
            self.values[name] = value

    def at(self, port, wishes=""):
        scheme = "https" if port.startswith("https") else "http"
        return f"{scheme}://127.0.0.1:{self.values[port]}" + (f"/{wishes}" if wishes else "")

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def commands(service):
    """What is run, in order: a name and the words. Later commands read what earlier ones wrote."""
    wave, target = "waves/hses_2016_n80w_0005_8192.csv", "spectra/target_sample_005_5s.csv"
    yield "help", ["--help"]
    yield "version", ["--version"]
    yield "no command", []
    yield "unknown option", ["response", wave, "--nothing"]
    yield "missing file", ["response", "無い.csv"]
    yield "no wave", ["response", "README.md"]
    yield "no target", ["adjust", "--seed", wave, "--target", wave + "x"]
    for name in sorted(path.name for path in (SOURCE / "samples/waves").iterdir()):
        stem = name.removesuffix(".csv")
        yield "response", ["response", f"waves/{name}", "--out", f"{stem} 応答.csv"]
        yield "response json", ["response", f"waves/{name}", "--json"]
        yield "fourier", ["fourier", f"waves/{name}", "--out", f"{stem}_FFT.csv"]
        yield "fourier json", ["fourier", f"waves/{name}", "--json"]
    yield "adjust", ["adjust", "--seed", wave, "--target", target, "--out", "基準.csv"]
    yield "adjust json", ["adjust", "--seed", wave, "--target", target, "--json"]
    yield "adjust that fails", ["adjust", "--seed", "waves/elcentro_1940_ns.csv", "--target", target, "--json"]
    yield "batch", ["batch", "jobs.csv", "--out", "まとめ"]
    yield "batch again", ["batch", "jobs.csv", "--out", "まとめ", "--resume"]
    for place in (DEEP, SHARE):
        for _ in ("new", "over the older files"):
            yield "path: group of files", ["adjust", "--seed", wave, "--target", target, "--out", f"{place}/基準.csv"]
        yield "path: read", ["response", f"{place}/基準.csv"]
        yield "path: missing", ["response", f"{place}/無い.csv"]
        yield "path: no folder", ["response", wave, "--out", f"{place}/無い/応答.csv"]
        for _ in ("new", "over the older file"):
            yield "path: project", ["project", "copy", "example/design.trml", f"{place}/写し.trml"]
        yield "path: project show", ["project", "show", f"{place}/写し.trml", "--json"]
    yield "tables", ["tables"]
    yield "tables json", ["tables", "--json"]
    yield "attenuate", ["attenuate", "--magnitude", "7.2", "--depth", "8", "--shortest", "9", "--equivalent", "18",
                        "--class", "A"]
    yield "attenuate json", ["attenuate", "--magnitude", "7.2", "--depth", "8", "--shortest", "9", "--equivalent", "18",
                             "--class", "A", "--json"]
    yield "distances", ["distances", *SITE, "--plane", PLANE]
    yield "distances json", ["distances", *SITE, "--plane", PLANE, "--json"]
    for record in sorted((SOURCE / "tests/data/records").rglob("*")):
        if record.is_file():
            path = "records/" + record.relative_to(SOURCE / "tests/data/records").as_posix()
            yield "inspect", ["inspect", path]
            yield "inspect json", ["inspect", path, "--json"]
    yield "project new", ["project", "new", "新規.trml"]
    yield "project new json", ["project", "show", "新規.trml"]
    yield "project show", ["project", "show", "example/design.trml", "--json"]
    yield "project copy", ["project", "copy", "example/design.trml", "写し.trml"]
    yield "project verify", ["project", "verify", "example/design.trml"]
    yield "project verify json", ["project", "verify", "example/design.trml", "--json"]
    yield "no project", ["project", "show", wave]
    faults = ["faults", *SITE, "--service"]
    yield "faults", [*faults, service.at("http")]
    yield "faults json", [*faults, service.at("http"), "--json"]
    yield "range", [*faults, service.at("http"), "--mode", "range", "--range", "50", "--json"]
    for wish in ("ranking=cut", "ranking=status:503", "model=cut", "ranking=garbage"):
        yield f"service: {wish}", [*faults, service.at("http", wish)]
    yield "nobody listens", [*faults, service.at("refused")]
    trust = ["--ca-file", "ca.pem"]
    yield "TLS", [*faults, service.at("https"), *trust, "--json"]
    yield "TLS: authority of nobody's", [*faults, service.at("https")]
    for port in ("https-host", "https-expired", "https-foreign", "https-client", "https-client12", "https-client13"):
        yield f"TLS refused: {port}", [*faults, service.at(port), *trust]
    yield "TLS: may ask", [*faults, service.at("https-may"), *trust, "--json"]
    yield "no authorities", [*faults, service.at("https"), "--ca-file", "none.pem"]


def worst(ours, theirs):
    """The largest difference of two lists of numbers, of the largest of them; None when they cannot be compared."""
    if len(ours) != len(theirs):
        return None
    scale = max((abs(value) for value in ours), default=0) or 1
    return max((abs(a - b) / scale for a, b in zip(ours, theirs)), default=0)


def known(text, places, words):
    """The text with each of the places in it as a word, and what follows it and the words given with plain slashes."""
    for word in words:
        for slash in ("\\\\", "\\"):
            text = text.replace(word.replace("/", slash).encode(), word.encode())
    for word, place in places:
        plain = str(place)
        windows = plain if plain.startswith("\\") else "Z:" + plain.replace("/", "\\")
        for path in (windows.replace("\\", "\\\\"), windows, "Z:" + plain, plain):
            text = text.replace(path.encode(), word)
        text = re.sub(re.escape(word) + rb"[^\s\"]+", lambda match: match[0].replace(b"\\\\", b"/").replace(b"\\", b"/"), text)
    return text


def of_system(word, folder, is_windows):
    if not word.startswith(SHARE):
        return word
    return word.replace(SHARE, SHARE_ON_WINDOWS).replace("/", "\\") if is_windows else word.replace(SHARE, str(folder))


def run(program, words, folder):
    """Exit code, standard output and standard error, in which paths are the same on both systems."""
    words = [of_system(word, folder, program[0] == "wine") for word in words]
    # Into files: what Wine starts beside a program goes on after it, and would hold a pipe open.
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        result = subprocess.run([*program, *words], cwd=folder, stdin=subprocess.DEVNULL, stdout=out, stderr=err)
        for file in (out, err):
            file.seek(0)
        result.stdout, result.stderr = out.read(), err.read()
    places = [(b"FOLDER", folder), (b"FOLDER", SHARE_ON_WINDOWS), (b"PROGRAM", pathlib.Path(program[-1]).parent)]
    result.stdout, result.stderr = (known(text, places, words) for text in (result.stdout, result.stderr))
    return result


class Difference:
    def __init__(self):
        self.numbers = self.different = 0
        self.most = 0.0

    def lists(self, ours, theirs):
        self.numbers += len(ours)
        self.different += sum(a != b for a, b in zip(ours, theirs))
        most = worst(ours, theirs)
        if most is None:
            return False
        self.most = max(self.most, most)
        return most <= TOLERANCE

    def json(self, ours, theirs):
        def number(value):
            return isinstance(value, float) or isinstance(value, int) and not isinstance(value, bool)
        if type(ours) is not type(theirs):
            return number(ours) and number(theirs) and self.lists([ours], [theirs])
        if isinstance(ours, dict):
            return list(ours) == list(theirs) and all([self.json(ours[key], theirs[key]) for key in ours])
        if isinstance(ours, list):
            if ours and all(map(number, ours)) and all(map(number, theirs)):
                return self.lists(ours, theirs)
            return len(ours) == len(theirs) and all([self.json(a, b) for a, b in zip(ours, theirs)])
        return self.lists([ours], [theirs]) if number(ours) else ours == theirs

    def table(self, ours, theirs):
        """Two files of numbers: the same words, paths with the slashes of their system, and each column within the
        tolerance. The sum over the bytes of results may differ where a number beside it does."""
        def is_number(cell):
            return re.fullmatch(r"\s*[-+]?\d+(\.\d*)?([eE][-+]?\d+)?\s*", cell)

        def is_sum(cell):
            return re.fullmatch(r"[0-9a-f]{64}", cell)
        ours, theirs = ([re.split(",", line) for line in data.decode("latin-1").split("\n")] for data in (ours, theirs))
        if [len(row) for row in ours] != [len(row) for row in theirs]:
            return False
        columns = {}
        for row, other in zip(ours, theirs):
            close = any(a != b and is_number(a) and is_number(b) for a, b in zip(row, other))
            for column, (a, b) in enumerate(zip(row, other)):
                if a not in (b, b.replace("\\", "/")) and not (
                        is_number(a) and is_number(b) or close and is_sum(a) and is_sum(b)):
                    return False
                if is_number(a):
                    pairs = columns.setdefault(column, ([], []))
                    pairs[0].append(float(a))
                    pairs[1].append(float(b))
        return all([self.lists(*pairs) for pairs in columns.values()])


def fill(folder, certificate):
    shutil.copytree(SOURCE / "samples", folder)
    shutil.copytree(SOURCE / "tests/data/records", folder / "records")
    shutil.copy(certificate, folder / "ca.pem")
    (folder / DEEP).mkdir(parents=True)


def files(folder):
    return {path.relative_to(folder).as_posix(): path for path in sorted(folder.rglob("*")) if path.is_file()}


def main():
    linux, windows = map(os.path.abspath, sys.argv[1:])
    programs = [[linux], ["wine", windows]]
    bad, equal, runs = [], 0, 0
    json_difference, fourier_difference, summary_difference = Difference(), Difference(), Difference()
    with tempfile.TemporaryDirectory() as root:
        service = Service(root)
        folders = [pathlib.Path(root, "linux"), pathlib.Path(root, "windows")]
        for folder in folders:
            fill(folder, service.values["ca"])
        # A share, as Wine knows them.
        share = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices/unc/tremlo/share")
        share.parent.mkdir(parents=True, exist_ok=True)
        share.unlink(missing_ok=True)
        share.symlink_to(folders[1])
        for name, words in commands(service):
            ours, theirs = [run(program, words, folder) for program, folder in zip(programs, folders)]
            runs += 1
            same = ours.returncode == theirs.returncode and ours.stderr == theirs.stderr
            if same and name.startswith("project verify"):
                # What each calculates anew agrees with what is stored: exit code 0.
                same = ours.returncode == 0
            elif same and ours.stdout != theirs.stdout:
                same = ours.stdout.startswith(b"{") and json_difference.json(json.loads(ours.stdout),
                                                                             json.loads(theirs.stdout))
            elif same:
                equal += 1
            if not same:
                bad.append(name)
                print(f"DIFFERENT: {name}: {' '.join(words)}\n  Linux   {ours.returncode} {ours.stdout[:300]} "
                      f"{ours.stderr[:300]}\n  Windows {theirs.returncode} {theirs.stdout[:300]} {theirs.stderr[:300]}")
        service.end()
        share.unlink()
        ours, theirs = map(files, folders)
        if list(ours) != list(theirs):
            bad.append("files")
            print(f"DIFFERENT files: {set(ours) ^ set(theirs)}")
        given = len(files(SOURCE / "samples"))
        same_files = 0
        for name in ours.keys() & theirs.keys():
            a, b = ours[name].read_bytes(), theirs[name].read_bytes()
            if a == b:
                same_files += 1
            elif not (name.endswith("_FFT.csv") and fourier_difference.table(a, b) or
                      name.endswith("summary.csv") and summary_difference.table(a, b)):
                bad.append(name)
                place = next((i for i, (x, y) in enumerate(zip(a, b)) if x != y), min(len(a), len(b)))
                print(f"DIFFERENT: {name} from byte {place}:\n  Linux   {a[place:place + 80]}\n  Windows {b[place:place + 80]}")
        print(f"{runs} commands, {equal} of them with equal bytes in their output; {len(ours)} files ({given} of them samples), "
              f"{same_files} equal")
        for what, difference in (("JSON", json_difference), ("Fourier files", fourier_difference),
                                 ("Summary", summary_difference)):
            print(f"{what}: {difference.different} of {difference.numbers} numbers differ in what is not equal, at most by "
                  f"{difference.most:.2g} of the largest beside them (tolerance {TOLERANCE:g})")
    return 1 if bad else 0


sys.exit(main())
