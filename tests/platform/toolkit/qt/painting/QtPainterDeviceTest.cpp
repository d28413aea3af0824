// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtPainterDevice.h"

#include "platform/toolkit/qt/WindowLog.h"
#include "support/ChildProgram.h"
#include "support/DrawnPixels.h"
#include "support/ScopedVariable.h"

#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace
{

using namespace Graphics;
using Support::Black;
using Support::Blue;
using Support::Drawn;
using Support::Green;
using Support::Red;
using Support::White;
using System::UnicodeString;
using Toolkits::EArc;
using Toolkits::EFlood;
using Toolkits::PaintDevice;
using Toolkits::Pixels;
using Toolkits::TBrushData;
using Toolkits::TPenData;
using Types::TPoint;
using Types::TRect;

constexpr TRect Area{0, 0, 48, 32};

struct TCase
{
    const char* name;
    void (*draw)(PaintDevice&);
};

TBrushData Brush(Toolkits::TPixel color, TBrushStyle style = bsSolid)
{
    return {.color = color, .style = style, .pattern = {}};
}

TBrushData Checkered()
{
    auto* const pattern = new Pixels(2, 2, Red);
    pattern->At(1, 0) = Blue;
    pattern->At(0, 1) = Blue;
    return {.color = White, .style = bsSolid, .pattern = Toolkits::TSharedPixels(pattern)};
}

Pixels Picture()
{
    Pixels picture(3, 2, Green);
    picture.At(0, 0) = Red;
    picture.At(2, 1) = 0;
    return picture;
}

/// Areas with level and upright edges: at each scale the library finds the pixels that it drew.
const TCase AreaCases[] = {
    {"fills side by side",
     [](PaintDevice& device) {
         for (int i = 0; i < 10; ++i) {
             device.FillRect({i * 3, i, i * 3 + 3, 20}, Brush(i % 2 == 0 ? Red : Blue));
         }
     }},
    {"pixels",
     [](PaintDevice& device) {
         for (int i = 0; i < 12; ++i) {
             device.SetPixel({i * 2, i}, i % 2 == 0 ? Red : Blue);
         }
     }},
    {"focus",
     [](PaintDevice& device) {
         device.FocusRect({2, 3, 40, 29});
     }},
    {"exclusive or",
     [](PaintDevice& device) {
         device.FillRect({0, 0, 48, 10}, Brush(Red));
         device.Rectangle({4, 4, 20, 16}, {}, {.style = psClear, .mode = pmXor}, Brush(Blue));
     }},
    {"clip and origin",
     [](PaintDevice& device) {
         device.PushState();
         device.MoveOrigin(5, 7);
         device.IntersectClip({1, 1, 20, 10});
         device.FillRect({-100, -100, 100, 100}, Brush(Red));
         device.PopState();
         device.FillRect({0, 0, 3, 3}, Brush(Blue));
     }},
    {"picture",
     [](PaintDevice& device) {
         device.Image(Pixels(2, 2, Red), {0, 0, 2, 2}, {3, 2, 20, 17}, {});
     }},
};

/// Lines of that kind, and what has them. They are of one width everywhere, so where that isn't the one of a
/// pixel of the library, more of those are found.
const TCase LineCases[] = {
    {"line",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{3, 4}, TPoint{20, 4}}, {});
     }},
    {"line back",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{20, 4}, TPoint{3, 4}}, {});
     }},
    {"corner",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{3, 4}, TPoint{20, 4}, TPoint{20, 15}, TPoint{9, 15}}, {});
     }},
    {"dots",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{1, 1}, TPoint{40, 1}, TPoint{40, 25}}, {.style = psDot});
     }},
    {"far dashes",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{-2'000'000'000, 3}, TPoint{2'000'000'000, 3}}, {.style = psDash});
     }},
    {"rectangle",
     [](PaintDevice& device) {
         device.Rectangle({3, 2, 20, 17}, {}, {.color = Blue}, Brush(Red));
     }},
    {"turned rectangle",
     [](PaintDevice& device) {
         device.Rectangle({20, 17, 3, 2}, {}, {.color = Blue}, Brush(Red));
     }},
    {"inverted twice",
     [](PaintDevice& device) {
         device.FillRect({2, 2, 20, 20}, Brush(Red));
         for (int i = 0; i < 2; ++i) {
             device.Rectangle({5, 5, 30, 25}, {}, {.mode = pmNot}, Brush(Green, bsClear));
             device.FocusRect({1, 1, 40, 30});
         }
     }},
    {"flood",
     [](PaintDevice& device) {
         device.Rectangle({3, 2, 20, 17}, {}, {}, Brush(White));
         device.FloodFill({10, 10}, White, EFlood::Surface, Brush(Green));
         device.FloodFill({30, 20}, Black, EFlood::Border, Brush(Red));
     }},
};

