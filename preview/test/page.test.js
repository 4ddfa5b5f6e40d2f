import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';

import { closeBrowser, noBrowser, openPage } from './support/browser.js';
import { run } from './support/program.js';
import {
  hidden,
  isOnStaff,
  note,
  pianoDashes,
  pianoRestLines,
  sampleText,
  scoreOf,
  withHidden,
} from './support/scores.js';

const piano = sampleText('piano.musicxml');
const upperHidden = withHidden(piano, isOnStaff(1));
const noReader = spawnSync('pdftotext', ['-v']).status === 0 ? false : 'pdftotext is not installed';

const inBrowser = { skip: noBrowser };

const folder = mkdtempSync(join(tmpdir(), 'preview-page-'));
const files = new Map();

after(async () => {
  await closeBrowser();
  rmSync(folder, { recursive: true });
});

// The file of the page of a score, and of its earlier version where there is one.
function fileOf(score, earlier = null, args = []) {
  const key = JSON.stringify([score, earlier, args]);
  if (!files.has(key)) files.set(key, writtenPage(`page${files.size}.html`, score, earlier, args));
  return files.get(key);
}

function writtenPage(name, score, earlier, args) {
  writeFileSync(join(folder, 'score.xml'), score);
  if (earlier !== null) writeFileSync(join(folder, 'earlier.xml'), earlier);
  const versions = earlier === null ? [] : ['--before', 'earlier.xml'];
  const { status, stderr } = run(folder, ['score.xml', ...versions, ...args, '-o', name]);
  assert.deepEqual([status, stderr], [0, '']);
  return join(folder, name);
}

// A page like it, changed.
function changedFile(path, change) {
  const changed = path.replace('.html', `-${files.size}.html`);
  writeFileSync(changed, change(readFileSync(path, 'utf8')));
  files.set(changed, changed);
  return changed;
}

async function pageOf(context, score, earlier = null, args = []) {
  return open(context, fileOf(score, earlier, args));
}

async function open(context, file, size = {}) {
  const page = await openPage(file, size);
  context.after(() => page.close());
  return page;
}

function linesOf(isWanted) {
  const dashes = pianoDashes.filter(isWanted).map((place) => place.dashes);
  const lines = pianoRestLines.filter(isWanted).map((place) => place.lines);
  return [...dashes, ...lines].reduce((sum, count) => sum + count, 0);
}

const all = linesOf(() => true);
const onLower = linesOf(({ staff }) => staff === 2);
const differing = all - onLower;
const shownBefore = { version: 'before', lines: all, marks: differing };
const shownAfter = { version: 'after', lines: onLower, marks: differing };

// The versions that are shown, with the ledger lines and marks that can be seen in each.
function seen(page) {
  return page.run(() => {
    const isSeen = (element) => element.getBoundingClientRect().width > 0;
    const countIn = (version, selector) => Array.from(version.querySelectorAll(selector)).filter(isSeen).length;
    return Array.from(document.querySelectorAll('.version'))
      .filter(isSeen)
      .map((version) => ({
        version: version.dataset.version,
        lines: countIn(version, '.ledgerLines > path, .lineDash > path'),
        marks: countIn(version, '.mark'),
      }));
  });
}

// The same by measure and staff, both in the order of the page.
function linesByPlace(page) {
  return page.run(() => {
    const isSeen = (element) => element.getBoundingClientRect().width > 0;
    const places = [];
    document.querySelectorAll('[data-class="measure"]').forEach((measure, index) => {
      for (const staff of measure.querySelectorAll('[data-class="staff"]')) {
        const lines = Array.from(staff.querySelectorAll('.ledgerLines > path, .lineDash > path')).filter(isSeen).length;
        places.push({ measure: index + 1, staff: Number(staff.dataset.n), lines });
      }
    });
    return places;
  });
}

