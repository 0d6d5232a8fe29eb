"""Real speech, for a sound input to listen to."""
import wave

import numpy

from processes import run_to_end

TEXT = """
Good morning, and welcome to this lecture. Today we are going to look at how sound travels through the air, and why
a room can make one voice clear and another one hard to follow. A wave that leaves the mouth spreads in every
direction, meets the walls, the floor and the ceiling, and comes back again and again, each time a little weaker. What
we hear is the sum of all these paths. When the echoes arrive within a few hundredths of a second they help us, and
when they come later they blur one word into the next. Keep this picture in mind, for everything else follows from it.
Let us now turn to the numbers on the next page, and measure how long a sound needs to fade away in this very room.
"""


def make_speech(path):
    """Writes about half a minute of speech to a WAV file, one word close upon the other, and gives its length in
    seconds. Closed up so that a second of silence in a recording can only be a fault of the recording."""
    raw = path.with_suffix(".raw.wav")
    run_to_end(["espeak-ng", "-v", "en", "-s", "150", "-w", str(raw), " ".join(TEXT.split())])
    run_to_end(["sox", str(raw), "-r", "48000", "-c", "2", str(path),
                "silence", "1", "0.05", "0.5%", "-1", "0.1", "0.5%", "gain", "-n", "-6"])
    raw.unlink()
    with wave.open(str(path)) as file:
        return file.getnframes() / file.getframerate()


def read_wave(path, rate):
    """The samples of any sound or video file as one row of floats at `rate`."""
    raw = run_to_end(["ffmpeg", "-v", "error", "-i", str(path), "-vn", "-ac", "1", "-ar", str(rate),
                      "-f", "f32le", "-"])
    return numpy.frombuffer(raw, dtype="<f4")
