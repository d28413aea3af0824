// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Strings.h"

#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/classes/internal/Classes_DelimitedText.h"
#include "platform/runtime/classes/internal/Classes_NeedStream.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>

namespace Classes
{

using System::GClassBuilder;
using System::GSharedText;
using System::TMetaClass;
using System::TObject;
using System::UnicodeString;
using System::WideChar;

using Items = std::vector<TStringItem>;

namespace
{

using View = std::u16string_view;

constexpr View UsualLineBreak = u"\r\n";

void AddItem(Items& items, View text)
{
    items.push_back({UnicodeString(text), nullptr});
}

Items SplitUsualLines(View text)
{
    Items items;
    while (!text.empty()) {
        const auto end = std::ranges::find_if(text, [](WideChar c) { return c == u'\r' || c == u'\n'; });
        const auto length = static_cast<std::size_t>(end - text.begin());
        AddItem(items, text.substr(0, length));
        text.remove_prefix(length);
        text.remove_prefix(text.starts_with(UsualLineBreak) ? 2 : std::min<std::size_t>(1, text.size()));
    }
    return items;
}

Items SplitLines(View text, View lineBreak)
{
    Items items;
    while (!text.empty()) {
        const std::size_t end = std::min(System::Detail::FindText(text, lineBreak), text.size());
        AddItem(items, text.substr(0, end));
        text.remove_prefix(std::min(end + lineBreak.size(), text.size()));
    }
    return items;
}

std::string ReadToEnd(TStream& stream)
{
    constexpr std::size_t FirstChunk = 0x10000;
    std::string bytes;
    std::size_t size = 0;
    for (;;) {
        if (size == bytes.size()) {
            System::WithMemory(u"There is no memory for all that a stream holds.",
                               [&] { bytes.resize(std::max(FirstChunk, 2 * size)); });
        }
        const System::Int64 count =
            stream.Read(bytes.data() + size, static_cast<System::Int64>(bytes.size() - size));
        if (count <= 0) {
            break;
        }
        if (size == 0) {
            CStreamWindow::CheckHasEnd(stream);
        }
        size += static_cast<std::size_t>(count);
    }
    bytes.resize(size);
    return bytes;
}

Items ItemsOf(const TStrings& strings)
{
    const int count = strings.getCount();
    Items items;
    items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        items.push_back({strings[i], strings.getObjects(i)});
    }
    return items;
}

} // namespace

TMetaClass* TStrings::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TStrings>(u"TStrings")
            .StandIn([]() -> std::unique_ptr<System::TObject> { return std::make_unique<TStringList>(); })
            .Build();
    return record;
}

TStrings::TStrings() : mLineBreak(UsualLineBreak) {}

TStrings::~TStrings() = default;

void TStrings::CheckIndex(int index, int limit) const
{
    if (index < 0 || index >= limit) {
        throw EStringListError(u"List index out of bounds (" + UnicodeString(index) + u")");
    }
}

int TStrings::Add(const UnicodeString& text)
{
    const int index = GetCount();
    Insert(index, text);
    return index;
}

int TStrings::AddObject(const UnicodeString& text, TObject* object)
{
    const int index = Add(text);
    PutObject(index, object);
    return index;
}

void TStrings::AddStrings(const TStrings* strings)
{
    if (strings == nullptr) {
        return;
    }
    AddItems(ItemsOf(*strings));
}

void TStrings::AddStrings(std::initializer_list<UnicodeString> lines)
{
    Items items;
    items.reserve(lines.size());
    for (const UnicodeString& line : lines) {
        items.push_back({line, nullptr});
    }
    AddItems(std::move(items));
}

void TStrings::AddItems(Items&& items)
{
    const GUpdateScope scope(*this);
    AppendItems(std::move(items));
}

void TStrings::InsertObject(int index, const UnicodeString& text, TObject* object)
{
    Insert(index, text);
    PutObject(index, object);
}

void TStrings::Exchange(int first, int second)
{
    const GUpdateScope scope(*this);
    const TStringItem kept{Get(first), GetObject(first)};
    const TStringItem other{Get(second), GetObject(second)};
    Put(first, other.String);
    PutObject(first, other.Object);
    Put(second, kept.String);
    PutObject(second, kept.Object);
}

void TStrings::Move(int from, int to)
{
    CheckIndex(to, GetCount());
    if (from == to) {
        return;
    }
    const GUpdateScope scope(*this);
    const TStringItem item{Get(from), GetObject(from)};
    // A list that owns its objects must not destroy the one that only moves.
    PutObject(from, nullptr);
    Delete(from);
    InsertObject(to, item.String, item.Object);
}

