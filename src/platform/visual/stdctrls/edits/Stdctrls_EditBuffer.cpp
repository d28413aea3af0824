// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_EditBuffer.h"

#include "platform/runtime/sysutils/Character.h"

#include <algorithm>

namespace Stdctrls
{

using Character::TCharacter;
using System::UnicodeString;
using System::WideChar;

namespace
{

using View = std::u16string_view;

/// Whether the two units are one character.
bool AreOne(WideChar first, WideChar second) noexcept
{
    const bool isPair = (first & 0xFC00) == 0xD800 && (second & 0xFC00) == 0xDC00;
    return isPair || (first == u'\r' && second == u'\n');
}

/// Words are runs of characters of one kind.
enum class EKind
{
    Blank,
    Word,
    Mark
};

EKind KindOf(WideChar c)
{
    if (c <= u' ' || TCharacter::IsWhiteSpace(c)) {
        return EKind::Blank;
    }
    const bool isWord = c == u'_' || (c & 0xF800) == 0xD800 || TCharacter::IsLetterOrDigit(c);
    return isWord ? EKind::Word : EKind::Mark;
}

std::size_t EndOfRun(View text, std::size_t place)
{
    const EKind kind = place < text.size() ? KindOf(text[place]) : EKind::Blank;
    while (place < text.size() && KindOf(text[place]) == kind) {
        ++place;
    }
    return place;
}

/// Adds where lines begin within `text`, which stands at `offset`. A CR that ends `text` is no line's end if
/// an LF follows.
void AddLines(std::vector<int>& lines, View text, std::size_t begin, std::size_t end)
{
    for (std::size_t i = begin; i < end; ++i) {
        i = text.find_first_of(u"\r\n", i);
        if (i >= end) {
            return;
        }
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            ++i;
        }
        lines.push_back(static_cast<int>(i) + 1);
    }
}

} // namespace

int CEditBuffer::Held(int place) const noexcept
{
    return std::clamp(place, 0, Length());
}

void CEditBuffer::SetText(const UnicodeString& text)
{
    mText = text;
    mAnchor = mCaret = 0;
    mUndo.reset();
    mLines.clear();
}

void CEditBuffer::Select(int anchor, int caret) noexcept
{
    mAnchor = Held(anchor);
    mCaret = Held(caret);
}

void CEditBuffer::Replace(int start, int length, const UnicodeString& text)
{
    start = Held(start);
    length = std::clamp(length, 0, Length() - start);
    const bool continues = mUndo && length == 0 && text.Length() == 1 && mUndo->former.IsEmpty() &&
                           mUndo->length > 0 && mUndo->start + mUndo->length == start;
    if (continues) {
        ++mUndo->length;
    } else {
        mUndo = TUndo{start, text.Length(), mText.SubString(start + 1, length)};
    }
    if (length == 0 && start == Length()) {
        mText += text;
    } else {
        mText.Delete(start + 1, length);
        mText.Insert(text, start + 1);
    }
    MoveLines(start, length, text.Length());
    mAnchor = mCaret = start + text.Length();
}

bool CEditBuffer::Undo()
{
    if (!mUndo) {
        return false;
    }
    const TUndo undo = std::move(*mUndo);
    mUndo.reset();
    Replace(undo.start, undo.length, undo.former);
    Select(undo.start, undo.start + undo.former.Length());
    return true;
}

int CEditBuffer::NextPlace(int place) const noexcept
{
    const View text = mText.AsView();
    const auto at = static_cast<std::size_t>(Held(place));
    if (at >= text.size()) {
        return Length();
    }
    return static_cast<int>(at) + (at + 1 < text.size() && AreOne(text[at], text[at + 1]) ? 2 : 1);
}

int CEditBuffer::FormerPlace(int place) const noexcept
{
    const View text = mText.AsView();
    const auto at = static_cast<std::size_t>(Held(place));
    if (at < 2) {
        return 0;
    }
    return static_cast<int>(at) - (AreOne(text[at - 2], text[at - 1]) ? 2 : 1);
}

int CEditBuffer::NextWord(int place) const noexcept
{
    const View text = mText.AsView();
    auto at = static_cast<std::size_t>(Held(place));
    if (at < text.size() && KindOf(text[at]) != EKind::Blank) {
        at = EndOfRun(text, at);
    }
    if (at < text.size() && KindOf(text[at]) == EKind::Blank) {
        at = EndOfRun(text, at);
    }
    return static_cast<int>(at);
}

int CEditBuffer::FormerWord(int place) const noexcept
{
    const View text = mText.AsView();
    auto at = static_cast<std::size_t>(Held(place));
    while (at > 0 && KindOf(text[at - 1]) == EKind::Blank) {
        --at;
    }
    const EKind kind = at > 0 ? KindOf(text[at - 1]) : EKind::Blank;
    while (at > 0 && KindOf(text[at - 1]) == kind) {
        --at;
    }
    return static_cast<int>(at);
}

int CEditBuffer::WordEnd(int place) const noexcept
{
    return static_cast<int>(EndOfRun(mText.AsView(), static_cast<std::size_t>(Held(place))));
}

const std::vector<int>& CEditBuffer::Lines() const
{
    if (mLines.empty()) {
        mLines.push_back(0);
        AddLines(mLines, mText.AsView(), 0, mText.size());
    }
    return mLines;
}

void CEditBuffer::MoveLines(int start, int oldLength, int newLength)
{
    if (mLines.empty()) {
        return;
    }
    // A break may have come to be, or ceased to be, one with what stands beside it.
    const int from = std::max(start - 1, 0);
    const int newEnd = std::min(start + newLength + 1, Length());
    const int shift = newLength - oldLength;
    const auto first = std::upper_bound(mLines.begin() + 1, mLines.end(), from);
    const auto last = std::upper_bound(first, mLines.end(), newEnd - shift);
    std::vector<int> found;
    AddLines(found, mText.AsView(), static_cast<std::size_t>(from), static_cast<std::size_t>(newEnd));
    // What ends beyond is known from what stood there.
    std::erase_if(found, [newEnd](int begin) { return begin > newEnd; });
    std::for_each(last, mLines.end(), [shift](int& begin) { begin += shift; });
    const auto place = mLines.erase(first, last);
    mLines.insert(place, found.begin(), found.end());
}

int CEditBuffer::LineAt(int place) const
{
    const auto& lines = Lines();
    return static_cast<int>(std::upper_bound(lines.begin() + 1, lines.end(), Held(place)) - lines.begin()) -
           1;
}

int CEditBuffer::LineBegin(int line) const
{
    const auto& lines = Lines();
    return lines[static_cast<std::size_t>(std::clamp(line, 0, LineCount() - 1))];
}

int CEditBuffer::LineEnd(int line) const
{
    line = std::clamp(line, 0, LineCount() - 1);
    if (line + 1 == LineCount()) {
        return Length();
    }
    return FormerPlace(LineBegin(line + 1));
}

} // namespace Stdctrls
