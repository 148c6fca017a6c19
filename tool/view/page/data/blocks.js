// What the command has put into the page: a block of JSON, and a block of columns of numbers. PageColumns.h tells how
// these are written.

export async function readBlocks(page) {
  if (typeof DecompressionStream === 'undefined') throw new Error('this browser is too old for it');
  const tables = JSON.parse(page.getElementById('scene').textContent);
  const block = page.getElementById('columns');
  const bytes = await unpack(fromBase64(block.textContent));
  block.remove();
  return {tables, columns: readColumns(tables.columns, bytes)};
}

function fromBase64(text) {
  const piece = 1 << 20;
  const padding = text.endsWith('==') ? 2 : text.endsWith('=') ? 1 : 0;
  const bytes = new Uint8Array(text.length / 4 * 3 - padding);
  for (let from = 0, to = 0; from < text.length; from += piece) {
    const characters = atob(text.slice(from, from + piece));
    for (let i = 0; i < characters.length; ++i) bytes[to++] = characters.charCodeAt(i);
  }
  return bytes;
}

async function unpack(bytes) {
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

function readColumns(lengths, bytes) {
  const columns = {};
  let first = 0;
  for (const [name, length] of lengths) {
    columns[name] = readColumn(bytes, first, length);
    first += 4 * length;
  }
  return columns;
}

function readColumn(bytes, first, length) {
  const numbers = new Uint32Array(length);
  let number = 0;
  for (let i = 0, at = first; i < length; ++i, ++at) {
    const written =
        bytes[at] | bytes[at + length] << 8 | bytes[at + 2 * length] << 16 | bytes[at + 3 * length] << 24;
    number = number + (written >>> 1 ^ -(written & 1)) | 0;
    numbers[i] = number;
  }
  return numbers;
}
