import ctypes
import re

import numpy as np
import pytest

import zorcc


class Size(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int)]


_CTYPES = {"int": ctypes.c_int, "unsigned int": ctypes.c_uint, "ZorDitherType": ctypes.c_int,
           "Zor8u": ctypes.c_uint8, "Zor16u": ctypes.c_uint16, "Zor16s": ctypes.c_int16,
           "Zor32f": ctypes.c_float, "ZoriSize": Size}


@pytest.fixture(scope="session")
def clib():
    """The library the extension loaded, called through ctypes with argument
    types read from the prototypes in zorcc.h."""
    path = next(line.split()[-1] for line in open("/proc/self/maps") if "libzorccpx" in line)
    lib = ctypes.CDLL(path)
    header = open(re.sub(r"python/tests/conftest.py$", "include/zorcc.h", __file__)).read()
    for name, params in re.findall(r"ZorStatus (zori\w+)\((.*?)\);", header):
        f = getattr(lib, name)
        f.restype = ctypes.c_int
        f.argtypes = [ctypes.c_void_p if ("*" in p or "[" in p) else _CTYPES[p.rsplit(" ", 1)[0].strip()]
                      for p in params.split(",")]
    return lib


def image(g, w, h, rng, pad=3):
    """A random image of parameter group g for a w x h region: a view of a
    buffer with padded rows (packed for whole images), or a tuple of them."""
    dt = zorcc.raw.DTYPES[g["type"]]

    def rand(rows, cols, packed=False):
        shape = (rows, cols + (0 if packed else pad))
        a = rng.random(shape, np.float32) if dt.kind == "f" else \
            rng.integers(np.iinfo(dt).min, np.iinfo(dt).max, shape, dtype=dt, endpoint=True)
        return a[:, :cols]
    k, cw, ch = g["kind"], -(-w // g["h"]), -(-h // (1 << g["v"]))
    if g.get("chroma") == "floor":
        cw = w // g["h"]
    if k in ("C", "wholeC"):
        return rand(h, w * g["channels"], k == "wholeC")
    if k == "P2":
        return rand(h, w), rand(ch, 2 * cw)
    if k == "P4":
        return tuple(rand(h, w) for _ in range(4))
    whole = k == "wholeP3"
    return rand(h, w, whole), rand(ch, cw, whole), rand(ch, cw, whole)


def clone(img):
    """The same view of a copy of the whole buffer."""
    return tuple(clone(p) for p in img) if isinstance(img, tuple) else img.base.copy()[:, : img.shape[1]]


def buffers(img):
    return [p.base for p in (img if isinstance(img, tuple) else (img,))]
