// The DOCTYPE declaration of a document, and the entities that it declares.

const beforeDoctype = /(?:\s+|<\?[\s\S]*?\?>|<!--[\s\S]*?-->)*/y;
const token = /<!--[\s\S]*?-->|<\?[\s\S]*?\?>|"[^"]*"|'[^']*'|[[\]>]|[^[\]>"'<]+|</y;
// A declaration of an entity is named; comments, instructions and other declarations are only passed over.
const declaration = new RegExp(
  [
    '<!--[\\s\\S]*?-->',
    '<\\?[\\s\\S]*?\\?>',
    `<!ENTITY\\s+([^\\s%"'<>]+)\\s+(?:"([^"]*)"|'([^']*)')\\s*>`,
    `<!(?:[^"'>]|"[^"]*"|'[^']*')*>`,
  ].join('|'),
  'g',
);
const characterReference = /&#(?:x([0-9a-fA-F]+)|([0-9]+));/g;
const maxCharacter = 0x10ffff;

// Null where there is none, or where it does not end: then the reader of XML reports that.
export function readDoctype(xml) {
  beforeDoctype.lastIndex = 0;
  beforeDoctype.exec(xml);
  const start = beforeDoctype.lastIndex;
  if (!xml.startsWith('<!DOCTYPE', start)) return null;
  const end = endOfDoctype(xml, start);
  if (end === null) return null;
  const text = xml.slice(start, end);
  const subset = /\[([\s\S]*)\]\s*>$/.exec(text)?.[1] ?? '';
  const namesDtd = /^<!DOCTYPE\s+\S+\s+(?:PUBLIC|SYSTEM)\s/.test(text);
  return { start, end, entities: entitiesOf(subset), namesDtd };
}

function endOfDoctype(xml, start) {
  let inSubset = false;
  for (token.lastIndex = start; token.lastIndex < xml.length;) {
    const found = token.exec(xml);
    if (found === null) return null;
    if (found[0] === '[') inSubset = true;
    if (found[0] === ']') inSubset = false;
    if (found[0] === '>' && !inSubset) return token.lastIndex;
  }
  return null;
}

// The first declaration of a name counts.
function entitiesOf(subset) {
  const entities = new Map();
  for (const [, name, quoted, apostrophed] of subset.matchAll(declaration)) {
    if (name === undefined || entities.has(name)) continue;
    entities.set(name, (quoted ?? apostrophed).replace(characterReference, characterOf));
  }
  return entities;
}

function characterOf(reference, hexadecimal, decimal) {
  const code = hexadecimal === undefined ? parseInt(decimal, 10) : parseInt(hexadecimal, 16);
  return code <= maxCharacter ? String.fromCodePoint(code) : reference;
}
