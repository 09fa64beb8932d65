"""Runs the test cases of a script and writes a report as the programs of GoogleTest do, for scripts/count-results.py.

    if __name__ == "__main__":
        reported.main()

The script is called with the file of the report, or without an argument for no report."""

import sys
import unittest
from pathlib import Path
from xml.etree import ElementTree

Root = Path(__file__).resolve().parents[3]


class Result(unittest.TextTestResult):
    def __init__(self, *arguments, **named):
        super().__init__(*arguments, **named)
        self.broken = {}
        self.cases = []

    def startTest(self, test):
        super().startTest(test)
        self.cases.append(test)

    def addError(self, test, err):
        super().addError(test, err)
        # That of a whole class is none of the cases that were started.
        if test not in self.cases:
            self.cases.append(test)
        self.broken[test] = self._exc_info_to_string(err, test)

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self.broken[test] = self._exc_info_to_string(err, test)

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self.broken[test] = self._exc_info_to_string(err, test)

    def write(self, path):
        count = {"tests": str(len(self.cases)), "failures": str(len(self.broken)), "errors": "0"}
        suites = ElementTree.Element("testsuites", count)
        suite = ElementTree.SubElement(suites, "testsuite", count)
        for test in self.cases:
            names = {"name": getattr(test, "_testMethodName", str(test)), "classname": type(test).__name__}
            case = ElementTree.SubElement(suite, "testcase", names)
            if test in self.broken:
                ElementTree.SubElement(case, "failure").text = self.broken[test]
        # scripts/mutants.sh reads line by line.
        ElementTree.indent(suites)
        ElementTree.ElementTree(suites).write(path, encoding="utf-8", xml_declaration=True)


def main():
    tests = unittest.defaultTestLoader.loadTestsFromModule(sys.modules["__main__"])
    result = unittest.TextTestRunner(resultclass=Result, verbosity=2).run(tests)
    if len(sys.argv) > 1:
        result.write(sys.argv[1])
    sys.exit(0 if result.wasSuccessful() and result.cases else 1)
