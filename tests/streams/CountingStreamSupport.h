// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes.h"

namespace Support
{

/// Holds the alphabet again and again, and counts how often bytes are read.
class CountingStream : public Classes::TMemoryStream
{
public:
    explicit CountingStream(int size)
    {
        for (int i = 0; i < size; ++i) {
            const char byte = static_cast<char>('a' + i % 26);
            WriteBuffer(&byte, 1);
        }
        setPosition(0);
    }
    ~CountingStream() override = default;
    System::Int64 Read(void* buffer, System::Int64 count) override
    {
        ++reads;
        return Classes::TMemoryStream::Read(buffer, count);
    }

    int reads = 0;
};

/// The byte of a `CountingStream` at a position.
inline char At(int position)
{
    return static_cast<char>('a' + position % 26);
}

} // namespace Support
