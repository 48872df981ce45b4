# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""filter.py FILE: prints a header or page as Doxygen is to read it.

Of a page, headings get the names that a forge gives them, so that links find them, and links to files
that are not pages lead to copies beside the pages. Of a header, what only compilers need is left out.
"""
import pathlib
import re
import sys


def slug(heading):
    """The name that a forge gives to a heading."""
    return re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")


def pieces(text):
    """Prose and fenced code of a page, in turns."""
    return re.split(r"^(```.*?^```)$", text, flags=re.M | re.S)


def link(page, match):
    text, target = match.groups()
    path, _, anchor = target.partition("#")
    if ":" in target:
        return match[0]
    if anchor:
        return f"[{text}](#{pathlib.Path(path or page).stem}-{anchor})"
    if path.endswith(".md"):
        return match[0]
    return f'<a href="{pathlib.Path(path).name}">{text}</a>'


def page(path):
    def prose(text):
        # Doxygen emphasises nothing that begins with code or a bracket.
        text = re.sub(r"\*\*(`[^*]*)\*\*", r"<b>\1</b>", text)
        text = re.sub(r"\*([(`][^*]*)\*", r"<em>\1</em>", text)
        text = re.sub(r"(?<!!)\[([^]]*)\]\(([^)]*)\)", lambda m: link(path, m), text)
        return re.sub(r"^(#+) (.*)$", heading, text, flags=re.M)

    def heading(match):
        if match[1] != "#":
            return f"{match[0]} {{#{path.stem}-{slug(match[2])}}}"
        return f"# %{match[2]} {{#{'mainpage' if path.samefile('README.md') else path.stem}}}"

    text = re.sub(r"\A<!--.*?-->\n", "", path.read_text(), flags=re.S)
    return "".join(t if t.startswith("```") else prose(t) for t in pieces(text))


def header(path):
    text = re.sub(r"^template <>\nconst .*\n", "", path.read_text(), flags=re.M)
    text = text.replace(", typename internal::NotAQuaternion<U>::type = 0", "")
    return text.replace(" . ", " \u00b7 ")  # a dot product, not the end of a sentence


if __name__ == "__main__":
    path = pathlib.Path(sys.argv[1])
    print(page(path) if path.suffix == ".md" else header(path), end="")
