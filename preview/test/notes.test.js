import assert from 'node:assert/strict';
import { test } from 'node:test';

import { putIdsIn, readNotes } from '../source/notes.js';
import { hidden, note, sampleText, scoreOf } from './support/scores.js';

const rest = '<note><rest/><duration>1</duration></note>';

function idsOf(xml) {
  return readNotes(xml).map((each) => each.id);
}

test('notes have their places, also after others', () => {
  const xml = scoreOf([note('C6') + rest, note('E6', hidden)]);
  const [first, second, third] = readNotes(xml);
  const start = xml.indexOf('<note>');
  assert.deepEqual(first, {
    id: 'note-1',
    start,
    end: start + 6,
    line: 6,
    hidden: false,
    isRest: false,
    part: 0,
    staff: 1,
    measure: 1,
  });
  assert.equal(second.isRest, true);
  const last = xml.lastIndexOf('<note ');
  assert.deepEqual(third, {
    id: 'note-3',
    start: last,
    end: last + 23,
    line: 7,
    hidden: true,
    isRest: false,
    part: 0,
    staff: 1,
    measure: 2,
  });
});

test('staves count through all parts', () => {
  const notes = readNotes(sampleText('winds.musicxml'));
  const staffOfPart = new Map(notes.map(({ part, staff }) => [part, staff]));
  assert.deepEqual(
    [...staffOfPart],
    [
      [0, 1],
      [1, 2],
      [2, 3],
    ],
  );
});

test('a part has as many staves as it states, or as its notes need', () => {
  const onStaff = (staff) => note('C6').replace('</note>', `<staff>${staff}</staff></note>`);
  const part = (id, content) => `<part id="${id}"><measure number="1">${content}</measure></part>`;
  const two = '<attributes><staves>2</staves></attributes>';
  const parts = part('A', two + onStaff(1)) + part('B', onStaff(3) + onStaff(1)) + part('C', note('C6'));
  const xml = `<score-partwise>${parts}</score-partwise>`;
  assert.deepEqual(
    readNotes(xml).map(({ staff }) => staff),
    [1, 5, 3, 6],
  );
});

test('parts within measures are the same', () => {
  const notes = readNotes(sampleText('duo-timewise.musicxml'));
  const places = notes.map(({ part, staff, measure }) => `${part} ${staff} ${measure}`);
  assert.deepEqual(places, ['0 1 1', '0 1 1', '0 1 1', '1 2 1', '0 1 2', '0 1 2', '1 2 2', '1 2 2']);
});

test('a note keeps an identifier that is plain and its own', () => {
  assert.deepEqual(idsOf(scoreOf([note('C6', 'id="my.note_1-b"')])), ['my.note_1-b']);
});

test('other identifiers are replaced', () => {
  const given = ['', 'two words', '1st', 'a#b', '&quot;&gt;', 'é', 'twice', 'twice', 'P1'];
  const made = given.map((_, index) => `note-${index + 1}`);
  assert.deepEqual(idsOf(scoreOf([given.map((id) => note('C6', `id="${id}"`)).join('')])), made);
});

test('made identifiers are no one else’s', () => {
  assert.deepEqual(idsOf(scoreOf([note('C6') + note('C6', 'id="note-1"')])), ['note-1_', 'note-1']);
});

test('identifiers are put into notes and the measures of the first part, and nothing else', () => {
  const xml = `<score-partwise>
<part id="A"><measure number="1"><note/><note default-x="1" id = 'a b'
 dynamics="2"></note></measure></part>
<part id="B"><measure id="m"><note id="c"/></measure></part></score-partwise>`;
  const expected = `<score-partwise>
<part id="A"><measure id="measure-1" number="1"><note id="note-1"/><note id="note-2" default-x="1"
 dynamics="2"></note></measure></part>
<part id="B"><measure id="m"><note id="c"/></measure></part></score-partwise>`;
  assert.equal(putIdsIn(xml), expected);
});

test('an attribute that has the text of another in it stays whole', () => {
  const xml = scoreOf([note('C6', `color=' id="x" ' id="a b"`)]);
  assert.match(putIdsIn(xml), /<note id="note-1" color=' id="x" '>/);
});

const refused = [
  ['another document', '<html/>', '1:1: not MusicXML: the root element is <html>'],
  ['no XML', 'hello', '1:5: not well-formed XML: text data outside of root node'],
  ['XML that is cut off', '<score-partwise>\n<part', '2:5: the XML ends too early'],
  ['an end tag of another element', '<score-partwise>\n  </part>', '2:9: not well-formed XML: unexpected close tag'],
  ['elements without end', `<score-partwise>${'<a>'.repeat(300)}`, '1:782: elements are nested more than 256 deep'],
  [
    'a staff that is no number',
    '<score-partwise><part><measure>\n<note>\n <staff>two</staff></note></measure></part></score-partwise>',
    '3:2: a staff is "two"',
  ],
];

for (const [name, xml, message] of refused) {
  test(`${name}: refused with its place`, () => {
    assert.throws(() => readNotes(xml), { message, status: 2 });
  });
}
