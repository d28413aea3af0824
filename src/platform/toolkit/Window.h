// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/PaintTypes.h"
#include "platform/toolkit/WindowItems.h"

#include <cstdint>
#include <vector>

namespace Toolkits
{

class PaintDevice;
class PaintRecording;
class Pixels;
class WindowContents;
struct TMenuEntry;

/// How large the window of a form is: as it was set, out of sight but for the desktop's list, or all of the
/// screen.
enum class EWindowState
{
    Normal,
    Minimized,
    Maximized
};

/// What happens to a window on the screen. The control behind it hears of it here, and runs the same code for
/// it whatever the toolkit is. No call lets an exception out. The control, and the window with it, may be
/// gone when a call returns.
class TRS8_BTL_API WindowEvents
{
public:
    virtual ~WindowEvents();

    /// A key goes down, or up, while the window has the focus. True if that is dealt with, so that the window
    /// mustn't act on it; otherwise it acts on what `key` is then.
    virtual bool KeyPressed(System::Word& key, Classes::TShiftState shift) = 0;
    virtual bool KeyReleased(System::Word key, Classes::TShiftState shift) = 0;
    /// A character is typed, after the key that makes it went down. As `KeyPressed`.
    virtual bool CharacterTyped(System::WideChar& character) = 0;
    /// True if the window mustn't act on it.
    virtual bool MouseUsed(const TMouseInput& mouse) = 0;
    /// The window got the focus from the user, or lost it.
    virtual void FocusChanged(bool isFocused) = 0;
    /// The text that the user edits in the window is now `text`. A key that makes text was told of before;
    /// what comes in one piece without one, from an input method or a drop, is preceded by `VK_PROCESSKEY` as
    /// `KeyPressed`, so that whoever refuses the text can put the former one back. By then the selection is
    /// still the former one here; where it is now, `SelectionMoved` tells afterwards.
    virtual void TextEdited(const System::UnicodeString& text) = 0;
    /// The user moved the caret or the selection.
    virtual void SelectionMoved(int start, int length) = 0;
    /// The user chose by a click or key: pressed a button, checked a box, picked the item `index`.
    virtual void Chosen(int index) = 0;
    /// The user clicked on the check box of an item.
    virtual void ItemChecked(int index);
    /// The list of a combo box is about to open, so that its items may still be changed; or it closed.
    virtual void DropChanged(bool isOpen);
    /// The user moved what is seen: the item, or the tab, `first` is now the first one.
    virtual void Scrolled(int first);
    /// The user opens the entry `id` of the menu bar, so that what is in it may still be changed.
    virtual void MenuOpening(int id);
    /// The user chose the entry `id` of the menu bar, or of a menu in it.
    virtual void MenuChosen(int id);
    /// The entries of the menu bar as they are now.
    virtual std::vector<TMenuEntry> MenuAsked();
    /// What to tell the user about a place of the client area on which the mouse rests; empty for nothing.
    virtual System::UnicodeString HintAt(Types::TPoint place);
    /// `part` of the client area has to be painted anew. True if that is done, so that the window mustn't
    /// paint its own contents.
    virtual bool PaintAsked(PaintDevice& device, const Types::TRect& part) = 0;
    /// The user moved or sized the window; of the outer frame, as in `Window::SetBounds`.
    virtual void BoundsChanged(const Types::TRect& bounds) = 0;
    virtual void FilesDropped(const std::vector<System::UnicodeString>& files, Types::TPoint place) = 0;
    /// The user asks the window to close.
    virtual void CloseAsked() = 0;
    /// The window became the one that the user works in, or ceased to be it.
    virtual void ActivationChanged(bool isActive) = 0;
    /// The user, or the desktop, made the window of a form that large; `BoundsChanged` tells where it is
    /// then.
    virtual void StateChanged(EWindowState state);
    /// The desktop has other colours: `Toolkit::SystemColor` gives them already.
    virtual void ColorsChanged();
};

/// What stands for a control on the screen.
enum class EWindowKind
{
    /// A window of its own, with a frame.
    Form,
    /// An area within its parent that the library paints.
    Canvas,
    Edit,
    Memo,
    RichEdit,
    Button,
    CheckBox,
    RadioButton,
    ComboBox,
    ListBox,
    CheckListBox,
    ProgressBar,
    Pages
};

/// How the user edits the text of an edit, memo or rich edit.
struct TEditTraits
{
    /// Most characters that the user can bring the text to; 0 is no limit.
    int maxLength = 0;
    /// What stands in place of each character; 0 shows the text.
    System::WideChar passwordChar = 0;
    /// Shown, paler, while there is no text.
    System::UnicodeString hint = {};
    /// 0 at the left, 1 at the right, 2 in the middle.
    int alignment = 0;
    bool isReadOnly = false;
    bool hasBorder = true;
    /// Whether the selection is seen only while the window has the focus.
    bool hidesSelection = true;
    // Of texts with several lines.
    bool isWordWrapped = true;
    bool wantsTabs = false;
    bool wantsReturns = true;
    bool hasHorizontalBar = false;
    bool hasVerticalBar = false;
};

/// How some units of an edited text look that stand side by side.
struct TTextRun
{
    int length = 0;
    TFontData font = {};
    TPixel color = OpaquePixel(0, 0, 0);

