import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { once } from 'node:events';
import { cpSync, existsSync, linkSync, mkdirSync, readdirSync, readFileSync, readlinkSync, symlinkSync } from 'node:fs';
import { join } from 'node:path';
import { test } from 'node:test';

import { folderFor, inShell, program, run, start } from './support/program.js';
import { hidden, isOnStaff, note, sampleText, scoreOf, withHidden } from './support/scores.js';

const piano = sampleText('piano.musicxml');
// 61 dashes at notes and the line of a rest are on the upper staff, 34 dashes on the lower one.
const upperHidden = withHidden(piano, isOnStaff(1));
// Two dashes, and one that is hidden.
const short = scoreOf([note('C6') + note('A5', hidden)]);
const noRasteriser = spawnSync('rsvg-convert', ['--version']).status === 0 ? false : 'rsvg-convert is not installed';

function failed(message, status = 2) {
  return { status, signal: null, stdout: '', stderr: `brvhost-preview: ${message}\n` };
}

function done(...lines) {
  return { status: 0, signal: null, stdout: lines.map((line) => `${line}\n`).join(''), stderr: '' };
}

function read(folder, name) {
  return readFileSync(join(folder, name), 'utf8');
}

function dashesIn(text) {
  return text.split('data-class="lineDash"').length - 1;
}

test('a page has the name of the score, which stays as it is', (context) => {
  const folder = folderFor(context, { 'short.musicxml': short });
  const report = 'short.musicxml: 3 ledger lines, 1 of them hidden, written to short.html';
  assert.deepEqual(run(folder, ['short.musicxml']), done(report));
  assert.deepEqual(readdirSync(folder), ['short.html', 'short.musicxml']);
  assert.equal(read(folder, 'short.musicxml'), short);
  assert.match(read(folder, 'short.html'), /^<!DOCTYPE html>\n[\s\S]*<\/html>\n$/);
});

test('the same score gives the same bytes', (context) => {
  const folder = folderFor(context, { 'short.xml': short });
  assert.equal(run(folder, ['short.xml', '-o', 'one.html']).status, 0);
  assert.equal(run(folder, ['short.xml', '-o', 'other.html']).status, 0);
  assert.equal(read(folder, 'one.html'), read(folder, 'other.html'));
});

test('a picture has the lines that are shown', (context) => {
  const folder = folderFor(context, { 'short.xml': short });
  const report = 'short.xml: 3 ledger lines, 1 of them hidden, written to short.svg';
  assert.deepEqual(run(folder, ['short.xml', '--svg']), done(report));
  assert.equal(dashesIn(read(folder, 'short.svg')), 2);
  assert.equal(run(folder, ['short.xml', '--ghost', '--output=ghost.svg']).status, 0);
  assert.equal(dashesIn(read(folder, 'ghost.svg')), 3);
  assert.equal(read(folder, 'ghost.svg').split('class="lineDash ghost"').length - 1, 1);
});

test('a picture of two versions has both, with marks', (context) => {
  const folder = folderFor(context, { 'before.xml': piano, 'after.xml': upperHidden });
  const report = 'after.xml: 62 ledger lines hidden since before.xml, written to two.svg';
  assert.deepEqual(run(folder, ['after.xml', '--before', 'before.xml', '-o', 'two.svg']), done(report));
  const [, before, after] = read(folder, 'two.svg').split(/>Before<|>After</);
  assert.deepEqual([before, after].map(dashesIn), [95, 34]);
  const marksIn = (text) => text.split('<g class="mark">').length - 1;
  assert.deepEqual([before, after].map(marksIn), [62, 62]);
  assert.equal(run(folder, ['after.xml', '--before', 'before.xml', '--no-marks', '-o', 'plain.svg']).status, 0);
  assert.equal(marksIn(read(folder, 'plain.svg')), 0);
});

test('no identifier is twice in a picture', (context) => {
  const folder = folderFor(context, { 'before.xml': piano, 'after.xml': upperHidden });
  run(folder, ['after.xml', '--before', 'before.xml', '-o', 'two.svg']);
  const ids = Array.from(read(folder, 'two.svg').matchAll(/ id="([^"]*)"/g), ([, id]) => id);
  assert.notEqual(ids.length, 0);
  assert.equal(new Set(ids).size, ids.length);
});

