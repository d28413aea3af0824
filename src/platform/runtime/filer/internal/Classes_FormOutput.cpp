// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormOutput.h"

#include "platform/runtime/filer/internal/Classes_FormInput.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"

#include <limits>

namespace Classes::Form
{

using System::Byte;
using System::Int64;
using System::UnicodeString;

namespace
{

template <class T>
bool Fits(Int64 value)
{
    return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

} // namespace

void COutput::PutShort(std::string_view name)
{
    PutByte(static_cast<Byte>(name.size()));
    mBytes += name;
}

void COutput::PutCount(std::size_t count)
{
    if (count > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw EWriteError(u"A value is too long for a form");
    }
    PutNumber(static_cast<std::int32_t>(count));
}

void COutput::PutInteger(Int64 value)
{
    if (Fits<std::int8_t>(value)) {
        PutType(vaInt8);
        PutNumber(static_cast<std::int8_t>(value));
    } else if (Fits<std::int16_t>(value)) {
        PutType(vaInt16);
        PutNumber(static_cast<std::int16_t>(value));
    } else if (Fits<std::int32_t>(value)) {
        PutType(vaInt32);
        PutNumber(static_cast<std::int32_t>(value));
    } else {
        PutType(vaInt64);
        PutNumber(value);
    }
}

void COutput::PutText(std::string_view text)
{
    if (!IsAscii(text)) {
        PutType(vaUTF8String);
        PutCount(text.size());
    } else if (text.size() <= MaxName) {
        PutType(vaString);
        PutByte(static_cast<Byte>(text.size()));
    } else {
        PutType(vaLString);
        PutCount(text.size());
    }
    mBytes += text;
}

void COutput::PutText(const UnicodeString& text)
{
    if (HasLoneSurrogate(text)) {
        PutWideText(text);
    } else {
        PutText(System::ToUtf8(text));
    }
}

void COutput::PutWideText(std::u16string_view text)
{
    PutType(vaWString);
    PutCount(text.size());
    mBytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
}

void COutput::PutFloat(TValueType type, std::string_view bytes)
{
    PutType(type);
    mBytes += bytes;
}

void COutput::PutIdent(std::string_view path)
{
    if (SameAsciiText(path, "True")) {
        PutType(vaTrue);
    } else if (SameAsciiText(path, "False")) {
        PutType(vaFalse);
    } else if (SameAsciiText(path, "nil")) {
        PutType(vaNil);
    } else if (SameAsciiText(path, "Null")) {
        PutType(vaNull);
    } else {
        PutType(vaIdent);
        PutShort(path);
    }
}

void COutput::PutBytes(std::string_view bytes)
{
    PutType(vaBinary);
    PutCount(bytes.size());
    mBytes += bytes;
}

void COutput::PutHead(const TObjectHead& head)
{
    const auto bits =
        static_cast<Byte>((head.isInherited ? 1 : 0) | (head.childPos ? 2 : 0) | (head.isInline ? 4 : 0));
    if (bits != 0) {
        PutByte(0xF0 | bits);
    }
    if (head.childPos) {
        PutInteger(*head.childPos);
    }
    PutShort(head.className);
    PutShort(head.name);
}

void CBinarySink::EndProperties()
{
    if (mInProperties) {
        mOut.PutEnd();
        mInProperties = false;
    }
}

void CBinarySink::BeginObject(const TObjectHead& head)
{
    if (!mHasObject) {
        mOut.Put(Signature);
        mHasObject = true;
    }
    EndProperties();
    mOut.PutHead(head);
    mInProperties = true;
}

void CBinarySink::EndObject()
{
    EndProperties();
    mOut.PutEnd();
}

void CBinarySink::BeginProperty(std::string_view path)
{
    mOut.PutShort(path);
}

void CBinarySink::BeginItem(std::optional<Int64> place)
{
    if (place) {
        mOut.PutInteger(*place);
    }
    mOut.PutType(vaList);
}

} // namespace Classes::Form
