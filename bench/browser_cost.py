#!/usr/bin/python3
"""browser_cost.py [PROGRAM]: what the browser of the stage costs, before and after it is used.

Drives an installed recorder on a private desktop. Prints the memory of the recorder before the first page, and of it
and of the browser's processes with a page shown (resident, and the proportional share that does not count libraries
twice); the time from the press on "Web" to the request of the page; and the processor's time of a page that paints
itself anew 30 times a second.
"""
import http.server
import os
import pathlib
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools" / "lecture"))
from desktop import Desktop  # noqa: E402
from presenter import Presenter  # noqa: E402
from processes import wait_until  # noqa: E402

SERVICE_PORT = 8480
SECONDS = 10
PAGE = b"""<!doctype html><canvas id=c width=700 height=380></canvas><script>
const p = c.getContext('2d'); let i = 0;
setInterval(() => { p.fillStyle = `hsl(${i++ % 360}, 70%, 50%)`; p.fillRect(0, 0, 700, 380); }, 1000 / 30);
</script>"""
asked = []


class Pages(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        asked.append(time.monotonic())
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(PAGE)

    def log_message(self, *_):
        pass


def family(process):
    """Process numbers of a process and all that descend from it."""
    parents = {}
    for entry in pathlib.Path("/proc").iterdir():
        if entry.name.isdigit():
            try:
                parents[int(entry.name)] = int((entry / "stat").read_text().rsplit(")", 1)[1].split()[1])
            except OSError:
                pass
    members = [process]
    for member in members:
        members += [child for child, parent in parents.items() if parent == member]
    return members


def memory(process):
    """Resident and proportional memory in MB."""
    values = {}
    for line in pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()[1:]:
        name, value = line.split()[:2]
        values[name] = int(value) / 1024
    return values["Rss:"], values["Pss:"]


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def report(title, processes):
    for process in processes:
        name = pathlib.Path(f"/proc/{process}/comm").read_text().strip()
        rss, pss = memory(process)
        print(f"{title}: {name:16} {rss:7.1f} MB resident {pss:7.1f} MB proportional")


def main():
    program = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build" / "install" / "bin" / "quillora")
    server = http.server.ThreadingHTTPServer(("127.0.0.1", SERVICE_PORT), Pages)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    with Desktop(sound=False) as desktop:
        desktop.environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        presenter = Presenter(desktop, program.resolve())
        presenter.wait(3)
        recorder = presenter.process_id
        report("before", family(recorder))
        presenter.window.press("More")
        presenter.wait(1)
        assert not asked, "a page was asked for before one was shown"
        pressed = time.monotonic()
        presenter.window.press("Web")
        wait_until(lambda: asked, 30, "the page")
        print(f"press on Web to the page's request: {(asked[0] - pressed) * 1000:.0f} ms")
        presenter.wait(3)
        members = family(recorder)
        report("after", members)
        before = {member: processor_seconds(member) for member in members}
        presenter.wait(SECONDS)
        for member in members:
            used = (processor_seconds(member) - before[member]) / SECONDS * 100
            name = pathlib.Path(f"/proc/{member}/comm").read_text().strip()
            print(f"30 pictures a second: {name:16} {used:5.1f} % of a core")
        presenter.leave()
    return 0


if __name__ == "__main__":
    sys.exit(main())
