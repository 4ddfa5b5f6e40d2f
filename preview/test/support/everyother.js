// Hides the ledger lines of every other note of a score, also within chords, which brvhost does not do.
import { readNotes } from '../../source/notes.js';

export function withEveryOtherHidden(xml) {
  const pieces = [];
  let copied = 0;
  for (const [index, { start, end }] of readNotes(xml).entries()) {
    if (index % 2 === 0 || xml.slice(start, end).includes('print-leger')) continue;
    const place = start + '<note'.length;
    pieces.push(xml.slice(copied, place), ' print-leger="no"');
    copied = place;
  }
  return pieces.join('') + xml.slice(copied);
}
