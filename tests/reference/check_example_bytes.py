#!/usr/bin/env python3
"""The bundled sample signals are exactly what their program writes."""

import importlib.util
import tempfile
import unittest
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
SMALL_SET_BYTES = 400000


def load_program():
    specification = importlib.util.spec_from_file_location("make_examples", EXAMPLES / "make_examples.py")
    module = importlib.util.module_from_spec(specification)
    specification.loader.exec_module(module)
    return module


def all_bytes(folder, names):
    return {str(path.relative_to(folder)): path.read_bytes()
            for name in names for path in sorted((folder / name).rglob("*")) if path.is_file()}


class ExampleBytes(unittest.TestCase):
    def test_running_the_program_again_gives_the_same_bytes(self):
        program = load_program()
        with tempfile.TemporaryDirectory() as folder:
            program.write_examples(Path(folder))
            self.assertEqual(all_bytes(Path(folder), program.SETS), all_bytes(EXAMPLES, program.SETS))

    def test_the_sets_stay_small(self):
        kept = all_bytes(EXAMPLES, ["sled", "force"])
        self.assertEqual(len(kept), 13)
        self.assertLess(sum(len(content) for content in kept.values()), SMALL_SET_BYTES)

    def test_hit_lists_name_existing_files_from_the_top_of_the_tree(self):
        for name in ("sled", "force"):
            lines = (EXAMPLES / name / (name + ".hit")).read_bytes().split(b"\r\n")
            self.assertEqual(lines.pop(), b"")
            self.assertGreaterEqual(len(lines), 3)
            for line in lines:
                self.assertTrue((EXAMPLES.parent / line.decode("ascii")).is_file(), line)


if __name__ == "__main__":
    unittest.main()
