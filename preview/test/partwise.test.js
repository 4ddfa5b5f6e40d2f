import assert from 'node:assert/strict';
import { test } from 'node:test';

import { partwise } from '../source/partwise.js';

test('the measures of a part come together, and all else stays', () => {
  const timewise = `<?xml version="1.0"?>
<!DOCTYPE score-timewise PUBLIC "a" "b">
<score-timewise version="3.0"><part-list><score-part id="A"/></part-list>
<measure number="1" width="2"><part id="A">1A<!-- </part> --></part><part id="B"/></measure>
<measure number="2"><part id="B"><![CDATA[</part>]]></part><part id="A">2A</part></measure>
<measure number="3"><part id="C">3C</part></measure>
</score-timewise>`;
  const expected = `<score-partwise version="4.0"><part-list><score-part id="A"/></part-list>
<part id="A"><measure number="1" width="2">1A<!-- </part> --></measure><measure number="2">2A</measure></part>\
<part id="B"><measure number="1" width="2"></measure><measure number="2"><![CDATA[</part>]]></measure></part>\
<part id="C"><measure number="3">3C</measure></part></score-partwise>`;
  assert.equal(partwise(timewise), expected);
});
