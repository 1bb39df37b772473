"""Conversions by format name, with arrays in their natural shapes.

    zorcc.convert(rgb, "rgb", "ycbcr420")           # -> (Y, Cb, Cr)
    zorcc.convert((y, cbcr), "nv12", "ycbcr422")    # -> (Y, Cb, Cr)
    zorcc.convert(ycc, "ycbcr", "rgb", out=frame)   # into a caller's array
    zorcc.twist(img, matrix); zorcc.gamma(img); zorcc.reduce_bits(img, 16)

Shapes: H x W x 3 for three interleaved channels, H x W x 4 for four (for the
functions that neither read nor write alpha, the source's alpha is kept),
H x W for one, H x 2W for packed 4:2:2, a tuple (Y, Cb, Cr) of planes or
(Y, CbCr) for semi-planar 4:2:0/4:1:1. The source's dtype picks the sample
type (uint8, uint16, int16, float32...). Which library function runs is found
in the table of exports by its name: <From>To<To>[variant]_<types>_<layouts>.
"""

import re

import numpy as np

from . import raw

__all__ = ["FORMATS", "convert", "conversions", "find", "twist", "gamma", "reduce_bits", "to_gray"]

# Format name -> (model token in the function names, layout tokens to try).
FORMATS = {
    "rgb": ("RGB", ("C3",)), "bgr": ("BGR", ("C3",)),
    "rgba": ("RGB", ("AC4", "C4")), "bgra": ("BGR", ("AC4", "C4")),
    "rgb_planar": ("RGB", ("P3",)), "bgr_planar": ("BGR", ("P3",)), "bgra_planar": ("BGR", ("AP4",)),
    "sbgr": ("SBGR", ("C3",)), "sbgra": ("SBGR", ("C4",)),
    "rgb565": ("RGB565", ("C3",)), "bgr565": ("BGR565", ("C3",)), "rgb555": ("RGB555", ("C3",)),
    "bgr555": ("BGR555", ("C3",)), "rgb444": ("RGB444", ("C3",)), "bgr444": ("BGR444", ("C3",)),
    "gray": ("Gray", ("C1",)),
    "ycbcr": ("YCbCr", ("C3", "AC4")), "ycbcr_planar": ("YCbCr", ("P3",)),
    "ycbcr422": ("YCbCr422", ("P3",)), "yuy2": ("YCbCr422", ("C2",)), "uyvy": ("CbYCr422", ("C2",)),
    "yvyu": ("YCrCb422", ("C2",)), "ycrcb422": ("YCrCb422", ("P3",)),
    "ycbcr420": ("YCbCr420", ("P3",)), "ycrcb420": ("YCrCb420", ("P3",)), "nv12": ("YCbCr420", ("P2",)),
    "ycbcr411": ("YCbCr411", ("P3",)), "nv411": ("YCbCr411", ("P2",)),
    "yuv": ("YUV", ("C3", "AC4")), "yuv_planar": ("YUV", ("P3",)), "yuv422": ("YUV422", ("P3",)),
    "yuv422_packed": ("YUV422", ("C2",)), "yuv420": ("YUV420", ("P3",)),
    "hsv": ("HSV", ("C3", "AC4")), "hls": ("HLS", ("C3", "AC4")), "hls_planar": ("HLS", ("P3",)),
    "hlsa_planar": ("HLS", ("AP4",)), "luv": ("LUV", ("C3", "AC4")), "lab": ("Lab", ("C3",)),
    "xyz": ("XYZ", ("C3", "AC4")), "ycc": ("YCC", ("C3", "AC4")), "ycocg": ("YCoCg", ("P3",)),
}

_NAME = re.compile(r"^zori(?P<body>[A-Za-z0-9]+?)(?:_(?P<var>Filter|Rev))?_(?P<types>(?:\d+[usf])+)_(?P<layout>[A-Z0-9]+)$")
_TYPE = re.compile(r"\d+[usf]")
_LAYOUT = re.compile(r"A?[CP]\d")
_SUFFIX_VARIANTS = ("Dither", "Gamma")


def _parse(name):
    """(from, to, variant, (src type, dst type), (src layout, dst layout), region form)."""
    m = _NAME.match(name)
    if not m:
        return None
    body, variant, layout = m["body"], m["var"], m["layout"]
    src, _, dst = body.partition("To")
    if not dst or src in ("Color",):
        src, dst = body, body
    for v in _SUFFIX_VARIANTS:
        if dst.endswith(v):
            dst, variant = dst[: -len(v)], v
    roi = layout.endswith("R")
    layout = layout[:-1] if roi else layout
    if "I" in layout:  # in place: a per-family function
        return None
    types = _TYPE.findall(m["types"])
    lay = _LAYOUT.findall(layout)
    return src, dst, variant, (types[0], types[-1]), (lay[0], lay[-1]), roi