/// Shapes that have on the screen, pixel to pixel, what they have on pixels.
const TCase OtherCases[] = {
    {"steep",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{3, 4}, TPoint{9, 30}}, {});
     }},
    {"wide",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{5, 4}, TPoint{40, 28}, TPoint{8, 28}},
                         {.width = 3, .mode = pmNot});
     }},
    {"dashes",
     [](PaintDevice& device) {
         device.Polyline(std::array{TPoint{3, 4}, TPoint{40, 30}}, {.style = psDashDot});
     }},
    {"wide frame",
     [](PaintDevice& device) {
         device.Rectangle({4, 4, 30, 20}, {}, {.color = Blue, .width = 4}, Brush(Red));
     }},
    {"round",
     [](PaintDevice& device) {
         device.Rectangle({4, 4, 30, 20}, {8, 6}, {.color = Blue, .width = 3}, Brush(Red));
     }},
    {"ellipse",
     [](PaintDevice& device) {
         device.Ellipse({4, 4, 30, 20}, {.width = 2}, Brush(Red));
     }},
    {"ring",
     [](PaintDevice& device) {
         device.Ellipse({4, 4, 31, 20}, {}, Brush(Red, bsClear));
     }},
    {"arcs",
     [](PaintDevice& device) {
         device.Arc(EArc::Open, {0, 0, 20, 20}, {20, 10}, {0, 10}, {}, Brush(Red));
         device.Arc(EArc::Chord, {20, 0, 40, 20}, {40, 10}, {20, 5}, {.width = 2}, Brush(Red));
         device.Arc(EArc::Pie, {10, 10, 40, 30}, {20, 10}, {0, 10}, {.style = psDot}, Brush(Blue));
     }},
    {"polygon",
     [](PaintDevice& device) {
         device.Polygon(std::array{TPoint{5, 1}, TPoint{40, 28}, TPoint{3, 20}, TPoint{30, 3}}, {},
                        Brush(Green));
     }},
    {"hatches",
     [](PaintDevice& device) {
         device.FillRect({0, 0, 20, 30}, Brush(Red, bsCross));
         device.FillRect({20, 0, 48, 30}, Brush(Red, bsFDiagonal));
     }},
    {"pattern",
     [](PaintDevice& device) {
         device.FillRect({1, 1, 20, 20}, Checkered());
     }},
    {"pictures",
     [](PaintDevice& device) {
         device.Image(Picture(), {0, 0, 3, 2}, {20, 2, 2, 17}, {});
         device.Image(Picture(), {0, 0, 3, 2}, {20, 2, 47, 30}, {.hasAlpha = true, .opacity = 120});
         device.Image(Picture(), {0, 0, 3, 2}, {10, 10, 30, 30}, {.operation = 0x66});
     }},
};

QWidget& Widget()
{
    const auto all = QApplication::allWidgets();
    const auto found = std::ranges::find(all, QStringLiteral("Form.Window"), &QWidget::objectName);
    return **found;
}

