#!/usr/bin/env python3
"""Runs the tests of a build folder and sums them up for people.

    run.py BUILD [--all | ARGUMENTS OF CTEST...]

A test program that has passed is not run again while nothing has changed that it can see: itself, the
programs it starts, the files it reads, the packages of the system. With arguments of ctest, or --all,
everything asked for runs.
"""
import hashlib
import json
import os
import pathlib
import platform
import re
import subprocess
import sys

import summary

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = ["kelvro", "kelvro-cli", "kelvro-pictures"]
CODE = {".cpp", ".h", ".py"}  # a test has it within itself; few read it as well
NOT_OURS = {".git", ".cache", "__pycache__", "build"}


def digest(*parts):
    return hashlib.blake2b(b"\0".join(parts), digest_size=16).hexdigest().encode()


def content(path):
    return pathlib.Path(path).read_bytes()


def digest_of(files):
    return digest(*(str(file).encode() + b"\0" + content(file) for file in sorted(files)
                    if file.is_file()))


def files_below(top):
    for folder, folders, names in os.walk(top):
        folders[:] = [name for name in folders if name not in NOT_OURS]
        yield from (pathlib.Path(folder) / name for name in names)


class Surroundings:
    """Digests of what several tests depend on, each reckoned once."""

    def __init__(self, build):
        self.build = build
        files = list(files_below(ROOT))
        self.data = digest_of(file for file in files if file.suffix not in CODE)
        self.sources = digest_of(file for file in files if file.suffix in CODE)
        self.programs = digest_of(build / name for name in PROGRAMS if (build / name).exists())
        chosen = {name: value for name, value in os.environ.items()
                  if re.match("LC_|LANG|TZ$|QT_|KELVRO_|XDG_|DISPLAY|WAYLAND", name)}
        packages = pathlib.Path("/var/lib/dpkg/status")
        self.machine = digest(platform.platform().encode(), repr(sorted(chosen.items())).encode(),
                              content(packages) if packages.exists() else b"")

    def key(self, test):
        """Of all that decides how the test ends."""
        own = [argument for argument in test["command"] if os.path.isfile(argument)]
        text = b"\0".join([content(file) for file in own] +
                          [argument.encode() + b"\0" for argument in test["command"]])
        parts = [text, repr(test.get("properties")).encode(), self.data, self.machine]
        names = [str(self.build / name) for name in PROGRAMS]
        if any(name.encode() in text or name.encode("utf-16-le") in text for name in names):
            parts.append(self.programs)
        # Folders by name, not the sources' own names, which stand in every test program.
        for found in set(re.findall(re.escape(str(ROOT)).encode() + rb"[\w./-]*(?=\0)", text)):
            folder = pathlib.Path(os.path.normpath(found.decode()))
            if folder.is_dir() and self.build not in [folder, *folder.parents] and \
                    ROOT / "tests/data" not in [folder, *folder.parents]:
                parts.append(self.sources)
        return digest(*parts).decode()


def tests_of(build):
    shown = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"],
                           capture_output=True, check=True)
    return {test["name"]: test for test in json.loads(shown.stdout)["tests"] if "command" in test}


def main(folder, arguments):
    build = pathlib.Path(folder).resolve()
    remembered, results = build / "passed.json", build / "tests.xml"
    passed = json.loads(remembered.read_text()) if remembered.exists() else {}
    surroundings = Surroundings(build)
    keys = {name: surroundings.key(test) for name, test in tests_of(build).items()}
    unchanged = []
    if not arguments:
        unchanged = [name for name, key in keys.items() if passed.get(name, {}).get("key") == key]
    if len(unchanged) == len(keys) > 0:
        return summary.show([], {name: passed[name]["cases"] for name in unchanged})

    results.unlink(missing_ok=True)
    leave = ["-E", "^(" + "|".join(map(re.escape, unchanged)) + ")$"] if unchanged else []
    subprocess.run(["ctest", "--test-dir", build, "-j", str(os.cpu_count()), "--output-junit",
                    results, "--quiet", *leave, *(a for a in arguments if a != "--all")])
    if not results.exists():
        print("ctest has not come to its end")
        return 1
    run = summary.read(results)
    # Whatever did not pass now has to run until it does.
    for test in run:
        passed.pop(test.name, None)
        if test.state == "passed":
            passed[test.name] = {"key": keys[test.name], "cases": test.cases}
    partial = remembered.with_suffix(".new")
    partial.write_text(json.dumps(passed, indent=1))
    partial.replace(remembered)
    return summary.show(run, {name: passed[name]["cases"] for name in unchanged})


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))
