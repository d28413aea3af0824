// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/toolkit/FileQuestion.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/PaintTypes.h"
#include "platform/toolkit/Window.h"

#include <functional>
#include <memory>
#include <vector>

/// What stands between the controls' logic and a screen.
namespace Toolkits
{

class InputPlayer;
class ModalWindow;
class PaintDevice;
class Pixels;

/// A modal box with a text and buttons.
struct TBox
{
    /// The window the box belongs to; null for none.
    void* owner = nullptr;
    System::UnicodeString text;
    System::UnicodeString caption;
    /// Buttons and icon, the `MB_...` values.
    unsigned flags = 0;
};

/// A modal box that asks for one line of text.
struct TInput
{
    System::UnicodeString caption;
    System::UnicodeString prompt;
    /// What stands in the line at first.
    System::UnicodeString value;
};

/// The seam to a graphical toolkit. All operations but `Post` belong to the main thread.
///
///     Toolkits::CurrentToolkit().Post([text] { Show(text); });    // from any thread, to run in the main one
///     Forms::Application->ProcessMessages();                      // in the main thread: runs it
class TRS8_BTL_API Toolkit
{
public:
    Toolkit() = default;
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;
    virtual ~Toolkit();

    /// Shows the box until it is answered; the result is one of the `ID...` values.
    virtual int ShowBox(const TBox& box) = 0;

    /// Asks until the user agrees or cancels. True with the line in `value`; false leaves `value` alone.
    virtual bool AskInput(const TInput& input, System::UnicodeString& value) = 0;

    /// Asks for files or a folder until the user agrees or cancels.
    virtual TFileAnswer AskFiles(const TFileQuestion& question) = 0;

    /// The longest text that a clipboard takes from this program or gives to it, in units.
    static constexpr int MaxClipboardText = 1 << 26;

    /// Puts a text on the clipboard. False if this toolkit shares none with other programs; then the text is
    /// kept for this program alone. False as well for one longer than `MaxClipboardText`, which leaves the
    /// clipboard as it was.
    virtual bool SetClipboardText(const System::UnicodeString& text) = 0;
    /// Empty if there is no text on the clipboard, or one longer than `MaxClipboardText`.
    virtual System::UnicodeString GetClipboardText() = 0;
    /// Puts a picture on the clipboard in place of what is there. False if this toolkit can't; the clipboard
    /// is as it was then.
    virtual bool SetClipboardPixels(const Pixels& pixels);
    /// The picture on the clipboard; an empty one if there is none.
    virtual Pixels GetClipboardPixels();

    /// All screens together, in pixels.
    virtual Types::TRect DesktopRect() const = 0;
    /// The first screen, in pixels; all of the desktop where there is one.
    virtual Types::TRect FirstScreenRect() const;

    /// A window for one control; hidden at first.
    virtual std::unique_ptr<Window> MakeWindow(const TWindowSettings& settings) = 0;
    /// Opens a menu at a place of the screen until the user chose or left it. The id of what was chosen, 0
    /// for nothing; of what can be used alone.
    virtual int ShowMenu(const std::vector<TMenuEntry>& entries, Types::TPoint place) = 0;
    /// A form begins to be shown modally; its loop is about to run.
    virtual void EnterModal(ModalWindow& window) = 0;
    /// What the frame takes from the size of a window on the screen itself.
    virtual TFrameMargins FrameMargins(EFrame frame) const = 0;
    /// Calls `tick` from the message loop each time that so many milliseconds have passed, at least 1, until
    /// `StopTimer`. Ticks that the program is late for are one.
    virtual TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick) = 0;
    /// An id that isn't running any more is ignored. It may be called by the tick itself.
    virtual void StopTimer(TTimerId timer) = 0;

    /// The measures of the font that the toolkit takes for `font`.
    virtual TTextMetrics FontMetrics(const TFontData& font) const = 0;
    /// The width of one line of text in the font, and the height of a line.
    virtual Types::TSize TextExtent(const TFontData& font, const System::UnicodeString& text) const = 0;
    /// A colour of the desktop by its number: 5 the ground of windows, 8 their text, and so on; black for a
    /// number without one.
    virtual TPixel SystemColor(int index) const = 0;
    /// A device that draws on `pixels`, which must outlive it and keep their size.
    virtual std::unique_ptr<PaintDevice> NewPixelDevice(Pixels& pixels) = 0;

    /// Shows the mouse cursor of this number over all windows; 0 gives each control its own back.
    virtual void SetCursor(int cursor) = 0;

    /// Runs `action` from the message loop of the main thread, in the order of posting. From any thread.
    virtual void Post(std::function<void()> action) = 0;

    /// Runs `action` from the message loop while there is something to read from the descriptor of the host,
    /// up to `Unwatch`. A second watch of a descriptor replaces the first. `Toolkits::Watch` calls this.
    virtual void Watch(int descriptor, std::function<void()> action) = 0;
    /// Also from within the action; nothing for a descriptor without a watch.
    virtual void Unwatch(int descriptor) = 0;

    /// Takes the token by which the desktop lets the next window that asks for it come to the front; it came
    /// from the program in which the user did something last.
    virtual void SetActivationToken(const System::UnicodeString& token) = 0;

    /// Handles one waiting message; false if none waits. What is to be read from a watched descriptor counts
    /// as one.
    virtual bool ProcessMessage() = 0;

    /// Handles one waiting thing that the user did with `window` or one in it, or paints what of them waits.
    /// Nothing posted runs, no timer, and no input of another window. False if there was nothing.
    virtual bool ProcessInput(Window& window) = 0;

    /// Runs `input` from the message loop as what the user does with `window`, unless that is gone by then.
    /// For those who drive forms.
    virtual void PostInput(Window& window, std::function<void()> input) = 0;

    /// Sleeps until a message waits.
    virtual void WaitMessage() = 0;

    /// Who plays the user in tests; null where what happens is told to the controls themselves.
    virtual InputPlayer* GetInputPlayer() { return nullptr; }
};

/// The toolkit in use, which is chosen at the first call: the one that the variable `TRS8_BTL_TOOLKIT` names,
/// and without it "qt" where `DISPLAY` or `WAYLAND_DISPLAY` tells of a screen, else "headless".
///
/// "qt" is the plug-in "libTRS8_BTL_qt.so", which lies beside the library or in the folder "TRS8_BTL-0.2"
/// there. It is loaded by the first call that needs a screen: for a window, box, menu, the clipboard, or what
/// is measured and painted by the screen's own fonts and colours. What was posted, timers and watches move
/// over then; a reference to the toolkit stays valid. A plug-in that is missing, of another version, or that
/// can't show windows here, is told on the standard error stream, and the headless toolkit serves.
TRS8_BTL_API Toolkit& CurrentToolkit();

/// Puts `toolkit` in place of the current one and gives that back; null means the choice is made anew at the
/// next use. Nobody may hold a reference to the former toolkit across the call.
TRS8_BTL_API std::unique_ptr<Toolkit> ExchangeToolkit(std::unique_ptr<Toolkit> toolkit);

} // namespace Toolkits
