#!/usr/bin/env python3
"""Counts what a run of ctest tested and prints one line: "test: 412 passed, 0 failed".

usage: count_tests.py <report that ctest --output-junit wrote>

A suite of GoogleTest counts with its cases, any other program as one. A suite that failed without saying which case
(it crashed, or ran out of time) counts as one failure more. Exits with 1 when something failed or nothing ran.
"""
import re
import sys
import xml.etree.ElementTree as xml


def count(suite):
    """Answers (passed, failed, skipped) of one program."""
    output = suite.findtext("system-out") or ""
    status = suite.get("status")
    if status in ("disabled", "notrun"):
        return (0, 0, 1) if status == "disabled" else (0, 1, 0)
    numbers = {}
    for word in ("PASSED", "FAILED", "SKIPPED"):
        found = re.findall(r"^\[  (?:%s)\s*\] (\d+) tests?[.,]" % word, output, re.MULTILINE)
        numbers[word] = int(found[-1]) if found else 0
    passed, failed, skipped = numbers["PASSED"], numbers["FAILED"], numbers["SKIPPED"]
    if "[==========] Running" not in output:
        passed, failed = (1, 0) if status == "run" else (0, 1)
    elif status == "fail" and not failed:
        failed = 1
    return passed, failed, skipped


def main():
    totals = [sum(column) for column in zip(*map(count, xml.parse(sys.argv[1]).getroot().iter("testcase")))] or [0, 0, 0]
    passed, failed, skipped = totals
    print(f"test: {passed} passed, {failed} failed" + (f", {skipped} skipped" if skipped else ""))
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
