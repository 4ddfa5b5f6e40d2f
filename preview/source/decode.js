// The characters of a document, from its bytes: by its byte-order mark, its first bytes, or what it declares.

import { InputError } from './errors.js';
import { excerpt } from './printable.js';

const unread = [
  { start: [0xff, 0xfe, 0, 0], encoding: 'UTF-32' },
  { start: [0, 0, 0xfe, 0xff], encoding: 'UTF-32' },
  { start: [0x3c, 0, 0, 0], encoding: 'UTF-32' },
  { start: [0, 0, 0, 0x3c], encoding: 'UTF-32' },
  { start: [0x4c, 0x6f, 0xa7, 0x94], encoding: 'EBCDIC' },
  { start: [0x2b, 0x41, 0x44, 0x77, 0x2d], encoding: 'UTF-7' },
];

const marked = [
  { start: [0xef, 0xbb, 0xbf], encoding: 'utf-8' },
  { start: [0xff, 0xfe], encoding: 'utf-16le' },
  { start: [0xfe, 0xff], encoding: 'utf-16be' },
  { start: [0x3c, 0], encoding: 'utf-16le' },
  { start: [0, 0x3c], encoding: 'utf-16be' },
];

// What windows-1252 has in the place of the control characters 0x80 to 0x9F. The decoder of some releases of Node
// leaves these as they are, and it takes ISO-8859-1 for windows-1252.
const windows1252 =
  '\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\u008d\u017d\u008f' +
  '\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\u009d\u017e\u0178';

const own = new Map([
  ['iso-8859-1', (bytes) => bytes.toString('latin1')],
  ['us-ascii', decodeAscii],
  ['ascii', decodeAscii],
  ['windows-1252', decodeWindows1252],
]);

export function decode(bytes) {
  const notRead = unread.find(({ start }) => startsWith(bytes, start));
  if (notRead !== undefined) {
    throw new InputError(`a document in ${notRead.encoding} cannot be read; one in UTF-8 or UTF-16 can`);
  }
  const known = marked.find(({ start }) => startsWith(bytes, start));
  const encoding = known?.encoding ?? declaredEncoding(bytes);
  return decodeAs(encoding, bytes);
}

function startsWith(bytes, start) {
  return start.every((byte, index) => bytes[index] === byte);
}

function declaredEncoding(bytes) {
  const head = bytes.toString('latin1', 0, 1024);
  const declaration = /^<\?xml\s[^>]*?\bencoding\s*=\s*["']([^"']*)["']/.exec(head);
  return declaration === null ? 'utf-8' : declaration[1].toLowerCase();
}

function decodeAs(encoding, bytes) {
  const decodeOwn = own.get(encoding);
  if (decodeOwn !== undefined) return decodeOwn(bytes);
  const decoder = decoderOf(encoding);
  try {
    return decoder.decode(bytes);
  } catch {
    throw new InputError(`the document is not in ${decoder.encoding.toUpperCase()}, as it should be`);
  }
}

function decoderOf(encoding) {
  try {
    return new TextDecoder(encoding, { fatal: true });
  } catch {
    throw new InputError(`the document is in an encoding that is not known, "${excerpt(encoding)}"`);
  }
}

function decodeAscii(bytes) {
  if (bytes.some((byte) => byte >= 0x80)) throw new InputError('the document is not in US-ASCII, as it should be');
  return bytes.toString('latin1');
}

function decodeWindows1252(bytes) {
  const first = 0x80;
  return bytes.toString('latin1').replace(/[\u0080-\u009f]/g, (control) => windows1252[control.charCodeAt(0) - first]);
}
