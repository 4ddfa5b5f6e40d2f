// One score, from its file to the results.

import { hiddenNotesBefore } from './comparison.js';
import { engraveAll, hiddenIn } from './engraving.js';
import { inFile } from './errors.js';
import { htmlPage } from './htmlpage.js';
import { writeFiles } from './output.js';
import { pngOf } from './png.js';
import { readScore } from './scorefile.js';
import { changesOf, counted, summaryOf } from './summary.js';
import { surveyOf } from './survey.js';
import { svgFile, svgFileOfTwo } from './svgfile.js';
import { bothVersions, versionAfter, versionBefore } from './versions.js';

// Writes the results, and returns what there is to report: what was written, and warnings.
export async function preview(path, options, names) {
  const score = { path, ...(await readScore(path)) };
  const before = options.before === null ? null : { path: options.before, ...(await readScore(options.before)) };
  const hiddenBefore = before === null ? null : await hiddenNotesBefore(before, score);
  const engraving = await inFile(path, () => engraveAll(score.xml, options));
  const lines = linesOf(engraving.structure.notes, hiddenBefore, options);
  const survey = surveyOf(engraving.pages, engraving.structure.notes, lines.isHidden, lines.wasHidden);
  const contents =
    options.format === 'html'
      ? [await htmlOf(score.name, engraving, survey, lines)]
      : await picturesOf(engraving.pages, lines, options.format);
  const paths = await names.take(path, contents.length);
  await writeFiles(contents.map((content, index) => ({ path: paths[index], content })));
  return { line: reportOf(path, paths, survey, before), warnings: warningsOf(path, engraving.shown) };
}

function linesOf(notes, hiddenBefore, { ghosts, marks }) {
  const wasHidden =
    hiddenBefore === null ? null : hiddenIn(notes.map((note, index) => ({ ...note, hidden: hiddenBefore[index] })));
  return { isHidden: hiddenIn(notes), wasHidden, ghosts, marks };
}

function htmlOf(name, { structure, pages, shown }, survey, lines) {
  return htmlPage({
    title: structure.title || name,
    pages: pages.map((page) => bothVersions(page, lines)),
    survey,
    structure,
    shown,
    hasBefore: lines.wasHidden !== null,
    ghosts: lines.ghosts,
    marks: lines.marks,
  });
}

async function picturesOf(pages, lines, format) {
  const pictures = pages.map((page) => pictureOf(page, lines));
  if (format === 'svg') return pictures;
  const rasterised = [];
  for (const picture of pictures) rasterised.push(await pngOf(picture));
  return rasterised;
}

function pictureOf(page, lines) {
  if (lines.wasHidden === null) return svgFile(versionAfter(page, lines));
  return svgFileOfTwo(versionBefore(page, lines), versionAfter(page, lines));
}

function reportOf(path, paths, survey, before) {
  const found = before === null ? summaryOf(survey) : `${changesOf(survey)} since ${before.path}`;
  const written = paths.length === 1 ? paths[0] : `${paths[0]} and ${counted(paths.length - 1, 'further page')}`;
  return `${path}: ${found}, written to ${written}`;
}

function warningsOf(path, { otherStaves }) {
  if (otherStaves.length === 0) return [];
  const staves = otherStaves.length === 1 ? `staff ${otherStaves[0]} is` : `staves ${otherStaves.join(', ')} are`;
  return [`${path}: ${staves} shown, too, because a voice crosses to or from the chosen staves`];
}
