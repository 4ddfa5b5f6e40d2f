import { noBrvhost } from './support/brvhost.js';
import { allScores, noScores, smallScores } from './support/scorefiles.js';
import { holdToTruth } from './support/truth.js';

holdToTruth(smallScores, { skip: noBrvhost || noScores, lines: allScores ? 748 : undefined });
