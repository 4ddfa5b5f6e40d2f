"""An independent reader of what a report on a score contains: names, transpositions, keys, meters, empty measures."""

import fractions
import math

import scorereader

NATURAL_FIFTHS = [0, 2, 4, -1, 1, 3, 5]  # of C D E F G A B
LETTERS = "CDEFGAB"


def number(element, name, otherwise=0):
    text = (element.findtext(name) or "").strip()
    return int(text) if text.lstrip("+-").isdigit() else otherwise


class Interval:
    """From written to sounding pitch, in steps and fifths."""

    def __init__(self, transpose=None):
        semitones = number(transpose, "chromatic") if transpose is not None else 0
        steps = math.floor(semitones * 7 / 12 + 0.5)
        if transpose is not None and transpose.find("diatonic") is not None:
            steps = number(transpose, "diatonic")
        octaves = number(transpose, "octave-change") if transpose is not None else 0
        self.steps = steps + 7 * octaves
        self.fifths = 7 * (semitones + 12 * octaves) - 12 * self.steps

    def respelt(self, sharps):
        """As it is in a key: respelt so that the key moves to at most six sharps or flats."""
        result = Interval()
        result.steps, result.fifths = self.steps, self.fifths
        while sharps - result.fifths > 6:
            result.fifths, result.steps = result.fifths + 12, result.steps - 1
        while sharps - result.fifths < -6:
            result.fifths, result.steps = result.fifths - 12, result.steps + 1
        return result

    def name(self):
        if self.steps == 0 and self.fifths == 0:
            return "none"
        down = self.steps < 0 or (self.steps == 0 and self.fifths < 0)
        steps, fifths = (-self.steps, -self.fifths) if down else (self.steps, self.fifths)
        alteration = (fifths - NATURAL_FIFTHS[steps % 7]) // 7
        perfect = steps % 7 in (0, 3, 4)
        quality = "augmented " if alteration > 0 else "diminished " if alteration < (0 if perfect else -1) else \
            ("perfect " if perfect else "major ") if alteration == 0 else "minor "
        if steps % 7 == 0:
            size = "unison" if steps == 0 else "octave" if steps == 7 else f"{steps // 7} octaves"
            quality = "" if quality == "perfect " else quality
        else:
            ordinal = steps + 1
            ending = "nd" if ordinal % 10 == 2 and ordinal != 12 else "rd" if ordinal % 10 == 3 and ordinal != 13 else "th"
            size = f"{ordinal}{ending}"
        return quality + size + (" down" if down else " up")


def pitch_name(step, fifths):
    alteration = (fifths - NATURAL_FIFTHS[step % 7]) // 7
    return LETTERS[step % 7] + ("#" * alteration if alteration > 0 else "b" * -alteration) + str(4 + step // 7)


def key_name(sharps, minor):
    fifths = sharps + (3 if minor else 0)
    letter = 4 * fifths % 7
    alteration = (fifths - NATURAL_FIFTHS[letter]) // 7
    return LETTERS[letter] + ("#" * alteration if alteration > 0 else "b" * -alteration) + (" minor" if minor else " major")


def meter_of(time):
    """Beats and unit of a <time>, its parts summed."""
    total, unit = fractions.Fraction(0), 0
    pairs = list(zip(time.findall("beats"), time.findall("beat-type")))
    for beats, beat_type in pairs:
        this_unit = int(beat_type.text)
        total += fractions.Fraction(sum(int(part) for part in beats.text.split("+")), this_unit)
        unit = this_unit if unit == 0 else math.lcm(unit, this_unit)
    return (int(total * unit), unit) if pairs else None


class Part:
    """What one part states, measure by measure, at its barlines."""

    def __init__(self, measures):
        self.keys, self.meters, self.transposes = [], [], {}
        self.states_key = self.states_meter = False
        key, meter = (0, False), None
        for measure in measures:
            clock, divisions = 0, 1
            barline_key, barline_meter = key, meter
            for child in measure:
                if child.tag == "attributes":
                    at_barline = clock == 0
                    for element in child.findall("key"):
                        if int(element.get("number") or 1) > 1:
                            continue
                        self.states_key = True
                        key = None if element.find("key-step") is not None else \
                            (number(element, "fifths"), (element.findtext("mode") or "").strip() == "minor")
                    for element in child.findall("time"):
                        if int(element.get("number") or 1) > 1:
                            continue
                        self.states_meter = True
                        meter = meter_of(element)
                    for element in child.findall("transpose"):
                        self.transposes.setdefault(int(element.get("number") or 0), element)
                    if at_barline:
                        barline_key, barline_meter = key, meter
                elif child.tag in ("note", "forward") and child.find("chord") is None:
                    clock += scorereader.number(child, "duration", 0)
                elif child.tag == "backup":
                    clock = max(0, clock - scorereader.number(child, "duration", 0))
            self.keys.append(barline_key)
            self.meters.append(barline_meter)

    def interval(self, staff):
        return Interval(self.transposes.get(staff, self.transposes.get(0)))

    def concert_key(self, measure):
        key = self.keys[measure] if measure < len(self.keys) else (0, False)
        if key is None:
            return None
        sharps = key[0] + self.interval(1).fifths
        while sharps > 7:
            sharps -= 12
        while sharps < -7:
            sharps += 12
        return sharps, key[1]


def report(root):
    """The lines of a report: of the staves (name, interval, what C4 sounds, slots, empty measures), and of the measures."""
    listed = {part.get("id"): part for part in root.iter("score-part")}
    ids = list(dict.fromkeys(part.get("id") for part in root.iter("part")))
    measures = scorereader.parts(root)
    parts = [Part(of_part) for of_part in measures]
    reading = scorereader.Reading(root)
    count = max(map(len, measures))
    key_part = next((part for part in parts if part.states_key), None)
    meter_part = next((part for part in parts if part.states_meter), None)

    def key_at(measure):
        return key_part.concert_key(measure) if key_part else (0, False)

    def meter_at(measure):
        return meter_part.meters[measure] if meter_part and measure < len(meter_part.meters) else None

    sounding = {(entry.staff, entry.measure) for entry in reading.entries if any(note.find("rest") is None for note in entry.notes)}
    staves = []
    for part, count_of_staves, part_id in zip(parts, reading.staves, ids):
        element = listed.get(part_id)
        names = [" ".join((element.findtext(tag) or "").split()) for tag in ("part-name", "part-abbreviation")] \
            if element is not None else ["", ""]
        name = (names[0] or names[1]).replace("^", "\u02C6").replace("\u266D", "b")
        slots = len(element.findall("score-instrument")) if element is not None else 0
        for staff in range(1, count_of_staves + 1):
            first_key = key_at(0)
            interval = part.interval(staff).respelt(0 if first_key is None else first_key[0])
            number_of_staff = len(staves) + 1
            empty = sum((number_of_staff, measure) not in sounding for measure in range(1, count + 1))
            staves.append((name, interval.name(), pitch_name(interval.steps, interval.fifths), slots, empty))
    changes = []
    for measure in range(count):
        now = (key_at(measure), meter_at(measure))
        if not changes or now != last:
            meter = now[1]
            changes.append((measure + 1, "none" if now[0] is None else key_name(*now[0]),
                            "none" if meter is None or meter[0] == 0 else f"{meter[0]}/{meter[1]}"))
        last = now
    return staves, changes
