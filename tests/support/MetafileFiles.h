// SPDX-License-Identifier: MIT
#pragma once

#include "support/PictureFiles.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace Support
{

/// Numbers of four bytes, negative ones too.
inline FileBytes Longs(std::initializer_list<int> values)
{
    FileBytes bytes;
    for (const int value : values) {
        bytes.Put32({static_cast<unsigned>(value)});
    }
    return bytes;
}

/// Numbers of two bytes, negative ones too.
inline FileBytes Words(std::initializer_list<int> values)
{
    FileBytes bytes;
    for (const int value : values) {
        bytes.Put16({static_cast<unsigned>(value) & 0xFFFFU});
    }
    return bytes;
}

/// A record of an enhanced metafile.
inline std::vector<System::Byte> EnhancedRecord(unsigned type, const FileBytes& fields = {})
{
    FileBytes record;
    record.Put32({type, static_cast<unsigned>(8 + fields.getBytes().size())}).Append(fields.getBytes());
    return record.getBytes();
}

/// An enhanced metafile of 100 by 50 pixels, at two pixels a millimetre.
inline std::vector<System::Byte> EnhancedFile(const std::vector<std::vector<System::Byte>>& records)
{
    FileBytes body;
    for (const auto& record : records) {
        body.Append(record);
    }
    body.Append(EnhancedRecord(14, Longs({0, 16, 20})));
    const auto size = static_cast<unsigned>(108 + body.getBytes().size());
    FileBytes file;
    // Type, size, bounds, frame in hundredths of a millimetre, signature, then the device.
    file.Put32({1, 108, 0, 0, 99, 49, 0, 0, 5000, 2500, 0x464D4520, 0x10000, size});
    file.Put32({static_cast<unsigned>(records.size()) + 2}).Put16({9, 0});
    file.Put32({0, 0, 0, 1000, 500, 500, 250, 0, 0, 0, 500'000, 250'000}).Append(body.getBytes());
    return file.getBytes();
}

/// A record of an older metafile.
inline std::vector<System::Byte> OldRecord(unsigned function, const FileBytes& words = {})
{
    FileBytes record;
    record.Put32({static_cast<unsigned>(6 + words.getBytes().size()) / 2}).Put16({function});
    record.Append(words.getBytes());
    return record.getBytes();
}

/// An older metafile without a frame.
inline std::vector<System::Byte> FramelessFile(const std::vector<std::vector<System::Byte>>& records)
{
    FileBytes body;
    std::size_t longest = 6;
    for (const auto& record : records) {
        body.Append(record);
        longest = std::max(longest, record.size());
    }
    body.Append(OldRecord(0));
    FileBytes file;
    file.Put16({1, 9, 0x300}).Put32({static_cast<unsigned>(18 + body.getBytes().size()) / 2}).Put16({9});
    file.Put32({static_cast<unsigned>(longest / 2)}).Put16({0}).Append(body.getBytes());
    return file.getBytes();
}

/// An older metafile with a frame of 1000 by 500 units, which is 100 by 50 pixels.
inline std::vector<System::Byte> PlaceableFile(const std::vector<std::vector<System::Byte>>& records)
{
    FileBytes file;
    file.Put32({0x9AC6CDD7}).Put16({0, 0, 0, 1000, 500, 960}).Put32({0});
    unsigned check = 0;
    for (std::size_t i = 0; i < file.getBytes().size(); i += 2) {
        check ^= file.getBytes()[i] | static_cast<unsigned>(file.getBytes()[i + 1]) << 8U;
    }
    file.Put16({check}).Append(FramelessFile(records));
    return file.getBytes();
}

/// A bitmap in a record: two by one pixels of 24 bits, red and green.
inline FileBytes TwoPixels()
{
    FileBytes bitmap;
    bitmap.Put32({40, 2, 1}).Put16({1, 24}).Put32({0, 8, 0, 0, 0, 0});
    bitmap.Put8({0, 0, 255, 0, 255, 0, 0, 0});
    return bitmap;
}

} // namespace Support
