// The board window's painting: every button of the page, the selection frame and the dialer
// numbers, into the off-screen bitmap the paint hands in.
#include "base/ScreenInfo.h"
#include "contacts/ContactsSession.h"
#include "skin/Skin.h"
#include "view/BoardWindow.h"
#include "view/PaintGeometry.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"

namespace {

/// The entry flag of a contact with a picture.
constexpr uint32_t kHasPicture = 1;

void TextOut16(HDC dc, int x, int y, const Str& text) {
    ExtTextOutW(dc, x, y, 0, nullptr, W(text.c_str()), static_cast<UINT>(text.Length()), nullptr);
}

}  // namespace

void BoardWindow::Paint(HDC dc, const RECT& clip) {
    RECT client;
    GetClientRect(hwnd_, &client);
    gdi::FillSolid(dc, client, skin_ ? skin_->Colours().background : kBoardDefaultBackground);
    if (!skin_)
        return;
    SetBkMode(dc, TRANSPARENT);
    // Entries replaced, removed or refreshed since the last paint give up their photos.
    photos_.KeepShown(board_);
    const Rect clipBox = FromRECT(clip);
    // The label's height is the small font's, the same for every cell of this paint.
    const int labelH = showPhoneType_ ? Skin::GetFontHeight(skin_->Font(SkinFont::kSmall)) : 0;
    Array<int> numbered;
    for (int p = 0; p < geometry_.PerPage(); ++p) {
        const Rect& cell = geometry_.Cell(p);
        if (cell.Width() > 0 && cell.Intersects(clipBox))
            PaintCell(dc, p, labelH, numbered);
    }
    PaintSelection(dc);
    if (!showDialerButton_)
        return;
    for (int p : numbered) {
        const int index = board_.FindBySlot(geometry_.SlotOf(p));
        if (index >= 0)
            PaintNumber(dc, board_.EntryAt(index), ToRECT(geometry_.Cell(p)));
    }
}

void BoardWindow::PaintCell(HDC dc, int position, int labelH, Array<int>& numbered) {
    const RECT cell = ToRECT(geometry_.Cell(position));
    const bool pressed = cellPressed_[position];
    const int cellW = geometry_.CellW();
    const int cellH = geometry_.CellH();
    const int index = board_.FindBySlot(geometry_.SlotOf(position));
    if (index < 0) {
        Skin::DrawTransparent(dc, cell.left, cell.top, skin_->Button(ButtonArt::kAddFace),
                              pressed ? cellW : 0, 0, cellW, cellH);
        return;
    }
    if (!PaintPhoto(dc, index, cell, pressed)) {
        Skin::DrawTransparent(dc, cell.left, cell.top, skin_->Button(ButtonArt::kFace),
                              pressed ? cellW : 0, 0, cellW, cellH);
        PaintName(dc, board_.EntryAt(index), cell, pressed, labelH);
    }
    if (showPhoneType_ && !board_.EntryAt(index).typeLabel.IsEmpty())
        PaintLabel(dc, board_.EntryAt(index).typeLabel, cell);
    numbered.Add(position);
}

// A photo fills the cell, centred, and the photo frame is laid over it. False when the button
// has no usable picture and is drawn plain.
bool BoardWindow::PaintPhoto(HDC dc, int index, const RECT& cell, bool pressed) {
    HBITMAP photo = PhotoOf(index);
    if (photo == nullptr)
        return false;
    const int cellW = geometry_.CellW();
    const int cellH = geometry_.CellH();
    const SIZE size = Skin::BitmapSize(photo);
    const Point from = PhotoSourceOffset(size.cx, size.cy, cellW, cellH);
    {
        gdi::MemoryDc source(dc);
        gdi::Selection selection(source.Get(), photo);
        BitBlt(dc, cell.left, cell.top, cellW, cellH, source.Get(), from.x, from.y, SRCCOPY);
    }
    Skin::DrawTransparent(dc, cell.left, cell.top, skin_->Button(ButtonArt::kPhotoFrame),
                          pressed ? cellW : 0, 0, cellW, cellH);
    return true;
}

