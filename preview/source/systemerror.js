// What the system has to say about a file, as other programs put it.
export function reasonOf(error) {
  const text = /^[A-Z0-9]+: (.*?)(, \w+( '.*)?)?$/s.exec(error.message)?.[1] ?? error.message;
  return text.charAt(0).toUpperCase() + text.slice(1);
}
