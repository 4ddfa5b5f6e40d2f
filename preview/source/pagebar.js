// The bar of the page: its title, what becomes of the ledger lines, the controls, and the keys that do the same.

import { escaped } from './escape.js';
import { changesOf, counted, summaryOf } from './summary.js';

// `places` are those that one can go to.
export function barOf(title, survey, places, { hasBefore, marks }) {
  const changed = `${changesOf(survey)}${places.length === 0 ? '' : ` in ${counted(places.length, 'place')}`}`;
  return [
    '<header class="bar">',
    `<h1>${escaped(title)}</h1>`,
    `<p class="summary">${hasBefore ? changed : summaryOf(survey)}</p>`,
    '<div class="controls">',
    ...(hasBefore ? versionControls(marks) : []),
    '<div role="group" aria-label="Zoom">',
    '<button type="button" data-action="smaller" aria-label="Smaller">−</button>',
    '<output aria-label="Zoom">100%</output>',
    '<button type="button" data-action="larger" aria-label="Larger">+</button>',
    '<button type="button" data-action="usual">Usual size</button>',
    '</div>',
    ...(places.length === 0 ? [] : stepControls(hasBefore ? 'difference' : 'place')),
    '</div>',
    helpOf(hasBefore, places.length > 0),
    '<p class="unseen" role="status"></p>',
    '</header>',
  ].join('\n');
}

function versionControls(marks) {
  return [
    '<div role="group" aria-label="Version">',
    '<button type="button" data-action="before" aria-pressed="false">Before</button>',
    '<button type="button" data-action="after" aria-pressed="true">After</button>',
    '<button type="button" data-action="both" aria-pressed="false">Both</button>',
    '</div>',
    '<div role="group" aria-label="Differences">',
    `<button type="button" data-action="marks" aria-pressed="${marks}">Marks</button>`,
    '</div>',
  ];
}

function stepControls(what) {
  return [
    '<div role="group" aria-label="Places">',
    `<button type="button" data-action="previous">Previous ${what}</button>`,
    `<button type="button" data-action="next">Next ${what}</button>`,
    '</div>',
  ];
}

function helpOf(hasBefore, hasPlaces) {
  const help = [
    ...(hasBefore
      ? [
          [['B'], 'before or after'],
          [['2'], 'both'],
          [['M'], 'marks'],
        ]
      : []),
    [['+', '−', '0'], 'larger, smaller, usual size'],
    ...(hasPlaces ? [[['N', 'P'], hasBefore ? 'next, previous difference' : 'next, previous place']] : []),
  ];
  const shown = help.map(([keys, text]) => `<span>${keys.map((key) => `<kbd>${key}</kbd>`).join(' ')} ${text}</span>`);
  return `<p class="help">${shown.join(' ')}</p>`;
}
