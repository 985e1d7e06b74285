"""Point files as text: one, two or three numbers on a line."""

import re

from ieee import Fault

SPACE = " \t\n\v\f\r"
REAL = re.compile(r"[+-]?(?:[0-9]+(?:\.[0-9]*)?|\.[0-9]+)(?:[eE][+-]?[0-9]+)?")
LINE_END = re.compile(r"\r\n|\r|\n|\Z")


def cleaned(text):
    """The text before the first empty line, line that begins with a tab, tab at a line's end, tab before a blank, or
    double blank; each cut works on what the one before it left."""
    for found, kept in (("\n\n", 1), ("\n\t", 1), ("\t\n", 0), ("\t ", 0), ("  ", 0)):
        position = text.find(found)
        if position >= 0:
            text = text[:position + kept]
    return text


def skip(text, position, characters):
    while position < len(text) and text[position] in characters:
        position += 1
    return position


def point(text, position, numbers):
    """The numbers of one line and the position after it, or None. No token ever gives characters back."""
    values = []
    for i in range(numbers):
        position = skip(text, position, SPACE if i == 0 else SPACE + ",")
        real = REAL.match(text, position)
        if not real:
            return None
        values.append(float(real.group()))
        position = real.end()
    end = LINE_END.match(text, position)
    return (values, end.end()) if end else None


def parse(text):
    """The points as (x, y) pairs; raises Fault unless the whole text is points."""
    points, position = [], 0
    for numbers in (1, 2, 3):
        while position < len(text):
            found = point(text, position, numbers)
            if not found:
                break
            values, position = found
            points.append((0.0, values[0]) if numbers == 1 else (values[0], values[1]))
    if position < len(text):
        raise Fault("Failure to parse the data.")
    return points


def read_ascii(path):
    try:
        with open(path, "rb") as file:
            text = file.read().decode("latin-1")
    except OSError:
        raise Fault("Failure to open file: " + path + " for reading.") from None
    try:
        return parse(cleaned(text))
    except Fault as fault:
        raise Fault("Failure to parse the file: " + path + " for reading.\n" + str(fault)) from None
