"""The sounds of the calculator: small dry ones for keys and switches, which are
heard a thousand times a day, and three notes that stand for what has happened.

Each is a function that fills a sound of a given length; TABLE says which file
it becomes, how large that is and how loud."""

import os
import struct

from synthesis import Sound

HEADER = 44         # bytes before the samples in a file with two chunks
COARSE = 22050      # samples a second: enough for knocks
FINE = 44100        # for tones with something above 11 kHz


def bar(hertz, decay):
    """A wooden bar over a tube: its first overtones are far up and die fast."""
    return ((hertz, 1.0, decay), (hertz * 3.93, 0.16, decay * 0.22),
            (hertz * 9.2, 0.05, decay * 0.06))


def plate(hertz, decay):
    """A metal bar struck softly: a pair of close tones that sway, an octave."""
    return ((hertz, 0.75, decay), (hertz * 1.0022, 0.25, decay),
            (hertz * 2.0, 0.22, decay * 0.55), (hertz * 4.02, 0.07, decay * 0.2))


# --- keys

def key_click(sound):
    """A stiff key snaps in: a tick, and the resonance of the case."""
    sound.hiss(0, 0.9, 1, 0.004, (900, 900), (5200, 2600), lambda way: (1 - way) ** 2)
    sound.strike(0, 0.55, ((2350, 0.5, 0.0028), (1480, 0.6, 0.0042), (640, 0.45, 0.0075)))
    sound.strike(0.017, 0.13, ((2900, 0.5, 0.002), (1700, 0.6, 0.003)))


def refusal(sound):
    """A shake of the head: two dull knocks, the second one lower."""
    sound.strike(0, 0.8, ((262, 1.0, 0.011), (498, 0.35, 0.006)), 0.0015)
    sound.strike(0.036, 0.8, ((208, 1.0, 0.012), (395, 0.3, 0.006)), 0.0015)
    sound.warmed(1500)


# --- slide switches

def slide_on(sound):
    """The thumb slides, faster and faster, and stops with a bright snap."""
    sound.hiss(0, 0.9, 2, 0.023, (700, 1800), (1500, 4800), lambda way: way ** 1.5)
    sound.strike(0.022, 0.6, ((3350, 0.5, 0.0022), (2120, 0.7, 0.0036), (930, 0.3, 0.005)))


def slide_off(sound):
    """The same way back: it comes loose with a low snap and runs out."""
    sound.strike(0, 0.6, ((1750, 0.45, 0.0025), (1120, 0.7, 0.004), (470, 0.5, 0.007)))
    sound.hiss(0.003, 0.4, 3, 0.036, (1500, 500), (4200, 1200), lambda way: (1 - way) ** 1.5)


def program_mode(sound):
    """A catch engages: two quick steps upwards."""
    sound.hiss(0, 0.5, 4, 0.003, (800, 800), (4000, 4000), lambda way: 1 - way)
    sound.strike(0, 0.5, ((1180, 0.8, 0.0032), (520, 0.5, 0.006)))
    sound.strike(0.0105, 0.8, ((2480, 0.35, 0.0028), (1760, 0.8, 0.0042), (780, 0.4, 0.006)))


def run_mode(sound):
    """The catch lets go: a step down onto something solid, which rings a
    little."""
    sound.hiss(0, 0.5, 5, 0.004, (800, 800), (4000, 2000), lambda way: 1 - way)
    sound.strike(0, 0.6, ((1760, 0.7, 0.0035), (780, 0.4, 0.006)))
    sound.strike(0.020, 0.8, ((1180, 0.6, 0.006), (590, 0.8, 0.016), (196, 0.6, 0.022)))


# --- notes

def error(sound):
    """Two notes downwards, like a shrug."""
    sound.strike(0, 0.8, bar(392.00, 0.085), 0.002)         # G
    sound.strike(0.135, 0.9, bar(311.13, 0.105), 0.002)     # E flat
    sound.warmed(5000)


def halted(sound):
    """A wheel that runs out: three notes down to the ground note, each heard
    longer than the one before."""
    sound.strike(0, 0.50, plate(783.99, 0.22), 0.003)       # G
    sound.strike(0.11, 0.55, plate(587.33, 0.30), 0.003)    # D
    sound.strike(0.25, 0.80, plate(392.00, 0.42), 0.004)    # G
    sound.strike(0.25, 0.35, plate(196.00, 0.46), 0.006)    # and the octave below
    sound.warmed(7000)


def cleared(sound):
    """All is well again: a fourth upwards that opens into a third."""
    sound.strike(0, 0.55, plate(587.33, 0.22), 0.003)       # D
    sound.strike(0.10, 0.65, plate(783.99, 0.34), 0.003)    # G
    sound.strike(0.20, 0.40, plate(987.77, 0.36), 0.004)    # B
    sound.warmed(8000)


# Name, bytes of the file, samples a second, sound, peak, fade at the end.
TABLE = (
    ("key_click.wav", 2596, COARSE, key_click, 0.30, 0.020),
    ("refusal.wav", 3550, COARSE, refusal, 0.42, 0.020),
    ("error.wav", 24168, COARSE, error, 0.40, 0.150),
    ("halted.wav", 150396, FINE, halted, 0.38, 0.600),
    ("cleared.wav", 119384, FINE, cleared, 0.34, 0.500),
    ("slide_on.wav", 1934, COARSE, slide_on, 0.30, 0.012),
    ("slide_off.wav", 2143, COARSE, slide_off, 0.30, 0.015),
    ("program_mode.wav", 1589, COARSE, program_mode, 0.36, 0.010),
    ("run_mode.wav", 4849, COARSE, run_mode, 0.38, 0.040),
)


def wave_file(size, rate, samples):
    """A RIFF file of size bytes with one channel of 16 bits. A RIFF form has
    an even length, so a zero follows it where size is odd."""
    data = struct.pack("<%dh" % len(samples), *samples)
    form = struct.pack("<4s4sIHHIIHH4sI", b"WAVE", b"fmt ", 16, 1, 1, rate, 2 * rate, 2, 16,
                       b"data", len(data)) + data
    return struct.pack("<4sI", b"RIFF", len(form)) + form + bytes(size % 2)


def make(folder):
    for name, size, rate, fill, peak, fade_out in TABLE:
        sound = Sound((size - HEADER) // 2, rate)
        fill(sound)
        data = wave_file(size, rate, sound.finished(peak, fade_out))
        with open(os.path.join(folder, name), "wb") as out:
            out.write(data)
