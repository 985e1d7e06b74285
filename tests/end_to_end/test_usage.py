"""Wrong usage ends with status 2 and a sentence, before anything is read or written."""

import os
import unittest

from support import ScaledTest


class WrongUsage(ScaledTest):
    def assertRefused(self, sentence, *arguments):
        before = self.names()
        run = self.compare(*arguments)
        self.assertEqual(run.status, 2)
        self.assertEqual(run.out, b"")
        self.assertComplaints(run, f"quorvel-cli: {sentence}", "Try 'quorvel-cli compare --help'.")
        self.assertEqual(self.names(), before)

    def test_no_file_is_refused(self):
        self.assertRefused("At least one FILE to compare is needed.")
        self.assertRefused("At least one FILE to compare is needed.", "--json", "out.json")

    def test_a_hit_list_that_names_nothing_is_no_file(self):
        self.write("empty.hit", b"\r\n\r\n")
        self.assertRefused("At least one FILE to compare is needed; the hit list names none.", "--hit-list",
                           "empty.hit", "--json", "out.json")

    def test_a_window_that_is_empty_or_not_finite_is_refused(self):
        order = "Option --window takes MIN smaller than MAX, not: "
        self.assertRefused(order + "1 1", "--window", "1", "1", "scaled.uds")
        self.assertRefused(order + "0.2 0.1", "--window", "0.2", "0.1", "scaled.uds")
        finite = "Option --window takes finite decimal numbers, not: "
        for text in ["nan", "inf", "-inf", "1e400", "0,5", "1s", ""]:
            self.assertRefused(finite + text, "--window", text, "1", "scaled.uds")
            self.assertRefused(finite + text, "--window", "0", text, "scaled.uds")

    def test_a_corridor_that_is_not_positive_is_refused(self):
        self.assertRefused("Option --corridor takes a size greater than 0, not: 0", "--corridor", "0", "scaled.uds")
        self.assertRefused("Option --corridor takes a size greater than 0, not: -4", "--corridor", "-4", "scaled.uds")
        self.assertRefused("Option --corridor takes finite decimal numbers, not: nan", "--corridor", "nan",
                           "scaled.uds")

    def test_an_unknown_channel_class_is_refused(self):
        for text in ["61", "0", "1001", "60.0", "CFC60"]:
            self.assertRefused(f"Option --cfc takes the channel class 60, 180, 600 or 1000, not: {text}", "--cfc",
                               text, "scaled.uds")

    def test_unknown_criteria_are_refused(self):
        names = "knows the names residual, stddev, corridor, correlation, t, moment, iso, "
        others = "sprague-geers, anova-mean and anova-deviation, not: peak"
        self.assertRefused(f"Option --critical {names}{others}", "--critical", "peak=1", "scaled.uds")
        self.assertRefused(f"Option --fail-on-bad {names}roadside, {others}", "--fail-on-bad=t,peak", "scaled.uds")

    def test_two_outputs_on_standard_output_are_refused(self):
        self.assertRefused("Only one output can go to standard output (-).", "--json", "-", "--csv", "-", "scaled.uds")

    def test_an_unknown_option_is_refused(self):
        self.assertRefused("Unknown option: --referenze\nTo use a file with that name, put it after --.", "--referenze",
                           "reference.uds", "scaled.uds")

    def test_a_forgotten_value_is_refused(self):
        self.assertRefused("Option --html needs a PATH to write to.", "--html", "--json", "out.json", "scaled.uds")
        self.assertRefused("Option --window needs two numbers, MIN and MAX.", "scaled.uds", "--window", "0")

    def test_an_option_given_twice_is_refused(self):
        self.assertRefused("Option --reference can be given only once.", "--reference", "reference.uds",
                           "--reference", "reference.uds", "scaled.uds")

    def assertShared(self, a, b, *arguments):
        self.assertRefused(f"Two outputs would go to one file: {a} and {b}", *arguments, "scaled.uds")

    def test_two_outputs_on_one_path_are_refused(self):
        self.assertShared("out", "out", "--json", "out", "--csv", "out")
        self.assertShared("out", "./out", "--html", "out", "--json", "./out")
        self.assertShared("out", "missing/../out", "--html", "out", "--csv", "missing/../out")

    def test_two_outputs_on_one_file_by_links_are_refused(self):
        self.write("old", b"old")
        os.link(self.folder / "old", self.folder / "hard")
        os.symlink("old", self.folder / "soft")
        os.symlink("new", self.folder / "waiting")
        self.assertShared("old", "hard", "--json", "old", "--csv", "hard")
        self.assertShared("soft", "old", "--html", "soft", "--csv", "old")
        self.assertShared("waiting", "new", "--html", "waiting", "--csv", "new")
        self.assertEqual(self.read("old"), b"old")

    def test_a_path_that_is_standard_output_is_refused_beside_it(self):
        self.assertShared("-", "/dev/stdout", "--json", "-", "--csv", "/dev/stdout")
        self.assertShared("/dev/stdout", "-", "--html", "/dev/stdout", "--csv", "-")

    def test_an_output_on_the_file_of_the_printed_table_is_refused(self):
        sentence = b"Two outputs would go to one file: out and the printed table"
        with open(self.folder / "out", "wb") as out:
            run = self.compare_scaled("--json", "out", stdout=out)
            self.assertEqual(run.status, 2)
            self.assertIn(sentence, run.err)
            self.assertEqual(self.compare_scaled("--quiet", "--json", "out", stdout=out).status, 0)
        self.parse(self.read("out"))

    def test_outputs_that_nobody_keeps_may_meet(self):
        run = self.compare_scaled("--json", "/dev/null", "--csv", "/dev/null")
        self.assertEqual((run.status, run.err), (0, b""))

    def test_an_output_on_the_file_of_a_page_is_refused(self):
        self.assertShared("dir/page-2.txt", "dir/page-2.txt", "--html", "dir/page-2.txt", "--ascii", "dir")
        self.assertShared("./dir/page-7-3.uds", "dir/page-7-3.uds", "--csv", "./dir/page-7-3.uds", "--uds", "dir")
        os.symlink("dir/page-7-3.uds", self.folder / "waiting")
        self.assertShared("waiting", "dir/page-7-3.uds", "--csv", "waiting", "--uds", "dir")
        os.mkdir(self.folder / "dir")
        self.write("dir/page-8-1.uds", b"old")
        os.link(self.folder / "dir/page-8-1.uds", self.folder / "hard")
        os.link(self.folder / "dir/page-8-1.uds", self.folder / "dir/page-9-1.uds")
        self.assertShared("hard", "dir/page-8-1.uds", "--json", "hard", "--uds", "dir")
        self.assertShared("dir/page-8-1.uds", "dir/page-9-1.uds", "--uds", "dir")
        os.symlink("page-3.txt", self.folder / "dir/page-4.txt")
        self.assertShared("dir/page-3.txt", "dir/page-4.txt", "--ascii", "dir")
        os.symlink("page-8-1.uds", self.folder / "dir/page-5.txt")
        os.remove(self.folder / "dir/page-4.txt")
        self.assertShared("dir/page-5.txt", "./dir/page-8-1.uds", "--ascii", "dir", "--uds", "./dir")

    def test_outputs_next_to_the_files_of_pages_are_not(self):
        os.mkdir(self.folder / "dir")
        run = self.compare("--quiet", "--html", "dir/page-0.txt", "--csv", "dir/page-7-01.uds", "--ascii", "dir", "--uds",
                           "dir", "--reference", "reference.uds", "scaled.uds")
        self.assertNotEqual(run.status, 2)
        self.assertTrue(self.read("dir/page-0.txt").startswith(b"<html>"))
        self.assertTrue(self.read("dir/page-7-01.uds").startswith(b"Filename,"))

    def test_an_output_in_place_of_an_input_is_refused(self):
        before = self.read("scaled.uds")
        self.assertRefused("An output would overwrite an input: ./scaled.uds", "--csv", "./scaled.uds", "scaled.uds")
        self.assertEqual(self.read("scaled.uds"), before)
        self.assertRefused("An output would overwrite an input: reference.uds", "--json", "reference.uds",
                           "--reference", "reference.uds", "scaled.uds")
        self.write("list.hit", b"scaled.uds\r\n")
        self.assertRefused("An output would overwrite an input: list.hit", "--html", "list.hit", "--hit-list",
                           "list.hit")

    def test_wrong_usage_comes_before_every_other_failure(self):
        self.assertRefused("Option --corridor takes a size greater than 0, not: 0", "--corridor", "0", "--json",
                           "missing/out.json", "--fail-on-bad", "missing.uds")


class Commands(ScaledTest):
    def test_a_command_is_needed(self):
        run = self.run_cli()
        self.assertEqual((run.status, run.out), (2, b""))
        self.assertComplaints(run, "quorvel-cli: A command is needed, for example compare.",
                              "Try 'quorvel-cli --help'.")

    def test_an_unknown_command_is_refused(self):
        run = self.run_cli("contrast", "scaled.uds")
        self.assertEqual((run.status, run.out), (2, b""))
        self.assertComplaints(run, "quorvel-cli: Unknown command: contrast", "Try 'quorvel-cli --help'.")


if __name__ == "__main__":
    unittest.main()
