#!/usr/bin/env python3
"""Renders Dialdeck's skin bitmaps: a calm, dark board with rounded buttons.

Writes 24-bit BMP files for both screen resolutions (res/art/96 and res/art/192), the
resource scripts that list them (res/Bitmaps96.rc, res/Bitmaps192.rc) and the sample skin
(res/sample-skin). The output is committed, so building needs no Python. To change the look,
edit the palette or the shapes below and re-render from the repository's root:

    python3 res/art/generate.py

Only the standard library is used. Shapes are signed-distance functions sampled at pixel
centres; edge coverage comes from the distance, so edges are smooth without supersampling.
Pixels that must stay transparent are pure magenta (0xFF00FF). An anti-aliased edge is blended
against the colour that will really be behind it (the board's background, or a button face),
never against magenta, so no pink fringe can appear.
"""

import math
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
RES = os.path.dirname(HERE)

MAGENTA = (255, 0, 255)


class Palette:
    """The colours of one look. Lengths and shapes are shared by every palette."""

    def __init__(self, **colours):
        self.__dict__.update(colours)


# The board's default look; `background` is the skin's default BgrColor (59, 70, 80).
DEFAULT = Palette(
    background=(59, 70, 80),
    face_top=(88, 103, 118),
    face_bottom=(72, 85, 99),
    face_rim=(112, 128, 144),
    pressed_top=(176, 222, 246),
    pressed_bottom=(128, 192, 230),
    pressed_rim=(206, 236, 252),
    empty_fill=(66, 78, 90),
    empty_rim=(98, 113, 128),
    empty_mark=(128, 145, 160),
    empty_mark_pressed=(36, 62, 86),
    selection=(250, 196, 84),
    badge=(34, 42, 50),
    badge_rim=(128, 145, 160),
    key_top=(214, 222, 230),
    key_bottom=(186, 197, 208),
    key_pressed_top=(168, 216, 244),
    key_pressed_bottom=(122, 186, 226),
    key_disabled_top=(112, 124, 136),
    key_disabled_bottom=(100, 112, 124),
    glyph=(40, 50, 62),
    glyph_disabled=(78, 90, 102),
    list_row=(66, 78, 90),
    list_selected=(176, 222, 246),
    list_void=(52, 62, 71),
    thumb=(190, 200, 210),
    header_top=(232, 238, 244),
    header_bottom=(204, 214, 224),
)

# The sample skin: a deep green board with warm highlights.
FOREST = Palette(
    background=(24, 52, 44),
    face_top=(44, 88, 74),
    face_bottom=(34, 72, 60),
    face_rim=(70, 120, 102),
    pressed_top=(250, 224, 160),
    pressed_bottom=(236, 196, 112),
    pressed_rim=(255, 240, 200),
    empty_fill=(30, 62, 53),
    empty_rim=(62, 104, 90),
    empty_mark=(96, 146, 128),
    empty_mark_pressed=(92, 64, 20),
    selection=(255, 244, 214),
    badge=(16, 36, 30),
    badge_rim=(96, 146, 128),
    key_top=(214, 222, 230),
    key_bottom=(186, 197, 208),
    key_pressed_top=(168, 216, 244),
    key_pressed_bottom=(122, 186, 226),
    key_disabled_top=(112, 124, 136),
    key_disabled_bottom=(100, 112, 124),
    glyph=(40, 50, 62),
    glyph_disabled=(78, 90, 102),
    list_row=(66, 78, 90),
    list_selected=(176, 222, 246),
    list_void=(52, 62, 71),
    thumb=(190, 200, 210),
    header_top=(232, 238, 244),
    header_bottom=(204, 214, 224),
)

# Design sizes at 96 dots per inch; 192 doubles every one of them.
BIG_CELL = (74, 80)     # 240 x 320: 3 x 3 a page
SMALL_CELL = (54, 48)   # 240 x 320: 4 x 5 a page
FACE_MARGIN = 3         # transparent border around a face inside its cell, but for the bottom:
                        # the phone-type label sits just above the cell's bottom, on the face