function expectedByPlace(isShown) {
  return pianoDashes.map(({ measure, staff, dashes }) => {
    const rests = pianoRestLines.find((place) => place.measure === measure && place.staff === staff)?.lines ?? 0;
    return { measure, staff, lines: isShown(staff) ? dashes + rests : 0 };
  });
}

function textOf(page, selector) {
  return page.run((each) => document.querySelector(each)?.textContent ?? null, selector);
}

function click(page, selector) {
  return page.run(
    (each) => document.querySelector(each).dispatchEvent(new MouseEvent('click', { bubbles: true, cancelable: true })),
    selector,
  );
}

test('a key shows the version before, and the one after again', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  assert.deepEqual(await seen(page), [shownAfter]);
  assert.deepEqual(
    await linesByPlace(page),
    expectedByPlace((staff) => staff === 2),
  );
  await page.press('b');
  assert.deepEqual(await seen(page), [shownBefore]);
  assert.deepEqual(
    await linesByPlace(page),
    expectedByPlace(() => true),
  );
  await page.press('B');
  assert.deepEqual(await seen(page), [shownAfter]);
});

test('lines that are shown again are in the version after alone', inBrowser, async (context) => {
  const page = await pageOf(context, piano, upperHidden);
  assert.deepEqual(await seen(page), [{ version: 'after', lines: all, marks: differing }]);
  await page.press('b');
  assert.deepEqual(await seen(page), [{ version: 'before', lines: onLower, marks: differing }]);
});

test('both versions can be seen at once', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  await page.press('2');
  assert.deepEqual(await seen(page), [shownBefore, shownAfter]);
  const captions = () => Array.from(document.querySelectorAll('figcaption'), (caption) => caption.textContent);
  assert.deepEqual(await page.run(captions), ['Before', 'After']);
  await click(page, '.list a');
  assert.equal(await page.run(() => document.querySelector('.here').closest('.version').dataset.version), 'after');
  await page.press('2');
  assert.deepEqual(await seen(page), [shownAfter]);
});

test('marks can be switched off and on', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  await page.press('m');
  assert.deepEqual(await seen(page), [{ ...shownAfter, marks: 0 }]);
  assert.equal(await page.run(() => document.querySelector('[data-action="marks"]').ariaPressed), 'false');
  await page.press('m');
  assert.deepEqual(await seen(page), [shownAfter]);
});

test('a page that was wanted without marks shows them with the key', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano, ['--no-marks']);
  assert.deepEqual(await seen(page), [{ ...shownAfter, marks: 0 }]);
  assert.equal(await page.run(() => document.querySelector('[data-action="marks"]').ariaPressed), 'false');
  await page.press('m');
  assert.deepEqual(await seen(page), [shownAfter]);
});

test('hidden lines can be seen in a light colour', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano, ['--ghost']);
  const colours = () =>
    page.run(() => {
      const lines = Array.from(document.querySelectorAll('.ledgerLines > path, .lineDash > path'));
      const counts = {};
      for (const line of lines.filter((each) => each.getBoundingClientRect().width > 0)) {
        const { stroke } = getComputedStyle(line);
        counts[stroke] = (counts[stroke] ?? 0) + 1;
      }
      return counts;
    });
  assert.deepEqual(await colours(), { 'rgb(0, 0, 0)': onLower, 'rgb(196, 191, 182)': differing });
  await page.press('b');
  assert.deepEqual(await colours(), { 'rgb(0, 0, 0)': all });
});

test('keys make the music larger and smaller', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  const width = () => page.run(() => document.querySelector('.version > svg').getBoundingClientRect().width);
  const usual = await width();
  const isAbout = (actual, expected) => assert.ok(Math.abs(actual - expected) < 1, `${actual}, expected ${expected}`);
  await page.press('+');
  isAbout(await width(), usual * 1.25);
  assert.equal(await textOf(page, 'output'), '125%');
  await page.press('=');
  isAbout(await width(), usual * 1.25 ** 2);
  await page.press('0');
  isAbout(await width(), usual);
  await page.press('-');
  isAbout(await width(), usual / 1.25);
  for (let times = 0; times < 20; ++times) await page.press('-');
  assert.equal(await textOf(page, 'output'), '33%');
});

