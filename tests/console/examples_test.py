"""The programs in examples/: each is run with several inputs, and its results
are compared with values that Python calculates in another way."""

import cmath
import datetime
import decimal
import math
import os
import random
import re
import shutil
import statistics
import struct
import unittest

from console_case import EXAMPLES, ConsoleCase, key_line, main, number

DASHES = "; ----------------------------------------\n"


def listings():
    return sorted(name for name in os.listdir(EXAMPLES) if name.endswith(".txt"))


def source(name):
    with open(os.path.join(EXAMPLES, name), encoding="utf-8") as file:
        return file.read()


def with_function(name, *lines):
    """The listing with another function between its two lines of dashes."""
    head, _, tail = source(name).split(DASHES)
    return head + DASHES + "".join(line + "\n" for line in lines) + DASHES + tail


def to_float(value):
    """The value as the graph stores it, in single precision."""
    return struct.unpack("f", struct.pack("f", value))[0]


def header(name):
    return source(name).split("\n\n")[0].splitlines()


def examples_of(name):
    """The command lines in a header, each with the lines that it prints."""
    found, printed = [], None
    for line in header(name):
        if line.startswith(";   vorstek-cli "):
            printed = []
            found.append((line.split()[2:], printed))
        elif line.startswith(";     ") and printed is not None:
            printed.append(line[len(";     "):])
        else:
            printed = None
    return found


class ExampleCase(ConsoleCase):
    """Tests of one listing, copied to the scratch folder."""

    name = None

    def setUp(self):
        super().setUp()
        if self.name:
            self.write(self.name, source(self.name))

    def result(self, label=None, reg=None, code=0, **levels):
        """Runs the listing with this stack and these registers. What is not
        given holds values left from earlier use."""
        arguments = [self.name, "--json"]
        for level in "xyzt":
            arguments += ["--" + level, repr(levels.get(level, 1234.5))]
        for register in range(30):
            arguments += ["--reg", f"{register}={(reg or {}).get(register, -98.75)!r}"]
        if label is not None:
            arguments += ["--label", str(label)]
        return self.run_program(*arguments, code=code)

    def final(self, *values, **options):
        """Numbers of the final state: stack levels by letter, registers by
        number. final("X", 9, x=2) is X and register 9."""
        state = self.result(**options).state
        numbers = [number(state["stack"]["XYZT".index(value)]["value"]) if value in "XYZT"
                   else number(state["reg"][int(value)]) for value in map(str, values)]
        return numbers if len(numbers) > 1 else numbers[0]

    def x(self, **options):
        return self.final("X", **options)

    def assert_stops_with(self, text, **options):
        """The program ends with this error on the display."""
        result = self.result(code=1, **options)
        self.assertRegex(result.err, rf"\A\w+\.txt:\d+: \S.*: {re.escape(text)} \(program line \d\d\)\n\Z")
        self.assertEqual(result.state["display"], text)

    def session(self, *lines):
        """States of a script that works with the listing."""
        return self.states("option sound off", "open " + self.name, *lines)

    def put_function(self, *lines):
        self.write(self.name, with_function(self.name, *lines))


def shown(state, level="X"):
    return number(state["stack"]["XYZT".index(level)]["value"])


class QuadraticTest(ExampleCase):
    name = "quadratic.txt"

    def test_real_and_complex_roots_solve_the_equation(self):
        rows = [(2, -4, -6), (1, -2, 10), (1, 0, -2), (3, 5, 1), (-1, 7, 3), (1, 2, 1), (4, 1, 7)]
        for a, b, c in rows:
            with self.subTest(a=a, b=b, c=c):
                first, second, kind = self.final("X", "Y", 9, z=a, y=b, x=c)
                root = cmath.sqrt(b * b - 4 * a * c)
                wanted = [(-b + root) / (2 * a), (-b - root) / (2 * a)]
                self.assertEqual(kind, float(b * b < 4 * a * c))
                if kind:
                    self.assert_close(first, wanted[0].real)
                    self.assert_close(abs(second), abs(wanted[0].imag))
                else:
                    self.assertGreaterEqual(abs(first), abs(second) * (1 - 1e-12))
                    for found, root in zip(sorted([first, second]), sorted(w.real for w in wanted)):
                        self.assert_close(found, root)

    def test_a_small_root_keeps_its_digits(self):
        with decimal.localcontext() as context:
            context.prec = 50
            b = decimal.Decimal("-12345678")
            small = (-b - (b * b - 4).sqrt()) / 2

        self.assert_close(self.final("Y", z=1, y=-12345678, x=1), float(small), 12)

    def test_roots_of_zero(self):
        self.assertEqual(self.final("X", "Y", 9, z=5, y=0, x=0), [0, 0, 0])
        self.assertEqual(self.final("X", "Y", 9, z=1, y=3, x=0), [-3, 0, 0])

    def test_no_quadratic_equation(self):
        self.assert_stops_with("Error: divide by 0", z=0, y=2, x=1)


