"""tools/install_packages, with stand-ins for the programs that it calls."""
import os
import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
TOOLS = ("bash", "sed", "dirname", "env", "true")


class InstallPackagesTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="a system ")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.programs = self.folder / "bin"
        self.tree = self.folder / "a tree"
        (self.tree / "tools").mkdir(parents=True)
        self.programs.mkdir()
        script = self.tree / "tools" / "install_packages"
        script.write_text((ROOT / "tools" / "install_packages").read_text())
        script.chmod(0o755)
        (self.tree / "packages.txt").write_text("# Build\n\ng++     # the compiler\ncmake   # the build\n")
        for tool in TOOLS:
            (self.programs / tool).symlink_to(f"/usr/bin/{tool}")
        self.add("id", "echo 0")
        self.add("apt-get", f'echo "$*" >>"{self.folder}/apt.log"')
        self.installed("g++")

    def add(self, name, body):
        program = self.programs / name
        program.write_text(f"#!/usr/bin/bash\n{body}\n")
        program.chmod(0o755)

    def installed(self, *names):
        self.add("dpkg-query", f'for name in {" ".join(names)}; do\n'
                 'if [ "${@: -1}" = "$name" ]; then printf installed; exit 0; fi\ndone\nexit 1')

    def run_script(self):
        return subprocess.run([str(self.tree / "tools" / "install_packages")], capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, env={"PATH": str(self.programs)}, timeout=60, check=False)

    def apt_calls(self):
        log = self.folder / "apt.log"
        return log.read_text().splitlines() if log.exists() else []

    def test_nothing_is_done_or_said_where_nothing_is_missing(self):
        self.installed("g++", "cmake")
        done = self.run_script()
        self.assertEqual((done.returncode, done.stdout + done.stderr, self.apt_calls()), (0, "", []))

    def test_what_is_missing_is_named_and_installed_after_one_update(self):
        done = self.run_script()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("cmake", done.stdout)
        update, install = self.apt_calls()
        self.assertTrue(update.endswith(" update"), update)
        self.assertTrue(install.endswith(" install --no-install-recommends cmake"), install)

    def test_a_removed_package_counts_as_missing(self):
        self.add("dpkg-query", "printf config-files")
        self.run_script()
        self.assertIn("g++ cmake", self.apt_calls()[1])

    def test_a_source_that_does_not_answer_does_not_stop_the_installation(self):
        self.add("apt-get", f'echo "$*" >>"{self.folder}/apt.log"\n[ "${{@: -1}}" != update ]')
        self.assertEqual(self.run_script().returncode, 0)
        self.assertEqual(len(self.apt_calls()), 2)

    def test_a_failed_installation_is_told(self):
        self.add("apt-get", '[ "${@: -1}" = update ]')
        done = self.run_script()
        self.assertEqual(done.returncode, 1)
        self.assertIn("could not install: cmake", done.stderr)

    def test_sudo_is_taken_where_one_is_not_root(self):
        self.add("id", "echo 1000")
        self.add("sudo", f'echo sudo "$@" >>"{self.folder}/sudo.log"\n[ "$1" = -n ] && shift\nexec "$@"')
        self.assertEqual(self.run_script().returncode, 0)
        self.assertEqual(len(self.apt_calls()), 2)
        self.assertIn("apt-get", (self.folder / "sudo.log").read_text())

    def test_without_root_and_sudo_one_line_says_what_to_do(self):
        self.add("id", "echo 1000")
        done = self.run_script()
        self.assertEqual((done.returncode, self.apt_calls()), (1, []))
        self.assertEqual(done.stderr, "install_packages: missing: cmake; run this as root, or install sudo\n")

    def test_another_distribution_is_told_in_one_line(self):
        (self.programs / "apt-get").unlink()
        done = self.run_script()
        self.assertEqual(done.returncode, 1)
        self.assertEqual(len(done.stderr.splitlines()), 1)


if __name__ == "__main__":
    unittest.main()
