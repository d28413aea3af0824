// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/internal/PaintRecords.h"

#include <algorithm>

namespace Toolkits
{

namespace
{

/// Grows with each call by what it draws on.
class CExtent
{
public:
    const Types::TSize& Size() const { return mSize; }

    void operator()(const TPushRecord&) { mState.Push(); }
    void operator()(const TPopRecord&) { mState.Pop(); }
    void operator()(const TOriginRecord& call) { mState.MoveOrigin(call.by.cx, call.by.cy); }
    void operator()(const TClipRecord&) {}
    void operator()(const TPixelRecord& call) { Take(call.at); }
    void operator()(const TFloodRecord& call) { Take(call.at); }
    void operator()(const TPolylineRecord& call) { Take(call.points); }
    void operator()(const TPolygonRecord& call) { Take(call.points); }
    void operator()(const TTextRecord& call)
    {
        const Types::TSize size = CurrentToolkit().TextExtent(call.font, call.text);
        Take({.X = HoldPlace(0LL + call.at.X + size.cx - 1), .Y = HoldPlace(0LL + call.at.Y + size.cy - 1)});
    }
    void operator()(const TImageRecord& call) { TakeRect(call.target); }
    /// All that are within their rectangle.
    template <class Record>
    requires requires(const Record& call) { call.rect; }
    void operator()(const Record& call) { TakeRect(call.rect); }

private:
    void Take(const Types::TPoint& point)
    {
        const Types::TPoint place = mState.ToDevice(point);
        mSize.cx = std::max(mSize.cx, place.X + 1);
        mSize.cy = std::max(mSize.cy, place.Y + 1);
    }
    void Take(const std::vector<Types::TPoint>& points)
    {
        std::ranges::for_each(points, [this](const Types::TPoint& point) { Take(point); });
    }
    void TakeRect(const Types::TRect& rect)
    {
        const Types::TRect place = Normalized(mState.ToDevice(rect));
        mSize.cx = std::max(mSize.cx, place.Right);
        mSize.cy = std::max(mSize.cy, place.Bottom);
    }

    CDeviceState mState{{}};
    Types::TSize mSize;
};

} // namespace

Types::TSize PaintRecording::Extent() const
{
    CExtent extent;
    for (const TPaintRecord& call : mRecords->calls) {
        std::visit(extent, call);
    }
    return extent.Size();
}

} // namespace Toolkits
