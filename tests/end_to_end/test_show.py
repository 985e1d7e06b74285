"""quorvel-cli show: every field of a header under its label."""

import os
import struct
import subprocess
import unittest

from header_file import CURVE, FILE_FIELDS, SECOND_FIELDS, header_file, header_values
from support import CLI, SCALED, SHOW_SCHEMA, SOURCE, SUN, EndToEndTest, as_nobody, uds

# Labels of each group, each with its field and unit. A name in brackets is worked out below.
VEHICLE = [("Make:", "MAKE"), ("Year:", "YEAR"), ("Model:", "MODEL"), ("Engine Type:", "ENGINE"), ("Body:", "BODY"),
           ("Weight:", "VEHWGT", "(kgs)"), ("Speed:", "VEHSPD", "(kph)")]
OCCUPANT = [("Type:", "OCCTYP"), ("Sex:", "OCCSEX"), ("Weight:", "OCCWGT", "(kgs)"), ("Age:", "OCCAGE"),
            ("Dummy Size:", "OCCSIZ"), ("Primary Restraint:", "RSTPRI"), ("Secondary Restraint:", "RSTSEC")]


def numbered(group, number):
    return [(entry[0], entry[1] + number, *entry[2:]) for entry in group]


def named(*fields):
    return [(field + ":", field) for field in fields]


GROUPS = [
    ("File", [("Version:", "FILEVER"), ("Form:", "FILEFORM"), ("Number Format:", "NUMFORM"),
              ("Unit System:", "DIMSYS")]),
    ("Test", [("Source:", "TSTSRC"), ("Test Number:", "TSTNO"), ("Ref Number:", "TSTREF"),
              ("Configuration:", "TSTCFN"), ("Closing Speed:", "CLSSPD", "(kph)"), ("Performer:", "TSTPRF"),
              ("Title:", "TITLE")]),
    ("Vehicle One", numbered(VEHICLE, "1")),
    ("Vehicle Two", numbered(VEHICLE, "2")),
    ("Occupant One", numbered(OCCUPANT, "1")),
    ("Occupant Two", numbered(OCCUPANT, "2")),
    ("Occupant InJury", [("HIC:", "INJ1"), ("T1:", "INJ2", "(msec)"), ("T2:", "INJ3", "(msec)"), ("AIS:", "AIS")]),
    ("Curve", [("Curve:", "(curve)"), ("Status:", "STATUS"), ("Data Type:", "YTYPE"),
               ("Time Step:", "(step)", "(msec)"), ("Time Range:", "(range)", "(msec)"), ("Units:", "YUNITS"),
               ("SenAtt:", "SENATT"), ("Type:", "CURTYP"), ("InitVel:", "INIVEL", "(kph)"),
               ("Filter Cutoff:", "FCUT", "(Hz)"), ("Number of Points:", "(points)")]),
    ("Curve data and sensor", [("Curve Description:", "DESC"), ("CD1:", "CD1"), ("CD2:", "CD2"),
                               ("First Point:", "NFP"), ("Last Point:", "NLP"), ("Data Max:", "(max)"),
                               ("Data min:", "(min)"), ("Scale Factor:", "SCLFAC"), ("Axis:", "AXIS"),
                               ("Location:", "SENLOC")]),
    ("Curve User Data", named("ID1", "ID2", "ID3", "ID4", "ID5", "RD1", "RD2", "RD3", "RD4", "RD5")),
    ("Other File Fields", [("FILEID:", "(id)")]),
    ("Other Test Fields", named("TSTNAM", "IMPANG")),
    ("Other Vehicle One Fields", named("CMPNO1", "CMPTYP1", "CMPDSC1")),
    ("Other Vehicle Two Fields", named("CMPNO2", "CMPTYP2", "CMPDSC2")),
    ("Other Occupant InJury Fields", named("INJ4", "INJ5", "INJ6")),
    ("Other Curve Fields", named("ICHAN", "CHANFORM", "XTYPE", "XUNITS", "PREFIL", "FCOR", "FSTP")),
    ("Other Sensor Fields", named("SENNUM", "BANDNO", "GAGNO")),
    ("Extrema", [("XMax:", "(xmax)"), ("XMin:", "(xmin)"), ("YMax:", "(max)"), ("YMin:", "(min)")]),
]

SECOND_GROUPS = ["Vehicle Two", "Occupant Two", "Other Vehicle Two Fields"]


def shown(value):
    return "%f" % value if isinstance(value, float) else str(value)


def expected_groups(values):
    """The groups with (label, value, unit) of a file with these fields, of points -2 ... 2 half a second apart."""
    derived = {"(curve)": f"{values['CURNO']} {values['CURNAM']}", "(step)": "500.000000",
               "(range)": "-1000.000000 to 1000.000000", "(points)": "5", "(max)": "3.000000", "(min)": "-6.500000",
               "(xmax)": "1.000000", "(xmin)": "-1.000000", "(id)": "UDS-1992"}
    texts = {**derived, **{name: shown(value) for name, value in values.items()}}
    return [(title, [(label, texts[field], *(unit or [""])) for label, field, *unit in entries])
            for title, entries in GROUPS]


