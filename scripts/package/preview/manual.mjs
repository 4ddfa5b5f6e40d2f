// Prints the manual page of brvhost-preview, which follows from its help.
//
//   node scripts/package/preview/manual.mjs
import { readFileSync } from 'node:fs';

import { help } from '../../../preview/source/help.js';

const { version } = JSON.parse(readFileSync(new URL('../../../preview/package.json', import.meta.url), 'utf8'));

function escaped(text) {
  return text.replace(/\\/g, '\\e').replace(/-/g, '\\-').replace(/^(?=[.'])/gm, '\\&');
}

// Runs of lines between blank ones.
const blocks = help.trimEnd().split(/\n\n+/).map((block) => block.split('\n'));
const [[usage], ...others] = blocks;
const description = others.filter(([line]) => !line.startsWith(' ') && line.includes('.'));
const sections = others.filter((block) => !description.includes(block));

// "  -o, --output FILE   Write to this file", and the lines that go on with it.
function itemsOf(lines) {
  const items = [];
  for (const line of lines) {
    const item = line.match(/^ {2}(\S.*?)(?: {2,}(.*))?$/);
    if (item) items.push({ term: item[1], text: [item[2]] });
    else items.at(-1).text.push(line.trim());
  }
  return items.map(({ term, text }) => `.TP\n.B ${escaped(term)}\n${escaped(text.join(' '))}`);
}

function examplesOf(lines) {
  return ['.nf', ...lines.map((line) => escaped(line.trim())), '.fi'];
}

// Headings in capitals are those of a manual page; the others are of options.
function sectionOf(lines) {
  const heading = lines[0].startsWith(' ') ? null : lines[0];
  const content = heading === null ? lines : lines.slice(1);
  if (heading === 'EXAMPLES') return ['.SH EXAMPLES', ...examplesOf(content)];
  if (heading === null) return ['.SS Other', ...itemsOf(content)];
  return [heading === heading.toUpperCase() ? `.SH ${heading}` : `.SS ${heading}`, ...itemsOf(content)];
}

console.log([
  `.TH BRVHOST\\-PREVIEW 1 "" "brvhost\\-preview ${version}" "User commands"`,
  '.SH NAME',
  'brvhost\\-preview \\- engraves MusicXML scores with hidden ledger lines left out',
  '.SH SYNOPSIS',
  `.B ${escaped(usage.replace('Usage: ', ''))}`,
  '.SH DESCRIPTION',
  escaped(description.map((lines) => lines.join('\n')).join('\n.PP\n')),
  '.SH OPTIONS',
  ...sections.flatMap(sectionOf),
  '.SH SEE ALSO',
  '.BR brvhost (1)',
].join('\n'));
