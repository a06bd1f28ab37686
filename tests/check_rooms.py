#!/usr/bin/env python3
"""Holds the includes of all rooms to the order of the house: a room includes only rooms below it,
no file includes itself by way of others, and nobody hands a text to a shell. `check_rooms.py ROOT`
lists what breaks that."""

import re
import sys
from pathlib import Path

# From the ground up; rooms on one floor do not know each other.
FLOORS = [
    ["core"],
    ["network"],
    ["design"],
    ["analysis"],
    ["optimize"],
    ["synthesis"],
    ["advise"],
    ["io"],
    ["plot"],
    ["ui", "cli"],
]
FLOOR = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
WITHOUT_QT = {"core", "network", "design", "analysis", "optimize", "synthesis", "advise"}
WITHOUT_WIDGETS = WITHOUT_QT | {"io", "plot", "cli"}
WIDGETS = re.compile(r"<Q(Widget|Application|Dialog|MainWindow|Printer|PrintDialog|MessageBox|"
                     r"Label|LineEdit|PushButton|.*Layout)>")

# A command as one text is a command that a file's content may take part in.
SHELL = re.compile(r"(?<![\w.>:])(?:std::|::)?(?:system|popen|wordexp|startCommand)\s*\(")

INCLUDE = re.compile(r'^\s*#\s*include\s+("([^"]+)"|(<[^>]+>))', re.M)


def sources(root):
    for room in FLOOR:
        for path in sorted((root / room).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield room, path.relative_to(root).as_posix(), path


def check(root):
    """All complaints about the tree below `root`."""
    complaints = []
    graph = {}
    for room, name, path in sources(root):
        graph[name] = []
        text = path.read_text(encoding="utf-8")
        for call in SHELL.findall(text):
            complaints.append(f"{name}: no shells, but {call}...)")
        for _, own, system in INCLUDE.findall(text):
            if own:
                graph[name].append(own)
                other = own.split("/")[0]
                if other not in FLOOR:
                    complaints.append(f"{name}: {own} stands in no room")
                elif other != room and FLOOR[other] >= FLOOR[room]:
                    complaints.append(f"{name}: {room}/ may not include {own}")
            elif room in WITHOUT_QT and re.match(r"<Q[A-Z]", system):
                complaints.append(f"{name}: no Qt in {room}/, but {system}")
            elif room in WITHOUT_WIDGETS and WIDGETS.match(system):
                complaints.append(f"{name}: no widgets in {room}/, but {system}")
    return complaints + cycles(graph)


def cycles(graph):
    found, done = [], set()

    def visit(name, trail):
        if name in trail:
            found.append("cycle: " + " -> ".join(trail[trail.index(name):] + [name]))
            return
        if name in done:
            return
        for other in graph.get(name, []):
            visit(other, trail + [name])
        done.add(name)

    for name in graph:
        visit(name, [])
    return found


def self_test():
    """A checker that finds nothing in a broken house is broken itself."""
    import tempfile
    broken = {
        "core/a.h": '#include "design/b.h"\n',
        "design/b.h": '#include <QString>\n',
        "plot/c.h": '#include "plot/d.h"\n#include <QWidget>\n',
        "plot/d.h": '#include "plot/c.h"\n',
        "ui/e.h": '#include "cli/f.h"\n',
        "cli/f.h": '#include "attic/g.h"\nint main() { return std::system("ls"); }\n',
    }
    with tempfile.TemporaryDirectory() as folder:
        for name, text in broken.items():
            path = Path(folder) / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(text)
        complaints = check(Path(folder))
    assert len(complaints) == 7, "\n".join(complaints)


if __name__ == "__main__":
    self_test()
    problems = check(Path(sys.argv[1]))
    print("\n".join(problems) or "every room includes only rooms below it")
    sys.exit(1 if problems else 0)