    friend bool operator==(const TTextRun&, const TTextRun&) = default;
};

/// How paragraphs of an edited text are laid out that stand side by side; distances in pixels.
struct TParagraphRun
{
    int length = 0;
    /// As of `TEditTraits`.
    int alignment = 0;
    /// That of the first row comes to that of all.
    int firstIndent = 0;
    int leftIndent = 0;
    int rightIndent = 0;
    bool hasBullet = false;

    friend bool operator==(const TParagraphRun&, const TParagraphRun&) = default;
};

/// The formats of a part of an edited text.
struct TTextFormats
{
    /// Where the part begins.
    int start = 0;
    std::vector<TTextRun> chars = {};
    std::vector<TParagraphRun> paragraphs = {};
};

/// What a progress bar shows.
struct TProgress
{
    int min = 0;
    int max = 100;
    /// Within the two.
    int position = 0;
    /// Whether it grows upwards.
    bool isVertical = false;
    /// Whether a block wanders in place of the position.
    bool isWandering = false;
    TPixel bar = OpaquePixel(0, 0, 128);
    TPixel ground = OpaquePixel(240, 240, 240);

    friend bool operator==(const TProgress&, const TProgress&) = default;
};

/// A tab of pages.
struct TTab
{
    System::UnicodeString text = {};
    /// Where it stands in the client area; empty out of sight.
    Types::TRect rect = {};
    /// The picture in front of the text; null for none. It is looked at during the call alone.
    const Pixels* picture = nullptr;
    bool isHighlighted = false;
};

/// The tabs of pages, all in one row.
struct TTabs
{
    std::vector<TTab> tabs = {};
    /// The chosen one; -1 for none.
    int chosen = -1;
    /// The first one in sight.
    int first = 0;
    /// The side of the pages on which they stand: 0 above, 1 below, 2 at the left, 3 at the right.
    int side = 0;
    /// Where the pages lie in the client area, with the frame round them.
    Types::TRect pages = {};
};

/// How a control looks, as far as its window paints.
struct TWindowLook
{
    TFontData font = {};
    TPixel textColor = OpaquePixel(0, 0, 0);
    /// What is below all that is painted.
    TPixel ground = OpaquePixel(255, 255, 255);
    /// Whether left and right are swapped, as for a language that is read from right to left.
    bool isMirrored = false;
};

/// A window of the screen, made for one control: the control tells it what it looks like.
class TRS8_BTL_API Window
{
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// In the client area of the parent, or on the screen for one without.
    virtual void SetBounds(const Types::TRect& bounds) = 0;
    virtual void SetVisible(bool isVisible) = 0;
    virtual void SetEnabled(bool isEnabled) = 0;
    virtual void SetText(const System::UnicodeString& text) = 0;
    virtual void SetLook(const TWindowLook& look);
    /// What a label in front of the window says: those who can't see it know the window by that. Empty for
    /// none, as at first.
    virtual void SetLabel(const System::UnicodeString& label);
    /// Selects in an edited text, from 0, and has the caret at the end of that. It isn't told back.
    virtual void SetSelection(int start, int length);
    virtual void SetEditTraits(const TEditTraits& traits);
    /// Brings the caret of an edited text to sight.
    virtual void ShowCaret() {}
    /// A part of the text of a rich edit looks like that now.
    virtual void ShowFormats(const TTextFormats& formats);
    /// Lets the window have the keyboard.
    virtual void Focus() = 0;
    /// Marks a part of the client area, or all of it for null, to be painted soon.
    virtual void Invalidate(const Types::TRect* part) = 0;
    /// Moves what is in a part of the client area by so many pixels, and marks what that uncovers; a toolkit
    /// that can't marks the part.
    virtual void Scroll(const Types::TRect& part, const Types::TSize& by);
    /// Paints at once what is marked.
    virtual void Update() = 0;
    /// Whether the window acts by itself on keys and clicks, and tells of what came of it. Otherwise the
    /// control acts in its place.
    virtual bool ActsByItself() const = 0;
    /// As `ActsByItself`, but for keys alone: a window may leave those to the control, and the rest not.
    virtual bool ActsOnKeys() const { return ActsByItself(); }
    /// Before or behind all of its siblings.
    virtual void BringToFront() = 0;
    virtual void SendToBack() = 0;
    /// Makes the window of a form that large. `BoundsChanged` tells where it is then, at once or soon; it
    /// comes back to where it was as a normal one.
    virtual void SetState(EWindowState state);
    /// What was painted last, for a toolkit that keeps it; null otherwise.
    virtual const PaintRecording* LastPainting() const { return nullptr; }
    /// The toolkit's own object behind the window, which stays its own: a `QWidget` of the toolkit "qt"; null
    /// where there is none.
    virtual void* NativeObject() const noexcept { return nullptr; }
    /// Paints the client area with all windows in it into `pixels`, as the user would see it without what is
    /// in front of it; of a form with its menu bar, without its frame. False, with `pixels` as they were, for
    /// a toolkit whose windows have no look of their own.
    virtual bool Grab(Pixels& pixels);