BIG_RADIUS = 10
SMALL_RADIUS = 8
PHOTO_RING = 3          # frame width around a photo
SELECTION_OUT = 2       # the selection frame sticks out of the cell by this much
SELECTION_WIDTH = 2     # the ring stays outside the cell, clear of the face
BADGE = (22, 18)        # dialer number frame: the bitmap
BADGE_PILL = (16, 12)   # and the pill centred in it
PORTRAIT_KEY = (56, 34)   # one soft key of the bottom panel
LANDSCAPE_KEY = (50, 44)  # one soft key of the side panel
LIST_TILE = (480, 64)
THUMB = (6, 30)
HEADER = (480, 48)


# ---------------------------------------------------------------------------------------------
# Signed distances (negative inside), in pixels.

def sd_round_rect(x, y, left, top, right, bottom, radius):
    """Rounded rectangle [left, right] x [top, bottom] with corner radius."""
    cx, cy = (left + right) / 2.0, (top + bottom) / 2.0
    hx, hy = (right - left) / 2.0 - radius, (bottom - top) / 2.0 - radius
    qx, qy = abs(x - cx) - hx, abs(y - cy) - hy
    outside = math.hypot(max(qx, 0.0), max(qy, 0.0))
    inside = min(max(qx, qy), 0.0)
    return outside + inside - radius


def sd_segment(x, y, ax, ay, bx, by, width):
    """Stroke of the given width from (ax, ay) to (bx, by) with round caps."""
    px, py = x - ax, y - ay
    dx, dy = bx - ax, by - ay
    length2 = dx * dx + dy * dy
    t = 0.0 if length2 == 0 else max(0.0, min(1.0, (px * dx + py * dy) / length2))
    return math.hypot(px - t * dx, py - t * dy) - width / 2.0


def sd_polygon(x, y, points):
    """Convex or concave simple polygon."""
    d = float("inf")
    inside = False
    n = len(points)
    for i in range(n):
        ax, ay = points[i]
        bx, by = points[(i + 1) % n]
        ex, ey = bx - ax, by - ay
        wx, wy = x - ax, y - ay
        length2 = ex * ex + ey * ey
        t = max(0.0, min(1.0, (wx * ex + wy * ey) / length2))
        d = min(d, math.hypot(wx - t * ex, wy - t * ey))
        if (ay > y) != (by > y) and x < ax + (y - ay) * ex / ey:
            inside = not inside
    return -d if inside else d


def union(*distances):
    return min(distances)


def coverage(distance):
    return max(0.0, min(1.0, 0.5 - distance))


# ---------------------------------------------------------------------------------------------
# Canvas: an opaque picture over a known backdrop, with a transparency mask.

class Canvas:
    def __init__(self, width, height, behind, transparent=True):
        """`behind(x, y)` is the colour that will show through a transparent pixel; edges are
        blended against it. With transparent False the canvas starts opaque in that colour."""
        self.width, self.height = width, height
        self.pixels = [[behind(x, y) for x in range(width)] for y in range(height)]
        self.clear = [[transparent] * width for _ in range(height)]

    def paint(self, distance, colour, box=None, alpha=1.0):
        """Covers the shape with colour(x, y) (or a fixed colour) at the given opacity."""
        left, top, right, bottom = box or (0, 0, self.width, self.height)
        left, top = max(0, int(left) - 1), max(0, int(top) - 1)
        right, bottom = min(self.width, int(right) + 2), min(self.height, int(bottom) + 2)
        fixed = colour if isinstance(colour, tuple) else None
        for y in range(top, bottom):
            row, clear = self.pixels[y], self.clear[y]
            cy = y + 0.5
            for x in range(left, right):
                cx = x + 0.5
                c = coverage(distance(cx, cy)) * alpha
                if c <= 0.0:
                    continue
                src = fixed or colour(cx, cy)
                dst = row[x]
                row[x] = tuple(dst[i] + (src[i] - dst[i]) * c for i in range(3))
                clear[x] = False

    def punch(self, distance, box=None):
        """Makes the pixels whose centres lie inside the shape transparent (a hard edge, for
        holes whose backdrop is not known, such as a photo)."""
        left, top, right, bottom = box or (0, 0, self.width, self.height)
        for y in range(max(0, int(top)), min(self.height, int(bottom) + 1)):
            for x in range(max(0, int(left)), min(self.width, int(right) + 1)):
                if distance(x + 0.5, y + 0.5) < 0.0:
                    self.clear[y][x] = True

    def blit(self, other, dx, dy):
        for y in range(other.height):
            for x in range(other.width):
                self.pixels[dy + y][dx + x] = other.pixels[y][x]
                self.clear[dy + y][dx + x] = other.clear[y][x]

    def rows(self):
        for y in range(self.height):
            yield [MAGENTA if self.clear[y][x] else
                   tuple(int(round(v)) for v in self.pixels[y][x]) for x in range(self.width)]


