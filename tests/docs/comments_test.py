"""What Doxygen reads of the comments of a header."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

FILTER = pathlib.Path(os.environ["BRV_SOURCE"], "scripts/docs/comments.py")


class Comments(unittest.TestCase):
    def become(self, header, expected):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "header.h")
            path.write_text(header)
            printed = subprocess.run([sys.executable, "-B", FILTER, path], capture_output=True, text=True, check=True).stdout
        self.assertEqual(printed.splitlines(), expected.splitlines())

    def test_at_the_top_are_about_the_file_and_the_others_about_what_follows(self):
        self.become("// A pitch.\n//\n// Of a note.\n#pragma once\n\n// Names it.\nint NameOf(int pitch);\n",
                    "/// @wholefile A pitch.\n///\n/// Of a note.\n#pragma once\n\n/// Names it.\nint NameOf(int pitch);\n")

    def test_about_no_declaration_stay_plain(self):
        header = "#pragma once\n// How it is done.\n\nint A();\n\n// Ends here.\n}  // extern\n// Nothing.\n#include <b.h>\n"
        self.become(header, header)

    def test_at_the_end_of_a_line_are_about_what_it_declares(self):
        self.become("struct A {\n  int a;  // its *first*\n};  // A\n", "struct A {\n  int a;  ///< its \\*first\\*\n};  // A\n")

    def test_are_shared_by_the_declarations_of_a_run_but_for_examples(self):
        self.become("\n// Reads\n// one.\n//\n// Example:\n//   A(1);\nint A(\n    int);\n"
                    "int B(int);  // another\nint C(int);\n\nint D();\n",
                    "\n/// Reads\n/// one.\n///\n/// Example: @code{.cpp}\n///   A(1); @endcode\nint A(\n    int);\n"
                    "int B(int);  ///< another\n/** Reads one. */ int C(int);\n\nint D();\n")

    def test_hold_code_after_the_word_example_and_tables_elsewhere(self):
        self.become("\n// Modes:\n//\n//   0  none\n//\n//   1  <all>\n//\n// Example:\n//\n//   x < y;\nint A();\n",
                    "\n/// Modes:\n/// @verbatim\n///   0  none\n///\n///   1  <all> @endverbatim\n///\n/// Example:\n/// @code{.cpp}\n"
                    "///   x < y; @endcode\nint A();\n")

    def test_keep_the_lines_of_list_items(self):
        self.become("\n// - One\n//   of them\n//   all.\n// - Two.\nint A();\n",
                    "\n/// - One\n///   of them\n///   all.\n/// - Two.\nint A();\n")

    def test_keep_their_signs_and_code(self):
        self.become("\n// At \\x1 <b> #1 5 %d, in `<%@>` too.\nint A();\n",
                    "\n/// At \\\\x1 \\<b\\> \\#1 5 \\%d, in `<%@>` too.\nint A();\n")

    def test_link_functions_and_constants(self):
        self.become("\n// See BX_SaveTGF, kLoadFlag, kAlert... and `BX_FreeTGF`, not BX_A(1).\nint A();\n",
                    "\n/// See #BX_SaveTGF, #kLoadFlag, kAlert... and `BX_FreeTGF`, not BX_A(1).\nint A();\n")

    def test_name_the_family_and_the_default_of_a_call(self):
        self.become("\n// Notes and rests ------\n\n// Plays. [default -1]\nint A();\n",
                    "\n// Notes and rests ------\n\n/// Plays. @hostdefault{-1} @ingroup calls_notes_and_rests\nint A();\n")

    def test_are_not_needed_for_bytes_of_the_host_and_deleted_copies(self):
        self.become("// A.\nstruct A {\n  // One.\n  A();\n  A(const A&) = delete;\n  std::uint8_t hostTail[2];\n};\n",
                    "/// @wholefile A.\nstruct A {\n  /// One.\n  A();\n  A(const A&) = delete;  ///< There are no copies.\n"
                    "  std::uint8_t hostTail[2];  ///< Belongs to the host.\n};\n")

    def test_are_not_needed_for_friends(self):
        self.become("\n// A.\nclass A {\n  friend int B(A);\n};\n", "\n/// A.\nclass A {\n\n};\n")

    def test_of_private_members_stay_plain(self):
        header = "class A {\n private:\n  // The count.\n  int n_;\n};\n"
        self.become(header, header)


if __name__ == "__main__":
    unittest.main()
