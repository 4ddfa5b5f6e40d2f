// Ledger lines in a page of Verovio's: the dashes at notes, each with the notes that it belongs to, and the lines of
// rests.

const line = '<path d="M(?<left>-?\\d+) (?<y>-?\\d+) L(?<right>-?\\d+) [^>]*/>';
const dash = new RegExp(`<g data-class="lineDash" class="lineDash" data-related="(?<related>[^"]*)">${line}</g>`, 'g');
const group =
  '<g data-class="ledgerLines" class="ledgerLines [^"]*">(?:<g data-class="lineDash"[^>]*><path [^>]*/></g>)*</g>';
const restLine = `<g data-class="ledgerLines" class="ledgerLines">${line}</g>`;
const rest = `<g data-id="(?<restId>[^"]*)" data-class="\\w*[rR]est"[^>]*>(?:<use [^>]*/>)*(?<restLine>${restLine})`;
const place = new RegExp(`(?<groups>(?:${group})+)|${rest}`, 'g');

// In the units of a page. Ledger lines are that far apart on a staff of the usual size.
const distance = 180;
// Marks cover a bit more than the line's share, so that those of a note make one.
const overhang = 40;
const overlap = 10;

// The dashes at notes, in the order of the page: the identifiers of the notes of each.
export function dashesOf(svg) {
  return Array.from(svg.matchAll(dash), ({ groups }) => ({ notes: notesIn(groups.related) }));
}

// What each ledger line belongs to, those of rests included: identifiers of notes, or that of a rest.
export function ownersOfLines(svg) {
  const owners = [];
  withLedgerLines(svg, (ids) => {
    owners.push(ids);
    return { line: '', mark: null };
  });
  return owners;
}

// The page with each ledger line as `styleOf` wants it, which gets the identifiers of its notes or of its rest, and
// returns `line`, further classes of the line, null to leave it out, and `mark`, the classes of a mark under it, null
// for none.
export function withLedgerLines(svg, styleOf) {
  let lines = 0;
  const countedStyleOf = (owners) => {
    lines += 1;
    return styleOf(owners);
  };
  const drawn = svg.replace(place, (found, ...matched) => {
    const parts = matched.at(-1);
    return parts.groups === undefined ? withRestLine(found, parts, countedStyleOf) : withDashes(found, countedStyleOf);
  });
  if (lines !== countOf(svg, 'data-class="lineDash"') + countOf(svg, 'class="ledgerLines"><path')) {
    throw new Error('this release of Verovio draws ledger lines in another way than the one that is known');
  }
  return drawn;
}

// Marks come before all that they must not cover: those of a run of groups before the first of its dashes, and that of
// a rest before the rest.
function withDashes(groups, styleOf) {
  const marks = [];
  const lines = groups.replace(dash, (found, ...matched) => {
    const parts = matched.at(-1);
    const style = styleOf(notesIn(parts.related));
    marks.push(markOf(style, parts));
    return lineOf(found, 'lineDash', style);
  });
  return marks.join('') + lines;
}

function withRestLine(found, parts, styleOf) {
  const style = styleOf([parts.restId]);
  return markOf(style, parts) + found.replace(parts.restLine, lineOf(parts.restLine, 'ledgerLines', style));
}

function lineOf(found, own, style) {
  if (style.line === null) return '';
  return style.line === '' ? found : found.replace(` class="${own}"`, ` class="${own} ${style.line}"`);
}

function markOf(style, { left, y, right }) {
  if (style.mark === null) return '';
  const width = right - left + 2 * overhang;
  const height = distance + 2 * overlap;
  const box = `x="${left - overhang}" y="${y - height / 2}" width="${width}" height="${height}"`;
  return `<g class="${style.mark}"><rect ${box}/></g>`;
}

function notesIn(related) {
  return related.split(' ').map((reference) => reference.slice(1));
}

function countOf(text, part) {
  return text.split(part).length - 1;
}
