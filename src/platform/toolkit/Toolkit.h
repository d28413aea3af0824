// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PaintTypes.h"
#include "platform/toolkit/PictureType.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

/// What stands between the controls' logic and a screen.
namespace Toolkits
{

class PaintDevice;
class PaintRecording;
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

    /// All screens together, in pixels.
    virtual Types::TRect DesktopRect() const = 0;

    /// The measures of the font that the toolkit takes for `font`.
    virtual TTextMetrics FontMetrics(const TFontData& font) const = 0;
    /// The width of one line of text in the font, and the height of a line.
    virtual Types::TSize TextExtent(const TFontData& font, const System::UnicodeString& text) const = 0;
    /// A colour of the desktop by its number: 5 the ground of windows, 8 their text, and so on; black for a
    /// number without one.
    virtual TPixel SystemColor(int index) const = 0;
    /// A device that draws on `pixels`, which must outlive it and keep their size.
    virtual std::unique_ptr<PaintDevice> NewPixelDevice(Pixels& pixels) = 0;

    /// The pixels of a picture. `Graphics::EInvalidGraphic` if it is damaged or the toolkit can't read the
    /// type.
    virtual Pixels DecodePicture(EPictureType type, std::span<const System::Byte> bytes) = 0;
    /// A file of the picture, with the quality from 1 to 100 where the type has one.
    /// `Graphics::EInvalidGraphic` if the toolkit can't write the type.
    virtual std::vector<System::Byte> EncodePicture(EPictureType type, const Pixels& pixels, int quality) = 0;
    /// Adds to `recording` what the metafile draws, in pixels. Faults as of `DecodePicture`.
    virtual void DecodeMetafile(EPictureType type, std::span<const System::Byte> bytes,
                                PaintRecording& recording) = 0;
    /// A metafile of `size` pixels that draws what the recording does. Faults as of `EncodePicture`.
    virtual std::vector<System::Byte> EncodeMetafile(EPictureType type, const PaintRecording& recording,
                                                     const Types::TSize& size) = 0;

    /// Runs `action` from the message loop of the main thread, in the order of posting. From any thread.
    virtual void Post(std::function<void()> action) = 0;

    /// Handles one waiting message; false if none waits.
    virtual bool ProcessMessage() = 0;

    /// Sleeps until a message waits.
    virtual void WaitMessage() = 0;
};

/// The toolkit in use. At the first call it is chosen by the variable `TRS8_BTL_TOOLKIT`; a name that this
/// build doesn't have is told on the standard error stream, and the headless one serves.
TRS8_BTL_API Toolkit& CurrentToolkit();

/// Puts `toolkit` in place of the current one and gives that back; null means the choice is made anew at the
/// next use. Nobody may hold a reference to the former toolkit across the call.
TRS8_BTL_API std::unique_ptr<Toolkit> ExchangeToolkit(std::unique_ptr<Toolkit> toolkit);

} // namespace Toolkits
