// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/controls/Controls_CustomControl.h"

namespace Extctrls
{
class TTimer;
} // namespace Extctrls

namespace Toolkits
{
class Pixels;
} // namespace Toolkits

namespace Comctrls
{

class CAviFile;

/// An animation that other platforms bring along. It is kept for designs: there is none here to be shown.
enum TCommonAVI
{
    aviNone,
    aviFindFolder,
    aviFindFile,
    aviFindComputer,
    aviCopyFiles,
    aviCopyFile,
    aviRecycleFile,
    aviEmptyRecycle,
    aviDeleteFile
};

/// Shows the frames of a silent animation file one after the other while it is seen: of uncompressed frames,
/// or run lengths of 8 bits. Frames count from 1.
///
///     animate->setFileName(u"splash.avi");
///     animate->setActive(true);
class TRS8_BTL_API TAnimate : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TAnimate, Controls::TCustomControl)

public:
    explicit TAnimate(Classes::TComponent* owner = nullptr);
    ~TAnimate() override;

    /// The file, which is opened if that can be; else the control stays empty. Ends what is running.
    const System::UnicodeString& getFileName() const noexcept { return mFileName; }
    void setFileName(const System::UnicodeString& file);
    TCommonAVI getCommonAVI() const noexcept { return mCommonAVI; }
    void setCommonAVI(TCommonAVI animation) noexcept { mCommonAVI = animation; }

    /// Whether the file is open. Opening raises `Graphics::EInvalidGraphic` for one that can't be shown,
    /// `Classes::EFOpenError` for one that can't be read; nothing happens without a file.
    bool getOpen() const noexcept { return mFile != nullptr; }
    void setOpen(bool isOpen);
    /// Whether it runs. It begins as `Play` does by the properties of these names, and raises what opening
    /// raises.
    bool getActive() const noexcept { return mActive; }
    void setActive(bool isActive);
    /// The first and the last frame that are shown: 1, and 0 for the last there is, at first. Those that
    /// aren't there count as the nearest one.
    int getStartFrame() const noexcept { return mStartFrame; }
    void setStartFrame(int frame);
    int getStopFrame() const noexcept { return mStopFrame; }
    void setStopFrame(int frame);
    /// How often the frames are shown; 0, as at first, for ever.
    int getRepetitions() const noexcept { return mRepetitions; }
    void setRepetitions(int count);

    /// 0 while no file is open.
    int getFrameCount() const noexcept;
    int getFrameWidth() const noexcept;
    int getFrameHeight() const noexcept;
    /// The frame that is shown.
    int getFrame() const noexcept { return mFrame; }

    /// Shows the frames from `from` to `to`, 0 for the last, so many times, 0 for ever.
    void Play(int from, int to, int count);
    /// Ends at the frame that is shown.
    void Stop();
    /// Shows one frame and stands still.
    void Seek(int frame);
    /// Shows the first frame again.
    void Reset() { Seek(1); }

    /// Whether the frames stand in the middle; on at first.
    bool getCenter() const noexcept { return mCenter; }
    void setCenter(bool isOn) { Put(mCenter, isOn); }
    /// Whether the ground shows through what has the colour of the upper left pixel; on at first.
    bool getTransparent() const noexcept { return mTransparent; }
    void setTransparent(bool isOn) { Put(mTransparent, isOn); }
    /// Whether it runs by a timer; it always does. Kept for designs.
    bool getTimers() const noexcept { return mTimers; }
    void setTimers(bool isOn) noexcept { mTimers = isOn; }

    void Dispatch(void* message) override;
    void Loaded() override;

    Classes::TNotifyEvent OnOpen;
    Classes::TNotifyEvent OnClose;
    Classes::TNotifyEvent OnStart;
    Classes::TNotifyEvent OnStop;

protected:
    void Paint() override;
    bool CanAutoSize(int& width, int& height) override;

private:
    void Put(bool& member, bool value);
    void OpenFile();
    void TryOpen();
    void Close();
    void Tick(System::TObject* sender);
    void UpdateTimer();
    Toolkits::Pixels ReadFrame();
    int Held(int frame) const noexcept;

    System::UnicodeString mFileName;
    System::GOwner<CAviFile> mFile;
    System::GOwner<Extctrls::TTimer> mTimer;
    int mStartFrame = 1;
    int mStopFrame = 0;
    int mRepetitions = 0;
    int mFrame = 1;
    /// The run that is under way: its ends, and how often it is still shown; 0 for ever.
    int mFrom = 1;
    int mTo = 1;
    int mLeft = 0;
    TCommonAVI mCommonAVI = aviNone;
    bool mActive = false;
    /// A design that is read wants it to run.
    bool mStartsLoaded = false;
    bool mCenter = true;
    bool mTransparent = true;
    bool mTimers = false;
};

} // namespace Comctrls

namespace Typinfo
{

// The enumeration of animations, by the names of its values.

template <>
struct TRS8_BTL_API GEnumType<Comctrls::TCommonAVI>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
