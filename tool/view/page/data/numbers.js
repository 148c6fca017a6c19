/** The floating-point numbers whose bits a column holds. */
export function floatsOf(column) {
  return new Float32Array(column.buffer, column.byteOffset, column.length);
}

/** Columns as one array, number by number. */
export function interleave(columns, ArrayType) {
  const width = columns.length;
  const numbers = new ArrayType(width * columns[0].length);
  columns.forEach((column, place) => {
    for (let i = 0, at = place; i < column.length; ++i, at += width) numbers[at] = column[i];
  });
  return numbers;
}
