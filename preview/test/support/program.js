// The program as a process.

import { spawn, spawnSync } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

export const program = fileURLToPath(new URL('../../bin/brvhost-preview.js', import.meta.url));

// A folder that is removed after the test, with these files in it.
export function folderFor(context, files = {}) {
  const folder = mkdtempSync(join(tmpdir(), 'preview-test-'));
  context.after(() => rmSync(folder, { recursive: true, force: true }));
  for (const [name, content] of Object.entries(files)) writeFileSync(join(folder, name), content);
  return folder;
}

// What the program prints, and the status or signal that it ends with, in a folder.
export function run(folder, args, { env = process.env } = {}) {
  const options = { cwd: folder, env, encoding: 'utf8', maxBuffer: 1 << 28 };
  const { status, signal, stdout, stderr } = spawnSync(process.execPath, [program, ...args], options);
  return { status, signal, stdout, stderr };
}

export function start(folder, args) {
  return spawn(process.execPath, [program, ...args], { cwd: folder, stdio: 'ignore' });
}

// As run, with the program as the arguments of a script.
export function inShell(folder, script, args) {
  const { status, stdout, stderr } = spawnSync('sh', ['-c', script, 'sh', process.execPath, program, ...args], {
    cwd: folder,
    encoding: 'utf8',
  });
  return { status, stdout, stderr };
}
