// A document as a tree of elements, for what reads scores independently of the program.
import { SaxesParser } from 'saxes';

export class Element {
  constructor(name, attributes) {
    this.name = name;
    this.attributes = attributes;
    this.children = [];
    this.ownText = '';
  }

  child(name) {
    return this.children.find((child) => child.name === name);
  }

  childrenNamed(name) {
    return this.children.filter((child) => child.name === name);
  }

  // The text of a child, without blanks around it; undefined where there is no such child.
  text(name) {
    return this.child(name)?.ownText.trim();
  }

  number(name) {
    const text = this.text(name);
    return text === undefined ? undefined : Number(text);
  }
}

export function parseXml(xml) {
  const parser = new SaxesParser();
  const open = [new Element('', {})];
  parser.on('error', (error) => { throw error; });
  parser.on('opentag', ({ name, attributes }) => {
    const element = new Element(name, attributes);
    open.at(-1).children.push(element);
    open.push(element);
  });
  parser.on('closetag', () => open.pop());
  const addText = (text) => { open.at(-1).ownText += text; };
  parser.on('text', addText);
  parser.on('cdata', addText);
  parser.write(xml).close();
  return open[0].children[0];
}
