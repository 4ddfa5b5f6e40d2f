const references = { '&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;', "'": '&#39;' };

// Text as it is written in HTML and SVG, within elements and within quoted attributes.
export function escaped(text) {
  return text.replace(/[&<>"']/g, (character) => references[character]);
}
