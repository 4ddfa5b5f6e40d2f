import assert from 'node:assert/strict';
import { test } from 'node:test';

import { changesOf, summaryOf } from '../source/summary.js';

test('one version in words', () => {
  assert.equal(summaryOf({ lines: 0, hidden: 0 }), 'no ledger lines');
  assert.equal(summaryOf({ lines: 1, hidden: 0 }), '1 ledger line, none of them hidden');
  assert.equal(summaryOf({ lines: 5, hidden: 2 }), '5 ledger lines, 2 of them hidden');
  assert.equal(summaryOf({ lines: 5, hidden: 5 }), '5 ledger lines, all of them hidden');
});

test('two versions in words', () => {
  assert.equal(changesOf({ gone: 0, come: 0 }), 'no ledger line differs');
  assert.equal(changesOf({ gone: 1, come: 0 }), '1 ledger line hidden');
  assert.equal(changesOf({ gone: 0, come: 2 }), '2 ledger lines shown again');
  assert.equal(changesOf({ gone: 3, come: 1 }), '3 ledger lines hidden, 1 ledger line shown again');
});
