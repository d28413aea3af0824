// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Classes_Persistent.h"

namespace Toolkits
{
class Pixels;
} // namespace Toolkits

// What can be on the clipboard. Texts count as both kinds of text, pictures as both kinds of bitmap.
inline constexpr System::Word CF_TEXT = 1;
inline constexpr System::Word CF_BITMAP = 2;
inline constexpr System::Word CF_DIB = 8;
inline constexpr System::Word CF_UNICODETEXT = 13;

namespace Clipbrd
{

/// A picture of any kind, for `TClipboard::HasFormat`.
inline constexpr System::Word CF_PICTURE = 0xC001;

/// The clipboard of the desktop: one text or one picture, of which the last that was put there counts. What a
/// toolkit doesn't share with other programs is kept for this one.
///
///     Clipbrd::Clipboard().setAsText(u"12,5 V");
///     if (Clipbrd::Clipboard().HasFormat(CF_BITMAP)) { bitmap.Assign(&Clipbrd::Clipboard()); }
class TRS8_BTL_API TClipboard : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TClipboard, Classes::TPersistent)

public:
    TClipboard();
    ~TClipboard() override;

    /// Puts a copy of a picture, or the text of a `Classes::TStrings`, on the clipboard; null clears it.
    /// `Sysutils::EConvertError` for anything else.
    void Assign(TPersistent* source) override;
    /// Gives a graphic or a picture the picture on the clipboard, a `Classes::TStrings` the text.
    /// `Graphics::EInvalidGraphic` if there is no picture.
    void AssignTo(TPersistent* target) const override;

    /// The text; empty if there is none.
    System::UnicodeString getAsText() const;
    void setAsText(const System::UnicodeString& text);
    /// As `setAsText`; null counts as empty.
    void SetTextBuf(const System::WideChar* text);
    void Clear();

    /// Whether there is something in this form, one of `CF_...`.
    bool HasFormat(System::Word format) const;
    /// How many forms there are, and each of them. `Classes::EListError` out of range.
    int getFormatCount() const;
    System::Word getFormats(int index) const;

    /// Between the two, other platforms keep other programs from the clipboard. Here they count alone, and
    /// may be nested.
    void Open() noexcept { ++mOpenCount; }
    void Close() noexcept { mOpenCount -= mOpenCount > 0 ? 1 : 0; }

private:
    Toolkits::Pixels GetPicture() const;
    void PutPicture(TPersistent& picture);

    /// A picture that the toolkit didn't take. It counts until there is a text.
    System::GOwner<Toolkits::Pixels> mOwnPicture;
    int mOpenCount = 0;
};

/// The one clipboard of the program.
TRS8_BTL_API TClipboard& Clipboard();

} // namespace Clipbrd
