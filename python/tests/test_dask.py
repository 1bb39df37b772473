import os
import subprocess
import sys

import dask.array as da
import numpy as np
import pytest
from distributed import Client, LocalCluster

import zorcc
import zorcc.dask

EXAMPLE = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "dask_frames.py")


@pytest.fixture(scope="module")
def client():
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster) as c:
        yield c


def test_a_map_over_frames_on_two_workers_equals_a_loop(client):
    frames = np.random.default_rng(5).integers(0, 256, (7, 18, 22, 3), dtype=np.uint8)
    video = da.from_array(frames, chunks=(2, 9, -1, -1))  # split frames are joined again
    got = zorcc.dask.map_frames(video, zorcc.convert, "rgb", "ycbcr420").compute()
    loop = np.stack([zorcc.dask.pack_planes(zorcc.convert(f, "rgb", "ycbcr420")) for f in frames])
    assert got.shape == (7, 18 * 22 + 2 * 9 * 11) and np.array_equal(got, loop)
    assert len(client.scheduler_info()["workers"]) == 2
    hsv = zorcc.dask.map_frames(video, zorcc.convert, "rgb", "hsv").compute()
    assert np.array_equal(hsv, np.stack([zorcc.convert(f, "rgb", "hsv") for f in frames]))


def test_the_example_converts_y4m_to_png_and_back(tmp_path):
    sys.path.insert(0, os.path.dirname(EXAMPLE))
    import dask_frames as ex
    rgb = np.random.default_rng(6).integers(0, 256, (3, 10, 12, 3), dtype=np.uint8)
    os.makedirs(tmp_path / "in")
    for i, f in enumerate(rgb):
        ex.write_png(str(tmp_path / "in" / ("%d.png" % i)), f)
    assert np.array_equal(ex.read_png(str(tmp_path / "in" / "1.png")), rgb[1])
    env = dict(os.environ, PYTHONPATH=os.pathsep.join(sys.path))
    for args in (["in", "clip.y4m"], ["clip.y4m", "out"]):
        subprocess.run([sys.executable, EXAMPLE, *args, "--workers", "1"], cwd=tmp_path, env=env, check=True,
                       capture_output=True)
    frames, w, h, _ = ex.read_y4m(str(tmp_path / "clip.y4m"))
    assert (frames.shape, w, h) == ((3, 180), 12, 10)
    y, cb, cr = ex.i420_planes(frames[2], w, h)
    assert all(np.array_equal(a, b) for a, b in zip((y, cb, cr), zorcc.convert(rgb[2], "rgb", "ycbcr420")))
    assert np.array_equal(ex.read_png(str(tmp_path / "out" / "frame00002.png")), ex.i420_to_rgb(frames[2], w, h))
