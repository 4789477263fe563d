"""The committed tables are what scripts/elementary-tables makes."""

import pathlib
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class TablesTest(unittest.TestCase):

    def assert_made(self, what, file):
        done = subprocess.run([sys.executable, str(ROOT / "scripts" / "elementary-tables"), what],
                              check=True, capture_output=True)
        self.assertEqual(done.stdout.splitlines(), (ROOT / file).read_bytes().splitlines())

    def test_constants(self):
        self.assert_made("constants", "engine/elementary/constants.inc")

    def test_tables(self):
        self.assert_made("tables", "engine/elementary/tables.inc")

    def test_hard_angles(self):
        self.assert_made("hard-angles", "tests/elementary/hard_angles.inc")


if __name__ == "__main__":
    unittest.main()
