// Archives of members that are stored as they are.

export function zipOf(members) {
  const pieces = [];
  const directory = [];
  let offset = 0;
  for (const [name, content] of Object.entries(members)) {
    const bytes = Buffer.from(content);
    const head = headOf(name, bytes);
    pieces.push(Buffer.from('PK\x03\x04'), head, Buffer.from(name), bytes);
    directory.push(directoryEntryOf(name, head, offset));
    offset += 4 + head.length + Buffer.byteLength(name) + bytes.length;
  }
  const entries = Buffer.concat(directory);
  const end = Buffer.alloc(18);
  end.writeUInt16LE(directory.length, 4);
  end.writeUInt16LE(directory.length, 6);
  end.writeUInt32LE(entries.length, 8);
  end.writeUInt32LE(offset, 12);
  return Buffer.concat([...pieces, entries, Buffer.from('PK\x05\x06'), end]);
}

// What the head of a member and its entry in the directory have in common.
function headOf(name, bytes) {
  const head = Buffer.alloc(26);
  head.writeUInt16LE(20, 0);
  head.writeUInt16LE(1 << 11, 2);
  head.writeUInt32LE(checksumOf(bytes), 10);
  head.writeUInt32LE(bytes.length, 14);
  head.writeUInt32LE(bytes.length, 18);
  head.writeUInt16LE(Buffer.byteLength(name), 22);
  return head;
}

function directoryEntryOf(name, head, offset) {
  const rest = Buffer.alloc(14);
  rest.writeUInt32LE(offset, 10);
  return Buffer.concat([Buffer.from('PK\x01\x02\x14\x00'), head, rest, Buffer.from(name)]);
}

function checksumOf(bytes) {
  let sum = 0xffffffff;
  for (const byte of bytes) {
    sum ^= byte;
    for (let bit = 0; bit < 8; ++bit) sum = (sum >>> 1) ^ (sum & 1 ? 0xedb88320 : 0);
  }
  return (sum ^ 0xffffffff) >>> 0;
}
