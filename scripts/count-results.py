#!/usr/bin/env python3
"""count-results.py PRESET...: adds up the test cases that ctest and the test programs reported below
build/PRESET/results, names those that failed, and prints "N passed, M failed" at the end. A program that ended
before it could report counts as one failure. Exit code 1 if anything failed or nothing was run."""

import sys
from pathlib import Path
from xml.etree import ElementTree


def count_program(preset, name, completed, report):
    """Returns the numbers of cases and of failed cases of one program, and names the failed ones. A program
    without a report of its own counts as one case."""
    cases, failed = (1 if completed else 0), 0
    if report.is_file():
        suites = ElementTree.parse(report).getroot()
        cases = int(suites.get("tests"))
        failed = int(suites.get("failures")) + int(suites.get("errors"))
        for case in suites.iter("testcase"):
            if case.find("failure") is not None:
                print(f"failed: {preset} {name} {case.get('classname')}.{case.get('name')}")
    if not completed and failed == 0:
        print(f"failed: {preset} {name} did not run to its end")
        cases, failed = max(cases, 1), 1
    return cases, failed


def main(presets):
    cases = failed = 0
    for preset in presets:
        results = Path("build") / preset / "results"
        if not (results / "ctest.xml").is_file():
            print(f"failed: {preset} was not run")
            cases, failed = cases + 1, failed + 1
            continue
        for program in ElementTree.parse(results / "ctest.xml").getroot().iter("testcase"):
            name = program.get("name")
            counts = count_program(preset, name, program.get("status") == "run", results / f"{name}.xml")
            cases, failed = cases + counts[0], failed + counts[1]
    print(f"{cases - failed} passed, {failed} failed")
    return 0 if failed == 0 and cases > 0 else 1


sys.exit(main(sys.argv[1:]))
