// The ledger lines in engraved pages, as they are drawn.

// For each line, in the order of the pages, the identifiers of the notes that it belongs to.
export function drawnDashes(pages) {
  return pages.flatMap((page) => {
    const tags = [...page.matchAll(/<g\b[^>]*\sclass="lineDash\b[^>]*>/g)].map(([tag]) => tag);
    return tags.map((tag) => tag.match(/\sdata-related="([^"]*)"/)[1].trim().split(/\s+/).map((name) => name.slice(1)));
  });
}

// How many lines each note has, by its identifier.
export function linesByNote(dashes) {
  const lines = new Map();
  for (const id of dashes.flat()) lines.set(id, (lines.get(id) ?? 0) + 1);
  return lines;
}
