"""Files that a script opens and saves: listings and the graph's data."""

import os

from console_case import LITTLE_DISK, MODE_SWITCH, ConsoleCase, LinuxCase, key_line, main

ERROR_ON_DISPLAY = ("text 0", key_line("g", "R/S"))     # 1/x


class OpenTest(ConsoleCase):

    def test_success(self):
        self.listing("LBL 1", "5")
        state = self.state_after(f"up {MODE_SWITCH}", key_line("f", "4"), f"down {MODE_SWITCH}",
                                 "open program.txt")
        self.assertEqual((state["file"], state["modified"], state["line"], state["highlight"]),
                         ("program.txt", 0, 0, 0))
        self.assertEqual(state["program"][:4], ["", "LBL 1", "5", "R/S"])

    def test_entry_and_pending_keys_are_abandoned(self):
        self.listing("5")
        states = self.states("text 12", "open program.txt", "state", "text 3", "state",
                             key_line("STO", "+"), "open program.txt", "state")
        shown = [(state["entry"], state["display"], state["keystrokes"]) for state in states]
        self.assertEqual(shown, [("", " 12.00", ""), ("+3", " 3.", ""), ("", " 3.00", "")])
        self.assertEqual([level["value"] for level in states[1]["stack"]], [3, 12, 0, 0])

    def test_an_error_text_stays_on_the_display(self):
        self.listing("5")
        states = self.states(*ERROR_ON_DISPLAY, "state", "open program.txt", "state", key_line("7"),
                             "state")
        self.assertEqual([(state["display"], state["keystrokes"]) for state in states],
                         [("Error: divide by 0", "EWFDK"), ("Error: divide by 0", ""), (" 7.", "")])

    def test_stack_registers_and_modes_stay(self):
        self.listing("5")
        before, after = self.states("text 4\\r5", key_line("STO", "3"), key_line("g", "EEX"),
                                    key_line("f", "GSB", "2"), "state", "open program.txt", "state")
        for key in ("stack", "reg", "angle", "format", "lastx", "last_op", "registers"):
            self.assertEqual(before[key], after[key])

    def test_the_return_stack_is_emptied(self):
        self.listing("GSB 1", "LBL 1", "R/S")
        states = self.states("open program.txt", key_line("R/S"), "state", "open program.txt",
                             "state")
        self.assertEqual([state["returns"] for state in states], [[2], []])

    def test_in_program_mode(self):
        self.listing("5")
        state = self.state_after(f"up {MODE_SWITCH}", "open program.txt")
        self.assertEqual((state["mode"], state["display"], state["listing"][1]),
                         ("program", "00", "01 5"))

    def test_a_missing_file_changes_nothing(self):
        self.listing("5")
        events = self.script("open program.txt", "text 12", key_line("STO"), "state",
                             "open missing.txt", "state")
        before, box, after = events[-3:]
        self.assertEqual((box["text"], box["icon"], box["buttons"]),
                         ("ERROR: couldn't open the file 'missing.txt' for reading", "error", "ok"))
        self.assertEqual(before, after)

    def test_rejected_lines_are_kept_in_the_listing(self):
        self.listing("bad", "5", "6 7")
        events = self.script("open program.txt", "state")
        self.assertEqual([event["text"] for event in events[:-1]],
                         ["Error: unrecognized instr mnemonic on line #1:\nbad",
                          "Error: illegal number on line #3:\n6 7"])
        self.assertEqual(events[-1]["listing"][:4], ["00", "-- bad", "01 5", "-- 6 7"])
        self.assertEqual((events[-1]["file"], events[-1]["program"][1:3]),
                         ("program.txt", ["5", "R/S"]))

    def test_cancel_clears_the_program(self):
        self.listing("5", "6", name="old.txt")
        self.listing("7", "bad", "8", name="new.txt")
        events = self.script("open old.txt", key_line("SST"), "answer cancel", "open new.txt",
                             "state")
        boxes = [event for event in events if event["event"] == "box"]
        state = events[-1]

        self.assertEqual([(box["text"], box["caption"], box["buttons"], box["icon"], box["answer"])
                          for box in boxes],
                         [("Error: unrecognized instr mnemonic on line #2:\nbad", "ERROR",
                           "okcancel", "none", "cancel"),
                          ("Program Memory has been cleared", "Vorstek", "ok", "none", "ok")])
        self.assertEqual((state["file"], state["modified"], state["line"]), ("", 0, 0))
        self.assertEqual(state["program"], [""] + 98 * ["R/S"])
        self.assertEqual(len(state["listing"]), 99)

    def test_too_many_lines(self):
        self.listing("; head", *98 * ["1"], "; tail", "2", "; lost")
        events = self.script("open program.txt", "state")
        self.assertEqual(events[0]["text"], "Program memory overflow")
        self.assertEqual(events[1]["program"], [""] + 98 * ["1"])
        self.assertEqual(events[1]["listing"][-1], "   ; tail")
        self.assertEqual(events[1]["file"], "program.txt")

    def test_names_with_blanks(self):
        self.listing("5", name="two words.txt")
        self.assertEqual(self.state_after("open   two words.txt  ")["file"], "two words.txt")


