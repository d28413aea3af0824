// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileClip.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileMapping.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileObjects.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePath.h"

#include <optional>
#include <utility>
#include <vector>

namespace Graphics
{

/// What the records of a metafile set before those that draw.
struct TMetafileState
{
    CMetafileMapping mapping;
    Toolkits::TPenData pen;
    Toolkits::TBrushData brush;
    Toolkits::TFontData font;
    Toolkits::TPixel textColor = Toolkits::OpaquePixel(0, 0, 0);
    Toolkits::TPixel background = Toolkits::OpaquePixel(255, 255, 255);
    bool isOpaque = true;
    /// The `ta...` bits.
    unsigned textAlign = 0;
    TPenMode mode = pmCopy;
    Toolkits::EFillRule fillRule = Toolkits::EFillRule::EvenOdd;
    bool isClockwise = false;
    /// Where the next line begins.
    Types::TPoint at;
    /// In pixels.
    CMetafileClip clip;
};

// How a text lies at its place, and the options of a text, as files have them.

inline constexpr unsigned taMoves = 1;
inline constexpr unsigned taRight = 2;
inline constexpr unsigned taCenter = 6;
inline constexpr unsigned taBottom = 8;
inline constexpr unsigned taBaseline = 24;
inline constexpr unsigned taRightToLeft = 256;
inline constexpr unsigned toOpaque = 2;
inline constexpr unsigned toClipped = 4;
inline constexpr unsigned toGlyphs = 16;
inline constexpr unsigned toRightToLeft = 128;
inline constexpr unsigned toBothWays = 0x2000;

struct TMetafileText
{
    Types::TPoint at;
    System::UnicodeString text;
    unsigned options = 0;
    Types::TRect rect;
    /// How far each character reaches; if there aren't as many as characters, that is the font's matter.
    std::vector<int> distances = {};
};

/// Draws in the units of a metafile, and keeps as a recording in pixels what that gives.
class CMetafilePlayer
{
public:
    explicit CMetafilePlayer(Toolkits::PaintRecording& recording);

    TMetafileState& State() { return mState; }
    /// `EInvalidGraphic` if that is done too often.
    void Save();
    /// As many as were saved since, for a negative number; else those from that one on. Others are passed
    /// over.
    void Restore(int number);
    void Select(const TMetafileObject& object);
    /// To be called at the end.
    void Finish();

    void MoveTo(const Types::TPoint& point);
    /// From the place where the last line ended, which is at the last of the points then.
    void LinesTo(std::vector<Types::TPoint> points);
    void Polyline(const std::vector<Types::TPoint>& points);
    void Polygon(const std::vector<Types::TPoint>& points);
    /// The rows of points that make up `points`, so many in each: shapes that are filled together, or lines.
    void Polygons(std::span<const Types::TPoint> points, const std::vector<std::size_t>& counts);
    void Polylines(std::span<const Types::TPoint> points, const std::vector<std::size_t>& counts);
    /// Curves through each third of the points.
    void Bezier(const std::vector<Types::TPoint>& points);
    void BezierTo(std::vector<Types::TPoint> points);
    void Rectangle(const Types::TRect& rect, const Types::TSize& corner);
    void Ellipse(const Types::TRect& rect);
    void Arc(Toolkits::EArc kind, const Types::TRect& rect, Types::TPoint from, Types::TPoint to);
    /// As `Arc`, with a line from where the last one ended.
    void ArcTo(const Types::TRect& rect, Types::TPoint from, Types::TPoint to);
    /// A line to the circle and along it, in degrees.
    void AngleArc(const Types::TPoint& center, int radius, double start, double sweep);
    void SetPixel(const Types::TPoint& at, Toolkits::TPixel color);
    void FloodFill(const Types::TPoint& at, Toolkits::TPixel color, Toolkits::EFlood kind);
    /// Fills with the brush, by an operation as `TImageOptions` has it.
    void Fill(const Types::TRect& rect, unsigned char operation);
    void Text(const TMetafileText& text);
    void Image(const Toolkits::Pixels& image, const Types::TRect& source, const Types::TRect& target,
               const Toolkits::TImageOptions& options);
    /// `EInvalidGraphic` if all images together have more pixels than a picture can.
    void CountPixels(std::size_t count);

