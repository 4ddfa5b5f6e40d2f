// Where links into an engraving lead: the staves in measures.

const start =
  /<g data-id="(?<id>[^"]*)" data-class="(?<kind>measure|staff)" class="[^"]*"(?: data-n="(?<number>[^"]*)")?>/g;

export function anchorOf({ staff, measure }) {
  return `staff-${staff}-measure-${measure}`;
}

// The pages with an `id` at each of these places. `measures` are those of the score, with the identifiers of the pages.
export function withAnchors(pages, measures, places) {
  const order = new Map(measures.map(({ id }, index) => [id, index + 1]));
  const wanted = new Set(places.map(anchorOf));
  let measure = null;
  const identified = (found, ...matched) => {
    const { id, kind, number } = matched.at(-1);
    if (kind === 'measure') measure = order.get(id);
    const anchor = anchorOf({ staff: Number(number), measure });
    return wanted.has(anchor) ? found.replace('<g ', `<g id="${anchor}" `) : found;
  };
  return pages.map((page) => page.replace(start, identified));
}
