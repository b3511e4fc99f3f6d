#!/usr/bin/env python3
"""Writes demo/Contacts.vcf: the demo contacts with photos drawn here.

Run from anywhere: python3 demo/make_demo_contacts.py
BMP, PNG and GIF photos are encoded with the standard library alone; JPEG photos need
ImageMagick's `convert` (without it those contacts are written without a photo).
The output is deterministic, so the file only changes when this script does.
"""

import base64
import os
import shutil
import struct
import subprocess
import tempfile
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
OUTPUT = os.path.join(HERE, "Contacts.vcf")


# --- Drawing -------------------------------------------------------------------------------

def avatar(width, height, background, face, accent):
    """A simple portrait: a background, a round face with eyes and a mouth, and a shoulder band.
    Returns rows of (r, g, b) tuples, top row first."""
    cx, cy = width / 2, height * 0.42
    radius = min(width, height) * 0.28
    rows = []
    for y in range(height):
        row = []
        for x in range(width):
            shade = 0.85 + 0.15 * (y / max(1, height - 1))
            colour = tuple(min(255, int(c * shade)) for c in background)
            if y > height * 0.78 and abs(x - cx) < width * 0.42:
                colour = accent
            dx, dy = x - cx, y - cy
            if dx * dx + dy * dy <= radius * radius:
                colour = face
                for ex in (-0.38, 0.38):
                    ddx, ddy = dx - ex * radius, dy + 0.2 * radius
                    if ddx * ddx + ddy * ddy <= (radius * 0.13) ** 2:
                        colour = (40, 40, 48)
                if 0.35 * radius < dy < 0.5 * radius and abs(dx) < 0.4 * radius:
                    colour = (170, 60, 60)
            row.append(colour)
        rows.append(row)
    return rows


# --- Encoders ------------------------------------------------------------------------------

def encode_bmp(rows):
    height, width = len(rows), len(rows[0])
    stride = (width * 3 + 3) & ~3
    pixels = bytearray()
    for row in reversed(rows):  # bottom-up
        line = bytearray()
        for r, g, b in row:
            line += bytes((b, g, r))
        pixels += line + b"\0" * (stride - len(line))
    header = struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    return header + info + bytes(pixels)


def png_chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)


def encode_png(rows):
    height, width = len(rows), len(rows[0])
    raw = bytearray()
    for row in rows:
        raw.append(0)
        for pixel in row:
            raw += bytes(pixel)
    ihdr = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", ihdr) +
            png_chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + png_chunk(b"IEND", b""))


def lzw_gif(indices, min_code_size=8):
    """GIF's variable-length LZW, least significant bit first."""
    clear, end = 1 << min_code_size, (1 << min_code_size) + 1
    out, bits, nbits = bytearray(), 0, 0

    def emit(code, size):
        nonlocal bits, nbits
        bits |= code << nbits
        nbits += size
        while nbits >= 8:
            out.append(bits & 0xFF)
            bits >>= 8
            nbits -= 8

    table = {bytes([i]): i for i in range(clear)}
    size, next_code = min_code_size + 1, end + 1
    emit(clear, size)
    current = b""
    for index in indices:
        candidate = current + bytes([index])
        if candidate in table:
            current = candidate
            continue
        emit(table[current], size)
        if next_code < 4096:
            table[candidate] = next_code
            next_code += 1
            if next_code > (1 << size) and size < 12:
                size += 1
        else:
            emit(clear, size)
            table = {bytes([i]): i for i in range(clear)}
            size, next_code = min_code_size + 1, end + 1
        current = bytes([index])
    if current:
        emit(table[current], size)
    emit(end, size)
    if nbits:
        out.append(bits & 0xFF)
    return bytes(out)


def encode_gif(rows):
    height, width = len(rows), len(rows[0])
    palette, indices = [], []
    for row in rows:
        for pixel in row:
            quantised = tuple(c & 0xF0 for c in pixel)
            if quantised not in palette:
                if len(palette) == 256:
                    quantised = palette[-1]
                else:
                    palette.append(quantised)
            indices.append(palette.index(quantised))
    palette += [(0, 0, 0)] * (256 - len(palette))
    data = lzw_gif(indices)
    blocks = b"".join(bytes([len(data[i:i + 255])]) + data[i:i + 255]
                      for i in range(0, len(data), 255))
    return (b"GIF89a" + struct.pack("<HHBBB", width, height, 0xF7, 0, 0) +
            b"".join(bytes(p) for p in palette) +
            b"," + struct.pack("<HHHHB", 0, 0, width, height, 0) + bytes([8]) + blocks + b"\0;")


