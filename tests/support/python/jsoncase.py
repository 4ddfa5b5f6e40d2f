"""Tests of lines of JSON, which have to keep to their schemas."""

import json
import os
import pathlib
import unittest

from brvhost import Case

try:
    import jsonschema
except ImportError:
    jsonschema = None

DOCUMENTS = pathlib.Path(os.environ["BRV_SOURCE"]) / "docs"


@unittest.skipUnless(jsonschema, "the package python3-jsonschema is not installed")
class JsonCase(Case):
    def lines(self, command, output):
        """What the lines of a command hold. Each is ASCII and keeps to the schema."""
        schema = json.loads((DOCUMENTS / "json" / f"{command}.schema.json").read_text())
        jsonschema.Draft202012Validator.check_schema(schema)
        self.assertTrue(output.isascii() and (output.endswith("\n") or not output), output)
        lines = [json.loads(line) for line in output.splitlines()]
        for line in lines:
            jsonschema.Draft202012Validator(schema).validate(line)
        return lines

    def one(self, process, command="run"):
        lines = self.lines(command, process.stdout)
        self.assertEqual(len(lines), 1, process.stdout)
        return lines[0]
