// What the user is told in one sentence, and the exit status that goes with it.

export const exitStatus = { done: 0, failed: 1, badInput: 2 };

export class PreviewError extends Error {
  constructor(message, status = exitStatus.failed) {
    super(message);
    this.status = status;
  }
}

// The command line asks for something that is not there.
export class UsageError extends PreviewError {
  constructor(message) {
    super(message, exitStatus.badInput);
  }
}

// A score cannot be used. `place` has a line and a column, from 1, where they are known.
export class InputError extends PreviewError {
  constructor(reason, place = null, file = null) {
    super(located(file, place, reason), exitStatus.badInput);
    this.reason = reason;
    this.place = place;
    this.file = file;
  }
}

function located(file, place, reason) {
  const where = [];
  if (file !== null) where.push(file);
  if (place !== null) where.push(place.line, place.column);
  return where.length === 0 ? reason : `${where.join(':')}: ${reason}`;
}

// Whatever the work finds wrong with a score is reported with the name of the file, before that of a member of it.
export async function inFile(file, work) {
  try {
    return await work();
  } catch (error) {
    if (!(error instanceof InputError)) throw error;
    throw error.file === null
      ? new InputError(error.reason, error.place, file)
      : new InputError(error.message, null, file);
  }
}