test('what was hidden before is shown again', (context) => {
  const folder = folderFor(context, { 'before.xml': upperHidden, 'after.xml': piano });
  const report = 'after.xml: 62 ledger lines shown again since before.xml, written to after.html';
  assert.deepEqual(run(folder, ['after.xml', '--before', 'before.xml']), done(report));
});

test('pictures of several pages are numbered', (context) => {
  const folder = folderFor(context, { 'long.xml': scoreOf(Array(300).fill(note('A5'))) });
  const { status, stdout } = run(folder, ['long.xml', '--svg', '--out-dir', 'new/pictures']);
  assert.equal(status, 0);
  const names = readdirSync(join(folder, 'new/pictures'));
  assert.ok(names.length > 1);
  assert.deepEqual(names.sort(), names.map((_, index) => `long-${index + 1}.svg`).sort());
  const others = names.length === 2 ? '1 further page' : `${names.length - 1} further pages`;
  assert.equal(
    stdout,
    `long.xml: 300 ledger lines, none of them hidden, written to new/pictures/long-1.svg and ${others}\n`,
  );
  const dashes = names.map((name) => dashesIn(read(folder, join('new/pictures', name))));
  assert.equal(
    dashes.reduce((sum, count) => sum + count),
    300,
  );
});

test('several scores go into a folder, also after one that cannot be used', (context) => {
  const folder = folderFor(context, { 'one.xml': short, 'two.xml': '<html/>', 'three.xml': short });
  mkdirSync(join(folder, 'there'));
  const { status, stdout, stderr } = run(folder, ['one.xml', 'two.xml', 'three.xml', '--out-dir', 'there']);
  assert.equal(status, 2);
  assert.equal(stderr, 'brvhost-preview: two.xml:1:1: not MusicXML: the root element is <html>\n');
  assert.equal(stdout.split('\n').length - 1, 2);
  assert.deepEqual(readdirSync(join(folder, 'there')), ['one.html', 'three.html']);
});

test('a PNG is a picture of that kind', { skip: noRasteriser }, (context) => {
  const folder = folderFor(context, { 'short.xml': short });
  assert.equal(run(folder, ['short.xml', '--measures', '1', '--png']).status, 0);
  const bytes = readFileSync(join(folder, 'short.png'));
  assert.equal(bytes.toString('latin1', 1, 4), 'PNG');
});

test('an ending of the result chooses the format', { skip: noRasteriser }, (context) => {
  const folder = folderFor(context, { 'short.xml': short });
  for (const [name, start] of Object.entries({ 'a.svg': '<?xml', 'a.PNG': '\x89PNG', 'a.html': '<!DOC', a: '<!DOC' })) {
    assert.equal(run(folder, ['short.xml', '-o', name]).status, 0);
    assert.equal(readFileSync(join(folder, name)).toString('latin1', 0, start.length), start);
  }
});

test('staves that are shown without having been asked for are reported', (context) => {
  const folder = folderFor(context, { 'piano.xml': piano });
  const { status, stderr } = run(folder, ['piano.xml', '--staves', '2', '--measures', '3']);
  assert.equal(status, 0);
  const warning = 'piano.xml: staff 1 is shown, too, because a voice crosses to or from the chosen staves';
  assert.equal(stderr, `brvhost-preview: ${warning}\n`);
});

test('a result replaces an earlier one, through a symbolic link', (context) => {
  const folder = folderFor(context, { 'short.xml': short, 'real.html': 'earlier' });
  symlinkSync('real.html', join(folder, 'link.html'));
  assert.equal(run(folder, ['short.xml', '-o', 'link.html']).status, 0);
  assert.equal(readlinkSync(join(folder, 'link.html')), 'real.html');
  assert.match(read(folder, 'real.html'), /^<!DOCTYPE html>/);
});

test('a result that cannot be written to the end leaves what was there', (context) => {
  const folder = folderFor(context, { 'short.xml': short, 'short.html': 'earlier' });
  const { status, stderr } = inShell(folder, 'ulimit -f 4; "$@"', ['short.xml']);
  assert.deepEqual([status, stderr], [1, 'brvhost-preview: short.html: cannot be written: File too large\n']);
  assert.deepEqual(readdirSync(folder), ['short.html', 'short.xml']);
  assert.equal(read(folder, 'short.html'), 'earlier');
});

