// A strict reader of XML that reports where each start tag is.

import { SaxesParser } from 'saxes';

import { InputError } from './errors.js';

// Far more than scores have.
const maxDepth = 256;

// Calls `open(tag)`, `close(tag)` and `text(text)` as far as the handlers have them, in document order. A tag has `name`,
// `attributes`, `start` and `end` (of its start tag, as indices of the text), `line` and `column` of the start, from 1,
// and `depth`, 1 for the root element.
export function parseXml(xml, handlers) {
  const parser = new SaxesParser();
  const placeNow = () => ({ line: parser.line, column: Math.max(parser.column, 1) });
  parser.on('error', (error) => {
    throw new InputError(reasonOf(error, parser.position, xml), placeNow());
  });
  const open = [];
  parser.on('opentagstart', (tag) => {
    tag.start = xml.lastIndexOf('<', parser.position - 1);
    // The tag may go on in another line: this is still the one that its name is in.
    tag.line = parser.line;
    tag.column = parser.column - (parser.position - tag.start) + 1;
  });
  parser.on('opentag', (tag) => {
    tag.end = parser.position;
    tag.depth = open.push(tag);
    if (tag.depth > maxDepth) {
      throw new InputError(`elements are nested more than ${maxDepth} deep`, { line: tag.line, column: tag.column });
    }
    handlers.open?.(tag);
  });
  parser.on('closetag', (tag) => {
    open.pop();
    tag.closeEnd = parser.position;
    handlers.close?.(tag);
  });
  if (handlers.text !== undefined) {
    parser.on('text', handlers.text);
    parser.on('cdata', handlers.text);
  }
  parser.write(xml).close();
}

function reasonOf(error, position, xml) {
  if (position >= xml.length) return 'the XML ends too early';
  const reason = error.message.replace(/^\d+:\d+: /, '').replace(/\.$/, '');
  return `not well-formed XML: ${reason}`;
}
