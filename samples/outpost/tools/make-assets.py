#!/usr/bin/env python3
"""Makes the small files below Game/ that the sample's records name: icons, sounds and effect files.

Usage: make-assets.py [game directory]     (default: the Game directory beside this script's own)

The results are kept under version control; run this again only after a change here. The bytes depend on
nothing but this script, so that a second run changes no file.
"""
import math
import pathlib
import struct
import sys

# An icon is an 8 x 8 drawing, shown at twice its size. '#' is the colour, '+' a darker shade of it.
ICONS = {
    "Ammunition": ((196, 160, 60), "........ ..#..#.. ..#..#.. .+#.+#.. .+#.+#.. .+#.+#.. .++.++.. ........"),
    "Combat": ((200, 60, 50), "#......# .#....#. ..#..#.. ...##... ...##... .+#..#+. ++....++ +......+"),
    "Care": ((210, 90, 110), "........ ...##... ...##... .######. .######. ...##... ...##... ........"),
    "Defence": ((150, 150, 160), "...##... ..####.. .######. ...++... ..++++.. ..+..+.. .++..++. .+....+."),
    "Engineering": ((110, 140, 190), ".##..##. .##..##. .######. ..####.. ...##... ...##... ...##... ...++..."),
    "Food": ((190, 130, 70), "........ ..####.. .######. ######## +######+ .++++++. ..++++.. ........"),
    "Light": ((240, 210, 90), "...#.... ..##.... ..###... .####... .#####.. ..###... ...++... ...++..."),
    "Material": ((140, 120, 100), "........ ..#####. .#####+. #####++. #####++. #####+.. ######.. ........"),
    "Medicine": ((230, 230, 230), "........ .######. .##++##. .#++++#. .#++++#. .##++##. .######. ........"),
    "Melee": ((170, 175, 185), ".......# ......## .....##. ....##.. .+.##... ..++.... .++.+... ++......"),
    "Power": ((120, 200, 230), "....##.. ...##... ..##.... .#####.. ...##... ..##.... .##..... ........"),
    "Quarters": ((150, 110, 160), "........ #....... #....... ######## ######## +......+ +......+ ........"),
    "Quest": ((250, 230, 120), "..####.. .##..##. .....##. ....##.. ...##... ...##... ........ ...##..."),
    "Ranged": ((120, 130, 120), "........ ........ #######. ######## .++####. ..++.... .++..... ........"),
    "Scavenging": ((120, 160, 90), "...##... ..#..#.. .######. ######## ##++++## ##++++## ######## .######."),
    "Thrown": ((90, 120, 80), ".....##. ....#... ...##... ..####.. .######. .######. ..####.. ........"),
    "Wall": ((160, 110, 80), "###.#### ###.#### ........ #.####.# #.####.# ........ ###.#### ###.####"),
    "Workshop": ((170, 140, 90), "........ .######. .######. ...##... ...##... ..++++.. .++++++. ........"),
}

# A sound is a list of (length in milliseconds, tone in hertz, share of noise, loudness at its begin and end).
SOUNDS = {
    "arc": [(30, 900, 0.6, 0.9, 0.8), (90, 1400, 0.5, 0.8, 0.0)],
    "bell": [(260, 420, 0.0, 0.8, 0.0)],
    "blizzard": [(240, 90, 0.9, 0.3, 0.6), (240, 70, 0.9, 0.6, 0.3)],
    "bow": [(20, 300, 0.2, 0.8, 0.3), (60, 180, 0.3, 0.3, 0.0)],
    "caw": [(60, 700, 0.5, 0.7, 0.6), (70, 560, 0.5, 0.7, 0.0)],
    "eat": [(40, 120, 0.8, 0.5, 0.1), (40, 110, 0.8, 0.5, 0.0)],
    "explosion": [(60, 60, 0.8, 1.0, 0.9), (240, 40, 0.8, 0.9, 0.0)],
    "growl": [(200, 85, 0.5, 0.5, 0.7), (80, 70, 0.5, 0.7, 0.0)],
    "hollow_breath": [(180, 150, 0.9, 0.1, 0.4), (120, 130, 0.9, 0.4, 0.0)],
    "hollow_teeth": [(15, 1800, 0.4, 0.7, 0.0), (40, 0, 0.0, 0.0, 0.0), (15, 1700, 0.4, 0.7, 0.0)],
    "pistol": [(15, 240, 0.9, 1.0, 0.8), (90, 120, 0.9, 0.8, 0.0)],
    "rain": [(240, 0, 1.0, 0.3, 0.4), (240, 0, 1.0, 0.4, 0.3)],
    "rifle": [(20, 160, 0.9, 1.0, 0.9), (160, 80, 0.9, 0.9, 0.0)],
    "shout": [(70, 260, 0.3, 0.7, 0.8), (110, 210, 0.3, 0.8, 0.0)],
    "snap": [(20, 2200, 0.6, 0.9, 0.2), (40, 800, 0.4, 0.2, 0.0)],
    "swing": [(120, 200, 0.9, 0.1, 0.5), (40, 180, 0.9, 0.5, 0.0)],
    "thunder": [(90, 50, 0.8, 0.4, 1.0), (300, 35, 0.8, 1.0, 0.0)],
    "wind": [(240, 110, 0.9, 0.2, 0.3), (240, 100, 0.9, 0.3, 0.2)],
}
SAMPLES_A_SECOND = 8000