class RootTest(ExampleCase):
    name = "root.txt"

    def test_the_cubic_given(self):
        x, f = self.final("X", "Y", y=2, x=3)

        # Cardano's formula for x^3 - 2 x - 5.
        inner = math.sqrt(25 / 4 - 8 / 27)
        self.assert_close(x, (2.5 + inner) ** (1 / 3) + (2.5 - inner) ** (1 / 3), 12)
        self.assertLess(abs(f), 1e-13)

    def test_functions_of_the_users_own(self):
        rows = [(("RAD", "STO 5", "cos", "RCL 5", "-"), 0, 1, 0.7390851332151607),
                (("x^2", "2", "-"), 1, 2, math.sqrt(2)),
                (("e^x", "10", "-"), 5, 4, math.log(10))]
        for lines, first, second, wanted in rows:
            with self.subTest(lines=lines):
                self.put_function(*lines)
                self.assert_close(self.x(y=first, x=second), wanted, 12)

    def test_an_exact_hit_and_a_root_at_a_guess(self):
        self.put_function("3", "-")
        self.assertEqual(self.final("X", "Y", y=100, x=3), [3, 0])
        self.assertEqual(self.final("X", "Y", y=3, x=7), [3, 0])

    def test_no_root_shows_in_y(self):
        self.put_function("x^2", "1", "+")
        self.assertGreaterEqual(self.final("Y", y=1, x=3), 1)
        self.assertEqual(self.final("X", "Y", y=2, x=2), [2, 5])


class SimpsonTest(ExampleCase):
    name = "simpson.txt"

    def test_the_function_given(self):
        self.assert_close(self.x(z=0, y=1, x=100), math.pi, 12)
        self.assert_close(self.x(z=-3, y=2, x=400), 4 * (math.atan(2) + math.atan(3)), 10)

    def test_exact_for_cubics(self):
        self.put_function("STO 5", "x^2", "RCL 5", "*", "4", "*", "1", "-")     # 4 x^3 - 1

        self.assert_close(self.x(z=1, y=3, x=2), 78, 13)
        self.assert_close(self.x(z=3, y=1, x=2), -78, 13)

    def test_an_odd_number_of_strips_counts_as_the_next_even_one(self):
        seven, eight = self.x(z=0, y=2, x=7), self.x(z=0, y=2, x=8)
        strips, h = 8, 2 / 8
        wanted = h / 3 * sum((1 if k in (0, strips) else 4 if k % 2 else 2) * 4 / (1 + (k * h) ** 2)
                             for k in range(strips + 1))

        self.assertEqual(seven, eight)
        self.assertEqual(self.x(z=0, y=2, x=-8), eight)
        self.assert_close(eight, wanted, 13)

    def test_the_ends_are_met_exactly(self):
        self.put_function("x^2", "1", "x<>y", "-", "sqrt")      # a half circle

        self.assertLess(abs(self.x(z=-1, y=1, x=3000) - math.pi / 2), 1e-5)

    def test_no_strips(self):
        self.assert_stops_with("Error: divide by 0", z=0, y=1, x=0)


class FactorsTest(ExampleCase):
    name = "factors.txt"

    @staticmethod
    def factors(n):
        found, divisor = [], 2
        while divisor * divisor <= n:
            while n % divisor == 0:
                found.append(divisor)
                n //= divisor
            divisor += 1
        return found + [n] * (n > 1)

    def test_factors_are_shown_and_kept_in_pairs(self):
        for n in (1, 2, 97, 360, 2 ** 33, 6469693230, 99991 ** 2, 9999999967, 9999999999):
            with self.subTest(n=n):
                wanted = self.factors(n)
                result = self.result(x=n)
                pairs = [number for prime in sorted(set(wanted))
                         for number in (prime, wanted.count(prime))]

                shown_lines = result.err.splitlines()
                self.assertEqual([int(line) for line in shown_lines], wanted)
                self.assertEqual(result.state["reg"][10:10 + len(pairs)], pairs)
                self.assertEqual(shown(result.state), len(set(wanted)))

    def test_signs_and_fractions_are_ignored(self):
        self.assertEqual(self.final("X", 10, 11, 12, 13, x=-12.75), [2, 2, 2, 3, 1])

    def test_what_register_8_held_before_does_not_matter(self):
        self.assertEqual(self.final("X", 10, 11, x=4, reg={8: 2}), [1, 2, 2])

    def test_zero(self):
        self.assert_stops_with("Error: divide by 0", x=0)


