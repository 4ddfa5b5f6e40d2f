// Where Verovio draws other ledger lines than the notes need: staves and measures, as "staff:measure", by the scores' files.
//
// A clef that changes at a barline: it takes some notes on one side of the barline in the clef of the other. An octave shift
// that starts at a rest: it leaves the notes under it where they would be without.
export const oddPlaces = {
  '43d-MultiStaff-StaffChange.xml': ['2:2'],
  'sq10502527.mxl': ['4:96'],
  'sq10517302.mxl': ['4:45', '4:149', '4:153', '4:262', '4:391', '4:403', '4:677'],
  'sq7267316.mxl': ['2:423', '2:511', '3:610', '3:645', '4:538', '4:539', '4:649'],
  'sq9719026.mxl': ['4:303'],
};
