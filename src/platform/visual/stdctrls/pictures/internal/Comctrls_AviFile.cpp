// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/internal/Comctrls_AviFile.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"

#include <algorithm>
#include <cstring>

namespace Comctrls
{

using System::Byte;
using Toolkits::Pixels;

namespace
{

[[noreturn]] void ThrowDamaged(const char16_t* what)
{
    throw Graphics::EInvalidGraphic(System::UnicodeString(u"The animation is damaged: ") + what);
}

constexpr unsigned PlainCode = 0;
constexpr unsigned RunsCode = 1;
/// Of the header of a bitmap, which begins the format of the frames.
constexpr std::size_t HeaderSize = 40;

void Put(std::vector<Byte>& bytes, unsigned value)
{
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<Byte>(value >> shift));
    }
}

} // namespace

CAviFile::CAviFile(std::vector<Byte> bytes) : mBytes(std::move(bytes))
{
    if (!Has(0, "RIFF") || !Has(8, "AVI ")) {
        throw Graphics::EInvalidGraphic(u"The file is no animation");
    }
    ReadChunks();
    if (mFormat.size == 0 || mFrames.empty()) {
        ThrowDamaged(u"it has no frames");
    }
}

unsigned CAviFile::Word(std::size_t at) const
{
    return at + 2 > mBytes.size() ? 0 : mBytes[at] | static_cast<unsigned>(mBytes[at + 1]) << 8;
}

unsigned CAviFile::Long(std::size_t at) const
{
    return Word(at) | Word(at + 2) << 16;
}

bool CAviFile::Has(std::size_t at, const char* code) const
{
    return at + 4 <= mBytes.size() && std::memcmp(mBytes.data() + at, code, 4) == 0;
}

void CAviFile::ReadChunks()
{
    // Lists are entered by going on behind their heads; where they end needn't be known.
    std::size_t at = 12;
    while (at + 8 <= mBytes.size()) {
        if (Has(at, "LIST")) {
            at += 12;
            continue;
        }
        const std::size_t begin = at + 8;
        const std::size_t size = std::min<std::size_t>(Long(at + 4), mBytes.size() - begin);
        ReadChunk(at, {begin, size});
        at = begin + size + size % 2;
    }
}

void CAviFile::ReadChunk(std::size_t at, const TPart& content)
{
    constexpr unsigned microsecondsPerMillisecond = 1000;
    if (Has(at, "avih")) {
        mMilliseconds = std::max(Long(content.begin) / microsecondsPerMillisecond, 1U);
    } else if (Has(at, "strh")) {
        mIsVideo = Has(content.begin, "vids");
    } else if (Has(at, "strf") && mIsVideo && mFormat.size == 0) {
        ReadFormat(content);
    } else if (mFormat.size > 0 && mBytes[at + 2] == 'd' &&
               (mBytes[at + 3] == 'b' || mBytes[at + 3] == 'c')) {
        mFrames.push_back(content);
    }
}

void CAviFile::ReadFormat(const TPart& content)
{
    if (content.size < HeaderSize) {
        ThrowDamaged(u"its format is cut off");
    }
    const auto width = static_cast<int>(Long(content.begin + 4));
    const auto height = static_cast<int>(Long(content.begin + 8));
    const unsigned bits = Word(content.begin + 14);
    const unsigned code = Long(content.begin + 16);
    mIsRuns = code == RunsCode && bits == 8;
    if (!mIsRuns && code != PlainCode) {
        throw Graphics::EInvalidGraphic(u"The animation is stored in a form that isn't known here");
    }
    // Runs always begin at the lowest row.
    if (width <= 0 || height == 0 || (mIsRuns && height < 0) ||
        !Pixels::IsSize(width, std::abs(static_cast<long long>(height)))) {
        ThrowDamaged(u"its size is impossible");
    }
    mFormat = content;
    mWidth = width;
    mHeight = std::abs(height);
    const std::size_t colors = std::min<std::size_t>((content.size - HeaderSize) / 4, mPalette.size());
    for (std::size_t i = 0; mIsRuns && i < colors; ++i) {
        mPalette[i] = Toolkits::OpaquePixel(0, 0, 0) | (Long(content.begin + HeaderSize + 4 * i) & 0xFFFFFF);
    }
}

Pixels CAviFile::Read(int frame)
{
    return mIsRuns ? ReadRuns(frame) : ReadPlain(mFrames[static_cast<std::size_t>(frame)]);
}

Pixels CAviFile::ReadPlain(const TPart& frame) const
{
    // As the file of a bitmap.
    constexpr unsigned fileHeaderSize = 14;
    std::vector<Byte> file = {'B', 'M'};
    const auto head = static_cast<unsigned>(fileHeaderSize + mFormat.size);
    Put(file, head + static_cast<unsigned>(frame.size));
    Put(file, 0);
    Put(file, head);
    const auto take = [&](const TPart& part) {
        const auto begin = mBytes.begin() + static_cast<std::ptrdiff_t>(part.begin);
        file.insert(file.end(), begin, begin + static_cast<std::ptrdiff_t>(part.size));
    };
    take(mFormat);
    take(frame);
    Classes::TMemoryStream stream;
    stream.WriteBuffer(file.data(), static_cast<int>(file.size()));
    stream.setPosition(0);
    Graphics::TBitmap bitmap;
    bitmap.LoadFromStream(&stream);
    return *bitmap.SharePixels();
}

Pixels CAviFile::ReadRuns(int frame)
{
    if (mIndexes.empty() || frame < mTaken - 1) {
        mIndexes.assign(static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight), 0);
        mTaken = 0;
    }
    while (mTaken <= frame) {
        TakeRuns(mFrames[static_cast<std::size_t>(mTaken)]);
        ++mTaken;
    }
    Pixels pixels(mWidth, mHeight);
    for (int y = 0; y < mHeight; ++y) {
        const auto row = pixels.Row(mHeight - 1 - y);
        const auto* const indexes = mIndexes.data() + static_cast<std::size_t>(y) * row.size();
        std::transform(indexes, indexes + row.size(), row.begin(),
                       [&](Byte index) { return mPalette[index]; });
    }
    return pixels;
}

void CAviFile::TakeRuns(const TPart& frame)
{
    const std::size_t end = frame.begin + frame.size;
    std::size_t at = frame.begin;
    int x = 0;
    int y = 0;
    const auto put = [&](Byte index) {
        if (x < mWidth && y < mHeight) {
            mIndexes[static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) +
                     static_cast<std::size_t>(x)] = index;
        }
        x = std::min(x + 1, mWidth);
    };
    while (at + 2 <= end) {
        const unsigned count = mBytes[at];
        const unsigned value = mBytes[at + 1];
        at += 2;
        if (count > 0) {
            for (unsigned i = 0; i < count; ++i) {
                put(static_cast<Byte>(value));
            }
        } else if (value == 0) {
            x = 0;
            y = std::min(y + 1, mHeight);
        } else if (value == 1) {
            return;
        } else if (value == 2 && at + 2 <= end) {
            x = std::min(x + mBytes[at], mWidth);
            y = std::min(y + mBytes[at + 1], mHeight);
            at += 2;
        } else {
            for (unsigned i = 0; i < value && at + i < end; ++i) {
                put(mBytes[at + i]);
            }
            at += value + value % 2;
        }
    }
}

} // namespace Comctrls
