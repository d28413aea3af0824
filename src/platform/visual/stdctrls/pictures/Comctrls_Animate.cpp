// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/Comctrls_Animate.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/internal/Extctrls_TickWhile.h"
#include "platform/visual/stdctrls/pictures/internal/Comctrls_AviFile.h"

#include <algorithm>

namespace Typinfo
{

TTypeInfo GEnumType<Comctrls::TCommonAVI>::Make()
{
    return EnumType(u"TCommonAVI",
                    {u"aviNone", u"aviFindFolder", u"aviFindFile", u"aviFindComputer", u"aviCopyFiles",
                     u"aviCopyFile", u"aviRecycleFile", u"aviEmptyRecycle", u"aviDeleteFile"});
}

} // namespace Typinfo

namespace Comctrls
{

using Classes::TComponentWatch;

System::TMetaClass* TAnimate::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TAnimate>(u"TAnimate"))
            .Property(u"Active", &TAnimate::getActive, &TAnimate::setActive, {.defaultValue = 0})
            .Property(u"AutoSize", &TAnimate::getAutoSize, &TAnimate::setAutoSize, {.defaultValue = 1})
            .Property(u"Center", &TAnimate::getCenter, &TAnimate::setCenter, {.defaultValue = 1})
            .Property(u"CommonAVI", &TAnimate::getCommonAVI, &TAnimate::setCommonAVI,
                      {.defaultValue = aviNone})
            .Property(u"FileName", &TAnimate::getFileName, &TAnimate::setFileName)
            .Property(u"Repetitions", &TAnimate::getRepetitions, &TAnimate::setRepetitions,
                      {.defaultValue = 0})
            .Property(u"StartFrame", &TAnimate::getStartFrame, &TAnimate::setStartFrame, {.defaultValue = 1})
            .Property(u"StopFrame", &TAnimate::getStopFrame, &TAnimate::setStopFrame, {.defaultValue = 0})
            .Property(u"Timers", &TAnimate::getTimers, &TAnimate::setTimers, {.defaultValue = 0})
            .Property(u"Transparent", &TAnimate::getTransparent, &TAnimate::setTransparent,
                      {.defaultValue = 1})
            .Property(u"OnClose", &TAnimate::OnClose)
            .Property(u"OnOpen", &TAnimate::OnOpen)
            .Property(u"OnStart", &TAnimate::OnStart)
            .Property(u"OnStop", &TAnimate::OnStop)
            .Build();
    return record;
}

TAnimate::TAnimate(Classes::TComponent* owner) : TCustomControl(owner)
{
    setAutoSize(true);
    SetBounds(0, 0, 100, 80);
}

TAnimate::~TAnimate() = default;

void TAnimate::Put(bool& member, bool value)
{
    if (member != value) {
        member = value;
        Invalidate();
    }
}

void TAnimate::setFileName(const System::UnicodeString& file)
{
    if (file == mFileName) {
        return;
    }
    const TComponentWatch watch(this);
    Close();
    if (!watch.IsAlive()) {
        return;
    }
    mFileName = file;
    if (!IsLoading()) {
        TryOpen();
    }
}

void TAnimate::TryOpen()
{
    const TComponentWatch watch(this);
    try {
        OpenFile();
    } catch (const Sysutils::Exception&) {
        // Who wants to see it hears of it by `Open` or `Active`.
        if (watch.IsAlive()) {
            mFile = nullptr;
        }
    }
}

void TAnimate::OpenFile()
{
    if (mFile != nullptr || mFileName.IsEmpty()) {
        return;
    }
    Classes::TMemoryStream stream;
    stream.LoadFromFile(mFileName);
    const auto* const bytes = static_cast<const System::Byte*>(stream.getMemory());
    mFile = System::MakeOwner<CAviFile>(
        std::vector<System::Byte>(bytes, bytes + static_cast<std::size_t>(stream.getSize())));
    mFrame = 1;
    const TComponentWatch watch(this);
    AdjustSize();
    if (!watch.IsAlive()) {
        return;
    }
    Invalidate();
    if (OnOpen) {
        OnOpen(this);
    }
}

void TAnimate::Close()
{
    const TComponentWatch watch(this);
    Stop();
    if (!watch.IsAlive() || mFile == nullptr) {
        return;
    }
    mFile = nullptr;
    Invalidate();
    if (OnClose) {
        OnClose(this);
    }
}

void TAnimate::setOpen(bool isOpen)
{
    isOpen ? OpenFile() : Close();
}