int TStrings::IndexOf(const UnicodeString& text) const
{
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        if (EqualStrings(Get(i), text)) {
            return i;
        }
    }
    return -1;
}

int TStrings::IndexOfName(const UnicodeString& name) const
{
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        const UnicodeString line = Get(i);
        const int separator = line.Pos(mNameValueSeparator);
        if (separator != 0 && EqualStrings(line.SubString(1, separator - 1), name)) {
            return i;
        }
    }
    return -1;
}

int TStrings::IndexOfObject(const TObject* object) const
{
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        if (GetObject(i) == object) {
            return i;
        }
    }
    return -1;
}

bool TStrings::Equals(const TStrings* strings) const
{
    const int count = GetCount();
    if (strings == nullptr || strings->GetCount() != count) {
        return strings == nullptr && count == 0;
    }
    for (int i = 0; i < count; ++i) {
        if (Get(i) != strings->Get(i)) {
            return false;
        }
    }
    return true;
}

void TStrings::Assign(TPersistent* source)
{
    const auto* strings = dynamic_cast<const TStrings*>(source);
    if (strings == nullptr) {
        TPersistent::Assign(source);
        return;
    }
    if (strings == this) {
        return;
    }
    mDelimiter = strings->mDelimiter;
    mQuoteChar = strings->mQuoteChar;
    mStrictDelimiter = strings->mStrictDelimiter;
    mNameValueSeparator = strings->mNameValueSeparator;
    mLineBreak = strings->mLineBreak;
    ReplaceLines(ItemsOf(*strings));
}

void TStrings::BeginUpdate()
{
    if (mUpdateCount == 0) {
        SetUpdateState(true);
    }
    ++mUpdateCount;
}

void TStrings::EndUpdate()
{
    if (mUpdateCount > 0 && --mUpdateCount == 0) {
        SetUpdateState(false);
    }
}

UnicodeString TStrings::getNames(int index) const
{
    const UnicodeString line = Get(index);
    return line.SubString(1, line.Pos(mNameValueSeparator) - 1);
}

UnicodeString TStrings::getValueFromIndex(int index) const
{
    const UnicodeString line = Get(index);
    const int separator = line.Pos(mNameValueSeparator);
    return separator == 0 ? UnicodeString() : line.SubString(separator + 1);
}

void TStrings::setValueFromIndex(int index, const UnicodeString& value)
{
    StoreValue(index, index < 0 ? UnicodeString() : getNames(index), value);
}

UnicodeString TStrings::getValues(const UnicodeString& name) const
{
    const int index = IndexOfName(name);
    return index < 0 ? UnicodeString() : getValueFromIndex(index);
}

void TStrings::setValues(const UnicodeString& name, const UnicodeString& value)
{
    StoreValue(IndexOfName(name), name, value);
}

void TStrings::StoreValue(int index, const UnicodeString& name, const UnicodeString& value)
{
    if (value.IsEmpty()) {
        if (index >= 0) {
            Delete(index);
        }
        return;
    }
    const UnicodeString line = name + mNameValueSeparator + value;
    if (index < 0) {
        Add(line);
    } else {
        Put(index, line);
    }
}

UnicodeString TStrings::GetTextStr() const
{
    const int count = GetCount();
    const View lineBreak = mLineBreak.AsView();
    std::size_t length = 0;
    for (int i = 0; i < count; ++i) {
        length += static_cast<std::size_t>(Get(i).Length()) + lineBreak.size();
    }
    auto text = GSharedText<WideChar>::Uninitialized(length);
    WideChar* out = text.Unique();
    for (int i = 0; i < count; ++i) {
        const UnicodeString line = Get(i);
        out = std::copy_n(line.c_str(), line.Length(), out);
        out = std::copy(lineBreak.begin(), lineBreak.end(), out);
    }
    return UnicodeString(std::move(text));
}

void TStrings::SetTextStr(const UnicodeString& text)
{
    const View lineBreak = mLineBreak.AsView();
    ReplaceLines(lineBreak == UsualLineBreak ? SplitUsualLines(text.AsView())
                                             : SplitLines(text.AsView(), lineBreak));
}

UnicodeString TStrings::getCommaText() const
{
    return WriteDelimited(*this, CommaForm);
}

void TStrings::setCommaText(const UnicodeString& text)
{
    ReplaceLines(ReadDelimited(text.AsView(), CommaForm));
}

