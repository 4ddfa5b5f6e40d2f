// Two versions of a score that are equal in everything but print-leger.

import { InputError, inFile } from './errors.js';
import { expandEntities } from './entities.js';
import { parseXml } from './parsexml.js';
import { excerpt } from './printable.js';
import { readStructure } from './structure.js';

// Whether each note of `before` has no ledger lines, in the order of the notes, which are those of `after`. Both are
// `{ path, xml }`. Throws where they differ in anything else: where this is first, and what is there.
export async function hiddenNotesBefore(before, after) {
  const ofBefore = await inFile(before.path, () => tokensOf(before.xml));
  const ofAfter = await inFile(after.path, () => tokensOf(after.xml));
  const first = ofBefore.findIndex((token, index) => token.text !== ofAfter[index]?.text);
  if (first >= 0) throw differenceBetween(before, ofBefore[first], after, ofAfter[first]);
  return readStructure(before.xml).notes.map((note) => note.hidden);
}

function differenceBetween(before, ofBefore, after, ofAfter) {
  const what = `${shown(ofBefore)} here, ${shown(ofAfter)} in line ${ofAfter.place.line} there`;
  const reason = `differs from ${after.path} in more than print-leger: ${what}`;
  return new InputError(reason, ofBefore.place, before.path);
}

function shown({ text }) {
  return excerpt(text.startsWith('<') ? text : `"${text.trim()}"`);
}

// Tags and texts as they count: the order of attributes, blanks between elements and comments do not.
function tokensOf(xml) {
  const tokens = [];
  let text = '';
  const add = (token, { line, column }) => {
    if (text.trim() !== '') tokens.push({ text, place: { line, column } });
    text = '';
    tokens.push({ text: token, place: { line, column } });
  };
  parseXml(expandEntities(xml), {
    open: (tag) => add(`<${[tag.name, ...attributesOf(tag)].join(' ')}>`, tag),
    close: (tag) => add(`</${tag.name}>`, tag.close),
    text: (piece) => (text += piece),
  });
  return tokens;
}

function attributesOf({ name, attributes }) {
  const names = Object.keys(attributes).filter((attribute) => name !== 'note' || attribute !== 'print-leger');
  return names.sort().map((attribute) => `${attribute}="${attributes[attribute]}"`);
}
