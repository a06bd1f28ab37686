#!/usr/bin/env python3
"""Sums up a run of the tests for people: one line per program, what failed at the end.

    summary.py RESULTS.xml    as `ctest --output-junit` writes it
"""
import re
import sys
import xml.etree.ElementTree as ElementTree

# What the test programs say about themselves: GoogleTest's, then Qt Test's closing line.
GTEST_COUNT = re.compile(r"^\[=+\] (\d+) tests? from .* ran\.", re.MULTILINE)
QT_COUNT = re.compile(r"^Totals: (\d+) passed, (\d+) failed", re.MULTILINE)
# Lines about cases that went well, and the frame around them.
NOISE = re.compile(r"^(PASS   :|\[ +(OK|RUN|PASSED) |\[-+\]|\[=+\]|\*{9} |Config: |Totals: |Note: )")


def cases_of(text):
    counts = [int(count) for count in GTEST_COUNT.findall(text)]
    counts += [int(passed) + int(failed) for passed, failed in QT_COUNT.findall(text)]
    return sum(counts) or 1


def main(path):
    tests = ElementTree.parse(path).getroot().findall("testcase")
    failed, cases, seconds = [], 0, 0.0
    width = max((len(test.get("name")) for test in tests), default=0)
    for test in sorted(tests, key=lambda test: test.get("name")):
        output = test.findtext("system-out") or ""
        state = {"run": "", "fail": "FAILED"}.get(test.get("status"), "not run")
        count, time = cases_of(output), float(test.get("time"))
        cases, seconds = cases + count, seconds + time
        print(f"{test.get('name'):{width}} {count:5} cases {time:7.1f} s  {state}".rstrip())
        if state == "FAILED":
            failed.append((test.get("name"), output))
    for name, output in failed:
        lines = [line for line in output.splitlines() if line.strip() and not NOISE.match(line)]
        print(f"\n-- {name}\n" + "\n".join(lines))
    print(f"\n{cases} cases in {len(tests)} programs, {seconds:.0f} s of work: ", end="")
    print("failed: " + " ".join(name for name, _ in failed) if failed else "all passed")
    return 1 if failed or not tests else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
