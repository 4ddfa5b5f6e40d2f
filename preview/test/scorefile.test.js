import assert from 'node:assert/strict';
import { mkdirSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { test } from 'node:test';

import { readScore } from '../source/scorefile.js';
import { folderFor } from './support/program.js';
import { zipOf } from './support/zip.js';

const container =
  '<container><rootfiles><rootfile full-path="/music/one.xml"/><rootfile full-path="two.xml"/></rootfiles></container>';

function archiveOf(members) {
  return zipOf({ mimetype: 'application/vnd.recordare.musicxml', ...members });
}

async function read(context, name, content) {
  const folder = folderFor(context, { [name]: content });
  return readScore(join(folder, name));
}

test('a score has the name of its file without the ending', async (context) => {
  for (const name of ['a.b.musicxml', 'a.b.XML', 'a.b.mxl', 'a.b']) {
    assert.deepEqual(await read(context, name, '<x/>'), { name: 'a.b', xml: '<x/>' });
  }
  assert.deepEqual(await read(context, '.xml', '<x/>'), { name: '.xml', xml: '<x/>' });
});

test('a compressed score is the first root file of its container', async (context) => {
  const archive = archiveOf({ 'META-INF/container.xml': container, 'two.xml': '<two/>', 'music/one.xml': '<one/>' });
  assert.deepEqual(await read(context, 'score.mxl', archive), { name: 'score', xml: '<one/>' });
});

test('a compressed score is known by its bytes', async (context) => {
  const archive = archiveOf({ 'META-INF/container.xml': container, 'music/one.xml': '<one/>' });
  assert.deepEqual(await read(context, 'score.xml', archive), { name: 'score', xml: '<one/>' });
});

function damaged(archive) {
  const bytes = Buffer.from(archive);
  bytes[bytes.indexOf('<one/>') + 1] ^= 1;
  return bytes;
}

function withMuchToUnpack(archive) {
  const bytes = Buffer.from(archive);
  const entry = bytes.lastIndexOf('PK\x01\x02');
  const deflated = 8;
  bytes.writeUInt16LE(deflated, entry + 10);
  bytes.writeUInt32LE(0x7fffffff, entry + 24);
  return bytes;
}

const whole = archiveOf({ 'META-INF/container.xml': container, 'music/one.xml': '<one/>' });
const refused = [
  ['an empty file', '', 'the file is empty'],
  [
    'an archive without a container',
    archiveOf({ 'one.xml': '<one/>' }),
    'the archive has no member META-INF/container.xml',
  ],
  [
    'a container that names no score',
    archiveOf({ 'META-INF/container.xml': '<container/>' }),
    'META-INF/container.xml: names no root file',
  ],
  [
    'a container that is not XML',
    archiveOf({ 'META-INF/container.xml': '<container' }),
    'META-INF/container.xml:1:10: the XML ends too early',
  ],
  [
    'an archive without the score',
    archiveOf({ 'META-INF/container.xml': container }),
    'the archive has no member /music/one.xml',
  ],
  [
    'an archive that is cut off',
    whole.subarray(0, 200),
    'not a readable .mxl archive: End of central directory record signature not found',
  ],
  ['a member of two gigabytes', withMuchToUnpack(whole), '/music/one.xml unpacks to more than 268435456 bytes'],
  ['a damaged member', damaged(whole), 'not a readable .mxl archive: /music/one.xml: its checksum does not match'],
];

for (const [name, content, message] of refused) {
  test(`${name}: refused`, async (context) => {
    const folder = folderFor(context, { 'score.mxl': content });
    const path = join(folder, 'score.mxl');
    await assert.rejects(readScore(path), { message: `${path}: ${message}`, status: 2 });
  });
}

test('what is no file: refused', async (context) => {
  const folder = folderFor(context);
  mkdirSync(join(folder, 'folder.xml'));
  writeFileSync(join(folder, 'file'), '');
  const reasons = {
    'missing.xml': 'No such file or directory',
    'folder.xml': 'is a folder, not a score',
    'file/a.xml': 'Not a directory',
  };
  for (const [name, reason] of Object.entries(reasons)) {
    await assert.rejects(readScore(join(folder, name)), { message: `${join(folder, name)}: ${reason}`, status: 2 });
  }
  await assert.rejects(readScore('/dev/null'), { message: '/dev/null: is a device, not a score', status: 2 });
});
