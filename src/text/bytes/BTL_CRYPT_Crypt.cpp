// SPDX-License-Identifier: MIT
#include "text/bytes/BTL_CRYPT_Crypt.h"

#include "text/bytes/BTL_BIN_BinaryData.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

constexpr int FillerLength = 2;

// Both tables are part of the format of stored values and never change.

// clang-format off
constexpr std::array<std::uint8_t, 254> TextKey = {
    0xEF, 0x1C, 0xDE, 0x47, 0x83, 0xCA, 0x22, 0xAC, 0xA3, 0x08, 0x2D, 0x56, 0xB7, 0x12, 0x25, 0x51, 0x66,
    0x3D, 0x7B, 0x32, 0xC3, 0x35, 0x97, 0xA1, 0x49, 0xBD, 0xC5, 0x4C, 0xBA, 0x65, 0xFF, 0x44, 0xFB, 0xBF,
    0xA6, 0x4F, 0x75, 0xFA, 0x02, 0xB6, 0xD8, 0x26, 0x2B, 0x0C, 0x40, 0x52, 0xF6, 0x2E, 0xC0, 0x99, 0x46,
    0x67, 0xAD, 0x01, 0xA9, 0xD9, 0x60, 0xDC, 0x1F, 0x21, 0x28, 0xD1, 0x77, 0xD3, 0x33, 0xF2, 0xF9, 0xE7,
    0x7C, 0x5F, 0x71, 0xB8, 0x70, 0xD6, 0x36, 0x0D, 0x3B, 0x4B, 0x4A, 0x8A, 0x62, 0x3F, 0xCC, 0xE5, 0x09,
    0x0F, 0x42, 0x8C, 0xCE, 0x7D, 0xE4, 0x30, 0xD0, 0xB5, 0x79, 0xCF, 0x41, 0x57, 0x9E, 0x86, 0x31, 0x92,
    0xC2, 0x5C, 0x4D, 0x8E, 0x0A, 0xCB, 0x10, 0x06, 0xBC, 0x1D, 0x8D, 0xEE, 0x6D, 0x1A, 0xA0, 0x23, 0x94,
    0xF4, 0x5B, 0x6E, 0xC7, 0xE2, 0x5E, 0x07, 0x4E, 0xFC, 0x96, 0x1E, 0x2F, 0x84, 0x6A, 0x90, 0xDF, 0xA5,
    0x87, 0x27, 0x61, 0xEC, 0xAA, 0x15, 0x39, 0xF5, 0x9F, 0xE8, 0x6C, 0x05, 0x80, 0x50, 0xAB, 0x64, 0x95,
    0x81, 0x19, 0xE1, 0xE3, 0x76, 0x34, 0xF8, 0xC6, 0x48, 0x7E, 0xB3, 0x6B, 0xCD, 0xC9, 0xB4, 0x29, 0x78,
    0x63, 0x0B, 0xED, 0xF0, 0x82, 0xE6, 0xB2, 0xA7, 0xD2, 0x54, 0x88, 0x0E, 0xBE, 0xA4, 0x16, 0x72, 0x20,
    0x55, 0x85, 0x73, 0xB0, 0x6F, 0x2A, 0x93, 0xC4, 0x5D, 0x8B, 0xD5, 0x37, 0x68, 0xBB, 0xE9, 0xF7, 0xC8,
    0x45, 0x3A, 0x11, 0x69, 0x58, 0x9B, 0x7A, 0x38, 0xFE, 0xD4, 0x18, 0x5A, 0xEA, 0x91, 0x2C, 0x03, 0x3E,
    0xDD, 0xDB, 0x04, 0x9D, 0x53, 0x24, 0x8F, 0x1B, 0xEB, 0x17, 0x59, 0x7F, 0x43, 0xAE, 0xAF, 0x89, 0xFD,
    0x98, 0xC1, 0x9C, 0x9A, 0xF3, 0xA8, 0xB1, 0xD7, 0x13, 0xDA, 0xB9, 0x14, 0xF1, 0xE0, 0x3C, 0xA2,
};