class SaveTest(ConsoleCase):

    def saved(self, *lines):
        self.listing(*lines)
        self.assertEqual(self.script("open program.txt", "save saved.txt"), [])
        return self.read("saved.txt")

    def test_the_listing_as_it_was_read(self):
        self.assertEqual(self.saved("; head", "", " LBL 1  ; label", "5", "STO i;x"),
                         b"; head\r\n\r\n LBL 1  ; label\r\n5\r\nSTO i;x\r\n")

    def test_trailing_runstops_are_not_written(self):
        self.assertEqual(self.saved("1", "R/S", "2", "R/S", "R/S"), b"1\r\nR/S\r\n2\r\n")
        self.assertEqual(self.saved("R/S"), b"")
        self.assertEqual(self.saved("1", "R/S", "; tail"), b"1\r\nR/S\r\n; tail\r\n")

    def test_rejected_lines_are_written_too(self):
        self.listing("1", "bad", "2")
        self.script("open program.txt", "save saved.txt")
        self.assertEqual(self.read("saved.txt"), b"1\r\nbad\r\n2\r\n")

    def test_a_recorded_program_reads_back(self):
        states = self.states(f"up {MODE_SWITCH}", key_line("STO", ".", "3"), "text 1.5e",
                             key_line("CHS"), "text 7", key_line("f", "4"),
                             key_line("GTO", "Rolldown"), f"down {MODE_SWITCH}", "state",
                             "save saved.txt", "state", "reset", "open saved.txt", "state")
        self.assertEqual(self.read("saved.txt"), b"STO .3\r\n+1.5e-07\r\nsin\r\nGTO i\r\n")
        self.assertEqual([(state["file"], state["modified"]) for state in states],
                         [("", 1), ("saved.txt", 0), ("saved.txt", 0)])
        self.assertEqual(states[0]["program"], states[2]["program"])

    def test_entry_and_pending_keys_stay(self):
        before, after = self.states("text 12", "state", "save saved.txt", "state")
        self.assertEqual({**before, "file": "saved.txt"}, after)

    def test_failure(self):
        name = os.path.join("missing", "saved.txt")
        before, box, after = self.script("option sound off", f"up {MODE_SWITCH}",
                                         key_line("f", "4"), "state", f"save {name}", "state")
        self.assertEqual(box, {"event": "box", "text": f"Could not write the file:\n {name}",
                               "caption": "Vorstek", "buttons": "ok", "icon": "error",
                               "answer": "ok"})
        self.assertEqual(before, after)

    def test_an_old_file_is_replaced(self):
        self.write("saved.txt", 1000 * b"old\n")
        self.assertEqual(self.saved("1"), b"1\r\n")
        self.assertEqual(sorted(os.listdir(self.folder)), ["program.txt", "saved.txt"])

    def test_a_folder_is_no_file(self):
        os.mkdir(self.path("folder"))
        self.assertEqual([box["text"] for box in self.boxes("save folder", "open folder",
                                                            "graph open folder")],
                         ["Could not write the file:\n folder",
                          "ERROR: couldn't open the file 'folder' for reading",
                          "Could not read the file:\n folder"])