def _index():
    table = {}
    for name in raw.names():
        p = _parse(name)
        if p is None:
            continue
        src, dst, variant, types, lays, roi = p
        key = (src, dst, variant, types[0], lays)
        # The region form (...R) goes first, then the whole-image form.
        table.setdefault(key, []).insert(0 if roi else len(table.get(key, [])), (types[1], name))
    return table


_TABLE = _index()


def conversions():
    """Every conversion convert() can do: (from format, to format, variant,
    source sample type)."""
    models = {}
    for f, (model, lays) in FORMATS.items():
        for lay in lays:
            models.setdefault((model, lay), f)
    found = set()
    for (src, dst, variant, t, (ls, ld)) in _TABLE:
        a, b = models.get((src, ls)), models.get((dst, ld))
        if a and b:
            found.add((a, b, variant, t))
    return sorted(found, key=lambda p: (p[0], p[1], p[2] or "", p[3]))


def _sample_type(obj):
    a = obj[0] if isinstance(obj, (tuple, list)) else obj
    if not isinstance(a, np.ndarray):
        raise TypeError("an image is a numpy array or a tuple of arrays, not %s" % type(a).__name__)
    for t, dt in raw.DTYPES.items():
        if a.dtype == dt:
            return t
    raise TypeError("no function takes samples of dtype %s" % a.dtype)


def find(src_format, dst_format, sample_type, variant=None, out_type=None):
    """The library function that converts src_format to dst_format."""
    for f in (src_format, dst_format):
        if f not in FORMATS:
            raise ValueError("unknown format %r (known: %s)" % (f, ", ".join(sorted(FORMATS))))
    (ms, ls), (md, ld) = FORMATS[src_format], FORMATS[dst_format]
    for a in ls:
        for b in ld:
            for (t_out, name) in _TABLE.get((ms, md, variant, sample_type, (a, b)), []):
                if out_type is None or t_out == out_type:
                    return raw.describe(name)
    raise ValueError("no function converts %s %s to %s%s%s" % (
        sample_type, src_format, dst_format, " (variant %s)" % variant if variant else "",
        " with %s samples" % out_type if out_type else ""))