class GcdTest(ExampleCase):
    name = "gcd.txt"

    def test_divisor_and_multiple(self):
        rows = [(1071, 462), (462, 1071), (17, 5), (-12, 18), (12, -18), (0, 7), (7, 0), (1, 1),
                (9999999999, 9999999998), (4294967296, 65536), (9999999967, 9999999967)]
        for a, b in rows:
            with self.subTest(a=a, b=b):
                divisor, multiple = self.final("X", "Y", y=a, x=b)
                self.assertEqual(divisor, math.gcd(a, b))
                self.assert_close(multiple, abs(a * b) // math.gcd(a, b), 14)

    def test_two_zeros(self):
        self.assert_stops_with("Error: divide by 0", y=0, x=0)


class TvmTest(ExampleCase):
    name = "tvm.txt"

    @staticmethod
    def balance(n, rate, pv, pmt, fv):
        i = rate / 100
        growth = (1 + i) ** n
        return pv * growth + pmt * ((growth - 1) / i if i else n) + fv

    def test_each_of_the_five_from_the_others(self):
        cases = [(360, 0.5, 100000, -599), (10, 7, -1000, 0), (24, 0.75, -500, -100),
                 (48, 0, 4800, -99), (30, 1.5, 10, -250)]
        for n, rate, pv, pmt in cases:
            case = (n, rate, pv, pmt, -self.balance(n, rate, pv, pmt, 0))
            for unknown, wanted in enumerate(case, 1):
                known = dict(enumerate(case, 1))
                known[unknown] = 12345.678
                with self.subTest(case=case, unknown=unknown):
                    found, rest = self.final("X", "Y", x=unknown, reg=known)
                    self.assertLess(abs(found - wanted), 1e-8 * (abs(wanted) or 1))
                    self.assertLess(abs(rest), 1e-4)

    def test_what_cannot_be_balanced_shows_in_y(self):
        for sums in ({3: 1000, 4: 100, 5: 0}, {3: -1000, 4: 0, 5: 1}, {3: -1, 4: -1, 5: -1}):
            with self.subTest(sums=sums):
                self.assertGreater(abs(self.final("Y", x=2, reg={1: 10, 2: 0, **sums})), 0.5)

    def test_a_payment_to_nine_digits(self):
        i, n = 0.005, 360
        self.assert_close(self.x(x=4, reg={1: n, 2: 0.5, 3: 100000, 5: 0}),
                          -100000 * i / (1 - (1 + i) ** -n))

    def test_the_rate_that_doubles_in_ten_years(self):
        self.assert_close(self.x(x=2, reg={1: 10, 3: -1000, 4: 0, 5: 2000}), 100 * (2 ** 0.1 - 1))

    def test_the_time_that_doubles(self):
        self.assert_close(self.x(x=1, reg={2: 3, 3: -1, 4: 0, 5: 2}),
                          math.log(2) / math.log(1.03))


class DistanceTest(ExampleCase):
    name = "distance.txt"

    @staticmethod
    def unit(latitude, longitude):
        lat, lon = math.radians(latitude), math.radians(longitude)
        return (math.cos(lat) * math.cos(lon), math.cos(lat) * math.sin(lon), math.sin(lat))

    def reference(self, lat1, lon1, lat2, lon2):
        """By vectors: chord of the unit sphere, and the destination's
        components towards the east and the north of the departure."""
        here, there = self.unit(lat1, lon1), self.unit(lat2, lon2)
        chord = math.dist(here, there)
        east = self.unit(0, lon1 + 90)
        north = self.unit(lat1 + 90, lon1)
        course = math.atan2(sum(map(lambda a, b: a * b, there, east)),
                            sum(map(lambda a, b: a * b, there, north)))
        return 6371 * 2 * math.asin(min(chord / 2, 1)), math.degrees(course) % 360

    def test_distance_and_course(self):
        rows = [(51.5, -0.12, 40.7, -74), (40.7, -74, 51.5, -0.12), (-33.9, 151.2, 34.05, -118.25),
                (0, 0, 0, 90), (10, 179, 10, -179), (45, 10, 45.001, 10.001), (-20, 30, -70, 30)]
        for row in rows:
            with self.subTest(row=row):
                km, course = self.final("X", "Y", **dict(zip("tzyx", row)))
                wanted_km, wanted_course = self.reference(*row)
                self.assert_close(km, wanted_km)
                self.assert_close(course, wanted_course)

    def test_the_distance_in_degrees(self):
        self.assert_close(self.final(7, t=10, z=20, y=70, x=20), 60)

    def test_poles_equal_and_opposite_places(self):
        self.assert_close(self.x(t=90, z=0, y=-90, x=0), 6371 * math.pi)
        self.assert_close(self.x(t=12, z=34, y=-12, x=-146), 6371 * math.pi)
        self.assertEqual(self.x(t=0, z=5, y=0, x=5), 0)
        self.assertLess(self.x(t=52, z=13, y=52, x=13), 1e-9)


class FitTest(ExampleCase):
    name = "fit.txt"
    points = [(1, 2.2), (2, 2.9), (4, 5.3), (7, 7.1), (11, 12.4), (-3, -1.5)]

    def sums(self, points):
        n = len(points)
        columns = [[1] * n, [x for x, y in points], [x * x for x, y in points],
                   [y for x, y in points], [y * y for x, y in points], [x * y for x, y in points]]
        return dict(zip(range(10, 16), map(math.fsum, columns)))

    def reference(self, points):
        """Slope, intercept and correlation by distances from the means."""
        mx = statistics.fmean(x for x, y in points)
        my = statistics.fmean(y for x, y in points)
        sxx = math.fsum((x - mx) ** 2 for x, y in points)
        syy = math.fsum((y - my) ** 2 for x, y in points)
        sxy = math.fsum((x - mx) * (y - my) for x, y in points)
        return sxy / sxx, my - sxy / sxx * mx, sxy / math.sqrt(sxx * syy)

    def test_line_predictions_and_correlation(self):
        sums = self.sums(self.points)
        m, b, r = self.reference(self.points)

        slope, intercept = self.final("X", "Y", label=3, reg=sums)
        self.assert_close(slope, m)
        self.assert_close(intercept, b)
        self.assert_close(self.x(label=4, x=20, reg=sums), b + m * 20)
        self.assert_close(self.x(label=5, x=20, reg=sums), (20 - b) / m)
        self.assert_close(self.x(label=6, reg=sums), r)

    def test_points_are_taken_and_taken_out(self):
        taken = self.final(*range(10, 16), y=2.5, x=3, reg=self.sums(self.points))
        self.assertEqual(self.x(y=2.5, x=3, reg=self.sums(self.points)), 7)
        self.assertEqual(self.x(label=2, y=2.5, x=3, reg=self.sums(self.points)), 5)
        back = self.final(*range(10, 16), label=2, y=2.5, x=3, reg=dict(zip(range(10, 16), taken)))
        for value, wanted in zip(back, self.sums(self.points).values()):
            self.assert_close(value, wanted, 12)

    def test_a_session_on_the_keys(self):
        lines = [key_line("GSB", "0")]
        for x, y in ((1, 2), (2, 3), (3, 5)):
            lines += [f"text {y}\\r{x}", key_line("R/S")]
        states = self.session("text 5\\r6", key_line("Sum+"), lines[0], "state", *lines, "state",
                              "text 4", key_line("GSB", "4"), "state")

        self.assertEqual([shown(state) for state in states[:2]], [0, 3])
        self.assert_close(shown(states[2]), 19 / 3)

    def test_impossible_lines(self):
        self.assert_stops_with("Error: npts = 0", label=3, reg=self.sums([]))
        self.assert_stops_with("Error: bad summation", label=4, reg=self.sums([(2, 1), (2, 5)]))
        self.assert_stops_with("Error: divide by 0", label=6, reg=self.sums([(1, 5), (2, 5)]))


class DatesTest(ExampleCase):
    name = "dates.txt"

    @staticmethod
    def written(date):
        return round(date.year + date.month / 100 + date.day / 10000, 4)

    def test_days_between_two_dates(self):
        date = datetime.date
        rows = [(date(2000, 1, 1), date(2024, 2, 29)), (date(1999, 12, 31), date(2000, 1, 1)),
                (date(2024, 2, 28), date(2024, 3, 1)), (date(1900, 2, 28), date(1900, 3, 1)),
                (date(2026, 11, 21), date(1969, 7, 20)), (date(1, 1, 1), date(9999, 12, 31)),
                (date(2023, 10, 10), date(2023, 10, 10))]
        for first, second in rows:
            with self.subTest(first=first, second=second):
                self.assertEqual(self.x(y=self.written(first), x=self.written(second)),
                                 (second - first).days)

    def test_days_of_week_and_year(self):
        chance = random.Random(1)
        dates = [datetime.date.fromordinal(chance.randrange(1, datetime.date.max.toordinal()))
                 for _ in range(25)]
        dates += [datetime.date(2024, 12, 31), datetime.date(2023, 12, 31),
                  datetime.date(2000, 2, 29), datetime.date(2021, 8, 1), datetime.date(2021, 8, 2),
                  datetime.date(1600, 1, 1)]
        lines = []
        for date in dates:
            lines += [f"text {self.written(date):.4f}", key_line("GSB", "2"), "state",
                      f"text {self.written(date):.4f}", key_line("GSB", "3"), "state"]

        results = [shown(state) for state in self.session(*lines)]

        self.assertEqual(results[0::2], [date.isoweekday() for date in dates])
        self.assertEqual(results[1::2], [date.timetuple().tm_yday for date in dates])

    def test_impossible_dates_run_over(self):
        self.assertEqual(self.x(label=2, x=2023.0229), datetime.date(2023, 3, 1).isoweekday())


class DrawingCase(ExampleCase):

    def lines(self, state):
        return [(line["x"], line["y"]) for line in state["graph"]]

    def assert_clears(self, entry):
        """Draws the same on an empty graph and on one with a data set."""
        self.write("data.txt", "1\n2\n3\n")
        empty, used = self.session(entry, key_line("R/S"), "state", "graph open data.txt",
                                   entry, key_line("R/S"), "state")
        self.assertEqual(self.lines(used), self.lines(empty))

    def assert_line(self, line, points):
        """The stored points are the expected ones as far as single precision
        goes."""
        self.assertEqual([len(values) for values in line], [len(points)] * 2)
        for x, y, (wanted_x, wanted_y) in zip(*line, points):
            self.assertLess(abs(x - wanted_x), 1e-6 * max(1, abs(wanted_x)))
            self.assertLess(abs(y - wanted_y), 1e-6 * max(1, abs(wanted_y)))


class PlotTest(DrawingCase):
    name = "plot.txt"

    def test_the_function_given(self):
        state = self.result(z=0, y=15, x=60).state

        self.assertEqual(shown(state), 15)
        self.assertEqual(state["graph_shown"], 1)
        line, = self.lines(state)
        self.assert_line(line, [(k / 4, math.exp(-k / 20) * math.cos(k / 4)) for k in range(61)])
        self.assertEqual(line[0], [to_float(k / 4) for k in range(61)])

    def test_a_function_of_the_users_own(self):
        self.put_function("x^2", "3", "-")
        line, = self.lines(self.result(z=-2, y=2, x=4).state)

        self.assertEqual(line, ([-2, -1, 0, 1, 2], [1, -2, -3, -2, 1]))
        self.assertEqual([line], self.lines(self.result(z=-2, y=2, x=-4.5).state))

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 0\\r1\\r2")

    def test_no_steps(self):
        self.assert_stops_with("Error: divide by 0", z=0, y=1, x=0)


class DampedTest(DrawingCase):
    name = "damped.txt"

    def test_an_oscillation_between_two_curves(self):
        for swings, decrement in ((5, 0.4), (1, 0), (2, -0.25), (0, 3)):
            with self.subTest(swings=swings, decrement=decrement):
                state = self.result(y=swings, x=decrement).state
                times = [k / 30 for k in range(30 * swings + 1)]
                left = [math.exp(-decrement * t) for t in times]

                self.assert_close(shown(state), left[-1])
                wave, above, below = self.lines(state)
                self.assert_line(wave, [(t, a * math.cos(2 * math.pi * t))
                                        for t, a in zip(times, left)])
                self.assert_line(above, list(zip(times, left)))
                self.assert_line(below, [(t, -a) for t, a in zip(times, left)])

    def test_sign_and_fraction_of_the_swings_are_ignored(self):
        self.assertEqual(self.lines(self.result(y=-2.9, x=0.1).state),
                         self.lines(self.result(y=2, x=0.1).state))

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 2\\r0.1")

    def test_the_most_swings(self):
        self.assertEqual(len(self.lines(self.result(y=426, x=0).state)[0][0]), 12781)


class DiceTest(DrawingCase):
    name = "dice.txt"

    @staticmethod
    def counts(seed, throws):
        """The result of the generator in the header."""
        counts, r = [0] * 13, math.modf(abs(seed))[0]
        for _ in range(max(throws, 1)):
            pips = 0
            for _ in range(2):
                r = math.modf(9821 * r + 0.211327)[0]
                pips += int(6 * r) + 1
            counts[pips] += 1
        return counts[2:]

    def test_the_counts_of_each_sum(self):
        for seed, throws in ((0.5, 600), (0.1, 1), (12.75, 3000), (-0.3, 50)):
            with self.subTest(seed=seed, throws=throws):
                state = self.result(y=seed, x=throws).state
                counts = self.counts(seed, throws)

                self.assertEqual(shown(state), counts[5])
                (x, y), = self.lines(state)
                self.assertEqual((x, y), (list(range(2, 13)), counts))
                self.assertEqual(sum(y), throws)

    def test_many_throws_come_near_to_the_chances(self):
        (_, y), = self.lines(self.result(y=0.7, x=20000).state)
        for total, count in enumerate(y, 2):
            chance = (6 - abs(total - 7)) / 36
            self.assertLess(abs(count - 20000 * chance), 5 * math.sqrt(20000 * chance))

    def test_less_than_one_throw_is_one(self):
        for throws in (0, -5, 0.9):
            self.assertEqual(sum(self.lines(self.result(y=0.5, x=throws).state)[0][1]), 1)

    def test_the_second_game_begins_anew(self):
        self.assert_clears("text .5\\r60")


class LissajousTest(DrawingCase):
    name = "lissajous.txt"

    def test_the_figure(self):
        for a, b, ahead in ((3, 2, 20), (1, 1, 90), (5, -4, 0), (0.5, 7, -33)):
            with self.subTest(a=a, b=b, ahead=ahead):
                state = self.result(z=a, y=b, x=ahead).state

                self.assertEqual(shown(state), ahead)
                line, = self.lines(state)
                self.assert_line(line, [(math.sin(math.radians(a * t + ahead)),
                                         math.sin(math.radians(b * t)))
                                        for t in range(360, -1, -1)])

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 3\\r2\\r20")


class NewtonTest(DrawingCase):
    name = "newton.txt"

    def test_the_function_and_the_steps_to_its_root(self):
        state = self.result(z=1, y=4, x=3.8).state
        curve, steps = self.lines(state)

        def f(x):
            return x ** 3 - 2 * x - 5

        self.assert_close(shown(state), 2.0945514815423265)
        self.assertLess(abs(shown(state, "Y")), 1e-8)
        self.assert_line(curve, [(x, f(x)) for x in (4 - 3 / 40 * k for k in range(40, -1, -1))])
        guess, wanted = 3.8, []
        for _ in range(len(steps[0]) // 2):
            wanted += [(guess, 0), (guess, f(guess))]
            guess -= f(guess) / (3 * guess ** 2 - 2)
        self.assertEqual(len(steps[0]), len(wanted))
        for x, y, (wanted_x, wanted_y) in zip(*steps, wanted):
            self.assertLess(max(abs(x - wanted_x), abs(y - wanted_y)), 1e-4)

    def test_a_function_of_the_users_own(self):
        self.put_function("RAD", "cos")
        self.assert_close(self.x(z=1, y=2, x=1.2), math.pi / 2)

    def test_twenty_steps_without_a_root(self):
        self.put_function("x^2", "1", "+")
        state = self.result(z=-2, y=2, x=0.5).state
        self.assertEqual(len(self.lines(state)[1][0]), 40)

    def test_a_level_function(self):
        self.put_function("CLX", "5")
        self.assert_stops_with("Error: divide by 0", z=0, y=1, x=0)

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 1\\r4\\r3.8")


class TrendTest(DrawingCase):
    name = "trend.txt"

    def test_points_and_the_line_of_least_squares(self):
        for values in ((1.2, 1.7, 3.1, 3.3, 4.6, 5.1), (3, -3), (5, 5, 5), range(9, 0, -1)):
            with self.subTest(values=values):
                count = len(values)
                state = self.result(x=count, reg=dict(enumerate(values, 1))).state
                slope, intercept = statistics.linear_regression(range(1, count + 1), values)

                self.assertLess(abs(shown(state) - slope), 1e-9)
                self.assertLess(abs(shown(state, "Y") - intercept), 1e-9)
                *points, line = self.lines(state)
                for x, point in zip(range(count, 0, -1), points):
                    self.assert_line(point, [(x, values[x - 1])])
                self.assertEqual(len(points), count)
                self.assert_line(line, [(x, intercept + slope * x) for x in (0, count + 1)])

    def test_one_point_has_no_line(self):
        self.assert_stops_with("Error: bad summation", x=1)

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 4")


class ThrowsTest(DrawingCase):
    name = "throws.txt"

    def test_five_parabolas(self):
        for speed in (30, 1, 123.4):
            with self.subTest(speed=speed):
                state = self.result(x=speed).state
                lines = self.lines(state)

                self.assert_close(shown(state), speed ** 2 / 9.80665)
                self.assertEqual(len(lines), 5)
                for line, degrees in zip(lines, (15, 30, 45, 60, 75)):
                    self.assert_line(line, self.flight(speed, math.radians(degrees)))

    @staticmethod
    def flight(speed, angle):
        """Points at equal times, which are equal distances too."""
        upwards, g = speed * math.sin(angle), 9.80665
        times = [k / 20 * 2 * upwards / g for k in range(21)]
        return [(speed * math.cos(angle) * t, upwards * t - g * t * t / 2) for t in times]

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 30")

    def test_nothing_is_thrown(self):
        self.assert_stops_with("Error: divide by 0", x=0)


class WavesTest(DrawingCase):
    name = "waves.txt"

    @staticmethod
    def wave(terms):
        return [(x, 4 / math.pi * sum(math.sin(k * x) / k for k in range(1, 2 * terms, 2)))
                for x in (math.pi * step / 20 for step in range(41))]

    def test_each_line_has_one_wave_more(self):
        for count in (1, 4, 9):
            with self.subTest(count=count):
                state = self.result(x=count).state
                self.assertEqual(shown(state), count)
                self.assertEqual(len(state["graph"]), count)
                for terms, line in enumerate(self.lines(state), 1):
                    self.assert_line(line, self.wave(terms))
                self.assertEqual([line["label"] for line in state["graph"]],
                                 [f"data line # {terms}" for terms in range(1, count + 1)])

    def test_what_was_drawn_before_is_cleared(self):
        self.assert_clears("text 1")

    def test_the_data_file(self):
        self.run_program(self.name, "--x", "4", "--graph", "waves-drawn.txt")
        lines = self.read_text("waves-drawn.txt").splitlines()

        self.assertEqual(lines[0], "ExplicitX")
        rows = [[float(value) for value in line.split(",")] for line in lines[-41:]]
        for terms in range(1, 5):
            for row, (x, y) in zip(rows, self.wave(terms)):
                self.assertLess(max(abs(row[0] - x), abs(row[terms] - y)), 2e-6)


class GammaTest(ExampleCase):
    name = "gamma.txt"

    def test_gamma(self):
        for x in (0.5, 1, 2, 3.7, 11.99, 12, 12.01, 0.001, 40.25, 69.9, -0.5, -1.5, -7.3, -30.75):
            with self.subTest(x=x):
                self.assert_close(self.x(x=x), math.gamma(x), 10)

    def test_factorial(self):
        for n in (0, 1, 5, 13, 20, 69):
            with self.subTest(n=n):
                self.assert_close(self.x(label=1, x=n), math.factorial(n), 11)

    def test_poles(self):
        self.assert_stops_with("Error: divide by 0", x=0)
        self.assert_stops_with("Error: divide by 0", x=-4)
        self.assert_stops_with("Error: divide by 0", label=1, x=-1)

    def test_beyond_the_largest_number(self):
        self.assertEqual(self.x(x=75), 9.999999999e99)


class BaseTest(ExampleCase):
    name = "base.txt"

    @staticmethod
    def digits(n, base):
        found = []
        while n:
            n, digit = divmod(n, base)
            found.append(digit)
        return found[::-1] or [0]

    def written(self, n, base):
        width = 1 if base <= 10 else 2
        return int("".join(f"{digit:0{width}}" for digit in self.digits(n, base)))

    def test_there_and_back(self):
        rows = [(10, 2), (0, 2), (1, 7), (255, 16), (1961, 16), (8191, 2), (123456, 10), (99, 100),
                (9999999, 11), (1000000, 99), (123456789, 8), (32767, 3)]
        for n, base in rows:
            with self.subTest(n=n, base=base):
                self.assertEqual(self.x(y=n, x=base), self.written(n, base))
                self.assertEqual(self.x(label=1, y=self.written(n, base), x=base), n)

    def test_signs_and_fractions_are_ignored(self):
        self.assertEqual(self.x(y=-10.9, x=-2.5), 1010)

    def test_no_base(self):
        self.assert_stops_with("Error: divide by 0", y=5, x=1)
        self.assert_stops_with("Error: divide by 0", y=5, x=0)


class SortTest(ExampleCase):
    name = "sort.txt"

    def test_sorts(self):
        chance = random.Random(2)
        rows = [[3, 1, 2], [5], [2, 1], [1, 2], [7, 7, 7], [0, -1, 1e99, -1e99, 0.5],
                list(range(20, 0, -1)), [chance.uniform(-9, 9) for _ in range(20)],
                [chance.randrange(4) for _ in range(15)]]
        for values in rows:
            with self.subTest(values=values):
                registers = dict(enumerate(values, 10))
                after = self.result(x=len(values), reg=registers).state
                self.assertEqual(after["reg"][10:10 + len(values)], sorted(values))
                self.assertEqual((shown(after), shown(after, "Y")), (min(values), max(values)))

    def test_registers_behind_the_last_one_stay(self):
        after = self.result(x=2, reg={10: 9, 11: 8, 12: 1}).state
        self.assertEqual(after["reg"][10:13], [8, 9, 1])

    def test_too_many(self):
        self.assert_stops_with("Error: no such reg", x=21, reg={10: 1})


class RunningTest(ExampleCase):
    name = "running.txt"

    def collect(self, values):
        lines = [key_line("GSB", "0")]
        for value in values:
            lines += [f"text {abs(value)}", *([key_line("CHS")] if value < 0 else []),
                      key_line("R/S")]
        return self.session(*lines, "state", key_line("GSB", "2"), "state", key_line("GSB", "3"),
                            "state")

    def test_a_session_on_the_keys(self):
        rows = [[2, 4, 9, 17], [-1.5, 2.25, -3, 0.125, 7], [1000000001, 1000000002, 1000000003],
                [4, 4]]
        for values in rows:
            with self.subTest(values=values):
                count, moments, extremes = self.collect(values)
                self.assertEqual(shown(count), len(values))
                self.assert_close(shown(moments), statistics.fmean(values))
                self.assert_close(shown(moments, "Y"), statistics.stdev(values))
                self.assertEqual((shown(extremes), shown(extremes, "Y")),
                                 (min(values), max(values)))

    def test_one_value_by_the_command_line(self):
        before = {1: 3, 2: 5, 3: 26, 4: 2, 5: 9}
        self.assertEqual(self.final(*range(1, 6), x=17, reg=before), [4, 8, 134, 2, 17])
        self.assertEqual(self.final(*range(1, 6), x=-3, reg=before), [4, 3, 74, -3, 9])
        cleared = {1: 0, 2: 0, 3: 0, 4: -1e6, 5: 1e6}
        self.assertEqual(self.final(*range(1, 6), x=-7, reg=cleared), [1, -7, 0, -7, -7])
        self.assertEqual(self.final(1, 2, 3, label=0), [0, 0, 0])

    def test_one_value_has_no_deviation(self):
        self.assert_stops_with("Error: divide by 0", label=2, reg={1: 1, 2: 5})


class LanderTest(ExampleCase):
    name = "lander.txt"

    @staticmethod
    def second(height, speed, fuel, burn):
        """One second: height, speed, fuel after it; height 0 on the ground."""
        burn = min(abs(burn), 10, fuel)
        change = 1.62 - burn
        below = height - speed - change / 2
        if below > 0:
            return below, speed + change, fuel - burn
        return 0, math.sqrt(abs(speed ** 2 + 2 * change * height)), fuel - burn

    def test_single_seconds(self):
        rows = [(100, 20, 15, 10), (100, 20, 15, 25), (100, 20, 3, 10), (100, -4, 15, -2),
                (1, 1, 2, 0), (30, 40, 15, 5), (500, 50, 0, 9), (3, 2, 9, 1.62)]
        for height, speed, fuel, burn in rows:
            with self.subTest(height=height, speed=speed, fuel=fuel, burn=burn):
                result = self.result(x=burn, reg={1: height, 2: speed, 3: fuel})
                wanted = self.second(height, speed, fuel, burn)
                for value, level in zip(wanted, "XYZ"):
                    self.assert_close(shown(result.state, level), value)
                pauses = result.err.splitlines()
                if wanted[0]:
                    self.assertEqual(pauses, [f"{value: .2f}" for value in wanted])
                else:
                    flash = " 77777.00" if wanted[1] <= 3 else " 0.00"
                    self.assertEqual(pauses, [flash] * 3)

    def test_a_whole_game(self):
        burns = [0] * 5 + [10] * 7 + [0, 3, 2, 1] + [2] * 60
        position, lines = (500, 50, 80), []
        for burn in burns:
            position = self.second(*position, burn)
            lines += [f"text {burn}", key_line("R/S"), "state"]
            if position[0] == 0:
                break

        states = self.session(key_line("GSB", "0"), "state", *lines)

        self.assertEqual([shown(states[0], level) for level in "XYZ"], [500, 50, 80])
        for value, level in zip(position, "XYZ"):
            self.assert_close(shown(states[-1], level), value)
        self.assertTrue(all(shown(state) > 0 for state in states[:-1]))


class NormalTest(ExampleCase):
    name = "normal.txt"

    def test_probability_of_a_value(self):
        for z in (0, 0.1, 1, 1.96, 2.4999, 2.5, 2.5001, 5, 12, 21, -0.7, -2.6, -9):
            with self.subTest(z=z):
                self.assert_close(self.x(x=z), math.erfc(z / math.sqrt(2)) / 2, 10)

    def test_value_of_a_probability(self):
        for q in (0.5, 0.4, 0.05, 1e-3, 1e-9, 1e-30, 1e-90, 0.6, 0.9999):
            with self.subTest(q=q):
                z = self.x(label=1, x=q)
                self.assert_close(z, -statistics.NormalDist().inv_cdf(q))

    def test_impossible_probability(self):
        self.assert_stops_with("Error: divide by 0", label=1, x=1.5)


class QueensTest(ExampleCase):
    name = "queens.txt"

    @staticmethod
    def solutions(size):
        def extend(columns):
            if len(columns) == size:
                yield int("".join(map(str, columns)))
            for column in range(1, size + 1):
                if all(column != other and abs(column - other) != len(columns) - row
                       for row, other in enumerate(columns)):
                    yield from extend(columns + [column])
        return list(extend([]))

    def test_first_solutions(self):
        for size in (1, 2, 3, 4, 7, 8, 9):
            with self.subTest(size=size):
                self.assertEqual(self.x(x=size), (self.solutions(size) or [0])[0])

    def test_all_solutions(self):
        for size in (4, 5, 6):
            wanted = self.solutions(size) + [0]
            states = self.session(f"text {size}", *[key_line("R/S"), "state"] * len(wanted))
            self.assertEqual([shown(state) for state in states], wanted)

    def test_the_next_board(self):
        states = self.session("text 3", key_line("R/S"), "text 4", key_line("R/S"), "state")
        self.assertEqual((shown(states[0]), states[0]["format"]), (2413, "FIX 0"))


class HeaderTest(ConsoleCase):
    """What the comment at the top of each listing promises."""

    headings = ("Start:", "Uses:", "Example:", "Limits:")

    def test_each_header_tells_all(self):
        for name in listings():
            with self.subTest(name=name):
                head = header(name)
                self.assertTrue(all(line.startswith(";") for line in head))
                self.assertRegex(head[0], "^; [A-Z]")
                for heading in self.headings:
                    self.assertTrue(any(line.startswith("; " + heading) for line in head),
                                    heading)
                self.assertTrue(all(len(line) <= 80 or "vorstek-cli" in line for line in head))

    def test_worked_examples_are_true(self):
        shutil.copytree(EXAMPLES, self.path("examples"))
        for name in listings():
            examples = examples_of(name)
            self.assertTrue(examples, name)
            for arguments, printed in examples:
                with self.subTest(arguments=arguments):
                    self.assertEqual(arguments[:2], ["run", "examples/" + name])
                    self.assertTrue(printed)
                    out = self.start(*arguments)
                    self.assertEqual((out.code, out.err), (0, ""))
                    kept = iter(out.out.splitlines())
                    for line in printed:
                        self.assertIn(line, kept)       # in this order

    def test_the_table_lists_each_example_with_its_first_command(self):
        rows = self.rows("run")

        self.assertEqual([row[0] for row in rows], listings())
        for name, target, arguments in rows:
            self.assertEqual(target, name)
            self.assertEqual(arguments.split(), examples_of(name)[0][0])


    def test_the_table_lists_each_data_file_with_a_command_that_works(self):
        shutil.copytree(EXAMPLES, self.path("examples"))
        rows = self.rows("plot")

        self.assertEqual(["data/" + row[0] for row in rows], [row[1] for row in rows])
        self.assertEqual([row[0] for row in rows], sorted(os.listdir(os.path.join(EXAMPLES,
                                                                                  "data"))))
        for _, target, arguments in rows:
            self.assertEqual(arguments.split()[1], "examples/" + target)
            out = self.start(*arguments.split())
            self.assertEqual((out.code, out.out, out.err), (0, "", ""))

    @staticmethod
    def rows(command):
        """File, link and arguments of the table with these commands."""
        return re.findall(rf"^\| \[(.+?)\]\((.+?)\) \|.*\| `vorstek-cli ({command} .+?)` \|$",
                          source("README.md"), re.M)


class AllTest(ConsoleCase):

    def keys(self, arguments):
        """Script lines that do on the keys what the options of run say."""
        options = list(zip(arguments[2::2], arguments[3::2]))
        lines = []
        for option, value in options:
            if option == "--reg":
                register, value = value.split("=")
                dotted = ["."] if int(register) > 9 else []
                lines += [*self.keyed(value), key_line("STO", *dotted, register[-1])]
        for level in "tzyx":
            lines += [*self.keyed(dict(options).get("--" + level, "0")), key_line("ENTER")]
        label = dict(options).get("--label")
        return lines[:-1] + [key_line("GSB", label) if label else key_line("R/S"), "state"]

    @staticmethod
    def keyed(value):
        return ["text " + value.lstrip("-")] + [key_line("CHS")] * value.startswith("-")

    def test_each_example_has_tests(self):
        tested = {case.name for case in _classes(ExampleCase) if case.name
                  and unittest.defaultTestLoader.getTestCaseNames(case)}

        self.assertEqual(sorted(tested), listings())
        self.assertGreaterEqual(len(tested), 12)

    def test_each_example_passes_the_check(self):
        result = self.start("check", *(os.path.join(EXAMPLES, name) for name in listings()))

        self.assertEqual((result.code, result.out, result.err), (0, "", ""))

    def test_each_example_has_the_canonical_form(self):
        result = self.start("fmt", "--check", "--diff",
                            *(os.path.join(EXAMPLES, name) for name in listings()))

        self.assertEqual((result.code, result.out, result.err), (0, "", ""))

    @staticmethod
    def modes(name):
        """Format and angle that the header says the program sets; else the
        previous ones."""
        uses = re.search("; Uses:(.*?)\n(; [A-Z]|;\n)", source(name), re.S).group(1)
        after = " ".join(re.findall("; After:.*", source(name)))
        found = re.search(r"(FIX|SCI) \d", uses + after)
        angle = re.search("RAD|DEG", uses)
        return found.group() if found else "FIX 3", angle.group() if angle else "GRD"

    def test_each_example_starts_again(self):
        """Once more with R/S, or GSB and its label, wherever it stopped. Only
        the queens take R/S for "next solution"."""
        shutil.copytree(EXAMPLES, self.path("examples"))
        for name in listings():
            if name == "queens.txt":
                continue
            for arguments, _ in examples_of(name):
                arguments = [word for word in arguments if word != "--registers"]
                with self.subTest(arguments=arguments):
                    again = self.keys(arguments)
                    states = self.states("option sound off", f"open examples/{name}",
                                         "limit 100000", key_line("g", "CHS"),
                                         key_line("f", "SST", "3"), *again, *again, *again)
                    self.assertEqual((states[0]["format"], states[0]["angle"]), self.modes(name))
                    first = states[0]["stack"][0]["value"]
                    self.assertEqual([state["stack"][0]["value"] for state in states], 3 * [first])
                    ran = self.run_program(*arguments[1:], "--json").state
                    self.assertEqual(ran["stack"][0]["value"], first)


def _classes(base):
    for case in base.__subclasses__():
        yield case
        yield from _classes(case)


if __name__ == "__main__":
    main()
