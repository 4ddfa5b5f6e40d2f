// Documents without entities of their own: Verovio does not read the declarations of a DOCTYPE.

import { readDoctype } from './doctype.js';
import { InputError } from './errors.js';
import { excerpt } from './printable.js';

const predefined = new Set(['lt', 'gt', 'amp', 'apos', 'quot']);
const ownReference = /&(?!#|(?:lt|gt|amp|apos|quot);)/;
// What does not end goes on to the end of the document, so that this is looked for once.
const piece = new RegExp(
  [
    '<!--[\\s\\S]*?(?:-->|$)',
    '<!\\[CDATA\\[[\\s\\S]*?(?:\\]\\]>|$)',
    '<\\?[\\s\\S]*?(?:\\?>|$)',
    `<[^!?/](?:[^"'<>]|"[^"<]*"|'[^'<]*')*>`,
    '&(?<name>[^#;&\\s<]+);',
  ].join('|'),
  'g',
);
const reference = /&([^#;&\s<]+);/g;

// A few declarations can stand for gigabytes.
const maxExpansion = 8 * 1024 * 1024;
const maxNesting = 100;

// The document with each reference to an entity that it declares replaced by the entity's text. One that refers to none
// is returned as it is; otherwise lines keep their numbers where the texts have no line breaks.
export function expandEntities(xml) {
  if (!ownReference.test(xml)) return xml;
  const doctype = readDoctype(xml);
  if (doctype === null) return xml;
  const lineBreaks = xml.slice(doctype.start, doctype.end).replace(/[^\n]+/g, '');
  return xml.slice(0, doctype.start) + lineBreaks + new Expansion(doctype).expand(xml.slice(doctype.end));
}

class Expansion {
  #entities;
  #namesDtd;
  #open = new Set();
  #size = 0;

  constructor({ entities, namesDtd }) {
    this.#entities = entities;
    this.#namesDtd = namesDtd;
  }

  expand(text) {
    return text.replace(piece, (found, name) => {
      if (name !== undefined) return this.#textOf(found, name);
      return found.startsWith('<!') || found.startsWith('<?') ? found : this.#expandTag(found);
    });
  }

  #expandTag(tag) {
    return tag.replace(reference, (found, name) =>
      this.#textOf(found, name).replace(/"/g, '&quot;').replace(/'/g, '&apos;'),
    );
  }

  // What is declared in a DTD outside the document is not known, and stands for nothing. Other references that are not
  // declared stay, for the reader of XML to report.
  #textOf(found, name) {
    if (predefined.has(name)) return found;
    const text = this.#entities.get(name);
    if (text === undefined) return this.#namesDtd ? '' : found;
    if (this.#open.has(name)) throw new InputError(`the entity "${excerpt(name)}" refers to itself`);
    if (this.#open.size === maxNesting) throw new InputError(`entities refer to others more than ${maxNesting} deep`);
    this.#size += text.length;
    if (this.#size > maxExpansion) {
      throw new InputError(`the entities stand for more than ${maxExpansion} characters`);
    }
    this.#open.add(name);
    const expanded = this.expand(text);
    this.#open.delete(name);
    return expanded;
  }
}
