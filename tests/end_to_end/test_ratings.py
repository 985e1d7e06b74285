"""quorvel-cli compare --ratings: the scores of pairs whose ratings are known, on the terminal, in CSV and in JSON."""

import csv
import io
import math
import re
import unittest

from support import HEADERS, REFERENCE, SCALED, EndToEndTest, ScaledTest, uds

STEP = 0.0001
EXACT_STEP = 2.0**-13  # in single precision, too
FAMILIES = ["iso18571", "spragueGeers", "geers", "geersCsa", "russell", "knowlesGear", "anova", "roadside", "values",
            "cora"]
OPTIONS = ["iso18571", "sprague-geers", "geers", "geers-csa", "russell", "knowles-gear", "anova", "values", "cora"]
NOT_SECONDS = "X is not in seconds."


def points(curve, count, step=STEP, start=0.0):
    """An ASCII point file; such points carry every digit."""
    return "".join(f"{start + i * step!r} {float(curve(i))!r}\n" for i in range(count)).encode()


def bell(height, middle, width):
    return lambda i: height * math.exp(-((i * 1e-4 - middle) / width) ** 2)


# Name, samples, reference, computed, R Z EP EM ES as a public scorer prints them, lag.
PUBLISHED = [
    ("bell", 1001, bell(100, .04, .01), bell(110, .043, .012), (.8752410, .8504222, .8501499, .9572989, .8679119), 30),
    ("ring", 600, lambda i: math.sin(i / 15) * math.exp(-i / 60),
     lambda i: .8 * math.sin((i - 6) / 16) * math.exp(-i / 50), (.4796667, .8817096, .1, 0, .5349143), 108),
    ("gain", 1500, lambda i: math.sin(.002 * i), lambda i: 1.3 * math.sin(.002 * i),
     (.7130863, .4778627, 1, .7597060, .85), 0),
    ("ramp", 200, lambda i: i, lambda i: 1.5 * i, (.5965317, .4005021, 1, .4316541, .75), 0),
    ("late", 200, lambda i: math.sin(i / 9), lambda i: math.sin((i - 45) / 9),
     (.5575760, .1063305, .7, .9005065, .9747127), -12),
    ("opposite", 200, lambda i: math.sin(i / 9), lambda i: -math.sin(i / 9),
     (.4726138, .0700815, .3, .9378178, .9850880), 28),
    ("constants", 200, lambda i: 10, lambda i: 13, (.5590123, .1975309, 1, .4, 1), 0),
    ("quiet", 200, lambda i: math.sin(i / 9), lambda i: 0, (.3546872, .1367180, 1, 0, .5), 0),
]


class RatedTest(EndToEndTest):
    def rated(self, *arguments, reference="reference", computed="computed", ratings="all"):
        """The ratings of the only computed signal."""
        results = self.results("--ratings", ratings, "--reference", reference, *arguments, computed)
        return results["signals"][0]["ratings"]

    def write_points(self, reference, computed, count, step=STEP):
        self.write("reference", points(reference, count, step))
        self.write("computed", points(computed, count, step))

    def write_wave(self, gain=1.2, count=500):
        self.write_points(lambda i: math.sin(i / 9) + .1, lambda i: gain * (math.sin(i / 9) + .1), count)

    def complaints_of(self, *arguments, status):
        run = self.compare("--quiet", "--reference", "reference", *arguments, "computed")
        self.assertEqual(run.status, status, run.complaints)
        return run.complaints


