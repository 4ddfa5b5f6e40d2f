// How many ledger lines each note of a score needs, worked out from MusicXML alone: pitches, clefs, lines of the staff and
// octave shifts. It shares no code with the program, so that one can be held against the other.
import { diatonic, ledgerLines, lowestLine } from './clefs.js';
import { StaffChanges } from './staffchanges.js';
import { parseXml } from './xmltree.js';

const TREBLE_CLEF = lowestLine('G');
const OCTAVE_STEPS = { 8: 7, 15: 14, 22: 21 };

// Sums of thirds and fifths must come out as the same time again.
function sameTime(quarters) {
  return Math.round(quarters * 1e5) / 1e5;
}

// Lists of measures by part; timewise, a part of a measure is in the place of its measure.
function measuresByPart(root) {
  if (root.name === 'score-partwise') return root.childrenNamed('part').map((part) => part.childrenNamed('measure'));
  const parts = new Map();
  for (const part of root.childrenNamed('measure').flatMap((measure) => measure.childrenNamed('part'))) {
    parts.set(part.attributes.id, [...(parts.get(part.attributes.id) ?? []), part]);
  }
  return [...parts.values()];
}

// The numbers of notes in the document, whatever order they are read in.
function numberNotes(root) {
  const numbers = new Map();
  const visit = (element) => {
    if (element.name === 'note') numbers.set(element, numbers.size);
    else element.children.forEach(visit);
  };
  visit(root);
  return numbers;
}

// The diatonic number of the note as it is written, without octave shifts; null where no place on the staff is stated.
function writtenNote(note) {
  const pitch = note.child('pitch');
  if (pitch) return diatonic(pitch.text('step'), pitch.number('octave'));
  const unpitched = note.child('unpitched');
  if (!unpitched?.child('display-step')) return null;
  return diatonic(unpitched.text('display-step'), unpitched.number('display-octave'));
}

class Part {
  clefs = new StaffChanges(TREBLE_CLEF);
  lines = new StaffChanges(5);
  shifts = new StaffChanges(0);
  notes = [];
  staves = 1;
  #divisions = 1;
  #shiftsOpen = new Map();
  #measure = 0;
  #time = 0;
  #order = 0;
  #chord = null;

  constructor(numbers) {
    this.numbers = numbers;
  }

  read(measure) {
    this.#measure += 1;
    this.#time = 0;
    this.#chord = null;
    measure.children.forEach((element) => this.#readElement(element));
  }

  #readElement(element) {
    this.#order += 1;
    switch (element.name) {
      case 'attributes': return this.#readAttributes(element);
      case 'direction': return this.#readDirection(element);
      case 'forward': return this.#advance(element);
      case 'backup': return this.#advance(element, -1);
      case 'note': return this.#readNote(element);
      default: return undefined;
    }
  }

