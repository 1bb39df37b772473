#!/usr/bin/env python3
"""Chart and Markdown table of the side-by-side benchmark of the conversions
(written by scripts/bench.sh from the CSV of bench_side_by_side), and the
short table of the README between its bench markers.

Per case and series (the CPU targets, and `before`, the library before its
vector kernels): the time, the time over a memcpy of the same traffic and
the time over the faster peer.
"""
import argparse
import csv
import datetime
import os
import statistics

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
from matplotlib import ticker  # noqa: E402

SERIES = ["before", "scalar", "sse4", "avx2", "avx512", "neon"]
COLOURS = {"before": "#9e9e9e", "scalar": "#4c72b0", "sse4": "#55a868",
           "avx2": "#c44e52", "avx512": "#8172b2", "neon": "#ccb974"}


def number(text):
    return float(text) if text else None


def load(path):
    """Cases in order of appearance, series in SERIES order, and the rows by
    (case, series)."""
    cases, functions, rows, seen = [], {}, {}, set()
    with open(path, newline="") as f:
        for r in csv.DictReader(f):
            case = r["case"]
            if case not in functions:
                cases.append(case)
                functions[case] = r["function"]
                FAMILIES[case] = r.get("family") or ""
            seen.add(r["target"])
            rows[(case, r["target"])] = {k: number(r[k + "_ms"]) for k in ("zorcc", "memcpy", "libyuv", "opencv")}
    series = [s for s in SERIES if s in seen] + sorted(seen - set(SERIES))
    return cases, functions, series, rows


def best_peer(row):
    peers = [v for v in (row["libyuv"], row["opencv"]) if v]
    return min(peers) if peers else None


def ratios(row):
    """(x memcpy, x best peer) of one measured row; None where not known."""
    if not row or not row["zorcc"]:
        return None, None
    peer = best_peer(row)
    return (row["zorcc"] / row["memcpy"] if row["memcpy"] else None,
            row["zorcc"] / peer if peer else None)


def cpu_model():
    model, count = "unknown processor", 0
    try:
        with open("/proc/cpuinfo") as f:
            for line in f:
                key, _, value = line.partition(":")
                key = key.strip()
                if key == "model name" and model == "unknown processor":
                    model = value.strip()
                elif key == "processor":
                    count += 1
    except OSError:
        pass
    return model, count


def fmt(v, digits=2):
    return "-" if v is None else f"{v:.{digits}f}"


def median_of(rows, case, series, key):
    values = [rows[(case, s)][key] for s in series if (case, s) in rows and rows[(case, s)][key]]
    return statistics.median(values) if values else None


def chart(cases, series, rows, png):
    n = len(cases)
    fig, axes = plt.subplots(1, 2, sharey=True, figsize=(14, max(6.0, 0.3 * n + 1.5)))
    height = 0.8 / len(series)
    for panel, (ax, title) in enumerate(zip(axes, ["zorcc time / memcpy of the same traffic",
                                                   "zorcc time / faster peer (libyuv, OpenCV)"])):
        for k, s in enumerate(series):
            ys, xs = [], []
            for i, case in enumerate(cases):
                value = ratios(rows.get((case, s)))[panel]
                if value:
                    ys.append(i + (k - (len(series) - 1) / 2) * height)
                    xs.append(value)
            ax.barh(ys, xs, height=height, color=COLOURS.get(s, None), label=s)
        ax.axvline(1.0, color="black", linewidth=0.8)
        ax.set_xscale("log")
        ax.xaxis.set_major_locator(ticker.LogLocator(subs=(1.0, 2.0, 5.0)))
        ax.xaxis.set_major_formatter(ticker.FormatStrFormatter("%g"))
        ax.xaxis.set_minor_formatter(ticker.NullFormatter())
        ax.set_title(title)
        ax.grid(axis="x", which="both", linewidth=0.3)
        ax.set_xlabel("ratio (log scale; lower is better)")
    axes[0].set_yticks(range(n))
    axes[0].set_yticklabels(cases, fontsize=8)
    axes[0].set_ylim(n - 0.5, -0.5)
    axes[1].legend(loc="lower right")
    fig.suptitle("Conversions, 1920x1080, one thread, CPU time (median)")
    fig.tight_layout(rect=(0, 0, 1, 1 - 0.4 / fig.get_figheight()))
    fig.savefig(png, dpi=80)


