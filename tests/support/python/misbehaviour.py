"""The extension that misbehaves as its environment wants it, and runs of it."""

import os

from brvhost import Case, faulty, run, score

MISBEHAVES = faulty("misbehaves")


def misbehaviour(point="", way="", call=""):
    """The environment for one way at one point, or for a host call with these arguments. A sanitizer leaves the signals to
    brvhost, and looks for no leaks where descriptors are gone."""
    sanitizer = f"{os.environ.get('ASAN_OPTIONS', '')}:handle_segv=0:handle_abort=0:handle_sigbus=0:detect_leaks=0"
    return {"BRV_TEST_POINT": point, "BRV_TEST_WAY": way, "BRV_TEST_CALL": call, "ASAN_OPTIONS": sanitizer}


class TwoScores(Case):
    def misbehave(self, name, environment, *options):
        """The process, which has run over two scores in a folder of that name, and the scores."""
        folder = self.folder / name.replace(" ", "_")
        folder.mkdir()
        scores = [folder / "1.musicxml", folder / "2.musicxml"]
        for path in scores:
            path.write_text(score())
        return run(0, "--all", "--in-place", *options, *scores, bundle=MISBEHAVES, environment=environment), scores

    def check_content(self, scores, content):
        """Nothing is beside them, either."""
        self.assertEqual([path.read_text() for path in scores], [content] * 2)
        self.assertEqual(sorted(scores[0].parent.iterdir()), scores)