    void BeginPath();
    void ClosePath();
    void EndPath();
    void AbortPath();
    void DrawPath(bool isFilled, bool isDrawn);
    /// Limits drawing to the rectangles around the figures of the path, by the number of the operation.
    void ClipPath(unsigned operation);

private:
    /// Where to draw within a rectangle, or in all of the picture.
    Toolkits::PaintRecording& Target(const std::optional<Types::TRect>& clip);
    /// Calls `action` with where to draw, for each rectangle that drawing is limited to. What is drawn takes
    /// as much as so many pixels, each time, and all but the first count.
    template <class Action>
    void Draw(std::size_t pixels, Action action)
    {
        if (!mState.clip.IsSet()) {
            action(Target({}));
        }
        bool isFirst = true;
        for (const Types::TRect& rect : mState.clip.Rects()) {
            CountPixels(std::exchange(isFirst, false) ? 0 : pixels);
            action(Target(rect));
        }
    }
    Toolkits::TPenData Pen() const;
    /// What polygons are filled with.
    Toolkits::TBrushData PolygonBrush() const;
    /// Whether shapes are to be drawn as such.
    bool IsPlain() const { return !mIsPathOpen && !mState.mapping.IsTurned(); }
    template <class Point>
    std::vector<Types::TPoint> ToPixels(const std::vector<Point>& points) const;
    void DrawPoints(std::vector<Types::TPoint> pixels, bool isClosed);
    void DrawFigures(const std::vector<TMetafileFigure>& figures, bool isFilled, bool isDrawn);
    std::vector<TMetafilePoint> ArcPoints(const Types::TRect& rect, const Types::TPoint& from,
                                          const Types::TPoint& to);
    /// A point is more to keep and to draw than a pixel.
    static constexpr std::size_t PixelsOfAPoint = 16;
    void CountPoints(std::size_t count) { CountPixels(count * PixelsOfAPoint); }
    /// A part of an ellipse, and curves, as points close to each other. They count, a curve before the next
    /// one is made: a few bytes of a file become hundreds of points.
    std::vector<TMetafilePoint> EllipsePoints(const Types::TRect& box, double start, double sweep);
    std::vector<Types::TPoint> Flattened(const std::vector<Types::TPoint>& points);
    std::vector<TMetafileFigure> FiguresOf(std::span<const Types::TPoint> points,
                                           const std::vector<std::size_t>& counts, bool isClosed) const;
    void DrawOrGather(const std::vector<TMetafileFigure>& figures, bool isFilled);
    Toolkits::TFontData Font() const;
    /// `rect` is what a text is cut to that is cut at all; it must outlive the result.
    Toolkits::TTextOptions OptionsOf(const TMetafileText& text, const Types::TRect& rect) const;
    /// Where, in pixels behind the beginning of a text, each character begins, and where the last one ends.
    std::vector<int> PlacesOf(const std::vector<int>& distances) const;
    void DrawPlaced(const System::UnicodeString& text, const std::vector<int>& places,
                    const Types::TPoint& corner, const Toolkits::TFontData& font,
                    Toolkits::TTextOptions options);
    /// The next text begins behind one that is so many pixels wide.
    void MoveBehind(int width);

    Toolkits::PaintRecording& mRecording;
    TMetafileState mState;
    std::vector<TMetafileState> mSaved;
    std::optional<Types::TRect> mClipOfRecording;
    CMetafilePath mPath;
    bool mIsPathOpen = false;
    std::size_t mPixelCount = 0;
};

} // namespace Graphics