def write_bmp(path, canvas, dpi):
    """A bottom-up 24-bit BMP with the resolution recorded in its header."""
    width, height = canvas.width, canvas.height
    stride = (width * 3 + 3) & ~3
    rows = list(canvas.rows())
    data = bytearray()
    for row in reversed(rows):
        line = bytearray()
        for r, g, b in row:
            line += bytes((b, g, r))
        line += b"\0" * (stride - len(line))
        data += line
    ppm = int(round(dpi / 0.0254))
    header = struct.pack("<2sIHHI", b"BM", 14 + 40 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), ppm, ppm, 0, 0)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(header + info + data)


def vertical(top_colour, bottom_colour, top, bottom):
    """A vertical gradient between two rows."""
    span = max(1.0, bottom - top)

    def colour(x, y):
        t = max(0.0, min(1.0, (y - top) / span))
        return tuple(top_colour[i] + (bottom_colour[i] - top_colour[i]) * t for i in range(3))
    return colour


def solid(colour):
    return lambda x, y: colour


# ---------------------------------------------------------------------------------------------
# Board art. `k` is the scale: 1 at 96 dots per inch, 2 at 192.

def face_box(cell_w, cell_h, k, dx=0):
    m = FACE_MARGIN * k
    return (dx + m, m, dx + cell_w - m, cell_h)


def ring(box, radius, width):
    """Distance to a band of `width` just inside the rounded rectangle's edge."""
    l, t, r, b = box
    return lambda x, y: abs(sd_round_rect(x, y, l, t, r, b, radius) + width / 2.0) - width / 2.0


def text_face(p, cell, radius, k):
    """Face of a bound button: normal half, pressed half."""
    cw, ch = cell[0] * k, cell[1] * k
    canvas = Canvas(2 * cw, ch, solid(p.background))
    for half, (top, bottom, rim) in enumerate(((p.face_top, p.face_bottom, p.face_rim),
                                               (p.pressed_top, p.pressed_bottom, p.pressed_rim))):
        box = face_box(cw, ch, k, half * cw)
        l, t, r, b = box
        rr = radius * k
        canvas.paint(lambda x, y: sd_round_rect(x, y, l, t, r, b, rr),
                     vertical(top, bottom, t, b), box)
        canvas.paint(ring(box, rr, k), rim, box, alpha=0.55)
    return canvas


def add_face(p, cell, radius, k):
    """Face of a free button: a quiet outline with a plus; pressed it lights up."""
    cw, ch = cell[0] * k, cell[1] * k
    canvas = Canvas(2 * cw, ch, solid(p.background))
    for half in range(2):
        box = face_box(cw, ch, k, half * cw)
        l, t, r, b = box
        rr = radius * k
        if half == 0:
            canvas.paint(lambda x, y: sd_round_rect(x, y, l, t, r, b, rr), p.empty_fill, box)
            canvas.paint(ring(box, rr, k), p.empty_rim, box)
            mark = p.empty_mark
        else:
            canvas.paint(lambda x, y: sd_round_rect(x, y, l, t, r, b, rr),
                         vertical(p.pressed_top, p.pressed_bottom, t, b), box)
            canvas.paint(ring(box, rr, k), p.pressed_rim, box, alpha=0.55)
            mark = p.empty_mark_pressed
        cx, cy = (l + r) / 2.0, (t + b) / 2.0
        arm = min(r - l, b - t) * 0.17
        width = 2.5 * k
        canvas.paint(lambda x, y: union(sd_segment(x, y, cx - arm, cy, cx + arm, cy, width),
                                        sd_segment(x, y, cx, cy - arm, cx, cy + arm, width)),
                     mark, (cx - arm - width, cy - arm - width, cx + arm + width, cy + arm + width))
    return canvas


