"""Every exported image function of libzorccpx by its C name.

    zorcc.raw.zoriRGBToYCbCr_8u_C3R(src, dst)
    zorcc.raw.zoriYCbCrToBGR_8u_P3C4R((y, cb, cr), dst, 255)
    zorcc.raw.zoriRGBToYCbCr_8u_C3R(src, dst, roi=(64, 32))

Arguments follow the C order with each image as one Python argument:

    interleaved image      2-D array (rows, pixels * channels) or 3-D array
                           (rows, pixels, channels)
    three or four planes   tuple of 2-D arrays (subsampled chroma planes
                           hold ceil(width / H) samples and ceil(height / 2**V)
                           rows)
    semi-planar image      tuple (Y, CbCr): CbCr is 2-D (rows, 2 * chroma
                           width) or 3-D (rows, chroma width, 2)
    in-place image         the same array (or planes) read and written

then the function-specific values (ints, floats, sequences for arrays of
coefficients). The region size is the destination's size unless roi=(width,
height) is given. Pointers and steps come from the arrays' data and strides,
so crops, views and negative strides (a[::-1]) are passed as they are. Within
a row the samples must be contiguous.

A function returns its status: 0, or a positive warning, which is also
issued as a ZorccWarning. A negative status raises ZorccError. Arguments that
cannot describe the region (a wrong dtype, shape or dimension count, a
read-only destination, an image smaller than the region) raise TypeError or
ValueError before the library is called.
"""

import json
import os
import warnings

import numpy as np

from . import _zorcc
from ._status import STATUS_NAMES

__all__ = ["ZorccError", "ZorccWarning", "describe", "names"]

DTYPES = {
    "8u": np.dtype(np.uint8), "8s": np.dtype(np.int8), "16u": np.dtype(np.uint16),
    "16s": np.dtype(np.int16), "32s": np.dtype(np.int32), "32f": np.dtype(np.float32),
}

# Integer value arguments: their C types and ranges.
_INT_RANGES = {
    "Zor8u": (0, 255), "Zor8s": (-128, 127), "Zor16u": (0, 65535), "Zor16s": (-32768, 32767),
    "Zor32s": (-2**31, 2**31 - 1), "int": (-2**31, 2**31 - 1), "unsigned int": (0, 2**32 - 1),
    "ZorDitherType": (-2**31, 2**31 - 1),
}
_FLOAT_TYPES = {"Zor32f": np.float32, "float": np.float32, "double": np.float64}
_INT_MAX = 2**31 - 1


class ZorccError(RuntimeError):
    """A negative status: the call was refused and nothing was written."""

    def __init__(self, function, status):
        self.function = function
        self.status = status
        self.name = STATUS_NAMES.get(status, "unknown status")
        super().__init__("%s returned %s (%d)" % (function, self.name, status))


class ZorccWarning(UserWarning):
    """A positive status: the work was done, with a remark (for example the
    region was rounded down to whole groups of pixels)."""

    def __init__(self, function, status):
        self.function = function
        self.status = status
        self.name = STATUS_NAMES.get(status, "unknown status")
        super().__init__("%s returned %s (%d)" % (function, self.name, status))


def check_status(function, status, stacklevel=3):
    if status < 0:
        raise ZorccError(function, status)
    if status > 0:
        warnings.warn(ZorccWarning(function, status), stacklevel=stacklevel)
    return status


# ---------------------------------------------------------------------------
# Images: one converter per group kind. Each gives the region size the image
# can hold (width, height) and, for a region, the C arguments.

