"""What scripts/install-preview.sh installs, with stand-ins for npm, Node and the installer of the distribution's packages."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).parents[2] / "scripts/install-preview.sh"
TOOLS = ("bash", "cmp", "cp", "dirname", "grep", "mkdir", "mktemp", "rm", "sort", "timeout")
NODE = "echo ${NODE_VERSION:-v18.20.4}"
NPM = 'echo "$@" >>"$CALLS"; mkdir -p preview/node_modules; [ -z "${NPM_FAILS:-}" ] || { echo "npm ERR! no network"; exit 1; }'
CALL = "ci --prefix preview --omit=dev --ignore-scripts --no-audit --no-fund\n"


def write_script(path, commands):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(f"#!/bin/bash\n{commands}\n")
    path.chmod(0o755)


class InstallPreview(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tools = self.folder / "tools"
        self.calls = self.folder / "calls"
        self.calls.touch()
        self.lock = self.folder / "preview/package-lock.json"
        self.lock.parent.mkdir()
        self.lock.write_text("{}\n")
        (self.folder / "scripts").mkdir()
        shutil.copy(SCRIPT, self.folder / "scripts")
        write_script(self.folder / "scripts/install-dependencies.sh", 'echo "apt $@" >>"$CALLS"; exit 1')
        self.tools.mkdir()
        for tool in TOOLS:
            (self.tools / tool).symlink_to(shutil.which(tool))
        write_script(self.tools / "node", NODE)
        write_script(self.tools / "npm", NPM)

    def install(self, status, errors="", **variables):
        """Runs the script, and returns what was called."""
        self.calls.write_text("")
        process = subprocess.run([self.folder / "scripts/install-preview.sh"], capture_output=True, text=True,
                                 env={"PATH": str(self.tools), "CALLS": str(self.calls), **variables})
        self.assertEqual((process.returncode, process.stderr), (status, errors))
        return self.calls.read_text()

    def test_installs_what_the_lock_file_names_once(self):
        self.assertEqual(self.install(0), CALL)
        self.assertEqual(self.install(0), "")

    def test_installs_again_when_the_lock_file_has_changed(self):
        self.install(0)
        self.lock.write_text("{ }\n")
        self.assertEqual(self.install(0), CALL)

    def test_needs_no_npm_where_all_is_there(self):
        self.install(0)
        (self.tools / "npm").unlink()
        self.assertEqual(self.install(0), "")

    def test_tells_that_npm_fails_and_tries_again_the_next_time(self):
        reason = "npm ERR! no network\ninstall-preview: npm cannot install the packages of preview/package-lock.json\n"
        self.assertEqual(self.install(77, reason, NPM_FAILS="1"), CALL)
        self.assertEqual(self.install(0), CALL)

    def test_tells_what_cannot_be_installed(self):
        (self.tools / "npm").unlink()
        self.assertEqual(self.install(77, "install-preview: cannot install npm\n"), "apt npm\n")
        (self.tools / "node").unlink()
        self.assertEqual(self.install(77, "install-preview: cannot install nodejs npm\n"), "apt nodejs npm\n")

    def test_tells_that_node_is_too_old(self):
        self.assertEqual(self.install(77, "install-preview: Node v18.16.9 is older than v18.17\n", NODE_VERSION="v18.16.9"), "")
        self.assertEqual(self.install(0, NODE_VERSION="v100.0.0"), CALL)


if __name__ == "__main__":
    unittest.main()
