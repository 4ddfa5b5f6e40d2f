// Prints one SVG with the first two measures of two versions of a score, one above the other: side by side they would be
// too small where a README is shown.
//
//   node scripts/picture/twoversions.mjs BEFORE AFTER
import { engrave } from '../../preview/source/engraving.js';
import { readScore } from '../../preview/source/scorefile.js';

const CAPTIONS = ['As written', 'With the ledger lines of the right hand hidden'];
const ID = 'music';  // that of a page is made from whatever the engraver has counted before
const PASSAGE = { first: 1, last: 2 };
const CAPTION_HEIGHT = 90;
const MARGIN = 80;
const SCALE = 0.5;

// A page of Verovio's: what is before the music (glyphs and style, which the music finds by the page's identifier), and
// the music.
function read(page) {
  const [, id] = page.match(/^<svg[^>]*\sid="([^"]*)"/);
  const [, attributes, head, music] = page.replaceAll(id, ID).match(/^<svg([^>]*)>(.*<\/style>)(.*)<\/svg>$/s);
  const [width, height] = attributes.match(/\sviewBox="0 0 (\d+) (\d+)"/).slice(1).map(Number);
  // Names of notes and elements are for programs.
  return { head, width, height, music: music.replace(/ data-[\w-]+="[^"]*"/g, '') };
}

async function pictureOf(path) {
  const { xml } = await readScore(path);
  const [page] = await engrave(xml, { measures: PASSAGE });
  return read(page);
}

const pictures = await Promise.all(process.argv.slice(2).map(pictureOf));
const [{ head, width, height }] = pictures;
if (pictures.some((picture) => picture.head !== head)) {
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
  + `<g color="black" font-family="sans-serif" font-size="36">${CAPTIONS.map(caption).join('')}<g id="${ID}">${head}`
  + `${pictures.map(music).join('')}</g></g></svg>\n`);
