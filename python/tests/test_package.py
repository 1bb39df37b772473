import ctypes
import os
import subprocess
import sys
import threading
import time
import warnings

import numpy as np
import pytest

import zorcc
from conftest import Size, buffers, clone, image

R = zorcc.raw
VALUES = {"aval": 77, "layout": 1, "noise": 0, "dtype": 1, "levels": 9, "vMin": 0.0, "vMax": 1.0,
          "twist": np.arange(12, dtype=np.float32).reshape(3, 4) / 20 - 0.2, "coeffs": [0.25, 0.5, 0.25]}


def c_args(desc, imgs, vals, w, h):
    """The C arguments, built from the arrays as a C caller would."""
    out, imgs, vals = [], iter(imgs), iter(vals)
    for g in desc["params"]:
        k = g["kind"]
        if k == "roi":
            out.append(Size(w, h))
        elif k in ("value", "pointer"):
            v = next(vals)
            out.append(np.asarray(v, np.float32).ctypes.data if k == "pointer" else v)
        else:
            ps = next(imgs)
            ps = ps if isinstance(ps, tuple) else (ps,)
            ptrs, steps = [p.ctypes.data for p in ps], [p.strides[0] for p in ps]
            if k in ("C", "wholeC"):
                out += [ptrs[0], steps[0]][: 1 if k == "wholeC" else 2]
            elif k == "P2":
                out += [ptrs[0], steps[0], ptrs[1], steps[1]]
            else:
                out.append(ctypes.cast((ctypes.c_void_p * len(ps))(*ptrs), ctypes.c_void_p))
                if k == "P3S":
                    out.append(ctypes.cast((ctypes.c_int * 3)(*steps), ctypes.c_void_p))
                elif k != "wholeP3":
                    out.append(steps[0])
    return out


def call_raw(name, imgs, vals, **kw):
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        try:
            return getattr(R, name)(*imgs, *vals, **kw)
        except zorcc.ZorccError as e:
            return e.status


@pytest.mark.parametrize("w,h", [(18, 6), (13, 5)])
def test_every_function_gives_the_bytes_of_a_direct_call(clib, w, h):
    rng = np.random.default_rng(w)
    names = R.names()
    assert len(names) > 400
    for name in names:
        desc = R.describe(name)
        imgs = [image(g, w, h, rng) for g in desc["params"] if g["kind"] not in ("roi", "value", "pointer")]
        vals = [np.resize(np.float32(VALUES[g["name"]]), g["shape"]) if g["kind"] == "pointer" else VALUES[g["name"]]
                for g in desc["params"] if g["kind"] in ("value", "pointer")]
        ref = [clone(i) for i in imgs]
        want = getattr(clib, name)(*c_args(desc, ref, vals, w, h))
        assert call_raw(name, imgs, vals, roi=(w, h)) == want, name
        for a, b in zip(sum(map(buffers, imgs), []), sum(map(buffers, ref), [])):
            assert np.array_equal(a, b, equal_nan=True), name


