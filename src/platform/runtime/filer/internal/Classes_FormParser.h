// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/filer/internal/Classes_FormPath.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"

#include <string>
#include <string_view>

namespace Classes::Form
{

/// A place in a text as editors show it: both from 1 on, the column in characters.
struct TPlace
{
    int line = 1;
    int column = 1;
};

/// The place of the byte at `offset` of a text in UTF-8.
[[nodiscard]] TPlace PlaceIn(std::string_view text, std::size_t offset);

/// Reads the text form and tells a sink of it.
class CParser
{
public:
    /// `text` in UTF-8, with or without a byte order mark, and `sink` must live as long as this.
    CParser(std::string_view text, ASink& sink) : mText(text), mSink(sink) {}

    /// `EParserError` if the text isn't one form from its begin to its end.
    void Parse();

    // What the sink may ask while it is told something.

    /// The offset of what it is told: of a component's name or class, a property, a value or an element.
    std::size_t EventOffset() const noexcept { return mEventStart; }
    const CFormPath& Path() const noexcept { return mPath; }

private:
    class CLevel;

    [[noreturn]] void Fail(std::size_t offset, const System::UnicodeString& message) const;
    [[noreturn]] void FailExpected(const System::UnicodeString& what);

    bool IsAtEnd() const noexcept { return mAt == mText.size(); }
    void SkipBlanks() noexcept;
    /// The next character behind blanks; zero at the end.
    char PeekSign() noexcept;
    bool TakeSign(char sign) noexcept;
    void NeedSign(char sign);
    /// An identifier; empty if there is none.
    std::string_view TakeWord() noexcept;
    std::string_view NeedIdentifier(const char16_t* what, std::size_t maxLength);
    std::string_view TakePath();

    void ParseObject();
    bool TakeKinds(TObjectHead& head);
    void ParseHead(TObjectHead& head);
    void ParseProperty(std::string_view path, std::size_t start);
    System::Int64 ParsePlaceNumber();
    void ParseValue();
    void ParseNumber();
    System::Int64 IntegerOf(std::string_view digits, int base, std::size_t start) const;
    void ParseText();
    void ParseQuoted(class CGatheredText& text);
    void ParseCode(CGatheredText& text);
    bool TakeJoin() noexcept;
    void ParseWord();
    void ParseBytes();
    void ParseSet();
    void ParseList();
    void ParseCollection();
    void ParseItem();

    std::string_view mText;
    ASink& mSink;
    std::size_t mAt = 0;
    std::size_t mEventStart = 0;
    CFormPath mPath;
    int mDepth = 0;
    bool mIsInList = false;
};

} // namespace Classes::Form
