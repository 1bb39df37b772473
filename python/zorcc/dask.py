"""Conversions mapped over the frames of a Dask array.

    import dask.array as da, zorcc, zorcc.dask
    from distributed import Client, LocalCluster
    client = Client(LocalCluster(n_workers=2))     # or Client("tcp://scheduler:8786")
    frames = da.from_array(video, chunks=(8, -1, -1, -1))      # N x H x W x 3
    ycc = zorcc.dask.map_frames(frames, zorcc.convert, "rgb", "ycbcr")
    ycc.compute()

map_frames runs fn(frame, *args, **kwargs) on every frame where the frames'
chunks live. A function that returns planes (a tuple) gives one flat buffer
per frame, the planes one after the other (the layout of I420 files).
"""

import numpy as np

__all__ = ["map_frames", "pack_planes"]


def pack_planes(result):
    """One array from a conversion's result: an array as it is, a tuple of
    planes as their samples one after the other."""
    if isinstance(result, (tuple, list)):
        return np.concatenate([np.ascontiguousarray(p).ravel() for p in result])
    return result


def _frames(block, fn, args, kwargs):
    return np.stack([pack_planes(fn(frame, *args, **kwargs)) for frame in block])


def map_frames(array, fn, *args, **kwargs):
    """Applies fn to every frame (the first axis) of a Dask array and returns
    the Dask array of the results, chunked like the frames. The array is
    rechunked to whole frames if a chunk splits one."""
    import dask
    import dask.array as da

    if array.ndim < 3:
        raise ValueError("map_frames takes an array of frames (N x H x W ...), not %d-D" % array.ndim)
    if any(len(c) > 1 for c in array.chunks[1:]):
        array = array.rechunk({i: -1 for i in range(1, array.ndim)})
    probe = pack_planes(fn(np.zeros(array.shape[1:], array.dtype), *args, **kwargs))
    parts = []
    for block, n in zip(array.to_delayed().ravel(), array.chunks[0]):
        task = dask.delayed(_frames, pure=True)(block, fn, args, kwargs)
        parts.append(da.from_delayed(task, shape=(n,) + probe.shape, dtype=probe.dtype))
    return da.concatenate(parts, axis=0)