constexpr std::array<int, 256> PositionTable = {
    -32, -2, 9, -39, -86, -30, -125, -92, 101, 79, 74, 54, 118, 52, -44, -45, 18, 76, -85, 4, -127, -27, 58,
    26, -80, 100, 29, -73, 85, 71, -46, 95, 40, -121, -96, 44, -17, -20, 53, -75, 60, 2, 3, -8, 126, 69, 7,
    28, -4, 20, -88, 68, 91, -18, -105, 82, 99, -91, 105, 72, 115, 36, -55, -13, -102, 13, -116, -70, 61,
    -5, 96, 94, 110, -87, -56, -62, -50, 106, 8, 46, -97, 83, -33, -42, 103, 122, -118, -54, -61, -101, -81,
    -93, -37, 86, -124, -43, -109, -59, -68, -107, 19, 92, 1, -7, 34, 5, -114, -99, 11, 125, -19, 107, 31,
    87, -11, -78, -106, -41, 75, -40, -15, -71, 113, -83, -52, 6, -60, -77, 104, 80, -58, -66, 127, 42, 117,
    -1, -111, 23, 22, -51, 55, 15, 124, -76, -119, -29, 111, 32, 24, -113, -65, -95, 12, 81, 14, -100, 59,
    -38, -63, 77, -21, 119, -22, 78, -69, -128, 67, -31, -28, 30, 121, -126, 114, -6, 35, -23, -47, 63, -36,
    33, 102, -79, 97, 49, -74, 38, -14, -115, 27, 84, -103, 10, 37, -67, -117, 62, -9, 70, -72, -112, -122,
    89, -49, 50, 109, -84, -16, -57, 73, -94, -64, -3, -48, -34, 21, 17, 98, -104, -12, 64, -108, -98, -26,
    48, -89, 65, -82, 51, 25, -10, -53, -25, 16, -24, 108, 93, -123, 112, 116, 47, 120, -90, 57, 43, 41, 56,
    123, -110, 90, 45, 39, 66, -120, 88, 0, 0,
};
// clang-format on

/// Whether the first 254 values are all different and none is 0.
template <class Table>
constexpr bool IsKey(const Table& table)
{
    for (std::size_t i = 0; i < TextKey.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (table[i] == table[j]) {
                return false;
            }
        }
        if (table[i] == 0) {
            return false;
        }
    }
    return true;
}

static_assert(IsKey(TextKey) && IsKey(PositionTable) && PositionTable[254] == 0 && PositionTable[255] == 0);

/// The bytes of the text key in an order that the length and the plain bytes decide.
class CKeyWalk
{
public:
    explicit CKeyWalk(int length) : mState(static_cast<std::uint32_t>(length % 4 + length)) {}

    std::uint8_t Current() const { return TextKey[mState % TextKey.size()]; }
    void Next(std::uint8_t plain)
    {
        ++mIndex;
        mState += static_cast<std::uint32_t>(static_cast<std::int8_t>(plain)) + mIndex - mIndex % 3;
    }

private:
    std::uint32_t mState;
    std::uint32_t mIndex = 0;
};

/// Two characters that make equal texts look different. The state of the generator is the program's to seed.
AnsiString Filler()
{
    UnicodeString filler;
    for (int i = 0; i < FillerLength; ++i) {
        filler += static_cast<WideChar>(random() % 254 + 1);
    }
    return filler;
}

void SwapPairs(AnsiString& bytes)
{
    char* const data = bytes.UniqueData();
    for (int i = 0; i + 1 < bytes.Length(); i += 2) {
        std::swap(data[i], data[i + 1]);
    }
}

/// Undoes itself for all bytes but 0.
void ApplyMask(AnsiString& bytes)
{
    const auto length = static_cast<std::uint32_t>(bytes.Length());
    char* const data = bytes.UniqueData();
    for (std::uint32_t i = 1; i <= length; ++i) {
        const auto entry = static_cast<std::uint32_t>(PositionTable[i & 255]);
        const auto mask = static_cast<int>((entry * length + 167) % 253);
        char& byte = data[i - 1];
        if (static_cast<signed char>(byte) != mask) {
            byte = static_cast<char>(byte ^ mask);
        }
    }
}

} // namespace

UnicodeString Encrypt(const UnicodeString& text)
{
    if (text.IsEmpty()) {
        return text;
    }
    AnsiString bytes = Filler() + AnsiString(text);
    bytes.Insert(Filler(), bytes.Length() / 2 + 1);
    CKeyWalk key(bytes.Length());
    char* const data = bytes.UniqueData();
    for (int i = 0; i < bytes.Length(); ++i) {
        const auto plain = static_cast<std::uint8_t>(data[i]);
        data[i] = static_cast<char>(plain + key.Current());
        key.Next(plain);
    }
    return BinaryDataToHexW(bytes);
}

UnicodeString Decrypt(const UnicodeString& hex)
{
    if (hex.IsEmpty()) {
        return hex;
    }
    AnsiString bytes = HexToBinaryData(hex);
    CKeyWalk key(bytes.Length());
    char* const data = bytes.UniqueData();
    for (int i = 0; i < bytes.Length(); ++i) {
        const auto plain = static_cast<std::uint8_t>(data[i] - key.Current());
        data[i] = static_cast<char>(plain);
        key.Next(plain);
    }
    bytes.Delete((bytes.Length() - FillerLength) / 2 + 1, FillerLength);
    bytes.Delete(1, FillerLength);
    return bytes;
}

AnsiString EncryptCLA(const AnsiString& text)
{
    AnsiString bytes = text;
    SwapPairs(bytes);
    ApplyMask(bytes);
    return bytes;
}

AnsiString DecryptCLA(const AnsiString& text)
{
    AnsiString bytes = text;
    ApplyMask(bytes);
    SwapPairs(bytes);
    return bytes;
}

} // namespace BTL
