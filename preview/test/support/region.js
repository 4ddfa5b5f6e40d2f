// A region of a score that follows from the score's name alone, so that each run has the same.
import { createHash } from 'node:crypto';

// A first and a last number of those from 1 to count.
function range(count, first, second) {
  const ends = [first, second].map((number) => 1 + (number % count));
  return [Math.min(...ends), Math.max(...ends)];
}

export class Region {
  constructor(name, staves, measures) {
    const numbers = createHash('sha256').update(name).digest();
    this.staves = range(staves, numbers.readUInt32BE(0), numbers.readUInt32BE(4));
    this.measures = range(measures, numbers.readUInt32BE(8), numbers.readUInt32BE(12));
  }

  // As brvhost takes it.
  get options() {
    return ['--staves', this.staves.join('-'), '--measures', this.measures.join('-')];
  }

  has({ staff, measure }) {
    const isIn = ([first, last], number) => first <= number && number <= last;
    return isIn(this.staves, staff) && isIn(this.measures, measure);
  }
}
