// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtFonts.h"

#include "platform/toolkit/qt/QtConvert.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>

#include <algorithm>
#include <functional>
#include <limits>
#include <string>
#include <unordered_map>
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

/// The widths of texts that were measured. A caption is measured when it is set, laid out and painted.
class CWidths
{
public:
    int Of(std::u16string_view text, const QFont& font)
    {
        if (text.size() > MostUnits) {
            return Measured(text, font);
        }
        const auto found = mWidths.find(text);
        if (found != mWidths.end()) {
            return found->second;
        }
        if (mWidths.size() == MostTexts) {
            mWidths.clear();
        }
        return mWidths.emplace(text, Measured(text, font)).first->second;
    }

private:
    static constexpr std::size_t MostUnits = 64;
    static constexpr std::size_t MostTexts = 1024;

    /// By which a part of a text is found without a copy.
    struct THash
    {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const noexcept
        {
            return std::hash<std::u16string_view>()(text);
        }
    };

    static int Measured(std::u16string_view text, const QFont& font)
    {
        return QFontMetrics(font).horizontalAdvance(ViewOf(text));
    }

    std::unordered_map<std::u16string, int, THash, std::equal_to<>> mWidths;
};

struct TReadyFont
{
    TFontData data;
    TQtFont font;
    CWidths widths = {};
};

TQtFont MeasuredFont(const TFontData& data)
{
    const QFont font = MakeFont(data);
    const QFontMetrics metrics(font);
    const int height = metrics.ascent() + metrics.descent();
    return {.font = font,
            .metrics = {.height = height,
                        .ascent = metrics.ascent(),
                        .descent = metrics.descent(),
                        .internalLeading = std::max(height - QFontInfo(font).pixelSize(), 0),
                        .externalLeading = std::max(metrics.leading(), 0),
                        .averageWidth = metrics.averageCharWidth(),
                        .maximumWidth = metrics.maxWidth(),
                        .overhang = 0}};
}

TReadyFont& Ready(const TFontData& data)
{
    // Programs have few fonts; the one of last time stands in front. Never destroyed, as all that is Qt's.
    constexpr std::size_t mostFonts = 16;
    static auto& ready = *new std::vector<TReadyFont>;
    const auto found = std::ranges::find(ready, data, &TReadyFont::data);
    if (found == ready.end()) {
        if (ready.size() == mostFonts) {
            ready.pop_back();
        }
        ready.insert(ready.begin(), {.data = data, .font = MeasuredFont(data)});
    } else {
        std::rotate(ready.begin(), found, std::next(found));
    }
    return ready.front();
}

} // namespace

const TQtFont& ReadyFont(const TFontData& data)
{
    return Ready(data).font;
}

Types::TSize ExtentOf(const TFontData& data, const System::UnicodeString& text)
{
    TReadyFont& ready = Ready(data);
    const TTextMetrics& metrics = ready.font.metrics;
    const std::u16string_view units = text.AsView().substr(0, MostLineUnits);
    const long long rest = text.Length() - static_cast<long long>(units.size());
    const long long width = ready.widths.Of(units, ready.font.font) + rest * metrics.averageWidth;
    return {.cx = static_cast<int>(std::min<long long>(width, std::numeric_limits<int>::max())),
            .cy = metrics.height};
}

} // namespace Toolkits
