// Scores by parts: Verovio reads no others.

import { parseXml } from './parsexml.js';

// The same score with the measures of each part together, in the order that the parts first come in.
export function partwise(timewise) {
  const parts = new Map();
  let head = '';
  let measureTag = '';
  let startOfBody = null;
  const stack = [];
  parseXml(timewise, {
    open(tag) {
      stack.push(tag);
      if (tag.depth !== 2 || tag.name !== 'measure') return;
      if (startOfBody === null) head = timewise.slice(stack[0].end, tag.start);
      startOfBody ??= tag.start;
      measureTag = openTag(timewise, tag);
    },
    close(tag) {
      stack.pop();
      if (tag.depth !== 3 || tag.name !== 'part' || stack[1].name !== 'measure') return;
      const id = tag.attributes.id ?? '';
      const isFirst = !parts.has(id);
      if (isFirst) parts.set(id, { tag: openTag(timewise, tag), measures: [] });
      parts.get(id).measures.push(measureTag, timewise.slice(tag.end, tag.close.start), '</measure>');
    },
  });
  const body = Array.from(parts.values(), (part) => [part.tag, ...part.measures, '</part>'].join(''));
  return `<score-partwise version="4.0">${head}${body.join('')}</score-partwise>`;
}

// The start tag, also of an element without an end tag.
function openTag(xml, tag) {
  return xml.slice(tag.start, tag.end).replace(/\s*\/>$/, '>');
}
