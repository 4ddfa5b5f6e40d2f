import { noBrvhost } from './support/brvhost.js';
import { allScores, noScores, quartets } from './support/scorefiles.js';
import { holdToTruth } from './support/truth.js';

holdToTruth(quartets, { skip: noBrvhost || noScores, lines: allScores ? 64_016 : undefined });