def encode_jpeg(rows, quality=80):
    convert = shutil.which("convert")
    if convert is None:
        return None
    with tempfile.TemporaryDirectory() as folder:
        source, target = os.path.join(folder, "in.png"), os.path.join(folder, "out.jpg")
        with open(source, "wb") as f:
            f.write(encode_png(rows))
        subprocess.run([convert, source, "-strip", "-quality", str(quality),
                        "-sampling-factor", "2x2", target], check=True)
        with open(target, "rb") as f:
            return f.read()


ENCODERS = {"BMP": encode_bmp, "PNG": encode_png, "GIF": encode_gif, "JPEG": encode_jpeg}
MIME = {"BMP": "image/bmp", "PNG": "image/png", "GIF": "image/gif", "JPEG": "image/jpeg"}


# --- vCard writing -------------------------------------------------------------------------

def fold(line, width=75):
    """Folds a content line at `width` octets without splitting a UTF-8 sequence."""
    data = line.encode("utf-8")
    parts, start, limit = [], 0, width
    while len(data) - start > limit:
        end = start + limit
        while end > start and (data[end] & 0xC0) == 0x80:
            end -= 1
        parts.append(data[start:end])
        start, limit = end, width - 1
    parts.append(data[start:])
    return b"\r\n ".join(parts)


def escape(text):
    return (text.replace("\\", "\\\\").replace(";", "\\;").replace(",", "\\,")
            .replace("\n", "\\n"))


def qp_utf8(text):
    return "".join(c if c.isascii() and c.isalnum() else
                   "".join("=%02X" % b for b in c.encode("utf-8")) for c in text)


def photo_lines(version, photo):
    kind, width, height, colours = photo
    data = ENCODERS[kind](avatar(width, height, *colours))
    if data is None:
        return []
    encoded = base64.b64encode(data).decode("ascii")
    if version == "4.0":
        return ["PHOTO:data:%s;base64,%s" % (MIME[kind], encoded)]
    if version == "2.1":
        return ["PHOTO;ENCODING=BASE64;TYPE=%s:%s" % (kind, encoded)]
    return ["PHOTO;ENCODING=b;TYPE=%s:%s" % (kind, encoded)]


def card(c):
    version = c.get("version", "3.0")
    lines = ["BEGIN:VCARD", "VERSION:" + version] + (["UID:" + c["uid"]] if "uid" in c else [])
    family, given, middle = c.get("name", ("", "", ""))
    n_value = ";".join(escape(p) for p in (family, given, middle)) + ";;"
    if c.get("qp"):
        lines.append("N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:" + qp_utf8(n_value))
    elif c.get("cp1251"):
        lines.append(("N;CHARSET=windows-1251:", n_value))
    else:
        lines.append("N:" + n_value)
    fn = c.get("fn") or " ".join(p for p in (given, middle, family) if p) or c.get("org", "")
    if fn and c.get("qp"):
        lines.append("FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:" + qp_utf8(escape(fn)))
    elif fn:
        lines.append(("FN;CHARSET=windows-1251:", fn) if c.get("cp1251") else "FN:" + escape(fn))
    if "org" in c:
        lines.append("ORG:" + escape(c["org"]))
    for key, prop in (("title", "TITLE"), ("nickname", "NICKNAME"), ("email", "EMAIL")):
        if key in c:
            lines.append("%s:%s" % (prop, escape(c[key])))
    if "categories" in c:
        lines.append("CATEGORIES:" + ",".join(escape(x) for x in c["categories"]))
    for params, number, *label in c.get("tel", []):
        if label:
            lines.append("%s.TEL%s:%s" % (label[0][0], params, number))
            lines.append("%s.X-ABLabel:%s" % label[0])
        else:
            lines.append("TEL%s:%s" % (params, number))
    if "note" in c:
        lines.append("NOTE:" + escape(c["note"]))
    if "photo" in c:
        lines += photo_lines(version, c["photo"])
    lines.append("END:VCARD")
    out = b""
    for line in lines:
        if isinstance(line, tuple):  # a line in windows-1251
            out += line[0].encode("ascii") + line[1].encode("cp1251") + b"\r\n"
        else:
            out += fold(line) + b"\r\n"
    return out


