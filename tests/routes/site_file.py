"""The beginning of a project file, up to the count of its faults: what the field screen edits and what it guards."""

import dataclasses
import struct

GRAPH_BLOCK = 224
TEXTS = ("title", "subtitle", "site_name", "work_date", "company", "phone", "fax", "address")
COMMENTS = 10
FLOW_FLAGS = 6


@dataclasses.dataclass
class SiteFile:
    texts: dict  # by the names in TEXTS
    position: list  # degrees, minutes and seconds of latitude, then of longitude
    zone: str
    comments: list
    zoom: int
    scale: float
    flags: bytes  # of the work procedure
    behind: bytes  # seed waves, none of them, and a loose record
    faults: int
    rest: bytes

    @classmethod
    def read(cls, path):
        reader = Reader(path.read_bytes())
        assert reader.bytes(1) == b"\1", "not a project of the guideline route"
        texts = {name: reader.text() for name in TEXTS}
        position = list(reader.numbers("<6d"))
        zone = reader.text()
        comments = [reader.text() for _ in range(COMMENTS)]
        (zoom, scale), flags = reader.numbers("<id"), reader.bytes(FLOW_FLAGS)
        begin = reader.at
        assert reader.count() == 0, "seed waves"
        reader.wave_body()
        behind = reader.data[begin:reader.at]
        faults = reader.count()
        return cls(texts, position, zone, comments, zoom, scale, flags, behind, faults, reader.data[reader.at:])

    def write(self, path):
        words = [b"\1", *(text_bytes(self.texts[name]) for name in TEXTS), struct.pack("<6d", *self.position),
                 text_bytes(self.zone), *(text_bytes(comment) for comment in self.comments),
                 struct.pack("<id", self.zoom, self.scale), self.flags, self.behind, struct.pack("<I", self.faults), self.rest]
        path.write_bytes(b"".join(words))

    def add_fault(self):
        """One that has no planes."""
        texts = [text_bytes(f"fault {i}") for i in range(14)]
        empty = struct.pack("<I", 0)
        # Rank, code and name, the classes of the planes; eight texts and the number of planes; five texts; all vectors.
        self.rest = b"".join([*texts[:3], empty, *texts[3:9], struct.pack("<i", 0), *texts[9:], empty * 41]) + self.rest
        self.faults += 1


def from_new(path, fresh):
    """Makes a new project of the command line, which is one of the response route, one of the guideline route."""
    path.write_bytes(b"\1" + fresh.read_bytes()[1:])
    return SiteFile.read(path)


def text_bytes(text):
    units = text.encode("utf-16-le")
    assert len(units) < 510, "a text of more than one byte for its length"
    return b"\xff\xfe\xff" + bytes([len(units) // 2]) + units


class Reader:
    def __init__(self, data):
        self.data, self.at = data, 0

    def bytes(self, count):
        self.at += count
        assert self.at <= len(self.data), "the file is cut off"
        return self.data[self.at - count:self.at]

    def numbers(self, form):
        return struct.unpack(form, self.bytes(struct.calcsize(form)))

    def count(self):
        return self.numbers("<I")[0]

    def text(self):
        assert self.bytes(3) == b"\xff\xfe\xff"
        length = self.bytes(1)[0]
        assert length < 255
        return self.bytes(2 * length).decode("utf-16-le")

    def doubles(self):
        self.bytes(8 * self.count())

    def wave_body(self):
        self.bytes(1 + 8)
        self.doubles()
        self.bytes(1 + GRAPH_BLOCK + 4 + 2)
        self.doubles()
        self.doubles()
        self.bytes(1 + GRAPH_BLOCK + 4 + 2 + 8 + 4 + 4)
        for _ in range(3):
            self.doubles()
        self.bytes(1)
