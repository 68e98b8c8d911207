#!/usr/bin/env python3
"""Counts what CTest has run, the cases of GoogleTest programs and pytest one by one: scripts/count-tests.py CTEST.xml FOLDER

CTEST.xml is CTest's report, FOLDER holds those of the programs. The last line is "N passed, N failed, N skipped"; the
status is 0 where something has passed and nothing has failed.
"""

import pathlib
import sys
import xml.etree.ElementTree as xml


def cases(report):
    """(passed, failed, skipped) of a GoogleTest program, or of pytest, which says it of the one suite that it has."""
    suites = xml.parse(report).getroot()
    suites = suites if suites.get("tests") else suites.find("testsuite")
    skipped = len(suites.findall(".//testcase[@result='skipped']")) + int(suites.get("skipped", 0))
    failed = int(suites.get("failures")) + int(suites.get("errors"))
    return int(suites.get("tests")) - failed - skipped, failed, skipped


def main():
    passed = failed = skipped = 0
    for test in xml.parse(sys.argv[1]).getroot().iter("testcase"):
        has_passed = test.get("status") == "run"
        report = pathlib.Path(sys.argv[2]) / f"{test.get('name')}.xml"
        if test.get("status") in ("disabled", "notrun") and test.find("skipped") is not None:
            skipped += 1
            continue
        counts = (int(has_passed), int(not has_passed), 0)
        if report.exists():
            try:
                counts = cases(report)
            except (xml.ParseError, AttributeError, TypeError, ValueError):
                counts = (0, 1, 0)
            if not has_passed and counts[1] == 0:  # a sanitizer's report at its end, or a time-out
                counts = (counts[0], 1, counts[2])
        passed, failed, skipped = passed + counts[0], failed + counts[1], skipped + counts[2]
    print(f"{passed} passed, {failed} failed, {skipped} skipped")
    return 0 if passed > 0 and failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
