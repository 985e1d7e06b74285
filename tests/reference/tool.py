"""Runs the tool on a set of options and holds every value of its JSON against the independent document."""

import json
import math
import subprocess

import measures as measure
import notes as note
import pages as page_series
from document import Document
from ieee import Fault

TOLERANCE = 1e-9
STATUS_DONE = 0
STATUS_UNREADABLE = 3
LONGEST_RUN_S = 120


def refuse_constant(text):
    raise ValueError("JSON holds " + text)


class Tally:
    """How many values were compared, how far they were apart at most, and what disagreed."""

    def __init__(self):
        self.values = self.texts = self.runs = self.finished_runs = self.series = self.failed_pages = self.notes = 0
        self.largest, self.where = 0.0, ""
        self.faults = []

    def fault(self, place, expected, seen):
        self.faults.append("%s: expected %r, the tool says %r" % (place, expected, seen))

    def same(self, place, expected, seen):
        self.texts += 1
        if expected != seen or type(expected) is not type(seen):
            self.fault(place, expected, seen)

    def near(self, place, expected, seen, scale=0.0):
        """A number within the tolerance of the larger of its own size and `scale`; null where it is not finite."""
        self.values += 1
        if not math.isfinite(expected):
            if seen is not None:
                self.fault(place, expected, seen)
            return
        if isinstance(seen, bool) or not isinstance(seen, (int, float)):
            self.fault(place, expected, seen)
            return
        size = max(abs(expected), scale)
        deviation = abs(expected - seen) / size if size > 0.0 else abs(seen)
        if deviation > self.largest:
            self.largest, self.where = deviation, place
        if not deviation <= TOLERANCE:
            self.fault(place, expected, seen)

    def near_all(self, place, expected, seen, scale=0.0):
        if not isinstance(seen, list) or len(expected) != len(seen):
            self.fault(place + " length", len(expected), len(seen) if isinstance(seen, list) else seen)
            return
        for i, value in enumerate(expected):
            self.near("%s[%d]" % (place, i), value, seen[i], scale)

    def report(self):
        return ("%d runs (%d completed), %d series, %d refused pages, %d notes, %d numbers and %d texts compared, "
                "largest deviation %.3g %s" % (self.runs, self.finished_runs, self.series, self.failed_pages,
                                               self.notes, self.values, self.texts, self.largest, self.where))


def arguments(options):
    words = ["compare", "--pages", "--json", "-", "--corridor", repr(options.corridor)]
    if options.reference is not None:
        words += ["--reference", options.reference]
    if options.channel_class is not None:
        words += ["--cfc", str(options.channel_class)]
    if not options.filter_reference:
        words.append("--no-filter-reference")
    if options.window:
        words += ["--window", repr(options.window[0]), repr(options.window[1])]
    for name, value in options.critical.items():
        if value != measure.DEFAULT_CRITICAL[name]:
            words += ["--critical", "%s=%r" % (name, value)]
    return words


def check_run(tally, tool, folder, label, options, file_words=None):
    """One run of the tool in `folder`, where both sides read the same relative paths; the caller must be
    in it, too. Returns the independent document."""
    tally.runs += 1
    command = [tool] + arguments(options) + (options.files if file_words is None else file_words)
    finished = subprocess.run(command, cwd=folder, capture_output=True, timeout=LONGEST_RUN_S, check=False)
    complaints = finished.stderr.decode("utf-8")
    document = Document(options)
    complete = document.run()
    if finished.returncode not in (STATUS_DONE, STATUS_UNREADABLE):
        tally.fault(label + " status", "0 or 3", "%d\n%s" % (finished.returncode, complaints))
        return document
    result = json.loads(finished.stdout.decode("utf-8"), parse_constant=refuse_constant)
    failed = bool(document.errors or document.reference_errors)
    tally.same(label + " status", STATUS_UNREADABLE if failed else STATUS_DONE, finished.returncode)
    for message in document.errors + document.reference_errors:
        if message not in complaints:
            tally.fault(label + " standard error", message, complaints)
    for message in note.complaints(document):
        if "quorvel-cli: " + message + "\n" not in complaints:
            tally.fault(label + " standard error", message, complaints)
    tally.same(label + " complaints of no common time", len(note.complaints(document)),
               complaints.count("no time in common") + complaints.count("No time in common"))
    check_head(tally, label, options, document, result)
    if complete:
        tally.finished_runs += 1
        check_reference(tally, label + " reference", document.reference, result["reference"])
        check_signals(tally, label, document, result["signals"])
        check_pages(tally, label, document, result["pages"], complaints)
    else:
        tally.same(label + " signals", [], result["signals"])
        tally.same(label + " pages", [], result["pages"])
    return document


