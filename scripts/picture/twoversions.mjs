// Prints one SVG with the first two measures of two versions of a score, one above the other: side by side they would be
// too small where a README is shown.
//
//   node scripts/picture/twoversions.mjs BEFORE AFTER
import { engrave } from '../../preview/source/engraving.js';
import { readScore } from '../../preview/source/scorefile.js';

const CAPTIONS = ['As written', 'With the ledger lines of the right hand hidden'];
const PASSAGE = { first: 1, last: 2 };
const CAPTION_HEIGHT = 90;
const MARGIN = 80;
const SCALE = 0.5;

// A page of Verovio's: what is before the music (glyphs and style, which the music finds by the page's identifier), and
// the music.
function read(page) {
  const [, attributes, head, music] = page.match(/^<svg([^>]*)>(.*<\/style>)(.*)<\/svg>$/s);
  const attribute = (name) => attributes.match(new RegExp(`\\s${name}="([^"]*)"`))[1];
  const [, , width, height] = attribute('viewBox').split(' ').map(Number);
  // Names of notes and elements are for programs.
  return { id: attribute('id'), head, width, height, music: music.replace(/ data-[\w-]+="[^"]*"/g, '') };
}

async function pictureOf(path) {
  const { xml } = await readScore(path);
  const [page] = await engrave(xml, { measures: PASSAGE });
  return read(page);
}

const pictures = await Promise.all(process.argv.slice(2).map(pictureOf));
const [{ id, head, width, height }] = pictures;
if (pictures.some((picture) => picture.id !== id || picture.head !== head)) {
  throw new Error('the two versions are engraved with other glyphs');
}
const whole = { width: width + 2 * MARGIN, height: pictures.length * (height + CAPTION_HEIGHT) };
const top = (index) => index * (height + CAPTION_HEIGHT);
const caption = (text, index) => `<text x="${MARGIN}" y="${top(index) + MARGIN}">${text}</text>`;
const music = (picture, index) => `<svg x="${MARGIN}" y="${top(index) + CAPTION_HEIGHT}" width="${width}" height="${height}"`
  + ` viewBox="0 0 ${width} ${height}">${picture.music}</svg>`;
const inPixels = (length) => Math.round(length * SCALE);

process.stdout.write('<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" role="img"'
  + ` width="${inPixels(whole.width)}" height="${inPixels(whole.height)}" viewBox="0 0 ${whole.width} ${whole.height}">`
  + `<title>Two measures of piano music: ${CAPTIONS.join('; ')}</title>`
  + `<rect width="${whole.width}" height="${whole.height}" rx="${MARGIN / 4}" fill="white"/>`
  + `<g color="black" font-family="sans-serif" font-size="36">${CAPTIONS.map(caption).join('')}<g id="${id}">${head}`
  + `${pictures.map(music).join('')}</g></g></svg>\n`);
