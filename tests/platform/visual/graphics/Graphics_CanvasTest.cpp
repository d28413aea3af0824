// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Canvas.h"

#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "support/DrawnPixels.h"
#include "support/RecordedCanvas.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

using namespace Graphics;
using Support::RecordedCanvas;
using Types::TPoint;
using Types::TRect;

TEST(GraphicsCanvasTest, DrawsWithPenAndBrush)
{
    struct TCase
    {
        void (*draw)(TCanvas&);
        std::string calls;
    };
    static constexpr TPoint points[] = {{1, 2}, {3, 4}, {5, 6}};
    const std::string pen = " pen #FF0000";
    const std::string brush = " brush #0000FF";
    const TCase cases[] = {
        {[](TCanvas& canvas) { canvas.MoveTo(1, 2), canvas.LineTo(3, 4), canvas.LineTo(5, 6); },
         "polyline 1,2 3,4" + pen + "\npolyline 3,4 5,6" + pen + "\n"},
        {[](TCanvas& canvas) { canvas.Polyline(points); }, "polyline 1,2 3,4 5,6" + pen + "\n"},
        {[](TCanvas& canvas) { canvas.Polyline(points, 1); }, "polyline 1,2 3,4" + pen + "\n"},
        {[](TCanvas& canvas) { canvas.Polygon(points, 2); }, "polygon 1,2 3,4 5,6" + pen + brush + "\n"},
        {[](TCanvas& canvas) {
             canvas.FillRect({1, 2, 3, 4});
         },
         "fill 1,2,3,4" + brush + "\n"},
        {[](TCanvas& canvas) { canvas.Rectangle(1, 2, 3, 4); }, "rectangle 1,2,3,4" + pen + brush + "\n"},
        {[](TCanvas& canvas) { canvas.RoundRect(1, 2, 3, 4, 5, 6); },
         "rectangle 1,2,3,4 corner 5x6" + pen + brush + "\n"},
        {[](TCanvas& canvas) {
             canvas.Ellipse({1, 2, 3, 4});
         },
         "ellipse 1,2,3,4" + pen + brush + "\n"},
        {[](TCanvas& canvas) { canvas.Arc(1, 2, 3, 4, 5, 6, 7, 8); },
         "arc 1,2,3,4 from 5,6 to 7,8" + pen + "\n"},
        {[](TCanvas& canvas) { canvas.Chord(1, 2, 3, 4, 5, 6, 7, 8); },
         "chord 1,2,3,4 from 5,6 to 7,8" + pen + brush + "\n"},
        {[](TCanvas& canvas) { canvas.Pie(1, 2, 3, 4, 5, 6, 7, 8); },
         "pie 1,2,3,4 from 5,6 to 7,8" + pen + brush + "\n"},
        {[](TCanvas& canvas) {
             canvas.FrameRect({1, 2, 9, 8});
         },
         "fill 1,2,9,3" + brush + "\nfill 1,7,9,8" + brush + "\nfill 1,2,2,8" + brush + "\nfill 8,2,9,8" +
             brush + "\n"},
        {[](TCanvas& canvas) {
             canvas.FrameRect({5, 5, 5, 9});
         },
         ""},
        {[](TCanvas& canvas) {
             canvas.DrawFocusRect({1, 2, 3, 4});
         },
         "focus 1,2,3,4\n"},
        {[](TCanvas& canvas) { canvas.FloodFill(1, 2, clLime, fsBorder); },
         "flood 1,2 to #00FF00" + brush + "\n"},
        {[](TCanvas& canvas) { canvas.setPixels(1, 2, clWindowText); }, "pixel 1,2 #000000\n"},
        {[](TCanvas& canvas) { canvas.PolyBezier(points, 2); }, "polyline" + pen + "\n"}};
    RecordedCanvas canvas;
    canvas->getPen()->setColor(clRed);
    canvas->getBrush()->setColor(clBlue);
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.calls);
        row.draw(*canvas.get());
        std::string calls = canvas.Take();
        calls.replace(0, calls.starts_with("polyline  ") ? 10 : 0,
                      calls.starts_with("polyline  ") ? "polyline " : "");
        EXPECT_EQ(calls, row.calls);
    }
}

