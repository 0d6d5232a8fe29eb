"""Judges a saved lecture from outside: the container, the index, every frame of the video, its sound."""
import dataclasses

import numpy

from container import Container, Streams, frame_times
from frames import OUTPUT_SIZE, RATE, Frames, luma_of_picture, psnr, similarity
from scenes import judge_scenes
from sound_judge import judge_sound

# The index knows whole seconds only, of the moment and of the begin that it subtracts, and the first frame comes a
# little after that begin: so a slide shows up to a second before or after the second that its entry names, and a
# little more on either side for starting and painting on a busy machine.
APPEARS_EARLY = 1.5
APPEARS_LATE = 1.5
# A slide picture in the container has 560 by 420 pixels; what is left of its text on the way up to the video's
# size and through the encoder is far nearer to the right slide than to any other. Decibels of luma.
MATCH_FLOOR = 17.0
MATCH_FLOOR_SHARP = 28.0
TWINS = 0.3
# The recorder's clock has whole seconds: a slide may stand in the video up to a second before the index names it.
CLOCK_GRAIN = 1.0

@dataclasses.dataclass
class Verdict:
    """Lines to print, and what is wrong."""
    lines: list = dataclasses.field(default_factory=list)
    faults: list = dataclasses.field(default_factory=list)

    def say(self, line):
        self.lines.append(line)

    def require(self, holds, fault):
        if not holds:
            self.faults.append(fault)


def judge(path, notes, folder, sharp_pictures=None, speech=None):
    """Judges the container at `path` against the presenter's notes.

    `sharp_pictures` gives the slides as the stage showed them, by number; without it the container's own pictures
    serve. `speech` is the sound file that was spoken all the while. A broken format raises a Failure.
    """
    verdict = Verdict()
    container = Container(path, folder)
    _judge_entries(verdict, path, container, notes)
    _judge_index(verdict, container, notes)
    times = frame_times(container.video)
    _judge_streams(verdict, container, notes, times)
    frames = Frames(container.video, times)
    if container.pictures:
        _judge_slides(verdict, container, sharp_pictures, frames, notes)
    if notes.scenes:
        judge_scenes(verdict, notes.scenes, frames)
    if speech:
        judge_sound(verdict, container.video, notes, speech)
    return verdict


def _judge_entries(verdict, path, container, notes):
    verdict.say(f"Container {path} ({path.stat().st_size} bytes)")
    for entry in container.entries:
        verdict.say(f"  {entry.filename:<16} {entry.file_size:>9} bytes")
    verdict.require(len(container.pictures) == notes.slides,
                    f"{len(container.pictures)} slide pictures of a deck of {notes.slides}")


def _judge_index(verdict, container, notes):
    verdict.say("Index (slide at second; shown between)")
    expected = [(0.0, 0.0, 1)] + notes.shown()
    for number, (slide, second) in enumerate(container.index):
        between = "{:6.2f} and {:.2f}".format(*expected[number]) if number < len(expected) else "never"
        verdict.say(f"  slide {slide:<3} at {second:>3}   {between}")
    verdict.require([slide for slide, _ in container.index] == [slide for _, _, slide in expected],
                    f"the index names the slides {[slide for slide, _ in container.index]}, shown were "
                    f"{[slide for _, _, slide in expected]}")
    for (slide, second), (least, most, _) in zip(container.index, expected):
        # The clock drops fractions, and reads whole seconds off the wall's.
        verdict.require(least - 1.0 <= second <= most + 1.0,
                        f"slide {slide} is at {second} s in the index and was shown between {least:.2f} and "
                        f"{most:.2f} s")


