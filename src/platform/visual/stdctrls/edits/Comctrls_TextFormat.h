// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/visual/controls/Controls_Types.h"
#include "platform/visual/graphics/Graphics_Font.h"

#include <vector>

namespace Comctrls
{

/// What stands in front of a paragraph.
enum TNumberingStyle
{
    nsNone,
    nsBullet
};

/// How characters look.
struct TCharFormat
{
    System::UnicodeString name = u"Tahoma";
    /// In points.
    int size = 8;
    Graphics::TColor color = Graphics::clWindowText;
    Graphics::TFontStyles style = {};
    bool isProtected = false;

    friend bool operator==(const TCharFormat&, const TCharFormat&) = default;
};

/// How a paragraph is laid out; distances in points.
struct TParaFormat
{
    Classes::TAlignment alignment = Classes::taLeftJustify;
    /// That of the first row comes to that of all.
    int firstIndent = 0;
    int leftIndent = 0;
    int rightIndent = 0;
    TNumberingStyle numbering = nsNone;
    std::vector<int> tabs = {};

    friend bool operator==(const TParaFormat&, const TParaFormat&) = default;
};

/// The formats of a text, as runs of units that have the same.
template <class Format>
class GFormatRuns
{
public:
    /// Units that stand side by side.
    struct TRun
    {
        int length = 0;
        Format format;
    };

    const std::vector<TRun>& getRuns() const noexcept { return mRuns; }

    /// Forgets all.
    void Clear() noexcept { mRuns.clear(); }

    /// Adds units at the end.
    void Append(int length, const Format& format)
    {
        if (length <= 0) {
            return;
        }
        if (!mRuns.empty() && mRuns.back().format == format) {
            mRuns.back().length += length;
        } else {
            mRuns.push_back({length, format});
        }
    }

    /// The format of the unit at the place; of the last one behind the end, `fallback` of none.
    const Format& At(int place, const Format& fallback) const
    {
        for (const TRun& run : mRuns) {
            if (place < run.length) {
                return run.format;
            }
            place -= run.length;
        }
        return mRuns.empty() ? fallback : mRuns.back().format;
    }

    /// `length` units at `start` give way to `added` ones in the format.
    void Replace(int start, int length, int added, const Format& format)
    {
        GFormatRuns changed;
        int place = 0;
        bool isAdded = false;
        const auto add = [&] {
            changed.Append(isAdded ? 0 : added, format);
            isAdded = true;
        };
        for (const TRun& run : mRuns) {
            const int end = place + run.length;
            changed.Append(Overlap(place, end, 0, start), run.format);
            if (end >= start) {
                add();
            }
            changed.Append(Overlap(place, end, start + length, end), run.format);
            place = end;
        }
        add();
        mRuns = std::move(changed.mRuns);
    }

    /// Calls `change` for the format of each run within the range.
    template <class Change>
    void ChangeRange(int start, int end, Change change)
    {
        GFormatRuns changed;
        int place = 0;
        for (const TRun& run : mRuns) {
            const int runEnd = place + run.length;
            changed.Append(Overlap(place, runEnd, 0, start), run.format);
            Format format = run.format;
            change(format);
            changed.Append(Overlap(place, runEnd, start, end), format);
            changed.Append(Overlap(place, runEnd, end, runEnd), run.format);
            place = runEnd;
        }
        mRuns = std::move(changed.mRuns);
    }

    /// Calls `visit` with the format of each run that has a unit within the range, and where its units in
    /// there begin and end.
    template <class Visit>
    void VisitRange(int start, int end, Visit visit) const
    {
        int place = 0;
        for (const TRun& run : mRuns) {
            const int runEnd = place + run.length;
            if (Overlap(place, runEnd, start, end) > 0) {
                visit(run.format, place > start ? place : start, runEnd < end ? runEnd : end);
            }
            place = runEnd;
        }
    }

private:
    static int Overlap(int begin, int end, int from, int to)
    {
        const int first = begin > from ? begin : from;
        const int last = end < to ? end : to;
        return last > first ? last - first : 0;
    }

    std::vector<TRun> mRuns;
};

/// A text with the formats of its characters and paragraphs. Each unit has both; those of a paragraph are
/// alike.
struct TFormattedText
{
    System::UnicodeString text;
    GFormatRuns<TCharFormat> chars;
    GFormatRuns<TParaFormat> paragraphs;
};

} // namespace Comctrls