class GraphTest(ConsoleCase):

    def graph(self, *lines):
        state = self.state_after(*lines)
        return [(data_set["label"], data_set["x"], data_set["y"]) for data_set in state["graph"]]

    def test_open_replaces_and_append_adds(self):
        self.write("one.txt", 'Title "One"\nHorzAxisLabel "a"\nSetLabels "p"\n1\n2\n')
        self.write("two.txt", 'ExplicitX\nTitle "Two"\n5 , 6 , 7\n')
        self.assertEqual(self.graph("graph open one.txt"), [("p", None, [1, 2])])
        states = self.states("graph open one.txt", "graph append two.txt", "state",
                             "graph open two.txt", "state")
        self.assertEqual([len(state["graph"]) for state in states], [3, 2])
        self.assertEqual([(state["graph_title"], state["graph_label"]) for state in states],
                         [("One", "a"), ("Two", "")])
        self.assertEqual([data_set["label"] for data_set in states[0]["graph"]],
                         ["p", "data line # 2", "data line # 3"])
        self.assertEqual([data_set["color"] for data_set in states[0]["graph"]],
                         [0x0000FF, 0x0000FF, 0x00FF00])

    def test_open_does_not_show_the_graph(self):
        self.write("one.txt", "1\n")
        self.assertEqual(self.state_after("graph open one.txt")["graph_shown"], 0)

    def test_files_that_cannot_be_read(self):
        self.write("empty.txt", "// nothing\n")
        self.write("header.txt", "ExplicitX\n")
        self.write("narrow.txt", "ExplicitX\n1\n")
        self.write("words.txt", "one two\n")
        for name in ("missing.txt", "empty.txt", "header.txt", "narrow.txt", "words.txt"):
            for command in ("open", "append"):
                before, box, after = self.script("option sound off", "text 1", key_line("f", "0"),
                                                 "state", f"graph {command} {name}", "state")
                self.assertEqual((box["text"], box["buttons"], box["caption"]),
                                 (f"Could not read the file:\n {name}", "ok", "Vorstek"))
                self.assertEqual(before, after)

    def test_save_and_open_again(self):
        header = 'ExplicitX\nTitle "T"\nHorzAxisLabel "h"\nSetLabels "p" , "q"\n'
        self.write("one.txt", header + "1 , 2 , -3\n4 , 5 , 6.5\n")
        first, second = self.states("graph open one.txt", "state", "graph save saved.txt", "reset",
                                    "graph open saved.txt", "state")
        self.assertEqual(self.read_text("saved.txt"), header + "1.000000 , 2.000000 , -3.000000\n"
                                                               "4.000000 , 5.000000 , 6.500000\n")
        self.assertEqual(first["graph"], second["graph"])

    def test_implicit_x_is_written_without_x(self):
        self.write("one.txt", "1 2\n3 4\n")
        self.script("graph open one.txt", "graph save saved.txt")
        self.assertEqual(self.read_text("saved.txt"),
                         'ImplicitX\nSetLabels "data line # 1" , "data line # 2"\n'
                         '1.000000 , 2.000000\n3.000000 , 4.000000\n')

    def test_nothing_to_save(self):
        self.assertEqual([box["text"] for box in self.boxes("graph save saved.txt")],
                         ["There is no data to save"])
        self.assertFalse(os.path.exists(self.path("saved.txt")))

    def test_data_lines_that_do_not_fit_together(self):
        self.write("one.txt", "1\n2\n")
        box, = self.boxes("option sound off", "graph open one.txt", "text 2", key_line("g", "0"),
                          key_line("f", "0"), "graph save saved.txt")
        self.assertEqual(box["text"],
                         "1 of the 2 data sets were written to the file:\n  saved.txt\n\n"
                         "Data sets must have compatible x axis\n"
                         "values to share an ASCII data file.")
        self.assertEqual(self.read_text("saved.txt").splitlines()[-2:], ["1.000000", "2.000000"])

    def test_a_file_that_cannot_be_written(self):
        name = os.path.join("missing", "saved.txt")
        box, = self.boxes("text 1", key_line("f", "0"), f"graph save {name}")
        self.assertEqual(box["text"], f"Could not write the file:\n {name}")


class PipeTest(LinuxCase):

    def test_a_pipe_is_no_program_and_the_reason_is_told(self):
        box, state = self.script("open /dev/stdin", "state line", err="vorstek-cli: cannot read "
                                 "'/dev/stdin': not a regular file\n")
        self.assertEqual((box["text"], state["line"]),
                         ("ERROR: couldn't open the file '/dev/stdin' for reading", 0))


