"""tools/count_tests.py counts cases, crashes and programs without cases, and never calls an empty run a success."""
import contextlib
import io
import pathlib
import sys
import tempfile
import unittest
from xml.sax.saxutils import escape

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import count_tests  # noqa: E402

PASSED = "[==========] Running 3 tests from 1 test suite.\n[  PASSED  ] 3 tests.\n"
ONE_FAILED = ("[==========] Running 3 tests from 1 test suite.\n[  PASSED  ] 2 tests.\n"
              "[  FAILED  ] 1 test, listed below:\n[  FAILED  ] ListTest.Scrolls\n")
ONE_SKIPPED = "[==========] Running 2 tests.\n[  PASSED  ] 1 test.\n[  SKIPPED ] 1 test, listed below:\n"
CRASHED = "[==========] Running 3 tests from 1 test suite.\n[ RUN      ] ListTest.Scrolls\n"
NONE_RAN = "[==========] Running 0 tests from 0 test suites.\n[  PASSED  ] 0 tests.\n"


class CountTestsTest(unittest.TestCase):
    def count(self, *suites):
        cases = "".join(f'<testcase name="t" status="{status}"><system-out>{escape(output)}</system-out></testcase>'
                        for status, output in suites)
        with tempfile.TemporaryDirectory() as folder:
            report = pathlib.Path(folder) / "tests.xml"
            report.write_text(f"<testsuite>{cases}</testsuite>")
            printed, kept = io.StringIO(), sys.argv
            sys.argv = ["count_tests.py", str(report)]
            try:
                with contextlib.redirect_stdout(printed):
                    return count_tests.main(), printed.getvalue().strip()
            finally:
                sys.argv = kept

    def test_counts_the_cases_of_every_suite(self):
        self.assertEqual(self.count(("run", PASSED), ("run", PASSED)), (0, "test: 6 passed, 0 failed"))

    def test_a_program_without_cases_counts_as_one(self):
        self.assertEqual(self.count(("run", "fine"), ("fail", "not fine")), (1, "test: 1 passed, 1 failed"))

    def test_a_failed_case_fails_the_run(self):
        self.assertEqual(self.count(("fail", ONE_FAILED)), (1, "test: 2 passed, 1 failed"))

    def test_a_crash_counts_as_a_failure(self):
        self.assertEqual(self.count(("run", PASSED), ("fail", CRASHED)), (1, "test: 3 passed, 1 failed"))

    def test_a_crash_after_the_last_case_counts_as_a_failure(self):
        self.assertEqual(self.count(("fail", PASSED)), (1, "test: 3 passed, 1 failed"))

    def test_a_program_that_was_not_found_counts_as_a_failure(self):
        self.assertEqual(self.count(("run", PASSED), ("notrun", "")), (1, "test: 3 passed, 1 failed"))

    def test_skipped_cases_are_shown(self):
        self.assertEqual(self.count(("run", ONE_SKIPPED)), (0, "test: 1 passed, 0 failed, 1 skipped"))

    def test_a_run_of_nothing_is_no_success(self):
        self.assertEqual(self.count(), (1, "test: 0 passed, 0 failed"))
        self.assertEqual(self.count(("run", NONE_RAN)), (1, "test: 0 passed, 0 failed"))


if __name__ == "__main__":
    unittest.main()
