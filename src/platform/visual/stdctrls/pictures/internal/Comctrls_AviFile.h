// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Pixels.h"

#include <array>
#include <vector>

namespace Comctrls
{

/// The frames of a silent animation file: uncompressed ones, and run lengths of 8 bits, of which a frame may
/// tell only what differs from the one before.
class CAviFile
{
public:
    /// `Graphics::EInvalidGraphic` for bytes that are no such file.
    explicit CAviFile(std::vector<System::Byte> bytes);

    int getFrameCount() const noexcept { return static_cast<int>(mFrames.size()); }
    int getWidth() const noexcept { return mWidth; }
    int getHeight() const noexcept { return mHeight; }
    /// From frame to frame, at least 1.
    unsigned getMilliseconds() const noexcept { return mMilliseconds; }
    /// The frame, counted from 0 and within the count. `Graphics::EInvalidGraphic` for a damaged one.
    Toolkits::Pixels Read(int frame);

private:
    /// A piece of the file.
    struct TPart
    {
        std::size_t begin = 0;
        std::size_t size = 0;
    };

    unsigned Word(std::size_t at) const;
    unsigned Long(std::size_t at) const;
    bool Has(std::size_t at, const char* code) const;
    void ReadChunks();
    void ReadChunk(std::size_t at, const TPart& content);
    void ReadFormat(const TPart& content);
    Toolkits::Pixels ReadPlain(const TPart& frame) const;
    Toolkits::Pixels ReadRuns(int frame);
    void TakeRuns(const TPart& frame);

    std::vector<System::Byte> mBytes;
    std::vector<TPart> mFrames;
    TPart mFormat;
    int mWidth = 0;
    int mHeight = 0;
    unsigned mMilliseconds = 100;
    bool mIsRuns = false;
    bool mIsVideo = false;
    std::array<Toolkits::TPixel, 256> mPalette{};
    /// The numbers of colours in the picture that the runs are told to, the lowest row first.
    std::vector<System::Byte> mIndexes;
    /// The frames that are in it.
    int mTaken = 0;
};

} // namespace Comctrls
