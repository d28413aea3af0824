// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/filer/Classes_FormText.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace Support
{

/// The bytes in a stream, to read.
inline std::unique_ptr<Classes::TMemoryStream> StreamOf(std::string_view bytes)
{
    auto stream = std::make_unique<Classes::TMemoryStream>();
    stream->WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
    stream->setPosition(0);
    return stream;
}

/// The binary form of a text.
inline std::string Compiled(std::string_view text)
{
    Classes::TMemoryStream binary;
    Classes::ObjectTextToBinary(StreamOf(text).get(), &binary);
    return std::string(binary.AsView());
}

/// The text of a binary form.
inline std::string Decompiled(std::string_view bytes)
{
    Classes::TMemoryStream text;
    Classes::ObjectBinaryToText(StreamOf(bytes).get(), &text);
    return std::string(text.AsView());
}

/// The design of a class while a test runs.
class CRegisteredDesign
{
public:
    CRegisteredDesign(std::string className, std::string_view text)
        : mClass(std::move(className)), mBytes(Compiled(text))
    {
        Classes::Detail::RegisterForm(mClass.c_str(), mBytes.data(), mBytes.size());
    }
    CRegisteredDesign(const CRegisteredDesign&) = delete;
    CRegisteredDesign& operator=(const CRegisteredDesign&) = delete;
    ~CRegisteredDesign() { Classes::Detail::UnregisterForm(mClass.c_str(), mBytes.data(), mBytes.size()); }

private:
    std::string mClass;
    std::string mBytes;
};

} // namespace Support
