// Results take their names last: what was there before stays until all of them are written.

import { open, realpath, rename, rm, stat } from 'node:fs/promises';
import { rmSync } from 'node:fs';
import { basename, dirname, join } from 'node:path';

import { PreviewError } from './errors.js';
import { reasonOf } from './systemerror.js';

const signals = ['SIGHUP', 'SIGINT', 'SIGTERM'];

// `files` have a `path` and a `content`, text or bytes.
export async function writeFiles(files) {
  const unfinished = new Set();
  const stop = (signal) => {
    for (const path of unfinished) rmSync(path, { force: true });
    signals.forEach((each) => process.off(each, stop));
    process.kill(process.pid, signal);
  };
  signals.forEach((signal) => process.on(signal, stop));
  try {
    const written = [];
    for (const file of files) written.push(await writeBeside(file, unfinished));
    for (const { temporary, path, target } of written) {
      await orFail(path, rename(temporary, target));
      unfinished.delete(temporary);
    }
  } finally {
    signals.forEach((signal) => process.off(signal, stop));
    for (const path of unfinished) await rm(path, { force: true });
  }
}

async function writeBeside({ path, content }, unfinished) {
  const target = await targetOf(path);
  const temporary = join(dirname(target), `.${basename(target)}.${process.pid}.tmp`);
  const file = await orFail(path, open(temporary, 'wx'));
  unfinished.add(temporary);
  try {
    await orFail(path, file.writeFile(content));
    await orFail(path, file.sync());
  } finally {
    await file.close();
  }
  return { temporary, path, target };
}

// The file itself where the path leads to one by a symbolic link.
async function targetOf(path) {
  const status = await stat(path).catch(() => null);
  if (status === null) return path;
  if (status.isDirectory()) throw new PreviewError(`${path}: is a folder; --out-dir takes one`);
  if (!status.isFile()) throw new PreviewError(`${path}: is not a file`);
  return realpath(path);
}

async function orFail(path, promise) {
  try {
    return await promise;
  } catch (error) {
    throw new PreviewError(`${path}: cannot be written: ${reasonOf(error)}`);
  }
}