TEST(GraphicsCanvasTest, BendsLines)
{
    RecordedCanvas canvas;
    canvas->MoveTo(0, 0);
    const TPoint curve[] = {{0, 10}, {12, 10}, {12, 0}};
    canvas->PolyBezierTo(curve);
    const std::string calls = canvas.Take();
    EXPECT_EQ(calls.find("polyline 0,0 "), 0U);
    EXPECT_NE(calls.find(" 6,8 "), std::string::npos);
    EXPECT_NE(calls.find(" 12,0 pen"), std::string::npos);
    EXPECT_EQ(canvas->getPenPos(), (TPoint{12, 0}));
}

TEST(GraphicsCanvasTest, DrawsTexts)
{
    RecordedCanvas canvas;
    canvas->getFont()->setStyle({fsBold});
    canvas->getFont()->setColor(clRed);
    canvas->TextOut(3, 4, u"00");
    EXPECT_EQ(canvas.Take(), "text 3,4 \"00\" font Tahoma -11 bold color #FF0000 on #FFFFFF\n");
    EXPECT_EQ(canvas->getPenPos(), (TPoint{17, 4}));
    canvas->getFont()->setStyle({});
    canvas->TextOut(0, 0, u"0");
    canvas->getFont()->setSize(24);
    canvas->LineTo(6, 9);
    EXPECT_EQ(canvas.Take(), "text 0,0 \"0\" font Tahoma -11 color #FF0000 on #FFFFFF\n"
                             "polyline 6,0 6,9 pen #000000\n");
    canvas->getFont()->setSize(8);
    canvas->TextRect({1, 2, 30, 20}, 3, 4, u"x");
    canvas->getBrush()->setStyle(bsClear);
    canvas->TextRect({1, 2, 30, 20}, 3, 4, u"x");
    EXPECT_EQ(canvas.Take(), "fill 1,2,30,20 brush #FFFFFF\n"
                             "text 3,4 \"x\" font Tahoma -11 color #FF0000 clip 1,2,30,20\n"
                             "text 3,4 \"x\" font Tahoma -11 color #FF0000 clip 1,2,30,20\n");
}

TEST(GraphicsCanvasTest, PutsTextsOnASolidBrushAlone)
{
    RecordedCanvas canvas;
    canvas->getBrush()->setColor(clYellow);
    canvas->TextOut(0, 0, u"x");
    canvas->getBrush()->setStyle(bsCross);
    canvas->TextOut(0, 0, u"x");
    EXPECT_EQ(canvas.Take(), "text 0,0 \"x\" font Tahoma -11 color #000000 on #FFFF00\n"
                             "text 0,0 \"x\" font Tahoma -11 color #000000\n");
}

TEST(GraphicsCanvasTest, MeasuresTextsWithoutADevice)
{
    TCanvas canvas;
    EXPECT_EQ(canvas.TextExtent(u"000"), (Types::TSize{18, 13}));
    EXPECT_EQ(canvas.TextWidth(u"000"), 18);
    EXPECT_EQ(canvas.TextHeight(u""), 13);
    EXPECT_EQ(canvas.GetTextMetrics().overhang, 0);
    canvas.getFont()->setHeight(-22);
    EXPECT_EQ(canvas.TextHeight(u""), 26);
}

TEST(GraphicsCanvasTest, RaisesWhereThereIsNothingToDrawOn)
{
    TCanvas canvas;
    EXPECT_THROW(canvas.FillRect({0, 0, 1, 1}), EInvalidGraphicOperation);
    EXPECT_THROW(canvas.TextOut(0, 0, u"x"), EInvalidGraphicOperation);
    EXPECT_THROW(canvas.getClipRect(), EInvalidGraphicOperation);
    EXPECT_EQ(canvas.getHandle(), nullptr);
    EXPECT_FALSE(canvas.HandleAllocated());
}