def photo_frame(p, cell, radius, k):
    """Laid over a photo that fills the cell: the cell's corners are covered with the
    background, a rim runs round the face, and the photo shows through a hard-edged window."""
    cw, ch = cell[0] * k, cell[1] * k
    canvas = Canvas(2 * cw, ch, solid(p.background), transparent=False)
    for half, (colour, width) in enumerate(((p.face_rim, PHOTO_RING * k),
                                            (p.pressed_bottom, (PHOTO_RING + 1) * k))):
        box = face_box(cw, ch, k, half * cw)
        l, t, r, b = box
        rr = radius * k
        canvas.paint(lambda x, y: sd_round_rect(x, y, l, t, r, b, rr), colour, box)
        inner = (l + width, t + width, r - width, b - width)
        il, it, ir, ib = inner
        ir_radius = max(1.0, rr - width)
        canvas.punch(lambda x, y: sd_round_rect(x, y, il, it, ir, ib, ir_radius), inner)
    return canvas


def active_frame(p, cell, radius, k):
    """Selection frame, drawn whole and centred on the cell; it rings the face from outside."""
    out = SELECTION_OUT * k
    w, h = cell[0] * k + 2 * out, cell[1] * k + 2 * out
    canvas = Canvas(w, h, solid(p.background))
    box = (0, 0, w, h)
    rr = radius * k + (FACE_MARGIN + SELECTION_OUT) * k
    canvas.paint(ring(box, rr, SELECTION_WIDTH * k), p.selection, box)
    return canvas


def number_frame(p, k):
    """The dialer number's pill. The board puts the bitmap's bottom-right corner on the cell's
    and centres the number in the whole bitmap, so the pill sits centred in it, clear of the
    face's rounded corner; its edges are blended against the face below."""
    w, h = BADGE[0] * k, BADGE[1] * k
    canvas = Canvas(w, h, solid(p.face_bottom))
    pw, ph = BADGE_PILL[0] * k, BADGE_PILL[1] * k
    l, t = (w - pw) / 2.0, (h - ph) / 2.0
    box = (l, t, l + pw, t + ph)
    radius = ph / 2.0
    canvas.paint(lambda x, y: sd_round_rect(x, y, l, t, l + pw, t + ph, radius), p.badge, box)
    canvas.paint(ring(box, radius, k), p.badge_rim, box, alpha=0.7)
    return canvas


# ---------------------------------------------------------------------------------------------
# Soft-key panel art: six keys (Prev, Next; pressed; disabled) and four (Menu, Close; pressed).

def glyph_prev(cx, cy, s, k):
    return lambda x, y: union(sd_segment(x, y, cx + s * 0.35, cy - s * 0.6, cx - s * 0.35, cy, 2.2 * k),
                              sd_segment(x, y, cx - s * 0.35, cy, cx + s * 0.35, cy + s * 0.6, 2.2 * k))


def glyph_next(cx, cy, s, k):
    return lambda x, y: union(sd_segment(x, y, cx - s * 0.35, cy - s * 0.6, cx + s * 0.35, cy, 2.2 * k),
                              sd_segment(x, y, cx + s * 0.35, cy, cx - s * 0.35, cy + s * 0.6, 2.2 * k))


def glyph_menu(cx, cy, s, k):
    return lambda x, y: union(*(sd_segment(x, y, cx - s * 0.6, cy + d, cx + s * 0.6, cy + d, 2.0 * k)
                                for d in (-s * 0.45, 0.0, s * 0.45)))


def glyph_close(cx, cy, s, k):
    return lambda x, y: union(sd_segment(x, y, cx - s * 0.45, cy - s * 0.45, cx + s * 0.45, cy + s * 0.45, 2.2 * k),
                              sd_segment(x, y, cx - s * 0.45, cy + s * 0.45, cx + s * 0.45, cy - s * 0.45, 2.2 * k))