EFFECTS = {
    "Combat": ["muzzle_flash", "muzzle_flash_large", "muzzle_smoke", "arc_spark", "bone_dust", "blood_puff",
               "feather_puff", "frost_burst", "spore_cloud", "explosion_small"],
    "World": ["snow_light", "snow_heavy", "rain", "rain_heavy", "fog_bank", "collapse_wood", "collapse_stone",
              "collapse_metal", "embers"],
}
EFFECT_FILE_VERSION = 2


def make_icon(colour, drawing):
    """An uncompressed 32-bit TGA, top row first, without a name or a palette."""
    rows = drawing.split()
    pixels = bytearray()
    for y in range(16):
        for x in range(16):
            mark = rows[y // 2][x // 2]
            shade = {"#": 1.0, "+": 0.55, ".": 0.0}[mark]
            red, green, blue = (int(part * shade) for part in colour)
            pixels += bytes((blue, green, red, 0 if mark == "." else 255))
    return struct.pack("<BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, 16, 16, 32, 0x28) + bytes(pixels)


def make_sound(parts):
    """A mono WAVE file of 8-bit samples. The noise is a fixed sequence, so that the bytes are too."""
    samples = bytearray()
    noise, phase = 12345, 0.0
    for length, tone, share, begin, end in parts:
        count = length * SAMPLES_A_SECOND // 1000
        for i in range(count):
            noise = (noise * 1103515245 + 12345) & 0x7FFFFFFF
            phase += 2 * math.pi * tone / SAMPLES_A_SECOND
            wave = share * (noise / 0x3FFFFFFF - 1) + (1 - share) * math.sin(phase)
            samples.append(128 + int(100 * wave * (begin + (end - begin) * i / count)))
    if len(samples) % 2:
        samples.append(128)
    form = struct.pack("<HHIIHH", 1, 1, SAMPLES_A_SECOND, SAMPLES_A_SECOND, 1, 8)
    body = b"WAVEfmt " + struct.pack("<I", len(form)) + form
    body += b"data" + struct.pack("<I", len(samples)) + bytes(samples)
    return b"RIFF" + struct.pack("<I", len(body)) + body


def make_effect_file(names):
    """The header, the index of offsets into the string block, then the string block."""
    block, offsets = b"", []
    for name in names:
        offsets.append(len(block))
        block += name.encode("ascii") + b"\0"
    index = struct.pack(f"<{len(offsets)}I", *offsets)
    header = struct.pack("<4s9I", b"ZRFX", EFFECT_FILE_VERSION, 0, len(block), 0, 0, len(names), 0,
                         40 + len(index), 40)
    return header + index + block


def main():
    default = pathlib.Path(__file__).resolve().parent.parent / "Game"
    game = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    files = {f"Icons/{name}.tga": make_icon(*icon) for name, icon in ICONS.items()}
    files.update({f"Sounds/{name}.wav": make_sound(parts) for name, parts in SOUNDS.items()})
    files.update({f"VisualFX/{name}.Fx00p": make_effect_file(names) for name, names in EFFECTS.items()})
    for name, content in files.items():
        path = game / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    print(f"{len(files)} files, {sum(map(len, files.values()))} bytes, below {game}")


main()