test('what is in the middle stays there in another size', inBrowser, async (context) => {
  const page = await pageOf(context, scoreOf(Array(400).fill(note('A5', hidden))));
  const offset = () =>
    page.run(() => {
      const { top, bottom } = document.querySelector('.here').getBoundingClientRect();
      const room = document.querySelector('.score').getBoundingClientRect();
      return (top + bottom) / 2 - (room.top + room.bottom) / 2;
    });
  await click(page, '.list li:nth-child(200) a');
  assert.ok(Math.abs(await offset()) < 20);
  await page.press('+');
  await page.press('+');
  assert.ok(Math.abs(await offset()) < 60);
});

test('a link names its staff and measure, and goes there', inBrowser, async (context) => {
  const page = await pageOf(context, scoreOf([...Array(400).fill(note('A5')), note('C6', hidden)], { name: 'Violin' }));
  assert.equal(await textOf(page, '.list li'), 'Violin, measure 401 2 ledger lines hidden');
  const isInSight = () =>
    page.run(() => {
      const target = document.getElementById('staff-1-measure-401').getBoundingClientRect();
      const room = document.querySelector('.score').getBoundingClientRect();
      return target.top >= room.top && target.bottom <= room.bottom;
    });
  assert.equal(await isInSight(), false);
  await click(page, '.list a');
  assert.equal(await isInSight(), true);
  assert.equal(await page.run(() => location.hash), '#staff-1-measure-401');
  assert.equal(await textOf(page, '[role="status"]'), 'Violin, measure 401 2 ledger lines hidden (1 of 1)');
});

test('keys go from one difference to the next, and round', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  const current = () => textOf(page, '.list [aria-current="true"]');
  const measure = (number) => `Piano, staff 1, measure ${number}`;
  assert.equal(await current(), null);
  for (const number of [1, 2, 3, 4, 1]) {
    await page.press('n');
    assert.equal(await current(), measure(number));
  }
  for (const number of [4, 3]) {
    await page.press('p');
    assert.equal(await current(), measure(number));
  }
});

test('the first key back goes to the last difference', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  await page.press('p');
  assert.equal(await textOf(page, '.list [aria-current="true"]'), 'Piano, staff 1, measure 4');
});

test('the map has a place for each measure of a staff where lines differ', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  const rows = await page.run(() =>
    Array.from(document.querySelectorAll('.map tbody tr'), (row) => [
      row.querySelector('th').textContent,
      Array.from(row.querySelectorAll('a'), (link) => `${link.getAttribute('class')} ${link.textContent}`),
    ]),
  );
  const lines = [25, 22, 9, 6];
  const places = lines.map(
    (count, index) => `differs Piano, staff 1, measure ${index + 1}: ${count} ledger lines hidden`,
  );
  assert.deepEqual(rows, [
    ['Piano, staff 1', places],
    ['Piano, staff 2', []],
  ]);
  await click(page, '.map a:nth-of-type(3)');
  assert.equal(await textOf(page, '.list [aria-current="true"]'), 'Piano, staff 1, measure 3');
});

test('the map leads to lines that were hidden before, too, and the list does not', inBrowser, async (context) => {
  const earlier = withHidden(piano, isOnStaff(2));
  const page = await pageOf(
    context,
    withHidden(piano, () => true),
    earlier,
  );
  assert.equal(await page.run(() => document.querySelectorAll('.list a').length), 4);
  assert.equal(await page.run(() => document.querySelectorAll('.map tbody tr:last-child a.hidden').length), 4);
  await click(page, '.map tbody tr:last-child a');
  assert.equal(await page.run(() => document.querySelector('.here').parentElement.id), 'staff-2-measure-1');
  assert.equal(await textOf(page, '.list [aria-current="true"]'), null);
});