BLOCK_START, BLOCK_END = "== start pim information ==", "== end pim information =="

CONTACTS = [
    dict(uid="dd-demo-01", name=("Peña", "Ana María", ""), tel=[(";TYPE=CELL", "+34 612 555 101"),
         (";TYPE=HOME", "+34 91 555 1020")], email="ana.pena@example.es",
         photo=("PNG", 96, 96, ((70, 130, 180), (240, 200, 170), (30, 60, 120)))),
    dict(uid="dd-demo-02", version="4.0", name=("Lefèvre", "François", ""),
         tel=[(";TYPE=work;VALUE=uri", "tel:+33-1-55-50-01-02"), (";TYPE=\"work,fax\"", "+33 1 55 50 01 03"),
              (";TYPE=cell", "+33 6 55 50 01 04")], org="Boulangerie Lefèvre",
         photo=("JPEG", 120, 90, ((200, 120, 60), (235, 190, 160), (90, 40, 20)))),
    dict(uid="dd-demo-03", name=("Müller", "Jürgen", ""), tel=[(";TYPE=HOME", "+49 30 5550100"),
         (";TYPE=HOME", "+49 30 5550101"), (";TYPE=WORK", "+49 30 5550102")],
         photo=("BMP", 48, 48, ((120, 170, 90), (230, 195, 165), (60, 90, 40)))),
    dict(uid="dd-demo-04", name=("Brontë-Ødegård", "Zoë", ""), tel=[(";TYPE=CELL", "+47 415 55 104")],
         photo=("GIF", 64, 80, ((180, 90, 160), (245, 215, 190), (110, 30, 100)))),
    dict(uid="dd-demo-05", version="2.1", qp=True, name=("Петров", "Иван", "Сергеевич"),
         tel=[(";CELL;PREF", "+7 916 555-01-05"), (";WORK", "+7 495 555-01-06")]),
    dict(uid="dd-demo-06", version="2.1", cp1251=True, name=("Смирнова", "Ольга", ""),
         tel=[(";CELL", "+7 903 555-01-07")]),
    dict(uid="dd-demo-07", name=("Соколов", "Дмитрий", ""), tel=[(";TYPE=CELL", "+7 921 555-01-08")],
         note="Рыбалка по выходным.\n%s\nPhone: [Дача: +7 813 555-01-09], [Skype: dima.sokolov]\n%s"
              % (BLOCK_START, BLOCK_END),
         photo=("JPEG", 320, 240, ((60, 80, 140), (225, 185, 150), (20, 30, 70)))),
    dict(uid="dd-demo-08", name=("", "", ""), org="Acme Plumbing",
         tel=[(";TYPE=WORK", "+1 206 555 0108"), (";TYPE=WORK,FAX", "+1 206 555 0109")]),
    dict(uid="dd-demo-09", name=("", "", ""), org="Northwind Traders", tel=[(";TYPE=MAIN", "+1 425 555 0110")]),
    dict(uid="dd-demo-10", name=("", "", "Marie"), tel=[(";TYPE=CELL", "+33 6 55 50 01 11")]),
    dict(uid="dd-demo-11", name=("Quiet", "Person", ""), email="quiet@example.org"),
    dict(uid="dd-demo-12", name=("Every", "Number", ""), tel=[
         (";TYPE=CELL", "+1 555 0100"), (";TYPE=HOME", "+1 555 0101"), (";TYPE=HOME", "+1 555 0102"),
         (";TYPE=WORK", "+1 555 0103"), (";TYPE=WORK", "+1 555 0104"), (";TYPE=PAGER", "+1 555 0105"),
         (";TYPE=X-RADIO", "+1 555 0106"), (";TYPE=X-ASSISTANT", "+1 555 0107"),
         (";TYPE=WORK,FAX", "+1 555 0108"), (";TYPE=HOME,FAX", "+1 555 0109"),
         (";TYPE=MAIN", "+1 555 0110"), (";TYPE=MMS", "+1 555 0111"), (";TYPE=CAR", "+1 555 0112"),
         (";TYPE=HOME", "+1 555 0113")],
         photo=("PNG", 200, 200, ((230, 180, 40), (240, 205, 175), (150, 100, 20)))),
    dict(uid="dd-demo-13", name=("Kowalski", "Łukasz", ""), tel=[(";TYPE=CELL", "+48 601 555 113")],
         note="%sPhone: [Skype: lukasz.k] [Biuro \\: wew. 12: +48 22 555 01 14]%s" % (BLOCK_START, BLOCK_END)),
    dict(uid="dd-demo-14", name=("Appleseed", "Johnny", ""), tel=[
         (";type=pref", "+1 408 555 0115", ("item1", "_$!<Mobile>!$_")),
         ("", "+1 408 555 0116", ("item2", "Summer house"))]),
    dict(uid="dd-demo-15", name=("Παπαδόπουλος", "Νίκος", ""), tel=[(";TYPE=CELL", "+30 694 555 0117")],
         photo=("GIF", 32, 32, ((40, 120, 200), (240, 210, 180), (240, 240, 240)))),
    dict(uid="dd-demo-16", name=("Dvořák", "Jiří", ""), tel=[(";TYPE=WORK", "+420 222 555 118")],
         title="Dirigent"),
    dict(uid="dd-demo-17", name=("Álvarez", "José", ""), tel=[(";TYPE=HOME", "+34 93 555 0119")]),
    dict(uid="dd-demo-18", name=("Yılmaz", "Şule", ""), tel=[(";TYPE=CELL", "+90 532 555 0120")],
         photo=("BMP", 72, 60, ((200, 60, 70), (235, 200, 170), (120, 20, 30)))),
    dict(uid="dd-demo-19", name=("", "Madonna", "")),
    dict(uid="dd-demo-20", name=("Nguyễn", "Văn An", ""), tel=[(";TYPE=CELL", "+84 90 555 0121")]),
    dict(uid="dd-demo-21", name=("Коваленко", "Олена", ""), tel=[(";TYPE=CELL", "+380 50 555 0122"),
         (";TYPE=HOME", "+380 44 555 0123")], nickname="Оля"),
    dict(uid="dd-demo-22", name=("王", "小明", ""), tel=[(";TYPE=CELL", "+86 139 5550 0124")]),
    dict(uid="dd-demo-23", name=("Second", "Home", ""), tel=[(";TYPE=HOME", "+1 555 0125", ("item1", "_$!<Home>!$_"))]),
    dict(uid="dd-demo-24", name=("Road", "Runner", ""), tel=[(";TYPE=CAR", "+1 555 0126"), (";TYPE=PAGER", "+1 555 0127")],
         categories=["Delivery", "Night shift"]),
    dict(uid="dd-demo-25", name=("O'Brien", "Siobhán", ""), tel=[(";TYPE=CELL", "+353 87 555 0128")],
         org="Gaelic Games", title="Coach",
         photo=("JPEG", 64, 64, ((40, 140, 80), (250, 215, 190), (230, 120, 30)))),
    dict(uid="dd-demo-26", name=("Ström", "Åsa", ""), tel=[(";TYPE=WORK", "+46 8 555 01 29"),
         (";TYPE=X-Telefonsvarare", "+46 8 555 01 30")]),
    dict(uid="dd-demo-27", name=("Nakamura", "Yuki", ""), tel=[(";TYPE=CELL", "+81 90 5550 0131")],
         note="Prefers e-mail.", email="yuki@example.jp"),
    dict(uid="dd-demo-28", name=("Smith", "John", ""), tel=[(";TYPE=CELL", "+44 7700 900132")]),
    dict(uid="dd-demo-29", name=("Smith", "John", ""), tel=[(";TYPE=WORK", "+44 20 7946 0133")], org="Smith & Sons"),
    dict(uid="dd-demo-30", name=("", "", ""), org="Café Zürich", tel=[(";TYPE=WORK", "+41 44 555 01 34")],
         photo=("PNG", 40, 120, ((110, 80, 50), (220, 180, 140), (60, 40, 20)))),
    # The same card imported twice, with no UID: the two get distinct ids all the same.
    dict(name=("Doe", "Jane", ""), tel=[(";TYPE=CELL", "+1 555 0135")]),
    dict(name=("Doe", "Jane", ""), tel=[(";TYPE=CELL", "+1 555 0135")]),
]


def main():
    with open(OUTPUT, "wb") as f:
        for c in CONTACTS:
            f.write(card(c))
    print("wrote %s (%d bytes, %d contacts)" % (OUTPUT, os.path.getsize(OUTPUT), len(CONTACTS)))


if __name__ == "__main__":
    main()