def _judge_streams(verdict, container, notes, times):
    streams = Streams(container.video)
    least, most = notes.recorded()
    verdict.say(f"Video {container.video.name}: {streams.format}, {streams.video['codec_name']} "
                f"{streams.size[0]}x{streams.size[1]} at {streams.rate:g} frames a second, "
                f"{streams.sound['codec_name']} {streams.sound['sample_rate']} Hz; {streams.duration:.2f} s, "
                f"{len(times)} frames")
    verdict.require(streams.format == "asf" and streams.video["codec_name"] == "wmv2"
                    and streams.sound["codec_name"] == "wmav2", "the video is not WMV2 and WMA2 in ASF")
    verdict.require(streams.size == OUTPUT_SIZE, f"the video has {streams.size} pixels, not {OUTPUT_SIZE}")
    verdict.require(abs(streams.rate - RATE) < 0.01, f"the frame rate is {streams.rate}")
    verdict.require(least - 0.2 <= streams.duration <= most + 0.2,
                    f"{streams.duration:.2f} s of video for {least:.2f} to {most:.2f} s between start and stop "
                    "without pauses")
    verdict.require(abs(len(times) - (times[-1] - times[0] + 1 / RATE) * RATE) <= 1,
                    f"{len(times)} frames in {times[-1] - times[0] + 1 / RATE:.2f} s")
    verdict.require(abs(streams.duration - times[-1] - 1 / RATE) <= 0.2,
                    f"the last frame is at {times[-1]:.2f} of {streams.duration:.2f} s")
    steps = numpy.diff(times)
    verdict.require(len(steps) and abs(steps - 1 / RATE).max() < 0.003,
                    f"the frames are {steps.min():.3f} to {steps.max():.3f} s apart" if len(steps) else "no frames")


def _judge_slides(verdict, container, sharp_pictures, frames, notes):
    """Finds, for each entry of the index, its slide in the video, and sees that no other stands there until the
    next entry; as far as slides alone were on the stage."""
    pictures = sharp_pictures or container.pictures
    floor = MATCH_FLOOR_SHARP if sharp_pictures else MATCH_FLOOR
    slides = {number: luma_of_picture(path) for number, path in pictures.items()}
    end_of_slides = notes.recorded(notes.slides_until)[0] - 0.2 if notes.slides_until else frames.duration
    index = [entry for entry in container.index if entry[1] < end_of_slides - APPEARS_LATE]
    verdict.say("Slides in the video (luma against the slide's picture"
                f"{'' if sharp_pictures else ' in the container'})")
    stretches = _stretches(verdict, index, frames, slides, floor)
    for (slide, second, begin), following in zip(stretches, stretches[1:] + [(0, 0, end_of_slides)]):
        end = following[2]
        settled = frames.at(min(begin + 1.0, max(begin, end - 0.2)))
        others = [psnr(settled, picture) for number, picture in slides.items() if number != slide]
        verdict.say(f"  slide {slide:<3} at {second:>3}   shows from {begin:6.2f} s: "
                    f"{psnr(settled, slides[slide]):.1f} dB, similarity {similarity(settled, slides[slide]):.3f}"
                    + (f"; the nearest other slide {max(others):.1f} dB" if others else ""))
        for moment in numpy.arange(begin, end - 0.1, 0.5):
            if not _shows(frames.at(moment), slide, slides, floor):
                number, best = _best(frames.at(moment), slides)
                verdict.require(False, f"at {moment:.2f} s the video shows slide {number} ({best:.1f} dB), not slide "
                                       f"{slide} ({psnr(frames.at(moment), slides[slide]):.1f} dB)")


def _stretches(verdict, index, frames, slides, floor):
    """From when on each entry's slide shows, as (slide, second, begin)."""
    found = []
    for position, (slide, second) in enumerate(index):
        if slide not in slides:
            verdict.require(False, f"the index names slide {slide}, of which there is no picture")
            continue
        if position + 1 < len(index) and index[position + 1][1] == second:
            verdict.say(f"  slide {slide:<3} at {second:>3}   followed by another within the same second")
            continue
        earliest = max(found[-1][2] + 1 / RATE if found else 0.0, second - APPEARS_EARLY)
        moments = numpy.arange(earliest, min(second + APPEARS_LATE, frames.duration), 1 / RATE)
        begin = next((at for at in moments if _shows(frames.at(at), slide, slides, floor)), None)
        if begin is None:
            number, best = _best(frames.at(second + 1.0), slides)
            verdict.require(False, f"slide {slide} does not show about second {second}; slide {number} does, at "
                                   f"{best:.1f} dB")
        else:
            found.append((slide, second, begin))
    return found


def _shows(frame, slide, slides, floor):
    own = psnr(frame, slides[slide])
    return own >= floor and own >= _best(frame, slides)[1] - TWINS


def _best(frame, slides):
    return max(((number, psnr(frame, picture)) for number, picture in slides.items()), key=lambda pair: pair[1])