test('a page that is opened at a place shows it', inBrowser, async (context) => {
  const page = await open(context, fileOf(upperHidden, piano), { fragment: 'staff-1-measure-3' });
  assert.equal(await textOf(page, '.list [aria-current="true"]'), 'Piano, staff 1, measure 3');
});

test('each button does what its key does', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  const steps = [
    ['before', [shownBefore]],
    ['after', [shownAfter]],
    ['both', [shownBefore, shownAfter]],
    ['after', [shownAfter]],
    ['marks', [{ ...shownAfter, marks: 0 }]],
  ];
  for (const [action, expected] of steps) {
    await click(page, `[data-action="${action}"]`);
    assert.deepEqual(await seen(page), expected);
  }
  for (const [action, size] of Object.entries({ larger: '125%', usual: '100%', smaller: '80%' })) {
    await click(page, `[data-action="${action}"]`);
    assert.equal(await textOf(page, 'output'), size);
  }
  await click(page, '[data-action="next"]');
  assert.equal(await textOf(page, '.list [aria-current="true"]'), 'Piano, staff 1, measure 1');
  await click(page, '[data-action="previous"]');
  assert.equal(await textOf(page, '.list [aria-current="true"]'), 'Piano, staff 1, measure 4');
});

test('all of it can be reached with the keyboard, and shows where one is', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  const reached = [];
  await page.run(() => document.querySelector('button').focus());
  const others = await page.run(() => document.querySelectorAll('button, .list a').length - 1);
  for (let step = 0; step < others; ++step) {
    await page.press('Tab');
    reached.push(
      await page.run(() => {
        const { outlineStyle, outlineWidth } = getComputedStyle(document.activeElement);
        return [document.activeElement.textContent, outlineStyle, outlineWidth];
      }),
    );
  }
  const names = [
    'After',
    'Both',
    'Marks',
    '−',
    '+',
    'Usual size',
    'Previous difference',
    'Next difference',
    ...[1, 2, 3, 4].map((measure) => `Piano, staff 1, measure ${measure}`),
  ];
  assert.deepEqual(
    reached,
    names.map((name) => [name, 'solid', '3px']),
  );
  await page.press('Enter');
  assert.equal(await textOf(page, '.list [aria-current="true"]'), 'Piano, staff 1, measure 4');
});

test('keys with modifiers are left to the browser', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  await page.run(() => {
    for (const modifier of ['ctrlKey', 'altKey', 'metaKey']) {
      document.body.dispatchEvent(new KeyboardEvent('keydown', { key: 'b', bubbles: true, [modifier]: true }));
    }
  });
  assert.deepEqual(await seen(page), [shownAfter]);
});

test('a page of one version has what that needs', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden);
  assert.deepEqual(await seen(page), [{ version: 'after', lines: onLower, marks: 0 }]);
  assert.equal(await textOf(page, 'h1'), 'Study for the Ledger Lines');
  assert.equal(await textOf(page, '.summary'), `${all} ledger lines, ${differing} of them hidden`);
  const actions = () => Array.from(document.querySelectorAll('[data-action]'), (button) => button.dataset.action);
  assert.deepEqual(await page.run(actions), ['smaller', 'larger', 'usual', 'previous', 'next']);
  assert.equal(await textOf(page, '.help'), '+ − 0 larger, smaller, usual size N P next, previous place');
  for (const key of 'b2m') await page.press(key);
  assert.deepEqual(await seen(page), [{ version: 'after', lines: onLower, marks: 0 }]);
});

test('where nothing is hidden, there is nothing to go to', inBrowser, async (context) => {
  const page = await pageOf(context, piano);
  assert.equal(await page.run(() => document.querySelectorAll('.map, .list, [data-action="next"]').length), 0);
  await page.press('n');
  assert.deepEqual(await seen(page), [{ version: 'after', lines: all, marks: 0 }]);
});