class Scores(RatedTest):
    def test_published_scores_are_reproduced_to_all_printed_digits(self):
        for name, count, reference, computed, scores, lag in PUBLISHED:
            self.write_points(reference, computed, count)
            rated = self.rated(ratings="iso18571")["iso18571"]
            with self.subTest(name):
                self.assertEqual((rated["state"], rated["reason"], rated["pointCount"]), ("ok", None, count))
                for member, score in zip(("r", "z", "ep", "em", "es"), scores):
                    self.assertAlmostEqual(rated[member], score, delta=0.51e-7, msg=member)
                self.assertEqual((rated["lag"], rated["resampled"], rated["modified"]), (lag, False, False))

    def test_grades_follow_from_r(self):
        grades = {}
        for name, count, reference, computed, scores, _ in PUBLISHED:
            self.write_points(reference, computed, count)
            grades[name] = self.rated(ratings="iso18571")["iso18571"]["grade"]
            expected = [grade for limit, grade in ((.94, "excellent"), (.80, "good"), (.58, "fair"), (-1, "poor"))
                        if scores[0] > limit][0]
            self.assertEqual(grades[name], expected)
        self.assertEqual(set(grades.values()), {"good", "fair", "poor"})

    def test_a_gain_is_all_magnitude(self):
        # Closed forms for c = k m with k = 1.2.
        self.write_points(lambda i: math.sin(i / 9), lambda i: 1.2 * math.sin(i / 9), 500)
        rated = self.rated()
        expected = {("spragueGeers", "m"): .2, ("spragueGeers", "p"): 0, ("spragueGeers", "c"): .2,
                    ("geers", "m"): .2, ("geersCsa", "c"): .2, ("russell", "m"): math.log10(1 + (1.44 - 1) / 1.2),
                    ("russell", "c"): math.sqrt(math.pi / 4) * math.log10(1 + (1.44 - 1) / 1.2),
                    ("knowlesGear", "m"): .2, ("knowlesGear", "toa"): 0, ("values", "theil"): .2 / 2.2,
                    ("values", "whang"): .2 / 2.2, ("values", "rss"): .2, ("values", "zilliacus"): .2,
                    ("values", "wifac"): 1 / 1.2, ("values", "pearson"): 1, ("values", "nard"): 1,
                    ("cora", "size"): 1.2 ** -2, ("cora", "shape"): 1, ("cora", "phase"): 1, ("iso18571", "es"): .9}
        for (family, member), value in expected.items():
            self.assertAlmostEqual(rated[family][member], value, delta=1e-9, msg=(family, member))

    def test_the_roadside_verdict_joins_its_limits(self):
        self.write_points(lambda i: math.sin(i / 9), lambda i: 1.2 * math.sin(i / 9), 500)
        self.assertEqual(self.rated(ratings="standard")["roadside"]["verdict"], "pass")
        self.write_points(lambda i: math.sin(i / 9), lambda i: 1.5 * math.sin(i / 9), 500)
        self.assertEqual(self.rated(ratings="standard")["roadside"]["verdict"], "fail")

    def test_the_pair_is_that_of_the_comparison(self):
        self.write_wave()
        rated = self.rated("--window", "0.01", "0.03")
        self.assertEqual(rated["filterClass"], None)
        self.assertEqual(rated["step"], STEP)
        start, end = rated["window"]
        self.assertAlmostEqual(start, .01, delta=1e-12)
        self.assertAlmostEqual(end, .0299, delta=1e-12)
        self.assertEqual(rated["pointCount"], 200)

    def test_the_filter_class_is_that_of_the_computed_signal(self):
        wave = [math.sin(i / 9) for i in range(500)]
        self.write("reference", uds(wave, STEP))
        self.write("filtered", uds(wave, STEP))
        self.write("computed", points(lambda i: wave[i], 500))
        results = self.results("--ratings", "geers", "--cfc", "180", "--reference", "reference", "filtered", "computed")
        self.assertEqual([signal["ratings"]["filterClass"] for signal in results["signals"]], [180, None])


