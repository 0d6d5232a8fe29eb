"""./run demo [DECK [OUT.asf]]: records a lecture with no hands, saves it, and judges what was saved.

Ends with a non-zero exit code when something of it is wrong, and says what.
"""
import argparse
import pathlib
import shutil
import signal
import sys

from desktop import Desktop
from judge import judge
from presenter import SAVED_BOX, Presenter
from processes import Failure
from stagehand import tour

ROOT = pathlib.Path(__file__).resolve().parents[2]
SAMPLE_DECK = ROOT / "assets" / "sample_lecture.pptx"
INSTALLED_PROGRAM = ROOT / "build" / "install" / "bin" / "quillora"


def main():
    arguments = parse_arguments()
    # An interrupted demonstration clears up as an ended one does.
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda *_: sys.exit(130))
    try:
        with Desktop() as desktop:
            return demonstrate(desktop, arguments)
    except Failure as failure:
        print(f"FAILED: {failure}")
        return 1
    except KeyboardInterrupt:
        print("interrupted")
        return 130


def parse_arguments():
    parser = argparse.ArgumentParser(prog="./run demo", description="Records a lecture with no hands and judges it.")
    parser.add_argument("deck", nargs="?", type=pathlib.Path, default=SAMPLE_DECK, metavar="DECK")
    parser.add_argument("out", nargs="?", type=pathlib.Path, default=pathlib.Path("lecture.asf"), metavar="OUT.asf")
    parser.add_argument("--program", type=pathlib.Path, default=INSTALLED_PROGRAM, help="the recorder to drive")
    parser.add_argument("--shots", type=pathlib.Path, help="folder for pictures of the window on the way")
    arguments = parser.parse_args()
    if arguments.out.suffix.lower() != ".asf":
        parser.error("the container's name has to end in .asf")
    if not arguments.out.resolve().parent.is_dir():
        parser.error(f"there is no folder {arguments.out.resolve().parent}")
    return arguments


def demonstrate(desktop, arguments):
    out = arguments.out.resolve()
    presenter = Presenter(desktop, arguments.program.resolve())
    shots = Shots(desktop, presenter, arguments.shots)
    shots.take("start")
    status = presenter.open_deck(arguments.deck.resolve())
    print(f"{arguments.deck}: {status}", flush=True)
    if presenter.notes.slides == 0:
        return record_without_slides(presenter)
    shots.take("deck")
    print("Recording: the countdown, about 30 s of slides, and then each media and window mode.", flush=True)
    dialog = hold_lecture(presenter, shots.take, encore=lambda: tour(presenter, shots.take))
    print(f"Recorded about {presenter.notes.recorded()[0]:.0f} s; saving.", flush=True)
    pictures = keep_pictures(desktop)
    # A file that is there already stays until there is another to take its place.
    saved = desktop.folder / "lecture.asf"
    presenter.save(dialog, saved)
    presenter.acknowledge(SAVED_BOX)
    shots.take("saved")
    exit_code = presenter.leave()
    verdict = judge(saved, presenter.notes, desktop.folder / "judged", pictures, desktop.speech)
    verdict.require(exit_code == 0, f"the recorder ended with {exit_code}")
    shutil.move(saved, out)
    print("\n".join(verdict.lines))
    for fault in verdict.faults:
        print(f"WRONG: {fault}")
    if verdict.faults:
        return 1
    print(f"All of it is right: {out}")
    return 0


def record_without_slides(presenter):
    """What is left to show of a deck that nobody can read."""
    print("The deck gives no slides. Recording what stands on the stage, for 5 s.", flush=True)
    presenter.record()
    presenter.wait(5)
    presenter.stop_without_slides()
    presenter.leave()
    raise Failure("no lecture was saved: the recorder goes on after a deck that it cannot read, and records, but "
                  "without a first slide there is nothing to pack, and Stop ends without a save dialog")


def hold_lecture(presenter, take_shot=lambda name: None, encore=lambda: None):
    """Half a minute: next, next, previous, a pause with a move in it, last, first; then the encore, and Stop. Gives
    the save dialog."""
    presenter.record()
    presenter.wait(4)
    presenter.move("next")
    presenter.wait(2)
    take_shot("recording")
    presenter.wait(2)
    presenter.move("next")
    presenter.wait(4)
    presenter.move("pre")
    presenter.wait(4)
    presenter.pause()
    presenter.wait(1)
    presenter.move("next")
    take_shot("paused")
    presenter.wait(2)
    presenter.resume()
    presenter.wait(4)
    presenter.move("last")
    presenter.wait(4)
    presenter.move("first")
    presenter.wait(4)
    encore()
    return presenter.stop()


def keep_pictures(desktop):
    """The slides as the stage showed them: sharper than what goes into the container. By number, or None."""
    kept = desktop.folder / "shown"
    kept.mkdir()
    pictures = {}
    for picture in desktop.workspace.glob("Slide*.PNG"):
        pictures[int(picture.stem.removeprefix("Slide"))] = shutil.copy(picture, kept)
    return pictures or None


class Shots:
    """Pictures of the window on the way, where somebody asked for them."""

    def __init__(self, desktop, presenter, folder):
        self._desktop = desktop
        self._presenter = presenter
        self._folder = folder
        if folder:
            folder.mkdir(parents=True, exist_ok=True)

    def take(self, name):
        if self._folder:
            self._desktop.picture(self._folder / f"{name}.png", self._presenter.window.area())


if __name__ == "__main__":
    sys.exit(main())
