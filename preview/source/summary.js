// What becomes of ledger lines, in words.

export function counted(count, one, several = `${one}s`) {
  return `${count} ${count === 1 ? one : several}`;
}

// Of one version: "95 ledger lines, 12 of them hidden".
export function summaryOf({ lines, hidden }) {
  if (lines === 0) return 'no ledger lines';
  const all = counted(lines, 'ledger line');
  if (hidden === 0) return `${all}, none of them hidden`;
  return hidden === lines ? `${all}, all of them hidden` : `${all}, ${hidden} of them hidden`;
}

// Of two: "12 ledger lines hidden, 3 ledger lines shown again".
export function changesOf({ gone, come }) {
  const parts = [];
  if (gone > 0) parts.push(`${counted(gone, 'ledger line')} hidden`);
  if (come > 0) parts.push(`${counted(come, 'ledger line')} shown again`);
  return parts.length === 0 ? 'no ledger line differs' : parts.join(', ');
}
