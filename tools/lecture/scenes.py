"""What stood on the stage at some moments of a lecture, as pictures of the display, and whether the saved video shows
the same at the same moments."""
import dataclasses
import pathlib

import numpy

from frames import RATE, luma_of_picture, psnr

# A picture of the display against the frame that was made of the same pixels, after the one pixel that the frame is
# narrower than the stage, the encoder, and the pointer in it. Decibels of luma.
SCENE_FLOOR = 24.0
# The moments are known from outside only, and the recorder's first frame likewise.
EARLY_OR_LATE = 0.6
# Two scenes that look this much alike can't be told apart in a video, and need not be.
ALIKE = 26.0
MARGIN = 1.0


@dataclasses.dataclass
class Scene:
    """A picture of what was recorded between two moments, in seconds of the recording."""
    name: str
    picture: pathlib.Path
    least: float
    most: float


def judge_scenes(verdict, scenes, frames):
    """Finds each scene in the video about its moment, and there rather than any other scene."""
    pictures = {scene.name: luma_of_picture(scene.picture) for scene in scenes}
    verdict.say("Scenes in the video (luma against the display)")
    for scene in scenes:
        own = pictures[scene.name]
        moments = numpy.arange(max(scene.least - EARLY_OR_LATE, 0), scene.most + EARLY_OR_LATE, 1 / RATE)
        best, moment = max((psnr(frames.at(moment), own), moment) for moment in moments)
        others = [(psnr(frames.at(moment), picture), name) for name, picture in pictures.items()
                  if name != scene.name and psnr(picture, own) < ALIKE]
        nearest = max(others, default=(0.0, "none"))
        verdict.say(f"  {scene.name:<28} about {scene.least:6.2f} s: {best:.1f} dB; the nearest other, "
                    f"{nearest[1]}, {nearest[0]:.1f} dB")
        verdict.require(best >= SCENE_FLOOR and best >= nearest[0] + MARGIN,
                        f"about {scene.least:.2f} s the video does not show {scene.name} ({best:.1f} dB; "
                        f"{nearest[1]} {nearest[0]:.1f} dB)")
