# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""report.py GOALS RESULTS [PICTURE]: reads the output of the programs in the folder RESULTS, checks
that the libraries agree, prints tables of the fastest times, and draws how they compare."""
import collections
import json
import math
import pathlib
import re
import sys

# Ways to link, with the program of each and that of the peers compiled with the same flags.
WAYS = {"shared": ("shared", "peers"), "inline": ("inline", "peers"), "archive": ("archive", "peers"),
        "native": ("shared", "peers_native"), "inline native": ("inline_native", "peers_native")}
MOST_OF_LIMIT = 1.10
SLOW = 10  # nanoseconds
TYPES = {"d": "double", "f": "float"}


def read_goals(path):
    """The operations by group, in order: name -> (goals by way and type, remark)."""
    groups = {}
    for line in pathlib.Path(path).read_text().splitlines():
        if line.startswith("["):
            group = groups[line.strip("[]")] = {}
        elif line and line[0] not in "#@":
            line, _, remark = line.partition("|")
            name, _, rest = line.partition("  ")
            words = iter(rest.split())
            group[name] = {(way, t): most for way in words for t, most in zip("df", words)}, remark.strip()
    return groups


def read_times(folder):
    """Nanoseconds by program, by (operation, type), by library: the least of all repetitions."""
    times = collections.defaultdict(lambda: collections.defaultdict(dict))
    sums = collections.defaultdict(dict)
    for path in sorted(pathlib.Path(folder).glob("*.json")):
        program = path.name.split(".")[0]
        for run in json.loads(path.read_text())["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            operation, letter, who = run["name"].split("/")[:3]
            who = {"_native": who}.get(program, who)
            row = times[program][operation, letter]
            row[who] = min(row.get(who, math.inf), 1e9 / run["items_per_second"])
            if "sum" in run:
                sums[operation, letter][f"{who} ({program})"] = run["sum"]
    for row, of in sums.items():
        tolerance = (1e-4 if row[1] == "f" else 1e-10) * max(map(abs, of.values()))
        if max(of.values()) - min(of.values()) > tolerance:
            sys.exit(f"{row}: the libraries disagree: {of}")
    return times


class Row:
    """An operation in one type."""

    def __init__(self, times, operation, letter, goals, remark):
        self.operation, self.letter, self.remark = operation, letter, remark
        key = operation, letter
        here = {program: rows[key] for program, rows in times.items() if key in rows}
        call = times["shared"].get(("call", "d"), {}).get("ours")
        self.ours = {way: here[program]["ours"] for way, (program, _) in WAYS.items() if program in here}
        self.limit = here.get("limits", {}).get("limit")
        self.peers = {peers: min((ns, who) for who, ns in here[peers].items())
                      for peers in ("peers", "peers_native") if peers in here}
        self.ratios = {way: ns / self.peers[WAYS[way][1]][0] for way, ns in self.ours.items()
                       if WAYS[way][1] in self.peers}
        self.goals = []  # (what, ratio, goal)
        for way in self.ours:
            most = goals.get((way, letter), "-")
            if most == "call":
                self.goals.append((f"{way}, of one call", self.ours[way] / call, MOST_OF_LIMIT))
            elif most != "-" and way in self.ratios:
                self.goals.append((way, self.ratios[way], float(most)))
        for way, calls in (("shared", call), ("archive", 0)):
            if self.limit and call and way in self.ours:
                self.goals.append((f"{way}, of the limit" + " and a call" * bool(calls),
                                   self.ours[way] / (self.limit + calls), MOST_OF_LIMIT))

    def cell(self, way):
        if way not in self.ours:
            return ""
        return f"{self.ours[way]:.2f}" + (f" ×{self.ratios[way]:.2f}" if way in self.ratios else "")

    def peer(self, program):
        return "{:.2f} {}".format(*self.peers[program]) if program in self.peers else ""


def print_tables(groups):
    columns = ["shared", "inline", "archive", "fastest peer", "limit", "inline, native", "fastest peer, native"]
    for group, rows in groups.items():
        print(f"\n| {group} | | " + " | ".join(columns) + " |\n|---|---|" + "---|" * len(columns))
        for r in rows:
            limit = f"{r.limit:.2f}" if r.limit else ""
            print(f"| {r.operation} | {r.letter} | {r.cell('shared')} | {r.cell('inline')} | {r.cell('archive')} | "
                  f"{r.peer('peers')} | {limit} | {r.cell('inline native')} | {r.peer('peers_native')} |")
    every = [(r, *goal) for rows in groups.values() for r in rows for goal in r.goals]
    missed = [(r, what, ratio, goal) for r, what, ratio, goal in every if ratio >= goal + 0.005]  # as rounded
    print(f"\nOf {len(every)} goals {len(every) - len(missed)} hold. Missed:\n")
    print("| Operation | | way | ratio | goal | why |\n|---|---|---|--:|--:|---|")
    for r, what, ratio, goal in missed:
        print(f"| {r.operation} | {r.letter} | {what} | {ratio:.2f} | {goal:.2f} | {r.remark} |")


def print_functions(path):
    """Those that take long, with the instantiation in float beside that in double."""
    rows = collections.defaultdict(dict)
    for line in path.read_text().splitlines():
        ns, name = line.split(" ", 1)
        letter = re.match(r"[A-Z]\w*?[a-z0-9]([df])[: ]", name)
        both = name[:letter.start(1)] + name[letter.end(1):] if letter else name
        rows[both][letter[1] if letter else "d"] = float(ns)
    slow = [(name, row) for name, row in rows.items() if max(row.values()) >= SLOW]
    print(f"\nOf {len(rows)} functions these take {SLOW:g} ns or more:\n\n| Function | double | float |\n|---|--:|--:|")
    for name, row in sorted(slow, key=lambda item: -max(item[1].values())):
        print(f"| `{name}` | " + " | ".join(f"{row[t]:.1f}" if t in row else "" for t in "df") + " |")


def draw(path, groups):
    import matplotlib
    matplotlib.use("svg")
    from matplotlib import pyplot

    # Each colour of the light page stands for itself and one of the dark page.
    colours = {"#1b1f23": "#e6edf3", "#ffffff": "#0d1117", "#d5d9de": "#343b44",
               "#b3470a": "#ff9a52", "#0b62a8": "#5db2ff", "#217a3c": "#56d37a"}
    ink, paper, grid, *ways = colours
    series = {"shared": (ways[0], "o", 0.2, True), "native": (ways[0], "o", 0.2, False),
              "inline": (ways[1], "D", 0, True), "inline native": (ways[1], "D", 0, False),
              "archive": (ways[2], "s", -0.2, True)}
    legend = {"shared": "shared library", "inline": "inline", "archive": "archive"}
    matplotlib.rcParams.update({"font.size": 8, "svg.fonttype": "none", "svg.hashsalt": "",
                                "font.family": "sans-serif", "text.color": ink, "axes.edgecolor": grid,
                                "xtick.color": ink, "ytick.color": ink, "axes.labelcolor": ink})
    lines = {}
    for group, rows in groups.items():
        by_name = collections.defaultdict(dict)
        for r in rows:
            if r.ratios:
                by_name[r.operation][r.letter] = r
        lines[group] = sorted(by_name.items(), key=lambda item: max(
            max(r.ratios.values()) for r in item[1].values()))
    lines = {group: named for group, named in lines.items() if named}
    top, bottom = 0.75, 0.55  # inches
    height = top + bottom + 0.2 * sum(len(named) + 1.7 for named in lines.values())
    figure, axes = pyplot.subplots(
        len(lines), 2, sharex=True, squeeze=False, figsize=(9, height), facecolor=paper,
        gridspec_kw={"height_ratios": [len(named) + 0.4 for named in lines.values()]})
    figure.subplots_adjust(0.21, bottom / height, 0.98, 1 - top / height, 0.05,
                           1.3 * len(lines) / sum(len(named) + 0.4 for named in lines.values()))
    every = [x for rows in groups.values() for r in rows for x in r.ratios.values()]
    reach = 1.2 * max(max(every), 1 / min(every))
    for (group, named), pair in zip(lines.items(), axes):
        for axis, letter in zip(pair, "fd"):
            axis.set(xscale="log", xlim=(1 / reach, reach), ylim=(-0.7, len(named) - 0.3), facecolor=paper)
            axis.set_yticks(range(len(named)),
                            [name.split(": ")[-1] * (letter == "f") for name, _ in named])
            ticks = [2.0**k for k in range(-8, 9) if 1 / reach < 2.0**k < reach]
            axis.set_xticks(ticks, [(f"{x:g}" if x >= 1 else f"1/{1 / x:g}") * (math.log2(x) % 2 == 0)
                                    for x in ticks])
            axis.set_xticks([], minor=True)
            axis.tick_params(length=0, labelbottom=group == list(lines)[-1])
            axis.grid(color=grid, linewidth=0.6)
            axis.set_axisbelow(True)
            axis.axvline(1, color=ink, linewidth=1)
            for y, (_, rows) in enumerate(named):
                for way, ratio in rows[letter].ratios.items() if letter in rows else ():
                    colour, marker, offset, filled = series[way]
                    axis.plot(ratio, y + offset, marker, color=colour, markersize=4, markeredgewidth=1.1,
                              markerfacecolor=colour if filled else "none", )
        pair[0].text(-0.015, 1, group, transform=pair[0].transAxes, fontweight="bold", ha="right", va="bottom")
    for axis, letter in zip(axes[0], "fd"):
        axis.set_title(TYPES[letter], fontsize=9, fontweight="bold", pad=6)
    figure.supxlabel("Time over that of the fastest other library: 1/2 is half as long", fontsize=8, x=0.595,
                     y=0.1 / height)
    handles = {legend[way]: pyplot.Line2D([], [], color=series[way][0], marker=series[way][1], linestyle="",
                                          markersize=5) for way in legend}
    for text, face in (("clients and others with -O2", ink), ("with -O3 -march=native", "none")):
        handles[text] = pyplot.Line2D([], [], color=ink, marker="o", linestyle="", markersize=5,
                                      markerfacecolor=face)
    figure.legend(handles.values(), handles.keys(), loc="upper center", ncol=5, frameon=False,
                  columnspacing=1.2, handletextpad=0.2)
    figure.savefig(path, metadata={"Date": None})
    text = pathlib.Path(path).read_text()
    dark = "".join(f'[style*="{part}: {light}"] {{ {part}: {colour} !important }} '
                   for light, colour in colours.items() for part in ("fill", "stroke"))
    text = text.replace("<defs>", f"<style>@media (prefers-color-scheme: dark) {{ {dark}}}</style>\n <defs>", 1)
    pathlib.Path(path).write_text(text)


def main(goals, results, picture=None):
    times = read_times(results)
    groups = {}
    for group, operations in read_goals(goals).items():
        rows = [Row(times, operation, letter, *about) for operation, about in operations.items()
                for letter in TYPES if any((operation, letter) in rows for rows in times.values())]
        if rows:
            groups[group] = rows
    print_tables(groups)
    if picture:
        print_functions(pathlib.Path(results, "functions.txt"))
        draw(picture, groups)


if __name__ == "__main__":
    main(*sys.argv[1:])
