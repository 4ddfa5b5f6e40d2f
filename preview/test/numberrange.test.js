import assert from 'node:assert/strict';
import { test } from 'node:test';

import { numbersIn, parseRange, rangeIn } from '../source/numberrange.js';

test('ranges have either end, or both', () => {
  assert.deepEqual(parseRange('--staves', '3'), { first: 3, last: 3 });
  assert.deepEqual(parseRange('--staves', '2-5'), { first: 2, last: 5 });
  assert.deepEqual(parseRange('--staves', '2-'), { first: 2, last: null });
  assert.deepEqual(parseRange('--staves', '-5'), { first: 1, last: 5 });
});

test('anything else is no range', () => {
  for (const text of ['', '-', '0', '0-3', '1-0', 'm3', '1,2', '1-2-3', ' 1', '+1', '1.5', '99999999999']) {
    const message = `--measures ${text}: is not a range such as 3, 2-5, 2- or -5`;
    assert.throws(() => parseRange('--measures', text), { message, status: 2 }, text);
  }
});

test('a range ends after it starts', () => {
  assert.throws(() => parseRange('--measures', '5-4'), { message: '--measures 5-4: starts after its end', status: 2 });
});

test('a range ends with the score', () => {
  assert.deepEqual(rangeIn(4, null, 'staff'), { first: 1, last: 4 });
  assert.deepEqual(rangeIn(4, { first: 2, last: null }, 'staff'), { first: 2, last: 4 });
  assert.deepEqual(rangeIn(4, { first: 4, last: 9 }, 'staff'), { first: 4, last: 4 });
});

test('a range starts in the score', () => {
  const message = 'the passage starts at staff 5, but the score has only 4';
  assert.throws(() => rangeIn(4, { first: 5, last: 5 }, 'staff'), { message, status: 2 });
});

test('the numbers of a range', () => {
  assert.deepEqual(numbersIn({ first: 2, last: 4 }), [2, 3, 4]);
});
