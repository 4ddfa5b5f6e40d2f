// Where notes lie on a staff: clefs, and the number of ledger lines that a place above or below the staff needs.

const STEPS = ['C', 'D', 'E', 'F', 'G', 'A', 'B'];
const OCTAVE = STEPS.length;

export function diatonic(step, octave) {
  return STEPS.indexOf(step) + OCTAVE * octave;
}

// The note that stands on the line which a clef names, and that line where none is stated.
const SIGNS = {
  G: { note: diatonic('G', 4), line: 2 },
  F: { note: diatonic('F', 3), line: 4 },
  C: { note: diatonic('C', 4), line: 3 },
};

// The diatonic number of the note on the lowest line; null where the sign does not tell, as that of tablature.
export function lowestLine(sign, line, octaveChange) {
  if (sign === 'percussion') return diatonic('E', 4);  // notes without pitch are written as in a treble clef
  const known = SIGNS[sign];
  if (!known) return null;
  return known.note - 2 * ((line ?? known.line) - 1) + OCTAVE * (octaveChange ?? 0);
}

// The ledger lines above and below a staff of so many lines that a note needs.
export function ledgerLines(note, lowest, lines) {
  const place = note - lowest;  // in steps from the lowest line
  const highest = 2 * (lines - 1);
  return { above: Math.max(Math.floor((place - highest) / 2), 0), below: Math.max(Math.floor(-place / 2), 0) };
}
