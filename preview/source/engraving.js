// Pages of a score, and what becomes of their ledger lines.

import { withLedgerLines } from './dashes.js';
import { InputError } from './errors.js';
import { textWithIds, withIds } from './notes.js';
import { numbersIn, rangeIn } from './numberrange.js';
import { partwise } from './partwise.js';
import { selectPassage } from './passage.js';
import { readStructure } from './structure.js';
import { load, withVerovio } from './verovio.js';

export { dashesOf } from './dashes.js';

// The classes of a hidden line.
const hiddenLines = new Map([
  ['omit', null],
  ['ghost', 'ghost'],
  ['keep', ''],
]);

// The pages of a score as SVG. `hidden` is what becomes of hidden ledger lines: 'omit' leaves them out, 'ghost' gives
// them the class "ghost", and 'keep' draws them like the others. `measures` and `staves` are ranges `{ first, last }`
// in their order, from 1; without an end (null) they go on to the last.
export async function engrave(xml, { hidden = 'omit', measures = null, staves = null } = {}) {
  const { structure, pages } = await engraveAll(xml, { measures, staves });
  const isHidden = hiddenIn(structure.notes);
  const styleOf = (notes) => ({ line: notes.every(isHidden) ? hiddenLines.get(hidden) : '', mark: null });
  return pages.map((page) => withLedgerLines(page, styleOf));
}

// The pages with all ledger lines, with the structure, whose notes have the identifiers that the pages name, and what
// is shown: the range of `measures`, the numbers of the `staves`, and those of them that were not asked for, as
// `otherStaves`.
export async function engraveAll(xml, { measures, staves }) {
  const structure = withIds(readStructure(xml));
  if (structure.measures.length === 0) throw new InputError('the score has no measures');
  const measureRange = rangeIn(structure.measures.length, measures, 'measure');
  const staffRange = rangeIn(structure.staves, staves, 'staff');
  const isPassage = measures !== null || staves !== null;
  return withVerovio((toolkit) => {
    if (isPassage) toolkit.setOptions({ header: 'none', adjustPageWidth: true });
    load(toolkit, musicXmlFor(structure));
    const wanted = numbersIn(staffRange);
    const shown = isPassage ? selectPassage(toolkit, structure.measures, measureRange, wanted) : wanted;
    const otherStaves = shown.filter((staff) => !wanted.includes(staff));
    return { structure, pages: pagesOf(toolkit), shown: { measures: measureRange, staves: shown, otherStaves } };
  });
}

// Whether the note with an identifier has no ledger lines.
export function hiddenIn(notes) {
  const hidden = new Set(notes.filter((note) => note.hidden).map((note) => note.id));
  return (id) => hidden.has(id);
}

function musicXmlFor(structure) {
  const text = textWithIds(structure);
  return structure.timewise ? partwise(text) : text;
}

function pagesOf(toolkit) {
  const pages = Array.from({ length: toolkit.getPageCount() }, (_, index) => toolkit.renderToSVG(index + 1));
  if (pages.length === 0) throw new InputError('Verovio makes no page of this score');
  return pages;
}
