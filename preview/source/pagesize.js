// The width and height of a page of Verovio's, in tenths of a millimetre.
export function sizeOf(page) {
  const [, width, height] = /^<svg viewBox="0 0 (\d+) (\d+)"/.exec(page);
  return { width: Number(width), height: Number(height) };
}