UnicodeString TStrings::getDelimitedText() const
{
    return WriteDelimited(*this, {mDelimiter, mQuoteChar, mStrictDelimiter});
}

void TStrings::setDelimitedText(const UnicodeString& text)
{
    const TDelimitedForm form{mDelimiter, mQuoteChar, mStrictDelimiter};
    ReplaceLines(ReadDelimited(text.AsView(), form));
}

void TStrings::setLineBreak(const UnicodeString& lineBreak)
{
    mLineBreak = lineBreak.IsEmpty() ? UnicodeString(UsualLineBreak) : lineBreak;
}

void TStrings::LoadFromStream(TStream* stream, Sysutils::TEncoding* encoding)
{
    const std::string bytes = ReadToEnd(NeedStream(stream));
    const auto [found, markLength] = Sysutils::TEncoding::Detect(bytes, encoding);
    const auto text = std::string_view(bytes).substr(static_cast<std::size_t>(markLength));
    setText(found->GetString(text));
}

void TStrings::LoadFromFile(const UnicodeString& path, Sysutils::TEncoding* encoding)
{
    TFileStream stream(path, fmOpenRead | fmShareDenyWrite);
    LoadFromStream(&stream, encoding);
}

void TStrings::SaveToStream(TStream* stream, Sysutils::TEncoding* encoding) const
{
    TStream& target = NeedStream(stream);
    const Sysutils::TEncoding& used = encoding == nullptr ? *Sysutils::TEncoding::getDefault() : *encoding;
    const System::RawByteString bytes = used.GetBytes(getText());
    const std::string_view mark = used.GetPreamble();
    target.WriteBuffer(mark.data(), static_cast<System::Int64>(mark.size()));
    target.WriteBuffer(bytes.data(), bytes.Length());
}

void TStrings::SaveToFile(const UnicodeString& path, Sysutils::TEncoding* encoding) const
{
    TFileStream stream(path, fmCreate);
    SaveToStream(&stream, encoding);
    stream.Close();
}

TObject* TStrings::GetObject(int index) const
{
    CheckIndex(index, GetCount());
    return nullptr;
}

void TStrings::Put(int index, const UnicodeString& text)
{
    TObject* object = GetObject(index);
    // The object stays with the line, and alive in a list that owns it.
    PutObject(index, nullptr);
    Delete(index);
    InsertObject(index, text, object);
}

void TStrings::PutObject(int index, TObject*)
{
    CheckIndex(index, GetCount());
}

int TStrings::GetCapacity() const
{
    return GetCount();
}

void TStrings::SetCapacity(int) {}

void TStrings::SetUpdateState(bool) {}

void TStrings::AppendItems(Items&& items)
{
    for (const TStringItem& item : items) {
        if (item.Object == nullptr) {
            Add(item.String);
        } else {
            AddObject(item.String, item.Object);
        }
    }
}

int TStrings::CompareStrings(const UnicodeString& a, const UnicodeString& b) const
{
    return Sysutils::AnsiCompareText(a, b);
}

bool TStrings::EqualStrings(const UnicodeString& a, const UnicodeString& b) const
{
    // Folding is quicker than collation and tells nearly all differences.
    return a.CompareIC(b) == 0 && CompareStrings(a, b) == 0;
}

namespace
{

std::vector<UnicodeString> ReadLines(TReader& reader)
{
    std::vector<UnicodeString> lines;
    reader.ReadListBegin();
    while (!reader.EndOfList()) {
        lines.push_back(reader.ReadString());
    }
    reader.ReadListEnd();
    return lines;
}

void WriteLines(TWriter& writer, const TStrings& lines)
{
    writer.WriteListBegin();
    for (const UnicodeString& line : lines) {
        writer.WriteString(line);
    }
    writer.WriteListEnd();
}

} // namespace

void TStrings::DefineProperties(TFiler& filer)
{
    TPersistent::DefineProperties(filer);
    const auto* const ancestor = dynamic_cast<const TStrings*>(filer.getAncestor());
    const bool hasData = ancestor == nullptr ? GetCount() > 0 : !Equals(ancestor);
    filer.DefineProperty(
        u"Strings",
        [this](TReader& reader) {
            const std::vector<UnicodeString> lines = ReadLines(reader);
            const GUpdateScope scope(*this);
            Clear();
            AddStrings(lines);
        },
        [this](TWriter& writer) { WriteLines(writer, *this); }, hasData);
}

void TStrings::ReplaceLines(Items&& items)
{
    const GUpdateScope scope(*this);
    Clear();
    AppendItems(std::move(items));
}

} // namespace Classes
