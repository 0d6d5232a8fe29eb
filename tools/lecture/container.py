"""Reads a saved container as a stranger would: an archive, an index, pictures, a video."""
import json
import re
import zipfile

from processes import Failure, run_to_end

INDEX_HEAD = ["<slides>", '<slide currentS="1">', "<minutes>00:00:00</minutes>", "<seconds>0</seconds>", "</slide>"]
INDEX_TAIL = "</slides>"


class Container:
    """One saved container, unpacked into `folder`. Whatever breaks the format is a Failure."""

    def __init__(self, path, folder):
        folder.mkdir(parents=True, exist_ok=True)
        try:
            with zipfile.ZipFile(path) as archive:
                self.entries = archive.infolist()
                damaged = archive.testzip()
                if damaged:
                    raise Failure(f"the entry {damaged} of the container is damaged")
                self._check_entries()
                archive.extractall(folder)
        except zipfile.BadZipFile as error:
            raise Failure(f"{path} is no archive: {error}") from None
        except OSError as error:
            raise Failure(f"{path} cannot be read: {error.strerror}") from None
        self.video = folder / next(entry.filename for entry in self.entries if entry.filename.endswith(".wmv"))
        self.pictures = {int(re.findall(r"\d+", entry.filename)[0]): folder / entry.filename
                         for entry in self.entries if re.fullmatch(r"slide\d+\.jpg", entry.filename)}
        self.version = (folder / "version.txt").read_bytes()
        if not re.fullmatch(rb"Version \d+\.\d+\.\d+\r\n", self.version):
            raise Failure(f"version.txt holds {self.version!r}")
        self.index = parse_index((folder / "slidetime.xml").read_bytes())

    def _check_entries(self):
        names = [entry.filename for entry in self.entries]
        foldered = [name for name in names if "/" in name or "\\" in name]
        if foldered:
            raise Failure(f"entries in folders: {foldered}")
        pictures = [name for name in names if name.endswith(".jpg")]
        # A deck that no picture could be made of leaves neither its first slide nor any other.
        expected = ["version.txt"] + (["Slide1.PNG"] if pictures else []) + pictures + ["slidetime.xml"]
        videos = names[len(expected):]
        if names[:len(expected)] != expected or len(videos) != 1:
            raise Failure(f"the entries are not those of a container, in their order: {names}")
        if not re.fullmatch(r"[A-Za-z0-9]{8}\.wmv", videos[0]):
            raise Failure(f"the video's name is not eight letters and digits: {videos[0]}")
        if {f"slide{n}.jpg" for n in range(1, len(pictures) + 1)} != set(pictures):
            raise Failure(f"the slide pictures have gaps: {pictures}")


def parse_index(data):
    """The index's entries, as pairs of slide number and second; checked line by line against the format."""
    text = data.decode("ascii")
    if not text.endswith("\r\n") or text.count("\n") != text.count("\r\n"):
        raise Failure("slidetime.xml: not every line ends with carriage return and line feed")
    lines = text[:-2].split("\r\n")
    if lines[:5] != INDEX_HEAD:
        raise Failure(f"slidetime.xml begins with {lines[:5]}")
    if lines[-1] != INDEX_TAIL or len(lines) % 4 != 2:
        raise Failure(f"slidetime.xml ends with {lines[-1]!r} after {len(lines)} lines")
    entries = [(1, 0)]
    for at in range(5, len(lines) - 1, 4):
        slide = re.fullmatch(r'<slide currentS="([1-9]\d*|0)">', lines[at])
        clock = re.fullmatch(r"<minutes>(\d\d):([0-5]\d):([0-5]\d)</minutes>", lines[at + 1])
        seconds = re.fullmatch(r"<seconds>(0|[1-9]\d*)</seconds>", lines[at + 2])
        if not (slide and clock and seconds and lines[at + 3] == "</slide>"):
            raise Failure(f"slidetime.xml, line {at + 1}: {lines[at:at + 4]}")
        if int(clock[1]) * 3600 + int(clock[2]) * 60 + int(clock[3]) != int(seconds[1]):
            raise Failure(f"slidetime.xml, line {at + 2}: {lines[at + 1]} is not {lines[at + 2]}")
        entries.append((int(slide[1]), int(seconds[1])))
    if any(later[1] < earlier[1] for earlier, later in zip(entries, entries[1:])):
        raise Failure(f"slidetime.xml: time goes backwards in {entries}")
    return entries


class Streams:
    """What ffprobe says of a video."""

    def __init__(self, path):
        probe = json.loads(run_to_end(["ffprobe", "-v", "error", "-show_streams", "-show_format", "-of", "json",
                                       str(path)]))
        self.format = probe["format"]["format_name"]
        self.duration = float(probe["format"]["duration"])
        self.all = probe["streams"]
        self.video = self._only("video")
        self.sound = self._only("audio")
        self.size = (int(self.video["width"]), int(self.video["height"]))
        frames, _, seconds = self.video["avg_frame_rate"].partition("/")
        self.rate = int(frames) / (int(seconds) or 1)  # "0/0" where the frames come too unevenly to tell

    def _only(self, kind):
        streams = [stream for stream in self.all if stream["codec_type"] == kind]
        if len(streams) != 1:
            raise Failure(f"the video has {len(streams)} {kind} streams")
        return streams[0]


def frame_times(path):
    """Time stamps of all video frames, in seconds, as decoding gives them."""
    frames = run_to_end(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries",
                         "frame=best_effort_timestamp_time", "-of", "csv=p=0", str(path)], seconds=600)
    return [float(line.rstrip(",")) for line in frames.decode().split()]