def _ceil_div(a, b):
    return -(-a // b)


def _array(fn, what, a, dtype, out):
    if not isinstance(a, np.ndarray):
        raise TypeError("%s: %s must be a numpy array, not %s" % (fn, what, type(a).__name__))
    if a.dtype != dtype:
        raise TypeError("%s: %s must have dtype %s, not %s" % (fn, what, dtype, a.dtype))
    if out and not a.flags.writeable:
        raise ValueError("%s: %s is read-only" % (fn, what))
    if not a.flags.aligned:
        raise ValueError("%s: %s is not aligned to its sample size" % (fn, what))
    return a


def _row_step(fn, what, a):
    if a.shape[0] > 1:
        s = a.strides[0]
    else:  # one row: any stride numpy chose; pass the row's length
        s = max(a.itemsize, int(np.prod(a.shape[1:])) * a.itemsize)
    if abs(s) > _INT_MAX:
        raise ValueError("%s: the row step of %s does not fit in an int" % (fn, what))
    return int(s)


def _interleaved(fn, what, a, channels):
    """(pixels, rows) of an interleaved image array."""
    isz = a.itemsize
    if a.ndim == 3:
        if a.shape[2] != channels:
            raise ValueError("%s: %s must have %d channels on its last axis, not %d"
                             % (fn, what, channels, a.shape[2]))
        if a.shape[1] > 1 and a.strides[1] != channels * isz or channels > 1 and a.strides[2] != isz:
            raise ValueError("%s: the samples of a row of %s must be contiguous" % (fn, what))
        return a.shape[1], a.shape[0]
    if a.ndim == 2:
        if a.shape[1] % channels:
            raise ValueError("%s: %s has %d samples a row, not a multiple of %d channels"
                             % (fn, what, a.shape[1], channels))
        if a.shape[1] > 1 and a.strides[1] != isz:
            raise ValueError("%s: the samples of a row of %s must be contiguous" % (fn, what))
        return a.shape[1] // channels, a.shape[0]
    raise ValueError("%s: %s must be a 2-D or 3-D array, not %d-D" % (fn, what, a.ndim))


def _plane(fn, what, a):
    if a.ndim != 2:
        raise ValueError("%s: %s must be a 2-D array, not %d-D" % (fn, what, a.ndim))
    if a.shape[1] > 1 and a.strides[1] != a.itemsize:
        raise ValueError("%s: the samples of a row of %s must be contiguous" % (fn, what))
    return a.shape[1], a.shape[0]


def _planes(fn, what, obj, count):
    if not isinstance(obj, (tuple, list)) or len(obj) != count:
        raise TypeError("%s: %s must be a tuple of %d planes" % (fn, what, count))
    return obj


def _need(fn, what, have, need):
    if have[0] < need[0] or have[1] < need[1]:
        raise ValueError("%s: %s holds %dx%d, smaller than the %dx%d it needs for the region"
                         % (fn, what, have[0], have[1], need[0], need[1]))


def _chroma(g, w, h):
    return _ceil_div(w, g.get("h", 1)), _ceil_div(h, 1 << g.get("v", 0))


class _Image:
    """One image argument of a function: validates and passes an object."""

    def __init__(self, fn, index, g):
        self.fn, self.g = fn, g
        self.kind = g["kind"]
        self.out = g["dir"] in ("out", "inout")
        self.dtype = DTYPES[g["type"]]
        self.what = "%s image (argument %d)" % ({"in": "source", "out": "destination", "inout": "in-place"}[g["dir"]], index)

    def size(self, obj):
        """The largest region (width, height) the object holds."""
        fn, g, what = self.fn, self.g, self.what
        k = self.kind
        if k in ("C", "wholeC"):
            return _interleaved(fn, what, _array(fn, what, obj, self.dtype, self.out), g["channels"])
        n = 4 if k == "P4" else 2 if k == "P2" else 3
        planes = _planes(fn, what, obj, n)
        a = _array(fn, what + " plane 0", planes[0], self.dtype, self.out)
        return _plane(fn, what + " plane 0", a)

    def args(self, obj, w, h):
        fn, g, what, k = self.fn, self.g, self.what, self.kind
        isz = self.dtype.itemsize
        if k in ("C", "wholeC"):
            a = _array(fn, what, obj, self.dtype, self.out)
            _need(fn, what, _interleaved(fn, what, a, g["channels"]), (w, h))
            if k == "C":
                return [a.ctypes.data, _row_step(fn, what, a)]
            if h > 1 and a.strides[0] != w * g["channels"] * isz:
                raise ValueError("%s: %s must be a packed image exactly %d pixels wide" % (fn, what, w))
            return [a.ctypes.data]
        if k == "P2":
            y, c = _planes(fn, what, obj, 2)
            y = _array(fn, what + " luma", y, self.dtype, self.out)
            c = _array(fn, what + " chroma", c, self.dtype, self.out)
            _need(fn, what + " luma", _plane(fn, what + " luma", y), (w, h))
            _need(fn, what + " chroma", _interleaved(fn, what + " chroma", c, 2), _chroma(g, w, h))
            return [y.ctypes.data, _row_step(fn, what, y), c.ctypes.data, _row_step(fn, what, c)]
        n = 4 if k == "P4" else 3
        planes = [_array(fn, "%s plane %d" % (what, i), p, self.dtype, self.out)
                  for i, p in enumerate(_planes(fn, what, obj, n))]
        if k == "wholeP3":
            cw, ch = _chroma(g, w, h)
            if g.get("chroma") == "floor":
                cw = w // g.get("h", 1)
            for i, p in enumerate(planes):
                pw, ph = (w, h) if i == 0 else (cw, ch)
                _need(fn, "%s plane %d" % (what, i), _plane(fn, "%s plane %d" % (what, i), p), (pw, ph))
                if ph > 1 and p.strides[0] != pw * isz:
                    raise ValueError("%s: %s plane %d must be packed, exactly %d samples wide" % (fn, what, i, pw))
            return [tuple(p.ctypes.data for p in planes)]
        for i, p in enumerate(planes):
            need = (w, h) if i == 0 or k == "P4" else _chroma(g, w, h)
            _need(fn, "%s plane %d" % (what, i), _plane(fn, "%s plane %d" % (what, i), p), need)
        steps = [_row_step(fn, "%s plane %d" % (what, i), p) for i, p in enumerate(planes)]
        if k == "P3S":
            return [tuple(p.ctypes.data for p in planes), tuple(steps)]
        if len(set(steps)) != 1:
            raise ValueError("%s: the planes of %s share one row step; they have %s" % (fn, what, steps))
        return [tuple(p.ctypes.data for p in planes), steps[0]]


class _Value:
    """A function-specific value or array argument."""

    def __init__(self, fn, g):
        self.fn, self.g = fn, g
        self.name = g.get("name", "value")

    def args(self, v):
        fn, g, name = self.fn, self.g, self.name
        if g["kind"] == "pointer":
            if v is None:
                if g.get("nullable"):
                    return [0], None
                raise TypeError("%s: %s is required" % (fn, name))
            a = np.ascontiguousarray(v, dtype=DTYPES[g["type"]])
            count = int(np.prod(g["shape"])) if g.get("shape") else None
            if count is None:
                raise TypeError("%s: the extent of %s is not known" % (fn, name))
            if a.size != count:
                raise ValueError("%s: %s holds %d values, not %d" % (fn, name, a.size, count))
            return [a.ctypes.data], a
        ctype = g["cType"]
        if ctype in _FLOAT_TYPES:
            if isinstance(v, (bool, np.bool_)) or not isinstance(v, (int, float, np.integer, np.floating)):
                raise TypeError("%s: %s must be a number, not %s" % (fn, name, type(v).__name__))
            return [float(v)], None
        if isinstance(v, (bool, np.bool_)) or not isinstance(v, (int, np.integer)):
            raise TypeError("%s: %s must be an integer, not %s" % (fn, name, type(v).__name__))
        lo, hi = _INT_RANGES[ctype]
        if not lo <= int(v) <= hi:
            raise ValueError("%s: %s = %d is outside %s (%d..%d)" % (fn, name, v, ctype, lo, hi))
        return [int(v)], None


class Function:
    """A library function called with numpy arrays (see the module help)."""

    def __init__(self, desc):
        self.name = desc["name"]
        self.params = desc["params"]
        self._call = _zorcc.functions[self.name]
        self._images, self._values = [], []
        for g in self.params:
            if g["kind"] == "roi":
                continue
            if g["kind"] in ("value", "pointer"):
                self._values.append(_Value(self.name, g))
            else:
                self._images.append(_Image(self.name, len(self._images), g))
        self.__name__ = self.__qualname__ = self.name
        self.__doc__ = "%s(%s, roi=None) -> status" % (self.name, ", ".join(self.arg_names()))

    def arg_names(self):
        names = []
        for g in self.params:
            if g["kind"] in ("value", "pointer"):
                names.append(g.get("name", "value"))
            elif g["kind"] != "roi":
                names.append({"in": "src", "out": "dst", "inout": "srcdst"}[g["dir"]])
        return names

    def __repr__(self):
        return "<zorcc.raw %s>" % self.__doc__

    def region(self, images, roi=None):
        """The region size (width, height): roi, else the destination's size."""
        if roi is not None:
            w, h = (int(x) for x in roi)
            return w, h
        for img, obj in zip(self._images, images):
            if img.out:
                return img.size(obj)
        return self._images[-1].size(images[-1])

    def __call__(self, *args, roi=None):
        n_img = len(self._images)
        if len(args) != n_img + len(self._values):
            raise TypeError("%s takes %d arguments (%s), %d given"
                            % (self.name, n_img + len(self._values), ", ".join(self.arg_names()), len(args)))
        w, h = self.region(args[:n_img], roi)
        if not (-_INT_MAX <= w <= _INT_MAX and -_INT_MAX <= h <= _INT_MAX):
            raise ValueError("%s: region %dx%d does not fit in a ZoriSize" % (self.name, w, h))
        c_args, keep = [], []
        images, values = iter(zip(self._images, args[:n_img])), iter(zip(self._values, args[n_img:]))
        for g in self.params:
            if g["kind"] == "roi":
                c_args.append((w, h))
            elif g["kind"] in ("value", "pointer"):
                v, obj = next(values)
                a, k = v.args(obj)
                c_args += a
                keep.append(k)
            else:
                img, obj = next(images)
                c_args += img.args(obj, w, h)
        return check_status(self.name, self._call(tuple(c_args)))


def _load():
    with open(os.path.join(os.path.dirname(__file__), "exports.json")) as f:
        return json.load(f)


_DESCRIPTIONS = {d["name"]: d for d in _load()}
_FUNCTIONS = {name: Function(d) for name, d in _DESCRIPTIONS.items()}
globals().update(_FUNCTIONS)
__all__ += sorted(_FUNCTIONS)


def names():
    """The names of every exported image function."""
    return sorted(_FUNCTIONS)


def describe(name):
    """The parameter groups of a function, as the export table gives them."""
    return _DESCRIPTIONS[name]
