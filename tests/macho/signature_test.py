"""The signatures in the executable for macOS, checked as a Mac checks them: nobody's, and of these very bytes.

    BRV_MACOS_IMAGE=EXECUTABLE signature_test.py
"""

import collections
import hashlib
import os
import pathlib
import struct
import unittest

PAGE = 4096
LC_SEGMENT_64, LC_CODE_SIGNATURE = 0x19, 0x1D
CSMAGIC_EMBEDDED_SIGNATURE, CSMAGIC_CODEDIRECTORY = 0xFADE0CC0, 0xFADE0C02
CSSLOT_CODEDIRECTORY = 0
CS_ADHOC, CS_LINKER_SIGNED = 0x2, 0x20000
CS_HASHTYPE_SHA256 = 2

# The header of a code directory, under the names that its documentation gives the fields.
FIELDS = ("magic length version flags hashOffset identOffset nSpecialSlots nCodeSlots codeLimit "
          "hashSize hashType platform pageSize spare2 scatterOffset teamOffset spare3 codeLimit64 "
          "execSegBase execSegLimit execSegFlags")
FORMAT = ">9I4B4I4Q"
CodeDirectory = collections.namedtuple("CodeDirectory", FIELDS)


def images():
    """The images of the executable, by the numbers of their processors."""
    executable = pathlib.Path(os.environ["BRV_MACOS_IMAGE"]).read_bytes()
    _, count = struct.unpack_from(">2I", executable)
    found = {}
    for i in range(count):
        processor, _, offset, size, _ = struct.unpack_from(">5I", executable, 8 + 20 * i)
        found[processor] = executable[offset:offset + size]
    return found


def load_commands(image):
    """Each load command's kind and place."""
    count, = struct.unpack_from("<I", image, 16)
    place = 32
    for _ in range(count):
        kind, size = struct.unpack_from("<2I", image, place)
        yield kind, place
        place += size


class Signature:
    def __init__(self, image):
        place, = (place for kind, place in load_commands(image) if kind == LC_CODE_SIGNATURE)
        self.offset, self.size = struct.unpack_from("<2I", image, place + 8)
        signature = image[self.offset:self.offset + self.size]
        self.magic, self.length, self.count, self.slot, start = struct.unpack_from(">5I", signature)
        self.bytes = signature[start:]
        self.directory = CodeDirectory(*struct.unpack_from(FORMAT, self.bytes))

    def identifier(self):
        start = self.directory.identOffset
        return self.bytes[start:self.bytes.index(b"\0", start)].decode()

    def hashes(self):
        start, size = self.directory.hashOffset, self.directory.hashSize
        return [self.bytes[start + i * size:start + (i + 1) * size] for i in range(self.directory.nCodeSlots)]


def page_hashes(code):
    return [hashlib.sha256(code[start:start + PAGE]).digest() for start in range(0, len(code), PAGE)]


def text_segment(image):
    for kind, place in load_commands(image):
        if kind == LC_SEGMENT_64 and image[place + 8:place + 24].rstrip(b"\0") == b"__TEXT":
            return struct.unpack_from("<2Q", image, place + 40)
    raise AssertionError("no segment of code")


class ImageOf:
    """What holds for the image of either processor."""

    def setUp(self):
        self.image = images()[self.processor]
        self.signature = Signature(self.image)
        self.directory = self.signature.directory

    def test_ends_with_a_signature_of_one_code_directory(self):
        signature = self.signature
        self.assertEqual((signature.magic, signature.count, signature.slot),
                         (CSMAGIC_EMBEDDED_SIGNATURE, 1, CSSLOT_CODEDIRECTORY))
        self.assertEqual(self.directory.magic, CSMAGIC_CODEDIRECTORY)
        self.assertLessEqual(signature.length, signature.size)
        self.assertEqual(signature.offset + signature.size, len(self.image))

    def test_is_signed_by_nobody(self):
        self.assertEqual((self.directory.flags, self.directory.teamOffset), (CS_ADHOC | CS_LINKER_SIGNED, 0))

    def test_is_identified_by_its_name(self):
        self.assertEqual(self.signature.identifier(), "LegerLines")

    def test_has_the_hash_of_each_page_before_the_signature(self):
        self.assertEqual((self.directory.hashType, self.directory.hashSize, 1 << self.directory.pageSize),
                         (CS_HASHTYPE_SHA256, hashlib.sha256().digest_size, PAGE))
        self.assertEqual((self.directory.codeLimit, self.directory.codeLimit64), (self.signature.offset, 0))
        self.assertEqual(self.signature.hashes(), page_hashes(self.image[:self.signature.offset]))

    def test_names_the_segment_of_its_code(self):
        self.assertEqual((self.directory.execSegBase, self.directory.execSegLimit), text_segment(self.image))


class ImageOfX86_64(ImageOf, unittest.TestCase):
    processor = 0x01000007


class ImageOfArm64(ImageOf, unittest.TestCase):
    processor = 0x0100000C


if __name__ == "__main__":
    unittest.main()