class Json(RatedTest):
    def setUp(self):
        super().setUp()
        self.write_wave()

    def test_members_are_in_order(self):
        rated = self.rated()
        self.assertEqual(list(rated), ["pointCount", "step", "window", "filterClass", *FAMILIES])
        state = ["state", "reason"]
        self.assertEqual(list(rated["iso18571"]), [*state, "resampled", "pointCount", "modified", "r", "z", "ep", "em",
                                                   "es", "lag", "correlation", "grade"])
        for family in ("spragueGeers", "geers", "geersCsa", "russell"):
            self.assertEqual(list(rated[family]), [*state, "m", "p", "c"])
        self.assertEqual(list(rated["knowlesGear"]), [*state, "m", "toa", "c"])
        self.assertEqual(list(rated["anova"]), [*state, "mean", "standardDeviation", "t"])
        self.assertEqual(list(rated["roadside"]), [*state, "verdict"])
        self.assertEqual(list(rated["values"]), [*state, "rms", "nrmsePeak", "nrmseRange", "nrmseRms", "pearson",
                                                 "nard", "r2", "regression", "theil", "whang", "zilliacus", "rss",
                                                 "wifac"])
        self.assertEqual(list(rated["cora"]), [*state, "modified", "corridor", "shape", "size", "phase",
                                               "crossCorrelation", "total", "lag", "interval", "parameters"])

    def test_only_what_was_chosen_is_there(self):
        for option, families in (("standard", ["iso18571", "spragueGeers", "anova", "roadside"]),
                                 ("russell,geers", ["geers", "russell"]), ("values", ["values"]), ("all", FAMILIES)):
            self.assertEqual(list(self.rated(ratings=option))[4:], families)
        self.assertEqual(sum(len(self.rated(ratings=option)) - 4 for option in OPTIONS), len(FAMILIES))

    def test_the_ratings_are_the_last_member_and_the_only_difference(self):
        plain = self.results("--reference", "reference", "computed")
        with_ratings = self.results("--ratings", "all", "--reference", "reference", "computed")
        self.assertEqual(list(with_ratings["signals"][0])[-1], "ratings")
        del with_ratings["signals"][0]["ratings"]
        self.assertEqual(with_ratings, plain)

    def test_changed_parameters_are_told(self):
        rated = self.rated("--iso-parameter", "corridor-outer=0.4", "--cora-parameter", "k_v=1")
        self.assertTrue(rated["iso18571"]["modified"])
        self.assertTrue(rated["cora"]["modified"])
        self.assertEqual((rated["cora"]["parameters"]["K_V"], rated["cora"]["parameters"]["A_THRES"]), (1, .03))
        self.assertIsNone(rated["cora"]["parameters"]["T_MIN"])
        self.assertFalse(self.rated()["iso18571"]["modified"])

    def test_fixed_times_are_the_interval(self):
        cora = self.rated("--cora-parameter", "T_MIN=0.01", "--cora-parameter", "T_MAX=0.02")["cora"]
        self.assertEqual([round(time, 12) for time in cora["interval"]], [.01, .02])

    def test_a_page_that_cuts_the_signals_leaves_their_ratings(self):
        self.write("computed", points(lambda i: 1.2 * math.sin(i / 9) + .12, 400))
        plain, paged = self.rated(), self.rated("--pages")
        self.assertEqual(plain, paged)

    def test_every_number_of_jobs_gives_the_same(self):
        names = []
        for number in range(5):
            names.append(self.write(f"wave{number}", points(lambda i, n=number: math.sin(i / (8 + n)), 300 + number)))
        runs = [self.compare("--ratings", "all", "--jobs", jobs, "--json", f"json{jobs}", "--csv", f"csv{jobs}",
                             "--reference", "reference", *names) for jobs in ("1", "4")]
        self.assertEqual([run.status for run in runs], [0, 0], runs[0].complaints)
        self.assertEqual((runs[0].out, runs[0].err), (runs[1].out, runs[1].err))
        self.assertEqual(self.read("json1"), self.read("json4"))
        self.assertEqual(self.read("csv1"), self.read("csv4"))
        self.assertEqual(len(self.parse(self.read("json1"))["signals"]), 5)