void TAnimate::setActive(bool isActive)
{
    if (IsLoading()) {
        mStartsLoaded = isActive;
        return;
    }
    if (isActive == mActive) {
        return;
    }
    if (isActive) {
        Play(mStartFrame, mStopFrame, mRepetitions);
    } else {
        Stop();
    }
}

void TAnimate::setStartFrame(int frame)
{
    mStartFrame = std::max(frame, 1);
}

void TAnimate::setStopFrame(int frame)
{
    mStopFrame = std::max(frame, 0);
}

void TAnimate::setRepetitions(int count)
{
    mRepetitions = std::max(count, 0);
}

int TAnimate::getFrameCount() const noexcept
{
    return mFile == nullptr ? 0 : mFile->getFrameCount();
}

int TAnimate::getFrameWidth() const noexcept
{
    return mFile == nullptr ? 0 : mFile->getWidth();
}

int TAnimate::getFrameHeight() const noexcept
{
    return mFile == nullptr ? 0 : mFile->getHeight();
}

int TAnimate::Held(int frame) const noexcept
{
    return std::clamp(frame, 1, std::max(getFrameCount(), 1));
}

void TAnimate::Play(int from, int to, int count)
{
    const TComponentWatch watch(this);
    OpenFile();
    if (!watch.IsAlive() || mFile == nullptr) {
        return;
    }
    mFrom = Held(from);
    mTo = std::max(to <= 0 ? getFrameCount() : Held(to), mFrom);
    mLeft = std::max(count, 0);
    mFrame = mFrom;
    const bool wasActive = std::exchange(mActive, true);
    UpdateTimer();
    Invalidate();
    if (!wasActive && OnStart) {
        OnStart(this);
    }
}

void TAnimate::Stop()
{
    if (!mActive) {
        return;
    }
    mActive = false;
    UpdateTimer();
    if (OnStop) {
        OnStop(this);
    }
}

void TAnimate::Seek(int frame)
{
    const TComponentWatch watch(this);
    Stop();
    if (watch.IsAlive()) {
        mFrame = Held(frame);
        Invalidate();
    }
}

void TAnimate::UpdateTimer()
{
    const bool isMoving = mActive && getShowing() && mFile != nullptr && !IsDesigning();
    Extctrls::TickWhile(isMoving, mTimer, mFile == nullptr ? 0 : mFile->getMilliseconds(),
                        {this, &TAnimate::Tick});
}

void TAnimate::Tick(System::TObject*)
{
    if (mFrame < mTo) {
        ++mFrame;
        return Invalidate();
    }
    if (mLeft == 1) {
        return Stop();
    }
    mLeft -= mLeft > 0 ? 1 : 0;
    mFrame = mFrom;
    Invalidate();
}

void TAnimate::Dispatch(void* record)
{
    TCustomControl::Dispatch(record);
    if (static_cast<Messages::TMessage*>(record)->Msg == CM_SHOWINGCHANGED) {
        UpdateTimer();
    }
}

void TAnimate::Loaded()
{
    const TComponentWatch watch(this);
    TCustomControl::Loaded();
    if (!watch.IsAlive()) {
        return;
    }
    TryOpen();
    if (watch.IsAlive() && std::exchange(mStartsLoaded, false) && mFile != nullptr) {
        setActive(true);
    }
}

bool TAnimate::CanAutoSize(int& width, int& height)
{
    if (mFile == nullptr) {
        return false;
    }
    width = getFrameWidth();
    height = getFrameHeight();
    return true;
}

Toolkits::Pixels TAnimate::ReadFrame()
{
    try {
        return mFile->Read(mFrame - 1);
    } catch (...) {
        // Once is enough: what is damaged isn't painted again.
        mActive = false;
        mFile = nullptr;
        UpdateTimer();
        throw;
    }
}

void TAnimate::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.FillRect(GetClientRect());
    if (mFile == nullptr) {
        return;
    }
    Toolkits::Pixels pixels = ReadFrame();
    const auto corner = pixels.At(0, 0);
    Graphics::TBitmap frame;
    frame.TakePixels(std::move(pixels));
    if (mTransparent) {
        constexpr unsigned blueOf = 0xFF;
        const unsigned color = (corner >> 16 & blueOf) | (corner & 0xFF00U) | (corner & blueOf) << 16;
        frame.setTransparentColor(static_cast<Graphics::TColor>(color));
        frame.setTransparent(true);
    }
    const int left = mCenter ? (getWidth() - frame.getWidth()) / 2 : 0;
    const int top = mCenter ? (getHeight() - frame.getHeight()) / 2 : 0;
    canvas.Draw(left, top, &frame);
}

} // namespace Comctrls
