import assert from 'node:assert/strict';
import { test } from 'node:test';

import { dashesOf, engrave, engraveAll } from '../source/engraving.js';
import { ownersOfLines } from '../source/dashes.js';
import { readNotes } from '../source/notes.js';
import {
  hidden,
  isOnStaff,
  note,
  pianoDashes,
  pianoRestLines,
  sampleText,
  scoreOf,
  withHidden,
} from './support/scores.js';

const piano = sampleText('piano.musicxml');

// How many dashes there are for each measure and staff of a score.
async function countsIn(xml, options) {
  const notes = new Map(readNotes(xml).map((each) => [each.id, each]));
  const counts = new Map();
  for (const { notes: ids } of (await engrave(xml, options)).flatMap(dashesOf)) {
    const { measure, staff } = notes.get(ids[0]);
    const key = `${measure} ${staff}`;
    counts.set(key, (counts.get(key) ?? 0) + 1);
  }
  return Object.fromEntries([...counts].sort());
}

function expectedCounts(isShown) {
  const shown = pianoDashes.filter(isShown).map(({ measure, staff, dashes }) => [`${measure} ${staff}`, dashes]);
  assert.notEqual(shown.length, 0);
  return Object.fromEntries(shown.sort());
}

async function dashesIn(measure) {
  const [page] = await engrave(scoreOf([measure]));
  return dashesOf(page).map(({ notes }) => notes.join(' '));
}

test('a score has the ledger lines that its pitches need', async () => {
  assert.deepEqual(
    await countsIn(piano),
    expectedCounts(() => true),
  );
});

test('hidden notes have none, and all others keep theirs', async () => {
  const upperHidden = withHidden(piano, isOnStaff(1));
  assert.deepEqual(
    await countsIn(upperHidden),
    expectedCounts(({ staff }) => staff === 2),
  );
  const allHidden = withHidden(piano, () => true);
  assert.deepEqual(await countsIn(allHidden), {});
});

test('hidden rests have none', async () => {
  const linesOf = async (xml) => (await engrave(xml)).flatMap(ownersOfLines).length;
  const dashes = pianoDashes.reduce((sum, place) => sum + place.dashes, 0);
  const restLines = pianoRestLines.reduce((sum, place) => sum + place.lines, 0);
  assert.equal(await linesOf(piano), dashes + restLines);
  assert.equal(await linesOf(withHidden(piano, (index, text) => text.includes('<rest/>'))), dashes);
});

test('nothing but the lines differs', async () => {
  const allHidden = withHidden(piano, () => true);
  assert.deepEqual(await engrave(allHidden, { hidden: 'keep' }), await engrave(piano));
});

test('hidden lines are drawn with the class "ghost"', async () => {
  const upperHidden = withHidden(piano, isOnStaff(1));
  const [page] = await engrave(upperHidden, { hidden: 'ghost' });
  const isUpper = ({ staff }) => staff === 1;
  const dashes = pianoDashes.filter(isUpper).reduce((sum, place) => sum + place.dashes, 0);
  assert.equal(page.split('class="lineDash ghost"').length - 1, dashes);
  assert.equal(page.split(' class="ledgerLines ghost"').length - 1, pianoRestLines.length);
  const withoutGhosts = page
    .replaceAll('lineDash ghost"', 'lineDash"')
    .replaceAll('ledgerLines ghost"', 'ledgerLines"');
  assert.equal(withoutGhosts, (await engrave(piano))[0]);
});

test('in a chord, lines that a shown note needs as well stay', async () => {
  const chord = (low, high) => note('C6', low) + note('G6', high, '<chord/>');
  assert.deepEqual(await dashesIn(chord('', '')), ['note-1 note-2', 'note-1 note-2', 'note-2', 'note-2']);
  assert.deepEqual(await dashesIn(chord('', hidden)), ['note-1 note-2', 'note-1 note-2']);
  assert.deepEqual(await dashesIn(chord(hidden, '')), ['note-1 note-2', 'note-1 note-2', 'note-2', 'note-2']);
  assert.deepEqual(await dashesIn(chord(hidden, hidden)), []);
});

