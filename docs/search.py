# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""search.py HTML_DIR: lets the search of the pages that Doxygen made find what they are about.

Doxygen finds declarations, and pages by the first words of their titles. This adds the headings of all
pages, the terms that they explain, which stand in bold at the head of a paragraph or in the first column
of a table, and each of their later words. It fails if what users look for first is not found, and if a
heading leads nowhere.
"""
import html
import pathlib
import re
import sys

from filter import name, pieces, slug

TOPICS = """
thresholds, tolerance, OpenGL, Vulkan, Direct3D, viewport, handedness, memory, row, Euler, yaw, gyroscope, slerp,
quaternion, glTF, USD, ROS, Blender, BVH, accuracy, overflow, threads, alignment, sizes, print, store, hash,
troubleshooting, mirrored, culled, uninstall, install, compilers, Fedora, options, pkg-config, ray, pick, camera, depth, mask, curve,
NaN, Eigen, GLM, Imath, Python, arrays
""".replace("\n", " ").split(",")
OF_THE_PROJECT = "architecture performance reliability versioning".split()  # only their headings
COMMON = "a an and are as at by for from how in is it not of on or that the this to what with you".split()


def terms(text):
    """What a section explains, beside its heading."""
    text = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", text)
    yield from re.findall(r"^(?:- )?\*\*(.*?)\*\*", text, flags=re.M | re.S)
    yield from re.findall(r"^\| *([^|\n]*[^|\s-]) *\|", text, flags=re.M)


def plain(text):
    return re.sub(r"<.*?>|[`*]", "", " ".join(text.split())).rstrip(".:,;")


def found():
    """(what, page and section, where) of all pages."""
    for path in sorted(pathlib.Path("docs").glob("*.md")) + [pathlib.Path("README.md")]:
        title, heading, anchor = "", "", ""
        for piece in re.split(r"^(#+ .*)$", "".join(pieces(path.read_text())[::2]), flags=re.M):
            if piece.startswith("#"):
                heading = plain(piece.lstrip("# "))
                title = title or heading
                anchor = "" if piece.startswith("# ") else f"#{path.stem}-{slug(piece.lstrip('# '))}"
            target = f"../{name(path)}.html{anchor}"
            explained = [] if path.stem in OF_THE_PROJECT else terms(piece)
            for term in [heading] if piece.startswith("#") else explained:
                if plain(term):
                    yield plain(term), title if heading in (title, plain(term)) else f"{title}: {heading}", target


def identifier(text):
    """The name by which search.js looks up what was typed."""
    def code(c):
        return c if re.match(r"[a-z0-9\u0080-\uffff]", c) else f"_{ord(c):02x}"
    return "".join(map(code, text.lower()))


def main(folder):
    data = folder / "searchdata.js"
    letters = re.search(r'0: "(.*)"', data.read_text())[1]
    entries = {}
    for what, where, target in dict.fromkeys(found()):
        page, _, anchor = target[3:].partition("#")
        if f'id="{anchor}"' not in (folder.parent / page).read_text() and anchor:
            sys.exit(f"docs/search.py: {page} has no section {anchor}")
        for begin in [match.start() for match in re.finditer(r"(?<![\w'])\w", what)]:
            if what[begin:].split()[0].lower() in COMMON and begin > 0:
                continue
            key = identifier(what[begin:])
            entry = [html.escape(what), [target, 1, html.escape(where)]]
            entries.setdefault(what[begin].lower(), []).append(f"  ['{key}_s',{entry!r}]")
    for letter, lines in entries.items():
        if letter not in letters:
            page = (folder / "all_0.html").read_text()
            (folder / f"all_{len(letters):x}.html").write_text(page.replace("all_0", f"all_{len(letters):x}"))
            letters += letter
        script = folder / f"all_{letters.index(letter):x}.js"
        known = script.read_text().splitlines()[2:-1] if script.exists() else []
        rows = sorted({line.rstrip(",") for line in known} | set(lines))
        script.write_text("var searchData=\n[\n" + ",\n".join(rows) + "\n];\n")
    data.write_text(re.sub(r'0: ".*"', f'0: "{letters}"', data.read_text()))

    for topic in TOPICS:
        topic = identifier(topic.strip())
        script = (folder / f"all_{letters.index(topic[0]):x}.js").read_text()
        if f"\n  ['{topic}" not in script:
            sys.exit(f"docs/search.py: the search does not find {topic}")


main(pathlib.Path(sys.argv[1]) / "search")
