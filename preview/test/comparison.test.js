import assert from 'node:assert/strict';
import { test } from 'node:test';

import { hiddenNotesBefore } from '../source/comparison.js';
import { hidden, note, scoreOf } from './support/scores.js';

const plain = scoreOf([note('C6') + note('E6')]);

function compare(before, after) {
  return hiddenNotesBefore({ path: 'before.xml', xml: before }, { path: 'after.xml', xml: after });
}

test('two versions may differ in print-leger', async () => {
  assert.deepEqual(await compare(scoreOf([note('C6', hidden) + note('E6')]), plain), [true, false]);
  assert.deepEqual(await compare(plain, scoreOf([note('C6', 'print-leger="yes"') + note('E6', hidden)])), [
    false,
    false,
  ]);
});

test('blanks between elements, comments, and how attributes are written do not count', async () => {
  const other = plain.replace('<note>', '<!-- C -->\n<note\n>').replace('version="4.0"', "version = '4.0' ");
  assert.deepEqual(await compare(other, plain), [false, false]);
  const one = scoreOf([note('C6', 'default-x="1" color="red"')]);
  assert.deepEqual(await compare(one, scoreOf([note('C6', 'color="red" default-x="1"')])), [false]);
});

// The place is that of the tag, or of the one after a text.
const differences = [
  ['a text', ['<step>E</step>', '<step>F</step>'], 'F|</step>', '"F" here, "E" in line 6 there'],
  [
    'an attribute',
    ['<note>', '<note dynamics="90">'],
    '|<note dynamics',
    '<note dynamics="90"> here, <note> in line 6 there',
  ],
  [
    'print-leger elsewhere',
    ['<pitch>', '<pitch print-leger="no">'],
    '|<pitch print',
    '<pitch print-leger="no"> here, <pitch> in line 6 there',
  ],
  ['an element', ['<type>', '<dot/><type>'], '|<dot/>', '<dot> here, <type> in line 6 there'],
  [
    'the end of an element',
    ['<type>quarter</type></note>', '</note>'],
    '</duration>|</note>',
    '</note> here, <type> in line 6 there',
  ],
];

for (const [name, [from, to], mark, what] of differences) {
  test(`two versions do not differ in ${name}`, async () => {
    const before = plain.replace(from, to);
    const line = before.split('\n')[5];
    const column = line.indexOf(mark.replace('|', '')) + mark.indexOf('|') + 1;
    const message = `before.xml:6:${column}: differs from after.xml in more than print-leger: ${what}`;
    await assert.rejects(compare(before, plain), { message, status: 2 });
  });
}

test('two versions do not differ in the root', async () => {
  const what = '<score-timewise> here, <score-partwise version="4.0"> in line 2 there';
  const message = `before.xml:1:1: differs from after.xml in more than print-leger: ${what}`;
  await assert.rejects(compare('<score-timewise/>', plain), { message, status: 2 });
});

test('a version that is no XML is reported under its name', async () => {
  await assert.rejects(compare(plain, '<a>'), { message: 'after.xml:1:3: the XML ends too early' });
  await assert.rejects(compare('<a>', plain), { message: 'before.xml:1:3: the XML ends too early' });
});