def markdown(cases, functions, series, rows, args):
    model, count = cpu_model()
    date = datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d")
    notes, peers = [], ""
    if args.notes and os.path.exists(args.notes):
        with open(args.notes) as f:
            for line in f:
                line = line.rstrip("\n")
                if line.startswith("note: "):
                    notes.append(line[len("note: "):])
                elif line.startswith("peers: "):
                    peers = line[len("peers: "):]
    has_peer = [c for c in cases if any(best_peer(rows[(c, s)]) for s in series if (c, s) in rows)]
    alone = [c for c in cases if c not in has_peer]
    targets = [s for s in series if s != "before"]

    def cell(case, s):
        row = rows.get((case, s))
        if not row or not row["zorcc"]:
            return "-"
        by_copy, by_peer = ratios(row)
        text = f"{row['zorcc']:.2f} / {fmt(by_copy, 1)}x"
        return text + (f" / {fmt(by_peer)}x" if by_peer else "")

    def versus_before(case):
        now, then = rows.get((case, "scalar")), rows.get((case, "before"))
        if not now or not then or not now["zorcc"] or not then["zorcc"]:
            return None
        return now["zorcc"] / then["zorcc"]

    out = ["# Conversions side by side", ""]
    out.append(f"Measured {date} on {model} ({count} logical processors, shared), commit {args.commit}. "
               f"1920x1080 frames, one thread, CPU time of the calling thread, median of {args.runs} timed runs "
               f"after a warm-up" + (f"; peers: {peers}." if peers else "."))
    out.append("")
    out.append("Each cell: zorcc ms / times a memcpy of the same traffic ((bytes read + bytes written) / 2, "
               "timed in the same run) / times the faster peer. Lower is better; below 1x the peer is beaten. "
               "The peers compute with their own coefficients: same bytes, same shape of job. memcpy is bound by "
               "the memory bandwidth, which the machine's other work shares, so its time and the ratios to it "
               "vary more from run to run than the conversions' times.")
    if "before" in series:
        out.append("")
        out.append(f"`before` is the library at {args.before}, before the vector kernels (scalar code only); "
                   + ", ".join(f"`{t}`" for t in targets)
                   + " are the CPU targets of this build, pinned with ZOR_CPU. "
                   "`scalar/before` is the scalar target's time over the time before (1.00: no slower).")
        changes = [v for v in (versus_before(c) for c in cases) if v]
        if changes:
            worst = max(cases, key=lambda c: versus_before(c) or 0)
            out.append("")
            out.append(f"scalar/before over all {len(changes)} cases: median {statistics.median(changes):.2f}, "
                       f"highest {max(changes):.2f} ({worst}).")
            slower = [f"{c} {versus_before(c):.2f}" for c in cases if (versus_before(c) or 0) > 1.1]
            if slower:
                out.append("More than 10% slower than before at the scalar target: " + ", ".join(slower) + ".")
    vb = "before" in series and "scalar" in series

    out += ["", "## Conversions that a peer also does", ""]
    head = ["Case", "zorcc function", "memcpy ms", "libyuv ms", "OpenCV ms"] + series + (["scalar/before"] if vb else [])
    out.append("| " + " | ".join(head) + " |")
    out.append("|" + "|".join(["---"] * 2 + ["---:"] * (len(head) - 2)) + "|")
    for c in has_peer:
        line = [c, f"`{functions[c]}`", fmt(median_of(rows, c, series, "memcpy")),
                fmt(median_of(rows, c, series, "libyuv")), fmt(median_of(rows, c, series, "opencv"))]
        line += [cell(c, s) for s in series] + ([fmt(versus_before(c))] if vb else [])
        out.append("| " + " | ".join(line) + " |")

    out += ["", "## Other conversion shapes (no peer)", ""]
    head = ["zorcc function", "memcpy ms"] + series + (["scalar/before"] if vb else [])
    out.append("| " + " | ".join(head) + " |")
    out.append("|" + "|".join(["---"] + ["---:"] * (len(head) - 1)) + "|")
    for c in alone:
        line = [f"`{functions[c]}`", fmt(median_of(rows, c, series, "memcpy"))]
        line += [cell(c, s) for s in series] + ([fmt(versus_before(c))] if vb else [])
        out.append("| " + " | ".join(line) + " |")

    if notes:
        out += ["", "## Notes", ""] + [f"- {n}" for n in notes]
    out += ["", f"![Ratios to memcpy and to the faster peer]({os.path.basename(args.png)})", ""]
    with open(args.md, "w") as f:
        f.write("\n".join(out))


