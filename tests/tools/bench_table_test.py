"""The table of bench/all: each of its rows has a program, each of its patterns a number."""
import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import re
import sys
import unittest

BENCH = pathlib.Path(__file__).resolve().parents[2] / "bench"


def load_table():
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("bench_all", str(BENCH / "all"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("bench_all", loader))
    sys.modules["bench_all"] = module
    loader.exec_module(module)
    return module


class BenchTableTest(unittest.TestCase):
    def setUp(self):
        self.benchmarks = load_table().benchmarks("deck", "larger deck", quick=False)

    def test_every_row_names_a_script_or_a_program_that_is_built(self):
        built = re.findall(r"add_executable\((\w+)", (BENCH / "CMakeLists.txt").read_text())
        for benchmark in self.benchmarks:
            program = benchmark.command[0]
            self.assertTrue((BENCH / program).exists() or program in built, f"{benchmark.name}: {program}")

    def test_every_pattern_has_a_number_to_read(self):
        for benchmark in self.benchmarks:
            for number in benchmark.numbers:
                self.assertIn(re.compile(number.pattern).groups, (1, 2), f"{benchmark.name}: {number.what}")

    def test_a_benchmark_that_broke_off_is_not_held(self):
        table = load_table()
        number = table.Number("what", "([0-9]+)", at_most=5)
        for code, verdicts in ((0, ["held"]), (3, ["held", "MISSED"])):
            with contextlib.redirect_stdout(io.StringIO()):
                rows = table.run(table.Benchmark("of the test", ["/bin/sh", "-c", f"echo 4; exit {code}"], [number]))
            self.assertEqual([row[3] for row in rows], verdicts)

    def test_a_number_is_held_to_its_limit(self):
        number = load_table().Number("what", "([0-9]+)", at_most=5)
        self.assertTrue(number.within(5))
        self.assertFalse(number.within(5.1))
        self.assertFalse(load_table().Number("what", "([0-9]+)", at_least=5).within(4.9))


if __name__ == "__main__":
    unittest.main()
