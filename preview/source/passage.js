// A passage of the score that Verovio has: some of its measures and staves.

import { withCrossedStaves, withStaves } from './meistaves.js';
import { parseXml } from './parsexml.js';
import { load } from './verovio.js';

// Selects what the pages are made of. `measures` are those of the score, with identifiers, and `range` which of them to
// show. Returns the numbers of the staves that are shown: those that share a voice with the wanted ones are, too.
export function selectPassage(toolkit, measures, range, wantedStaves) {
  const mei = toolkit.getMEI({ scoreBased: true });
  const ids = engravedIn(mei, measures, range);
  const staves = withCrossedStaves(mei, wantedStaves, new Set(ids));
  load(toolkit, withStaves(mei, staves));
  toolkit.select({ start: ids[0], end: ids.at(-1) });
  toolkit.redoLayout();
  return Array.from(staves).sort((one, other) => one - other);
}

// The identifiers of the measures that are engraved for those in the range: several measures of rest are one.
function engravedIn(mei, measures, { first, last }) {
  const order = new Map(measures.map(({ id }, index) => [id, index + 1]));
  const engraved = [];
  parseXml(mei, {
    open({ name, attributes }) {
      if (name === 'measure' && order.has(attributes['xml:id'])) engraved.push(attributes['xml:id']);
    },
  });
  const start = engraved.findLastIndex((id) => order.get(id) <= first);
  const end = engraved.findLastIndex((id) => order.get(id) <= last);
  return engraved.slice(start, end + 1);
}
