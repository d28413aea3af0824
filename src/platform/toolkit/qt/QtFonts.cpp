// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtFonts.h"

#include "platform/toolkit/qt/QtConvert.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>

#include <algorithm>
#include <limits>
#include <vector>

namespace Toolkits
{

namespace
{

/// The largest height of characters that makes sense on a screen.
constexpr int MaximumHeight = 2'000;

QFont::StyleStrategy StrategyOf(Graphics::TFontQuality quality)
{
    switch (quality) {
    case Graphics::fqDraft:
    case Graphics::fqNonAntialiased:
        return QFont::NoAntialias;
    case Graphics::fqAntialiased:
        return QFont::PreferAntialias;
    default:
        return QFont::PreferDefault;
    }
}

void SetHeight(QFont& font, int height)
{
    if (height == 0) {
        return;
    }
    font.setPixelSize(std::clamp(std::abs(std::max(height, -MaximumHeight)), 1, MaximumHeight));
    if (height > 0) {
        // It is that of a line, which stands in a fixed ratio to the height of the characters.
        const long long line = std::max(QFontMetrics(font).height(), 1);
        const long long pixels = font.pixelSize();
        font.setPixelSize(std::max(static_cast<int>((pixels * pixels + line / 2) / line), 1));
    }
}

QFont MakeFont(const TFontData& data)
{
    QFont font = QGuiApplication::font();
    if (!data.name.IsEmpty()) {
        font.setFamily(ToQString(data.name));
    }
    if (data.pitch == Graphics::fpFixed) {
        font.setStyleHint(QFont::TypeWriter);
        font.setFixedPitch(true);
    }
    font.setStyleStrategy(StrategyOf(data.quality));
    font.setBold(data.styles.Contains(Graphics::fsBold));
    font.setItalic(data.styles.Contains(Graphics::fsItalic));
    SetHeight(font, data.height);
    font.setUnderline(data.styles.Contains(Graphics::fsUnderline));
    font.setStrikeOut(data.styles.Contains(Graphics::fsStrikeOut));
    return font;
}

struct TReadyFont
{
    TFontData data;
    TQtFont font;
};

TQtFont MeasuredFont(const TFontData& data)
{
    const QFont font = MakeFont(data);
    const QFontMetrics metrics(font);
    return {.font = font, .ascent = metrics.ascent(), .height = metrics.ascent() + metrics.descent()};
}

} // namespace

const TQtFont& ReadyFont(const TFontData& data)
{
    // Programs have few fonts; the one of last time stands in front. Never destroyed, as all that is Qt's.
    constexpr std::size_t mostFonts = 16;
    static auto& ready = *new std::vector<TReadyFont>;
    const auto found = std::ranges::find(ready, data, &TReadyFont::data);
    if (found == ready.end()) {
        if (ready.size() == mostFonts) {
            ready.pop_back();
        }
        ready.insert(ready.begin(), {data, MeasuredFont(data)});
    } else {
        std::rotate(ready.begin(), found, std::next(found));
    }
    return ready.front().font;
}

TTextMetrics MetricsOf(const TFontData& data)
{
    const QFontMetrics metrics(ToQFont(data));
    const int height = metrics.ascent() + metrics.descent();
    return {.height = height,
            .ascent = metrics.ascent(),
            .descent = metrics.descent(),
            .internalLeading = std::max(height - QFontInfo(ToQFont(data)).pixelSize(), 0),
            .externalLeading = std::max(metrics.leading(), 0),
            .averageWidth = metrics.averageCharWidth(),
            .maximumWidth = metrics.maxWidth(),
            .overhang = 0};
}

Types::TSize ExtentOf(const TFontData& data, const System::UnicodeString& text)
{
    const TQtFont& ready = ReadyFont(data);
    const QFontMetrics metrics(ready.font);
    const std::u16string_view units = text.AsView().substr(0, MostLineUnits);
    long long width = metrics.horizontalAdvance(ViewOf(units));
    if (static_cast<std::size_t>(text.Length()) > units.size()) {
        width += (text.Length() - static_cast<long long>(units.size())) * metrics.averageCharWidth();
    }
    return {.cx = static_cast<int>(std::min<long long>(width, std::numeric_limits<int>::max())),
            .cy = ready.height};
}

} // namespace Toolkits
