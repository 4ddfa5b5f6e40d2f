// Runs the brvhost and the extension that the environment names.
import { execFile } from 'node:child_process';
import { promisify } from 'node:util';

const { BRVHOST, BRV_BUNDLE } = process.env;

export const HIDE = 'hide';
export const SHOW = 'show';
export const EVERYTHING = ['--all'];

// For the option skip of tests: why there is nothing to run, or false.
export const noBrvhost = BRVHOST && BRV_BUNDLE ? false : 'BRVHOST and BRV_BUNDLE name no brvhost and no extension';

export async function runItem(item, region, score, target) {
  const env = { ...process.env, LC_ALL: 'C.UTF-8', LANGUAGE: 'en' };
  await promisify(execFile)(BRVHOST, ['run', BRV_BUNDLE, '--item', item, ...region, score, '-o', target], { env });
}