    /// The cell of a grid that keys act on may be another one now: those who can't see it hear of it while
    /// the window has the keyboard.
    virtual void AnnounceCell() {}

    // Of buttons, boxes and lists. What is told here isn't told back by the events; any other window does
    // nothing.

    /// The mark of a check box or radio button.
    virtual void SetCheck(ECheck check);
    /// Whether the button is the one that the Enter key presses.
    virtual void SetDefaultButton(bool isDefault);
    /// There are other items, or others are as they were; `items` outlives the window.
    virtual void ShowItems(const WindowItems& items);
    /// The text or the mark of one item changed.
    virtual void ShowItem(int index);
    /// The item that is chosen, brought to sight; -1 for none.
    virtual void SelectItem(int index);
    virtual void SetComboTraits(const TComboTraits& traits);
    /// Opens or closes the list of a combo box.
    virtual void SetDropped(bool isOpen);
    virtual void SetListTraits(const TListTraits& traits);
    /// The first item of a list that is seen.
    virtual void SetTopItem(int index);
    /// Other items of a list of several choices are chosen now.
    virtual void ShowChoice();
    virtual void SetProgress(const TProgress& progress);
    virtual void SetTabs(const TTabs& tabs);

    // Of forms.

    /// Whether there is a menu along the upper edge, of which `MenuAsked` tells; its entries are others now.
    virtual void ShowMenuBar(bool isThere);
    /// Opens the entry `id` of the menu bar. False for a window without one, which leaves that to the form.
    virtual bool OpenMenu(int id);
};

/// The frame of a window on the screen itself.
enum class EFrame
{
    None,
    Single,
    Sizeable,
    Dialog,
    ToolWindow,
    SizeableToolWindow
};

/// The number of a running timer; never 0.
using TTimerId = std::uintptr_t;

/// A number that no timer of any toolkit has had, for a toolkit to give to one. Of the main thread.
TRS8_BTL_API TTimerId NewTimerId() noexcept;

/// What the frame of a window takes from its size on each side.
struct TFrameMargins
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The margins that a toolkit has where nobody tells it better: 8 on each side of a frame that can be sized,
/// else 3, and 23 more at the top.
TRS8_BTL_API TFrameMargins UsualFrameMargins(EFrame frame);

/// What a window is made of.
struct TWindowSettings
{
    EWindowKind kind = EWindowKind::Canvas;
    EFrame frame = EFrame::None;
    /// Null for a window on the screen itself.
    Window* parent = nullptr;
    /// The toolkit's own object that a form is shown in, in place of the screen: a `QWidget` of the toolkit
    /// "qt". Null for none; a toolkit without such objects doesn't look at it. Outlives the window.
    void* host = nullptr;
    /// Outlives the window.
    WindowEvents* events = nullptr;
    /// Outlives the window; null where nobody tells what is in it.
    WindowContents* contents = nullptr;
    System::UnicodeString text = {};
    /// The names of the control and its owners: "Settings.fFrame.fEdit"; tools find the window by it.
    System::UnicodeString name = {};
    Types::TRect bounds = {};
    bool isEnabled = true;
    /// Whether the frame of a window on the screen has a button that asks to close it.
    bool hasCloseButton = true;
    /// The platform's flags of style and extended style, as `TWinControl::CreateParams` left them.
    unsigned style = 0;
    unsigned exStyle = 0;
};

} // namespace Toolkits
