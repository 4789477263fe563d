"""The programs as built are hard to exploit:

    hardening_test.py PROGRAM... -- COMMAND...

COMMAND starts a program that writes past the end of an array.
Reads each program's headers and what it calls: a program for Linux as readelf shows
it, one for Windows by the layout of its headers."""

import pathlib
import re
import struct
import subprocess
import sys
import unittest

PROGRAMS = []
OVERRUN = []

# Bits of DllCharacteristics.
HIGH_ENTROPY = 0x0020
DYNAMIC_BASE = 0x0040
NO_EXECUTE = 0x0100
# A bit of Characteristics: the program cannot be loaded at another address.
RELOCATIONS_STRIPPED = 0x0001
SECTION_EXECUTABLE = 0x20000000
SECTION_WRITABLE = 0x80000000

# What the canary and the standard library's checks say when they end a program.
CANARY_TEXT = b"*** stack smashing detected ***"
ASSERTION_TEXT = b"__n < this->size()"


def readelf(program, *options):
    return subprocess.run(["readelf", "--wide", *options, program], check=True,
                          capture_output=True, text=True).stdout


def segments(program):
    """{type: [flags, ...]} of the program headers: {"LOAD": ["R", "R E", "RW"], ...}"""
    rows = re.findall(r"^  ([A-Z_]+) +(?:0x\w+ +){5}((?:R| )(?:W| )(?:E| )) +0x",
                      readelf(program, "--program-headers"), re.MULTILINE)
    found = {}
    for kind, flags in rows:
        found.setdefault(kind, []).append(flags.strip())
    return found


class Pe:
    """The headers of a program for Windows, 64 bits."""

    def __init__(self, program):
        self.data = pathlib.Path(program).read_bytes()
        self.start = struct.unpack_from("<I", self.data, 60)[0]
        assert self.data[self.start:self.start + 4] == b"PE\0\0", program
        (_, self.section_count, _, _, _, self.optional_size,
         self.characteristics) = struct.unpack_from("<HHIIIHH", self.data, self.start + 4)
        self.optional = self.start + 24
        assert struct.unpack_from("<H", self.data, self.optional)[0] == 0x20b, program

    def image_base(self):
        return struct.unpack_from("<Q", self.data, self.optional + 24)[0]

    def dll_characteristics(self):
        return struct.unpack_from("<H", self.data, self.optional + 70)[0]

    def relocations(self):
        """Bytes of the directory of base relocations."""
        return struct.unpack_from("<II", self.data, self.optional + 112 + 5 * 8)[1]

    def section_flags(self):
        first = self.optional + self.optional_size
        return [struct.unpack_from("<I", self.data, first + 40 * number + 36)[0]
                for number in range(self.section_count)]


class Case(unittest.TestCase):

    def for_each(self, check):
        for program in PROGRAMS:
            with self.subTest(program=pathlib.Path(program).name):
                check(program)


    def check_overrun(self):
        done = subprocess.run(OVERRUN, capture_output=True, check=False)
        self.assertIn(CANARY_TEXT, done.stderr)
        self.assertNotEqual(done.returncode, 0)


class LinuxTest(Case):

    def test_code_is_loaded_at_any_address(self):
        def check(program):
            self.assertRegex(readelf(program, "--file-header"), r"Type: +DYN ")
            self.assertRegex(readelf(program, "--dynamic"), r"\(FLAGS_1\).*\bPIE\b")
        self.for_each(check)

    def test_tables_of_addresses_are_read_only_from_the_start(self):
        def check(program):
            self.assertIn("GNU_RELRO", segments(program))
            self.assertRegex(readelf(program, "--dynamic"), r"\(FLAGS(_1)?\).*\b(BIND_)?NOW\b")
        self.for_each(check)

    def test_no_memory_is_writable_and_executable(self):
        def check(program):
            found = segments(program)
            self.assertEqual(found["GNU_STACK"], ["RW"])
            self.assertTrue(any("E" in flags for flags in found["LOAD"]), found)
            for flags in found["LOAD"]:
                self.assertFalse("W" in flags and "E" in flags, found)
        self.for_each(check)

    def test_overrun_arrays_are_noticed(self):
        def check(program):
            symbols = readelf(program, "--dyn-syms")
            for name in ("__stack_chk_fail", "__snprintf_chk", r"\w*__glibcxx_assert_fail\w*"):
                self.assertRegex(symbols, rf"\bUND {name}@")
        self.for_each(check)

    def test_an_overrun_ends_the_program(self):
        self.check_overrun()

    # The program as a whole is marked only where the C library's start files are too.
    def test_functions_that_are_called_by_address_are_marked(self):
        def check(program):
            disassembly = subprocess.run(["objdump", "--disassemble", "--section=.text",
                                          "--no-show-raw-insn", program], check=True,
                                         capture_output=True, text=True).stdout
            self.assertGreater(disassembly.count("endbr64"), 100)
        self.for_each(check)


class WindowsTest(Case):

    def test_code_is_loaded_at_any_address_even_above_four_gigabytes(self):
        def check(program):
            file = Pe(program)
            wanted = HIGH_ENTROPY | DYNAMIC_BASE
            self.assertEqual(file.dll_characteristics() & wanted, wanted)
            self.assertEqual(file.characteristics & RELOCATIONS_STRIPPED, 0)
            self.assertGreater(file.relocations(), 0)
            self.assertGreaterEqual(file.image_base(), 1 << 32)
        self.for_each(check)

    def test_no_memory_is_writable_and_executable(self):
        def check(program):
            file = Pe(program)
            self.assertTrue(file.dll_characteristics() & NO_EXECUTE)
            executable = [flags for flags in file.section_flags() if flags & SECTION_EXECUTABLE]
            self.assertTrue(executable)
            for flags in executable:
                self.assertFalse(flags & SECTION_WRITABLE)
        self.for_each(check)

    def test_overrun_arrays_are_noticed(self):
        def check(program):
            data = Pe(program).data
            self.assertIn(CANARY_TEXT, data)
            self.assertIn(ASSERTION_TEXT, data)
        self.for_each(check)

    def test_an_overrun_ends_the_program(self):
        self.check_overrun()


def main():
    arguments = sys.argv[1:]
    if "--" not in arguments[1:-1]:
        sys.exit(f"usage: {sys.argv[0]} PROGRAM... -- COMMAND...")
    dashes = arguments.index("--")
    PROGRAMS.extend(arguments[:dashes])
    OVERRUN.extend(arguments[dashes + 1:])
    kind = WindowsTest if PROGRAMS[0].endswith(".exe") else LinuxTest
    suite = unittest.defaultTestLoader.loadTestsFromTestCase(kind)
    done = unittest.TextTestRunner(verbosity=2).run(suite)
    sys.exit(not done.wasSuccessful())


if __name__ == "__main__":
    main()
