// Staves and measures in words.

// The name of a staff: that of its part, with the number of the staff where the part has several, or no name, or one
// that another part has too. These are the numbers that --staves takes.
export function staffNames({ parts }) {
  const names = [];
  for (const part of parts) {
    const isUnique = parts.filter((other) => other.name === part.name).length === 1;
    for (let staff = part.firstStaff; staff < part.firstStaff + part.staves; ++staff) {
      names.push(nameOf(part, staff, isUnique));
    }
  }
  return names;
}

function nameOf(part, staff, isUnique) {
  if (part.name === '') return `Staff ${staff}`;
  return isUnique && part.staves === 1 ? part.name : `${part.name}, staff ${staff}`;
}

// The names of measures: their printed numbers, with their order where that is another, as in --measures.
export function measureNames({ measures }) {
  return measures.map(({ number }, index) => {
    const order = index + 1;
    if (number === String(order)) return `measure ${number}`;
    return number === '' ? `measure ${order} in order` : `measure ${number} (${order} in order)`;
  });
}