  #advance(element, sign = 1) {
    const quarters = (element.number('duration') ?? 0) / this.#divisions;
    this.#time = Math.max(sameTime(this.#time + sign * quarters), 0);
  }

  #moment() {
    return { measure: this.#measure, time: this.#time, order: this.#order };
  }

  #readAttributes(attributes) {
    this.#divisions = attributes.number('divisions') ?? this.#divisions;
    this.staves = Math.max(this.staves, attributes.number('staves') ?? 1);
    for (const clef of attributes.childrenNamed('clef')) {
      const lowest = lowestLine(clef.text('sign'), clef.number('line'), clef.number('clef-octave-change'));
      this.clefs.add(Number(clef.attributes.number ?? 1), this.#moment(), lowest);
    }
    for (const details of attributes.childrenNamed('staff-details')) {
      const lines = details.number('staff-lines');
      if (lines !== undefined) this.lines.add(Number(details.attributes.number ?? 1), this.#moment(), lines);
    }
  }

  // An offset only moves what is printed.
  #readDirection(direction) {
    const staff = direction.number('staff') ?? 1;
    for (const type of direction.childrenNamed('direction-type')) {
      for (const { attributes } of type.childrenNamed('octave-shift')) this.#readOctaveShift(staff, attributes);
    }
  }

  // Each change is by how many steps notes are written higher from there on: not a number where the size is none of
  // MusicXML's.
  #readOctaveShift(staff, { type, size, number = '1' }) {
    const moment = this.#moment();
    const key = `${staff} ${number}`;
    if (type === 'up' || type === 'down') {
      const steps = (OCTAVE_STEPS[size ?? 8] ?? NaN) * (type === 'down' ? -1 : 1);
      this.#shiftsOpen.set(key, steps);
      this.shifts.add(staff, moment, steps);
    }
    if (type === 'stop') {
      this.shifts.add(staff, moment, -(this.#shiftsOpen.get(key) ?? 0));
      this.#shiftsOpen.delete(key);
    }
  }

  #readNote(note) {
    const staff = note.number('staff') ?? 1;
    this.staves = Math.max(this.staves, staff);
    const inChord = note.child('chord') !== undefined && this.#chord !== null;
    if (!inChord) this.#chord = { ...this.#moment(), grace: note.child('grace') !== undefined };
    if (!note.child('rest')) this.#addNote(note, staff);
    if (!inChord) this.#advance(note);
  }

  #addNote(note, staff) {
    this.notes.push({
      number: this.numbers.get(note),
      staff,
      moment: this.#chord,
      written: writtenNote(note),
      visible: note.attributes['print-object'] !== 'no',
      hidden: note.attributes['print-leger'] === 'no',
    });
  }

  // What is known of a note once the whole part has been read: only then it is known what changes where.
  count(note, stavesBefore) {
    const { number, staff, moment, written, visible, hidden } = note;
    const lowest = this.clefs.at(staff, moment);
    const shift = this.shifts.upTo(staff, moment).reduce((sum, steps) => sum + steps, 0);
    const known = written !== null && lowest !== null && !Number.isNaN(shift);
    const lines = known ? ledgerLines(written + shift, lowest, this.lines.at(staff, moment)) : { above: 0, below: 0 };
    return { number, staff: stavesBefore + staff, measure: moment.measure, chord: moment, known, visible, hidden, ...lines };
  }
}

// For each <note> of the score, rests left out, in the order of the document:
//   number    its place among all <note> elements, from 0
//   staff     through all parts, from 1
//   measure   its order, from 1
//   chord     the same object for all notes of a chord
//   known     whether its place on the staff is known
//   visible   whether it is drawn
//   hidden    whether its ledger lines are hidden
//   above, below   the ledger lines that it needs
export function countLedgerLines(xml) {
  const root = parseXml(xml);
  const numbers = numberNotes(root);
  const counts = [];
  let staves = 0;
  for (const measures of measuresByPart(root)) {
    const part = new Part(numbers);
    measures.forEach((measure) => part.read(measure));
    counts.push(...part.notes.map((note) => part.count(note, staves)));
    staves += part.staves;
  }
  return counts.sort((a, b) => a.number - b.number);
}

// The number of ledger lines on each staff in each measure, by "staff:measure". Notes of a chord share theirs; those of
// chords that sound together are counted apart.
export function countByStaffAndMeasure(counts) {
  const chords = new Map();
  for (const { chord, staff, measure, above, below } of counts) {
    if (!chords.has(chord)) chords.set(chord, new Map());
    const byStaff = chords.get(chord);
    const before = byStaff.get(staff) ?? { above: 0, below: 0 };
    byStaff.set(staff, { measure, above: Math.max(above, before.above), below: Math.max(below, before.below) });
  }
  const totals = new Map();
  for (const byStaff of chords.values()) {
    for (const [staff, { measure, above, below }] of byStaff) {
      const key = `${staff}:${measure}`;
      totals.set(key, (totals.get(key) ?? 0) + above + below);
    }
  }
  return totals;
}
