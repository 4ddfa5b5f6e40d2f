// The program: what it prints, and what it ends with.

import { readFile } from 'node:fs/promises';

import { parseCommandLine } from './commandline.js';
import { exitStatus, PreviewError } from './errors.js';
import { help } from './help.js';
import { checkRasteriser } from './png.js';
import { preview } from './preview.js';
import { printable } from './printable.js';
import { ResultNames } from './resultnames.js';
import { reasonOf } from './systemerror.js';

// Returns the exit status.
export async function main(args) {
  process.stdout.on('error', (error) => {
    warn(`the standard output cannot be written: ${reasonOf(error)}`);
    process.exit(exitStatus.failed);
  });
  try {
    return await perform(parseCommandLine(args));
  } catch (error) {
    return explained(error);
  }
}

async function perform(options) {
  if (options.help) return print(help);
  if (options.version) return print(await versionText());
  const names = new ResultNames(options);
  await names.prepare();
  if (options.format === 'png') await checkRasteriser();
  let status = exitStatus.done;
  for (const score of options.scores) {
    const ofScore = await performOne(score, options, names);
    status = Math.max(status, ofScore);
  }
  return status;
}

// One score that cannot be used does not keep the others from being engraved.
async function performOne(score, options, names) {
  try {
    const { line, warnings } = await preview(score, options, names);
    warnings.forEach(warn);
    return print(`${printable(line)}\n`);
  } catch (error) {
    return explained(error);
  }
}

function explained(error) {
  if (!(error instanceof PreviewError)) throw error;
  warn(error.message);
  return error.status;
}

function warn(message) {
  process.stderr.write(`brvhost-preview: ${printable(message)}\n`);
}

function print(text) {
  process.stdout.write(text);
  return exitStatus.done;
}

async function versionText() {
  const [{ version }, verovio] = await Promise.all(
    ['../package.json', '../node_modules/verovio/package.json'].map(packageAt),
  );
  return `brvhost-preview ${version}, with Verovio ${verovio.version}\n`;
}

async function packageAt(path) {
  return JSON.parse(await readFile(new URL(path, import.meta.url), 'utf8'));
}
