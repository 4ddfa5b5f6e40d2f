// Pictures as PNG, made by rsvg-convert.

import { spawn } from 'node:child_process';

import { PreviewError } from './errors.js';
import { excerpt } from './printable.js';

const program = 'rsvg-convert';
const dotsPerInch = 200;

// Throws where it is not installed.
export async function checkRasteriser() {
  await outputOf(['--version'], '');
}

export function pngOf(svg) {
  return outputOf(['--format=png', `--dpi-x=${dotsPerInch}`, `--dpi-y=${dotsPerInch}`], svg);
}

function outputOf(args, input) {
  const child = spawn(program, args, { stdio: 'pipe' });
  return new Promise((resolve, reject) => {
    const output = [];
    const messages = [];
    child.stdout.on('data', (piece) => output.push(piece));
    child.stderr.on('data', (piece) => messages.push(piece));
    // What it does not read to the end shows in its status.
    child.stdin.on('error', () => {});
    child.on('error', (error) => reject(notStarted(error)));
    child.on('close', (status) => {
      if (status === 0) return resolve(Buffer.concat(output));
      reject(new PreviewError(`${program} fails: ${excerpt(Buffer.concat(messages).toString().trim())}`));
    });
    child.stdin.end(input);
  });
}

function notStarted(error) {
  if (error.code !== 'ENOENT') return new PreviewError(`${program} cannot be started: ${error.message}`);
  return new PreviewError(`--png needs the program ${program}, which Debian has in the package librsvg2-bin`);
}
