"""Small media files with titles."""

import struct


def midi(title):
    """A MIDI file whose one track has this title."""
    name = title.encode("cp932")
    track = b"\x00\xff\x03" + bytes([len(name)]) + name + b"\x00\x90\x3c\x40\x60\x80\x3c\x40\x00\xff\x2f\x00"
    return b"MThd" + struct.pack(">IHHH", 6, 0, 1, 96) + b"MTrk" + struct.pack(">I", len(track)) + track


def mp3(title, artist):
    """MPEG audio frames of silence with an ID3 trailer."""
    frame = b"\xff\xfb\x90\x00" + bytes(413)
    trailer = b"TAG" + title.encode("cp932").ljust(30, b"\0") + artist.encode("cp932").ljust(30, b"\0") + bytes(65)
    return frame * 10 + trailer


def wave(milliseconds):
    """Silence: 8 kHz, 8 bit, one channel."""
    data = b"\x80" * (8 * milliseconds)
    form = b"WAVEfmt " + struct.pack("<IHHIIHH", 16, 1, 1, 8000, 8000, 1, 8) + b"data" + struct.pack("<I", len(data))
    return b"RIFF" + struct.pack("<I", len(form) + len(data)) + form + data


def fill(folder):
    """Three files whose titles sort differently from their names."""
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "01.mid").write_bytes(midi("さくら"))
    (folder / "02.mid").write_bytes(midi("Greensleeves"))
    (folder / "曲 03.mp3").write_bytes(mp3("荒城の月", "滝廉太郎"))
    return folder
