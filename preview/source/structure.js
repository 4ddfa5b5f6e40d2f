// A score as its parts, staves, measures and notes.

import { expandEntities } from './entities.js';
import { InputError } from './errors.js';
import { parseXml } from './parsexml.js';
import { excerpt } from './printable.js';

// The depth of elements in the document.
const depth = { root: 1, outer: 2, inner: 3, measureChild: 4, measureLeaf: 5 };
const maxStaves = 32767;
const maxMeasures = 32767;

// `parts` have `name`, `firstStaff` and `staves`; staves count from 1 through all parts. `measures` have the printed
// `number`, the `id` if they have one, and the place of the start tag in the first part. `notes` have the `id` that
// they have in the score, the place of the start tag, `hidden`, and the indices or numbers of `part`, `staff` and
// `measure`. All places are in `xml`, which is the given one unless that declares entities. `ids` has how often each
// is there.
export function readStructure(given) {
  const xml = expandEntities(given);
  const reader = new Reader();
  parseXml(xml, {
    open: (tag) => reader.open(tag),
    close: (tag) => reader.close(tag),
    text: (text) => reader.text(text),
  });
  return { xml, ...reader.finish() };
}

class Reader {
  #timewise = false;
  #titles = {};
  #names = new Map();
  #listedPart = null;
  #parts = [];
  #partsById = new Map();
  #part = null;
  #measures = [];
  #outerMeasure = null;
  #measure = 0;
  #inMeasure = false;
  #child = null;
  #note = null;
  #notes = [];
  #ids = new Map();
  #path = [];
  #text = '';

  open(tag) {
    this.#path.push(tag.name);
    this.#text = '';
    const { id } = tag.attributes;
    if (id !== undefined) this.#ids.set(id, (this.#ids.get(id) ?? 0) + 1);
    if (tag.depth === depth.root) this.#openRoot(tag);
    if (tag.depth === depth.outer) this.#openOuter(tag);
    if (tag.depth === depth.inner) this.#openInner(tag);
    if (tag.depth === depth.measureChild && this.#inMeasure) this.#openMeasureChild(tag);
    if (tag.depth === depth.measureLeaf && this.#note !== null && tag.name === 'rest') this.#note.isRest = true;
  }

  close(tag) {
    if (tag.depth === depth.measureLeaf && this.#inMeasure) this.#closeMeasureLeaf(tag);
    if (tag.depth === depth.measureChild) this.#note = null;
    if (tag.depth === depth.inner) this.#inMeasure = false;
    this.#readTexts();
    this.#path.pop();
    this.#text = '';
  }

  text(text) {
    this.#text += text;
  }

  #openRoot(tag) {
    this.#timewise = tag.name === 'score-timewise';
    if (this.#timewise || tag.name === 'score-partwise') return;
    throw new InputError(`not MusicXML: the root element is <${excerpt(tag.name)}>`, placeOf(tag));
  }

  #openOuter(tag) {
    if (!this.#timewise && tag.name === 'part') this.#part = this.#newPart(tag);
    if (this.#timewise && tag.name === 'measure') this.#outerMeasure = tag;
  }

  #openInner(tag) {
    if (this.#path[1] === 'part-list' && tag.name === 'score-part') this.#listedPart = tag.attributes.id ?? '';
    const inBody = this.#path[1] === (this.#timewise ? 'measure' : 'part');
    if (!inBody || tag.name !== (this.#timewise ? 'part' : 'measure')) return;
    if (this.#timewise) this.#part = this.#partsById.get(tag.attributes.id ?? '') ?? this.#newPart(tag);
    this.#inMeasure = true;
    this.#measure = ++this.#part.measures;
    if (this.#measure > maxMeasures) throw new InputError(`more than ${maxMeasures} measures`, placeOf(tag));
    if (this.#part === this.#parts[0]) this.#measures.push(measureFrom(this.#timewise ? this.#outerMeasure : tag));
  }

  #openMeasureChild(tag) {
    this.#child = tag.name;
    if (tag.name !== 'note') return;
    this.#note = {
      id: tag.attributes.id ?? null,
      start: tag.start,
      end: tag.end,
      line: tag.line,
      hidden: tag.attributes['print-leger'] === 'no',
      isRest: false,
      part: this.#part.index,
      staff: 1,
      measure: this.#measure,
    };
    this.#notes.push(this.#note);
  }

  #closeMeasureLeaf(tag) {
    if (this.#child === 'note' && tag.name === 'staff') {
      this.#note.staff = this.#staffNumber(tag);
      this.#part.staves = Math.max(this.#part.staves, this.#note.staff);
    }
    if (this.#child === 'attributes' && tag.name === 'staves') {
      this.#part.staves = Math.max(this.#part.staves, this.#staffNumber(tag));
    }
  }

  #staffNumber(tag) {
    const number = /^\s*(\d+)\s*$/.exec(this.#text)?.[1];
    if (number === undefined) throw new InputError(`a staff is "${excerpt(this.#text.trim())}"`, placeOf(tag));
    if (Number(number) > maxStaves) throw new InputError(`more than ${maxStaves} staves`, placeOf(tag));
    return Math.max(Number(number), 1);
  }

  #readTexts() {
    const path = this.#path.slice(1).join('/');
    if (path === 'work/work-title' || path === 'movement-title') this.#titles[path] ??= withSingleBlanks(this.#text);
    if (path === 'part-list/score-part/part-name') this.#names.set(this.#listedPart, withSingleBlanks(this.#text));
  }

  #newPart(tag) {
    const id = tag.attributes.id ?? '';
    const part = { id, index: this.#parts.length, staves: 1, measures: 0 };
    this.#parts.push(part);
    if (!this.#partsById.has(id)) this.#partsById.set(id, part);
    return part;
  }

  finish() {
    const parts = [];
    let staves = 0;
    for (const part of this.#parts) {
      parts.push({ id: part.id, name: this.#names.get(part.id) ?? '', firstStaff: staves + 1, staves: part.staves });
      staves += part.staves;
    }
    for (const note of this.#notes) note.staff += parts[note.part].firstStaff - 1;
    const title = this.#titles['work/work-title'] || this.#titles['movement-title'] || '';
    return {
      title,
      timewise: this.#timewise,
      parts,
      staves,
      measures: this.#measures,
      notes: this.#notes,
      ids: this.#ids,
    };
  }
}

function measureFrom(tag) {
  const { id = null, number = '', implicit } = tag.attributes;
  return { id, number: implicit === 'yes' ? '' : number.trim(), start: tag.start, end: tag.end };
}

function placeOf(tag) {
  return { line: tag.line, column: tag.column };
}

function withSingleBlanks(text) {
  return text.trim().replace(/\s+/g, ' ');
}
