// The names of the results, none of which is a score's or another result's.

import { mkdir, stat } from 'node:fs/promises';
import { dirname, extname, join } from 'node:path';

import { PreviewError, UsageError } from './errors.js';
import { nameOfScore } from './scorefile.js';
import { reasonOf } from './systemerror.js';

export class ResultNames {
  #options;
  #inputs;
  #taken = new Set();

  constructor(options) {
    this.#options = options;
    this.#inputs = options.before === null ? options.scores : [...options.scores, options.before];
    checkNames(options);
  }

  // Before any work: makes the folder of the results, or finds out that there is none.
  async prepare() {
    const { folder, output } = this.#options;
    if (folder !== null) await orFail(`--out-dir ${folder}`, makeFolder(folder));
    if (output !== null) await orFail(`${output}: cannot be written`, stat(dirname(output)));
  }

  // For a score with that many pictures, or one page of HTML.
  async take(score, count) {
    const paths = this.#numbered(this.#pathFor(score), count);
    for (const path of paths) await this.#check(path);
    for (const path of paths) this.#taken.add(path);
    return paths;
  }

  #pathFor(score) {
    const { output, folder, format } = this.#options;
    return output ?? join(folder ?? '.', `${nameOfScore(score)}.${format}`);
  }

  #numbered(path, count) {
    if (count === 1) return [path];
    const ending = extname(path);
    const stem = path.slice(0, path.length - ending.length);
    return Array.from({ length: count }, (_, index) => `${stem}-${index + 1}${ending}`);
  }

  async #check(path) {
    if (this.#taken.has(path)) throw new PreviewError(`${path}: another result has this name`);
    for (const input of this.#inputs) {
      if (await isSameFile(path, input)) throw new UsageError(`${path}: is ${input}, a score, which stays as it is`);
    }
  }
}

function checkNames({ scores }) {
  const byName = new Map();
  for (const score of scores) {
    const name = nameOfScore(score);
    const other = byName.get(name);
    if (other !== undefined) throw new UsageError(`${other} and ${score}: their results would have the same name`);
    byName.set(name, score);
  }
}

// Hard links are other names of one file, too.
async function isSameFile(path, input) {
  const [one, other] = await Promise.all([path, input].map((each) => stat(each).catch(() => null)));
  return one !== null && other !== null && one.dev === other.dev && one.ino === other.ino;
}

// With the folders that it is in. (The function of Node's that does the same never ends in some file systems.)
async function makeFolder(folder) {
  try {
    await mkdir(folder);
  } catch (error) {
    if (error.code === 'EEXIST' && (await stat(folder)).isDirectory()) return;
    if (error.code !== 'ENOENT' || dirname(folder) === folder) throw error;
    await makeFolder(dirname(folder));
    await mkdir(folder);
  }
}

async function orFail(what, promise) {
  try {
    await promise;
  } catch (error) {
    throw new PreviewError(`${what}: ${reasonOf(error)}`);
  }
}
