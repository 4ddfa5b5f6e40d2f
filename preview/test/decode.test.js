import assert from 'node:assert/strict';
import { test } from 'node:test';

import { decode } from '../source/decode.js';

const text = '<?xml version="1.0"?><a>Flöte</a>';

function declared(encoding, content) {
  return Buffer.concat([
    Buffer.from(`<?xml version="1.0" encoding="${encoding}"?><a>`),
    Buffer.from(content),
    Buffer.from('</a>'),
  ]);
}

function contentOf(bytes) {
  return /<a>(.*)<\/a>/.exec(decode(bytes))[1];
}

function bigEndian(bytes) {
  return Buffer.from(bytes).swap16();
}

test('a document without a declaration is in UTF-8', () => {
  assert.equal(decode(Buffer.from(text)), text);
});

test('a byte-order mark is no part of the text', () => {
  assert.equal(decode(Buffer.from(`\ufeff${text}`)), text);
  assert.equal(decode(Buffer.from(`\ufeff${text}`, 'utf16le')), text);
  assert.equal(decode(bigEndian(Buffer.from(`\ufeff${text}`, 'utf16le'))), text);
});

test('UTF-16 is known by its first character', () => {
  assert.equal(decode(Buffer.from(text, 'utf16le')), text);
  assert.equal(decode(bigEndian(Buffer.from(text, 'utf16le'))), text);
});

test('ISO-8859-1 has the control characters 0x80 to 0x9F', () => {
  assert.equal(contentOf(declared('ISO-8859-1', [0xe9, 0x80])), 'é\u0080');
});

test('windows-1252 has letters and signs in their place', () => {
  assert.equal(contentOf(declared('windows-1252', [0xe9, 0x80, 0x9c, 0x9f])), 'é€œŸ');
});

test('encodings have their names in any case', () => {
  assert.equal(contentOf(declared('utf-8', Buffer.from('é'))), 'é');
  assert.equal(contentOf(declared('iso-8859-1', [0xe9])), 'é');
  assert.equal(contentOf(declared('Shift_JIS', [0x83, 0x74])), 'フ');
});

const refused = [
  ['bytes that are not UTF-8', Buffer.from([0x3c, 0x61, 0x3e, 0xff]), 'the document is not in UTF-8, as it should be'],
  ['bytes that are not US-ASCII', declared('US-ASCII', [0xe9]), 'the document is not in US-ASCII, as it should be'],
  ['an unknown encoding', declared('middle-c', ''), 'the document is in an encoding that is not known, "middle-c"'],
  [
    'UTF-32',
    Buffer.from([0xff, 0xfe, 0, 0, 0x3c, 0, 0, 0]),
    'a document in UTF-32 cannot be read; one in UTF-8 or UTF-16 can',
  ],
];

for (const [name, bytes, message] of refused) {
  test(`${name}: refused`, () => {
    assert.throws(() => decode(bytes), { name: 'Error', message });
  });
}