# The family of each case, from the CSV (empty in files written before it
# had the column).
FAMILIES = {}

README_BEGIN = "<!-- bench table: written by scripts/bench.sh -->"
README_END = "<!-- end of bench table -->"


def readme_table(cases, functions, series, rows, args):
    """The README's short table: every case with a peer, as ratios per CPU
    target, then the cases without a peer, one line per family."""
    targets = [s for s in series if s != "before"]
    best = targets[-1] if targets else None
    model, _ = cpu_model()
    date = datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d")
    out = [README_BEGIN, "",
           f"Measured {date} on {model}, commit {args.commit}: 1920x1080, one thread, CPU time, median of "
           f"{args.runs} runs. Each cell is zorcc's time over a memcpy of the same traffic; the last column is "
           f"zorcc's time at {best} over the faster peer's (below 1 the peer is beaten). Every case and "
           "time: [docs/bench.md](docs/bench.md).", ""]
    head = ["Case"] + [f"x memcpy {t}" for t in targets] + [f"x peer ({best})"]
    out.append("| " + " | ".join(head) + " |")
    out.append("|---|" + "|".join(["---:"] * (len(head) - 1)) + "|")
    alone = []
    for c in cases:
        row = rows.get((c, best))
        if not row or not best_peer(row):
            alone.append(c)
            continue
        line = [c] + [fmt(ratios(rows.get((c, t)))[0]) for t in targets] + [fmt(ratios(row)[1])]
        out.append("| " + " | ".join(line) + " |")
    families = []
    for c in alone:
        if FAMILIES.get(c, "") not in families:
            families.append(FAMILIES.get(c, ""))
    for family in families:
        members = [c for c in alone if FAMILIES.get(c, "") == family]
        name = f"{family}: " if family else ""
        line = [f"{name}{len(members)} cases without a peer, median (worst)"]
        for t in targets:
            values = [(ratios(rows.get((c, t)))[0], c) for c in members]
            values = [v for v in values if v[0]]
            if not values:
                line.append("-")
                continue
            worst = max(values)
            line.append(f"{statistics.median(v for v, _ in values):.2f} ({worst[0]:.1f})")
        out.append("| " + " | ".join(line + ["-"]) + " |")
    out += ["", README_END]
    with open(args.readme) as f:
        text = f.read()
    begin, end = text.find(README_BEGIN), text.find(README_END)
    if begin < 0 or end < begin:
        raise SystemExit(f"{args.readme} has no bench markers")
    with open(args.readme, "w") as f:
        f.write(text[:begin] + "\n".join(out) + text[end + len(README_END):])


def main():
    p = argparse.ArgumentParser(description=__doc__)
    p.add_argument("--csv", required=True, help="merged CSV of every series")
    p.add_argument("--png", required=True)
    p.add_argument("--md", required=True)
    p.add_argument("--notes", help="program output with the note: and peers: lines")
    p.add_argument("--commit", default="unknown", help="commit measured")
    p.add_argument("--before", default="the earlier commit", help="commit of the before series")
    p.add_argument("--runs", default="the", help="timed runs per case")
    p.add_argument("--readme", help="file whose bench markers receive the short table")
    args = p.parse_args()
    cases, functions, series, rows = load(args.csv)
    chart(cases, series, rows, args.png)
    markdown(cases, functions, series, rows, args)
    if args.readme:
        readme_table(cases, functions, series, rows, args)


if __name__ == "__main__":
    main()
