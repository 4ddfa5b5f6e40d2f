import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import test from 'node:test';

import { countByStaffAndMeasure, countLedgerLines } from './support/ledgercount.js';

function sample(name) {
  return readFileSync(new URL(`../../samples/${name}`, import.meta.url), 'utf8');
}

function score(...measures) {
  const content = measures.map((music, index) => `<measure number="${index + 1}">${music}</measure>`).join('');
  return `<score-partwise><part-list/><part id="P1">${content}</part></score-partwise>`;
}

function note(name, more = '<duration>1</duration>') {
  const [, step, octave] = name.match(/^([A-G])(\d)$/);
  return `<note><pitch><step>${step}</step><octave>${octave}</octave></pitch>${more}</note>`;
}

function grace(name) {
  return note(name, '').replace('<note>', '<note><grace/>');
}

function clef(sign, line, more = '') {
  return `<attributes><clef><sign>${sign}</sign><line>${line}</line>${more}</clef></attributes>`;
}

function octaveShift(type, size, more = '') {
  return `<direction><direction-type><octave-shift type="${type}" size="${size}"/></direction-type>${more}</direction>`;
}

// "2" is two lines above the staff, "-2" two lines below it.
function signed({ above, below, known }) {
  return known ? above - below : null;
}

function linesOf(...measures) {
  return countLedgerLines(score(...measures)).map(signed);
}

test('the piano sample needs as many lines in each measure as can be counted by hand', () => {
  const counts = countByStaffAndMeasure(countLedgerLines(sample('piano.musicxml')));
  assert.deepEqual(Object.fromEntries(counts), {
    '1:1': 25, '2:1': 7, '1:2': 21, '2:2': 13, '1:3': 9, '2:3': 8, '1:4': 6, '2:4': 6,
  });
});

test('a score by measures is counted staff by staff, in the order of its notes', () => {
  const counts = countLedgerLines(sample('duo-timewise.musicxml'));
  assert.deepEqual(counts.map(({ number, staff, measure, above, below }) => [number, staff, measure, above, below]), [
    [0, 1, 1, 1, 0], [1, 1, 1, 2, 0], [2, 1, 1, 3, 0], [3, 2, 1, 0, 2],
    [4, 1, 2, 4, 0], [5, 1, 2, 5, 0], [6, 2, 2, 0, 3],
  ]);
});

test('the first line is needed by the second note outside the staff', () => {
  assert.deepEqual(linesOf(['F5', 'G5', 'A5', 'B5', 'C6', 'E4', 'D4', 'C4', 'B3', 'A3'].map((name) => note(name)).join('')),
    [0, 0, 1, 1, 2, 0, 0, -1, -1, -2]);
});

test('middle C needs lines as its clef places it', () => {
  const clefs = [['G', 2], ['G', 1], ['C', 1], ['C', 3], ['C', 4], ['F', 3], ['F', 4], ['percussion', 2]];
  assert.deepEqual(clefs.map(([sign, line]) => linesOf(clef(sign, line) + note('C4'))[0]), [-1, -2, 0, 0, 0, 0, 1, -1]);
});

test('the octave of a clef counts', () => {
  const down = '<clef-octave-change>-1</clef-octave-change>';
  assert.deepEqual(linesOf(clef('G', 2, down) + note('C3') + note('A4')), [-1, 1]);
});

test('nothing is known of tablature', () => {
  assert.deepEqual(linesOf(clef('TAB', 5) + note('C2') + clef('F', 4) + note('C2')), [null, -2]);
});

test('a note without pitch is where it is displayed', () => {
  const unpitched = '<note><unpitched><display-step>A</display-step><display-octave>5</display-octave></unpitched></note>';
  assert.deepEqual(linesOf(clef('percussion', 2) + unpitched + '<note><unpitched/></note>'), [1, null]);
});

test('a clef change in a measure counts for all voices from its time on, and not for a grace note before it', () => {
  const measure = note('C4', '<duration>2</duration>') + grace('C4') + clef('F', 4) + grace('C4') + note('C4')
    + '<backup><duration>3</duration></backup>' + note('C4') + note('C4') + note('C4');
  assert.deepEqual(linesOf(measure, note('C4')), [-1, -1, 1, 1, -1, -1, 1, 1]);
});

test('a clef change that another voice has counts for a voice before it in the document', () => {
  const measure = note('C4') + note('C4') + '<backup><duration>1</duration></backup>' + clef('F', 4) + note('C4');
  assert.deepEqual(linesOf(measure), [-1, 1, 1]);
});

test('the place on a staff with other lines counts from its lowest line', () => {
  const one = '<attributes><staff-details><staff-lines>1</staff-lines></staff-details></attributes>';
  assert.deepEqual(linesOf(one + note('E4') + note('F4') + note('G4') + note('C4')), [0, 0, 1, -1]);
});

test('notes under an octave shift are written nearer to the staff, whatever its offset', () => {
  const later = '<offset>2</offset>';
  assert.deepEqual(linesOf(note('A6') + octaveShift('down', 8, later) + note('A6') + octaveShift('stop', 8) + note('A6')
    + octaveShift('down', 15) + note('A7') + octaveShift('stop', 15) + octaveShift('up', 8) + note('C3'), note('C3')
    + octaveShift('stop', 8) + note('C3')), [4, 1, 4, 1, -1, -1, -4]);
});

test('nothing is known under an octave shift of a size that MusicXML does not have', () => {
  assert.deepEqual(linesOf(note('A5') + octaveShift('down', 27) + note('A5')), [1, null]);
});

test('an octave shift and a clef change their own staff alone', () => {
  const onStaff = (staff) => `<duration>1</duration><staff>${staff}</staff>`;
  const clefs = '<attributes><staves>2</staves><clef number="2"><sign>F</sign></clef></attributes>';
  assert.deepEqual(linesOf(clefs + octaveShift('down', 8, '<staff>2</staff>') + note('C6', onStaff(1)) + note('C6', onStaff(2))),
    [2, 4]);
});

test('octave shifts that run side by side end by their staves and numbers', () => {
  const start = octaveShift('down', 8, '<staff>2</staff>') + octaveShift('down', 15);
  assert.deepEqual(linesOf(start + octaveShift('stop', 8, '<staff>2</staff>') + note('A7') + octaveShift('stop', 15) + note('A5')),
    [1, 1]);
});

test('notes of a chord on one staff share their lines', () => {
  const counts = countLedgerLines(score(note('A3') + note('C4', '<duration>1</duration>').replace('<note>', '<note><chord/>')
    + note('A5').replace('<note>', '<note><chord/>') + note('A3')));
  assert.deepEqual(Object.fromEntries(countByStaffAndMeasure(counts)), { '1:1': 5 });
});

test('an invisible note is marked', () => {
  const counts = countLedgerLines(score(note('C4').replace('<note>', '<note print-object="no">') + note('C4')));
  assert.deepEqual(counts.map(({ visible }) => visible), [false, true]);
});

test('rests are left out', () => {
  const rest = '<note><rest><display-step>A</display-step><display-octave>5</display-octave></rest><duration>1</duration></note>';
  assert.deepEqual(countLedgerLines(score(rest + note('C4'))).map(({ number, below }) => [number, below]), [[1, 1]]);
});
