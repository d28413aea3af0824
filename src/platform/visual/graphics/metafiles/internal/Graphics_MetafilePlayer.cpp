// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePlayer.h"

#include "platform/toolkit/internal/DeviceState.h"

#include <algorithm>
#include <utility>

namespace Graphics
{

using Toolkits::PaintRecording;
using Types::TRect;

namespace
{

constexpr std::size_t DeepestSave = 4096;
/// What a recording of so many calls takes is about what the largest picture of pixels does.
constexpr std::size_t MostCalls = 1U << 21U;

[[noreturn]] void ThrowTooLarge()
{
    throw EInvalidGraphic(u"The metafile draws more than a picture can have");
}

/// What is selected takes the place of its kind.
struct TSelection
{
    TMetafileState& state;

    void operator()(const std::monostate&) const {}
    void operator()(const TMetafileOther&) const {}
    void operator()(const Toolkits::TPenData& pen) const { state.pen = pen; }
    void operator()(const Toolkits::TBrushData& brush) const { state.brush = brush; }
    void operator()(const Toolkits::TFontData& font) const { state.font = font; }
};

} // namespace

CMetafilePlayer::CMetafilePlayer(PaintRecording& recording) : mRecording(recording)
{
    Select(StockObject(13));
}

void CMetafilePlayer::Save()
{
    if (mSaved.size() == DeepestSave) {
        ThrowTooLarge();
    }
    mSaved.push_back(mState);
}

void CMetafilePlayer::Restore(int number)
{
    const auto count = static_cast<long long>(mSaved.size());
    const long long kept = number < 0 ? count + number : number - 1LL;
    if (kept >= 0 && kept < count) {
        mState = std::move(mSaved[static_cast<std::size_t>(kept)]);
        mSaved.resize(static_cast<std::size_t>(kept));
    }
}

void CMetafilePlayer::Select(const TMetafileObject& object)
{
    std::visit(TSelection{mState}, object);
}

PaintRecording& CMetafilePlayer::Target(const std::optional<TRect>& clip)
{
    if (mRecording.Count() > MostCalls) {
        ThrowTooLarge();
    }
    // A device can make its limits narrower alone, so others begin with those of the picture.
    if (clip != mClipOfRecording) {
        Finish();
        if (clip) {
            mRecording.PushState();
            mRecording.IntersectClip(*clip);
        }
        mClipOfRecording = clip;
    }
    return mRecording;
}

void CMetafilePlayer::Finish()
{
    if (mClipOfRecording) {
        mRecording.PopState();
        mClipOfRecording.reset();
    }
}

void CMetafilePlayer::CountPixels(std::size_t count)
{
    constexpr auto most = static_cast<std::size_t>(Toolkits::Pixels::MaximumCount);
    if (count > most - mPixelCount) {
        ThrowTooLarge();
    }
    mPixelCount += count;
}

} // namespace Graphics