def report(path, groups, lacking=()):
    text = path + "\n"
    for title, entries in groups:
        text += title + "\n"
        if title in lacking:
            text += "  not in this file\n"
            continue
        text += "".join(f"  {label} {value}{' ' + unit if unit else ''}\n" for label, value, unit in entries)
    return text


class Show(EndToEndTest):
    def test_every_field_is_under_its_label(self):
        values = header_values()
        self.write("a.uds", header_file(values))
        run = self.run_cli("show", "a.uds")
        self.assertEqual((run.status, run.complaints), (0, ""))
        self.assertEqual(run.text, report("a.uds", expected_groups(values)))

    def test_every_field_of_the_format_is_expected_above(self):
        entries = [entry[1] for _, group in GROUPS for entry in group] + ["CURNO", "CURNAM", "delt"]
        fields = [name for _, _, name in FILE_FIELDS + SECOND_FIELDS + CURVE]
        self.assertEqual(sorted(name for name in entries if not name.startswith("(")), sorted(fields))

    def test_a_sun_file_shows_the_same_but_its_format(self):
        values = header_values()
        self.write("a.uds", header_file(values, form=SUN))
        self.assertEqual(self.run_cli("show", "a.uds").text,
                         report("a.uds", expected_groups({**values, "NUMFORM": "SUN"})))

    def test_a_missing_second_component_is_reported(self):
        values = {**header_values(second=False), **{name: "" for _, _, name in SECOND_FIELDS}}
        self.write("a.uds", header_file(values, second=False))
        self.assertEqual(self.run_cli("show", "a.uds").text, report("a.uds", expected_groups(values), SECOND_GROUPS))

    def test_texts_beyond_ascii(self):
        values = {**header_values(), "TITLE": "M\u00fcnchen 20\u00b0"}
        self.write("a.uds", header_file(values))
        self.assertIn("  Title: M\u00fcnchen 20\u00b0\n", self.run_cli("show", "a.uds").text)

    def test_control_characters_do_not_reach_the_terminal(self):
        self.write("a.uds", header_file({**header_values(), "TITLE": "\x1b[2J\nVersion: 9"}))
        self.assertIn("  Title: ?[2J?Version: 9\n", self.run_cli("show", "a.uds").text)

    def test_many_files_follow_each_other(self):
        self.write("a.uds", uds(SCALED))
        self.write("b.uds", uds(SCALED, units=b"KILOGRAMS"))
        one, two = self.run_cli("show", "a.uds").text, self.run_cli("show", "b.uds").text
        self.assertEqual(self.run_cli("show", "a.uds", "b.uds").text, one + "\n" + two)

    def test_the_users_locale_has_no_say(self):
        self.write("a", header_file(header_values()))
        outputs = {subprocess.run([CLI, "show", "a"], cwd=self.folder, env={**os.environ, "LC_ALL": name}, check=True,
                                  capture_output=True).stdout for name in ["C", "de_DE.UTF-8", "C.UTF-8"]}
        self.assertEqual(len(outputs), 1)

    def test_the_examples_have_headers(self):
        for path in sorted(SOURCE.glob("examples/*/*.001")):
            run = self.run_cli("show", str(path))
            self.assertEqual((run.status, run.err), (0, b""))
            self.assertIn("\n  Number Format: ", run.text)