TEST(GraphicsCanvasTest, CallsItsEventsAroundAChange)
{
    RecordedCanvas canvas;
    std::string order;
    canvas->setOnChanging([&](System::TObject*) { order += "<" + canvas.Take(); });
    canvas->setOnChange([&](System::TObject* sender) {
        EXPECT_EQ(sender, canvas.get());
        order += canvas.Take() + ">";
    });
    canvas->FillRect({0, 0, 1, 1});
    canvas->TextWidth(u"x");
    canvas->MoveTo(3, 3);
    EXPECT_EQ(order, "<fill 0,0,1,1 brush #FFFFFF\n>");
}

TEST(GraphicsCanvasTest, CopiesWhatItIsGiven)
{
    RecordedCanvas canvas;
    TFont font;
    font.setName(u"Symbol");
    TPen pen;
    pen.setWidth(3);
    canvas->setFont(&font);
    canvas->setPen(&pen);
    font.setName(u"Tahoma");
    EXPECT_EQ(canvas->getFont()->getName(), u"Symbol");
    EXPECT_EQ(canvas->getPen()->getWidth(), 3);
    EXPECT_EQ(Typinfo::GetObjectProp(canvas.get(), u"Font"), canvas->getFont());
    EXPECT_EQ(Typinfo::GetOrdProp(canvas.get(), u"CopyMode"), cmSrcCopy);
}

TEST(GraphicsCanvasTest, CopiesPartsOfPictures)
{
    TBitmap source(3, 2);
    source.getCanvas()->setPixels(0, 0, clRed);
    source.getCanvas()->setPixels(1, 1, clBlue);
    TBitmap target(4, 3);
    target.getCanvas()->CopyRect({0, 0, 4, 2}, source.getCanvas(), {0, 0, 2, 2});
    EXPECT_EQ(Support::Drawn(*target.SharePixels()), "rr..\n..bb\n....\n");
    target.getCanvas()->setCopyMode(cmNotSrcCopy);
    target.getCanvas()->CopyRect({0, 2, 3, 3}, source.getCanvas(), {1, 0, 4, 1});
    EXPECT_EQ(Support::Drawn(*target.SharePixels()), "rr..\n..bb\n##..\n");
    target.getCanvas()->getBrush()->setColor(clLime);
    target.getCanvas()->BrushCopy({0, 0, 2, 2}, &source, {0, 0, 2, 2}, clWhite);
    EXPECT_EQ(Support::Drawn(*target.SharePixels()), "rg..\ngbbb\n##..\n");

    RecordedCanvas recorded;
    recorded->CopyRect({0, 0, 1, 1}, recorded.get(), {0, 0, 1, 1});
    recorded->CopyRect({0, 0, 1, 1}, nullptr, {0, 0, 1, 1});
    recorded->Draw(0, 0, nullptr);
    EXPECT_EQ(recorded.Take(), "");
}

TEST(GraphicsCanvasTest, ReadsPixels)
{
    TBitmap bitmap(2, 2);
    bitmap.getCanvas()->setPixels(1, 0, clRed);
    bitmap.getCanvas()->setPixels(9, 9, clRed);
    EXPECT_EQ(bitmap.getCanvas()->getPixels(1, 0), clRed);
    EXPECT_EQ(bitmap.getCanvas()->getPixels(2, 0), TColor(-1));
    EXPECT_EQ(bitmap.getCanvas()->getClipRect(), (TRect{0, 0, 2, 2}));
}

TEST(GraphicsCanvasTest, KeepsOtherThreadsOut)
{
    TCanvas canvas;
    canvas.Lock();
    canvas.Lock();
    EXPECT_EQ(canvas.getLockCount(), 2);
    bool taken = true;
    std::thread([&] { taken = canvas.TryLock(); }).join();
    EXPECT_FALSE(taken);
    canvas.Unlock();
    canvas.Unlock();
    canvas.Unlock();
    EXPECT_EQ(canvas.getLockCount(), 0);
    std::thread([&] {
        taken = canvas.TryLock();
        canvas.Unlock();
    }).join();
    EXPECT_TRUE(taken);
}

} // namespace
