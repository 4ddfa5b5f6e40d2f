// Text from outside within a message: on one line, without anything that a terminal would obey.

const maxCharacters = 60;
const obeyed = /[\p{Cc}\p{Zl}\p{Zp}\u202a-\u202e\u2066-\u2069]/gu;

export function printable(text) {
  return text.replace(obeyed, ' ');
}

export function excerpt(text) {
  const characters = Array.from(printable(text.slice(0, 4 * maxCharacters)));
  const isWhole = characters.length <= maxCharacters && text.length <= 4 * maxCharacters;
  return isWhole ? characters.join('') : characters.slice(0, maxCharacters).join('') + '...';
}