class Json(EndToEndTest):
    def shown(self, *arguments, status=0):
        run = self.run_cli("show", "--json", *arguments)
        self.assertEqual(run.status, status, run.complaints)
        return self.parse(run.out, SHOW_SCHEMA)

    def test_fields_and_groups_are_those_of_the_file(self):
        values = header_values()
        self.write("a.uds", header_file(values))
        results = self.shown("a.uds")
        self.assertEqual(list(results), ["format", "version", "files", "errors"])
        [file] = results["files"]
        self.assertEqual(list(file), ["path", "secondComponent", "pointCount", "fields", "groups"])
        self.assertEqual((file["path"], file["secondComponent"], file["pointCount"]), ("a.uds", True, 5))
        self.assertEqual(file["fields"], {"FILEID": "UDS-1992", **values})
        groups = [(group["title"], [(entry["label"], entry["value"], entry["unit"]) for entry in group["entries"]])
                  for group in file["groups"]]
        self.assertEqual(groups, expected_groups(values))

    def test_fields_are_in_the_order_of_the_file(self):
        self.write("a.uds", header_file(header_values()))
        [file] = self.shown("a.uds")["files"]
        order = [[name for _, _, name in sorted(fields)] for fields in (FILE_FIELDS, SECOND_FIELDS, CURVE)]
        self.assertEqual(list(file["fields"]), ["FILEID"] + sum(order, []))

    def test_a_second_component_that_is_not_there_has_no_fields(self):
        values = header_values(second=False)
        self.write("a.uds", header_file(values, second=False))
        [file] = self.shown("a.uds")["files"]
        self.assertFalse(file["secondComponent"])
        self.assertEqual(file["fields"], {"FILEID": "UDS-1992", **values})
        self.assertEqual([group["title"] for group in file["groups"]],
                         [title for title, _ in GROUPS if title not in SECOND_GROUPS])

    def test_reals_keep_every_bit_and_are_null_where_not_finite(self):
        tenth = struct.unpack("<f", struct.pack("<f", 0.1))[0]
        self.write("a.uds", header_file({**header_values(), "FCUT": tenth, "FCOR": float("inf"),
                                         "CLSSPD": float("nan")}))
        fields = self.shown("a.uds")["files"][0]["fields"]
        self.assertEqual(fields["FCUT"], tenth)
        self.assertIsNone(fields["FCOR"])
        self.assertEqual(fields["CLSSPD"], 0.0, "what is no number is read as 0")

    def test_what_cannot_be_read_is_among_the_errors(self):
        self.write("a.uds", SCALED)
        results = self.shown("missing", "a.uds", "", status=3)
        self.assertEqual([file["path"] for file in results["files"]], ["a.uds"])
        self.assertEqual(results["errors"], [
            {"path": "missing", "message": "Failure to open file: missing for reading."},
            {"path": "", "message": "Failure read file due to empty path and file name."}])


class Failures(EndToEndTest):
    def test_the_others_are_shown(self):
        self.write("a.uds", SCALED)
        self.write("text.txt", b"0 1\n1 2\n")
        os.mkdir(self.folder / "folder")
        run = self.run_cli("show", "missing", "a.uds", "text.txt", "folder")
        self.assertEqual(run.status, 3)
        self.assertEqual(run.text, self.run_cli("show", "a.uds").text)
        self.assertComplaints(
            run, "quorvel-cli: Failure to open file: missing for reading.", "quorvel-cli: Could not be read: missing",
            "quorvel-cli: File size not a multiple of 512 bytes.", "quorvel-cli: Could not be read: text.txt",
            "quorvel-cli: Failure to open file: folder for reading.", "quorvel-cli: Could not be read: folder")

    def test_damaged_files_get_the_readers_sentence(self):
        image = header_file(header_values())
        damaged = {"Not a UDS-1992 Signal File": b"UDS-1993" + image[8:],
                   "Invalid 3rd Record Header": image[:1024] + b"CURVE XXX" + image[1033:],
                   "Data buffer too small": image[:512],
                   "File size too small - Insufficient data points": image[:1536],
                   "Unknown Data Block": image[:1536] + b"Z" + image[1537:]}
        for sentence, content in damaged.items():
            self.write("a.uds", content)
            run = self.run_cli("show", "a.uds")
            self.assertEqual((run.status, run.out), (3, b""), sentence)
            self.assertComplaints(run, f"quorvel-cli: {sentence}", "quorvel-cli: Could not be read: a.uds")

    def test_an_unreadable_file(self):
        self.write("closed.uds", SCALED)
        os.chmod(self.folder / "closed.uds", 0)
        os.chmod(self.folder, 0o755)
        try:
            run = self.run_cli("show", "closed.uds", **as_nobody())
        except PermissionError:
            self.skipTest("the tool cannot be started by another user here")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertComplaints(run, "quorvel-cli: Failure to open file: closed.uds for reading.",
                              "quorvel-cli: Could not be read: closed.uds")

    def test_standard_output_on_a_full_device(self):
        self.write("a.uds", SCALED)
        for options in [[], ["--json"]]:
            with open("/dev/full", "wb") as full:
                run = self.run_cli("show", "a.uds", "missing", *options, stdout=full)
            self.assertEqual(run.status, 4)
            self.assertTrue(run.complaints.endswith(
                "quorvel-cli: Standard output could not be written: No space left on device\n"), run.complaints)

    def test_wrong_usage(self):
        for sentence, arguments in [
                ("At least one FILE to show is needed.", []), ("At least one FILE to show is needed.", ["--json"]),
                ("Unknown option: --xml\nTo use a file with that name, put it after --.", ["--xml", "a"]),
                ("Option --json takes no value.", ["--json=a", "b"])]:
            run = self.run_cli("show", *arguments)
            self.assertEqual((run.status, run.out), (2, b""))
            self.assertComplaints(run, f"quorvel-cli: {sentence}", "Try 'quorvel-cli show --help'.")


if __name__ == "__main__":
    unittest.main()
