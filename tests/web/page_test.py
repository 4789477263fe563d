"""The calculator of the page does what the console's does, with all its keys and with the
examples."""

import page_case
from page_case import EXAMPLES, PageCase, Seen

F, G, ENTER, CLX, RUN_STOP = 4, 5, 11, 14, 30
STACK_SWITCH, RUN_SWITCH = 31, 32
ONE, TWO, SEVEN = 24, 25, 16


class KeysTest(PageCase):

    # Each key plain, gold and blue, and then what an instruction may want: digits.
    WORDS = [[*prefix, key, ONE, TWO] for prefix in ([], [F], [G]) for key in range(1, 31)]

    def compare(self, words, *before):
        lines = [f"{'down' if down else 'up'} {code}" for code, down in before]
        expected = self.script(*lines, *(line for word in words for line in
                                         (f"key {' '.join(map(str, word))}", "state")))
        states = [event for event in expected if event["event"] == "state"]
        for code, _ in before:
            self.call("tap", code)
        results = self.call("tapAll", words)
        self.assertEqual(len(results), len(states))
        for word, found, state in zip(words, results, states):
            with self.subTest(keys=word):
                self.assert_same(Seen(found), state)
        boxes = [event["text"] for event in expected if event["event"] == "box"]
        self.assertEqual(self.boxes(), [box.strip() for box in boxes])

    def test_every_key_with_every_prefix_calculates(self):
        self.compare(self.WORDS)

    def test_every_key_with_every_prefix_writes_a_program(self):
        self.compare(self.WORDS, (RUN_SWITCH, False))

    def test_every_key_with_every_prefix_shows_the_stack(self):
        self.compare(self.WORDS, (STACK_SWITCH, True))

    def test_examples_give_the_results_of_the_console(self):
        names = sorted(path.name for path in EXAMPLES.glob("*.txt"))
        self.assertEqual(len(names), 24)
        names.remove("lander.txt")      # rests a second in each PAUSE
        lines = ["limit 10000000"]
        for name in names:
            lines += [f"open {EXAMPLES / name}", f"key {CLX} {SEVEN} {ENTER} {TWO}",
                      f"key {RUN_STOP}", "state"]
        states = [event for event in self.script(*lines) if event["event"] == "state"]
        for name, state in zip(names, states, strict=True):
            with self.subTest(example=name):
                self.choose("examples")
                self.call("chooseExample", name)
                self.settled("no")
                self.press(CLX, SEVEN, ENTER, TWO)
                self.assert_same(self.press(RUN_STOP), state)


if __name__ == "__main__":
    page_case.main()
