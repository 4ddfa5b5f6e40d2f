// The score in a compressed file (.mxl).

import yauzl from 'yauzl';

import { checksumOf } from './checksum.js';
import { decode } from './decode.js';
import { InputError, inFile } from './errors.js';
import { maxScoreSize } from './limits.js';
import { parseXml } from './parsexml.js';
import { excerpt } from './printable.js';

const container = 'META-INF/container.xml';
const maxContainerSize = 1 << 20;

export function isArchive(bytes) {
  return ['PK\x03\x04', 'PK\x05\x06'].includes(bytes.toString('latin1', 0, 4));
}

// The bytes of the first root file that the container names.
export async function readArchivedScore(bytes) {
  const archive = await orBroken(yauzl.fromBufferPromise(bytes));
  const members = new Map();
  for await (const entry of readable(archive.eachEntry())) members.set(fromTheTop(entry.fileName), entry);
  const names = decode(await readMember(archive, members, container, maxContainerSize));
  const root = await inFile(container, () => rootFileOf(names));
  return readMember(archive, members, root, maxScoreSize);
}

function rootFileOf(xml) {
  let path = null;
  parseXml(xml, {
    open(tag) {
      if (tag.name === 'rootfile') path ??= tag.attributes['full-path'] ?? null;
    },
  });
  if (path === null) throw new InputError('names no root file');
  return path;
}

async function readMember(archive, members, name, maxSize) {
  const entry = members.get(fromTheTop(name));
  if (entry === undefined) throw new InputError(`the archive has no member ${excerpt(name)}`);
  if (entry.uncompressedSize > maxSize) {
    throw new InputError(`${excerpt(name)} unpacks to more than ${maxSize} bytes`);
  }
  const stream = await orBroken(archive.openReadStreamPromise(entry));
  const pieces = [];
  for await (const piece of readable(stream)) pieces.push(piece);
  const content = Buffer.concat(pieces);
  if (checksumOf(content) !== entry.crc32) throw broken(`${excerpt(name)}: its checksum does not match`);
  return content;
}

// A path in an archive starts at its top, whether or not it begins so.
function fromTheTop(path) {
  return path.replace(/^(\.?\/)+/, '');
}

async function orBroken(promise) {
  try {
    return await promise;
  } catch (error) {
    throw broken(error.message.split('. ')[0]);
  }
}

async function* readable(source) {
  try {
    yield* source;
  } catch (error) {
    throw broken(error.message.split('. ')[0]);
  }
}

function broken(reason) {
  return new InputError(`not a readable .mxl archive: ${excerpt(reason)}`);
}
