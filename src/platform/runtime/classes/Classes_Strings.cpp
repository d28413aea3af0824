// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Strings.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <numeric>

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

[[noreturn]] void ThrowSorted()
{
    throw EStringListError(u"Operation not allowed on sorted list");
}

[[noreturn]] void ThrowDuplicate()
{
    throw EStringListError(u"String list does not allow duplicates");
}

void AddItem(Items& items, View text)
{
    items.push_back({UnicodeString(text), nullptr});
}

// Text with delimiters

/// How a list is written as one line.
struct LineForm
{
    WideChar delimiter;
    WideChar quote;
    bool strict;

    bool IsBlank(WideChar c) const { return !strict && c <= u' '; }
    bool EndsItem(WideChar c) const { return c == delimiter || IsBlank(c); }
    bool Quotes() const { return quote != 0; }

    bool NeedsQuotes(View text) const
    {
        if (text.empty()) {
            // Between blanks an empty item would be lost.
            return IsBlank(delimiter);
        }
        return std::ranges::any_of(text, [this](WideChar c) { return c == quote || EndsItem(c); });
    }
};

constexpr LineForm CommaForm{u',', u'"', false};

void AppendQuoted(UnicodeString& out, View text, WideChar quote)
{
    out += quote;
    for (std::size_t mark = text.find(quote); mark != View::npos; mark = text.find(quote)) {
        out.Append(text.substr(0, mark + 1));
        out += quote;
        text.remove_prefix(mark + 1);
    }
    out.Append(text);
    out += quote;
}

class LineParser
{
public:
    LineParser(View text, const LineForm& form) : mRest(text), mForm(form) {}

    Items Parse()
    {
        SkipBlanks();
        while (!mRest.empty()) {
            if (mForm.Quotes() && mRest.front() == mForm.quote) {
                ParseQuoted();
            } else {
                ParsePlain();
            }
            SkipBlanks();
            ParseDelimiter();
        }
        return std::move(mItems);
    }

private:
    void SkipBlanks()
    {
        const auto text = std::ranges::find_if_not(mRest, [this](WideChar c) { return mForm.IsBlank(c); });
        mRest.remove_prefix(static_cast<std::size_t>(text - mRest.begin()));
    }

    void ParsePlain()
    {
        const auto end = std::ranges::find_if(mRest, [this](WideChar c) { return mForm.EndsItem(c); });
        const auto length = static_cast<std::size_t>(end - mRest.begin());
        AddItem(mItems, mRest.substr(0, length));
        mRest.remove_prefix(length);
    }

    /// A doubled quote stands for one; an item that isn't closed takes all the rest.
    void ParseQuoted()
    {
        mRest.remove_prefix(1);
        UnicodeString item;
        for (;;) {
            const std::size_t end = std::min(mRest.find(mForm.quote), mRest.size());
            const bool isDoubled = end + 1 < mRest.size() && mRest[end + 1] == mForm.quote;
            item.Append(mRest.substr(0, isDoubled ? end + 1 : end));
            mRest.remove_prefix(std::min(end + (isDoubled ? 2 : 1), mRest.size()));
            if (!isDoubled) {
                break;
            }
        }
        mItems.push_back({std::move(item), nullptr});
    }

    void ParseDelimiter()
    {
        if (mRest.empty() || mRest.front() != mForm.delimiter) {
            return;
        }
        mRest.remove_prefix(1);
        if (mRest.empty()) {
            AddItem(mItems, {});
        }
        SkipBlanks();
    }

    View mRest;
    const LineForm& mForm;
    Items mItems;
};

UnicodeString JoinLine(const TStrings& strings, const LineForm& form)
{
    const int count = strings.getCount();
    // Without quotes one empty line would be no line at all.
    const bool isOneEmpty = count == 1 && strings[0].IsEmpty();
    UnicodeString result;
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            result += form.delimiter;
        }
        const UnicodeString line = strings[i];
        if (form.Quotes() && (isOneEmpty || form.NeedsQuotes(line.AsView()))) {
            AppendQuoted(result, line.AsView(), form.quote);
        } else {
            result.Append(line.AsView());
        }
    }
    return result;
}

