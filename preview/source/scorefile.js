// Scores as files.

import { readFile, stat } from 'node:fs/promises';
import { basename } from 'node:path';

import { isArchive, readArchivedScore } from './archive.js';
import { decode } from './decode.js';
import { InputError, inFile } from './errors.js';
import { maxScoreSize } from './limits.js';
import { reasonOf } from './systemerror.js';

const ending = /(?<=.)\.(musicxml|xml|mxl)$/i;

// The name of the score, which is that of its file without the ending, and its XML as text.
export async function readScore(path) {
  return inFile(path, async () => {
    const bytes = await readBytes(path);
    if (bytes.length === 0) throw new InputError('the file is empty');
    return { name: nameOfScore(path), xml: decode(isArchive(bytes) ? await readArchivedScore(bytes) : bytes) };
  });
}

export function nameOfScore(path) {
  return basename(path).replace(ending, '');
}

export function isNamedAsScore(path) {
  return ending.test(basename(path));
}

async function readBytes(path) {
  try {
    const status = await stat(path);
    if (status.isDirectory()) throw new InputError('is a folder, not a score');
    if (!status.isFile() && !status.isFIFO()) throw new InputError('is a device, not a score');
    if (status.size > maxScoreSize) throw new InputError(`is larger than ${maxScoreSize} bytes`);
    return await readFile(path);
  } catch (error) {
    throw error instanceof InputError ? error : new InputError(reasonOf(error));
  }
}
