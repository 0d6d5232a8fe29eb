"""The documents name files and packages that are there."""
import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = sorted(ROOT.glob("*.md")) + sorted((ROOT / "docs").rglob("*.md"))


class DocumentsTest(unittest.TestCase):
    def test_every_path_that_a_document_names_exists(self):
        missing = []
        for document in DOCUMENTS:
            for path in named_paths(document.read_text(encoding="utf-8")):
                # A program is named after its source.
                places = (ROOT / path, document.parent / path, ROOT / f"{path}.cpp")
                if not any(place.exists() for place in places):
                    missing.append(f"{document.relative_to(ROOT)}: {path}")
        self.assertEqual(missing, [])

    def test_the_quick_guide_has_its_two_pages(self):
        facts = subprocess.run(["pdfinfo", str(ROOT / "assets" / "Vantry_QGuide.pdf")], capture_output=True, text=True,
                               check=True).stdout
        self.assertRegex(facts, r"(?m)^Pages: +2$")

    def test_every_link_inside_the_help_leads_somewhere(self):
        text = (ROOT / "assets" / "Support.html").read_text(encoding="utf-8")
        links = re.findall(r'href="#([^"]*)"', text)
        self.assertGreater(len(links), 0)
        self.assertEqual([link for link in links if text.count(f'id="{link}"') != 1], [])

    def test_every_test_that_a_document_names_exists(self):
        sources = "".join(path.read_text(encoding="utf-8") for folder in ("src", "tests")
                          for path in sorted((ROOT / folder).rglob("*_test.cpp")))
        missing = []
        for document in DOCUMENTS:
            for suite, test in named_tests(document.read_text(encoding="utf-8")):
                if not re.search(rf"^(TEST|TEST_F|TEST_P)\({suite}, {test}\)", sources, re.MULTILINE):
                    missing.append(f"{document.relative_to(ROOT)}: {suite}.{test}")
        self.assertEqual(missing, [])

    def test_tests_are_found_at_all(self):
        self.assertEqual(named_tests("see `Pause.FreezesTime`, `a/B.Cpp`, `session.Foo` and `DeckTest.Has2_Slides`"),
                         [("Pause", "FreezesTime"), ("DeckTest", "Has2_Slides")])

    def test_paths_are_found_at_all(self):
        self.assertEqual(named_paths("see `src/a/b.cpp`, `src/<folder>/x`, `build/dev/y`, `./run demo`, and ![w](docs/w.png)"),
                         ["src/a/b.cpp", "docs/w.png"])

    def test_every_package_has_a_purpose_and_is_known_to_the_distribution(self):
        lines = [line for line in (ROOT / "packages.txt").read_text(encoding="utf-8").splitlines()
                 if line and not line.startswith("#")]
        for line in lines:
            self.assertRegex(line, r"^[a-z0-9][a-z0-9+.-]+ +# \S.*$")
        names = [line.split()[0] for line in lines]
        self.assertEqual(len(names), len(set(names)))
        status = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${db:Status-Status}\n", *names],
                                capture_output=True, text=True, check=False).stdout.split("\n")
        self.assertEqual([name for name in names if f"{name} installed" not in status], [])


def named_paths(text):
    """Paths in a text that have to exist: those in backquotes and those that pictures and links lead to."""
    quoted = re.findall(r"`([\w.-]+/[\w./-]*)`", text)
    linked = re.findall(r"\]\(([^):#]+)\)", text)
    return [path for path in quoted + linked if not path.startswith(("build/", "./"))]


def named_tests(text):
    """Tests that a text names in backquotes, as (suite, test)."""
    return re.findall(r"`([A-Z]\w+)\.([A-Z]\w+)`", text)


if __name__ == "__main__":
    unittest.main()
