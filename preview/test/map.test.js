import assert from 'node:assert/strict';
import { test } from 'node:test';

import { mapOf } from '../source/map.js';

const names = {
  staves: ['Flute', 'Oboe <1>'],
  measures: Array.from({ length: 600 }, (_, index) => `measure ${index + 1}`),
};

function place(staff, measure, counts) {
  return { staff, measure, lines: 9, hidden: 0, gone: 0, come: 0, ...counts };
}

// The links of each row: where, what kind, and in which words.
function linksIn(map) {
  return Array.from(map.matchAll(/<th scope="row">([^<]*)<\/th><td>(.*)<\/td>/g), ([, name, svg]) => [
    name,
    Array.from(
      svg.matchAll(/<a href="#([^"]*)" tabindex="-1" class="([^"]*)"><title>([^<]*)<\/title><rect x="(\d+)"/g),
      ([, anchor, kind, title, column]) => [anchor, kind, title, Number(column)],
    ),
  ]);
}

test('each measure of a short score has a column', () => {
  const places = [place(1, 3, { hidden: 2 }), place(2, 4, { hidden: 1 })];
  const map = mapOf(places, names, { staves: [1, 2], measures: { first: 3, last: 5 } }, false);
  assert.deepEqual(linksIn(map), [
    ['Flute', [['staff-1-measure-3', 'hidden', 'Flute, measure 3: 2 ledger lines hidden', 0]]],
    ['Oboe &lt;1&gt;', [['staff-2-measure-4', 'hidden', 'Oboe &lt;1&gt;, measure 4: 1 ledger line hidden', 1]]],
  ]);
  assert.match(map, /viewBox="0 0 3 1"/);
});

test('several measures of a long score share a column, which leads to the first difference', () => {
  const places = [place(1, 4, { hidden: 1 }), place(1, 6, { hidden: 2, gone: 2 }), place(1, 600, { come: 3 })];
  const map = mapOf(places, names, { staves: [1], measures: { first: 1, last: 600 } }, true);
  assert.deepEqual(linksIn(map), [
    [
      'Flute',
      [
        ['staff-1-measure-6', 'differs', 'Flute, measure 4 and on: 2 ledger lines hidden', 1],
        ['staff-1-measure-600', 'differs', 'Flute, measure 600: 3 ledger lines shown again', 199],
      ],
    ],
  ]);
});

test('lines that were hidden before, too, are there, and do not differ', () => {
  const map = mapOf([place(1, 1, { hidden: 2 })], names, { staves: [1], measures: { first: 1, last: 1 } }, true);
  const link = ['staff-1-measure-1', 'hidden', 'Flute, measure 1: 2 ledger lines hidden, as before', 0];
  assert.deepEqual(linksIn(map), [['Flute', [link]]]);
});
