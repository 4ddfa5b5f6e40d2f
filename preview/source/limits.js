// The largest score that is read: many times what can be engraved in the memory that Verovio has.
export const maxScoreSize = 256 * 1024 * 1024;
