// What changes in the course of a staff: a list of values, each from a moment on.
//
// A moment is { measure, time, order }: the measure's order, quarter notes from its barline, and where in the document.

function isBefore(change, { measure, time, order, grace }) {
  if (change.measure !== measure) return change.measure < measure;
  if (change.time !== time) return change.time < time;
  // At the same time only the document tells on which side of a change a grace note is.
  return !grace || change.order < order;
}

export class StaffChanges {
  #byStaff = new Map();

  constructor(initial) {
    this.initial = initial;
  }

  add(staff, moment, value) {
    if (!this.#byStaff.has(staff)) this.#byStaff.set(staff, []);
    const changes = this.#byStaff.get(staff);
    changes.push({ ...moment, value });
    changes.sort((a, b) => a.measure - b.measure || a.time - b.time || a.order - b.order);
  }

  // The value that holds for a note at this moment.
  at(staff, moment) {
    const values = this.upTo(staff, moment);
    return values.length > 0 ? values.at(-1) : this.initial;
  }

  // All values from the start to a note at this moment.
  upTo(staff, moment) {
    return (this.#byStaff.get(staff) ?? []).filter((change) => isBefore(change, moment)).map(({ value }) => value);
  }
}