def _yuv420(w, h):
    return np.zeros((h, w), np.uint8), np.zeros(((h + 1) // 2, (w + 1) // 2), np.uint8), \
        np.zeros(((h + 1) // 2, (w + 1) // 2), np.uint8)


def test_crops_and_negative_strides_address_the_same_pixels():
    rng = np.random.default_rng(1)
    big = rng.integers(0, 256, (40, 50, 3), dtype=np.uint8)
    src = big[3:35, 5:45]
    plain = zorcc.convert(np.ascontiguousarray(src), "rgb", "ycbcr420")
    assert all(np.array_equal(a, b) for a, b in zip(zorcc.convert(src, "rgb", "ycbcr420"), plain))
    flipped = tuple(p[::-1] for p in _yuv420(40, 32))
    R.zoriRGBToYCbCr420_8u_C3P3R(src[::-1], flipped)  # row pairs are the same pairs, walked upwards
    assert all(np.array_equal(a[::-1], b) for a, b in zip(flipped, plain))
    out = np.full((34, 44, 3), 9, np.uint8)
    R.zoriRGBToYCbCr_8u_C3R(src[::-1], out[1:33, 2:42][::-1])
    assert np.array_equal(out[1:33, 2:42], zorcc.convert(src, "rgb", "ycbcr"))
    out[1:33, 2:42] = 9
    assert (out == 9).all()  # nothing outside the view was written
    half = np.zeros((32, 20, 3), np.uint8)
    R.zoriRGBToYCbCr_8u_C3R(src, half, roi=(20, 32))
    assert np.array_equal(half, zorcc.convert(np.ascontiguousarray(src[:, :20]), "rgb", "ycbcr"))


ERRORS = [  # (call, exception, text in the message)
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s.astype(np.uint16), d), TypeError, "dtype"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s.tolist(), d), TypeError, "numpy array"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s.ravel(), d), ValueError, "2-D or 3-D"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s, d[..., :2]), ValueError, "3 channels"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s, d.reshape(8, 10 * 3)[:, :29]), ValueError, "multiple of 3"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s, np.broadcast_to(d, d.shape)), ValueError, "read-only"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s[:7], d), ValueError, "smaller than"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s, d, roi=(11, 8)), ValueError, "smaller than"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s[:, ::-1], d), ValueError, "contiguous"),
    (lambda s, d: R.zoriRGBToYCbCr_8u_C3R(s, d, 1), TypeError, "takes 2 arguments"),
    (lambda s, d: R.zoriRGBToGray_16u_C3C1R(np.frombuffer(bytes(481), np.uint16, 240, 1).reshape(8, 30),
                                             np.zeros((8, 10), np.uint16)), ValueError, "aligned"),
    (lambda s, d: R.zoriRGBToYCbCr420_8u_C3P3R(s, _yuv420(10, 8)[:2]), TypeError, "tuple of 3"),
    (lambda s, d: R.zoriRGBToYCbCr420_8u_C3P3R(s[:7], _yuv420(10, 7)[:2] + (np.zeros((3, 5), np.uint8),)),
     ValueError, "plane 2 holds 5x3"),  # 7 rows have 4 chroma rows
    (lambda s, d: R.zoriYCbCrToBGR_8u_P3C4R((s[..., 0], s[..., 1].copy(), s[..., 2]), np.zeros((8, 10, 4), np.uint8), 1),
     ValueError, "contiguous"),
    (lambda s, d: R.zoriYCbCrToBGR_8u_P3C4R(tuple(np.zeros((8, 10 + i), np.uint8) for i in range(3)),
                                            np.zeros((8, 10, 4), np.uint8), 1), ValueError, "share one row step"),
    (lambda s, d: R.zoriYCbCrToBGR_8u_P3C4R(_yuv420(10, 8)[:1] * 3, np.zeros((8, 10, 4), np.uint8), 256),
     ValueError, "outside Zor8u"),
    (lambda s, d: R.zoriYCbCrToBGR_8u_P3C4R(_yuv420(10, 8)[:1] * 3, np.zeros((8, 10, 4), np.uint8), 1.5),
     TypeError, "integer"),
    (lambda s, d: R.zoriColorTwist32f_8u_C3R(s, d, np.eye(3)), ValueError, "holds 9 values, not 12"),
    (lambda s, d: R.zoriRGBToYUV420_8u_C3P3(np.ones((8, 12, 3), np.uint8)[:, :10], _yuv420(10, 8)), ValueError,
     "packed"),
    (lambda s, d: zorcc.convert(s, "rgb", "cmyk"), ValueError, "unknown format"),
    (lambda s, d: zorcc.convert(s.astype(np.float32), "rgb", "ycbcr420"), ValueError, "no function converts"),
    (lambda s, d: zorcc.set_threads(0), ValueError, "at least 1"),
]


@pytest.mark.parametrize("case", range(len(ERRORS)))
def test_bad_arguments_raise_before_the_call(case):
    call, exc, text = ERRORS[case]
    src, dst = np.ones((8, 10, 3), np.uint8), np.full((8, 10, 3), 5, np.uint8)
    with pytest.raises(exc, match=text):
        call(src, dst)
    assert (dst == 5).all()


def test_statuses_become_exceptions_and_warnings():
    src, dst = np.ones((8, 10, 3), np.uint8), np.zeros((8, 10, 3), np.uint8)
    with pytest.raises(zorcc.ZorccError, match=r"zorStsBadSize \(-6\)") as e:
        R.zoriRGBToYCbCr_8u_C3R(src, dst, roi=(0, 8))
    assert (e.value.status, e.value.name, e.value.function) == (-6, "zorStsBadSize", "zoriRGBToYCbCr_8u_C3R")
    with pytest.raises(zorcc.ZorccError, match="zorStsBadGammaRange") as e:
        R.zoriGammaFwd_32f_C3R(src.astype(np.float32), dst.astype(np.float32), 1.0, 1.0)
    assert e.value.status == -49
    with pytest.warns(zorcc.ZorccWarning, match=r"zorStsOddSizeWarning \(35\)") as w:
        planes = zorcc.convert(np.ones((7, 9, 3), np.uint8), "rgb", "ycbcr420")
    assert w[0].message.status == 35 and [p.shape for p in planes] == [(7, 9), (4, 5), (4, 5)]