test('an interrupt ends the program, and leaves nothing', async (context) => {
  const folder = folderFor(context, { 'long.xml': scoreOf(Array(2000).fill(note('A5'))) });
  const child = start(folder, ['long.xml']);
  setTimeout(() => child.kill('SIGINT'), 1000);
  const [status, signal] = await once(child, 'exit');
  assert.deepEqual([status, signal], [null, 'SIGINT']);
  assert.deepEqual(readdirSync(folder), ['long.xml']);
});

test('a standard output that cannot be written: reported', { skip: !existsSync('/dev/full') }, (context) => {
  const folder = folderFor(context, {});
  const { status, stderr } = inShell(folder, '"$@" > /dev/full', ['--help']);
  const message = 'the standard output cannot be written: No space left on device';
  assert.deepEqual([status, stderr], [1, `brvhost-preview: ${message}\n`]);
});

test('help and version', (context) => {
  const folder = folderFor(context, {});
  const help = run(folder, ['-h']);
  assert.match(help.stdout, /^Usage: brvhost-preview SCORE\.\.\. /);
  assert.deepEqual(run(folder, ['--help', 'nothing.xml']), help);
  assert.deepEqual(
    help.stdout.split('\n').filter((line) => line.length > 100),
    [],
  );
  const versionOf = (name) =>
    JSON.parse(readFileSync(new URL(`../${name}package.json`, import.meta.url), 'utf8')).version;
  const version = `brvhost-preview ${versionOf('')}, with Verovio ${versionOf('node_modules/verovio/')}`;
  assert.deepEqual(run(folder, ['--version']), done(version));
});

test('each option that the help names is taken, and the other way round', async () => {
  const { help } = await import('../source/help.js');
  const { optionNames } = await import('../source/commandline.js');
  const named = new Set(Array.from(help.matchAll(/(?<=^|\s)--([a-z-]+)/gm), ([, name]) => name));
  assert.deepEqual([...named].sort(), [...optionNames].sort());
});

const wrong = [
  [[], 'a score is missing; --help explains what brvhost-preview takes'],
  [['--ghosts', 'a.xml'], 'there is no option --ghosts; --help lists those that there are'],
  [['-x', 'a.xml'], 'there is no option -x; --help lists those that there are'],
  [['a.xml', '--svg=1'], '--svg: takes no value'],
  [['a.xml', '-o'], '-o: needs a value'],
  [['a.xml', '--staves='], '--staves: needs a value'],
  [['a.xml', '-o', 'a', '--output', 'b'], '-o: is given 2 times; give it once'],
  [['a.xml', '-o', 'a', '--out-dir', 'b'], '--output and --out-dir: one or the other, not both'],
  [['a.xml', '-o', '-'], '--output -: results are files, and not for the standard output'],
  [['a.xml', '-o', 'b.musicxml'], '--output b.musicxml: has the name of a score; results end in .html, .svg or .png'],
  [['a.xml', '--svg', '--png'], '--svg and --png: one or the other, not both'],
  [['a.xml', '--svg', '-o', 'a.png'], '--svg and --output a.png: are two formats'],
  [['a.xml', '--no-marks'], '--no-marks is for --before'],
  [['a.xml', 'b.xml'], 'several scores need --out-dir'],
  [['a.xml', 'b.xml', '--out-dir', 'd', '--before', 'c.xml'], '--before is for a single score'],
  [['a.xml', 'd/a.mxl', '--out-dir', 'd'], 'a.xml and d/a.mxl: their results would have the same name'],
  [['a.xml', '--measures', '2-1'], '--measures 2-1: starts after its end'],
  [['a.xml', '--staves', 'two'], '--staves two: is not a range such as 3, 2-5, 2- or -5'],
];

for (const [args, message] of wrong) {
  test(`wrong usage: ${message}`, (context) => {
    const folder = folderFor(context, {});
    assert.deepEqual(run(folder, args), failed(message));
    assert.deepEqual(readdirSync(folder), []);
  });
}

const unusable = [
  [['missing.xml'], 'missing.xml: No such file or directory'],
  [['.'], '.: is a folder, not a score'],
  [['cut.xml'], 'cut.xml:2:5: the XML ends too early'],
  [['short.xml', '--before', 'missing.xml'], 'missing.xml: No such file or directory'],
  [['short.xml', '--measures', '2'], 'short.xml: the passage starts at measure 2, but the score has only 1'],
  [
    ['short.xml', '--before', 'other.xml'],
    'other.xml:3:9: differs from short.xml in more than print-leger: <opus> here, <work-title> in line 3 there',
  ],
];

