// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/edits/Comctrls_TextFormat.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

namespace Comctrls
{

class TCustomRichEdit;

/// What of the characters of a selection is alike.
enum TConsistentAttribute
{
    caBold,
    caColor,
    caFace,
    caItalic,
    caSize,
    caStrikeOut,
    caUnderline,
    caProtected
};
/// All that is alike.
using TConsistentAttributes = System::Set<TConsistentAttribute, caBold, caProtected>;

/// How the selected characters look, or those that are typed next; or those without a format of their own.
/// Reading gives what holds for the first of them, writing changes all.
class TRS8_BTL_API TTextAttributes : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TTextAttributes, Classes::TPersistent)

public:
    /// Whose looks these are.
    enum class ETarget
    {
        Selection,
        Default
    };

    /// `edit` outlives the attributes.
    TTextAttributes(TCustomRichEdit* edit, ETarget target) noexcept : mEdit(edit), mTarget(target) {}
    ~TTextAttributes() override;

    /// Takes a font's, or another text's.
    void Assign(TPersistent* source) override;
    /// A font gets all but the protection.
    void AssignTo(TPersistent* target) const override;

    System::UnicodeString getName() const { return Format().name; }
    void setName(const System::UnicodeString& name);
    /// In points.
    int getSize() const { return Format().size; }
    void setSize(int size);
    /// As of `Graphics::TFont`, in pixels.
    int getHeight() const;
    void setHeight(int height);
    Graphics::TColor getColor() const { return Format().color; }
    void setColor(Graphics::TColor color);
    Graphics::TFontStyles getStyle() const { return Format().style; }
    void setStyle(const Graphics::TFontStyles& style);
    bool getProtected() const { return Format().isProtected; }
    void setProtected(bool isOn);
    TConsistentAttributes getConsistentAttributes() const;

private:
    const TCharFormat& Format() const;
    template <class Change>
    void ChangeFormat(Change change);

    TCustomRichEdit* mEdit;
    ETarget mTarget;
};

/// How the selected paragraphs are laid out; distances in points. Reading gives what holds for the first.
class TRS8_BTL_API TParaAttributes : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TParaAttributes, Classes::TPersistent)

public:
    /// `edit` outlives the attributes.
    explicit TParaAttributes(TCustomRichEdit* edit) noexcept : mEdit(edit) {}
    ~TParaAttributes() override;

    void Assign(TPersistent* source) override;

    Classes::TAlignment getAlignment() const { return Format().alignment; }
    void setAlignment(Classes::TAlignment alignment);
    int getFirstIndent() const { return Format().firstIndent; }
    void setFirstIndent(int points);
    int getLeftIndent() const { return Format().leftIndent; }
    void setLeftIndent(int points);
    int getRightIndent() const { return Format().rightIndent; }
    void setRightIndent(int points);
    TNumberingStyle getNumbering() const { return Format().numbering; }
    void setNumbering(TNumberingStyle style);
    int getTabCount() const { return static_cast<int>(Format().tabs.size()); }
    /// Held within 0 to 32; new ones stand at 0.
    void setTabCount(int count);
    /// 0 for one that isn't there.
    int getTab(int index) const;
    /// Makes those in front of it too; nothing beyond 32 of them.
    void setTab(int index, int points);

private:
    const TParaFormat& Format() const;
    template <class Change>
    void ChangeFormat(Change change);

    TCustomRichEdit* mEdit;
};

/// Base of memos whose characters and paragraphs have formats. `Lines` takes a text in Rich Text Format for
/// what it says, and writes one, unless `PlainText`.
///
///     auto* const edit = new Comctrls::TRichEdit(form);
///     edit->setParent(form);
///     edit->getLines()->LoadFromFile(u"about.rtf");
///     edit->SelectAll();
///     edit->getSelAttributes()->setStyle({Graphics::fsBold});
class TRS8_BTL_API TCustomRichEdit : public Stdctrls::TCustomMemo
{
    TRS8_BTL_CLASS(TCustomRichEdit, Stdctrls::TCustomMemo)

public:
    explicit TCustomRichEdit(Classes::TComponent* owner = nullptr);
    ~TCustomRichEdit() override;

