import assert from 'node:assert/strict';
import { test } from 'node:test';

import { expandEntities } from '../source/entities.js';
import { readNotes } from '../source/notes.js';
import { note, scoreOf } from './support/scores.js';

function expanded(subset, content) {
  return expandEntities(`<!DOCTYPE a [${subset}]><a>${content}</a>`);
}

test('a document without references to entities stays as it is', () => {
  const xml = '<!DOCTYPE a [<!ENTITY b "c">]><a b="&lt;">&#65; &amp;</a>';
  assert.equal(expandEntities(xml), xml);
});

test('a reference becomes the text of the entity', () => {
  assert.equal(expanded('<!ENTITY n "no">', '<b c="&n;">&n;</b>'), '<a><b c="no">no</b></a>');
});

test('entities refer to others', () => {
  assert.equal(expanded('<!ENTITY x "1&y;3"><!ENTITY y "2">', '&x;&x;'), '<a>123123</a>');
});

test('the first of two declarations counts', () => {
  assert.equal(expanded('<!ENTITY x "1"><!ENTITY x "2">', '&x;'), '<a>1</a>');
});

test('characters are references in the text of an entity', () => {
  assert.equal(expanded('<!ENTITY x "&#65;&#x42;&amp;">', '&x;'), '<a>AB&amp;</a>');
});

test('the text of an entity may be markup', () => {
  assert.equal(expanded(`<!ENTITY x "<b c='&y;'/>"><!ENTITY y '"'>`, '&x;'), `<a><b c='&quot;'/></a>`);
});

test('quotes end no attribute', () => {
  assert.equal(expanded(`<!ENTITY x '"'>`, `<b c="&x;" d='&x;'/>`), `<a><b c="&quot;" d='&quot;'/></a>`);
});

test('references in comments, instructions and CDATA sections are none', () => {
  const content = '<!--&x;--><?b &x;?><![CDATA[&x;]]>';
  assert.equal(expanded('<!ENTITY x "1">', `${content}&x;`), `<a>${content}1</a>`);
});

test('what looks like a declaration in a comment or in another one is none', () => {
  const subset = '<!-- <!ENTITY x "1"> ]> --><!ENTITY y "<!ENTITY x \'2\'>"><!ENTITY x "3">';
  assert.equal(expanded(subset, '&x;'), '<a>3</a>');
});

test('lines keep their numbers', () => {
  const xml = '<!DOCTYPE a [\n<!ENTITY x "1">\n]>\n<a>&x;</a>';
  assert.equal(expandEntities(xml), '\n\n\n<a>1</a>');
});

test('an entity that only a DTD elsewhere can declare stands for nothing', () => {
  assert.equal(expandEntities('<!DOCTYPE a SYSTEM "a.dtd"><a b="&x;">&x;</a>'), '<a b=""></a>');
});

test('an entity that nothing declares is left to the reader of XML', () => {
  assert.equal(expandEntities('<a>&x;</a>'), '<a>&x;</a>');
  assert.equal(expanded('<!ENTITY y "1">', '&x;'), '<a>&x;</a>');
  assert.throws(() => readNotes('<score-partwise>&x;</score-partwise>'), {
    message: '1:19: not well-formed XML: undefined entity',
  });
});

test('a file that an entity names is not read', () => {
  assert.equal(expanded('<!ENTITY x SYSTEM "/etc/passwd">', '&x;'), '<a>&x;</a>');
});

test('an entity that refers to itself: refused', () => {
  const message = 'the entity "x" refers to itself';
  assert.throws(() => expanded('<!ENTITY x "&y;"><!ENTITY y "&x;">', '&x;'), { message });
  assert.throws(() => expanded('<!ENTITY x "&x;">', '<b c="&x;"/>'), { message });
});

test('entities that stand for gigabytes: refused', () => {
  const powers = Array.from({ length: 10 }, (_, index) => `<!ENTITY x${index + 1} "${`&x${index};`.repeat(10)}">`);
  const message = 'the entities stand for more than 8388608 characters';
  assert.throws(() => expanded(`<!ENTITY x0 "0123456789">${powers.join('')}`, '&x10;'), { message });
});

test('entities that refer to others too deep: refused', () => {
  const chain = Array.from({ length: 101 }, (_, index) => `<!ENTITY x${index + 1} "&x${index};">`);
  const message = 'entities refer to others more than 100 deep';
  assert.throws(() => expanded(`<!ENTITY x0 "0">${chain.join('')}`, '&x101;'), { message });
});

test('megabytes that are not well formed take no time to speak of', () => {
  for (const text of ['<!--', '<![CDATA[', '<?a', '<a "', '<a', '&a']) {
    const content = `&x;${text.repeat(1 << 20)}`;
    assert.equal(expanded('<!ENTITY x "1">', content), `<a>1${text.repeat(1 << 20)}</a>`);
  }
});

test('an entity hides ledger lines', () => {
  const doctype = '<!DOCTYPE score-partwise [<!ENTITY no "no">]>';
  const notes = readNotes(
    scoreOf([note('C6', 'print-leger="&no;"') + note('C6', 'print-leger="&#110;o"')], { doctype }),
  );
  assert.deepEqual(
    notes.map((each) => each.hidden),
    [true, true],
  );
});
