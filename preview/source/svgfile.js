// Pages as SVG files, which stand by themselves.

import { sizeOf, withIdSuffix } from './svgroot.js';

const style = '<style>.ghost {color: #b8b2a8;} .mark {color: #ffd58a; fill: currentColor;}</style>';

// In the units of a page.
const millimetre = 10;
const captionSize = 40;
const captionBase = 60;
const captionHeight = 80;
const gap = 60;

export function svgFile(page) {
  const size = sizeOf(page);
  return fileOf(size, nested(page, size, { x: 0, y: 0 }));
}

// Both versions of a page under captions: one above the other where a page is wider than high, else side by side.
export function svgFileOfTwo(before, after) {
  const size = sizeOf(after);
  const panel = { width: size.width, height: captionHeight + size.height };
  const isWide = size.width > size.height;
  const second = isWide ? { x: 0, y: panel.height + gap } : { x: panel.width + gap, y: 0 };
  const whole = { width: second.x + panel.width, height: second.y + panel.height };
  const panels =
    captioned('Before', before, size, { x: 0, y: 0 }) + captioned('After', withIdSuffix(after, '-after'), size, second);
  return fileOf(whole, panels);
}

function captioned(caption, page, size, { x, y }) {
  const place = `x="${x + captionSize}" y="${y + captionBase}"`;
  const text = `<text ${place} font-family="sans-serif" font-size="${captionSize}">${caption}</text>`;
  return text + nested(page, size, { x, y: y + captionHeight });
}

function nested(page, { width, height }, { x, y }) {
  return page.replace('<svg ', `<svg x="${x}" y="${y}" width="${width}" height="${height}" `);
}

function fileOf({ width, height }, content) {
  const size = `width="${width / millimetre}mm" height="${height / millimetre}mm" viewBox="0 0 ${width} ${height}"`;
  const root = `<svg xmlns="http://www.w3.org/2000/svg" ${size}>`;
  const ground = `<rect width="${width}" height="${height}" fill="#ffffff"/>`;
  return `<?xml version="1.0" encoding="UTF-8"?>
${root}${style}${ground}${content}</svg>
`;
}
