// Ledger lines in a page of Verovio's: the dashes at notes, each with the notes that it belongs to, and the lines of rests.

const line = '<path d="M(?<left>-?\\d+) (?<y>-?\\d+) L(?<right>-?\\d+) [^>]*/>';
const dash = new RegExp(`<g data-class="lineDash" class="lineDash" data-related="(?<related>[^"]*)">${line}</g>`, 'g');
const group = '<g data-class="ledgerLines" class="ledgerLines [^"]*">(?:<g data-class="lineDash"[^>]*><path [^>]*/></g>)*</g>';
const restLine = `<g data-class="ledgerLines" class="ledgerLines">${line}</g>`;
const restStart = '<g data-id="(?<restId>[^"]*)" data-class="\\w*[rR]est"[^>]*>';
const place = new RegExp(`(?<groups>(?:${group})+)|${restStart}|(?<restLine>${restLine})`, 'g');

// In the units of a page. Ledger lines are that far apart on a staff of the usual size.
const distance = 180;
const overhang = 40;

// The dashes at notes, in the order of the page: the identifiers of the notes of each.
export function dashesOf(svg) {
  return Array.from(svg.matchAll(dash), ({ groups }) => ({ notes: notesIn(groups.related) }));
}

// The page with each ledger line as `styleOf` wants it, which gets the identifiers of its notes or of its rest. Null leaves
// it out, but for the mark: `{ line, mark }` are further classes of the line, null to leave it out, and the classes of a
// mark behind it, null for none.
export function withLedgerLines(svg, styleOf) {
  let handled = 0;
  let restId = null;
  const drawn = svg.replace(place, (found, ...matched) => {
    const parts = matched.at(-1);
    if (parts.groups !== undefined) {
      handled += countOf(found, 'data-class="lineDash"');
      return withDashes(found, styleOf);
    }
    if (parts.restLine !== undefined) return withRestLine(found, parts, styleOf([restId]));
    restId = parts.restId;
    return found;
  });
  if (handled !== countOf(svg, 'data-class="lineDash"')) {
    throw new Error('this release of Verovio draws ledger lines in another way than the one that is known');
  }
  return drawn;
}

// The marks of a run of groups come first, so that none covers a dash.
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

function withRestLine(found, parts, style) {
  return markOf(style, parts) + lineOf(found, 'ledgerLines', style);
}

function lineOf(found, own, style) {
  if (style.line === null) return '';
  return style.line === '' ? found : found.replace(`class="${own}"`, `class="${own} ${style.line}"`);
}

// As high as the distance of ledger lines, so that the marks of a note make one.
function markOf(style, { left, y, right }) {
  if (style.mark === null) return '';
  const width = right - left + 2 * overhang;
  const box = `x="${left - overhang}" y="${y - distance / 2}" width="${width}" height="${distance}"`;
  return `<g class="${style.mark}"><rect ${box}/></g>`;
}

function notesIn(related) {
  return related.split(' ').map((reference) => reference.slice(1));
}

function countOf(text, part) {
  return text.split(part).length - 1;
}
