// Ranges of measures and staves, as the command line takes them: 3, 2-5, 2- or -5.

import { InputError, UsageError } from './errors.js';

const maxNumber = 2 ** 31 - 1;

// `last` is null where the range goes on to the end.
export function parseRange(option, text) {
  const parts = /^(\d*)(-?)(\d*)$/.exec(text);
  const [first, last] = parts === null ? [] : boundsOf(parts);
  if (!isNumber(first) || (last !== null && !isNumber(last))) {
    throw new UsageError(`${option} ${text}: is not a range such as 3, 2-5, 2- or -5`);
  }
  if (last !== null && last < first) throw new UsageError(`${option} ${text}: starts after its end`);
  return { first, last };
}

function boundsOf([, first, dash, last]) {
  if (dash === '') return [Number(first), Number(first)];
  if (first === '' && last === '') return [];
  return [first === '' ? 1 : Number(first), last === '' ? null : Number(last)];
}

function isNumber(number) {
  return number !== undefined && number >= 1 && number <= maxNumber;
}

// The first and the last of what a score has `count` of. Only the end may lie beyond.
export function rangeIn(count, range, what) {
  if (range === null) return { first: 1, last: count };
  if (range.first > count) {
    throw new InputError(`the passage starts at ${what} ${range.first}, but the score has only ${count}`);
  }
  return { first: range.first, last: Math.min(range.last ?? count, count) };
}

export function numbersIn({ first, last }) {
  return Array.from({ length: last - first + 1 }, (_, index) => first + index);
}
