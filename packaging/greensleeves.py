#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# greensleeves.py: writes examples/Greensleeves.mid, an English tune of the 16th century set for three voices here.
import pathlib
import struct

QUAVER = 48
PULSE = 3 * QUAVER  # a dotted quarter note, of which a bar has two

# Notes of the tune with their lengths in quavers; from middle A upwards.
TUNE = """a:1
c':2 d':1 e':1.5 f':.5 e':1  d':2 b:1 g:1.5 a:.5 b:1  c':2 a:1 a:1.5 g#:.5 a:1  b:2 g#:1 e:2 a:1
c':2 d':1 e':1.5 f':.5 e':1  d':2 b:1 g:1.5 a:.5 b:1  c':1.5 b:.5 a:1 g#:1.5 f#:.5 g#:1  a:3 a:3
g':3 g':1.5 f#':.5 e':1  d':2 b:1 g:1.5 a:.5 b:1  c':2 a:1 a:1.5 g#:.5 a:1  b:2 g#:1 e:3
g':3 g':1.5 f#':.5 e':1  d':2 b:1 g:1.5 a:.5 b:1  c':1.5 b:.5 a:1 g#:1.5 f#:.5 g#:1  a:3 a:3"""
# A chord for each pulse: its bass note and the three notes above it.
CHORDS = {"Am": (45, (57, 60, 64)), "G": (43, (55, 59, 62)), "E": (40, (56, 59, 64)), "C": (48, (55, 60, 64))}
HARMONY = ("Am Am G G Am Am E E  Am Am G G Am E Am Am  C C G G Am Am E E  C C G G Am E Am Am").split()
SCALE = {"c": 60, "d": 62, "e": 64, "f": 65, "f#": 66, "g": 67, "g#": 68, "a": 69, "b": 71}


def number(value):
    data = [value & 0x7F]
    while value := value >> 7:
        data.insert(0, value & 0x7F | 0x80)
    return bytes(data)


def track(events):
    """events: (tick, bytes), in any order; ends of notes come before beginnings at the same tick."""
    data, now = b"", 0
    for tick, message in sorted(events, key=lambda event: (event[0], event[1][0] & 0xF0 == 0x90)):
        data += number(tick - now) + message
        now = tick
    data += b"\x00\xff\x2f\x00"
    return b"MTrk" + struct.pack(">I", len(data)) + data


def text(kind, words):
    return 0, bytes((0xFF, kind, len(words))) + words.encode()


def tempo(tick, pulses_per_minute):
    # The tempo of a file is that of its quarter notes.
    return tick, b"\xff\x51\x03" + struct.pack(">I", round(60e6 / pulses_per_minute * 2 / 3))[1:]


def note(channel, start, length, pitch, velocity):
    return [(start, bytes((0x90 | channel, pitch, velocity))), (start + length, bytes((0x80 | channel, pitch, 0)))]


melody, now = [text(3, "Melody"), (0, b"\xc0\x49")], 2 * QUAVER
for word in TUNE.split():
    name, length = word.split(":")
    ticks = round(float(length) * QUAVER)
    pitch = SCALE[name.rstrip("'")] + 12 * name.count("'")
    melody += note(0, now, ticks - 4, pitch, 96)
    now += ticks

harp, bass = [text(3, "Harp"), (0, b"\xc1\x2e")], [text(3, "Bass"), (0, b"\xc2\x20")]
start = 3 * QUAVER
for chord in HARMONY:
    low, notes = CHORDS[chord]
    for index, pitch in enumerate(notes):
        harp += note(1, start + index * QUAVER, QUAVER, pitch, 64)
    bass += note(2, start, PULSE - QUAVER, low, 80)
    start += PULSE

conductor = [text(3, "Greensleeves (traditional)"), (0, b"\xff\x58\x04\x06\x03\x24\x08"), tempo(0, 44)]
conductor += [tempo(start - 3 * PULSE + index * QUAVER, 42 - 2 * index) for index in range(9)]

content = b"MThd" + struct.pack(">IHHH", 6, 1, 4, 2 * QUAVER)
content += track(conductor) + track(melody) + track(harp) + track(bass)
(pathlib.Path(__file__).parent.parent / "examples" / "Greensleeves.mid").write_bytes(content)