/// A window that shows what is drawn.
class CPaintedWindow
{
public:
    CPaintedWindow() : mShown(Toolkits::EWindowKind::Canvas)
    {
        // Eighths of the scales that are tested are whole pixels.
        mShown.window->SetBounds({8, 16, 8 + Area.Right, 16 + Area.Bottom});
        mShown.window->SetLook({.font = {}, .ground = White});
    }

    /// What the library finds after it drew.
    Pixels Paint(const std::function<void(PaintDevice&)>& draw)
    {
        mShown.log.paint = [this, draw](PaintDevice& device) {
            draw(device);
            EXPECT_TRUE(device.ReadPixels(Area, mRead));
        };
        mShown.window->Invalidate(nullptr);
        mShown.window->Update();
        return mRead;
    }
    /// What is on the screen, in its own pixels.
    QImage Grab() const { return Widget().grab().toImage(); }
    /// As `Grab`, but all of the form around it.
    QImage GrabForm() const { return Widget().window()->grab().toImage(); }
    Toolkits::Window& Window() const { return *mShown.window; }

private:
    Support::TShownWindow mShown;
    Pixels mRead;
};

Pixels DrawnOnPixels(void (*draw)(PaintDevice&))
{
    Pixels pixels(Area.Right, Area.Bottom, White);
    draw(*Toolkits::CurrentToolkit().NewPixelDevice(pixels));
    return pixels;
}

TEST(QtPainterDeviceTest, DrawsOnWindowsAsOnPixels)
{
    CPaintedWindow painted;
    for (const auto cases : {std::span<const TCase>(AreaCases), std::span<const TCase>(LineCases),
                             std::span<const TCase>(OtherCases)}) {
        for (const auto& [name, draw] : cases) {
            EXPECT_EQ(Drawn(painted.Paint(draw)), Drawn(DrawnOnPixels(draw))) << name;
        }
    }
}

TEST(QtPainterDeviceTest, ShowsWhatWasDrawn)
{
    CPaintedWindow painted;
    painted.Paint([](PaintDevice& device) { device.FillRect({3, 4, 9, 10}, Brush(Red)); });
    const QImage image = painted.Grab();
    EXPECT_EQ(image.pixel(3, 4), Red);
    EXPECT_EQ(image.pixel(8, 9), Red);
    EXPECT_EQ(image.pixel(2, 4), White);
    EXPECT_EQ(image.pixel(9, 9), White);
}

TEST(QtPainterDeviceTest, PutsPartsTogetherWithoutASeam)
{
    CPaintedWindow painted;
    const auto draw = [](PaintDevice& device) {
        device.FillRect(Area, Brush(Red, bsDiagCross));
        device.FillRect({20, 3, 40, 20}, Checkered());
        device.FocusRect({2, 3, 40, 29});
    };
    painted.Paint(draw);
    const QImage whole = painted.Grab();
    const TRect part{7, 5, 30, 22};
    painted.Window().Invalidate(&part);
    painted.Window().Update();
    EXPECT_EQ(painted.Grab(), whole);
}

TEST(QtPainterDeviceTest, TellsWhereItDrawsAndWhatIsThere)
{
    CPaintedWindow painted;
    painted.Paint([](PaintDevice& device) {
        EXPECT_EQ(device.ClipRect(), Area);
        device.MoveOrigin(3, 4);
        device.IntersectClip({0, 0, 5, 6});
        EXPECT_EQ(device.ClipRect(), (TRect{0, 0, 5, 6}));
        device.SetPixel({1, 1}, Red);
        Toolkits::TPixel pixel = 0;
        EXPECT_TRUE(device.GetPixel({1, 1}, pixel));
        EXPECT_EQ(pixel, Red);
        EXPECT_FALSE(device.GetPixel({7, 1}, pixel));
        Pixels outside;
        EXPECT_TRUE(device.ReadPixels({-10, -10, -8, -8}, outside));
        EXPECT_EQ(outside.At(0, 0), 0U);
    });
}