test('grace notes are notes of their own', async () => {
  assert.deepEqual(await dashesIn(note('A5', hidden, '<grace/>') + note('C6')), ['note-2', 'note-2']);
  assert.deepEqual(await dashesIn(note('A5', '', '<grace/>') + note('C6', hidden)), ['note-1']);
});

test('identifiers of the score name its dashes', async () => {
  assert.deepEqual(await dashesIn(note('A5', 'id="mine"')), ['mine']);
});

test('two notes with one identifier are told apart', async () => {
  assert.deepEqual(await dashesIn(note('A5', `id="x" ${hidden}`) + note('A5', 'id="x"')), ['note-2']);
});

test('parts within measures are engraved', async () => {
  const timewise = sampleText('duo-timewise.musicxml');
  // A5, C6, E6, A6 and C7 in the treble clef, the first and the fourth hidden; C2 and A1 in the bass clef.
  assert.deepEqual(await countsIn(timewise), { '1 1': 2 + 3, '2 1': 5, '1 2': 2, '2 2': 3 });
  assert.deepEqual(await countsIn(timewise, { hidden: 'keep' }), {
    '1 1': 1 + 2 + 3,
    '2 1': 4 + 5,
    '1 2': 2,
    '2 2': 3,
  });
});

test('a score gives the same pages every time', async () => {
  const first = await engrave(piano);
  await engrave(sampleText('winds.musicxml'));
  assert.deepEqual(await engrave(piano), first);
});

test('measures are those of the order, and staves those of all parts', async () => {
  const lower = { measures: { first: 1, last: 2 }, staves: { first: 2, last: 2 } };
  assert.deepEqual(
    await countsIn(piano, lower),
    expectedCounts(({ measure, staff }) => measure <= 2 && staff === 2),
  );
  const last = { measures: { first: 3, last: 9 }, staves: null };
  assert.deepEqual(
    await countsIn(piano, last),
    expectedCounts(({ measure }) => measure >= 3),
  );
});

test('staves with notes of the same voice are shown together', async () => {
  const { shown } = await engraveAll(piano, { measures: { first: 3, last: 3 }, staves: { first: 1, last: 1 } });
  assert.deepEqual(shown, { measures: { first: 3, last: 3 }, staves: [1, 2], otherStaves: [2] });
  const alone = await engraveAll(piano, { measures: { first: 1, last: 2 }, staves: { first: 1, last: 1 } });
  assert.deepEqual(alone.shown, { measures: { first: 1, last: 2 }, staves: [1], otherStaves: [] });
});

test('several measures of rest are one, wherever a passage starts in them', async () => {
  const rest = '<note><rest measure="yes"/><duration>4</duration></note>';
  const several = '<attributes><measure-style><multiple-rest>3</multiple-rest></measure-style></attributes>';
  const xml = scoreOf([note('A5'), several + rest, rest, rest, note('C6'), note('E6')]);
  assert.deepEqual(await countsIn(xml, { measures: { first: 3, last: 5 } }), { '5 1': 2 });
  assert.deepEqual(await countsIn(xml, { measures: { first: 1, last: 3 } }), { '1 1': 1 });
});

test('a range out of the score: refused with how many there are', async () => {
  const refused = { status: 2 };
  const fifth = { first: 5, last: null };
  await assert.rejects(engrave(piano, { measures: fifth }), {
    ...refused,
    message: 'the passage starts at measure 5, but the score has only 4',
  });
  await assert.rejects(engrave(piano, { staves: fifth }), {
    ...refused,
    message: 'the passage starts at staff 5, but the score has only 2',
  });
});

test('a score without measures: refused', async () => {
  const empty = '<score-partwise><part-list/></score-partwise>';
  await assert.rejects(engrave(empty), { message: 'the score has no measures', status: 2 });
});

test('after a score that Verovio crashes with, the next one is engraved', async () => {
  const broken = piano.replace('<staves>2</staves>', '<staves>0</staves>');
  await assert.rejects(engrave(broken), { message: /^Verovio crashes with this score: /, status: 2 });
  assert.deepEqual(
    await countsIn(piano),
    expectedCounts(() => true),
  );
});
