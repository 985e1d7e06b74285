#!/usr/bin/env python3
"""Checks every #include of ours against the table "May include" of docs/architecture.md.

    check_includes.py TREE

Prints one line per fault and exits with 1 when there are any. A row of the table covers a folder with its subfolders,
or one file; the longest row that fits a file counts. A row lists other rows (`files`) and libraries by their names in
LIBRARIES; the standard library and the system's headers are open to all.
"""

import re
import sys
from pathlib import Path

TABLE = "docs/architecture.md"
TESTS_FOLDER = "tests/support"

# Name in the table, headers. What none of them fits is the standard library's or the system's.
LIBRARIES = [("QCustomPlot", r"qcustomplot\.h"), ("Qt", r"Q[A-Za-z0-9/]+|q[a-z]+\.h"), ("Boost", r"boost/.+"),
             ("fast_float", r"fast_float/.+"), ("FFTW", r"fftw3\.h"), ("CLI11", r"CLI/.+"),
             ("nlohmann-json", r"nlohmann/.+"), ("X11", r"X11/.+"), ("GoogleTest", r"g(test|mock)/.+"),
             ("Google Benchmark", r"benchmark/.+")]
FOR_TESTS = {"GoogleTest", "Google Benchmark"}

# What the table may not allow, whoever edits it: the core builds without Qt, and the plotting library can be replaced by
# touching one folder.
CORE = ["files", "signal", "compare", "cli"]
ONLY_IN = {"QCustomPlot": "chart/qcustomplot"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
ROW = re.compile(r"^\| `([^`]+)` \|.*\|([^|]*)\|\s*$", re.MULTILINE)


class Table:
    """The rows of the table, each with the rows and the libraries it may include."""

    def __init__(self, text):
        self.rows, self.faults = {}, []
        section = text.split("| May include |", 1)[-1].split("\n\n", 1)[0]
        names = {name for name, _ in LIBRARIES}
        for row, allowed in ROW.findall(section):
            words = [word.strip().strip("`") for word in allowed.split(",")]
            self.rows[row.strip("/")] = set(words) - {"std", ""}
        for row, words in self.rows.items():
            self.faults += [f"{TABLE}: row {row} names {word}, which is neither a row nor a library"
                            for word in sorted(words - names - set(self.rows))]
        self.faults += self._settled_faults() + self._ring_faults()

    def _settled_faults(self):
        if not self.rows:
            return [f"{TABLE} has no table with a column \"May include\""]
        faults = [f"{TABLE}: row {row} is of the core and may not include {word}"
                  for row in CORE for word in sorted(self.rows.get(row, set()))
                  if word in ("Qt", "QCustomPlot") or word.split("/")[0] in ("widgets", "chart", "viewer", "app")]
        return faults + [f"{TABLE}: row {row} may not include {word}; {ONLY_IN[word]} alone may"
                         for row, words in self.rows.items() for word in sorted(words & set(ONLY_IN))
                         if row != ONLY_IN[word]]

    def _ring_faults(self):
        arrows = {row: sorted(words & set(self.rows)) for row, words in self.rows.items()}
        return [f"{TABLE}: the rows form a ring: {' -> '.join(ring)}" for ring in rings(arrows)]

    def row_of(self, path):
        """The row that covers a file; None when the table does not know its folder."""
        while path:
            if path in self.rows:
                return path
            path = path.rpartition("/")[0]
        return None


def rings(arrows):
    """Every ring that a depth-first walk over the arrows closes, as the names along it, from the first by name on."""
    found, done = [], set()

    def walk(name, way):
        if name in way:
            ring = way[way.index(name):]
            start = ring.index(min(ring))
            found.append(ring[start:] + ring[:start + 1])
            return
        if name in done:
            return
        for following in arrows.get(name, []):
            walk(following, way + [name])
        done.add(name)

    for name in sorted(arrows):
        walk(name, [])
    return found


def library_of(header):
    return next((name for name, pattern in LIBRARIES if re.fullmatch(pattern, header)), None)


def is_test(path):
    return re.search(r"_(test|bench|fuzz)\.cpp$|(^|/)testing/", path) is not None


def is_made(path):
    """Made by the build: what the moc and the form compiler write."""
    return path.endswith(".moc") or path.rpartition("/")[2].startswith("ui_")


class Checker:
    def __init__(self, tree):
        self.tree = Path(tree)
        self.table = Table((self.tree / TABLE).read_text(encoding="utf-8"))
        self.folders = sorted(path.name for path in self.tree.iterdir()
                              if path.is_dir() and path.name != "build" and not path.name.startswith("."))

    def sources(self):
        return sorted(path.relative_to(self.tree).as_posix() for folder in self.folders
                      for path in (self.tree / folder).rglob("*") if path.suffix in (".h", ".cpp"))

    def includes(self, path):
        text = (self.tree / path).read_text(encoding="utf-8")
        return [(text.count("\n", 0, match.start(2)) + 1, match.group(1) == '"', match.group(2))
                for match in INCLUDE.finditer(text)]

    def faults(self):
        faults, arrows = list(self.table.faults), {}
        for path in self.sources():
            arrows[path] = [header for _, is_ours, header in self.includes(path) if is_ours and path.endswith(".h")]
            faults += [f"{path}:{line}: {fault}" for line, is_ours, header in self.includes(path)
                       for fault in [self.fault_of(path, is_ours, header)] if fault]
            if self.table.row_of(path) is None:
                faults.append(f"{path}: {TABLE} has no row for it")
        return faults + [f"headers include each other: {' -> '.join(ring)}" for ring in rings(arrows)]

    def fault_of(self, path, is_ours, header):
        row = self.table.row_of(path)
        if row is None or is_made(header):
            return None
        return self.fault_of_ours(path, row, header) if is_ours else self.fault_of_library(path, row, header)

    def allowed(self, path, row):
        """What the row allows; a test in a folder below another may use what the one above may."""
        above = self.table.rows.get(row.split("/")[0], set()) if is_test(path) else set()
        return self.table.rows[row] | above

    def fault_of_library(self, path, row, header):
        library = library_of(header)
        if library is None or library in self.allowed(path, row) or (is_test(path) and library in FOR_TESTS):
            return None
        return f"<{header}> is {library}, which {row} may not include"

    def fault_of_ours(self, path, row, header):
        if not (self.tree / header).is_file():
            return f'"{header}" is no file of ours by its path from the top of the tree'
        target = self.table.row_of(header)
        if is_test(header) or target == TESTS_FOLDER:
            if not (is_test(path) or row == "bench" or path.startswith("tests/")):
                return f'"{header}" is for tests'
        if target == row or target in self.allowed(path, row):
            return None
        if is_test(path) and (target == TESTS_FOLDER or target.split("/")[0] == row.split("/")[0]):
            return None
        return f'"{header}" is of {target}, which {row} may not include'


def main(tree):
    faults = Checker(tree).faults()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
