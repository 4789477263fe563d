"""Where everything is on the calculator's face, in units: pixels of the face
at 96 dpi.

The key rectangles, the switches and the black display field are those that
the keypad control and the display painting use; the one-pixel irregularities
are part of them. The check script keeps its own copy of these figures.
"""

import math

FACE_WIDTH = 306
FACE_HEIGHT = 567
KEY_HEIGHT = 31

SWITCH_WIDTH = 36
SWITCH_HEIGHT = 14
SWITCH_THUMB = 24
SWITCH_TRAVEL = SWITCH_WIDTH - SWITCH_THUMB
SWITCH_FRAMES = 14          # thumb positions 0 to 12; the last frame repeats 12

# Slide switches: left, top, thumb position at rest, left and right label.
SWITCHES = (
    (78, 106, 0, "X", "STACK"),
    (190, 106, SWITCH_TRAVEL, "PRGM", "RUN"),
)

# Left, top, right, bottom of the field that stays pure black: larger than the
# rectangle that the program blanks, because the longest texts run past it.
BLACK_FIELD = (40, 36, 270, 94)

# The glass of the display around that field.
WINDOW = (28, 23, 282, 95)

# State lamps in the frame below the glass: left, top, kind. Prefix keys pending,
# program mode, running program; the last two are above the labels of the switch.
LAMP_WIDTH, LAMP_HEIGHT = 15, 9
LAMP_F, LAMP_G, LAMP_PROGRAM, LAMP_RUN = range(4)
LAMPS = ((44, 95, LAMP_F), (70, 95, LAMP_G), (164, 95, LAMP_PROGRAM), (234, 95, LAMP_RUN))

# Kinds of key cap.
FUNCTION, DIGIT, OPERATOR, ENTER, GOLD, BLUE = range(6)

# Left, top, width, kind, legend on the key, gold legend above it, blue legend
# on its front. The markup is that of lettering.py.
KEYS = (
    (39, 152, 35, FUNCTION, "SST", "FIX", "BST"),
    (87, 152, 35, FUNCTION, "GSB", "SCI", "RTN"),
    (135, 152, 35, FUNCTION, "GTO", "ENG", "LBL"),
    (182, 152, 35, GOLD, "f", "", ""),
    (231, 152, 35, BLUE, "g", "", ""),

    (39, 206, 35, FUNCTION, "x<swap>y", "<xbar>", "%"),
    (87, 206, 35, FUNCTION, "R<down>", "s", "i"),
    (135, 205, 35, FUNCTION, "STO", "L.R.", "DSZ"),
    (183, 205, 35, FUNCTION, "RCL", "CL G", "ISZ"),
    (231, 205, 35, FUNCTION, "<Sigma>+", "<Sigma><minus>", "DEL"),

    (39, 259, 83, ENTER, "ENTER", "", ""),
    (135, 259, 35, FUNCTION, "CHS", "CL PRGM", "GRD"),
    (183, 259, 35, FUNCTION, "EEX", "CL REG", "RAD"),
    (231, 259, 35, FUNCTION, "CLx", "CL <Sigma>", "DEG"),

    (39, 313, 35, OPERATOR, "<Minus>", "x<le>y", "x<lt>0"),
    (98, 313, 40, DIGIT, "7", "ln", "e<sup x>"),
    (162, 313, 40, DIGIT, "8", "log", "10<sup x>"),
    (225, 313, 40, DIGIT, "9", "<right>R", "<right>P"),

    (39, 367, 35, OPERATOR, "<Plus>", "x<gt>y", "x<gt>0"),
    (98, 367, 40, DIGIT, "4", "sin", "sin<sup -1>"),
    (162, 366, 40, DIGIT, "5", "cos", "cos<sup -1>"),
    (225, 366, 40, DIGIT, "6", "tan", "tan<sup -1>"),

    (40, 420, 35, OPERATOR, "<Times>", "x<ne>y", "x<ne>0"),
    (98, 420, 40, DIGIT, "1", "INT", "FRAC"),
    (162, 420, 40, DIGIT, "2", "<root x>", "x<sup 2>"),
    (225, 420, 40, DIGIT, "3", "y<sup x>", "ABS"),

    (41, 474, 35, OPERATOR, "<Divide>", "x<eq>y", "x<eq>0"),
    (99, 473, 40, DIGIT, "0", "SUM G", "SET G"),
    (162, 473, 40, DIGIT, "<Point>", "LAST x", "<pi>"),
    (225, 473, 40, FUNCTION, "R/S", "PAUSE", "1/x"),
)


def key_rect(key):
    """Left, top, right, bottom; right and bottom are outside."""
    left, top, width = key[:3]
    return left, top, left + width, top + KEY_HEIGHT


def switch_rect(switch):
    left, top = switch[:2]
    return left, top, left + SWITCH_WIDTH, top + SWITCH_HEIGHT


def lamp_rect(lamp):
    left, top = lamp[:2]
    return left, top, left + LAMP_WIDTH, top + LAMP_HEIGHT


def pixels(edge, scale):
    """The pixel of an edge at a scale, halves rounded up as the window does."""
    return math.floor(edge * scale + 0.5)


def scaled(rect, scale):
    """A rectangle at a scale: every edge by itself, so that neighbours meet."""
    return tuple(pixels(edge, scale) for edge in rect)
