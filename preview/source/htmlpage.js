// One page of HTML with all pages of an engraving. It stands by itself.

import { createHash } from 'node:crypto';
import { readFile } from 'node:fs/promises';

import { anchorOf, withAnchors } from './anchors.js';
import { escaped } from './escape.js';
import { described, mapOf, placeName } from './map.js';
import { barOf } from './pagebar.js';
import { measureNames, staffNames } from './staffnames.js';
import { counted } from './summary.js';
import { sizeOf, withIdSuffix } from './svgroot.js';

const folder = new URL('../page/', import.meta.url);

// `pages` have the lines of both versions where `hasBefore` is true; `survey` is of them, `structure` of the score, and
// `shown` has the measures and staves that are engraved. `ghosts` and `marks` are what the page shows to begin with.
export async function htmlPage({ title, pages, survey, structure, shown, hasBefore, ghosts, marks }) {
  const style = await readFile(new URL('page.css', folder), 'utf8');
  const script = await readFile(new URL('page.js', folder), 'utf8');
  const names = { staves: staffNames(structure), measures: measureNames(structure) };
  const places = hasBefore ? survey.places.filter(differs) : survey.places;
  const classes = [ghosts ? 'ghosts' : '', marks ? '' : 'without-marks'].filter(Boolean).join(' ');
  return [
    '<!DOCTYPE html>',
    `<html lang="en" class="${classes}">`,
    '<head>',
    '<meta charset="utf-8">',
    `<meta http-equiv="Content-Security-Policy" content="${policyFor(script)}">`,
    '<meta name="viewport" content="width=device-width, initial-scale=1">',
    `<title>${escaped(title)}: ledger lines${hasBefore ? ' before and after' : ''}</title>`,
    `<style>\n${style}</style>`,
    '</head>',
    '<body>',
    barOf(title, survey, places, { hasBefore, marks }),
    overviewOf(survey, names, shown, hasBefore),
    '<div class="body">',
    listOf(places, names, hasBefore),
    '<main class="score" aria-label="Score" tabindex="0">',
    ...withAnchors(pages, structure.measures, survey.places).map(sheetOf),
    '</main>',
    '</div>',
    `<p class="printed" data-title="${escaped(title)}">${escaped(title)}${hasBefore ? ': after' : ''}</p>`,
    `<script>${script}</script>`,
    '</body>',
    '</html>',
    '',
  ].join('\n');
}

// Nothing is fetched, and no script runs but the page's own, whatever is in a score.
function policyFor(script) {
  const hash = createHash('sha256').update(script).digest('base64');
  return `default-src 'none'; style-src 'unsafe-inline'; font-src data:; script-src 'sha256-${hash}'`;
}

function differs({ gone, come }) {
  return gone + come > 0;
}

function overviewOf(survey, names, shown, hasBefore) {
  if (survey.places.length === 0) return '';
  return [
    '<section class="map" aria-labelledby="map">',
    `<h2 id="map">Where ledger lines ${hasBefore ? 'differ' : 'are hidden'}</h2>`,
    mapOf(survey.places, names, shown, hasBefore),
    '</section>',
  ].join('\n');
}

function listOf(places, names, hasBefore) {
  if (places.length === 0) return '';
  const items = places.map((place) => {
    const name = escaped(placeName(place, names));
    return `<li><a href="#${anchorOf(place)}">${name}</a> <span>${described([place], hasBefore)}</span></li>`;
  });
  return [
    '<nav class="list" aria-labelledby="list">',
    `<h2 id="list">${counted(places.length, hasBefore ? 'difference' : 'place')}</h2>`,
    '<ol>',
    ...items,
    '</ol>',
    '</nav>',
  ].join('\n');
}

function sheetOf(page, index) {
  const { width, height } = sizeOf(page);
  return [
    `<div class="sheet${width > height ? ' wide' : ''}" style="--units: ${width}">`,
    '<figure class="version" data-version="after">',
    '<figcaption>After</figcaption>',
    withIdSuffix(page, `-${index + 1}`),
    '</figure>',
    '</div>',
  ].join('\n');
}