test('two versions without a difference', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, upperHidden);
  assert.equal(await textOf(page, '.summary'), 'no ledger line differs');
  assert.equal(await page.run(() => document.querySelectorAll('.list, [data-action="next"]').length), 0);
  await page.press('b');
  assert.deepEqual(await seen(page), [{ version: 'before', lines: onLower, marks: 0 }]);
});

test('paper has the version that is shown, and nothing else', { skip: noBrowser || noReader }, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  const printed = async () => {
    const { stdout } = spawnSync('pdftotext', ['-', '-'], { input: await page.pdf(), encoding: 'utf8' });
    return stdout.replace(/[\s\f]+/g, ' ');
  };
  const title = 'Study for the Ledger Lines';
  assert.match(await printed(), new RegExp(`^(?=.*${title}: after)(?!.*(before|difference|Usual|measure))`));
  await page.press('b');
  await page.press('n');
  assert.match(await printed(), new RegExp(`^(?=.*${title}: before)(?!.*(after|difference|Usual|measure))`));
  await page.media('print');
  assert.deepEqual(await seen(page), [shownBefore]);
  await page.press('2');
  assert.deepEqual(await seen(page), [shownAfter]);
  assert.equal(await page.run(() => document.querySelector('.here').getBoundingClientRect().width), 0);
});

test('each page of the score has a page of paper, also where it is low', inBrowser, async (context) => {
  const file = changedFile(fileOf(upperHidden, piano), (text) => {
    const [sheet] = /<div class="sheet[\s\S]*?<\/div>\n/.exec(text);
    return text.replace(sheet, sheet.repeat(3));
  });
  const page = await open(context, file);
  assert.equal((await page.pdf()).toString('latin1').match(/\/Type \/Page\b/g).length, 3);
});

test('the page is light or dark, as the reader’s system', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden);
  const colours = () =>
    page.run(() => ({
      paper: getComputedStyle(document.querySelector('.version > svg')).backgroundColor,
      ink: getComputedStyle(document.querySelector('.stem path')).stroke,
      head: getComputedStyle(document.querySelector('.notehead use')).fill,
    }));
  await page.media('', [{ name: 'prefers-color-scheme', value: 'light' }]);
  assert.deepEqual(await colours(), { paper: 'rgb(255, 255, 255)', ink: 'rgb(0, 0, 0)', head: 'rgb(0, 0, 0)' });
  await page.media('', [{ name: 'prefers-color-scheme', value: 'dark' }]);
  const light = 'rgb(236, 234, 230)';
  assert.deepEqual(await colours(), { paper: 'rgb(32, 34, 37)', ink: light, head: light });
  await page.media('print', [{ name: 'prefers-color-scheme', value: 'dark' }]);
  assert.deepEqual(await colours(), { paper: 'rgb(255, 255, 255)', ink: 'rgb(0, 0, 0)', head: 'rgb(0, 0, 0)' });
});

