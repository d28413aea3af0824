// SPDX-License-Identifier: MIT
#include "support/Fuzz.h"
#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/bytes/BTL_CRYPT_Crypt.h"

#include <cstdint>
#include <vector>

namespace
{

using Fuzz::Require;
using System::AnsiString;
using System::UnicodeString;

template <class S>
void ReadText(const S& text)
{
    const AnsiString bytes = BTL::HexToBinaryData(text);
    Require(bytes.Length() == text.Length() / 2);
    // A buffer that is a byte too small shows a write behind it.
    std::vector<char> buffer(static_cast<std::size_t>(bytes.Length()));
    const int size = bytes.Length() - (bytes.Length() > 0 ? 1 : 0);
    BTL::HexToBinaryData(text, buffer.data(), size);
    Require(AnsiString(buffer.data(), size) == bytes.SubString(1, size));
    Require(BTL::StringToBinaryData(text).Length() <= text.Length());
}

} // namespace

/// Writes any bytes in all their text forms and reads them back; reads any text as hex, as text-safe form and
/// as scrambled text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const AnsiString bytes(Fuzz::Bytes(data, size));
    Require(BTL::HexToBinaryData(BTL::BinaryDataToHexW(bytes)) == bytes);
    Require(BTL::HexToBinaryData(BTL::BinaryDataToHexA(bytes)) == bytes);
    Require(BTL::StringToBinaryData(BTL::BinaryDataToStringW(bytes)) == bytes);
    Require(BTL::StringToBinaryData(BTL::BinaryDataToStringA(bytes)) == bytes);
    Require(BTL::UTF8ToBinaryData(BTL::BinaryDataToUTF8(bytes)) == bytes);

    const UnicodeString text(bytes);
    ReadText(bytes);
    ReadText(text);
    BTL::Decrypt(text);
    Require(BTL::Decrypt(BTL::Encrypt(text)) == text);
    Require(BTL::EncryptCLA(bytes).Length() == bytes.Length());
    if (bytes.Pos('\0') == 0) {
        Require(BTL::DecryptCLA(BTL::EncryptCLA(bytes)) == bytes);
    }
    return 0;
}