class LongNameTest(LinuxCase):
    """The system takes paths of up to 4095 bytes, in names of up to 255."""

    def test_files_deep_in_folders_are_opened_and_saved(self):
        deep = self.folder
        while len(deep) < 3800:
            deep += "/" + 200 * "d"
            os.mkdir(deep)
        name = os.path.join(deep, "program.txt")
        with open(name, "w", encoding="ascii") as file:
            file.write("LBL 1\n7\n")
        state = self.state_after(f"open {name}", f"save {deep}/again.txt")
        self.assertEqual(state["file"], f"{deep}/again.txt")
        self.assertEqual(state["program"][1:3], ["LBL 1", "7"])
        with open(f"{deep}/again.txt", encoding="ascii") as file:
            self.assertEqual(file.read().split(), ["LBL", "1", "7"])
        self.assertEqual(self.start("run", name).code, 0)


class FullDiskTest(LinuxCase):
    """A disk that takes no more leaves the old file as it was."""

    def setUp(self):
        super().setUp()
        self.listing(*["; " + 400 * "x"] * 100, "1", name="long.txt")
        self.write("numbers.txt", "".join(f"{n}\n" for n in range(3000)))

    def events_on_full_disk(self, *lines):
        result = self.start("script", stdin="".join(line + "\n" for line in lines), **LITTLE_DISK)
        self.assertEqual((result.code, result.err), (0, ""))
        return result.events

    def assert_unharmed(self, *lines):
        """The last line tries to save as old.txt, which exists or does not."""
        for old in ({"old.txt": b"old content"}, {}):
            for name, content in old.items():
                self.write(name, content)
            before = sorted(os.listdir(self.folder))
            event, = self.events_on_full_disk(*lines)
            self.assertEqual(event["text"], "Could not write the file:\n old.txt")
            self.assertEqual(sorted(os.listdir(self.folder)), before)
            for name, content in old.items():
                self.assertEqual(self.read(name), content)
                os.remove(self.path(name))

    def test_a_listing(self):
        self.assert_unharmed("open long.txt", "save old.txt")

    def test_a_data_file(self):
        self.assert_unharmed("graph open numbers.txt", "graph save old.txt")

    def test_the_file_name_is_not_taken(self):
        self.assertEqual(self.events_on_full_disk("open long.txt", "save old.txt",
                                                  "state")[-1]["file"], "long.txt")

    def test_a_data_file_of_run(self):
        self.write("old.txt", "old content")
        result = self.start("run", self.listing("LBL 0", "SumG", "1", "+", "GTO 0"), "--max-lines",
                            "10000", "--graph", "old.txt", **LITTLE_DISK)
        self.assertEqual(result.code, 2)
        self.assertIn("old.txt", result.err)
        self.assertEqual(self.read("old.txt"), b"old content")

    def test_devices(self):
        # Through links: a broken program run by root would replace the device.
        os.symlink("/dev/full", self.path("full.txt"))
        os.symlink("/dev/null", self.path("null.txt"))
        texts = [box["text"] for box in self.boxes(
            "open long.txt", "save full.txt", "save null.txt",
            "graph open numbers.txt", "graph save full.txt", "graph save null.txt")]
        self.assertEqual(texts, 2 * ["Could not write the file:\n full.txt"])


class PermissionTest(LinuxCase):

    def test_a_read_only_file_is_not_replaced(self):
        self.write("saved.txt", "old")
        os.chmod(self.path("saved.txt"), 0o444)
        self.assertEqual(len(self.boxes("save saved.txt")), 1)
        self.assertEqual(self.read("saved.txt"), b"old")

    def test_permissions_and_links_stay(self):
        self.write("real.txt", "old")
        os.chmod(self.path("real.txt"), 0o640)
        os.symlink("real.txt", self.path("link.txt"))
        self.listing("1")
        self.assertEqual(self.boxes("open program.txt", "save link.txt"), [])
        self.assertTrue(os.path.islink(self.path("link.txt")))
        self.assertEqual(self.read("real.txt"), b"1\r\n")
        self.assertEqual(os.stat(self.path("real.txt")).st_mode & 0o777, 0o640)


if __name__ == "__main__":
    main()
