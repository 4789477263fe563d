"""Sounds as lists of numbers: struck bodies, noise, fades. 1.0 is full scale.

Everything is worked out with the language's own arithmetic and its own source
of random numbers, so that the same tools give the same sounds every time."""

import math
import random

FADE_IN = 0.0007        # seconds from silence to the first full sample
LAST_SILENCE = 0.0005   # seconds of nothing at the end


class Sound:
    """A sound of a fixed length, into which parts are mixed."""

    def __init__(self, samples, rate):
        self.rate = rate
        self.samples = [0.0] * samples

    def seconds(self):
        return len(self.samples) / self.rate

    def add(self, start, part):
        """part from the second start on; what runs beyond the end is left out."""
        first = round(start * self.rate)
        for i, value in enumerate(part[:len(self.samples) - first]):
            self.samples[first + i] += value

    def strike(self, start, gain, partials, attack=0.0004):
        """A struck body: partials are (hertz, gain, seconds to fall to 1/e)."""
        rate, length = self.rate, len(self.samples) - round(start * self.rate)
        part = [0.0] * length
        for hertz, level, decay in partials:
            step = 2 * math.pi * hertz / rate
            for i in range(length):
                part[i] += gain * level * math.exp(-i / (decay * rate)) * math.sin(step * i)
        rise = round(attack * rate)
        for i in range(min(rise, length)):
            part[i] *= (1 - math.cos(math.pi * i / rise)) / 2
        self.add(start, part)

    def hiss(self, start, gain, seed, length, low, high, shape):
        """Noise between two pitches, each a pair (at the start, at the end) in
        hertz, for length seconds; shape(0 to 1) is its loudness on the way."""
        noise = random.Random(seed)
        count = round(length * self.rate)
        below = above = 0.0
        part = []
        for i in range(count):
            way = i / count
            value = noise.uniform(-1, 1)
            above += self._weight(high, way) * (value - above)
            below += self._weight(low, way) * (above - below)
            part.append(gain * shape(way) * (above - below))
        self.add(start, part)

    def _weight(self, pitch, way):
        """Of a filter with one pole, at a point of the way."""
        hertz = pitch[0] * (pitch[1] / pitch[0]) ** way
        return 1 - math.exp(-2 * math.pi * hertz / self.rate)

    def warmed(self, hertz):
        """Takes the edge off: softens what lies above that pitch."""
        weight = self._weight((hertz, hertz), 0)
        level = 0.0
        for i, value in enumerate(self.samples):
            level += weight * (value - level)
            self.samples[i] = level

    def finished(self, peak, fade_out):
        """The sound as whole numbers of 16 bits: it begins and ends in silence,
        swings around zero and has this peak. fade_out is in seconds."""
        envelope = self._envelope(fade_out)
        faded = [value * level for value, level in zip(self.samples, envelope)]
        middle = sum(faded) / sum(envelope)
        faded = [value - middle * level for value, level in zip(faded, envelope)]
        loudest = max(abs(value) for value in faded)
        return [round(32767 * peak * value / loudest) for value in faded]

    def _envelope(self, fade_out):
        count = len(self.samples)
        rise = round(FADE_IN * self.rate)
        fall = round(fade_out * self.rate)
        end = count - round(LAST_SILENCE * self.rate)
        return [self._bow(i / rise) * self._bow((end - i) / fall) for i in range(count)]

    @staticmethod
    def _bow(way):
        """From 0 to 1 without a corner."""
        return (1 - math.cos(math.pi * min(max(way, 0), 1))) / 2
