"""zorcc: colour conversions of images held in numpy arrays.

    import numpy as np, zorcc
    ycc = zorcc.convert(rgb, "rgb", "ycbcr420")      # (Y, Cb, Cr) planes
    zorcc.raw.zoriRGBToYCbCr_8u_C3R(rgb, out)        # any library function

zorcc.raw holds every exported function by its C name; zorcc.convert and the
per-family functions take arrays in their natural shapes; zorcc.dask maps a
conversion over the frames of a Dask array.
"""

from . import _zorcc, raw
from .convert import FORMATS, conversions, convert, find, gamma, reduce_bits, to_gray, twist
from .raw import ZorccError, ZorccWarning

__all__ = ["ZorccError", "ZorccWarning", "raw", "set_threads", "get_threads", "version", "FORMATS",
           "conversions", "convert", "find", "gamma", "reduce_bits", "to_gray", "twist"]


def set_threads(n):
    """Sets the team size of the library's parallel regions (n >= 1)."""
    _zorcc.set_threads(int(n))


def get_threads():
    """The team size of the library's parallel regions."""
    return _zorcc.get_threads()


def version():
    """The library's version record as a dict ("version" is e.g. "5.1.1")."""
    return _zorcc.version()
