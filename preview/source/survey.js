// What becomes of the ledger lines of an engraving, and where.

import { ownersOfLines } from './dashes.js';

// What becomes of the line that belongs to these notes: it is hidden when each of them is. `isHidden` and `wasHidden`
// tell of an identifier whether its note has no ledger lines, now and in an earlier version; without one, the latter
// is null.
export function stateOf(ids, isHidden, wasHidden) {
  const now = ids.every(isHidden);
  const before = wasHidden === null ? now : ids.every(wasHidden);
  return { isHidden: now, hasGone: now && !before, hasCome: before && !now };
}

// `lines` counts those of all pages, `hidden` those that are hidden now, `gone` and `come` those that differ. `places`
// are the staves in measures where any line is hidden or differs, in the order of reading, with the same counts for
// each.
export function surveyOf(pages, notes, isHidden, wasHidden) {
  const byId = new Map(notes.map((note) => [note.id, note]));
  const total = { lines: 0, hidden: 0, gone: 0, come: 0 };
  const places = new Map();
  for (const ids of pages.flatMap(ownersOfLines)) {
    const state = stateOf(ids, isHidden, wasHidden);
    count(state, total);
    if (state.isHidden || state.hasCome) count(state, placeOf(byId.get(ids[0]), places));
  }
  return { ...total, places: Array.from(places.values()).sort(inReadingOrder) };
}

function count({ isHidden, hasGone, hasCome }, counts) {
  counts.lines += 1;
  counts.hidden += Number(isHidden);
  counts.gone += Number(hasGone);
  counts.come += Number(hasCome);
}

function placeOf({ staff, measure }, places) {
  const key = `${measure} ${staff}`;
  if (!places.has(key)) places.set(key, { staff, measure, lines: 0, hidden: 0, gone: 0, come: 0 });
  return places.get(key);
}

function inReadingOrder(one, other) {
  return one.measure - other.measure || one.staff - other.staff;
}
