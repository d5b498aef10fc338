"""A whole project file as records, read and written apart from the program: states are planted with it, and what the
program has saved is looked at. A record is a dictionary of the fields by their names."""

import io
import struct

NUMBERS = {"bool8": "<?", "i32": "<i", "f64": "<d"}
ELEMENTS = {"vecI": "i32", "vecF": "f64", "vecB": "bool8", "vecS": "str", "vecVF": "vecF"}


def fields(kind, *names):
    return [(name, kind) for name in " ".join(names).split()]


WAVE = [("spectrumValid", "bool8"), ("timeStep", "f64"), ("acc", "vecF"), ("current", "bool8"), ("origGraph", "graph"),
        ("siteColor", "i32"), *fields("bool8", "siteShow siteUse"), *fields("vecF", "periods accSpec"),
        ("lowerSelected", "bool8"), ("lowerGraph", "graph"), ("baseColor", "i32"),
        *fields("bool8", "baseShow baseSelected"), ("spectrumArea", "f64"), ("adjustColor", "i32"),
        *fields("bool8", "baseAdjustShow adjustShow adopted adjustChecked"),
        *fields("vecF", "adjustedAcc adjustedPeriods adjustedSpec"), ("adjusted", "bool8")]
CORNERS = [f"corner{number}{what}" for number in (1, 2, 3, 4) for what in ("Lon", "Lat", "Dep")]
FAULT = [*fields("str", "rank ltecode ltename"), ("groundClass", "vecS"),
         *fields("str", "magnitude ijma i45_ps i50_ps i55_ps i60_ps"), ("geomNum", "i32"),
         *fields("str", "avract newact t30p t50p magu"), *fields("vecS", "lon lat dep len wid str dip"),
         *fields("vecF", *CORNERS, "planeDepth furtherA furtherB shortestDistance equivalentDistance"),
         *fields("vecVF", "shortestPeriods shortestSpectrum equivalentPeriods equivalentSpectrum"),
         ("attenColor", "vecI"), *fields("vecB", "attenShow attenUse"), ("shortBaseColor", "vecI"),
         *fields("vecB", "shortBaseShow shortBaseSelected"), ("shortArea", "vecF"), ("equivBaseColor", "vecI"),
         *fields("vecB", "equivBaseShow equivBaseSelected"), ("equivArea", "vecF"),
         *fields("vecB", "adjustShow adjustShowEquiv")]
PROJECT = [("guidelineRoute", "bool8"), *fields("str", "title subtitle siteName workDate company phone fax address"),
           *fields("f64", "latDeg latMin latSec lonDeg lonMin lonSec"), ("planeZone", "str"), ("comments", "comments"),
           ("mapZoom", "i32"), ("mapScale", "f64"),
           *fields("bool8", "flowQ1Yes flowQ2Yes flowCollect flowFaultSource flowNeighbourWave flowFixed"),
           ("seedWaves", "waves"), ("graphDamsite", "wave"), ("faults", "faults"), ("faultAcquireMode", "i32"),
           ("searchRangeKm", "f64"), ("attenuationMethod", "str"), ("graphAttenuation", "wave"), ("intensityIndex", "i32"),
           ("catastropheWeight", "f64"), *fields("i32", "modeIndex versionIndex activityVersionIndex caseIndex periodIndex"),
           ("lowerSpectra", "waves"), ("graphBase", "wave"), ("seedAdopted", "bool8"),
           *fields("str", "seedAdoptedName baseSpectrumName"), ("graphAdjust", "wave"), ("adjustMaxIterations", "i32"),
           ("adjustTolerancePercent", "f64"), ("graphSpare", "wave"),
           *fields("i32", "visualShowOrig visualShowAdjusted visualShowSpare"),
           *fields("i32", "visualColorOrig visualColorAdjusted visualColorSpare"), ("respSpectra", "waves")]
RECORDS = {"wave": WAVE, "fault": FAULT}
GRAPH_BYTES = 224


def load(path):
    stream = io.BytesIO(path.read_bytes())
    project = read_record(stream, PROJECT)
    assert not stream.read(1), "more than a project"
    return project


def save(path, project):
    stream = io.BytesIO()
    write_record(stream, PROJECT, project)
    path.write_bytes(stream.getvalue())


def bytes_of(stream, count):
    data = stream.read(count)
    assert len(data) == count, "the file is cut off"
    return data


def read_number(stream, form):
    return struct.unpack(form, bytes_of(stream, struct.calcsize(form)))[0]


def read_text(stream):
    assert bytes_of(stream, 3) == b"\xff\xfe\xff"
    length = read_number(stream, "<B")
    if length == 255:
        length = read_number(stream, "<H")
        assert length < 0xffff
    return bytes_of(stream, 2 * length).decode("utf-16-le")


def write_text(stream, text):
    units = text.encode("utf-16-le")
    length = len(units) // 2
    stream.write(b"\xff\xfe\xff" + (struct.pack("<B", length) if length < 255 else struct.pack("<BH", 255, length)) + units)


def read_record(stream, shape):
    return {name: read(stream, kind) for name, kind in shape}


def write_record(stream, shape, record):
    for name, kind in shape:
        write(stream, kind, record[name])


def read(stream, kind):
    if kind in NUMBERS:
        return read_number(stream, NUMBERS[kind])
    if kind == "str":
        return read_text(stream)
    if kind == "graph":
        return bytes_of(stream, GRAPH_BYTES)
    if kind in RECORDS:
        return read_record(stream, RECORDS[kind])
    count = 10 if kind == "comments" else read_number(stream, "<I")
    if kind == "waves":
        names = [read_text(stream) for _ in range(count)]
        return [{"name": name, **read_record(stream, WAVE)} for name in names]
    element = {"comments": "str", "faults": "fault", **ELEMENTS}[kind]
    return [read(stream, element) for _ in range(count)]


def write(stream, kind, value):
    if kind in NUMBERS:
        stream.write(struct.pack(NUMBERS[kind], value))
    elif kind == "str":
        write_text(stream, value)
    elif kind == "graph":
        stream.write(value)
    elif kind in RECORDS:
        write_record(stream, RECORDS[kind], value)
    else:
        if kind != "comments":
            stream.write(struct.pack("<I", len(value)))
        if kind == "waves":
            for wave in value:
                write_text(stream, wave["name"])
        element = {"comments": "str", "faults": "fault", "waves": "wave", **ELEMENTS}[kind]
        for item in value:
            write(stream, element, item)
