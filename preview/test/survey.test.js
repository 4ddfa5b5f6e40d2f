import assert from 'node:assert/strict';
import { test } from 'node:test';

import { stateOf, surveyOf } from '../source/survey.js';

function among(...ids) {
  return (id) => ids.includes(id);
}

test('a line is hidden when each of its notes is', () => {
  const shown = { isHidden: false, hasGone: false, hasCome: false };
  assert.deepEqual(stateOf(['a', 'b'], among(), null), shown);
  assert.deepEqual(stateOf(['a', 'b'], among('a'), null), shown);
  assert.deepEqual(stateOf(['a', 'b'], among('a', 'b'), null), { ...shown, isHidden: true });
});

test('a line differs when it is hidden in one version alone', () => {
  assert.deepEqual(stateOf(['a'], among('a'), among()), { isHidden: true, hasGone: true, hasCome: false });
  assert.deepEqual(stateOf(['a'], among(), among('a')), { isHidden: false, hasGone: false, hasCome: true });
  assert.deepEqual(stateOf(['a'], among('a'), among('a')), { isHidden: true, hasGone: false, hasCome: false });
  assert.deepEqual(stateOf(['a', 'b'], among('a', 'b'), among('a')), { isHidden: true, hasGone: true, hasCome: false });
});

function pageWith(...owners) {
  const dashes = owners.map(
    (ids) =>
      `<g data-class="lineDash" class="lineDash" data-related="${ids}"><path d="M0 0 L9 0" stroke-width="22"/></g>`,
  );
  return `<svg><g data-class="ledgerLines" class="ledgerLines above">${dashes.join('')}</g></svg>`;
}

test('places are in the order of reading, each with its lines', () => {
  const places = { a: [2, 1], b: [2, 1], c: [1, 1], d: [1, 2], e: [2, 10] };
  const notes = Object.entries(places).map(([id, [staff, measure]]) => ({ id, staff, measure }));
  const pages = [pageWith('#a', '#a #b', '#c', '#d'), pageWith('#e', '#e')];
  assert.deepEqual(surveyOf(pages, notes, among('a', 'b', 'e'), among('d', 'e')), {
    lines: 6,
    hidden: 4,
    gone: 2,
    come: 1,
    places: [
      { staff: 2, measure: 1, lines: 2, hidden: 2, gone: 2, come: 0 },
      { staff: 1, measure: 2, lines: 1, hidden: 0, gone: 0, come: 1 },
      { staff: 2, measure: 10, lines: 2, hidden: 2, gone: 0, come: 0 },
    ],
  });
});
