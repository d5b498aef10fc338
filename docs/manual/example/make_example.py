#!/usr/bin/env python3
"""Makes what the worked example of the manual rests on: records that are no records, and faults that are none.

    make_example.py RECORDS SERVICE

RECORDS gets three made-up accelerograms, SERVICE the answers of a made-up hazard service. The same files come out at
every run: random numbers have fixed seeds, and what is written is rounded far above the last bit.
"""

import json
import math
import pathlib
import random
import sys

# name, seed, time step (s), samples, peak (gal), length of the rise, strong part and decay (s)
DAM = ("見本記録 ダム基礎 NS", 11, 0.005, 8192, 168.0, (3.0, 9.0, 7.0))
NEAR = ("見本記録 近隣 EW", 23, 0.01, 4096, 92.0, (4.0, 8.0, 9.0))
COARSE = ("見本記録 0.02秒", 37, 0.02, 2048, 120.0, (3.0, 8.0, 8.0))

# code, name, magnitude, probability, planes of lon, lat, depth (km), length, width, strike, dip
FAULTS = (
    ("F090101", "見本東断層帯", "6.7", "3.1E-02", ("6.1", "0.982", "0.931", "0.742", "0.288"),
     ((138.30, 36.32, 2.0, 24.0, 16.0, 12.0, 45.0), (138.335, 36.53, 2.0, 18.0, 16.0, 32.0, 45.0))),
    ("F090201", "見本西断層", "6.4", "1.2E-02", ("5.6", "0.951", "0.802", "0.405", "0.096"),
     ((137.88, 36.30, 3.0, 20.0, 14.0, 175.0, 60.0),)),
    ("F090301", "見本南断層帯", "7.0", "8.0E-03", ("5.3", "0.884", "0.640", "0.236", "0.041"),
     ((138.02, 36.02, 3.0, 48.0, 18.0, 80.0, 50.0),)),
)


def envelope(t, rise, strong, decay):
    if t < rise:
        return (t / rise) ** 2
    if t < rise + strong:
        return 1.0
    return math.exp(-2.4 * (t - rise - strong) / decay)


def first_order(values, dt, corner, high):
    """A first-order filter by the bilinear rule: high-pass or low-pass."""
    k = math.tan(math.pi * corner * dt)
    b0, b1 = (1.0, -1.0) if high else (k, k)
    out, x1, y1 = [], 0.0, 0.0
    for x in values:
        y1 = (b0 * x + b1 * x1 - (k - 1.0) * y1) / (1.0 + k)
        x1 = x
        out.append(y1)
    return out


def accelerogram(seed, dt, count, peak, shape):
    """Noise under an envelope, strongest between 1 and 8 Hz, that begins and ends at rest."""
    chance = random.Random(seed)
    shares = [envelope(i * dt, *shape) for i in range(count)]
    values = [share * chance.gauss(0.0, 1.0) for share in shares]
    for corner, high in ((0.3, True), (0.8, True), (8.0, False)):
        values = first_order(values, dt, corner, high)
    # A mean that is left would drift in velocity.
    mean = sum(values) / sum(shares)
    values = [v - mean * share for v, share in zip(values, shares)]
    values[0] = 0.0
    factor = peak / max(abs(v) for v in values)
    return [round(v * factor, 3) + 0.0 for v in values]


def write_wave(path, name, seed, dt, count, peak, shape):
    lines = [f"{name}, {dt:g}, 1"]
    lines += [f"{i * dt:.3f}, {a:.3f}" for i, a in enumerate(accelerogram(seed, dt, count, peak, shape))]
    path.write_bytes(("\r\n".join(lines) + "\r\n").encode("cp932"))


def write_text(path, name, seed, dt, count, peak, shape):
    """Time and value without a unit: what a reader has to ask for."""
    lines = [f"# {name} (made up, no record)", f"# {count} samples"]
    lines += [f"{i * dt:8.2f} {a:10.3f}" for i, a in enumerate(accelerogram(seed, dt, count, peak, shape))]
    path.write_bytes(("\n".join(lines) + "\n").encode("utf-8"))


def corners(lon, lat, depth, length, width, strike, dip):
    """Of the upper edge from its first end along the strike, then of the lower edge."""
    km_lat, km_lon = 111.0, 111.0 * math.cos(math.radians(lat))
    s, d = math.radians(strike), math.radians(dip)
    along = (length * math.sin(s), length * math.cos(s))
    down = (width * math.cos(d) * math.cos(s), -width * math.cos(d) * math.sin(s))
    low = depth + width * math.sin(d)

    def place(east, north, deep):
        return [round(lon + east / km_lon, 5), round(lat + north / km_lat, 5), round(deep, 2)]
    ring = [place(0, 0, depth), place(*along, depth), place(along[0] + down[0], along[1] + down[1], low), place(*down, low)]
    return [*ring, ring[0]]


def ranking():
    faults = []
    for rank, (code, name, magnitude, probability, (ijma, *shares), _) in enumerate(FAULTS, 1):
        faults.append({"rank": str(rank), "ltecode": code, "ltename": name, "eqcode": "LND_A98F", "eqgroup": "A",
                       "eqcategory": "1", "magnitude": "-" + magnitude, "probability": probability,
                       "score": f"{0.05 / rank:.5f}", "ijma": ijma,
                       **dict(zip(("i45_ps", "i50_ps", "i55_ps", "i60_ps"), shares))})
    return {"status": "Success", "metaData": {"note": "見本 (made up)", "mode": "C"}, "Fault": faults}


def model(code, name, magnitude, planes):
    def text(value):
        return f"{value:g}"
    features = [{"type": "Feature", "geometry": {"type": "Polygon", "coordinates": [corners(*plane)]},
                 "properties": dict(zip(("lon", "lat", "dep", "len", "wid", "str", "dip"), map(text, plane)))}
                for plane in planes]
    return {"status": "Success", "type": "FeatureCollection", "metaData": {"note": "見本 (made up)", "ltecode": code},
            "seisact_model": {"ltecode": code, "ltename": name, "eqcode": "LND_A98F", "magl": "-" + magnitude,
                              "magu": "-" + magnitude, "proc": "BPT", "avract": "5000", "newact": "1500", "alpha": "0.24",
                              "t30p": "0.01", "t50p": "0.02", "geom_num": len(planes)},
            "features": features}


def write_json(path, value):
    path.write_text(json.dumps(value, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")


def main(records, service):
    records.mkdir(parents=True, exist_ok=True)
    service.mkdir(parents=True, exist_ok=True)
    write_wave(records / "record_dam_ns.csv", *DAM)
    write_wave(records / "record_near_ew.csv", *NEAR)
    write_wave(records / "record_coarse.csv", *COARSE)
    write_text(records / "record_near_no_unit.txt", *NEAR)
    write_json(service / "fltsearch_C.json", ranking())
    for code, name, magnitude, _, _, planes in FAULTS:
        write_json(service / f"fltinfo_{code}.geojson", model(code, name, magnitude, planes))


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