def _allocate(g, w, h):
    """A destination image of group g for a w x h region, natural shape."""
    dt = raw.DTYPES[g["type"]]
    k = g["kind"]
    if k in ("C", "wholeC"):
        n = g["channels"]
        return np.zeros((h, w * 2) if n == 2 else (h, w, n) if n > 2 else (h, w), dt)
    cw, ch = -(-w // g.get("h", 1)), -(-h // (1 << g.get("v", 0)))
    if g.get("chroma") == "floor":
        cw = w // g.get("h", 1)
    if k == "P2":
        return (np.zeros((h, w), dt), np.zeros((ch, 2 * cw), dt))
    if k == "P4":
        return tuple(np.zeros((h, w), dt) for _ in range(4))
    return (np.zeros((h, w), dt), np.zeros((ch, cw), dt), np.zeros((ch, cw), dt))


_DEFAULTS = {"aval": lambda dt: int(np.iinfo(dt).max) if dt.kind in "ui" else 1.0}


def _run(desc, src, out=None, values=(), **params):
    fn = getattr(raw, desc["name"])
    images = [g for g in desc["params"] if g["kind"] not in ("roi", "value", "pointer")]
    w, h = fn._images[0].size(src)
    if out is None:
        out = _allocate(images[-1], w, h)
        # An output whose alpha the function never writes takes the source's.
        if images[-1].get("keepsAlpha") and isinstance(src, np.ndarray) and src.ndim == 3 and src.shape[2] == 4 \
                and out.ndim == 3 and out.shape[2] == 4 and out.dtype == src.dtype:
            out[..., 3] = src[..., 3]
    args = list(values)
    if not values:
        for g in desc["params"]:
            if g["kind"] in ("value", "pointer"):
                name = g.get("name")
                if name in params:
                    args.append(params.pop(name))
                elif name in _DEFAULTS:
                    args.append(_DEFAULTS[name](raw.DTYPES[images[-1]["type"]]))
                else:
                    raise TypeError("%s needs the argument %r" % (desc["name"], name))
    if params:
        raise TypeError("%s takes no argument %s" % (desc["name"], ", ".join(sorted(params))))
    fn(src, out, *args, roi=(w, h))
    return out


def convert(src, src_format, dst_format, out=None, variant=None, out_dtype=None, **params):
    """Converts an image from one format to another (see FORMATS) and returns
    the destination (out if given). variant picks a sibling function, e.g.
    "Dither" (the 16-bit RGB outputs), "Filter" (chroma upsampling with a
    filter), "Rev" (reversible YCoCg), "Gamma". Function-specific values are
    keywords by their C names (aval for the alpha of C4 outputs)."""
    out_type = None
    if out_dtype is not None or out is not None:
        dt = np.dtype(out_dtype) if out_dtype is not None else (out[0] if isinstance(out, (tuple, list)) else out).dtype
        out_type = next((t for t, d in raw.DTYPES.items() if d == dt), None)
    desc = find(src_format, dst_format, _sample_type(src), variant, out_type)
    return _run(desc, src, out, **params)


def _layout(img):
    if isinstance(img, (tuple, list)):
        return "P3"
    if isinstance(img, np.ndarray) and img.ndim == 3 and img.shape[2] in (3, 4):
        return "C%d" % img.shape[2]
    raise ValueError("an image is H x W x 3, H x W x 4 or a tuple of three planes; this is %s"
                     % (getattr(img, "shape", type(img).__name__),))


def _family(prefix, img, inplace, four=False):
    """The function of a family (prefix_<type>_<layout>R) for an image."""
    t, lay = _sample_type(img), _layout(img)
    want = {"C3": "C3", "C4": "C4" if four else "AC4", "P3": "P3"}[lay]
    if inplace:
        want = "IP3" if lay == "P3" else want + "I"
    for name in raw.names():
        m = re.match(r"^zori(?:%s)_(\d+[usf])_([A-Z0-9]+)R$" % prefix, name)
        if m and m[1] == t and m[2] == want:
            return raw.describe(name)
    raise ValueError("no %s function takes %s %s images%s" % (prefix, t, want, " in place" if inplace else ""))


def _apply(desc, img, out, values):
    if out is img:
        getattr(raw, desc["name"])(img, *values)
        return img
    return _run(desc, img, out, values=values)


def twist(img, matrix, out=None):
    """Applies a 3x4 colour matrix (4x4 on four float channels) to an
    H x W x 3, H x W x 4 (alpha kept) or planar image; out=img works in place."""
    m = np.asarray(matrix, np.float32)
    desc = _family(r"ColorTwist32f|ColorTwist", img, out is img, four=m.shape == (4, 4))
    return _apply(desc, img, out, (m,))


def gamma(img, inverse=False, vmin=0.0, vmax=1.0, out=None):
    """Applies (or with inverse=True removes) the video gamma curve; float
    images give their range as vmin..vmax; out=img works in place."""
    desc = _family("GammaInv" if inverse else "GammaFwd", img, out is img)
    float_range = any(g["kind"] == "value" for g in desc["params"])
    return _apply(desc, img, out, (vmin, vmax) if float_range else ())


_DITHER = {"none": 0, "fs": 1, "jjn": 2, "stucki": 3, "bayer": 4}


def reduce_bits(img, levels, dither="none", noise=0, out=None, out_dtype=None):
    """Reduces an image to the given number of levels per channel, optionally
    into a narrower dtype (out_dtype or out's dtype), with a dither method
    (none, fs, jjn, stucki, bayer) and a noise amount 0..100."""
    src_t = _sample_type(img)
    dt = np.dtype(out_dtype) if out_dtype is not None else out.dtype if out is not None else img.dtype
    out_t = next((t for t, d in raw.DTYPES.items() if d == dt), None)
    lay = "C1" if isinstance(img, np.ndarray) and img.ndim == 2 else _layout(img)
    want = "AC4" if lay == "C4" else lay
    for name in raw.names():
        m = re.match(r"^zoriReduceBits_((?:\d+[usf])+)_(A?C\d)R$", name)
        if m and _TYPE.findall(m[1])[0] == src_t and _TYPE.findall(m[1])[-1] == out_t and m[2] == want:
            return _run(raw.describe(name), img, out, values=(int(noise), _DITHER[dither], int(levels)))
    raise ValueError("no bit reduction from %s %s to %s" % (src_t, lay, out_t))


def to_gray(img, weights=None, out=None):
    """Gray from an RGB image (H x W x 3 or H x W x 4), with the library's
    weights or three of the caller's."""
    t, lay = _sample_type(img), _layout(img)
    lay = "AC4" if lay == "C4" else lay
    name = "zori%sToGray_%s_%sC1R" % ("RGB" if weights is None else "Color", t, lay)
    if name not in raw.names():
        raise ValueError("no gray conversion of %s %s images" % (t, lay))
    return _run(raw.describe(name), img, out, values=() if weights is None else (weights,))
