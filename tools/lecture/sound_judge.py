"""Judges the sound of a saved lecture: it has to be the speech that was spoken, second by second."""
import numpy

from speech import read_wave

RATE = 8000
# The speech has no silence longer than a tenth of a second.
LEVEL_WINDOW = 0.25
SILENCE = 0.002
# What the sound input may take to give its first sample.
BEGINS_WITHIN = 1.0
# An encoder shifts and smears a little; what the sound server drops or repeats is a multiple of this.
STEADY = 0.04
# What such a moment may cost; whatever is longer is the recorder's fault.
JUMP = 0.1
ALIKE = 0.5
# A second over a pause holds two pieces of the speech, and is not found in it as one; in half a minute with one pause
# all others are, 0.88 to 0.999 alike.
CLEAR = 0.9


def judge_sound(verdict, video, notes, speech):
    """Looks each second of the sound up in the speech: how far the speech was ahead of the recording may change
    where the presenter paused, by the length of the pause, and nowhere else."""
    sound, spoken = read_wave(video, RATE), read_wave(speech, RATE)
    levels = _levels(sound)
    loud = [number for number, level in enumerate(levels) if level > SILENCE]
    verdict.require(loud, "there is no sound")
    if not loud:
        return
    begins = loud[0] * LEVEL_WINDOW
    verdict.require(begins <= BEGINS_WITHIN, f"the sound begins only at {begins:.2f} s")
    holes = [number * LEVEL_WINDOW for number in range(loud[0], len(levels)) if levels[number] <= SILENCE]
    verdict.require(not holes, f"the sound has holes at {holes} s")

    seconds = range(int(numpy.ceil(begins)), int(len(sound) / RATE))
    found = [_place_in_speech(sound[at * RATE:(at + 1) * RATE], spoken) for at in seconds]
    clear = [(at, place) for at, (place, likeness) in zip(seconds, found) if likeness > ALIKE]
    verdict.require(len(clear) >= max(1, CLEAR * len(found)),
                    f"the sound is not the speech: of {len(found)} s, {len(clear)} s were found in it")
    if not clear:
        return

    period = len(spoken) / RATE
    ahead = [((place - at) % period, at) for at, place in clear]
    cuts = [notes.recorded(end) for _, end in notes.segments[:-1]]
    for (before, _), (after, at) in zip(ahead, ahead[1:]):
        step = _within_half(after - before, period)
        if abs(step) > STEADY and not any(least - 2 <= at <= most + 1 for least, most in cuts):
            verdict.say(f"  the sound jumps by {step:.3f} s at second {at}")
            verdict.require(abs(step) <= JUMP, f"the sound jumps by {step:.3f} s at second {at}")
    left_out = (ahead[-1][0] - ahead[0][0]) % period
    least, most = (sum(ends) for ends in zip(*notes.pauses())) if cuts else (0, 0)
    middle = (least + most) / 2
    verdict.require(abs(_within_half(left_out - middle, period)) <= (most - least) / 2 + JUMP,
                    f"{left_out:.2f} s of speech are missing for {least:.2f} to {most:.2f} s of pauses")
    verdict.say(f"Sound: {len(sound) / RATE:.2f} s, begins at {begins:.2f} s, level {min(levels[loud[0]:]):.3f} to "
                f"{max(levels):.3f}; the speech, {len(clear)} of {len(found)} s found in it; left out "
                f"{left_out:.2f} s for {least:.2f} to {most:.2f} s of pauses")


def _levels(sound):
    size = int(LEVEL_WINDOW * RATE)
    return [float(numpy.sqrt(numpy.mean(sound[at:at + size] ** 2))) for at in range(0, len(sound) - size, size)]


def _within_half(step, period):
    """The step from one place in the speech to another, the short way round."""
    return (step + period / 2) % period - period / 2


def _place_in_speech(part, spoken):
    """Where in the speech, which is spoken over and over, a second of sound comes from, in seconds; and how alike
    the two are, from 0 to 1. By circular cross-correlation, normalised to the energy of what is compared."""
    size = len(spoken)
    spectrum = numpy.fft.rfft(spoken) * numpy.conj(numpy.fft.rfft(part, size))
    likeness = numpy.fft.irfft(spectrum, size)
    energy = numpy.cumsum(numpy.concatenate([[0], numpy.concatenate([spoken, spoken[:len(part)]]) ** 2]))
    window = energy[len(part):len(part) + size] - energy[:size]
    likeness = likeness / numpy.sqrt(numpy.maximum(window, 1e-9) * max(float(numpy.sum(part ** 2)), 1e-9))
    place = int(numpy.argmax(likeness))
    return place / RATE, float(likeness[place])
