# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""check.py SOURCE_DIR LIBRARY COMPILER [EXAMPLE...]: the documentation does as it says.

Every program in a page compiles without a warning and prints what stands below it; gdb and the example
programs say what a console shows; every relative link leads to a file and a heading; the pictures are those that the
example programs draw. Commands for the shell, which are indented, are not run, except for the help of
scripts: what they name must exist, presets, options and files. Nor are fragments of CMake:
tests/consumers goes those ways; nor sessions and pictures of Python, which the tests of the module check.
"""
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

root, library = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
compiler, examples = sys.argv[3], sys.argv[4:]
sys.dont_write_bytecode = True
sys.path.append(str(root / "docs"))
from filter import pieces, slug

folder = tempfile.TemporaryDirectory()
work = pathlib.Path(folder.name)
pages = sorted(root.glob("*.md"), key=lambda page: page.name != "README.md")
pages += [*root.glob("docs/*.md"), *root.glob("examples/*/*.md")]
path = ":".join([*{str(pathlib.Path(example).parent) for example in examples}, "/usr/bin:/bin"])
programs = []
faults = 0


def run(command, **options):
    return subprocess.run(command, cwd=work, text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, **options)


def expect(true, *message):
    global faults
    if not true:
        faults += 1
        print(*message, sep="\n")


def check_program(page, code, shown):
    name = work / ("other" if programs else "program")  # the first one is what gdb runs
    name.with_suffix(".cpp").write_text(code)
    flags = ["-std=c++11", "-g", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Werror"]
    built = run([compiler, *flags, name.with_suffix(".cpp"), f"-I{root}/include", library,
                 f"-Wl,-rpath,{library.parent}", "-o", name])
    output = built.stdout if built.returncode else run([name], check=True).stdout
    programs.append(page)
    expect(output == shown, f"{page}: program {programs.count(page)} gives", output)


def check_console(page, text):
    command, shown = text[2:].split("\n", 1)
    (work / ".gdbinit").write_text(f"add-auto-load-safe-path {library.parent}\n")
    output = run(command, shell=True, env={"HOME": work, "PATH": path}).stdout
    expect(output.endswith(shown), f"{page}: the console shows", output)


def check_links(page, prose):
    for target in re.findall(r"\[[^]]+\]\(([^)]+)\)", re.sub(r"`[^`]*`", "code", prose)):
        path, _, anchor = target.partition("#")
        file = page.parent / path if path else page
        if ":" in target:
            continue
        expect(file.exists(), f"{page}: no file {target}")
        if anchor and file.exists():
            headings = re.findall(r"^#+ (.*)$", "".join(pieces(file.read_text())[::2]), flags=re.M)
            expect(anchor in map(slug, headings), f"{page}: no heading {target}")


def check_commands(page, prose):
    for code in re.findall(r"^    .*|(?<=`)[^`\n]+(?=`)", prose, flags=re.M):
        words = code.split("#")[0].split() or [""]
        for preset in re.findall(r"--preset ([\w-]+)", code):
            kind = "test" if words[0] == "ctest" else "build" if "--build" in words else "configure"
            expect(preset in presets[kind], f"{page}: no {kind} preset {preset}")
        if re.fullmatch(r"scripts/\w+\.sh", words[0]) and len(words) > 1:
            usage = run(["bash", root / words[0], "--help"]).stdout.split()
            for word in words[1:]:
                known = word.isupper() or word.strip("[].") in presets["test"] + usage
                expect(known or "." in word, f"{page}: {words[0]} takes no {word}")
        for folder, name in re.findall(r"(?<![\w/.-])(\w+|\.ci)/([\w./*-]*\w)", code):
            if folder == "build":
                made = name.split("/")[0]
                expect(made in presets["configure"] or f"build/{made}" in scripts,
                       f"{page}: nothing makes build/{made}")
            elif (root / folder).is_dir():
                found = (root / folder).glob(re.sub("FOLDER|TYPE", "*", name) + "*")
                expect([*found], f"{page}: no file {folder}/{name}")


settings = json.loads((root / "CMakePresets.json").read_text())
presets = {kind: [preset["name"] for preset in settings[kind + "Presets"]
                  if not preset.get("hidden")] for kind in ("configure", "build", "test")}
scripts = "".join(script.read_text() for script in root.glob("scripts/*.sh"))

for page in pages:
    text = pieces(page.read_text())
    for prose in text[::2]:
        check_links(page, prose)
        check_commands(page, prose)
    blocks = [re.fullmatch(r"```(\w*)\n(.*)```", code, flags=re.S).groups() for code in text[1::2]]
    while blocks:
        kind, code = blocks.pop(0)
        if kind == "cpp" and blocks and blocks[0][0] == "text":
            check_program(page, code, blocks.pop(0)[1])
        elif kind == "console":
            if "clang" not in compiler and shutil.which(code[2:].split()[0], path=path):  # types have other words
                check_console(page, code)
        else:
            expect(kind in ("cmake", "pycon"), f"{page}: nobody checks this {kind}", code)

for example in examples:
    run([example], check=True)
drawn = [file for file in work.iterdir() if file.suffix in (".png", ".svg")]
for file in drawn:
    same = file.read_bytes() == (root / "docs" / file.name).read_bytes()
    expect(same, f"docs/{file.name} is not what is drawn")
print(f"{len(pages)} pages, {len(programs)} programs, {len(drawn)} pictures, {faults} faults")
sys.exit(faults > 0)
