#!/usr/bin/env python3
"""Holds the source files to the table of folders, cmake/folders.txt.

Fails on an include that runs upward or cannot be resolved, on one that reaches into the component from
outside (cmake/inner_headers.txt), on a circle between files, on two files of one name, and when the
table in docs/architecture.md is not that of the folders (--write brings it up to date). It
also tells how many lines the tests have to a hundred of the program.
"""
import collections
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ROOT / "cmake/folders.txt"
DOCUMENT = ROOT / "docs/architecture.md"
# What host/ and apps/ may see of the component: its public headers.
PUBLIC = {"src/platform", "src/contract", "src/control"}
INNER = {line for line in (ROOT / "cmake/inner_headers.txt").read_text().splitlines() if line[:4] == "src/"}
MARKS = ("<!-- folders -->\n", "<!-- /folders -->")
Row = collections.namedtuple("Row", "folder below text")


def read_rows():
    lines = (line for line in FOLDERS.read_text().splitlines() if line and line[0] != "#")
    for line in lines:
        folder, below, _, text = (part.strip() for part in line.split("|"))
        yield Row(folder, below.split(), text)


ROWS = list(read_rows())


def reach():
    """Folder -> all folders it may include, following the rows from the lowest up."""
    allowed = {}
    for row in ROWS:
        allowed[row.folder] = {row.folder}.union(*(allowed[other] for other in row.below))
    for folder, names in allowed.items():
        if not folder.startswith("src/"):
            names |= PUBLIC
    return allowed


ALLOWED = reach()


def folder_of(path):
    return max((f for f in ALLOWED if path.startswith(f + "/")), key=len, default=None)


def tracked(*patterns):
    listed = subprocess.run(["git", "ls-files", "--", *patterns], cwd=ROOT, capture_output=True,
                            text=True, check=True)
    return [name for name in listed.stdout.split() if (ROOT / name).exists()]


def includes(name):
    return re.findall(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', (ROOT / name).read_text(), re.M)


def resolve(name, include):
    """The file that an include in quotes means, looked for as the compiler does."""
    program = re.match(r"apps/[a-z]+/", name)
    bases = [pathlib.Path(name).parent, pathlib.Path("src"), pathlib.Path()]
    if program:
        bases.append(pathlib.Path(program[0]))
    for base in bases:
        if (ROOT / base / include).is_file():
            return (base / include).as_posix()
    return None


def faults_of(name, graph):
    folder = folder_of(name)
    if folder is None:
        yield f"{name}: no folder above it has a row in {FOLDERS.name}"
        return
    for mark, include in includes(name):
        if mark == "<":
            if name.startswith("src/") and not re.fullmatch(r"[a-z_0-9]+", include):
                yield f"{name}: <{include}> is not of the standard library"
            continue
        target = resolve(name, include)
        if target is None:
            if not include.endswith(".moc"):
                yield f'{name}: "{include}" is nowhere'
            continue
        graph[name].append(target)
        if folder_of(target) not in ALLOWED[folder]:
            yield f'{name}: "{include}" runs upward'
        if target in INNER and not name.startswith("src/"):
            yield f'{name}: "{include}" stays inside the component'


def circles(graph):
    settled, path = set(), []

    def walk(name):
        if name in path:
            yield "a circle: " + " -> ".join(path[path.index(name):] + [name])
        if name in path or name in settled:
            return
        path.append(name)
        for target in graph[name]:
            yield from walk(target)
        settled.add(path.pop())

    for name in sorted(graph):
        yield from walk(name)


def shared_names():
    places = collections.defaultdict(list)
    for name in tracked("*.h", "*.cpp", "*.py", "tests/*.txt", ":!*CMakeLists.txt"):
        places[pathlib.Path(name).name].append(name)
    return (f"one name, two files: {' '.join(names)}" for names in places.values() if len(names) > 1)


def lost_headers():
    return (f"an inner header, but no file: {name}" for name in sorted(INNER - set(tracked("src/*.h"))))


def document_table():
    def cell(names):
        return ", ".join(f"`{name}`" for name in names)

    lines = ["| folder | includes, with all below | what is in it |", "|---|---|---|"]
    lines += [f"| `{row.folder}` | {cell(row.below)} | {row.text} |" for row in ROWS]
    return "\n".join(lines) + "\n"


def document_faults(write):
    text = DOCUMENT.read_text()
    begin, end = text.index(MARKS[0]) + len(MARKS[0]), text.index(MARKS[1])
    wanted = text[:begin] + document_table() + text[end:]
    if write:
        DOCUMENT.write_text(wanted)
    elif text != wanted:
        yield f"{DOCUMENT.name}: its table of folders is old; run tools/check_layers.py --write"


def faults():
    graph = collections.defaultdict(list)
    for name in tracked("src/*.h", "src/*.cpp", "host/*.h", "host/*.cpp", "apps/*.h", "apps/*.cpp"):
        yield from faults_of(name, graph)
    yield from circles({name: graph[name] for name in list(graph)} | {
        target: [] for targets in list(graph.values()) for target in targets if target not in graph})
    yield from shared_names()
    yield from lost_headers()
    yield from document_faults("--write" in sys.argv[1:])


def filled_lines(*patterns):
    return sum(1 for name in tracked(*patterns) for line in (ROOT / name).open() if line.strip())


def test_share():
    kinds = ("*.h", "*.cpp", "*.py")
    tests = filled_lines(*(f"tests/{kind}" for kind in kinds))
    program = filled_lines(*(f"{top}/{kind}" for top in ("src", "host", "apps") for kind in kinds))
    return f"{tests:,} lines of tests beside {program:,}: {100 * tests // program} in a hundred"


print(test_share())
found = list(faults())
print("\n".join(found) if found else "all includes run downward")
sys.exit(1 if found else 0)
