// Some of the staves of a score, in the form that Verovio keeps it in (MEI).

import { parseXml } from './parsexml.js';

// They are written above one staff, and hold for all.
const ofAllStaves = new Set(['tempo', 'reh', 'repeatMark']);

// These staves as a set, with those that a voice crosses to or from them in the measures with these identifiers.
export function withCrossedStaves(mei, staves, measureIds) {
  const neighbours = crossingsIn(mei, measureIds);
  const all = new Set(staves);
  for (const staff of all) neighbours.get(staff)?.forEach((neighbour) => all.add(neighbour));
  return all;
}

// For each staff those that its voices cross to, or are crossed from.
function crossingsIn(mei, measureIds) {
  const neighbours = new Map();
  const add = (from, to) => neighbours.set(from, (neighbours.get(from) ?? new Set()).add(to));
  let isInPassage = false;
  let home = null;
  parseXml(mei, {
    open({ name, attributes }) {
      if (name === 'measure') isInPassage = measureIds.has(attributes['xml:id']);
      if (name === 'staff' && isInPassage) home = Number(attributes.n);
      const staff = Number(attributes.staff);
      if (home === null || attributes.staff === undefined || staff === home) return;
      add(home, staff);
      add(staff, home);
    },
    close({ name }) {
      if (name === 'staff') home = null;
    },
  });
  return neighbours;
}

// The MEI without the other staves, what belongs to them, and groups that have none left.
export function withStaves(mei, shown) {
  const edits = [];
  const groups = [];
  parseXml(mei, {
    open(tag) {
      if (tag.name === 'staffGrp') groups.push({ hasStaves: false });
      if (tag.name === 'staffDef' && shown.has(Number(tag.attributes.n)))
        groups.forEach((group) => (group.hasStaves = true));
      if (isOfOthers(tag, shown) && ofAllStaves.has(tag.name)) edits.push(movedToFirst(mei, tag, shown));
    },
    close(tag) {
      const isEmptyGroup = tag.name === 'staffGrp' && !groups.pop().hasStaves;
      if (isEmptyGroup || (isOfOthers(tag, shown) && !ofAllStaves.has(tag.name))) {
        edits.push({ start: tag.start, end: tag.close.end, text: '' });
      }
    },
  });
  return edited(mei, edits);
}

function isOfOthers({ name, attributes }, shown) {
  if (name === 'staff' || name === 'staffDef') return !shown.has(Number(attributes.n));
  if (attributes.staff === undefined) return false;
  return attributes.staff.split(' ').every((staff) => !shown.has(Number(staff)));
}

function movedToFirst(mei, { start, end }, shown) {
  const text = mei.slice(start, end).replace(/(\sstaff=)"[^"]*"/, `$1"${Math.min(...shown)}"`);
  return { start, end, text };
}

// What is within another edit goes with it.
function edited(text, edits) {
  edits.sort((one, other) => one.start - other.start || other.end - one.end);
  const pieces = [];
  let copied = 0;
  for (const edit of edits) {
    if (edit.start < copied) continue;
    pieces.push(text.slice(copied, edit.start), edit.text);
    copied = edit.end;
  }
  pieces.push(text.slice(copied));
  return pieces.join('');
}
