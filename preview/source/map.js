// A map of the score: staves by measures, where ledger lines are hidden, or differ from before.

import { escaped } from './escape.js';
import { changesOf, counted } from './summary.js';
import { anchorOf } from './anchors.js';

// More columns than that are too narrow to be seen.
const maxColumns = 240;

// `shown` has what is engraved: the numbers of the `staves`, and `measures`, a range `{ first, last }`.
export function mapOf(places, names, shown, hasBefore) {
  const columns = columnsOf(shown.measures);
  const rows = shown.staves.map((staff) => {
    const ofStaff = places.filter((place) => place.staff === staff);
    return rowOf(
      names.staves[staff - 1],
      columns.map((column) => cellOf(column, ofStaff, names, hasBefore)),
    );
  });
  const { first, last } = shown.measures;
  return [
    `<table style="--columns: ${columns.length}">`,
    '<caption class="unseen">Staves by measures</caption>',
    '<tbody>',
    ...rows,
    '</tbody>',
    `<tfoot><tr><td></td><td><span>${first}</span><span>${last === first ? '' : last}</span></td></tr></tfoot>`,
    '</table>',
  ].join('\n');
}

// Of one measure each, or of several in a long score.
function columnsOf({ first, last }) {
  const width = Math.ceil((last - first + 1) / maxColumns);
  const columns = [];
  for (let start = first; start <= last; start += width) {
    columns.push({ first: start, last: Math.min(start + width - 1, last) });
  }
  return columns;
}

function rowOf(name, cells) {
  const drawn = cells.map((cell, index) => (cell === null ? '' : cell(index))).join('');
  const used = counted(cells.filter((cell) => cell !== null).length, 'place');
  const size = `viewBox="0 0 ${cells.length} 1" preserveAspectRatio="none"`;
  const svg = `<svg ${size} role="img" aria-label="${used}">${drawn}</svg>`;
  return `<tr><th scope="row">${escaped(name)}</th><td>${svg}</td></tr>`;
}

// The list of places has the same links for the keyboard.
function cellOf({ first, last }, places, names, hasBefore) {
  const within = places.filter(({ measure }) => measure >= first && measure <= last);
  if (within.length === 0) return null;
  const differing = within.find(({ gone, come }) => gone + come > 0);
  const anchor = anchorOf(differing ?? within[0]);
  const kind = differing === undefined ? 'hidden' : 'differs';
  const title = `${placeName(within[0], names)}${within.length > 1 ? ' and on' : ''}: ${described(within, hasBefore)}`;
  const link = `<a href="#${anchor}" tabindex="-1" class="${kind}">`;
  return (column) => `${link}<title>${escaped(title)}</title><rect x="${column}" width="1" height="1"/></a>`;
}

export function placeName({ staff, measure }, names) {
  return `${names.staves[staff - 1]}, ${names.measures[measure - 1]}`;
}

// "6 ledger lines hidden".
export function described(places, hasBefore) {
  const sum = (key) => places.reduce((total, place) => total + place[key], 0);
  const [gone, come] = [sum('gone'), sum('come')];
  if (hasBefore && gone + come > 0) return changesOf({ gone, come });
  return `${counted(sum('hidden'), 'ledger line')} hidden${hasBefore ? ', as before' : ''}`;
}
