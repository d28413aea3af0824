// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"

#include <string>
#include <string_view>

namespace Classes::Form
{

/// The longest class name: a longer one would begin as the flags of a component do.
inline constexpr std::size_t MaxClassName = 0xEF;
/// The longest of all other names.
inline constexpr std::size_t MaxName = 0xFF;

/// Gathers the bytes of a form resource. Each value is put in its shortest form.
class COutput
{
public:
    const std::string& getBytes() const noexcept { return mBytes; }
    std::size_t Size() const noexcept { return mBytes.size(); }
    void Cut(std::size_t size) { mBytes.resize(size); }
    void Clear() noexcept { mBytes.clear(); }

    void Put(std::string_view bytes) { mBytes += bytes; }
    void PutByte(System::Byte byte) { mBytes += static_cast<char>(byte); }
    void PutType(TValueType type) { PutByte(type); }
    /// A name with its length; it has at most `MaxName` bytes.
    void PutShort(std::string_view name);
    void PutInteger(System::Int64 value);
    /// UTF-8.
    void PutText(std::string_view text);
    void PutText(const System::UnicodeString& text);
    void PutWideText(std::u16string_view text);
    void PutFloat(TValueType type, std::string_view bytes);
    void PutIdent(std::string_view path);
    void PutBytes(std::string_view bytes);
    /// What stands in front of a component's class name.
    void PutHead(const TObjectHead& head);
    /// The end of properties, components, lists or collections.
    void PutEnd() { PutByte(0); }

private:
    template <class T>
    void PutNumber(T value)
    {
        mBytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    void PutCount(std::size_t count);

    std::string mBytes;
};

/// Writes the binary form.
class CBinarySink final : public ASink
{
public:
    const std::string& getBytes() const noexcept { return mOut.getBytes(); }

    void BeginObject(const TObjectHead& head) override;
    void EndObject() override;
    void BeginProperty(std::string_view path) override;
    void Constant(TValueType type) override { mOut.PutType(type); }
    void Integer(System::Int64 value) override { mOut.PutInteger(value); }
    void Float(TValueType type, std::string_view bytes) override { mOut.PutFloat(type, bytes); }
    void Text(std::string_view text) override { mOut.PutText(text); }
    void WideText(std::u16string_view text) override { mOut.PutWideText(text); }
    void Ident(std::string_view path) override { mOut.PutIdent(path); }
    void Bytes(std::string_view bytes) override { mOut.PutBytes(bytes); }
    void BeginSet() override { mOut.PutType(vaSet); }
    void Element(std::string_view name) override { mOut.PutShort(name); }
    void EndSet() override { mOut.PutEnd(); }
    void BeginList() override { mOut.PutType(vaList); }
    void EndList() override { mOut.PutEnd(); }
    void BeginCollection() override { mOut.PutType(vaCollection); }
    void BeginItem(std::optional<System::Int64> place) override;
    void EndItem() override { mOut.PutEnd(); }
    void EndCollection() override { mOut.PutEnd(); }

private:
    /// Ends the properties of the component at hand, if they still go on.
    void EndProperties();

    COutput mOut;
    bool mHasObject = false;
    bool mInProperties = false;
};

} // namespace Classes::Form
