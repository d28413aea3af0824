// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/forms/Forms_Types.h"
#include "platform/visual/stdctrls/edits/Stdctrls_EditBuffer.h"

namespace Graphics
{
class TCanvas;
} // namespace Graphics

namespace Stdctrls
{

/// What an edit makes of the case of what is typed or set.
enum TEditCharCase
{
    ecNormal,
    ecUpperCase,
    ecLowerCase
};

/// Base of the controls in which the user edits a text. Places in the text count from 0, in UTF-16 units;
/// those outside are held within it.
///
///     auto* const edit = new Stdctrls::TEdit(form);
///     edit->setParent(form);
///     edit->setText(u"12,5");
///     edit->SelectAll();
///     edit->OnChange = {this, &TMainForm::ValueChanged};
class TRS8_BTL_API TCustomEdit : public Controls::TWinControl
{
    TRS8_BTL_CLASS(TCustomEdit, Controls::TWinControl)

public:
    explicit TCustomEdit(Classes::TComponent* owner = nullptr);
    ~TCustomEdit() override;

    System::UnicodeString GetText() const override { return mBuffer.getText(); }
    /// Also a text that the user couldn't type. The caret goes to the beginning, `Modified` off, and there is
    /// nothing to undo; `OnChange` follows. Nothing happens for the text that is there.
    void SetText(const System::UnicodeString& text) override;
    /// Empties the text.
    virtual void Clear();

    // The selection, at whose end the caret stands, or at whose beginning if it was made backwards.

    int getSelStart() const { return GetSelStart(); }
    /// Moves the caret and selects nothing.
    void setSelStart(int start) { SetSelStart(start); }
    int getSelLength() const { return GetSelLength(); }
    void setSelLength(int length) { SetSelLength(length); }
    System::UnicodeString getSelText() const { return GetSelText(); }
    /// Replaces what is selected, also in a read-only text, and has the caret behind it. `OnChange` follows.
    void setSelText(const System::UnicodeString& text) { SetSelText(text); }
    /// The caret stands behind the text.
    virtual void SelectAll();
    virtual int GetSelStart() const { return mBuffer.SelStart(); }
    virtual int GetSelLength() const { return mBuffer.SelLength(); }
    virtual System::UnicodeString GetSelText() const;
    virtual void SetSelStart(int start);
    virtual void SetSelLength(int length);
    virtual void SetSelText(const System::UnicodeString& text);
    /// Where the caret stands in the text.
    int GetCaret() const noexcept { return mBuffer.getCaret(); }

    /// Removes what is selected; nothing in a read-only text.
    virtual void ClearSelection();
    /// Nothing happens without a selection, and with `PasswordChar`.
    virtual void CopyToClipboard();
    virtual void CutToClipboard();
    /// Puts the clipboard's text in place of the selection, as if it were typed.
    virtual void PasteFromClipboard();
    /// Takes the last edit back; done again, takes that back.
    virtual void Undo();
    void ClearUndo() { mBuffer.ClearUndo(); }
    bool getCanUndo() const noexcept { return mBuffer.CanUndo(); }

    /// Whether the user changed the text since it was set.
    bool getModified() const noexcept { return mModified; }
    virtual void setModified(bool isModified) { mModified = isModified; }
    /// Off at first.
    bool getReadOnly() const noexcept { return mTraits.isReadOnly; }
    void setReadOnly(bool isOn) { SetReadOnly(isOn); }
    virtual void SetReadOnly(bool isOn);
    /// Most characters that the user can bring the text to; 0, the first one, is no limit, and so is a
    /// negative one.
    int getMaxLength() const noexcept { return mTraits.maxLength; }
    void setMaxLength(int length) { SetMaxLength(length); }
    virtual void SetMaxLength(int length);
    /// What is shown in place of each character; 0, which shows the text, at first.
    System::WideChar getPasswordChar() const noexcept { return mTraits.passwordChar; }
    void setPasswordChar(System::WideChar character);
    /// `ecNormal` at first.
    TEditCharCase getCharCase() const noexcept { return mCharCase; }
    void setCharCase(TEditCharCase charCase);
    /// Whether only digits can be typed or pasted; off at first.
    bool getNumbersOnly() const noexcept { return mNumbersOnly; }
    void setNumbersOnly(bool isOn) noexcept { mNumbersOnly = isOn; }
    /// Whether all is selected when the Tab key or the program gives the control the focus; on at first.
    bool getAutoSelect() const noexcept { return mAutoSelect; }
    void setAutoSelect(bool isOn) noexcept { mAutoSelect = isOn; }
    /// Whether the selection is seen only while the control has the focus; on at first.
    bool getHideSelection() const noexcept { return mTraits.hidesSelection; }
    void setHideSelection(bool isOn);
    /// Left at first.
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment);
    /// `bsSingle` at first. Anything but `bsNone` is that.
    Forms::TBorderStyle getBorderStyle() const noexcept { return mBorderStyle; }
    void setBorderStyle(Forms::TBorderStyle style);
    /// What is shown, paler, while there is no text.
    const System::UnicodeString& getTextHint() const noexcept { return mTraits.hint; }
    void setTextHint(const System::UnicodeString& hint);

    void Dispatch(void* message) override;
    void DefaultHandler(void* message) override;