def draw_key(canvas, p, left, top, key, k, state, glyph):
    """One soft key at (left, top): a rounded light key, its glyph in the upper part; the panel
    writes the caption in black near the key's bottom."""
    kw, kh = key[0] * k, key[1] * k
    inset = 2 * k
    l, t, r, b = left + inset, top + inset, left + kw - inset, top + kh - inset
    rr = 6 * k
    colours = {
        "normal": (p.key_top, p.key_bottom, p.glyph),
        "pressed": (p.key_pressed_top, p.key_pressed_bottom, p.glyph),
        "disabled": (p.key_disabled_top, p.key_disabled_bottom, p.glyph_disabled),
    }[state]
    canvas.paint(lambda x, y: sd_round_rect(x, y, l, t, r, b, rr),
                 vertical(colours[0], colours[1], t, b), (l, t, r, b))
    # The caption takes the lower third or so; the glyph sits centred above it.
    caption = 13 * k
    cx, cy = left + kw / 2.0, top + (kh - caption) / 2.0 + k
    size = min(kw, kh - caption) * 0.32
    canvas.paint(glyph(cx, cy, size, k), colours[2],
                 (cx - size - 3 * k, cy - size - 3 * k, cx + size + 3 * k, cy + size + 3 * k))


def panel_strip(p, k, landscape, cells):
    """`cells` lists (state, glyph) in image order along the bar."""
    key = LANDSCAPE_KEY if landscape else PORTRAIT_KEY
    kw, kh = key[0] * k, key[1] * k
    n = len(cells)
    w, h = (kw, kh * n) if landscape else (kw * n, kh)
    canvas = Canvas(w, h, solid(p.background), transparent=False)
    for i, (state, glyph) in enumerate(cells):
        left, top = (0, i * kh) if landscape else (i * kw, 0)
        draw_key(canvas, p, left, top, key, k, state, glyph)
    return canvas


def panel_1(p, k, landscape):
    return panel_strip(p, k, landscape, [
        ("normal", glyph_prev), ("normal", glyph_next),
        ("pressed", glyph_prev), ("pressed", glyph_next),
        ("disabled", glyph_prev), ("disabled", glyph_next)])


def panel_2(p, k, landscape):
    return panel_strip(p, k, landscape, [
        ("normal", glyph_menu), ("normal", glyph_close),
        ("pressed", glyph_menu), ("pressed", glyph_close)])


# ---------------------------------------------------------------------------------------------
# Lists and the message header.

def plain(colour, size, k):
    return Canvas(size[0] * k, size[1] * k, solid(colour), transparent=False)


def thumb(p, k):
    w, h = THUMB[0] * k, THUMB[1] * k
    canvas = Canvas(w, h, solid(p.thumb), transparent=False)
    return canvas


def sms_header(p, k):
    w, h = HEADER[0] * k, HEADER[1] * k
    canvas = Canvas(w, h, vertical(p.header_top, p.header_bottom, 0, h), transparent=False)
    canvas.paint(lambda x, y: (h - k) - y, (170, 182, 194), (0, h - k, w, h))
    return canvas