class NothingSilent(RatedTest):
    """Pairs that cannot be rated, or only in part: a reason in words, never 0 in its place."""

    def assertUnavailable(self, rated, reason, *families):
        for family in families:
            self.assertEqual((rated[family]["state"], rated[family]["reason"]), ("unavailable", reason), family)
            for member, value in rated[family].items():
                if member not in ("state", "reason", "resampled", "pointCount", "modified", "parameters"):
                    self.assertIsNone(value, (family, member))

    def test_a_reference_of_zero(self):
        self.write_points(lambda i: 0, lambda i: math.sin(i / 9), 200)
        rated = self.rated()
        self.assertUnavailable(rated, "The reference is zero throughout.", "iso18571", "spragueGeers", "geers",
                               "geersCsa", "russell", "anova", "roadside", "cora")
        values = rated["values"]
        self.assertEqual((values["state"], values["nrmsePeak"], values["whang"], values["wifac"]), ("ok", None, 1, 0))

    def test_a_computed_signal_of_zero_keeps_what_is_defined(self):
        self.write_points(lambda i: math.sin(i / 9), lambda i: 0, 200)
        rated = self.rated()
        self.assertEqual(rated["spragueGeers"], {"state": "ok", "reason": None, "m": -1, "p": None, "c": None})
        self.assertUnavailable(rated, "The computed signal is zero throughout.", "russell", "roadside")
        self.assertIsNone(rated["iso18571"]["correlation"])
        self.assertEqual(rated["iso18571"]["state"], "ok")
        text = self.compare("--ratings", "sprague-geers", "--reference", "reference", "computed").text
        self.assertRegex(text, r"\(1\) +-1.000 BAD +n/a +n/a")
        self.assertIn("Sprague-Geers P, C of (1): The computed signal is zero throughout.", " ".join(text.split()))

    def test_two_samples(self):
        self.write_points(lambda i: i + 1, lambda i: i + 1.5, 2)
        rated = self.rated()
        self.assertEqual(rated["pointCount"], 2)
        self.assertUnavailable(rated, "ISO/TS 18571 needs at least 9 samples.", "iso18571")
        self.assertEqual(rated["anova"]["state"], "ok")
        self.assertIsNone(rated["anova"]["t"])  # the residual is constant

    def test_a_force_against_an_acceleration(self):
        wave = [math.sin(i / 9) for i in range(200)]
        self.write("reference", uds(wave, EXACT_STEP))
        self.write("computed", uds(wave, EXACT_STEP, units=b"NEWTONS"))
        sentence = "Rated as numbers: Y is in NEWTONS, but in G'S in reference. Ratings of different quantities mean " \
                   "nothing."
        run = self.compare("--quiet", "--ratings", "standard", "--json", "json", "--reference", "reference", "computed")
        self.assertEqual(run.status, 0)
        self.assertComplaints(run, f"quorvel-cli: computed: {sentence}")
        self.assertEqual(self.parse(self.read("json"))["signals"][0]["notes"],
                         [{"kind": "units-differ", "text": sentence}])
        plain = self.compare("--quiet", "--json", "json", "--reference", "reference", "computed")
        self.assertEqual(plain.err, b"")
        self.assertNotIn(b"units-differ", self.read("json"))

    def test_a_pair_at_1_khz_is_resampled_for_iso_and_says_so(self):
        # Nearly 1 kHz; exact in single precision, so that both ends stay. 99 / 1024 s hold 966 steps of 0.0001 s.
        self.write("reference", uds([math.sin(i / 9) for i in range(100)], 2.0**-10))
        self.write("computed", uds([1.1 * math.sin(i / 9) for i in range(100)], 2.0**-10))
        rated = self.rated()
        self.assertEqual((rated["pointCount"], rated["iso18571"]["pointCount"], rated["iso18571"]["resampled"]),
                         (100, 967, True))
        text = " ".join(self.compare("--ratings", "iso18571", "--reference", "reference", "computed").text.split())
        self.assertIn("(1): 100 points, 0 to 0.0966797, step 0.000976562 SECONDS, not filtered", text)
        self.assertIn("ISO/TS 18571 of (1): Interpolated at a step of 0.0001 s, which gives 967 points.", text)

    def test_an_x_that_is_not_time(self):
        wave = uds([math.sin(i / 9) for i in range(200)], EXACT_STEP).replace(b"SECONDS".ljust(20), b"METERS".ljust(20))
        self.write("reference", wave)
        self.write("computed", wave)
        rated = self.rated()
        self.assertUnavailable(rated, NOT_SECONDS, "iso18571", "knowlesGear", "cora")
        self.assertEqual(rated["spragueGeers"]["c"], 0)

    def test_steps_that_are_not_even(self):
        x = [i * .001 for i in range(100)]
        x[50] += .0004
        wave = [math.sin(i / 9) for i in range(100)]
        self.write("reference", uds(wave, .001, x=x))
        self.write("computed", uds(wave, .001, x=x))
        self.assertUnavailable(self.rated(), "The time steps differ from the reference's step by more than 0.1 %.",
                               "iso18571", "knowlesGear", "cora")

    def test_signals_without_any_time_in_common(self):
        self.write("reference", points(lambda i: math.sin(i / 9), 200))
        self.write("computed", points(lambda i: math.sin(i / 9), 200, start=5.0))
        rated = self.rated()
        self.assertEqual((rated["pointCount"], rated["window"]), (0, None))
        self.assertUnavailable(rated, "There are no common samples.", *FAMILIES)

    def test_values_beyond_the_range_of_numbers(self):
        self.write("reference", points(lambda i: math.sin(i / 9), 200))
        lines = points(lambda i: math.sin(i / 9), 200).splitlines(keepends=True)
        self.write("computed", b"".join(lines[:100] + [b"0.01 1e400\n"] + lines[101:]))
        self.assertUnavailable(self.rated(), "The computed signal has a value that is not a finite number.", *FAMILIES)

    def test_reasons_come_once_per_family(self):
        self.write("reference", points(lambda i: math.sin(i / 9), 200))
        for name in ("a", "b", "c"):
            self.write(name, points(lambda i: 0, 200))
        self.write("d", points(lambda i: math.sin(i / 9), 200))
        text = " ".join(self.compare("--ratings", "sprague-geers,russell", "--reference", "reference", "a", "d", "b",
                                     "c").text.split())
        self.assertEqual(text.count("The computed signal is zero throughout."), 2)
        self.assertIn("n/a Sprague-Geers P, C of (1), (3), (4): The computed", text)
        self.assertIn("Russell of (1), (3), (4): The computed", text)


