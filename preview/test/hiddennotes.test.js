// The table of cases that brvhost is tested with, too.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import test from 'node:test';

import { readNotes } from '../source/notes.js';

const file = new URL('../../tests/support/hiddennotes.json', import.meta.url);
const { content: usualContent, cases } = JSON.parse(readFileSync(file, 'utf8'));

function scoreOf({ notes, declarations }) {
  const doctype = declarations ? `<!DOCTYPE score-partwise [${declarations}]>` : '';
  const music = notes.map(({ tag, content = usualContent }) => `${tag}${content}</note>`).join('');
  return `${doctype}<score-partwise version="4.0"><part-list><score-part id="P1"/></part-list><part id="P1">`
    + `<measure number="1">${music}</measure></part></score-partwise>`;
}

test('there are cases of hidden notes', () => assert.ok(cases.length > 0));

for (const hiddenCase of cases) {
  test(`${hiddenCase.case}: ${hiddenCase.notes.map(({ hidden }) => (hidden ? 'hidden' : 'shown')).join(', ')}`, () => {
    const notes = readNotes(scoreOf(hiddenCase));
    assert.deepEqual(notes.map(({ hidden }) => hidden), hiddenCase.notes.map(({ hidden }) => hidden));
  });
}
