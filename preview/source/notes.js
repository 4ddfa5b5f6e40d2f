// The notes of a score, and identifiers for them that the engraving can name them by.

import { readStructure } from './structure.js';

// Verovio writes identifiers into lists with blanks between them, and into attributes: others are replaced.
const plain = /^[A-Za-z_][\w.-]*$/;

// Each `<note>` element in document order, with `id`, its own or a made one; `start` and `end`, the place of its start
// tag; `line`; `hidden`, whether it has no ledger lines; `isRest`; `part`, an index; `staff`, from 1 through all
// parts; and `measure`, from 1 in their order. No two notes have the same identifier.
export function readNotes(xml) {
  return withIds(readStructure(xml)).notes;
}

// The text with these identifiers put in, in the notes and in the measures of the first part. It is for the engraving:
// a file is never changed so.
export function putIdsIn(xml) {
  return textWithIds(withIds(readStructure(xml)));
}

// The structure with identifiers for all of its notes and measures.
export function withIds(structure) {
  const { ids } = structure;
  const identified = (list, stem) =>
    list.map((element, index) => ({ ...element, id: idOf(element, ids) ?? madeId(`${stem}${index + 1}`, ids) }));
  return {
    ...structure,
    notes: identified(structure.notes, 'note-'),
    measures: identified(structure.measures, 'measure-'),
  };
}

function idOf({ id }, ids) {
  return id !== null && plain.test(id) && ids.get(id) === 1 ? id : null;
}

function madeId(name, ids) {
  let id = name;
  while (ids.has(id)) id += '_';
  return id;
}

export function textWithIds({ xml, notes, measures }) {
  const tags = [...notes, ...measures].sort((one, other) => one.start - other.start);
  const pieces = [];
  let copied = 0;
  for (const { start, end, id } of tags) {
    pieces.push(xml.slice(copied, start), tagWithId(xml.slice(start, end), id));
    copied = end;
  }
  pieces.push(xml.slice(copied));
  return pieces.join('');
}

function tagWithId(tag, id) {
  const withoutId = tag.replace(/\s+([^\s=]+)\s*=\s*("[^"]*"|'[^']*')/g, (attribute, name) =>
    name === 'id' ? '' : attribute,
  );
  return withoutId.replace(/^<[^\s/>]+/, `$& id="${id}"`);
}
