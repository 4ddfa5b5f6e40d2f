// What --help prints.
export const help = `Usage: brvhost-preview SCORE... [-o FILE | --out-dir DIR] [OPTIONS]

Engraves MusicXML scores (.musicxml, .xml or .mxl) without the ledger lines of notes that have
print-leger="no", as a page of HTML with all pages of the score, which a browser shows without a
network. The scores stay as they are.

Result
  -o, --output FILE   Write to this file; for a single score (NAME.html in the working folder)
  --out-dir DIR       Write to this folder, under the scores' names; it is made where it is missing
  --svg               Write pictures as SVG, one for each page of the score: NAME.svg, or
                      NAME-1.svg, NAME-2.svg, ...
  --png               The same as PNG, with the program rsvg-convert

What is shown
  --before OTHER      Show an earlier version of the score, too, and mark where ledger lines differ;
                      the two must be equal in everything but print-leger
  --no-marks          Leave these marks out; the page has a key for them
  --ghost             Draw hidden ledger lines in a light colour
  --measures A-B      Only these measures, in their order from 1: 3, 2-5, 2- or -5
  --staves A-B        Only these staves, from the top through all parts, with those that share a
                      voice with them

  -h, --help          Print this help and exit
  --version           Print the version and exit

EXIT STATUS
  0    done
  1    a result could not be written, or something is missing that it needs
  2    bad usage, or a score that cannot be used; the others are still engraved
  130  interrupted

EXAMPLES
    brvhost-preview sonata.mxl
    brvhost-preview hidden.musicxml --before sonata.musicxml -o page.html
    brvhost-preview --png --measures 12-20 --staves 3 --out-dir pictures quartets/*.mxl
`;