/// Places at the ends of what a number can tell, and what is left is one colour.
void DrawFarAway(PaintDevice& device)
{
    constexpr int huge = 2'147'483'647;
    const TRect all{-huge - 1, -huge - 1, huge, huge};
    for (const TPenData& pen : {TPenData{}, {.width = huge}, {.style = psDot}}) {
        device.Polyline(std::array{TPoint{-huge, -huge}, TPoint{huge, huge}}, pen);
        device.Rectangle(all, {huge, huge}, pen, Brush(Red));
        device.Ellipse(all, pen, Brush(Blue));
        device.Arc(EArc::Pie, all, {huge, 0}, {0, -huge}, pen, Brush(Blue));
    }
    device.FocusRect(all);
    device.Text({-huge, huge}, u"far", {.height = huge}, {});
    device.Text({-huge, huge}, u"far", {.orientation = 450}, {.isOpaque = true, .clip = &all});
    device.Image(Picture(), {0, 0, 3, 2}, all, {});
    device.Image(Picture(), all, {0, 0, 3, 2}, {});
    device.PushState();
    device.MoveOrigin(huge, -huge);
    device.MoveOrigin(huge, -huge);
    device.IntersectClip(all);
    device.FillRect(all, Brush(Green));
    device.PopState();
    device.FillRect(all, Brush(Green));
}

TEST(QtPainterDeviceTest, BearsPlacesOfAllKinds)
{
    CPaintedWindow painted;
    painted.Paint(&DrawFarAway);
    EXPECT_EQ(painted.Grab().pixel(20, 20), Green);
}

TEST(QtPainterDeviceTest, FillsBelowATextThatCovers)
{
    CPaintedWindow painted;
    const Toolkits::TFontData font{.height = -10};
    for (const UnicodeString& text : {UnicodeString(u"Hi"), UnicodeString(u"Ωm")}) {
        const Types::TSize extent = Toolkits::CurrentToolkit().TextExtent(font, text);
        const Pixels pixels = painted.Paint([=](PaintDevice& device) {
            device.Text({4, 5}, text, font, {.color = Blue, .background = Red, .isOpaque = true});
        });
        int below = 0;
        for (int y = 0; y < Area.Bottom; ++y) {
            for (int x = 0; x < Area.Right; ++x) {
                const bool isInside = x >= 4 && x < 4 + extent.cx && y >= 5 && y < 5 + extent.cy;
                EXPECT_TRUE(isInside || pixels.At(x, y) == White) << x << "," << y;
                below += pixels.At(x, y) == Red;
            }
        }
        EXPECT_GT(below, extent.cx * extent.cy / 4);
    }
}

/// Of each colour, how many pixels there are.
int CountOf(const QImage& image, QRgb color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == color;
        }
    }
    return count;
}

