# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""search.py HTML_DIR: lets the search of the pages that Doxygen made find what they are about.

Doxygen finds declarations, and pages by the first words of their titles. This adds the headings of all
pages and the terms that they explain, which stand in bold at the head of a paragraph or in the first column
of a table, by any of their words, and those of section and page. It fails if what users look for first is
not found, and if a heading leads nowhere.
"""
import html
import pathlib
import re
import sys

from filter import name, pieces, slug

TOPICS = """
thresholds, tolerance, OpenGL depth, Vulkan, Direct3D upload, viewport, far bound, handedness, memory order, row,
Euler orders, yaw, quaternion gyroscope, slerp, blend, glTF, USD, ROS, Blender, BVH, accuracy, overflow lengths,
threads, alignment, sizes, print, store, hash, troubleshooting, mirrored, culled, uninstall, install, compilers,
Fedora, options, pkg-config, ray pick, camera, depth, mask, curve, NaN, Eigen, GLM, Imath, Python arrays
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
                    section = title if heading in (title, plain(term)) else f"{title}: {heading}"
                    yield plain(term), "" if plain(term) == title else section, target


def identifier(text):
    """The name by which search.js looks up what was typed."""
    def code(c):
        return c if re.match(r"[a-z0-9\u0080-\uffff]", c) else f"_{ord(c):02x}"
    return "".join(map(code, text.lower()))


def rows(folder):
    """Lines of search data, by their first letter."""
    entries = {}
    for what, where, target in dict.fromkeys(found()):
        page, _, anchor = target[3:].partition("#")
        if f'id="{anchor}"' not in (folder.parent / page).read_text() and anchor:
            sys.exit(f"docs/search.py: {page} has no section {anchor}")
        words = f"{what} {where}" if ": " not in where else what  # of headings, also by the page
        for begin in [match.start() for match in re.finditer(r"(?<![\w'])\w", words)]:
            if words[begin:].split()[0].lower() in COMMON and begin > 0:
                continue
            key = identifier(f"{words[begin:]} {words[:begin]}{where}")
            entry = [html.escape(what), [target, 1, html.escape(where)]]
            entries.setdefault(words[begin].lower(), []).append(f"  ['{key}_s',{entry!r}]")
    return entries


def add(folder, entries):
    data = folder / "searchdata.js"
    letters = re.search(r'0: "(.*)"', data.read_text())[1]
    for letter, lines in entries.items():
        if letter not in letters:
            page = (folder / "all_0.html").read_text()
            (folder / f"all_{len(letters):x}.html").write_text(page.replace("all_0", f"all_{len(letters):x}"))
            letters += letter
        script = folder / f"all_{letters.index(letter):x}.js"
        known = script.read_text().splitlines()[2:-1] if script.exists() else []
        lines = sorted({line.rstrip(",") for line in known} | set(lines))
        script.write_text("var searchData=\n[\n" + ",\n".join(lines) + "\n];\n")
    data.write_text(re.sub(r'0: ".*"', f'0: "{letters}"', data.read_text()))


def match_words(script):
    """What was typed need not be the beginning: only its first word, and the others anywhere."""
    text = script.read_text()
    beginning = "rowMatchName.substr(0, search.length)==search"
    words = """search.split("_20").every(function(word, n) {
               var at = rowMatchName.indexOf(word);
               return n == 0 ? at == 0 : at > 0;
             })"""
    if beginning not in text:
        sys.exit("docs/search.py: search.js of this version of Doxygen compares in another way")
    script.write_text(text.replace(beginning, words))


def main(folder):
    entries = rows(folder)
    add(folder, entries)
    match_words(folder / "search.js")
    keys = re.findall(r"^  \['(.*?)'", "\n".join(script.read_text() for script in folder.glob("all_*.js")), flags=re.M)
    for topic in TOPICS:
        first, *others = identifier(topic.strip()).split("_20")
        if not any(key.startswith(first) and all(word in key for word in others) for key in keys):
            sys.exit(f"docs/search.py: the search does not find {topic.strip()}")


main(pathlib.Path(sys.argv[1]) / "search")