// Text of lines

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
        const std::size_t end = std::min(text.find(lineBreak), text.size());
        AddItem(items, text.substr(0, end));
        text.remove_prefix(std::min(end + lineBreak.size(), text.size()));
    }
    return items;
}

std::string ReadRest(TStream& stream)
{
    constexpr std::size_t FirstChunk = 0x10000;
    std::string bytes;
    std::size_t size = 0;
    for (;;) {
        if (size == bytes.size()) {
            bytes.resize(std::max(FirstChunk, 2 * size));
        }
        const System::Int64 count =
            stream.Read(bytes.data() + size, static_cast<System::Int64>(bytes.size() - size));
        if (count <= 0) {
            break;
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

TStream& NeedStream(TStream* stream)
{
    if (stream == nullptr) {
        throw EStreamError(u"There is no stream");
    }
    return *stream;
}

} // namespace

// TStrings

TMetaClass* TStrings::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStrings>(u"TStrings").Build();
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
    const GUpdateScope scope(*this);
    AppendItems(ItemsOf(*strings));
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

UnicodeString TStrings::getText() const
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

void TStrings::setText(const UnicodeString& text)
{
    const View lineBreak = mLineBreak.AsView();
    ReplaceLines(lineBreak == UsualLineBreak ? SplitUsualLines(text.AsView())
                                             : SplitLines(text.AsView(), lineBreak));
}

UnicodeString TStrings::getCommaText() const
{
    return JoinLine(*this, CommaForm);
}

void TStrings::setCommaText(const UnicodeString& text)
{
    ReplaceLines(LineParser(text.AsView(), CommaForm).Parse());
}

UnicodeString TStrings::getDelimitedText() const
{
    return JoinLine(*this, {mDelimiter, mQuoteChar, mStrictDelimiter});
}

void TStrings::setDelimitedText(const UnicodeString& text)
{
    const LineForm form{mDelimiter, mQuoteChar, mStrictDelimiter};
    ReplaceLines(LineParser(text.AsView(), form).Parse());
}

void TStrings::setLineBreak(const UnicodeString& lineBreak)
{
    mLineBreak = lineBreak.IsEmpty() ? UnicodeString(UsualLineBreak) : lineBreak;
}

void TStrings::LoadFromStream(TStream* stream, Sysutils::TEncoding* encoding)
{
    const std::string bytes = ReadRest(NeedStream(stream));
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

void TStrings::ReplaceLines(Items&& items)
{
    const GUpdateScope scope(*this);
    Clear();
    AppendItems(std::move(items));
}

// TStringList

TMetaClass* TStringList::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStringList>(u"TStringList").Build();
    return record;
}

TStringList::TStringList(bool ownsObjects) : mOwnsObjects(ownsObjects) {}

TStringList::~TStringList()
{
    Dispose(mItems);
}

TStringItem& TStringList::ItemAt(int index)
{
    CheckIndex(index, GetCount());
    return mItems[static_cast<std::size_t>(index)];
}

const TStringItem& TStringList::ItemAt(int index) const
{
    CheckIndex(index, GetCount());
    return mItems[static_cast<std::size_t>(index)];
}

void TStringList::CheckUnsorted() const
{
    if (mSorted) {
        ThrowSorted();
    }
}

int TStringList::Add(const UnicodeString& text)
{
    return AddObject(text, nullptr);
}

int TStringList::AddObject(const UnicodeString& text, TObject* object)
{
    int index = GetCount();
    if (mSorted && Find(text, index)) {
        if (mDuplicates == dupIgnore) {
            return index;
        }
        if (mDuplicates == dupError) {
            ThrowDuplicate();
        }
    }
    InsertItem(index, text, object);
    return index;
}

void TStringList::Insert(int index, const UnicodeString& text)
{
    InsertObject(index, text, nullptr);
}

void TStringList::InsertObject(int index, const UnicodeString& text, TObject* object)
{
    CheckUnsorted();
    CheckIndex(index, GetCount() + 1);
    InsertItem(index, text, object);
}

void TStringList::InsertItem(int index, const UnicodeString& text, TObject* object)
{
    Changing();
    mItems.insert(mItems.begin() + std::min(index, GetCount()), {text, object});
    Changed();
}

void TStringList::Delete(int index)
{
    ItemAt(index);
    Changing();
    const TStringItem item = ItemAt(index);
    mItems.erase(mItems.begin() + index);
    Dispose({item});
    Changed();
}

void TStringList::DeleteRange(int index, int count)
{
    CheckIndex(index, INT_MAX);
    if (count <= 0 || index >= GetCount()) {
        return;
    }
    Changing();
    const int first = std::min(index, GetCount());
    const auto begin = mItems.begin() + first;
    CutItems(begin, begin + std::min(count, GetCount() - first));
    Changed();
}

void TStringList::DeleteAll(const UnicodeString& text)
{
    const auto isOther = [&](const TStringItem& item) { return !EqualStrings(item.String, text); };
    if (std::all_of(mItems.begin(), mItems.end(), isOther)) {
        return;
    }
    Changing();
    CutItems(std::stable_partition(mItems.begin(), mItems.end(), isOther), mItems.end());
    Changed();
}

void TStringList::CutItems(Items::iterator first, Items::iterator last)
{
    const Items items(std::make_move_iterator(first), std::make_move_iterator(last));
    mItems.erase(first, last);
    Dispose(items);
}

void TStringList::Clear()
{
    if (mItems.empty()) {
        return;
    }
    Changing();
    // Out of the list first: an object may look at it while it goes.
    const Items items = std::exchange(mItems, {});
    Dispose(items);
    Changed();
}

void TStringList::Dispose(const Items& items) const
{
    if (!mOwnsObjects) {
        return;
    }
    for (const TStringItem& item : items) {
        delete item.Object;
    }
}

void TStringList::Exchange(int first, int second)
{
    ItemAt(first);
    ItemAt(second);
    Changing();
    std::swap(ItemAt(first), ItemAt(second));
    Changed();
}

void TStringList::Move(int from, int to)
{
    CheckUnsorted();
    ItemAt(from);
    ItemAt(to);
    if (from == to) {
        return;
    }
    Changing();
    const auto begin = mItems.begin();
    if (from < to) {
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    } else {
        std::rotate(begin + to, begin + from, begin + from + 1);
    }
    Changed();
}

int TStringList::IndexOf(const UnicodeString& text) const
{
    if (!mSorted) {
        return TStrings::IndexOf(text);
    }
    int index = 0;
    return Find(text, index) ? index : -1;
}

bool TStringList::Find(const UnicodeString& text, int& index) const
{
    if (!mSorted) {
        const int found = TStrings::IndexOf(text);
        index = found < 0 ? GetCount() : found;
        return found >= 0;
    }
    const auto place = std::ranges::lower_bound(
        mItems, text, [this](const auto& a, const auto& b) { return CompareStrings(a, b) < 0; },
        &TStringItem::String);
    index = static_cast<int>(place - mItems.begin());
    return place != mItems.end() && CompareStrings(place->String, text) == 0;
}

void TStringList::Sort()
{
    if (mSorted || mItems.size() < 2) {
        return;
    }
    Changing();
    SortItems();
    Changed();
}

void TStringList::SortItems()
{
    std::ranges::stable_sort(
        mItems, [this](const auto& a, const auto& b) { return CompareStrings(a, b) < 0; },
        &TStringItem::String);
}

void TStringList::CustomSort(const TStringListSortCompare& compare)
{
    if (mSorted || mItems.size() < 2 || !compare) {
        return;
    }
    Changing();
    // The order is found on numbers, so that the lines stand still while the caller compares them.
    std::vector<int> order(mItems.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, [&](int a, int b) { return compare(this, a, b) < 0; });
    Items sorted;
    sorted.reserve(order.size());
    for (const int index : order) {
        sorted.push_back(ItemAt(index));
    }
    mItems = std::move(sorted);
    Changed();
}

void TStringList::setSorted(bool sorted)
{
    if (sorted) {
        Sort();
    }
    mSorted = sorted;
}

void TStringList::setCaseSensitive(bool caseSensitive)
{
    if (mCaseSensitive == caseSensitive) {
        return;
    }
    mCaseSensitive = caseSensitive;
    if (mSorted) {
        Changing();
        SortItems();
        Changed();
    }
}

UnicodeString TStringList::Get(int index) const
{
    return ItemAt(index).String;
}

TObject* TStringList::GetObject(int index) const
{
    return ItemAt(index).Object;
}

void TStringList::Put(int index, const UnicodeString& text)
{
    CheckUnsorted();
    ItemAt(index);
    Changing();
    ItemAt(index).String = text;
    Changed();
}

void TStringList::PutObject(int index, TObject* object)
{
    ItemAt(index);
    Changing();
    ItemAt(index).Object = object;
    Changed();
}

int TStringList::GetCapacity() const
{
    return static_cast<int>(std::min<std::size_t>(mItems.capacity(), INT_MAX));
}

void TStringList::SetCapacity(int capacity)
{
    if (capacity < GetCount()) {
        throw EStringListError(u"List capacity out of bounds (" + UnicodeString(capacity) + u")");
    }
    mItems.reserve(static_cast<std::size_t>(capacity));
}

void TStringList::SetUpdateState(bool updating)
{
    if (updating) {
        Changing();
    } else {
        Changed();
    }
}

void TStringList::AppendItems(Items&& items)
{
    if (items.empty()) {
        return;
    }
    Changing();
    if (mSorted) {
        MergeItems(std::move(items));
    } else if (mItems.empty()) {
        mItems = std::move(items);
    } else {
        mItems.insert(mItems.end(), std::make_move_iterator(items.begin()),
                      std::make_move_iterator(items.end()));
    }
    Changed();
}

void TStringList::MergeItems(Items&& items)
{
    const auto less = [this](const TStringItem& a, const TStringItem& b) {
        return CompareStrings(a.String, b.String) < 0;
    };
    const std::size_t count = items.size();
    std::ranges::stable_sort(items, less);
    if (mDuplicates != dupAccept) {
        const auto isSame = [&](const TStringItem& a, const TStringItem& b) { return !less(a, b); };
        items.erase(std::unique(items.begin(), items.end(), isSame), items.end());
        auto old = mItems.cbegin();
        std::erase_if(items, [&](const TStringItem& item) {
            old = std::lower_bound(old, mItems.cend(), item, less);
            return old != mItems.cend() && !less(item, *old);
        });
    }
    const bool hasDuplicates = items.size() != count;
    const auto middle = static_cast<std::ptrdiff_t>(mItems.size());
    mItems.insert(mItems.end(), std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
    std::inplace_merge(mItems.begin(), mItems.begin() + middle, mItems.end(), less);
    if (hasDuplicates && mDuplicates == dupError) {
        ThrowDuplicate();
    }
}

int TStringList::CompareStrings(const UnicodeString& a, const UnicodeString& b) const
{
    return mCaseSensitive ? Sysutils::AnsiCompareStr(a, b) : Sysutils::AnsiCompareText(a, b);
}

bool TStringList::EqualStrings(const UnicodeString& a, const UnicodeString& b) const
{
    return mCaseSensitive ? a == b : TStrings::EqualStrings(a, b);
}

void TStringList::Changing()
{
    if (!IsUpdating() && mOnChanging) {
        mOnChanging(this);
    }
}

void TStringList::Changed()
{
    if (!IsUpdating() && mOnChange) {
        mOnChange(this);
    }
}

} // namespace Classes
