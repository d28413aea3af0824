// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintRecording.h"

#include "platform/toolkit/internal/PaintRecords.h"

#include <algorithm>

namespace Toolkits
{

namespace
{

using Types::TPoint;
using Types::TRect;
using Types::TSize;

/// Brings what was recorded onto another device, from one rectangle into another.
class CPlayer
{
public:
    CPlayer(PaintDevice& device, const TRect& from, const TRect& to) : mDevice(device), mFrom(from), mTo(to)
    {
    }

    void operator()(const TPushRecord&) { mDevice.PushState(); }
    void operator()(const TPopRecord&) { mDevice.PopState(); }
    void operator()(const TOriginRecord& call) { mDevice.MoveOrigin(Across(call.by.cx), Down(call.by.cy)); }
    void operator()(const TClipRecord& call) { mDevice.IntersectClip(Mapped(call.rect)); }
    void operator()(const TPixelRecord& call) { mDevice.SetPixel(Mapped(call.at), call.color); }
    void operator()(const TPolylineRecord& call) { mDevice.Polyline(Mapped(call.points), Mapped(call.pen)); }
    void operator()(const TPolygonRecord& call)
    {
        mDevice.Polygon(Mapped(call.points), Mapped(call.pen), call.brush);
    }
    void operator()(const TFillRecord& call) { mDevice.FillRect(Mapped(call.rect), call.brush); }
    void operator()(const TRectangleRecord& call)
    {
        mDevice.Rectangle(Mapped(call.rect), {.cx = Across(call.corner.cx), .cy = Down(call.corner.cy)},
                          Mapped(call.pen), call.brush);
    }
    void operator()(const TEllipseRecord& call)
    {
        mDevice.Ellipse(Mapped(call.rect), Mapped(call.pen), call.brush);
    }
    void operator()(const TArcRecord& call)
    {
        // What ran counterclockwise runs clockwise in a mirror.
        const bool isMirrored = (mTo.Width() < 0) != (mTo.Height() < 0);
        mDevice.Arc(call.kind, Mapped(call.rect), Mapped(isMirrored ? call.to : call.from),
                    Mapped(isMirrored ? call.from : call.to), Mapped(call.pen), call.brush);
    }
    void operator()(const TTextRecord& call)
    {
        TFontData font = call.font;
        font.height = FontHeight(font.height);
        TTextOptions options = call.options;
        TRect clip;
        if (call.clip) {
            clip = Mapped(*call.clip);
            options.clip = &clip;
        }
        mDevice.Text(Mapped(call.at), call.text, font, options);
    }
    void operator()(const TImageRecord& call)
    {
        mDevice.Image(*call.image, call.source, Mapped(call.target), call.options);
    }
    void operator()(const TFocusRecord& call) { mDevice.FocusRect(Mapped(call.rect)); }
    void operator()(const TFloodRecord& call)
    {
        mDevice.FloodFill(Mapped(call.at), call.color, call.kind, call.brush);
    }

private:
    static int Scaled(long long distance, long long from, long long to)
    {
        const long long product = distance * to;
        const long long half = product < 0 ? -from / 2 : from / 2;
        return HoldPlace((product + half) / from);
    }
    int Across(int distance) const { return Scaled(distance, mFrom.Width(), mTo.Width()); }
    int Down(int distance) const { return Scaled(distance, mFrom.Height(), mTo.Height()); }
    /// Its sign tells what is measured, and none would be the height that is usual.
    int FontHeight(int height) const
    {
        const int pixels = std::max(1, std::abs(Down(height)));
        return height == 0 ? 0 : height < 0 ? -pixels : pixels;
    }

    // The origin was moved already, to the corner of the target.
    TPoint Mapped(const TPoint& point) const { return {.X = Across(point.X), .Y = Down(point.Y)}; }
    TRect Mapped(const TRect& rect) const
    {
        return {.Left = Across(rect.Left),
                .Top = Down(rect.Top),
                .Right = Across(rect.Right),
                .Bottom = Down(rect.Bottom)};
    }
    std::vector<TPoint> Mapped(const std::vector<TPoint>& points) const
    {
        std::vector<TPoint> mapped(points.size());
        std::ranges::transform(points, mapped.begin(), [this](const TPoint& point) { return Mapped(point); });
        return mapped;
    }
    TPenData Mapped(TPenData pen) const
    {
        if (pen.width > 1) {
            pen.width = std::max(1, std::abs(Across(pen.width)));
        }
        return pen;
    }

