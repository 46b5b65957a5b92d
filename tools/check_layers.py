#!/usr/bin/env python3
"""Fails on an include that runs upward: every folder may include itself and the folders below it."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Folder -> folders that it may include besides itself.
COMPONENT = [
    ("src/platform", []),
    ("src/control/contract", ["src/platform"]),
    ("src/settings", ["src/control/contract"]),
    ("src/store", ["src/control/contract"]),
    ("src/contacts", ["src/store"]),
    ("src/merge", ["src/control/contract"]),
    ("src/scheduling", ["src/store", "src/merge"]),
    ("src/store/channels", ["src/scheduling", "src/store"]),
    ("src/wizards", ["src/store/channels", "src/settings", "src/contacts"]),
    ("src/control", ["src/wizards"]),
]
PUBLIC = ["src/platform", "src/control/contract", "src/control"]
HOST = [
    ("host/database/schema", []),
    ("host/database/dialect", ["host/database/schema"]),
    ("host/database", ["host/database/dialect"]),
    ("host/database/sqlite", ["host/database"]),
    ("host/database/postgres", ["host/database"]),
    ("host/demo", ["host/database"]),
    ("host/loader", []),
    ("host/services", []),
    ("host/mail", ["host/services"]),
    ("host/desk", ["host/database/sqlite", "host/database/postgres", "host/loader", "host/mail"]),
    ("host/copy", ["host/desk"]),
    ("apps/console", ["host/copy", "host/demo"]),
    ("apps/desktop", ["host/desk"]),
]
STANDARD = re.compile(r"<[a-z_0-9]+>$")


def reach(rules):
    """Folder -> all folders it may include, following the rows from the lowest up."""
    allowed = {}
    for folder, below in rules:
        allowed[folder] = {folder}.union(*(allowed[other] for other in below))
    return allowed


def folder_of(path, folders):
    return max((f for f in folders if path.startswith(f + "/")), key=len, default=None)


def resolve(include):
    for base in ("src/", ""):
        if (ROOT / (base + include)).exists():
            return base + include
    return None


def faults():
    component = reach(COMPONENT)
    host = {folder: below | set(PUBLIC) for folder, below in reach(HOST).items()}
    allowed = {**component, **host}
    for path in sorted(p for top in ("src", "host", "apps") for p in (ROOT / top).rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        name = path.relative_to(ROOT).as_posix()
        folder = folder_of(name, allowed)
        if folder is None:
            yield f"{name}: its folder has no row in tools/check_layers.py"
            continue
        for include in re.findall(r'^\s*#\s*include\s+([<"][^>"]+[>"])', path.read_text(), re.M):
            target = resolve(include[1:-1]) if include[0] == '"' else None
            if target is None:
                if name.startswith("src/") and not STANDARD.match(include):
                    yield f"{name}: {include} is not of the standard library"
                continue
            if folder_of(target, allowed) not in allowed[folder]:
                yield f"{name}: {include} runs upward"


found = list(faults())
print("\n".join(found) if found else "no include runs upward")
sys.exit(1 if found else 0)