# Every named bitmap: name, resource id (src/base/ResourceIds.h), how it is drawn.
BITMAPS = [
    ("btn_number_frame", "IDB_NUMBER_FRAME", lambda p, k: number_frame(p, k)),
    ("list_unselect_bgr", "IDB_LIST_UNSELECTED", lambda p, k: plain(p.list_row, LIST_TILE, k)),
    ("list_select_bgr", "IDB_LIST_SELECTED", lambda p, k: plain(p.list_selected, LIST_TILE, k)),
    ("list_void_bgr", "IDB_LIST_VOID", lambda p, k: plain(p.list_void, LIST_TILE, k)),
    ("scroll", "IDB_SCROLL", lambda p, k: thumb(p, k)),
    ("sms_bgr", "IDB_SMS_HEADER", lambda p, k: sms_header(p, k)),
    ("small_btn_text", "IDB_SMALL_FACE", lambda p, k: text_face(p, SMALL_CELL, SMALL_RADIUS, k)),
    ("big_btn_text", "IDB_BIG_FACE", lambda p, k: text_face(p, BIG_CELL, BIG_RADIUS, k)),
    ("small_btn_add", "IDB_SMALL_ADD_FACE", lambda p, k: add_face(p, SMALL_CELL, SMALL_RADIUS, k)),
    ("big_btn_add", "IDB_BIG_ADD_FACE", lambda p, k: add_face(p, BIG_CELL, BIG_RADIUS, k)),
    ("small_photo_frame", "IDB_SMALL_PHOTO_FRAME", lambda p, k: photo_frame(p, SMALL_CELL, SMALL_RADIUS, k)),
    ("big_photo_frame", "IDB_BIG_PHOTO_FRAME", lambda p, k: photo_frame(p, BIG_CELL, BIG_RADIUS, k)),
    ("small_active_frame", "IDB_SMALL_ACTIVE_FRAME", lambda p, k: active_frame(p, SMALL_CELL, SMALL_RADIUS, k)),
    ("big_active_frame", "IDB_BIG_ACTIVE_FRAME", lambda p, k: active_frame(p, BIG_CELL, BIG_RADIUS, k)),
    ("l_panel_1", "IDB_LANDSCAPE_PANEL_1", lambda p, k: panel_1(p, k, True)),
    ("p_panel_1", "IDB_PORTRAIT_PANEL_1", lambda p, k: panel_1(p, k, False)),
    ("l_panel_2", "IDB_LANDSCAPE_PANEL_2", lambda p, k: panel_2(p, k, True)),
    ("p_panel_2", "IDB_PORTRAIT_PANEL_2", lambda p, k: panel_2(p, k, False)),
]

# The sample skin replaces a few bitmaps, drawn for high-resolution screens. The panel images
# are opaque, so they come along: their corners carry the skin's own background.
SAMPLE_SKIN_BITMAPS = ["big_btn_text", "big_btn_add", "big_active_frame", "big_photo_frame",
                       "btn_number_frame", "p_panel_1", "p_panel_2", "l_panel_1", "l_panel_2"]

SAMPLE_SKIN_INI = """; Sample skin: a deep green board. Copy the DialdeckSkin folder and this file beside
; Dialdeck.exe; any bitmap of the folder replaces the built-in one of the same name.
[Dialdeck]
BgrColor = 24, 52, 44
TxtColor = 240, 236, 220
TxtSelectColor = 40, 28, 8
BtnNumberColor = 255, 244, 214
PhoneTypeColor1 = 255, 228, 160
PhoneTypeColor2 = 8, 20, 16
FontText = 9, Tahoma, 2, 0, 1
FontSmall = 7, Tahoma, 0, 1
FontButton = 7, Tahoma, 1
"""


def render_resources():
    for dpi, k in ((96, 1), (192, 2)):
        lines = ["// The skin bitmaps drawn at %d dots per inch, one line each: "
                 "<id> BITMAP \"<file>.bmp\"." % dpi,
                 "// The ids are those of src/base/ResourceIds.h.",
                 "// Rendered by res/art/generate.py; do not edit by hand.",
                 "#include \"base/ResourceIds.h\"", ""]
        for name, ident, draw in BITMAPS:
            write_bmp(os.path.join(HERE, str(dpi), name + ".bmp"), draw(DEFAULT, k), dpi)
            lines.append('%s BITMAP "art/%d/%s.bmp"' % (ident, dpi, name))
        with open(os.path.join(RES, "Bitmaps%d.rc" % dpi), "w", newline="\n") as f:
            f.write("\n".join(lines) + "\n")


def render_sample_skin():
    root = os.path.join(RES, "sample-skin")
    drawers = {name: draw for name, _, draw in BITMAPS}
    for name in SAMPLE_SKIN_BITMAPS:
        write_bmp(os.path.join(root, "DialdeckSkin", name + ".bmp"), drawers[name](FOREST, 2), 192)
    # The board joins the skin folder's path and "skin.ini" without a separator.
    with open(os.path.join(root, "DialdeckSkinskin.ini"), "w", newline="\r\n") as f:
        f.write(SAMPLE_SKIN_INI)


if __name__ == "__main__":
    render_resources()
    render_sample_skin()