test('the page asks for nothing but itself', inBrowser, async (context) => {
  // The sign in the tempo needs the font of the music.
  const metronome = '<metronome><beat-unit>quarter</beat-unit><per-minute>60</per-minute></metronome>';
  const tempo = `<direction><direction-type>${metronome}</direction-type></direction>`;
  const file = fileOf(scoreOf([tempo + note('A5', hidden)]), scoreOf([tempo + note('A5')]));
  const page = await open(context, file);
  for (const key of 'b2n') await page.press(key);
  const schemes = new Set(page.requests.map((url) => url.slice(0, url.indexOf(':'))));
  assert.deepEqual([...schemes].sort(), ['data', 'file']);
  assert.equal(page.requests.filter((url) => url.startsWith('file:')).length, 1);
  const addresses = new Set(
    Array.from(readFileSync(file, 'utf8').matchAll(/https?:[^"' )]*/g), ([address]) => address),
  );
  assert.deepEqual([...addresses].sort(), ['http://www.w3.org/1999/xlink', 'http://www.w3.org/2000/svg']);
});

test('whatever is in a score is text', inBrowser, async (context) => {
  const hostile =
    '</title></svg></style>]]><script>window.ran = true</script><img src=x onerror="window.ran = true">"\'&lt;';
  const inXml = hostile.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;').replace(/"/g, '&quot;');
  const lyric = `<lyric><syllabic>single</syllabic><text>${inXml}</text></lyric>`;
  const score = scoreOf([note('A5', `${hidden} id="${inXml}"`).replace('</note>', `${lyric}</note>`)], {
    title: inXml,
    name: inXml,
  }).replace('number="1"', `number="${inXml}"`);
  const page = await pageOf(context, score, score.replace(hidden, ''));
  assert.equal(await textOf(page, 'h1'), hostile);
  assert.equal(await page.run(() => document.title), `${hostile}: ledger lines before and after`);
  assert.equal(await textOf(page, '.list a'), `${hostile}, measure ${hostile} (1 in order)`);
  await page.press('n');
  assert.equal(await page.run(() => document.querySelectorAll('img').length), 0);
  assert.equal(await page.run(() => document.querySelectorAll('script').length), 1);
  assert.equal(await page.run(() => window.ran), undefined);
});

test('a script that got into the page would not run', inBrowser, async (context) => {
  const script = '<script>window.ran = true</script></body>';
  const file = changedFile(fileOf(upperHidden), (text) => text.replace('</body>', script));
  const page = await open(context, file);
  assert.equal(await page.run(() => window.ran), undefined);
  assert.equal(await page.run(() => document.documentElement.classList.contains('scripted')), true);
});

test('without scripts the page shows the current version, and has no controls', inBrowser, async (context) => {
  const file = changedFile(fileOf(upperHidden, piano), (text) => text.replace(/<script>[\s\S]*<\/script>/, ''));
  const page = await open(context, file);
  assert.deepEqual(await seen(page), [shownAfter]);
  const shown = (selector) => document.querySelector(selector).getBoundingClientRect().width > 0;
  assert.equal(await page.run(shown, '.controls'), false);
  assert.equal(await page.run(shown, '.list a'), true);
});

test('a page for a narrow window has all of it below each other', inBrowser, async (context) => {
  const file = fileOf(upperHidden, piano);
  const page = await open(context, file, { width: 400, height: 800 });
  const { bar, list, score, overflow } = await page.run(() => {
    const box = (selector) => document.querySelector(selector).getBoundingClientRect().toJSON();
    const { scrollWidth, clientWidth } = document.documentElement;
    return { bar: box('.bar'), list: box('.list'), score: box('.score'), overflow: scrollWidth - clientWidth };
  });
  assert.equal(overflow, 0);
  assert.ok(bar.bottom <= list.top && list.bottom <= score.top);
  assert.equal(score.width, 400);
});

test('the page has a language, a title and one heading of the first level', inBrowser, async (context) => {
  const page = await pageOf(context, upperHidden, piano);
  assert.equal(await page.run(() => document.documentElement.lang), 'en');
  assert.equal(await page.run(() => document.title), 'Study for the Ledger Lines: ledger lines before and after');
  const headings = () =>
    Array.from(document.querySelectorAll('h1, h2, h3'), (each) => `${each.localName} ${each.textContent}`);
  const expected = ['h1 Study for the Ledger Lines', 'h2 Where ledger lines differ', 'h2 4 differences'];
  assert.deepEqual(await page.run(headings), expected);
});

test('no identifier is twice in the page, whatever is shown', inBrowser, async (context) => {
  const measures = Array(400).fill(note('A5'));
  const page = await pageOf(context, scoreOf([note('A5', hidden), ...measures]), scoreOf([note('A5'), ...measures]));
  const twice = () => {
    const ids = Array.from(document.querySelectorAll('[id]'), (each) => each.id);
    return ids.filter((id, index) => ids.indexOf(id) !== index);
  };
  assert.deepEqual(await page.run(twice), []);
  await page.press('2');
  assert.deepEqual(await page.run(twice), []);
});