for (const [args, message] of unusable) {
  test(`a score that cannot be used: ${message}`, (context) => {
    const other = short.replace('<work-title>', '<opus>').replace('</work-title>', '</opus>');
    const folder = folderFor(context, { 'cut.xml': '<score-partwise>\n<part', 'short.xml': short, 'other.xml': other });
    assert.deepEqual(run(folder, args), failed(message));
    assert.deepEqual(readdirSync(folder), ['cut.xml', 'other.xml', 'short.xml']);
  });
}

const unwritable = [
  [['-o', 'missing/a.html'], 'missing/a.html: cannot be written: No such file or directory'],
  [['-o', 'folder'], 'folder: is a folder; --out-dir takes one'],
  [['-o', '/dev/null'], '/dev/null: is not a file'],
  [['--out-dir', 'short.xml/a'], '--out-dir short.xml/a: Not a directory'],
  [['--out-dir', 'short.xml'], '--out-dir short.xml: File already exists'],
  [['--out-dir', '/proc/missing'], '--out-dir /proc/missing: No such file or directory'],
];

for (const [args, message] of unwritable) {
  test(`a result that cannot be written: ${message}`, (context) => {
    const folder = folderFor(context, { 'short.xml': short });
    mkdirSync(join(folder, 'folder'));
    assert.deepEqual(run(folder, ['short.xml', ...args]), failed(message, 1));
    assert.deepEqual(readdirSync(folder), ['folder', 'short.xml']);
  });
}

test('a folder that is missing is noticed before any work', (context) => {
  const folder = folderFor(context, { 'cut.xml': '<' });
  const message = 'missing/a.html: cannot be written: No such file or directory';
  assert.deepEqual(run(folder, ['cut.xml', '-o', 'missing/a.html']), failed(message, 1));
});

test('a result is never a score, whatever its name', (context) => {
  const folder = folderFor(context, { 'short.xml': short, before: short });
  linkSync(join(folder, 'short.xml'), join(folder, 'hard'));
  symlinkSync('short.xml', join(folder, 'soft'));
  const refusal = (name, score) => failed(`${name}: is ${score}, a score, which stays as it is`);
  assert.deepEqual(run(folder, ['short.xml', '-o', 'hard']), refusal('hard', 'short.xml'));
  assert.deepEqual(run(folder, ['short.xml', '-o', 'soft']), refusal('soft', 'short.xml'));
  assert.deepEqual(run(folder, ['short.xml', '--before', 'before', '-o', 'before']), refusal('before', 'before'));
  assert.equal(read(folder, 'short.xml'), short);
});

test('--png without a rasteriser: reported before any work', (context) => {
  const folder = folderFor(context, { 'cut.xml': '<' });
  const message = '--png needs the program rsvg-convert, which Debian has in the package librsvg2-bin';
  assert.deepEqual(run(folder, ['cut.xml', '--png'], { env: { PATH: folder } }), failed(message, 1));
});

test('without the packages that it needs: reported with the command that installs them', (context) => {
  const folder = folderFor(context, {});
  for (const part of ['bin', 'source', 'page', 'package.json']) {
    cpSync(new URL(`../${part}`, import.meta.url), join(folder, part), { recursive: true });
  }
  const copy = join(folder, 'bin/brvhost-preview.js');
  const { status, stderr } = spawnSync(process.execPath, [copy, 'a.xml'], { encoding: 'utf8' });
  const command = `npm ci --omit=dev --prefix ${folder}/`;
  const message = `the packages that it needs are not installed; \`${command}\` installs them`;
  assert.deepEqual([status, stderr], [1, `brvhost-preview: ${message}\n`]);
});

test('an older Node: reported', (context) => {
  const older = 'Object.defineProperty(process.versions, "node", { value: "18.16.1" });';
  const folder = folderFor(context, { 'older.cjs': older });
  const args = ['-r', join(folder, 'older.cjs'), program, '--help'];
  const { status, stdout, stderr } = spawnSync(process.execPath, args, { encoding: 'utf8' });
  const message = 'needs Node 18.17 or later, and this is 18.16.1';
  assert.deepEqual([status, stdout, stderr], [1, '', `brvhost-preview: ${message}\n`]);
});

test('the lock file names no registry', () => {
  const lock = readFileSync(new URL('../package-lock.json', import.meta.url), 'utf8');
  assert.equal(lock.includes('"integrity"'), true);
  assert.equal(lock.includes('"resolved"'), false);
  assert.equal(/https?:/.test(lock), false);
});
