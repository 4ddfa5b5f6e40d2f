// Scores for the tests.

import { readFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';

const samples = new URL('../../../samples/', import.meta.url);

export function samplePath(name) {
  return fileURLToPath(new URL(name, samples));
}

export function sampleText(name) {
  return readFileSync(samplePath(name), 'utf8');
}

// Ledger lines of notes in samples/piano.musicxml, by hand, as lines above plus lines below the staff for each note or
// chord in turn. On the upper staff, lines are at A5, C6, E6, G6, B6, D7 and at C4, A3; on the lower one, at C4, E4
// and at E2, C2, A1, F1, D1, B0.
export const pianoDashes = [
  { measure: 1, staff: 1, dashes: 4 + 4 + 3 + 4 + 4 + (2 + 2 + 2) },
  { measure: 1, staff: 2, dashes: 3 + 4 },
  { measure: 2, staff: 1, dashes: 4 + 5 + 6 + 4 + (1 + 1) },
  { measure: 2, staff: 2, dashes: 4 + 5 + 4 },
  { measure: 3, staff: 1, dashes: 1 + 3 + 3 + 2 },
  { measure: 3, staff: 2, dashes: 2 + (3 + 2 + 1 + 0) },
  { measure: 4, staff: 1, dashes: 4 + 2 },
  { measure: 4, staff: 2, dashes: 6 },
];

// Of a half rest in the second voice of the upper staff, below it in the second measure.
export const pianoRestLines = [{ measure: 2, staff: 1, lines: 1 }];

// A score of one part in the treble clef; `measures` are the contents of each, after the attributes in the first.
export function scoreOf(measures, { title = 'Test', name = 'Flute', doctype = '' } = {}) {
  const bodies = measures.map((measure, index) => {
    const clef = '<clef><sign>G</sign><line>2</line></clef>';
    const first = `<attributes><divisions>1</divisions>${clef}</attributes>`;
    return `    <measure number="${index + 1}">${index === 0 ? first : ''}${measure}</measure>`;
  });
  return [
    `<?xml version="1.0"?>${doctype}`,
    '<score-partwise version="4.0">',
    `  <work><work-title>${title}</work-title></work>`,
    `  <part-list><score-part id="P1"><part-name>${name}</part-name></score-part></part-list>`,
    '  <part id="P1">',
    ...bodies,
    '  </part>',
    '</score-partwise>',
    '',
  ].join('\n');
}

// A quarter note: `note('C6')`, `note('C6', 'print-leger="no"')`, and in a chord `note('E6', '', '<chord/>')`.
export function note(pitch, attributes = '', before = '') {
  const [, step, octave] = /^([A-G])(\d)$/.exec(pitch);
  const tag = attributes === '' ? '<note>' : `<note ${attributes}>`;
  const duration = before === '<grace/>' ? '' : '<duration>1</duration>';
  const sound = `<pitch><step>${step}</step><octave>${octave}</octave></pitch>`;
  return `${tag}${before}${sound}${duration}<type>quarter</type></note>`;
}

export const hidden = 'print-leger="no"';

// The sample with print-leger="no" at each note that `isWanted` takes, by its order from 0 and its text.
export function withHidden(xml, isWanted) {
  let index = 0;
  return xml.replace(/<note>[\s\S]*?<\/note>/g, (text) =>
    isWanted(index++, text) ? text.replace('<note>', `<note ${hidden}>`) : text,
  );
}

export function isOnStaff(staff) {
  return (index, text) => text.includes(`<staff>${staff}</staff>`);
}
