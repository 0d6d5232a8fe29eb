"""What the lectures that are tests share: the installed program as a black box, on a desktop of its own.

QUILLORA_PROGRAM names the installed program. Each test is run in a process of its own, since an accessibility bus
can't be left for another.
"""
import os
import pathlib
import signal
import sys
import unittest
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools" / "lecture"))

from desktop import Desktop  # noqa: E402
from judge import judge  # noqa: E402
from presenter import SAVED_BOX, Presenter  # noqa: E402

PROGRAM = pathlib.Path(os.environ.get("QUILLORA_PROGRAM", ROOT / "build" / "install" / "bin" / "quillora"))
DECK = ROOT / "assets" / "sample_lecture.pptx"
SKIPPED = 77


class LectureTest(unittest.TestCase):
    """Helpers that the lectures share."""

    def desktop(self, **options):
        desktop = self.enterContext(Desktop(**options))
        self.addCleanup(self.tell, desktop)
        return desktop

    def tell(self, desktop):
        """What the program printed, where a test failed."""
        if self._outcome and not self._outcome.success and desktop.log("recorder").exists():
            print(desktop.log("recorder").read_text(errors="replace")[-2000:], file=sys.stderr)

    def presenter(self, desktop, deck=DECK, **environment):
        presenter = Presenter(desktop, PROGRAM, **environment)
        if deck:
            self.slides = int(presenter.open_deck(deck).split("/")[1])
            self.assertGreaterEqual(self.slides, 3)
        return presenter

    def short_lecture(self, presenter):
        """A few seconds with one move; gives the save dialog."""
        presenter.record()
        presenter.wait(2)
        presenter.move("next")
        presenter.wait(2)
        return presenter.stop()

    def save(self, presenter, dialog, path, file_type=None):
        presenter.save(dialog, path, file_type)
        presenter.acknowledge(SAVED_BOX)

    def assert_lecture(self, path, presenter):
        """The file is a right container of what the presenter did."""
        desktop = presenter.desktop
        verdict = judge(path, presenter.notes, desktop.folder / f"judged {path.name}", speech=desktop.speech)
        self.assertEqual(verdict.faults, [], "\n".join(verdict.lines))

    def assert_length(self, streams, presenter):
        least, most = presenter.notes.recorded()
        self.assertGreater(streams.duration, least - 0.2)
        self.assertLess(streams.duration, most + 0.2)

    def assert_usable(self, presenter):
        """The window answers, and a deck can be opened."""
        self.assertEqual(presenter.open_deck(DECK), f"Slide 1/{self.count_of_sample()}")
        self.assertEqual(presenter.move("next"), 2)

    @staticmethod
    def count_of_sample():
        with zipfile.ZipFile(DECK) as deck:
            return sum(name.startswith("ppt/slides/slide") for name in deck.namelist())


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    program = unittest.main(exit=False, verbosity=2)
    result = program.result
    if not result.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if result.skipped and len(result.skipped) == result.testsRun else 0)
