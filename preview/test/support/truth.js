// Holds the engraving of scores, with the ledger lines that brvhost has hidden, to what follows from the scores alone.
import assert from 'node:assert/strict';
import { mkdtemp, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import test from 'node:test';

import { engrave } from '../../source/engraving.js';
import { readNotes } from '../../source/notes.js';
import { readScore } from '../../source/scorefile.js';
import { EVERYTHING, HIDE, SHOW, runItem } from './brvhost.js';
import { drawnDashes, linesByNote } from './drawndashes.js';
import { withEveryOtherHidden } from './everyother.js';
import { countLedgerLines } from './ledgercount.js';
import { oddPlaces } from './oddplaces.js';
import { Region } from './region.js';

// A score with what is known of its notes, and its engraving with nothing hidden.
class Original {
  static async read(path) {
    const { xml } = await readScore(path);
    return new Original(path, xml, await engrave(xml, { hidden: 'keep' }));
  }

  constructor(path, xml, pages) {
    this.name = basename(path);
    this.xml = xml;
    this.pages = pages;
    this.dashes = drawnDashes(pages);
    const ids = readNotes(xml).map(({ id }) => id);
    this.counts = countLedgerLines(xml).map((count) => ({ ...count, id: ids[count.number] }));
    this.byId = new Map(this.counts.map((count) => [count.id, count]));
  }

  get region() {
    const greatest = (member) => this.counts.reduce((most, count) => Math.max(most, count[member]), 1);
    return new Region(this.name, greatest('staff'), greatest('measure'));
  }

  // The ledger lines that are left where those of some notes are hidden.
  dashesWithout(isHidden) {
    return this.dashes.filter((ids) => !ids.every((id) => isHidden(this.byId.get(id))));
  }

  // The staves and measures with a drawn note that has other lines than it needs.
  differences() {
    const drawn = new Set(this.pages.flatMap((page) => [...page.matchAll(/\sdata-id="([^"]*)"/g)].map(([, id]) => id)));
    const lines = linesByNote(this.dashes);
    const isWrong = ({ id, above, below }) => (lines.get(id) ?? 0) !== above + below;
    const compared = this.counts.filter(({ id, known, visible }) => known && visible && drawn.has(id));
    return [...new Set(compared.filter(isWrong).map(({ staff, measure }) => `${staff}:${measure}`))];
  }
}

// The engraving of a score that brvhost has made of one.
async function engravedAfter(item, region, score, folder) {
  const result = join(folder, `${item}-${basename(score)}`);
  await runItem(item, region, score, result);
  return { result, pages: await engrave((await readScore(result)).xml, { hidden: 'omit' }) };
}

async function holdScore(t, path, totals) {
  const folder = await mkdtemp(join(tmpdir(), 'preview-'));
  t.after(() => rm(folder, { recursive: true }));
  const original = await Original.read(path);
  totals.lines += original.dashes.length;

  await t.test('each note has the ledger lines that it needs', () => {
    assert.deepEqual(original.differences(), oddPlaces[original.name] ?? []);
  });
  await t.test('once all are hidden, no ledger line is left', async () => {
    const { result, pages } = await engravedAfter(HIDE, EVERYTHING, path, folder);
    assert.deepEqual(drawnDashes(pages), []);
    original.hidden = result;
  });
  await t.test('once all are shown again, the engraving is that of the original', async () => {
    const { pages } = await engravedAfter(SHOW, EVERYTHING, original.hidden, folder);
    assert.ok(pages.length > 0);
    assert.ok(pages.join() === original.pages.join(), 'the pages differ');
  });
  await t.test('a region hides the ledger lines that its notes alone need', async () => {
    const { region } = original;
    const left = original.dashesWithout((note) => note.hidden || region.has(note));
    totals.hiddenByRegions += original.dashes.length - left.length;
    assert.deepEqual(drawnDashes((await engravedAfter(HIDE, region.options, path, folder)).pages), left);
  });
  await t.test('where every other note is hidden, the lines that the notes between need are left', async () => {
    const xml = withEveryOtherHidden(original.xml);
    const hidden = new Set(countLedgerLines(xml).filter((note) => note.hidden).map(({ number }) => number));
    const left = original.dashesWithout(({ number }) => hidden.has(number));
    assert.deepEqual(drawnDashes(await engrave(xml, { hidden: 'omit' })), left);
  });
}

// Each score by itself; `lines` are those in all of them together.
export function holdToTruth(scores, { skip, lines }) {
  test('real engravings', { skip }, async (t) => {
    const totals = { lines: 0, hiddenByRegions: 0 };
    for (const path of scores) {
      await t.test(basename(path), (subtest) => holdScore(subtest, path, totals));
    }
    await t.test('there are ledger lines, and the regions hide some of them', () => {
      t.diagnostic(`${scores.length} scores, ${totals.lines} ledger lines, ${totals.hiddenByRegions} hidden by regions`);
      assert.equal(totals.lines, lines ?? totals.lines);
      assert.ok(totals.hiddenByRegions > 0 && totals.hiddenByRegions < totals.lines);
    });
  });
}
