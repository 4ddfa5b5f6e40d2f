// What docs/preview.md has about the page.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { test } from 'node:test';

import { folderFor, run } from './support/program.js';
import { hidden, note, scoreOf } from './support/scores.js';

const guide = readFileSync(new URL('../../docs/preview.md', import.meta.url), 'utf8');
const plainKey = (key) => key.replace('−', '-');

test('the guide lists the keys that the page shows', (context) => {
  const [before, after] = ['', hidden].map((attributes) => scoreOf([note('C6', attributes)]));
  const folder = folderFor(context, { 'before.xml': before, 'after.xml': after });
  assert.equal(run(folder, ['after.xml', '--before', 'before.xml']).status, 0);
  const page = readFileSync(join(folder, 'after.html'), 'utf8');
  const shown = Array.from(page.matchAll(/<kbd>(.+?)<\/kbd>/g), ([, key]) => plainKey(key));
  const rows = Array.from(guide.matchAll(/^\| ((?:[A-Z0-9+-], )*[A-Z0-9+-]) \|/gm), ([, keys]) => keys.split(', '));
  assert.notDeepEqual(shown, []);
  assert.deepEqual(rows.flat().sort(), shown.sort());
});
