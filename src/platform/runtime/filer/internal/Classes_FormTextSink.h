// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/internal/Classes_FormSink.h"

#include <string>
#include <vector>

namespace Classes::Form
{

/// Writes the text form.
class CTextSink final : public ASink
{
public:
    /// `target` must live as long as this. The text goes there in pieces.
    explicit CTextSink(TStream& target) : mTarget(target) {}

    /// Writes what is left of the text.
    void Flush();

    void BeginObject(const TObjectHead& head) override;
    void EndObject() override;
    void BeginProperty(std::string_view path) override;
    void Constant(TValueType type) override;
    void Integer(System::Int64 value) override;
    void Float(TValueType type, std::string_view bytes) override;
    void Text(std::string_view text) override;
    void WideText(std::u16string_view text) override;
    void Ident(std::string_view path) override;
    void Bytes(std::string_view bytes) override;
    void BeginSet() override;
    void Element(std::string_view name) override;
    void EndSet() override;
    void BeginList() override;
    void EndList() override;
    void BeginCollection() override;
    void BeginItem(std::optional<System::Int64> place) override;
    void EndItem() override;
    void EndCollection() override;

private:
    class CTextValue;

    void NewLine();
    void BeginValue();
    void EndValue();

    TStream& mTarget;
    std::string mOut;
    int mLevel = 0;
    /// Whether values stand in lines of their own, at each level of lists and items.
    std::vector<bool> mIsInList{false};
    bool mIsFirstElement = false;
};

} // namespace Classes::Form