class Terminal(RatedTest):
    def setUp(self):
        super().setUp()
        self.write_wave()

    def shown(self, *arguments, **options):
        run = self.compare("--ratings", "standard", "--reference", "reference", *arguments, "computed", **options)
        self.assertEqual(run.status, 0, run.complaints)
        return run.text

    def test_the_second_table_follows_the_first(self):
        plain = self.compare("--reference", "reference", "computed").text
        text = self.shown(environment={"COLUMNS": "1000"})
        self.assertTrue(self.shown().startswith(plain))
        lines = text.splitlines()
        head = next(i for i, line in enumerate(lines) if "ISO EM" in line)
        headers = re.split(r" {2,}", lines[head].strip())
        self.assertEqual(headers, ["ISO R", "ISO Z", "ISO EP", "ISO EM", "ISO ES", "ISO lag", "ISO correlation",
                                   "ISO grade", "Sprague-Geers M", "Sprague-Geers P", "Sprague-Geers C", "ANOVA mean",
                                   "ANOVA deviation", "ANOVA T", "Roadside verdict", "Bad verdicts"])
        directions = re.split(r" {2,}", lines[head + 1].strip())
        self.assertEqual(directions, ["1 is best"] * 5 + ["0 is best", "1 is best"] + ["0 is best"] * 6)
        cells = re.split(r" {2,}", lines[head + 3].strip())
        self.assertEqual((cells[9], cells[10], cells[-1]), ("0.200 good", "0.000 good", "0 of 6"))

    def test_it_fits_the_usual_width(self):
        for option in ("standard", "all"):
            run = self.compare("--ratings", option, "--reference", "reference", "computed")
            for line in run.text.splitlines():
                self.assertLessEqual(len(line), 80, line)

    def test_limits_name_their_sources(self):
        text = " ".join(self.shown("--critical", "iso=0.8").split())
        self.assertIn("Good is ISO R above 0.8, as requested", text)
        self.assertIn("Sprague-Geers |M| and P up to 0.4 (roadside guideline W179, to be confirmed)", text)

    def test_a_changed_parameter_is_in_every_name(self):
        text = self.shown("--iso-parameter", "slope-exponent=2")
        self.assertIn("ISO modified R", text)
        self.assertNotIn("ISO R ", text)
        self.assertIn("ISO modified R above 0.58", text)
        self.assertIn("ISO/TS 18571 modified of (1): Parameters: slope-exponent 2.", " ".join(text.split()))
        header = self.compare("--ratings", "cora", "--cora-parameter", "K=1", "--csv", "-", "--reference", "reference",
                              "computed").text.splitlines()[0]
        self.assertIn("CORA-like modified total (1 is best)", header)

    def test_csv_has_the_ratings_after_the_sixteen_columns(self):
        plain = self.compare("--csv", "-", "--reference", "reference", "computed").text
        self.write("zero", points(lambda i: 0, 500))
        run = self.compare("--ratings", "standard", "--csv", "-", "--reference", "reference", "computed", "zero")
        rows = list(csv.reader(io.StringIO(run.text, newline="")))
        self.assertEqual(rows[0][:16], HEADERS)
        self.assertEqual(rows[1][:16], next(csv.reader(io.StringIO(plain.splitlines()[1], newline=""))))
        self.assertEqual({len(row) for row in rows}, {len(rows[0])})
        one, zero = (dict(zip(rows[0], row)) for row in rows[1:])
        self.assertEqual((one["Rated points"], one["Rated filter class"], one["ISO resampled"]), ("500", "none", "no"))
        self.assertEqual((one["Sprague-Geers M (0 is best)"], one["Roadside verdict"]), ("0.200", "pass"))
        self.assertEqual(zero["Roadside verdict"], "n/a: The computed signal is zero throughout.")

    def test_the_html_report_stays_as_it_is(self):
        self.compare("--quiet", "--html", "plain", "--reference", "reference", "computed")
        self.compare("--quiet", "--html", "rated", "--ratings", "all", "--reference", "reference", "computed")
        self.assertEqual(self.read("plain"), self.read("rated"))


