// The checksum of archives (CRC-32).

const table = Uint32Array.from({ length: 256 }, (_, byte) => {
  let sum = byte;
  for (let bit = 0; bit < 8; ++bit) sum = sum & 1 ? (sum >>> 1) ^ 0xedb88320 : sum >>> 1;
  return sum;
});

export function checksumOf(bytes) {
  let sum = 0xffffffff;
  for (const byte of bytes) sum = table[(sum ^ byte) & 0xff] ^ (sum >>> 8);
  return (sum ^ 0xffffffff) >>> 0;
}