    /// The looks of the selected characters, of those that have no other, and of the selected paragraphs. The
    /// edit owns them; writing copies.
    TTextAttributes* getSelAttributes() noexcept { return &mSelAttributes; }
    void setSelAttributes(TTextAttributes* attributes) { mSelAttributes.Assign(attributes); }
    TTextAttributes* getDefAttributes() noexcept { return &mDefAttributes; }
    void setDefAttributes(TTextAttributes* attributes) { mDefAttributes.Assign(attributes); }
    TParaAttributes* getParagraph() noexcept { return &mParagraph; }
    /// Whether `Lines` reads and writes the text without its formats; off at first.
    bool getPlainText() const noexcept { return mPlainText; }
    void setPlainText(bool isOn) noexcept { mPlainText = isOn; }
    /// Kept for designs; bars come and go with the window's own rules.
    bool getHideScrollBars() const noexcept { return mHideScrollBars; }
    void setHideScrollBars(bool isOn) noexcept { mHideScrollBars = isOn; }

    /// The text with its formats, and back. What has no format takes that of `DefAttributes`.
    TFormattedText GetFormattedText() const;
    void SetFormattedText(const TFormattedText& text);

    void Dispatch(void* message) override;

protected:
    void Edited(int start, int removed, int added) override;
    void TextShown(EShown shown) override;
    void CreateParams(Controls::TCreateParams& params) override;
    int WidthOf(int place, int length) const override;
    int RowHeight(const TRow& row) const override;
    Types::TPoint RowRoom(int begin) const override;
    Classes::TAlignment RowAlignment(int begin) const override;
    void PaintRow(Graphics::TCanvas& canvas, Types::TPoint at, const TRow& row) override;

private:
    friend class TTextAttributes;
    friend class TParaAttributes;

    const TCharFormat& SelFormat() const;
    /// The space above and below the base line that the characters of a row need.
    Types::TPoint RowExtent(const TRow& row) const;
    void PaintBullet(Graphics::TCanvas& canvas, Types::TPoint at, const TRow& row, int ascent);
    /// The selection, as far as the paragraphs that it touches reach.
    Types::TPoint ParagraphRange() const;
    void TakeFont();
    /// Windows know no formats to take back.
    void TakeBackByKey(Messages::TMessage& message);
    /// The window has to show the formats between two places.
    void ShowFormats(int start, int end);
    void ShowAllFormats() { ShowFormats(0, Buffer().Length()); }

    TTextAttributes mSelAttributes{this, TTextAttributes::ETarget::Selection};
    TTextAttributes mDefAttributes{this, TTextAttributes::ETarget::Default};
    TParaAttributes mParagraph{this};
    GFormatRuns<TCharFormat> mChars;
    GFormatRuns<TParaFormat> mParagraphs;
    TCharFormat mDefFormat;
    /// The look of what is typed next, and where that is.
    TCharFormat mNextFormat;
    int mNextPlace = -1;
    /// What was put in last, from X to Y.
    Types::TPoint mEdited = {};
    TParaFormat mDefParagraph;
    bool mPlainText = false;
    bool mHideScrollBars = true;
    /// The formats of a text that is being taken over; null otherwise.
    TFormattedText* mTaken = nullptr;
};

/// A rich edit of a form's design.
class TRS8_BTL_API TRichEdit : public TCustomRichEdit
{
    TRS8_BTL_CLASS(TRichEdit, TCustomRichEdit)

public:
    explicit TRichEdit(Classes::TComponent* owner = nullptr) : TCustomRichEdit(owner) {}
    ~TRichEdit() override;
};

} // namespace Comctrls

namespace Typinfo
{

/// The numberings of paragraphs by their names.
template <>
struct TRS8_BTL_API GEnumType<Comctrls::TNumberingStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
