import assert from 'node:assert/strict';
import { test } from 'node:test';

import { measureNames, staffNames } from '../source/staffnames.js';

test('staves have the names of their parts, and numbers where these are not enough', () => {
  const parts = [
    { name: 'Violin', firstStaff: 1, staves: 1 },
    { name: 'Violin', firstStaff: 2, staves: 1 },
    { name: 'Viola', firstStaff: 3, staves: 1 },
    { name: '', firstStaff: 4, staves: 1 },
    { name: 'Harp', firstStaff: 5, staves: 2 },
  ];
  const names = ['Violin, staff 1', 'Violin, staff 2', 'Viola', 'Staff 4', 'Harp, staff 5', 'Harp, staff 6'];
  assert.deepEqual(staffNames({ parts }), names);
});

test('measures have their printed numbers, and their order where that is another', () => {
  const measures = [{ number: '0' }, { number: '2' }, { number: 'X1' }, { number: '' }];
  const names = ['measure 0 (1 in order)', 'measure 2', 'measure X1 (3 in order)', 'measure 4 in order'];
  assert.deepEqual(measureNames({ measures }), names);
});
