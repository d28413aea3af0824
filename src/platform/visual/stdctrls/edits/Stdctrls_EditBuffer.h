// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <optional>
#include <vector>

namespace Stdctrls
{

/// The text of an edit with its caret and selection, and the last edit, which can be taken back. Places count
/// from 0, in UTF-16 units; those outside are held within the text.
///
///     CEditBuffer buffer;
///     buffer.Replace(0, 0, u"12,5");
///     buffer.Select(0, 2);                                        // the caret stands behind "12"
///     buffer.Undo();                                              // empty again
class TRS8_BTL_API CEditBuffer
{
public:
    const System::UnicodeString& getText() const noexcept { return mText; }
    int Length() const noexcept { return mText.Length(); }
    /// The caret goes to the beginning, and there is nothing to undo.
    void SetText(const System::UnicodeString& text);

    int SelStart() const noexcept { return mAnchor < mCaret ? mAnchor : mCaret; }
    int SelLength() const noexcept { return mAnchor < mCaret ? mCaret - mAnchor : mAnchor - mCaret; }
    int getAnchor() const noexcept { return mAnchor; }
    int getCaret() const noexcept { return mCaret; }
    void Select(int anchor, int caret) noexcept;

    /// Puts `text` in place of `length` units from `start` on; the caret goes behind it. Insertions that
    /// follow each other are one edit to `Undo`.
    void Replace(int start, int length, const System::UnicodeString& text);
    bool CanUndo() const noexcept { return mUndo.has_value(); }
    /// Takes the last edit back; done again, takes that back. False if there is none.
    bool Undo();
    void ClearUndo() noexcept { mUndo.reset(); }

    /// One character further or back: a surrogate pair and a CR LF are not parted.
    int NextPlace(int place) const noexcept;
    int FormerPlace(int place) const noexcept;
    /// The beginning of the next word, or of this or the former one.
    int NextWord(int place) const noexcept;
    int FormerWord(int place) const noexcept;
    /// The end of the word that the place is in.
    int WordEnd(int place) const noexcept;

    // Lines end at CR LF, CR or LF; there is always one.

    int LineCount() const { return static_cast<int>(Lines().size()); }
    int LineAt(int place) const;
    /// Where the line begins, and where it ends in front of its break; the number is held within the lines.
    int LineBegin(int line) const;
    int LineEnd(int line) const;

private:
    /// An edit: what is to be put back, and for how much of what is there now.
    struct TUndo
    {
        int start = 0;
        int length = 0;
        System::UnicodeString former;
    };

    int Held(int place) const noexcept;
    const std::vector<int>& Lines() const;
    void MoveLines(int start, int oldLength, int newLength);

    System::UnicodeString mText;
    int mAnchor = 0;
    int mCaret = 0;
    std::optional<TUndo> mUndo;
    /// Where the lines begin; empty as long as nobody asked.
    mutable std::vector<int> mLines;
};

} // namespace Stdctrls
