// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

#include <algorithm>
#include <cstdlib>

// The rows in which a memo is seen whose window doesn't act by itself.

namespace Stdctrls
{

using System::UnicodeString;
using System::WideChar;
using Types::TPoint;
using Types::TRect;

namespace
{

/// A row begins at each so-manieth unit of a line, whatever there is room for: what is seen of a text that is
/// all one line is then known without all that is in front of it.
constexpr int PartLength = 0x4000;

bool IsBlank(WideChar unit)
{
    return unit == u' ' || unit == u'\t';
}

/// Where a row ends that has room for the units up to `end`: behind blanks, which may stick out, or else
/// behind a whole character.
int BreakWithin(const UnicodeString& text, int begin, int end, int lineEnd)
{
    const auto units = text.AsView();
    const auto at = [units](int place) { return units[static_cast<std::size_t>(place)]; };
    int last = end;
    while (last < lineEnd && IsBlank(at(last))) {
        ++last;
    }
    if (last > end) {
        return last;
    }
    while (last > begin && !IsBlank(at(last - 1))) {
        --last;
    }
    if (last > begin) {
        return last;
    }
    const bool partsPair = (at(end) & 0xFC00) == 0xDC00 && (at(end - 1) & 0xFC00) == 0xD800;
    return !partsPair ? end : end - 1 > begin ? end - 1 : end + 1;
}

} // namespace

bool TCustomMemo::IsWrapped() const
{
    return mWordWrap && mScrollBars != ssHorizontal && mScrollBars != ssBoth;
}

int TCustomMemo::RowHeight(const TRow&) const
{
    return std::max(LineHeight(), 1);
}

TPoint TCustomMemo::RowRoom(int) const
{
    return {0, TextRect().Width()};
}

Classes::TAlignment TCustomMemo::RowAlignment(int) const
{
    return getAlignment();
}

TCustomMemo::TRow TCustomMemo::PartAround(int place) const
{
    const int begin = LineBegin(place);
    const int end = LineEnd(place);
    if (!IsWrapped()) {
        return {begin, end};
    }
    // The place behind the line is one of its last part.
    const int last = std::max(std::min(place, end - 1), begin);
    const int partBegin = last - (last - begin) % PartLength;
    return {partBegin, std::min(partBegin + PartLength, end)};
}

TCustomMemo::TRow TCustomMemo::RowFrom(int begin) const
{
    const int partEnd = PartAround(begin).end;
    if (!IsWrapped()) {
        return {begin, partEnd};
    }
    const TPoint room = RowRoom(begin);
    const int fitting = UnitsFitting(begin, SeenLength(begin, partEnd), room.Y - room.X);
    const int end = begin + std::max(fitting, 1);
    return {begin, end >= partEnd ? partEnd : BreakWithin(Buffer().getText(), begin, end, partEnd)};
}

TCustomMemo::TRow TCustomMemo::RowAround(int place) const
{
    const TRow part = PartAround(std::clamp(place, 0, Buffer().Length()));
    TRow row = RowFrom(part.begin);
    while (row.end <= place && row.end < part.end) {
        row = RowFrom(row.end);
    }
    return row;
}

std::optional<TCustomMemo::TRow> TCustomMemo::RowBefore(const TRow& row) const
{
    const int line = Buffer().LineAt(row.begin);
    if (row.begin > Buffer().LineBegin(line)) {
        return TRow{RowAround(row.begin - 1).begin, row.begin};
    }
    return line == 0 ? std::nullopt : std::optional(RowAround(Buffer().LineEnd(line - 1)));
}

std::optional<TCustomMemo::TRow> TCustomMemo::RowBehind(const TRow& row) const
{
    const int line = Buffer().LineAt(row.begin);
    if (row.end < Buffer().LineEnd(line)) {
        return RowFrom(row.end);
    }
    return line + 1 >= Buffer().LineCount() ? std::nullopt
                                            : std::optional(RowFrom(Buffer().LineBegin(line + 1)));
}

TCustomMemo::TRow TCustomMemo::SeenOf(const TRow& row) const
{
    const int begin = IsWrapped() ? row.begin : std::min(row.begin + mFirstColumn, row.end);
    return {begin, begin + SeenLength(begin, row.end)};
}

int TCustomMemo::LeftOf(const TRow& seen) const
{
    const TPoint room = RowRoom(seen.begin);
    const int width = WidthOf(seen.begin, seen.end - seen.begin);
    return TextRect().Left + room.X + AlignmentSpace(RowAlignment(seen.begin), width, room.Y - room.X);
}

void TCustomMemo::ScrollCaret()
{
    if (!getShowing() || Controls::WindowActs(*this)) {
        return;
    }
    const TRow caretRow = RowAround(Buffer().getCaret());
    const int height = TextRect().Height();
    // The highest row from which on the caret's is seen.
    TRow first = caretRow;
    int seen = RowHeight(caretRow);
    for (std::optional<TRow> row = RowBefore(first); row && first.begin > mTop; row = RowBefore(first)) {
        seen += RowHeight(*row);
        if (seen > height) {
            break;
        }
        first = *row;
    }
    mTop = std::clamp(mTop, first.begin, caretRow.begin);
    if (!IsWrapped()) {
        mFirstColumn = FirstSeenFor(caretRow.begin + mFirstColumn, Buffer().getCaret()) - caretRow.begin;
    }
}

int TCustomMemo::VerticalPlace(int rows) const
{
    const int caret = Buffer().getCaret();
    TRow row = RowAround(caret);
    const int column = caret - row.begin;
    for (int left = std::abs(rows); left > 0; --left) {
        const std::optional<TRow> next = rows < 0 ? RowBefore(row) : RowBehind(row);
        if (!next) {
            // As far as it goes.
            break;
        }
        row = *next;
    }
    return std::min(row.begin + column, LastPlaceIn(row));
}

int TCustomMemo::HomePlace() const
{
    return RowAround(Buffer().getCaret()).begin;
}

int TCustomMemo::EndPlace() const
{
    return LastPlaceIn(RowAround(Buffer().getCaret()));
}

int TCustomMemo::LastPlaceIn(const TRow& row) const
{
    // The place behind a wrapped row is the first one of the next.
    const bool isWrappedOn = row.end < LineEnd(row.begin);
    return isWrappedOn ? std::max(Buffer().FormerPlace(row.end), row.begin) : row.end;
}

int TCustomMemo::PlaceAt(TPoint place) const
{
    TRow row = RowAround(mTop);
    int bottom = TextRect().Top + RowHeight(row);
    for (std::optional<TRow> next = RowBehind(row); next && place.Y >= bottom; next = RowBehind(row)) {
        row = *next;
        bottom += RowHeight(row);
    }
    const TRow seen = SeenOf(row);
    return std::min(seen.begin + UnitsWithin(seen.begin, seen.end - seen.begin, place.X - LeftOf(seen)),
                    LastPlaceIn(row));
}

void TCustomMemo::PaintText(Graphics::TCanvas& canvas)
{
    const TRect area = TextRect();
    int top = area.Top;
    for (std::optional<TRow> row = RowAround(mTop); row && top < area.Bottom; row = RowBehind(*row)) {
        const TRow seen = SeenOf(*row);
        PaintRow(canvas, {LeftOf(seen), top}, seen);
        top += RowHeight(*row);
    }
}

void TCustomMemo::PaintRow(Graphics::TCanvas& canvas, TPoint at, const TRow& row)
{
    PaintPiece(canvas, at, row.begin, row.end - row.begin, TextColor());
}

} // namespace Stdctrls
