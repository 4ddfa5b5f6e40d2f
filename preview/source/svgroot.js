// The root element of a page of Verovio's.

// The width and height of the page, in tenths of a millimetre.
export function sizeOf(page) {
  const [, width, height] = /^<svg viewBox="0 0 (\d+) (\d+)"/.exec(page);
  return { width: Number(width), height: Number(height) };
}

// The page with other identifiers, so that it can be in one document with others: all of them end with that of the
// root.
export function withIdSuffix(page, suffix) {
  const [, id] = /^<svg [^>]*\bid="([^"]*)"/.exec(page);
  return page.replaceAll(id, id + suffix);
}
