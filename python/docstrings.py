# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""docstrings.py OUTPUT HEADER...: the comments of the headers, as the table of docstrings in C++."""
import json
import pathlib
import re
import sys

comments = {}


def keep(name, lines):
    text = "\n".join(lines).strip()
    if text and text not in comments.setdefault(name, []):
        comments[name].append(text)


def read(header):
    owner, lines, declaration, trailing = "", [], "", []
    for line in header.read_text().splitlines():
        code, _, after = line.partition("///< ")
        stripped = code.strip()
        if stripped.startswith("///"):
            # A line about a group belongs to none of its members.
            lines = [] if re.search(r"@[{}n]", stripped) else [*lines, stripped[3:].removeprefix(" ")]
            continue
        if stripped.startswith("//"):
            continue
        if not stripped or stripped in ("public:", "private:"):
            lines = lines if stripped else []
            continue
        if after:
            trailing.append(after)
        opened = re.match(r"(?:class|struct|namespace) (?:KY_API )?(\w+)[^;]*{$", stripped)
        if opened:
            owner = opened[1].removesuffix("T") if opened[1] not in ("KyMath", "Ky") else ""
            keep(owner or "kymath", lines)
            lines, declaration = [], ""
        elif stripped.startswith("}"):
            owner, declaration = "", ""
        else:
            declaration += " " + stripped
            if stripped.endswith((";", "}", ",")) and declaration.count("(") == declaration.count(")"):
                name = re.search(r"(\w+)\s*\(", declaration)
                if name and "DELETED" not in declaration:
                    keep(f"{owner or 'kymath'}.{name[1]}", lines + trailing)
                declaration, lines, trailing = "", [], []


output, *headers = map(pathlib.Path, sys.argv[1:])
for header in headers:
    read(header)
table = ((name, "\n\n".join(texts)) for name, texts in sorted(comments.items()))
output.write_text("".join(f"{{{json.dumps(name)}, {json.dumps(text)}}},\n" for name, text in table))
