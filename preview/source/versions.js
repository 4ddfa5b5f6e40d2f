// Pages with the ledger lines of one version of a score, or of two.

import { withLedgerLines } from './dashes.js';
import { stateOf } from './survey.js';

// Further classes of lines: "ghost" for hidden ones that are drawn all the same; in a page of both versions, "gone" for
// those that only the one before has, and "come" for those that only the one after has. A "mark" is under those that
// differ. `lines` has `isHidden` and `wasHidden`, as for stateOf, and `ghosts` and `marks`, whether these are wanted.

export function versionBefore(page, lines) {
  return drawn(page, lines, ({ isHidden, hasGone, hasCome }) => hasGone || !(isHidden || hasCome));
}

export function versionAfter(page, lines) {
  return drawn(page, lines, ({ isHidden }) => !isHidden);
}

// For a page of HTML, which shows either.
export function bothVersions(page, { isHidden, wasHidden, ghosts }) {
  return withLedgerLines(page, (ids) => {
    const state = stateOf(ids, isHidden, wasHidden);
    if (state.hasGone) return { line: 'gone', mark: 'mark' };
    if (state.hasCome) return { line: 'come', mark: 'mark' };
    return { line: state.isHidden ? hiddenLine(ghosts) : '', mark: null };
  });
}

function drawn(page, { isHidden, wasHidden, ghosts, marks }, isShown) {
  return withLedgerLines(page, (ids) => {
    const state = stateOf(ids, isHidden, wasHidden);
    const isMarked = marks && (state.hasGone || state.hasCome);
    return { line: isShown(state) ? '' : hiddenLine(ghosts), mark: isMarked ? 'mark' : null };
  });
}

function hiddenLine(ghosts) {
  return ghosts ? 'ghost' : null;
}
