#!/usr/bin/env python3
"""Converts the frames of a video on a Dask cluster with zorcc.

    dask_frames.py clip.y4m out_png/           4:2:0 Y4M -> one RGB PNG per frame
    dask_frames.py frames_png/ clip.y4m        a folder of PNGs -> 4:2:0 Y4M

By default the work runs on a LocalCluster of two workers on this machine;
--scheduler tcp://host:8786 sends it to a running cluster instead (its workers
need the zorcc package importable). The Y4M reader and the PNG reader and
writer below use numpy and the standard library's zlib only.
"""
import argparse
import os
import struct
import sys
import zlib

import numpy as np

import zorcc
import zorcc.dask

# ---------------------------------------------------------------------------
# Y4M (4:2:0, 8 bits)


def read_y4m(path):
    """(frames as N x (H * W * 3/2) uint8 I420 buffers, width, height, header)."""
    with open(path, "rb") as f:
        data = f.read()
    end = data.index(b"\n")
    header = data[:end].split()
    if header[0] != b"YUV4MPEG2":
        raise ValueError("%s is not a Y4M file" % path)
    tags = {t[:1]: t[1:] for t in header[1:]}
    w, h = int(tags[b"W"]), int(tags[b"H"])
    if not tags.get(b"C", b"420").startswith(b"420"):
        raise ValueError("only 4:2:0 Y4M is read here (C%s)" % tags[b"C"].decode())
    size = w * h + 2 * ((w + 1) // 2) * ((h + 1) // 2)
    frames, pos = [], end + 1
    while pos < len(data):
        pos = data.index(b"\n", pos) + 1  # FRAME[ params]\n
        frames.append(np.frombuffer(data, np.uint8, size, pos))
        pos += size
    return np.stack(frames), w, h, data[:end]


def write_y4m(path, frames, w, h):
    with open(path, "wb") as f:
        f.write(b"YUV4MPEG2 W%d H%d F25:1 Ip A1:1 C420jpeg\n" % (w, h))
        for fr in frames:
            f.write(b"FRAME\n")
            f.write(np.ascontiguousarray(fr).tobytes())


def i420_planes(buf, w, h):
    cw, ch = (w + 1) // 2, (h + 1) // 2
    y = buf[: w * h].reshape(h, w)
    cb = buf[w * h: w * h + cw * ch].reshape(ch, cw)
    cr = buf[w * h + cw * ch:].reshape(ch, cw)
    return y, cb, cr


# ---------------------------------------------------------------------------
# PNG (8-bit gray, RGB or RGBA, not interlaced)


def _chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def write_png(path, rgb):
    h, w, n = rgb.shape
    raw = np.zeros((h, 1 + w * n), np.uint8)  # filter byte 0 on every row
    raw[:, 1:] = rgb.reshape(h, w * n)
    kind = {1: 0, 3: 2, 4: 6}[n]
    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", struct.pack(">IIBBBBB", w, h, 8, kind, 0, 0, 0))
                + _chunk(b"IDAT", zlib.compress(raw.tobytes(), 6)) + _chunk(b"IEND", b""))


def read_png(path):
    with open(path, "rb") as f:
        data = f.read()
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("%s is not a PNG file" % path)
    pos, idat = 8, b""
    while pos < len(data):
        n, kind = struct.unpack(">I4s", data[pos: pos + 8])
        body = data[pos + 8: pos + 8 + n]
        if kind == b"IHDR":
            w, h, depth, color, _, _, interlace = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            idat += body
        pos += 12 + n
    if depth != 8 or interlace or color not in (0, 2, 6):
        raise ValueError("%s: only 8-bit gray, RGB and RGBA PNGs without interlace are read" % path)
    bpp = {0: 1, 2: 3, 6: 4}[color]
    rows = np.frombuffer(zlib.decompress(idat), np.uint8).reshape(h, 1 + w * bpp)
    out = np.zeros((h, w * bpp), np.int32)
    prev = np.zeros(w * bpp, np.int32)
    for y in range(h):
        ftype, line = rows[y, 0], rows[y, 1:].astype(np.int32)
        if ftype == 0:
            cur = line
        elif ftype == 2:
            cur = (line + prev) & 255
        elif ftype == 1:  # Sub: a running sum per channel
            cur = np.cumsum(line.reshape(w, bpp), axis=0).ravel() & 255
        else:  # Average, Paeth: pixel by pixel
            cur = line.copy()
            for x in range(w * bpp):
                a = cur[x - bpp] if x >= bpp else 0
                b, c = prev[x], prev[x - bpp] if x >= bpp else 0
                if ftype == 3:
                    cur[x] = (cur[x] + (a + b) // 2) & 255
                else:
                    p = a + b - c
                    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                    cur[x] = (cur[x] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        out[y], prev = cur, cur
    img = out.astype(np.uint8).reshape(h, w, bpp)
    return np.repeat(img, 3, axis=2) if bpp == 1 else img[..., :3]


# ---------------------------------------------------------------------------
# The conversions that run on the workers: one frame in, one frame out.


def i420_to_rgb(buf, w, h):
    planes = i420_planes(buf, w, h)
    return zorcc.convert(zorcc.convert(planes, "ycbcr420", "ycbcr422"), "ycbcr422", "rgb")


def rgb_to_i420(rgb):
    return zorcc.convert(rgb, "rgb", "ycbcr420")  # planes; map_frames packs them


def main(argv=None):
    ap = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    ap.add_argument("source", help="a 4:2:0 .y4m file or a folder of .png files")
    ap.add_argument("destination", help="a folder for PNGs (from Y4M) or a .y4m file (from PNGs)")
    ap.add_argument("--scheduler", help="address of a running Dask scheduler (default: a local cluster)")
    ap.add_argument("--workers", type=int, default=2, help="workers of the local cluster")
    ap.add_argument("--frames-per-chunk", type=int, default=4)
    a = ap.parse_args(argv)

    import dask.array as da
    from distributed import Client, LocalCluster

    if a.scheduler:
        client = Client(a.scheduler)
    else:
        client = Client(LocalCluster(n_workers=a.workers, threads_per_worker=1, dashboard_address=None))
    with client:
        if os.path.isdir(a.source):
            names = sorted(n for n in os.listdir(a.source) if n.lower().endswith(".png"))
            frames = np.stack([read_png(os.path.join(a.source, n)) for n in names])
            n, h, w, _ = frames.shape
            video = da.from_array(frames, chunks=(a.frames_per_chunk, -1, -1, -1))
            write_y4m(a.destination, zorcc.dask.map_frames(video, rgb_to_i420).compute(), w, h)
        else:
            frames, w, h, _ = read_y4m(a.source)
            video = da.from_array(frames, chunks=(a.frames_per_chunk, -1))[:, None, :]  # N x 1 x size
            rgb = zorcc.dask.map_frames(video, lambda f: i420_to_rgb(f[0], w, h)).compute()
            os.makedirs(a.destination, exist_ok=True)
            for i, fr in enumerate(rgb):
                write_png(os.path.join(a.destination, "frame%05d.png" % i), fr)
            n = len(rgb)
    print("%d frames of %dx%d -> %s" % (n, w, h, a.destination))
    return 0


if __name__ == "__main__":
    sys.exit(main())
