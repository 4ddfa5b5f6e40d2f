// The command line, checked as far as that needs no score.

import { basename, extname } from 'node:path';
import { parseArgs } from 'node:util';

import { UsageError } from './errors.js';
import { parseRange } from './numberrange.js';
import { isNamedAsScore } from './scorefile.js';

const options = {
  output: { type: 'string', short: 'o' },
  'out-dir': { type: 'string' },
  before: { type: 'string' },
  measures: { type: 'string' },
  staves: { type: 'string' },
  ghost: { type: 'boolean' },
  svg: { type: 'boolean' },
  png: { type: 'boolean' },
  'no-marks': { type: 'boolean' },
  help: { type: 'boolean', short: 'h' },
  version: { type: 'boolean' },
};

export const optionNames = Object.keys(options);

const formats = ['html', 'svg', 'png'];

export function parseCommandLine(args) {
  const { values, positionals, tokens } = parseArgs({ args, options, strict: false, tokens: true });
  for (const token of tokens) if (token.kind === 'option') checkOption(token, tokens);
  if (values.help || values.version) return { help: values.help, version: values.version };
  if (positionals.length === 0) throw new UsageError('a score is missing; --help explains what brvhost-preview takes');
  checkTogether(values, positionals);
  return {
    scores: positionals,
    output: values.output ?? null,
    folder: values['out-dir'] ?? null,
    before: values.before ?? null,
    format: formatOf(values),
    measures: values.measures === undefined ? null : parseRange('--measures', values.measures),
    staves: values.staves === undefined ? null : parseRange('--staves', values.staves),
    ghosts: values.ghost ?? false,
    marks: !values['no-marks'],
  };
}

function checkOption({ name, rawName, value }, tokens) {
  const option = options[name];
  if (option === undefined) throw new UsageError(`there is no option ${rawName}; --help lists those that there are`);
  if (option.type === 'boolean' && value !== undefined) throw new UsageError(`${rawName}: takes no value`);
  if (option.type !== 'string') return;
  if (value === undefined || value === '') throw new UsageError(`${rawName}: needs a value`);
  const times = tokens.filter((token) => token.name === name).length;
  if (times > 1) throw new UsageError(`${rawName}: is given ${times} times; give it once`);
}

function checkTogether(values, scores) {
  const { output, before } = values;
  if (output !== undefined && values['out-dir'] !== undefined) {
    throw new UsageError('--output and --out-dir: one or the other, not both');
  }
  if (scores.length > 1 && values['out-dir'] === undefined) throw new UsageError('several scores need --out-dir');
  if (scores.length > 1 && before !== undefined) throw new UsageError('--before is for a single score');
  if (values['no-marks'] && before === undefined) throw new UsageError('--no-marks is for --before');
  if (output !== undefined && isNamedAsScore(output)) {
    throw new UsageError(`--output ${output}: has the name of a score; results end in .html, .svg or .png`);
  }
  if (output === '-') throw new UsageError('--output -: results are files, and not for the standard output');
}

// An ending names a format, too.
function formatOf({ svg, png, output }) {
  if (svg && png) throw new UsageError('--svg and --png: one or the other, not both');
  const ending = output === undefined ? '' : extname(basename(output)).slice(1).toLowerCase();
  const named = formats.includes(ending) ? ending : null;
  if (!svg && !png) return named ?? 'html';
  const asked = svg ? 'svg' : 'png';
  if (named !== null && named !== asked) throw new UsageError(`--${asked} and --output ${output}: are two formats`);
  return asked;
}
