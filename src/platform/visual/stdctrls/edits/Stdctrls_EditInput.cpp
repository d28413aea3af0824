// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <algorithm>

// Keys, the mouse and the picture of an edit whose window doesn't act by itself.

namespace Stdctrls
{

using Classes::ssAlt;
using Classes::ssCtrl;
using Classes::ssShift;
using Classes::TShiftState;
using System::UnicodeString;
using System::WideChar;
using System::Word;
using Types::TPoint;
using Types::TRect;

bool TCustomEdit::WantsKey(Word key, TShiftState shift) const
{
    const bool isArrow = key >= VK_LEFT && key <= VK_DOWN;
    return isArrow && !shift.Contains(ssAlt);
}

bool TCustomEdit::ActOnKey(Word key, TShiftState shift)
{
    if (shift.Contains(ssAlt) && (shift.Contains(ssCtrl) || key != VK_BACK)) {
        return false;
    }
    return ActOnClipboardKey(key, shift) || ActOnDeleteKey(key, shift) || ActOnMoveKey(key, shift);
}

bool TCustomEdit::ActOnClipboardKey(Word key, const TShiftState& shift)
{
    const bool isCtrl = shift.Contains(ssCtrl);
    const bool isShift = shift.Contains(ssShift);
    if (isCtrl && key == 'A') {
        SelectAll();
    } else if (isCtrl && (key == 'C' || key == VK_INSERT)) {
        CopyToClipboard();
    } else if ((isCtrl && key == 'X') || (isShift && !isCtrl && key == VK_DELETE)) {
        CutToClipboard();
    } else if ((isCtrl && key == 'V') || (isShift && !isCtrl && key == VK_INSERT)) {
        PasteFromClipboard();
    } else if ((isCtrl && key == 'Z') || (shift.Contains(ssAlt) && key == VK_BACK)) {
        Undo();
    } else {
        return false;
    }
    return true;
}

bool TCustomEdit::ActOnDeleteKey(Word key, const TShiftState& shift)
{
    const int caret = mBuffer.getCaret();
    if (key == VK_DELETE) {
        DeleteByKey(caret, shift.Contains(ssCtrl) ? mBuffer.NextWord(caret) : mBuffer.NextPlace(caret));
        return true;
    }
    // Without Ctrl it comes as a character, which a handler may keep.
    if (key == VK_BACK && shift.Contains(ssCtrl)) {
        DeleteByKey(mBuffer.FormerWord(caret), caret);
        return true;
    }
    return false;
}

void TCustomEdit::DeleteByKey(int from, int to)
{
    if (mBuffer.SelLength() > 0) {
        from = mBuffer.SelStart();
        to = from + mBuffer.SelLength();
    }
    EditByUser(from, to - from, {});
}

bool TCustomEdit::ActOnMoveKey(Word key, const TShiftState& shift)
{
    const bool isCtrl = shift.Contains(ssCtrl);
    const bool extends = shift.Contains(ssShift);
    const int caret = mBuffer.getCaret();
    const bool leavesSelection = mBuffer.SelLength() > 0 && !extends && !isCtrl;
    switch (key) {
    case VK_LEFT:
        MoveCaret(leavesSelection ? mBuffer.SelStart()
                  : isCtrl        ? mBuffer.FormerWord(caret)
                                  : mBuffer.FormerPlace(caret),
                  extends);
        return true;
    case VK_RIGHT:
        MoveCaret(leavesSelection ? mBuffer.SelStart() + mBuffer.SelLength()
                  : isCtrl        ? mBuffer.NextWord(caret)
                                  : mBuffer.NextPlace(caret),
                  extends);
        return true;
    case VK_UP:
    case VK_DOWN:
        MoveCaret(VerticalPlace(key == VK_UP ? -1 : 1), extends);
        return true;
    case VK_PRIOR:
    case VK_NEXT:
        MoveCaret(VerticalPlace(key == VK_PRIOR ? -PageLines() : PageLines()), extends);
        return IsMultiLine();
    case VK_HOME:
        MoveCaret(isCtrl ? 0 : HomePlace(), extends);
        return true;
    case VK_END:
        MoveCaret(isCtrl ? mBuffer.Length() : EndPlace(), extends);
        return true;
    default:
        return false;
    }
}

void TCustomEdit::MoveCaret(int place, bool extends)
{
    Select(extends ? mBuffer.getAnchor() : place, place);
}

int TCustomEdit::VerticalPlace(int rows) const
{
    const int caret = mBuffer.getCaret();
    return rows < 0 ? mBuffer.FormerPlace(caret) : mBuffer.NextPlace(caret);
}

bool TCustomEdit::ActOnChar(WideChar character)
{
    if (character == VK_BACK) {
        DeleteByKey(mBuffer.FormerPlace(mBuffer.getCaret()), mBuffer.getCaret());
        return true;
    }
    constexpr WideChar deleted = 127;
    if (character < u' ' || character == deleted) {
        return false;
    }
    EditByUser(mBuffer.SelStart(), mBuffer.SelLength(), UnicodeString(character));
    return true;
}

void TCustomEdit::ActOnMouse(const Toolkits::TMouseInput& mouse)
{
    using Toolkits::EMouseAction;
    if (mouse.action == EMouseAction::Move && getControlState().Contains(Controls::csLButtonDown)) {
        MoveCaret(PlaceAt(mouse.place), true);
        return;
    }
    const bool isPress = mouse.action == EMouseAction::Down || mouse.action == EMouseAction::DoubleClick;
    if (!isPress || mouse.button != Controls::mbLeft) {
        return;
    }
    if (!Focused() && CanFocus()) {
        const Classes::TComponentWatch watch(this);
        SetFocus();
        if (!watch.IsAlive()) {
            return;
        }
    }
    const int place = PlaceAt(mouse.place);
    if (mouse.action == EMouseAction::DoubleClick) {
        const int begin = mBuffer.FormerWord(mBuffer.NextPlace(place));
        Select(begin, mBuffer.NextWord(begin));
    } else {
        MoveCaret(place, mouse.shift.Contains(ssShift));
    }
}

// The picture.

int TCustomEdit::LineHeight() const
{
    return Toolkits::CurrentToolkit().FontMetrics(GetShownFont().getData()).height;
}

int TCustomEdit::TextWidth(const UnicodeString& text) const
{
    return text.IsEmpty() ? 0 : Toolkits::CurrentToolkit().TextExtent(GetShownFont().getData(), text).cx;
}

UnicodeString TCustomEdit::ShownText(const UnicodeString& text) const
{
    return mTraits.passwordChar == 0
               ? text
               : System::UnicodeString::StringOfChar(mTraits.passwordChar, text.Length());
}

TRect TCustomEdit::TextRect() const
{
    const int inset = mBorderStyle == Forms::bsNone ? 1 : getCtl3D() ? 4 : 3;
    const TRect client = GetClientRect();
    return {inset, inset, std::max(client.Right - inset, inset), std::max(client.Bottom - inset, inset)};
}

int TCustomEdit::WidthOf(int place, int length) const
{
    return TextWidth(ShownText(mBuffer.getText().SubString(place + 1, length)));
}

int TCustomEdit::UnitsFitting(int place, int length, int distance) const
{
    int low = 0;
    int high = length;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (WidthOf(place, middle) <= distance) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return low;
}

int TCustomEdit::UnitsWithin(int place, int length, int distance) const
{
    const int count = UnitsFitting(place, length, distance);
    if (count == length || distance < 0) {
        return count;
    }
    // The nearer side of the character that is hit.
    const int left = WidthOf(place, count);
    const int right = WidthOf(place, count + 1);
    return distance - left > right - distance ? count + 1 : count;
}

namespace
{

/// More units than any width shows, since few take no width of their own.
int MostUnits(int width)
{
    return std::max(width, 0) + 16;
}

} // namespace

int TCustomEdit::SeenLength(int place, int end) const
{
    return std::min(end - place, MostUnits(TextRect().Width()));
}

int TCustomEdit::SeenLength() const
{
    mFirstSeen = std::min(mFirstSeen, mBuffer.Length());
    return SeenLength(mFirstSeen, mBuffer.Length());
}

int TCustomEdit::AlignmentSpace(Classes::TAlignment alignment, int width, int room)
{
    const int space = room - width;
    if (alignment == Classes::taLeftJustify || space <= 0) {
        return 0;
    }
    return alignment == Classes::taCenter ? space / 2 : space;
}

int TCustomEdit::TextLeft(int width) const
{
    const TRect area = TextRect();
    return area.Left + AlignmentSpace(mAlignment, width, area.Width());
}

int TCustomEdit::PlaceAt(TPoint place) const
{
    const int length = SeenLength();
    return mFirstSeen + UnitsWithin(mFirstSeen, length, place.X - TextLeft(WidthOf(mFirstSeen, length)));
}

int TCustomEdit::FirstSeenFor(int first, int caret) const
{
    const int width = TextRect().Width();
    int low = std::max(std::min(first, caret), caret - MostUnits(width));
    int high = caret;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (WidthOf(middle, caret - middle) <= width) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

void TCustomEdit::ScrollCaret()
{
    if (getShowing() && !Controls::WindowActs(*this)) {
        mFirstSeen = FirstSeenFor(mFirstSeen, mBuffer.getCaret());
    }
}

Graphics::TColor TCustomEdit::TextColor() const
{
    return getEnabled() ? GetShownFont().getColor() : Graphics::clGrayText;
}

void TCustomEdit::PaintPiece(Graphics::TCanvas& canvas, TPoint at, int place, int length,
                             Graphics::TColor color) const
{
    const bool isSelectionSeen = Focused() || !mTraits.hidesSelection;
    const UnicodeString text = ShownText(mBuffer.getText().SubString(place + 1, length));
    const int begin = std::clamp(mBuffer.SelStart() - place, 0, length);
    const int end = std::clamp(mBuffer.SelStart() + mBuffer.SelLength() - place, 0, length);
    canvas.getBrush()->setStyle(Graphics::bsClear);
    canvas.getFont()->setColor(color);
    canvas.TextOut(at.X, at.Y, text);
    if (!isSelectionSeen || begin == end) {
        return;
    }
    canvas.getBrush()->setColor(Graphics::clHighlight);
    canvas.getBrush()->setStyle(Graphics::bsSolid);
    canvas.getFont()->setColor(Graphics::clHighlightText);
    canvas.TextOut(at.X + WidthOf(place, begin), at.Y, text.SubString(begin + 1, end - begin));
}

void TCustomEdit::PaintText(Graphics::TCanvas& canvas)
{
    const TRect area = TextRect();
    if (mBuffer.Length() == 0) {
        canvas.getBrush()->setStyle(Graphics::bsClear);
        canvas.getFont()->setColor(Graphics::clGrayText);
        canvas.TextOut(TextLeft(TextWidth(mTraits.hint)), area.Top, mTraits.hint);
        return;
    }
    const int length = SeenLength();
    PaintPiece(canvas, {TextLeft(WidthOf(mFirstSeen, length)), area.Top}, mFirstSeen, length, TextColor());
}

void TCustomEdit::PaintOn(Toolkits::PaintDevice& device)
{
    Graphics::TCanvas canvas;
    canvas.setFont(const_cast<Graphics::TFont*>(&GetShownFont()));
    canvas.getBrush()->setColor(getColor());
    canvas.setHandle(&device);
    canvas.FillRect(GetClientRect());
    if (mBorderStyle != Forms::bsNone) {
        canvas.getBrush()->setColor(Graphics::clBtnShadow);
        canvas.FrameRect(GetClientRect());
    }
    PaintText(canvas);
    canvas.setHandle(nullptr);
}

} // namespace Stdctrls
