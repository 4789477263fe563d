"""Instructions of listings, and keys of the state object."""

# All instructions with each kind of operand that they take.
PLAIN = ("GSB i", "GTO i", "RTN", "Mean", "StdDev", "LR", "Sum-", "x<>y", "Rolldown", "STO i",
         "STO+ i", "STO- i", "STO* i", "STO/ i", "RCL i", "RCLSum+", "Sum+", "%", "DSZ", "ISZ",
         "ClearREG", "ClearSum", "ENTER", "CHS", "CLX", "GRD", "RAD", "DEG", "ln", "log", "->R",
         "-", "e^x", "10^x", "->P", "sin", "cos", "tan", "+", "sin^-1", "cos^-1", "tan^-1", "INT",
         "sqrt", "y^x", "*", "FRAC", "x^2", "ABS", "->H.MS", "LASTx", "PAUSE", "/", "R/S", "->H",
         "pi", "1/x", "x<=y", "x>y", "x!=y", "x=y", "x<0", "x>0", "x!=0", "x=0", "ClearG", "SumG",
         "SetG")
DIGIT = ("FIX", "SCI", "ENG", "GSB", "GTO", "LBL")
REGISTER = ("STO", "RCL", "STO+", "STO-", "STO*", "STO/")

# The state object and its parts, keys in their order.
STATE_KEYS = [
    "mode", "display", "stack", "lastx", "reg", "stack_lift", "format", "angle",
    "entry", "exponent", "keystrokes", "last_op", "saved_last_op", "show_stack",
    "modified", "line", "returns", "file", "program", "listing", "highlight",
    "registers", "listing_shown", "registers_shown", "graph_shown", "options",
    "switch_pending", "graph_line", "graph_title", "graph_label", "graph"]
LEVEL_KEYS = ["text", "value"]
OPTION_KEYS = ["sound", "trace", "keep_listing", "keep_registers"]
DATA_SET_KEYS = ["label", "type", "color", "width", "style", "multiplier", "offset", "x", "y"]
