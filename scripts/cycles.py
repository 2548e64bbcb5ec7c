#!/usr/bin/env python3
"""Fails if modules or folders of src/ include each other in a circle. A header and its source file are one module."""
import pathlib
import re
import sys


def edges(src, unit):
    """Maps each unit to the units that its files include."""
    graph = {}
    for path in src.rglob("*.[ch]*"):
        if path.suffix not in (".h", ".cpp"):
            continue
        here = unit(path.relative_to(src))
        for name in re.findall(r'^#include "([^"]+)"', path.read_text(), re.M):
            if (src / name).is_file() and unit(pathlib.Path(name)) != here:
                graph.setdefault(here, set()).add(unit(pathlib.Path(name)))
    return graph


def circle(graph):
    """The units that lie on circles: what is left when those that include nothing of the rest are taken away."""
    rest = {unit: set(targets) for unit, targets in graph.items()}
    while True:
        leaves = [unit for unit, targets in rest.items() if not targets & rest.keys()]
        if not leaves:
            break
        for unit in leaves:
            del rest[unit]
    included = set().union(*rest.values()) if rest else set()
    return sorted(str(unit) for unit in rest if unit in included)


src = pathlib.Path(__file__).resolve().parent.parent / "src"
failed = False
for what, unit in (("modules", lambda p: p.with_suffix("")), ("folders", lambda p: p.parent)):
    if found := circle(edges(src, unit)):
        print(f"{what} that include each other: {' '.join(found)}", file=sys.stderr)
        failed = True
sys.exit(failed)