def check_head(tally, label, options, document, result):
    settings = result["settings"]
    tally.same(label + " format", ["quorvel-compare", 1], [result["format"], result["version"]])
    tally.same(label + " cfc", options.channel_class, settings["cfc"])
    # A run without a channel class filters nothing, so the reference neither.
    tally.same(label + " filterReference", options.channel_class is not None and options.filter_reference,
               settings["filterReference"])
    tally.same(label + " window", list(options.window) if options.window else None, settings["window"])
    tally.near(label + " corridor", options.corridor, settings["corridor"])
    tally.same(label + " critical", sorted(options.critical), sorted(settings["critical"]))
    for name, value in options.critical.items():
        tally.near(label + " critical " + name, value, settings["critical"][name])
    tally.same(label + " errors", document.errors, result["errors"])
    tally.same(label + " referenceErrors", document.reference_errors, result["referenceErrors"])
    tally.same(label + " pageList", document.pages, result["pageList"])
    check_notes(tally, label, document.notes, result)


def check_notes(tally, place, expected, seen):
    """The member is present only when there is something to report."""
    tally.notes += len(expected)
    tally.same(place + " notes", note.as_json(expected) if expected else None, seen.get("notes"))


def check_reference(tally, label, signal, seen):
    record = signal.record
    tally.same(label + " path", signal.path, seen["path"])
    tally.same(label + " pointCount", len(record.y), seen["pointCount"])
    tally.near(label + " timeStep", record.step, seen["timeStep"])
    tally.same(label + " units", [record.x_units, record.y_units], [seen["xUnits"], seen["yUnits"]])
    tally.same(label + " warnings", record.warnings, seen["warnings"])
    check_notes(tally, label, signal.notes, seen)


def check_signals(tally, label, document, seen):
    tally.same(label + " signals", len(document.computed), len(seen))
    for i, (signal, shown) in enumerate(zip(document.computed, seen)):
        place = "%s signal %d" % (label, i)
        tally.same(place + " path", signal.path, shown["path"])
        tally.same(place + " referenceName", signal.reference_name, shown["referenceName"])
        tally.same(place + " pointCount", len(signal.record.y), shown["pointCount"])
        tally.same(place + " warnings", signal.record.warnings, shown["warnings"])
        check_notes(tally, place, signal.notes, shown)
        check_measures(tally, place, signal.measures, shown["measures"])
        tally.same(place + " columns",
                   measure.column_texts(signal.path, signal.reference_name, signal.measures), shown["columns"])
        tally.same(place + " verdicts", measure.verdicts(signal.measures, document.options.critical),
                   shown["verdicts"])


def check_measures(tally, place, expected, seen):
    tally.same(place + " measure names", sorted(expected), sorted(seen))
    for name in measure.SCALARS:
        tally.near(place + " " + name, float(expected[name]), seen[name])
    tally.near_all(place + " momentDifferences", expected["momentDifferences"], seen["momentDifferences"])


def check_pages(tally, label, document, seen, complaints):
    """The pages one after another on one document, so that what a page cuts is cut for the next."""
    tally.same(label + " pages", document.pages, [shown["id"] for shown in seen])
    for page, shown in zip(document.pages, seen):
        place = "%s page %d" % (label, page)
        before = [note.Sampling(signal.record) for signal in document.computed]
        try:
            series, error = page_series.build(document, page), None
        except Fault as fault:
            series, error = [], str(fault)
            tally.failed_pages += 1
        tally.same(place + " name", page_series.NAMES[page], shown["name"])
        tally.same(place + " error", [error, error is None], [shown["error"], shown["built"]])
        if error is not None and error not in complaints:
            tally.fault(place + " standard error", error, complaints)
        tally.same(place + " titles", list(page_series.titles(document, page)), [shown["xTitle"], shown["yTitle"]])
        tally.same(place + " counts", [max((len(one.y) for one in series), default=0), len(series)],
                   [shown["pointCount"], shown["seriesCount"]])
        check_page_notes(tally, place, page_series.NAMES[page], before, document, shown)
        check_series(tally, place, series, shown["series"])


def check_page_notes(tally, place, name, before, document, seen):
    expected = [dict(signal=i, **one) for i, signal in enumerate(document.computed)
                for one in note.as_json(note.cut_by_page(name, before[i], note.Sampling(signal.record)))]
    tally.notes += len(expected)
    tally.same(place + " notes", expected or None, seen.get("notes"))


def check_series(tally, place, expected, seen):
    tally.same(place + " names", [one.name for one in expected], [shown["name"] for shown in seen])
    for i, (one, shown) in enumerate(zip(expected, seen)):
        tally.series += 1
        span = max((abs(value) for value in one.x), default=0.0)
        tally.near_all("%s series %d x" % (place, i), one.x, shown["x"], span)
        tally.near_all("%s series %d y" % (place, i), one.y, shown["y"], one.scale)


def require(test, tally, numbers, **least):
    """Fails the test on any disagreement, and when less was compared than there is to compare."""
    print(tally.report(), flush=True)
    test.assertEqual([], tally.faults[:20], "%d disagreements" % len(tally.faults))
    test.assertGreaterEqual(tally.values, numbers)
    for name, count in least.items():
        test.assertGreaterEqual(getattr(tally, name), count, name)
