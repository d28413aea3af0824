// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormFile.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/filer/internal/Classes_FormOutput.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>

namespace Classes
{

using System::Int64;
using System::UnicodeString;

namespace
{

/// A resource that may be moved, thrown away and read by all.
constexpr std::uint16_t UsualFlags = 0x1030;
/// Flags and size, behind the name.
constexpr std::size_t TailSize = sizeof(std::uint16_t) + sizeof(std::uint32_t);

template <class T>
void Append(std::string& bytes, T value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

/// Whether a head stood at the position. It takes no byte behind it, which a pipe wouldn't take back.
bool PassHead(TStream& stream)
{
    std::array<char, Form::ResourceMark.size()> mark{};
    stream.ReadBuffer(mark.data(), mark.size());
    if (std::string_view(mark.data(), mark.size()) != Form::ResourceMark) {
        return false;
    }
    std::size_t length = 0;
    char character = 0;
    do {
        stream.ReadBuffer(&character, 1);
    } while (character != 0 && ++length <= Form::MaxName);
    std::array<char, TailSize> tail{};
    stream.ReadBuffer(tail.data(), tail.size());
    return length > 0 && length <= Form::MaxName;
}

} // namespace

void Form::WriteResource(TStream& output, const UnicodeString& name, std::string_view form)
{
    const std::string upper = System::ToUtf8(name.UpperCase());
    if (upper.empty() || upper.size() > MaxName || upper.find('\0') != std::string::npos) {
        throw EWriteError(u"'" + name + u"' can't be the name of a resource");
    }
    if (form.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw EWriteError(u"The form is too large for a resource");
    }
    std::string bytes(ResourceMark);
    bytes += upper;
    bytes += '\0';
    Append(bytes, UsualFlags);
    Append(bytes, static_cast<std::uint32_t>(form.size()));
    bytes += form;
    output.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

TComponent* TStream::ReadComponent(TComponent* instance)
{
    TReader reader(this);
    return reader.ReadRootComponent(instance);
}

TComponent* TStream::ReadComponentRes(TComponent* instance)
{
    ReadResHeader();
    return ReadComponent(instance);
}

void TStream::WriteDescendent(TComponent* instance, TComponent* ancestor)
{
    TWriter writer(this);
    writer.WriteDescendent(instance, ancestor);
}

void TStream::WriteDescendentRes(const UnicodeString& name, TComponent* instance, TComponent* ancestor)
{
    TMemoryStream form;
    form.WriteDescendent(instance, ancestor);
    Form::WriteResource(*this, name, form.AsView());
}

void TStream::ReadResHeader()
{
    const Int64 start = getPosition();
    bool isThere = false;
    try {
        isThere = PassHead(*this);
    } catch (const EReadError&) {
        // It ends within what would have been the head.
    }
    if (isThere) {
        return;
    }
    if (start >= 0) {
        setPosition(start);
    }
    throw EInvalidImage(u"There is no resource at this place of the stream");
}

} // namespace Classes
