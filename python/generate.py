#!/usr/bin/env python3
"""Generates the binding tables of the zorcc package from the description of
the exports (the JSON that the internal program zorcc-describe prints) and
the public header.

    generate.py ZORCC_DESCRIBE zorcc.h OUT_DIR

writes OUT_DIR/raw_names.inc (the entry list compiled into the extension),
OUT_DIR/zorcc/exports.json (the parameter groups the Python layer checks
arguments against) and OUT_DIR/zorcc/_status.py (status names and values).
"""
import json
import os
import re
import subprocess
import sys


def status_names(header):
    return {int(v): n for n, v in re.findall(r"\b(zorSts\w+)\s*=\s*(-?\d+)", header)}


def write_if_changed(path, text):
    if os.path.exists(path):
        with open(path) as f:
            if f.read() == text:
                return
    with open(path, "w") as f:
        f.write(text)


def main(describe, header_path, out):
    fns = sorted(json.loads(subprocess.run([describe], check=True, capture_output=True).stdout),
                 key=lambda d: d["name"])
    with open(header_path) as f:
        header = f.read()
    os.makedirs(os.path.join(out, "zorcc"), exist_ok=True)
    write_if_changed(os.path.join(out, "raw_names.inc"),
                     "".join("ZORCC_RAW(%s)\n" % d["name"] for d in fns))
    write_if_changed(os.path.join(out, "zorcc", "exports.json"), json.dumps(fns, indent=0) + "\n")
    names = status_names(header)
    write_if_changed(os.path.join(out, "zorcc", "_status.py"),
                     '"""Status values of the library and their names in zorcc.h."""\n\nSTATUS_NAMES = {\n'
                     + "".join("    %d: %r,\n" % (v, n) for v, n in sorted(names.items())) + "}\n"
                     + "STATUS_VALUES = {n: v for v, n in STATUS_NAMES.items()}\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
