// The scores that tests run on: the samples, and real ones where the folder of these is.
import { existsSync, readdirSync } from 'node:fs';
import { basename, join } from 'node:path';
import { fileURLToPath } from 'node:url';

const source = fileURLToPath(new URL('../../..', import.meta.url));
const shared = process.env.BRV_SHARED_DIR ?? join(source, '..', 'shared');

// All of them take minutes.
export const allScores = process.env.BRV_ALL_SCORES === '1';

function scoresIn(folder) {
  return existsSync(folder) ? readdirSync(folder).sort().map((name) => join(folder, name)) : [];
}

// Without all of them, every fifth of the small scores, and the two smallest quartets.
const selectedQuartets = ['sq7082029.mxl', 'sq8438840.mxl'];

export const samples = scoresIn(join(source, 'samples'));
export const smallScores = scoresIn(join(shared, 'scores', 'conformance')).filter((_, index) => allScores || index % 5 === 0);
export const quartets = scoresIn(join(shared, 'scores', 'quartets'))
  .filter((path) => allScores || selectedQuartets.includes(basename(path)));

// For the option skip of tests: why there is nothing to run on, or false.
export const noScores = smallScores.length > 0 && quartets.length > 0 ? false : `no scores in ${shared}`;
