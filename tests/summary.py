"""Sums up a run of the tests for people: one line per program, what failed at the end."""
import collections
import re
import xml.etree.ElementTree as ElementTree

# What the test programs say about themselves: GoogleTest's, then Qt Test's closing line.
GTEST_COUNT = re.compile(r"^\[=+\] (\d+) tests? from .* ran\.", re.MULTILINE)
QT_COUNT = re.compile(r"^Totals: (\d+) passed, (\d+) failed", re.MULTILINE)
# Lines about cases that went well, and the frame around them.
NOISE = re.compile(r"^(PASS   :|\[ +(OK|RUN|PASSED) |\[-+\]|\[=+\]|\*{9} |Config: |Totals: |Note: )")
STATES = {"run": "passed", "fail": "FAILED"}

Test = collections.namedtuple("Test", "name state cases seconds output")


def cases_of(text):
    counts = [int(count) for count in GTEST_COUNT.findall(text)]
    counts += [int(passed) + int(failed) for passed, failed in QT_COUNT.findall(text)]
    return sum(counts) or 1


def read(path):
    """The tests of a file that `ctest --output-junit` wrote."""
    tests = []
    for case in ElementTree.parse(path).getroot().findall("testcase"):
        output = case.findtext("system-out") or ""
        state = STATES.get(case.get("status"))
        if not state:
            reason = case.find("skipped")
            reason = "" if reason is None else reason.get("message")
            # Programs say by a code of their own that they find nothing to run with.
            state = "not run" if "SKIP" in reason else "FAILED"
            output += reason
        tests.append(Test(case.get("name"), state, cases_of(output), float(case.get("time")), output))
    return sorted(tests)


def show(tests, unchanged):
    """Prints the tests that ran, and of those that need not run how many cases they have. Returns the
    exit code."""
    width = max((len(test.name) for test in tests), default=0)
    for test in tests:
        state = "" if test.state == "passed" else test.state
        print(f"{test.name:{width}} {test.cases:5} cases {test.seconds:7.1f} s  {state}".rstrip())
    failed = [test for test in tests if test.state == "FAILED"]
    for test in failed:
        lines = [line for line in test.output.splitlines() if line.strip() and not NOISE.match(line)]
        print(f"\n-- {test.name}\n" + "\n".join(lines))
    cases = sum(test.cases for test in tests) + sum(unchanged.values())
    count = len(tests) + len(unchanged)
    print(f"\n{cases} cases in {count} programs, {sum(test.seconds for test in tests):.0f} s of work: "
          + ("failed: " + " ".join(test.name for test in failed) if failed else "all passed"))
    if unchanged:
        print(f"{len(unchanged)} of {count} programs are unchanged since they passed: "
              "./test --all runs them")
    return 1 if failed or not count else 0