    PaintDevice& mDevice;
    TRect mFrom;
    TRect mTo;
};

constexpr TRect Held(const TRect& rect)
{
    return {.Left = HoldPlace(rect.Left),
            .Top = HoldPlace(rect.Top),
            .Right = HoldPlace(rect.Right),
            .Bottom = HoldPlace(rect.Bottom)};
}

constexpr TRect OwnBounds = {.Left = 0, .Top = 0, .Right = 16'384, .Bottom = 16'384};

} // namespace

PaintRecording::PaintRecording() : PaintRecording(OwnBounds) {}

PaintRecording::PaintRecording(const TRect& bounds)
    : mBounds(bounds), mRecords(new TRecords{.calls = {}, .state = CDeviceState(bounds)})
{
}

PaintRecording::~PaintRecording() = default;

void PaintRecording::Play(PaintDevice& device, const TRect& from, const TRect& to) const
{
    const TRect source = Held(from);
    if (source.Left >= source.Right || source.Top >= source.Bottom) {
        return;
    }
    CPlayer player(device, source, Held(to));
    device.PushState();
    // A drawing that puts back more than it kept must not undo what stands around it.
    int kept = 0;
    player(TOriginRecord{.by = {.cx = -source.Left, .cy = -source.Top}});
    device.MoveOrigin(to.Left, to.Top);
    for (const TPaintRecord& call : mRecords->calls) {
        if (std::holds_alternative<TPushRecord>(call)) {
            ++kept;
        } else if (std::holds_alternative<TPopRecord>(call) && --kept < 0) {
            kept = 0;
            continue;
        }
        std::visit(player, call);
    }
    for (; kept >= 0; --kept) {
        device.PopState();
    }
}

void PaintRecording::Append(const PaintRecording& other)
{
    const auto count = static_cast<std::ptrdiff_t>(other.mRecords->calls.size());
    mRecords->calls.reserve(mRecords->calls.size() + other.mRecords->calls.size());
    std::copy_n(other.mRecords->calls.begin(), count, std::back_inserter(mRecords->calls));
}

System::UnicodeString PaintRecording::AsText() const
{
    System::UnicodeString text;
    for (const TPaintRecord& call : mRecords->calls) {
        text += LineOf(call) + u'\n';
    }
    return text;
}

void PaintRecording::Clear()
{
    *mRecords = {.calls = {}, .state = CDeviceState(mBounds)};
}

std::size_t PaintRecording::Count() const noexcept
{
    return mRecords->calls.size();
}

void PaintRecording::PushState()
{
    mRecords->calls.emplace_back(TPushRecord{});
    mRecords->state.Push();
}

void PaintRecording::PopState()
{
    mRecords->calls.emplace_back(TPopRecord{});
    mRecords->state.Pop();
}

void PaintRecording::MoveOrigin(int dx, int dy)
{
    mRecords->calls.emplace_back(TOriginRecord{.by = {.cx = dx, .cy = dy}});
    mRecords->state.MoveOrigin(dx, dy);
}

void PaintRecording::IntersectClip(const TRect& rect)
{
    mRecords->calls.emplace_back(TClipRecord{rect});
    mRecords->state.Intersect(rect);
}

TRect PaintRecording::ClipRect() const
{
    return mRecords->state.ClipFromOrigin();
}

bool PaintRecording::GetPixel(const TPoint&, TPixel&) const
{
    return false;
}

void PaintRecording::SetPixel(const TPoint& at, TPixel color)
{
    mRecords->calls.emplace_back(TPixelRecord{at, color});
}

bool PaintRecording::ReadPixels(const TRect&, Pixels&) const
{
    return false;
}

void PaintRecording::Polyline(std::span<const TPoint> points, const TPenData& pen)
{
    mRecords->calls.emplace_back(TPolylineRecord{{points.begin(), points.end()}, pen});
}

void PaintRecording::Polygon(std::span<const TPoint> points, const TPenData& pen, const TBrushData& brush)
{
    mRecords->calls.emplace_back(TPolygonRecord{{points.begin(), points.end()}, pen, brush});
}

void PaintRecording::FillRect(const TRect& rect, const TBrushData& brush)
{
    mRecords->calls.emplace_back(TFillRecord{rect, brush});
}

void PaintRecording::Rectangle(const TRect& rect, const TSize& corner, const TPenData& pen,
                               const TBrushData& brush)
{
    mRecords->calls.emplace_back(TRectangleRecord{rect, corner, pen, brush});
}

void PaintRecording::Ellipse(const TRect& rect, const TPenData& pen, const TBrushData& brush)
{
    mRecords->calls.emplace_back(TEllipseRecord{rect, pen, brush});
}

void PaintRecording::Arc(EArc kind, const TRect& rect, const TPoint& from, const TPoint& to,
                         const TPenData& pen, const TBrushData& brush)
{
    mRecords->calls.emplace_back(TArcRecord{kind, rect, from, to, pen, brush});
}

void PaintRecording::Text(const TPoint& at, const System::UnicodeString& text, const TFontData& font,
                          const TTextOptions& options)
{
    TTextRecord record{.at = at, .text = text, .font = font, .options = options, .clip = {}};
    if (options.clip != nullptr) {
        record.clip = *options.clip;
        record.options.clip = nullptr;
    }
    mRecords->calls.emplace_back(std::move(record));
}

void PaintRecording::Image(const Pixels& image, const TRect& source, const TRect& target,
                           const TImageOptions& options)
{
    mRecords->calls.emplace_back(TImageRecord{TSharedPixels(new Pixels(image)), source, target, options});
}

void PaintRecording::FocusRect(const TRect& rect)
{
    mRecords->calls.emplace_back(TFocusRecord{rect});
}

void PaintRecording::FloodFill(const TPoint& at, TPixel color, EFlood kind, const TBrushData& brush)
{
    mRecords->calls.emplace_back(TFloodRecord{at, color, kind, brush});
}

} // namespace Toolkits
