import assert from 'node:assert/strict';
import { test } from 'node:test';

import { dashesOf, ownersOfLines, withLedgerLines } from '../source/dashes.js';

function dash(related, y) {
  const path = `<path d="M100 ${y} L300 ${y}" stroke-width="22"/>`;
  return `<g data-class="lineDash" class="lineDash" data-related="${related}">${path}</g>`;
}

const restLine = '<g data-class="ledgerLines" class="ledgerLines"><path d="M-50 900 L150 900" stroke-width="22"/></g>';
const glyph = '<use xlink:href="#E4E4" transform="translate(0, 900)"/>';
const rest = `<g data-id="r" data-class="rest" class="rest">${glyph}${restLine}</g>`;

function pageOf(above, cue) {
  const group = (classes, lines) => `<g data-class="ledgerLines" class="${classes}">${lines}</g>`;
  const groups = group('ledgerLines above', above) + group('ledgerLines above cue', cue);
  return `<svg><g data-class="staff"><path d="M0 0 L1 1"/>${groups}${rest}</g></svg>`;
}

const page = pageOf(dash('#a', 720) + dash('#a #b', 540), dash('#c', 720));

test('dashes have their notes, in the order of the page', () => {
  assert.deepEqual(dashesOf(page), [{ notes: ['a'] }, { notes: ['a', 'b'] }, { notes: ['c'] }]);
});

test('a ledger line of a rest belongs to the rest', () => {
  assert.deepEqual(ownersOfLines(page), [['a'], ['a', 'b'], ['c'], ['r']]);
});

test('a page whose lines are all wanted stays as it is', () => {
  assert.equal(
    withLedgerLines(page, () => ({ line: '', mark: null })),
    page,
  );
});

test('lines are left out, and others get classes', () => {
  const drawn = withLedgerLines(page, (notes) => ({ line: notes.includes('a') ? null : 'ghost', mark: null }));
  const expected = pageOf('', dash('#c', 720).replace(' class="lineDash"', ' class="lineDash ghost"')).replace(
    restLine,
    restLine.replace(' class="ledgerLines"', ' class="ledgerLines ghost"'),
  );
  assert.equal(drawn, expected);
});

test('marks are under all that is drawn in their place', () => {
  const drawn = withLedgerLines(page, (notes) => ({ line: notes[0] === 'r' ? null : '', mark: 'mark' }));
  const mark = (x, y) => `<g class="mark"><rect x="${x}" y="${y}" width="280" height="200"/></g>`;
  const expected = page
    .replace(
      '<g data-class="ledgerLines"',
      `${mark(60, 620)}${mark(60, 440)}${mark(60, 620)}<g data-class="ledgerLines"`,
    )
    .replace('<g data-id="r"', `${mark(-90, 800)}<g data-id="r"`)
    .replace(restLine, '');
  assert.equal(drawn, expected);
});

test('lines in a form that is not known are noticed', () => {
  const keep = () => ({ line: '', mark: null });
  const message = 'this release of Verovio draws ledger lines in another way than the one that is known';
  assert.throws(() => withLedgerLines(page.replace('M100 720 L300', 'M100 720 H300'), keep), { message });
  assert.throws(() => withLedgerLines(page.replace('<use xlink', '<text/><use xlink'), keep), { message });
});