class FailOnBad(RatedTest):
    def setUp(self):
        super().setUp()
        self.write_wave(1.3)  # M is 0.3, R above 0.58

    def test_a_bad_rating_is_status_1(self):
        rated = self.rated(ratings="standard")
        for criterion, family, member in (("iso", "iso18571", "r"), ("sprague-geers", "spragueGeers", "m"),
                                          ("anova-mean", "anova", "mean"),
                                          ("anova-deviation", "anova", "standardDeviation")):
            value = abs(rated[family][member])
            for limit, is_bad in ((value - 1e-6, criterion != "iso"), (value + 1e-6, criterion == "iso")):
                complaints = self.complaints_of("--ratings", "standard", f"--fail-on-bad={criterion}", "--critical",
                                                f"{criterion}={limit!r}", status=int(is_bad))
                self.assertEqual(complaints, "")

    def test_the_roadside_verdict_has_limits_of_its_own(self):
        self.write_points(lambda i: math.sin(i / 9), lambda i: 1.3 * math.sin(i / 9), 500)
        self.complaints_of("--ratings", "standard", "--fail-on-bad=roadside", "--critical", "sprague-geers=0.1",
                           status=0)
        self.write_points(lambda i: math.sin(i / 9), lambda i: 1.5 * math.sin(i / 9), 500)
        self.complaints_of("--ratings", "standard", "--fail-on-bad=roadside", "--critical", "sprague-geers=0.9",
                           status=1)

    def test_without_names_the_chosen_ratings_count_too(self):
        self.write("reference", uds(REFERENCE))
        self.write("computed", uds([value + .01 for value in REFERENCE]))
        loose = ["--critical", "t=99", "--critical", "moment=99", "--critical", "corridor=99", "--critical",
                 "correlation=99", "--fail-on-bad"]
        self.complaints_of(*loose, status=0)
        self.complaints_of("--ratings", "geers", *loose, status=0)
        self.complaints_of("--ratings", "sprague-geers", *loose, status=0)
        self.complaints_of("--ratings", "sprague-geers", "--critical", "sprague-geers=0.0001", *loose, status=1)

    def test_a_rating_that_is_not_available_is_not_bad_but_told(self):
        self.write_points(lambda i: 0, lambda i: math.sin(i / 9), 200)
        complaints = self.complaints_of("--ratings", "standard", "--fail-on-bad=iso,sprague-geers", status=0)
        reason = "The reference is zero throughout."
        self.assertEqual(complaints, f"quorvel-cli: computed: not judged by iso: {reason}\n"
                                     f"quorvel-cli: computed: not judged by sprague-geers: {reason}\n")
        self.assertEqual(self.complaints_of("--ratings", "standard", status=0), "")


class WrongUsage(ScaledTest):
    def assertRefused(self, sentence, *arguments):
        run = self.compare(*arguments, "scaled.uds")
        self.assertEqual((run.status, run.out), (2, b""))
        self.assertComplaints(run, f"quorvel-cli: {sentence}", "Try 'quorvel-cli compare --help'.")

    def test_names_that_do_not_exist(self):
        self.assertRefused("Option --ratings knows the names standard, all, iso18571, sprague-geers, geers, geers-csa, "
                           "russell, knowles-gear, anova, values and cora, not: ISO", "--ratings", "ISO")

    def test_parameters_that_are_refused(self):
        self.assertRefused("Option --iso-parameter: The weights must not be negative and must add up to 1.",
                           "--ratings", "all", "--iso-parameter", "slope-weight=0.3")
        self.assertRefused("Option --cora-parameter needs --ratings with cora.", "--cora-parameter", "K=1")

    def test_criteria_without_their_ratings(self):
        self.assertRefused("Option --fail-on-bad=iso needs --ratings with iso18571.", "--fail-on-bad=iso")
        self.assertRefused("Option --critical anova-mean needs --ratings with anova.", "--ratings", "iso18571",
                           "--critical", "anova-mean=0.1")


class Stopped(EndToEndTest):
    def test_a_run_that_stops_has_no_ratings(self):
        self.write("a.uds", SCALED)
        self.assertEqual(self.results("--ratings", "all", "a.uds", "missing", status=3)["signals"], [])


if __name__ == "__main__":
    unittest.main()