TEST(QtPainterScaleTest, DISABLED_IsSharp)
{
    CPaintedWindow painted;
    const double scale = Widget().devicePixelRatioF();
    const auto pixel = [scale](int place) { return static_cast<int>(std::floor(place * scale + 0.5)); };
    const int width = pixel(1);
    for (const auto& [name, draw] : AreaCases) {
        EXPECT_EQ(Drawn(painted.Paint(draw)), Drawn(DrawnOnPixels(draw))) << name;
    }
    for (const auto& [name, draw] : LineCases) {
        const Pixels drawn = painted.Paint(draw);
        EXPECT_TRUE(width > scale || Drawn(drawn) == Drawn(DrawnOnPixels(draw))) << name << "\n"
                                                                                 << Drawn(drawn);
    }
    // A line is as wide as the next whole number of pixels, and of its own colour from edge to edge.
    painted.Paint([](PaintDevice& device) { device.Polyline(std::array{TPoint{3, 5}, TPoint{23, 5}}, {}); });
    const QImage line = painted.Grab();
    EXPECT_EQ(CountOf(line, Black), (pixel(23) - pixel(3)) * width);
    EXPECT_EQ(CountOf(line, Black) + CountOf(line, White), line.width() * line.height());
    // All shapes, as large as on pixels and in whole pixels.
    for (const auto& [name, draw] : OtherCases) {
        if (std::string(name) == "pictures") {
            continue;
        }
        painted.Paint(draw);
        const QImage image = painted.Grab();
        const Pixels small = DrawnOnPixels(draw);
        const auto white = std::ranges::count(small.All(), White);
        EXPECT_NEAR(CountOf(image, White) / scale / scale, static_cast<double>(white), 130) << name;
        int known = 0;
        for (const QRgb color : {White, Black, Red, Green, Blue}) {
            known += CountOf(image, color);
        }
        EXPECT_TRUE(known == image.width() * image.height() || std::string(name) == "wide") << name;
    }
    painted.Paint(&DrawFarAway);
    const QImage far = painted.Grab();
    EXPECT_EQ(CountOf(far, Green), far.width() * far.height());
    // Wherever it lies, no pixel at its edges is left to chance.
    for (const int i : {1, 2}) {
        const TRect place{3 + i, 4 + i, 45 + 2 * i, 40 + 3 * i};
        painted.Window().SetBounds(place);
        painted.Paint(&DrawFarAway);
        const QImage form = painted.GrabForm();
        const int green = CountOf(form, Green);
        EXPECT_EQ(green, (pixel(place.Right) - pixel(place.Left)) * (pixel(place.Bottom) - pixel(place.Top)));
        EXPECT_EQ(green + CountOf(form, form.pixel(0, 0)), form.width() * form.height());
    }
    painted.Window().SetBounds({8, 16, 8 + Area.Right, 16 + Area.Bottom});
    painted.Paint([](PaintDevice& device) {
        device.FillRect({3, 4, 9, 10}, Brush(Red));
        // As many rows as a picture can have, of which few are seen.
        Pixels read;
        EXPECT_TRUE(device.ReadPixels({3, -9, 4, 9'000'000}, read));
        EXPECT_EQ(read.At(0, 9 + 4), Red);
        EXPECT_EQ(read.At(0, 9 + 10), White);
        EXPECT_EQ(read.At(0, 0), 0U);
    });
    // Texts of 8 to 20 points are drawn with the pixels of the screen, in the size that they are measured
    // with.
    painted.Window().SetBounds({8, 16, 208, 66});
    for (const int height : {-11, -13, -16, -21, -27}) {
        const Toolkits::TFontData font{.height = height};
        painted.Paint([font](PaintDevice& device) { device.Text({2, 2}, u"Hill", font, {}); });
        const QImage text = painted.Grab();
        const Types::TSize extent = Toolkits::CurrentToolkit().TextExtent(font, u"Hill");
        int right = 0;
        int dark = 0;
        for (int x = 0; x < text.width(); ++x) {
            for (int y = 0; y < text.height(); ++y) {
                right = text.pixel(x, y) != White ? x : right;
                dark += qGray(text.pixel(x, y)) < 128;
            }
        }
        EXPECT_NEAR(right, (2 + extent.cx) * scale, 5 * scale) << height;
        EXPECT_GT(dark, 8) << height;
    }
    Support::PrintResult(std::to_string(scale));
}

TEST(QtPainterDeviceTest, IsSharpAtEachScale)
{
    for (const char* const scale : {"1", "1.25", "1.5", "1.75", "2", "3"}) {
        SCOPED_TRACE(scale);
        const Support::ScopedVariable factor("QT_SCALE_FACTOR", scale);
        EXPECT_EQ(Support::RunChildTest("QtPainterScaleTest.DISABLED_IsSharp"),
                  std::to_string(std::stod(scale)));
    }
}

} // namespace
