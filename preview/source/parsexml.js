// A strict reader of XML that reports where each start tag is.

import { SaxesParser } from 'saxes';

import { InputError } from './errors.js';

// Far more than scores have.
const maxDepth = 256;

// What the parser has to say of a document that ends before its root element does.
const endings = /^(unclosed tag|unexpected end|document must contain a root element)/;

// Calls `open(tag)`, `close(tag)` and `text(text)` as far as the handlers have them, in document order. A tag has
// `name`, `attributes`, `start` and `end` (of its start tag, as indices of the text), `line` and `column` of the
// start, from 1, `depth`, 1 for the root element, and once it is closed, `close`: `start`, `end`, `line` and `column`
// of its end tag.
export function parseXml(xml, handlers) {
  const parser = new SaxesParser();
  const placeNow = () => ({ line: parser.line, column: Math.max(parser.column, 1) });
  parser.on('error', (error) => {
    throw new InputError(reasonOf(error), placeNow());
  });
  const open = [];
  parser.on('opentagstart', (tag) => {
    Object.assign(tag, placeOfTag(parser, xml));
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
    tag.close = endTagOf(tag, parser, xml);
    handlers.close?.(tag);
  });
  if (handlers.text !== undefined) {
    parser.on('text', handlers.text);
    parser.on('cdata', handlers.text);
  }
  parser.write(xml).close();
}

// The parser has read a tag's name, or all of an end tag, and not gone on to another line since.
function placeOfTag(parser, xml) {
  const start = xml.lastIndexOf('<', parser.position - 1);
  return { start, line: parser.line, column: parser.column - (parser.position - start) + 1 };
}

function endTagOf(tag, parser, xml) {
  if (tag.isSelfClosing) return { start: tag.end, end: tag.end, line: tag.line, column: tag.column };
  return { ...placeOfTag(parser, xml), end: parser.position };
}

function reasonOf(error) {
  const reason = error.message.replace(/^\d+:\d+: /, '').replace(/\.$/, '');
  return endings.test(reason) ? 'the XML ends too early' : `not well-formed XML: ${reason}`;
}
