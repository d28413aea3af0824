// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace Support
{

/// Numbers as the bytes of a file, the lowest byte of each first.
class FileBytes
{
public:
    FileBytes& Put8(std::initializer_list<unsigned> values)
    {
        for (const unsigned value : values) {
            mBytes.push_back(static_cast<System::Byte>(value));
        }
        return *this;
    }
    FileBytes& Put16(std::initializer_list<unsigned> values)
    {
        for (const unsigned value : values) {
            Put8({value & 255U, value >> 8U & 255U});
        }
        return *this;
    }
    FileBytes& Put32(std::initializer_list<unsigned> values)
    {
        for (const unsigned value : values) {
            Put16({value & 0xFFFFU, value >> 16U});
        }
        return *this;
    }
    FileBytes& Append(const std::vector<System::Byte>& bytes)
    {
        mBytes.insert(mBytes.end(), bytes.begin(), bytes.end());
        return *this;
    }
    const std::vector<System::Byte>& getBytes() const { return mBytes; }

private:
    std::vector<System::Byte> mBytes;
};

/// Loads the graphic from bytes.
template <class Graphic>
void Load(Graphic& graphic, const std::vector<System::Byte>& bytes)
{
    Classes::TBytesStream stream{std::span<const System::Byte>(bytes)};
    graphic.LoadFromStream(&stream);
}

/// What the graphic saves.
template <class Graphic>
std::vector<System::Byte> Saved(Graphic& graphic)
{
    Classes::TBytesStream stream;
    graphic.SaveToStream(&stream);
    return stream.getBytes();
}

/// A bitmap file of 1 to 32 bits a pixel with what stands behind its header.
inline std::vector<System::Byte> BitmapFile(unsigned width, unsigned height, unsigned bitCount,
                                            unsigned headSize, const std::vector<System::Byte>& rest,
                                            unsigned compression = 0, unsigned colors = 0)
{
    FileBytes file;
    file.Put16({0x4D42}).Put32({0, 0, 54 + headSize, 40, width, height}).Put16({1, bitCount});
    file.Put32({compression, 0, 0, 0, colors, 0}).Append(rest);
    return file.getBytes();
}

/// The beginning of a PNG file, with its size but no pixels.
inline std::vector<System::Byte> PngFile(unsigned width, unsigned height)
{
    FileBytes file;
    file.Put8({0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0, 0, 0, 13, 'I', 'H', 'D', 'R'});
    file.Put8({width >> 24U, width >> 16U & 255U, width >> 8U & 255U, width & 255U});
    file.Put8({height >> 24U, height >> 16U & 255U, height >> 8U & 255U, height & 255U, 8, 6, 0, 0, 0});
    return file.getBytes();
}

} // namespace Support
