// Verovio, which engraves the music. It keeps one score at a time.

import { VerovioToolkit, enableLogToBuffer } from 'verovio/esm';
import createModule from 'verovio/wasm';

import { InputError } from './errors.js';
import { excerpt } from './printable.js';

const alwaysOptions = {
  adjustPageHeight: true,
  breaks: 'auto',
  footer: 'none',
  // Where not even one system has room on a page.
  shrinkToFit: true,
  svgAdditionalAttribute: ['staff@n'],
  // Each ledger dash then names the notes that it belongs to.
  svgHtml5: true,
  svgFormatRaw: true,
  svgViewBox: true,
};

// The same score has the same identifiers every time, and so the same picture.
const seed = 1;

let toolkit = null;

// What `work` makes of the toolkit, once it has read this MusicXML or MEI.
export async function withVerovio(work) {
  try {
    toolkit ??= await newToolkit();
    toolkit.resetOptions();
    toolkit.setOptions({ ...alwaysOptions, xmlIdSeed: seed });
    return work(toolkit);
  } catch (error) {
    if (!isCrash(error)) throw error;
    toolkit = null;
    throw new InputError(crashReason(error));
  }
}

export function load(loading, document) {
  if (loading.loadData(document)) return;
  const [reason = ''] = loading.getLog().split('\n');
  throw new InputError(`Verovio cannot read this score: ${excerpt(reason.replace(/^\[\w+\] /, ''))}`);
}

async function newToolkit() {
  const module = await createModule();
  enableLogToBuffer(true, module);
  return new VerovioToolkit(module);
}

function isCrash(error) {
  return error instanceof WebAssembly.RuntimeError || error instanceof RangeError || typeof error === 'number';
}

function crashReason(error) {
  if (error instanceof RangeError) return 'Verovio runs out of memory or stack with this score';
  return `Verovio crashes with this score: ${excerpt(String(error.message ?? error))}`;
}