def test_the_lock_is_released_during_a_call():
    zorcc.set_threads(1)
    src = np.zeros((1500, 1500, 3), np.float32)
    ticks, done = [], threading.Event()

    def tick():  # another Python thread, running whenever it holds the lock
        while not done.is_set():
            ticks.append(time.perf_counter())
            time.sleep(0.001)
    t = threading.Thread(target=tick)
    t.start()
    t0 = time.perf_counter()
    R.zoriRGBToHLS_32f_C3R(src, np.empty_like(src))
    t1 = time.perf_counter()
    done.set()
    t.join()
    # Held through the call, the lock would leave one gap as long as the call.
    gaps = np.diff([t0] + [x for x in ticks if t0 < x < t1] + [t1])
    assert gaps.max() < (t1 - t0) / 2


def test_high_level_shapes_alpha_and_out():
    rng = np.random.default_rng(2)
    rgba = rng.integers(0, 256, (6, 8, 4), dtype=np.uint8)
    hsv = zorcc.convert(rgba, "rgba", "hsv")
    ref = np.zeros_like(rgba)
    R.zoriRGBToHSV_8u_AC4R(rgba, ref)
    assert np.array_equal(hsv[..., :3], ref[..., :3]) and np.array_equal(hsv[..., 3], rgba[..., 3])
    y, cbcr = zorcc.convert(zorcc.convert(rgba[..., :3].copy(), "rgb", "ycbcr420"), "ycbcr420", "nv12")
    assert (y.shape, cbcr.shape) == ((6, 8), (3, 8))
    assert zorcc.convert((y, cbcr), "nv12", "yuy2").shape == (6, 16)
    out = np.zeros((6, 8, 3), np.uint16)
    assert zorcc.convert(rgba[..., :3].astype(np.uint16), "rgb", "xyz", out=out) is out
    ref16 = np.zeros_like(out)
    R.zoriRGBToXYZ_16u_C3R(rgba[..., :3].astype(np.uint16), ref16)
    assert np.array_equal(out, ref16)
    assert zorcc.convert(rgba[..., :3].copy(), "ycbcr", "rgb565", variant="Dither").dtype == np.uint16
    m = np.eye(3, 4, dtype=np.float32) * 0.5
    img = rgba.astype(np.float32)
    assert np.array_equal(zorcc.twist(img.copy(), m), zorcc.twist(img, m, out=img)) and img[0, 0, 3] == rgba[0, 0, 3]
    assert zorcc.gamma(img / 255, inverse=True).shape == img.shape
    assert zorcc.reduce_bits(rgba, 4, dither="bayer").dtype == np.uint8
    assert zorcc.reduce_bits(img / 255, 4, out_dtype=np.uint8).shape == (6, 8, 4)
    assert zorcc.to_gray(rgba[..., :3].copy(), weights=[1, 0, 0]).tolist() == rgba[..., 0].tolist()


def test_every_listed_conversion_runs():
    pairs = zorcc.conversions()
    assert len(pairs) > 150
    rng = np.random.default_rng(3)
    for a, b, variant, t in pairs:
        desc = zorcc.find(a, b, t, variant)
        src = image([g for g in desc["params"] if g.get("dir") == "in"][0], 16, 8, rng, pad=0)
        extra = {"layout": 1} if any(g.get("name") == "layout" for g in desc["params"]) else {}
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", zorcc.ZorccWarning)
            zorcc.convert(src, a, b, variant=variant, **extra)


def test_team_size_version_and_the_build_tree_import():
    src = np.random.default_rng(4).integers(0, 256, (64, 33, 3), dtype=np.uint8)
    results = []
    for n in (1, 3):
        zorcc.set_threads(n)
        assert zorcc.get_threads() == n
        results.append(zorcc.convert(src, "rgb", "yuy2"))
    assert all(np.array_equal(a, b) for a, b in zip(*results))
    assert zorcc.version()["version"].startswith("5.1")
    pkg = os.path.dirname(os.path.dirname(zorcc.__file__))
    run = subprocess.run([sys.executable, "-c", "import zorcc; print(zorcc.version()['version'])"],
                         env=dict(os.environ, PYTHONPATH=pkg), capture_output=True, text=True, check=True)
    assert run.stdout.strip() == zorcc.version()["version"]
