import assert from 'node:assert/strict';
import { test } from 'node:test';

import { withCrossedStaves, withStaves } from '../source/meistaves.js';

const mei = `<mei><scoreDef><staffGrp><staffGrp><label>Piano</label><staffDef n="1"/><staffDef n="2"/></staffGrp>
<staffGrp><label>Cello</label><staffDef n="3"/></staffGrp></staffGrp></scoreDef><section>
<measure xml:id="m1"><staff n="1"><layer><note/></layer></staff><staff n="2"/><staff n="3"/>
<tempo staff="1">Largo</tempo><dynam staff="2"/><dir staff="2 3"/><slur startid="#a"/></measure>
<measure xml:id="m2"><staff n="1"><layer><note staff="2"/></layer></staff>
<staff n="2"/><staff n="3"><layer><note staff="3"/></layer></staff></measure>
</section></mei>`;

test('the other staves go, with what belongs to them and groups that have none left', () => {
  const expected = `<mei><scoreDef><staffGrp>
<staffGrp><label>Cello</label><staffDef n="3"/></staffGrp></staffGrp></scoreDef><section>
<measure xml:id="m1"><staff n="3"/>
<tempo staff="3">Largo</tempo><dir staff="2 3"/><slur startid="#a"/></measure>
<measure xml:id="m2">
<staff n="3"><layer><note staff="3"/></layer></staff></measure>
</section></mei>`;
  assert.equal(withStaves(mei, new Set([3])), expected);
});

test('all staves are the whole', () => {
  assert.equal(withStaves(mei, new Set([1, 2, 3])), mei);
});

test('staves that a voice crosses between belong together, from either side', () => {
  const measures = new Set(['m1', 'm2']);
  assert.deepEqual(withCrossedStaves(mei, [1], measures), new Set([1, 2]));
  assert.deepEqual(withCrossedStaves(mei, [2], measures), new Set([2, 1]));
  assert.deepEqual(withCrossedStaves(mei, [3], measures), new Set([3]));
});

test('only in the measures that are shown', () => {
  assert.deepEqual(withCrossedStaves(mei, [1], new Set(['m1'])), new Set([1]));
});