// The contact's cached photo, read at button size on first use. A contact that is gone (oid 0)
// or gives no picture loses its picture flag and is drawn plain from then on.
HBITMAP BoardWindow::PhotoOf(int index) {
    const DialEntry& entry = board_.EntryAt(index);
    if ((entry.flags & kHasPicture) == 0)
        return nullptr;
    if (HBITMAP cached = photos_.Find(entry.oid))
        return cached;
    ContactRecord record;
    if (entry.oid != 0 && session_ != nullptr &&
        session_->ReadContact(entry.oid, record, read_flags::kPicture, geometry_.CellW(),
                              geometry_.CellH()) &&
        record.picture != nullptr) {
        // The session decodes to a GDI bitmap; the cache takes it over from the record.
        return photos_.Put(entry.oid,
                           gdi::Object<HBITMAP>(static_cast<HBITMAP>(record.picture.Release())));
    }
    board_.ForgetPicture(index);
    return nullptr;
}

void BoardWindow::PaintName(HDC dc, const DialEntry& entry, const RECT& cell, bool pressed,
                            int labelH) {
    const Rect box = NameBox(FromRECT(cell), EffectiveDpiX(), EffectiveDpiY(), labelH);
    gdi::Selection font(dc, skin_->Font(SkinFont::kText));
    SetTextColor(dc, pressed ? skin_->Colours().textSelected : skin_->Colours().text);
    Skin::DrawWrapped(dc, DisplayName(entry), ToRECT(box));
}

void BoardWindow::PaintLabel(HDC dc, const Str& label, const RECT& cell) {
    gdi::Selection font(dc, skin_->Font(SkinFont::kSmall));
    SIZE text{};
    GetTextExtentPoint32W(dc, W(label.c_str()), label.Length(), &text);
    const Point at = LabelOrigin(FromRECT(cell), text.cx, text.cy, EffectiveDpiY());
    const SkinColours& colours = skin_->Colours();
    if (colours.phoneType2 != colours.phoneType1) {
        SetTextColor(dc, colours.phoneType2);
        TextOut16(dc, at.x - ShadowStep(EffectiveDpiX()), at.y - ShadowStep(EffectiveDpiY()),
                  label);
    }
    SetTextColor(dc, colours.phoneType1);
    TextOut16(dc, at.x, at.y, label);
}

void BoardWindow::PaintSelection(HDC dc) {
    const int selected = geometry_.Selected();
    if (selected < 0 || selected >= geometry_.PerPage())
        return;
    const Rect& cell = geometry_.Cell(selected);
    HBITMAP frame = skin_->Button(ButtonArt::kActiveFrame);
    if (cell.Width() == 0 || frame == nullptr)
        return;
    const SIZE size = Skin::BitmapSize(frame);
    const Point at = FrameOrigin(cell, size.cx, size.cy);
    Skin::DrawTransparent(dc, at.x, at.y, frame, 0, 0, size.cx, size.cy);
}

void BoardWindow::PaintNumber(HDC dc, const DialEntry& entry, const RECT& cell) {
    if (!HasDialerNumber(entry.btn) || !numberFrame_)
        return;
    const SIZE size = Skin::BitmapSize(numberFrame_.get());
    const Rect frame = NumberFrameBox(FromRECT(cell), size.cx, size.cy);
    Skin::DrawTransparent(dc, frame.left, frame.top, numberFrame_.get(), 0, 0, size.cx, size.cy);
    Str number;
    number.Format(u"%d", entry.btn);
    gdi::Selection font(dc, skin_->Font(SkinFont::kSmall));
    SIZE text{};
    GetTextExtentPoint32W(dc, W(number.c_str()), number.Length(), &text);
    // An odd free width would put the number half a pixel off; widen the box to even it out.
    RECT box = ToRECT(NumberTextBox(frame, text.cx, EffectiveDpiX()));
    SetTextColor(dc, skin_->Colours().buttonNumber);
    DrawTextW(dc, W(number.c_str()), number.Length(), &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}