    Classes::TNotifyEvent OnChange;

protected:
    /// Called after each change of the text; calls `OnChange`.
    virtual void Change();
    /// Called when `removed` units from `start` on gave way to `added` ones, before `Change`.
    virtual void Edited(int start, int removed, int added);
    /// Whether the text has lines.
    virtual bool IsMultiLine() const { return false; }
    /// What of a text that the user types or pastes in place of the selection goes in: in the case that is
    /// wanted, without what there is no room for, `replaced` being how much the text gives up for it. Nothing
    /// refuses it.
    virtual System::UnicodeString Acceptable(const System::UnicodeString& text, int replaced) const;
    /// The user puts `text` in place of `length` characters from `start` on. False if it was refused.
    virtual bool EditByUser(int start, int length, const System::UnicodeString& text);
    /// As `EditByUser`, whatever the user may do; `OnChange` follows.
    void Replace(int start, int length, const System::UnicodeString& text);
    /// As `Replace` with the whole text, but has the caret at a place of it.
    void ReplaceAll(const System::UnicodeString& text, int caret);
    /// Moves the caret; what is between `anchor` and `caret` is selected.
    void Select(int anchor, int caret);
    /// The text of the control changed, or its selection did: the window has to show it.
    void ShowTextInWindow();
    void ShowSelectionInWindow();
    /// Who shows a text: the window that was given it, or the one in which the user edited it.
    enum class EShown
    {
        Given,
        Edited
    };
    /// The window shows the text as it is now.
    virtual void TextShown(EShown) {}
    /// How the window edits; a derived class adds what it knows.
    virtual Toolkits::TEditTraits EditTraits() const;
    void ShowTraitsInWindow();

    /// The text with its caret. Who changes it by this tells nobody.
    const CEditBuffer& Buffer() const noexcept { return mBuffer; }
    CEditBuffer& Buffer() noexcept { return mBuffer; }
    /// The place above or below the caret by so many rows.
    virtual int VerticalPlace(int rows) const;
    /// Where the Home and the End key lead to: the ends of the row in which the caret stands.
    virtual int HomePlace() const { return 0; }
    virtual int EndPlace() const { return mBuffer.Length(); }
    /// How many lines a page has.
    virtual int PageLines() const { return 1; }

    /// Draws the text, as a window that acts by itself does on its own.
    virtual void PaintText(Graphics::TCanvas& canvas);
    /// The place in the text at a place of the client area.
    virtual int PlaceAt(Types::TPoint place) const;
    /// Brings the caret to sight.
    virtual void ScrollCaret();
    /// What stands for `text` on the screen.
    System::UnicodeString ShownText(const System::UnicodeString& text) const;
    /// Where the text is drawn.
    Types::TRect TextRect() const;
    /// The height of the font's lines.
    int LineHeight() const;
    int TextWidth(const System::UnicodeString& text) const;
    /// How wide `length` units of one line are drawn.
    virtual int WidthOf(int place, int length) const;
    /// Draws units of one line in the font of the canvas, those of the selection in other colours than
    /// `color`.
    void PaintPiece(Graphics::TCanvas& canvas, Types::TPoint at, int place, int length,
                    Graphics::TColor color) const;
    /// The colour of the control's font, or that of what can't be used.
    Graphics::TColor TextColor() const;
    /// How many of `length` units from the place on are no wider than the distance.
    int UnitsFitting(int place, int length, int distance) const;
    /// As `UnitsFitting`, but counts one that lies nearer to the distance than to its beginning.
    int UnitsWithin(int place, int length, int distance) const;
    /// The first place of a line that is seen, `first` as far as the caret then is too.
    int FirstSeenFor(int first, int caret) const;
    /// How many units from the place on, up to `end`, could be seen at once in one line.
    int SeenLength(int place, int end) const;
    /// What an alignment leaves empty in front of a text of a width, in a room.
    static int AlignmentSpace(Classes::TAlignment alignment, int width, int room);

    bool CanAutoSize(int& width, int& height) override;
    void CreateParams(Controls::TCreateParams& params) override;
    void CreateWnd() override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    bool ActOnChar(System::WideChar character) override;
    void ActOnMouse(const Toolkits::TMouseInput& mouse) override;
    void TextEditedInWindow(const System::UnicodeString& text) override;
    void SelectionMovedInWindow(int start, int length) override;

private:
    bool ActOnClipboardKey(System::Word key, const Classes::TShiftState& shift);
    bool ActOnMoveKey(System::Word key, const Classes::TShiftState& shift);
    bool ActOnDeleteKey(System::Word key, const Classes::TShiftState& shift);
    /// Removes what is selected, or else what lies between the two.
    void DeleteByKey(int from, int to);
    void MoveCaret(int place, bool extends);
    void PutOnClipboard() const;
    System::UnicodeString InCase(const System::UnicodeString& text) const;
    bool DispatchEdit(unsigned message);
    void PaintOn(Toolkits::PaintDevice& device);
    void TextReplaced();
    /// Where a text of a width begins.
    int TextLeft(int width) const;
    int SeenLength() const;

    CEditBuffer mBuffer;
    Toolkits::TEditTraits mTraits;
    /// The first character that is seen, of a single line.
    mutable int mFirstSeen = 0;
    TEditCharCase mCharCase = ecNormal;
    Classes::TAlignment mAlignment = Classes::taLeftJustify;
    Forms::TBorderStyle mBorderStyle = Forms::bsSingle;
    bool mModified = false;
    bool mNumbersOnly = false;
    bool mAutoSelect = true;
    /// Whether the window tells just now what the user did, and so shows it already.
    const System::UnicodeString* mWindowText = nullptr;
};

/// An edit of one line.
class TRS8_BTL_API TEdit : public TCustomEdit
{
    TRS8_BTL_CLASS(TEdit, TCustomEdit)

public:
    explicit TEdit(Classes::TComponent* owner = nullptr) : TCustomEdit(owner) {}
    ~TEdit() override;
};

} // namespace Stdctrls

namespace Typinfo
{

/// The cases of an edit by their names.
template <>
struct TRS8_BTL_API GEnumType<Stdctrls::TEditCharCase>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
