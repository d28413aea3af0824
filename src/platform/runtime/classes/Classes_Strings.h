// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Range.h"
#include "platform/base/Sysutils_Encoding.h"
#include "platform/runtime/classes/Classes_Persistent.h"

#include <initializer_list>
#include <vector>

namespace Classes
{

class TStream;

/// A line and the object that goes with it.
struct TStringItem
{
    System::UnicodeString String;
    System::TObject* Object = nullptr;
};

/// A list of lines with an object pointer each, counted from 0. The store is a derived class's; all that
/// lists of text can do stands here. An index out of range raises `EStringListError`. A null list as an
/// argument counts as an empty one. Objects are pointers only, never looked at, unless a list says it owns
/// them.
///
///     TStringList list{u"pear", u"fig"};
///     list.setStrings(0, u"apple");                        // lines are set by this, not by list[0]
///     for (const UnicodeString& line : list) { ... }
///     list.AddStrings(std::vector<std::string>{"UTF-8"});  // any range of texts
class TRS8_BTL_API TStrings : public TPersistent
{
    TRS8_BTL_CLASS(TStrings, TPersistent)

public:
    ~TStrings() override;

    int getCount() const { return GetCount(); }
    int getCapacity() const { return GetCapacity(); }
    /// Makes room for `capacity` lines. `EStringListError` for less than the count, `Sysutils::EOutOfMemory`
    /// if the memory isn't there.
    void setCapacity(int capacity) { SetCapacity(capacity); }
    System::UnicodeString getStrings(int index) const { return Get(index); }
    void setStrings(int index, const System::UnicodeString& text) { Put(index, text); }
    /// The line by value; constant, so that nobody takes it for the list's own. `setStrings` sets a line.
    // NOLINTNEXTLINE(readability-const-return-type)
    const System::UnicodeString operator[](int index) const { return Get(index); }
    System::TObject* getObjects(int index) const { return GetObject(index); }
    /// The former object stays the caller's, also in a list that owns its objects.
    void setObjects(int index, System::TObject* object) { PutObject(index, object); }

    // The lines as a range. They come by value: the store is a derived class's.

    using CIterator = System::GIndexIterator<TStrings, System::UnicodeString>;
    CIterator begin() const { return {*this, 0}; }
    CIterator end() const { return {*this, GetCount()}; }
    std::size_t size() const { return static_cast<std::size_t>(GetCount()); }
    [[nodiscard]] bool empty() const { return GetCount() == 0; }

    /// The place of the new line.
    virtual int Add(const System::UnicodeString& text);
    virtual int AddObject(const System::UnicodeString& text, System::TObject* object);
    void Append(const System::UnicodeString& text) { Add(text); }
    /// Adds the lines and objects of `strings`, which may be this list.
    void AddStrings(const TStrings* strings);
    void AddStrings(std::initializer_list<System::UnicodeString> lines);
    /// Adds each text of a range, without objects.
    template <System::RangeOfTexts Range>
    void AddStrings(Range&& lines)
    {
        std::vector<TStringItem> items;
        if constexpr (requires { lines.size(); }) {
            items.reserve(static_cast<std::size_t>(lines.size()));
        }
        for (auto&& line : lines) {
            items.push_back({System::ToUnicodeString(line), nullptr});
        }
        AddItems(std::move(items));
    }
    /// The line goes in front of the one at `index`, or to the end if that is the count.
    virtual void Insert(int index, const System::UnicodeString& text) = 0;
    /// As `Insert`, with the object of the line.
    virtual void InsertObject(int index, const System::UnicodeString& text, System::TObject* object);
    /// Takes the line at `index` out.
    virtual void Delete(int index) = 0;
    /// Takes all lines out.
    virtual void Clear() = 0;
    /// The lines at both places, with their objects, change places.
    virtual void Exchange(int first, int second);
    /// Takes the line at `from` out and puts it back at `to`.
    virtual void Move(int from, int to);

    /// The first line equal to `text`, by the list's way to compare; -1 if there is none.
    virtual int IndexOf(const System::UnicodeString& text) const;
    /// The first line with that name in front of its name-value separator; -1 if there is none.
    int IndexOfName(const System::UnicodeString& name) const;
    int IndexOfObject(const System::TObject* object) const;
    /// Whether both have the same lines, compared exactly, in the same order.
    bool Equals(const TStrings* strings) const;

    /// Takes over the lines and objects of another list in place of its own, and the characters and line
    /// break that its text forms use. `Sysutils::EConvertError` for anything else.
    void Assign(TPersistent* source) override;

    /// Between the two no notice of a change is given; the last `EndUpdate` gives one. They may be nested.
    void BeginUpdate();
    void EndUpdate();
    bool IsUpdating() const noexcept { return mUpdateCount > 0; }

    // Lines of the form name, separator, value.

    /// What stands in front of the first separator; empty for a line without one.
    System::UnicodeString getNames(int index) const;
    /// What stands behind the first separator; empty for a line without one.
    System::UnicodeString getValueFromIndex(int index) const;
    /// An empty `value` deletes the line. A negative `index` adds a line without a name.
    void setValueFromIndex(int index, const System::UnicodeString& value);
    /// The value of the first line with that name; empty if there is none.
    System::UnicodeString getValues(const System::UnicodeString& name) const;
    /// Changes the first line with that name, or adds one. An empty `value` deletes the line.
    void setValues(const System::UnicodeString& name, const System::UnicodeString& value);

    // The whole list as one text.

    /// The lines with the line break behind each.
    System::UnicodeString getText() const { return GetTextStr(); }
    /// Lines end at the line break. While that is the usual CR LF, a CR or LF alone ends a line as well.
    void setText(const System::UnicodeString& text) { SetTextStr(text); }
    /// The lines with commas between. A line with blanks, commas, quotes or control characters is put in
    /// double quotes, so that any list comes back as it was. `Delimiter`, `QuoteChar` and `StrictDelimiter`
    /// don't matter.
    System::UnicodeString getCommaText() const;
    /// Blanks and control characters outside quotes separate lines as commas do.
    void setCommaText(const System::UnicodeString& text);
    /// As the comma text, with `Delimiter` and `QuoteChar`. With `StrictDelimiter` blanks and control
    /// characters are text as any other. Without a quote character (zero) nothing is quoted. A text that
    /// isn't so is taken as far as it goes, so that files of records are better read by `BTL::CCsvReader`.
    System::UnicodeString getDelimitedText() const;
    void setDelimitedText(const System::UnicodeString& text);

    System::WideChar getDelimiter() const noexcept { return mDelimiter; }
    void setDelimiter(System::WideChar delimiter) noexcept { mDelimiter = delimiter; }
    System::WideChar getQuoteChar() const noexcept { return mQuoteChar; }
    void setQuoteChar(System::WideChar quoteChar) noexcept { mQuoteChar = quoteChar; }
    bool getStrictDelimiter() const noexcept { return mStrictDelimiter; }
    void setStrictDelimiter(bool strict) noexcept { mStrictDelimiter = strict; }
    System::WideChar getNameValueSeparator() const noexcept { return mNameValueSeparator; }
    void setNameValueSeparator(System::WideChar separator) noexcept { mNameValueSeparator = separator; }
    const System::UnicodeString& getLineBreak() const noexcept { return mLineBreak; }
    /// The empty text stands for the usual CR LF.
    void setLineBreak(const System::UnicodeString& lineBreak);

    /// Reads the rest of `stream` as the list's text. A byte order mark tells UTF-8 or UTF-16; without one
    /// the bytes are in `encoding`, or the system's code page if that is null. `EReadError` for a device
    /// without an end, `Sysutils::EOutOfMemory` if the memory isn't there; the lines stay then.
    virtual void LoadFromStream(TStream* stream, Sysutils::TEncoding* encoding = nullptr);
    /// Takes the file as the lines, as `LoadFromStream` reads it. `EFOpenError` if it can't be opened.
    void LoadFromFile(const System::UnicodeString& path, Sysutils::TEncoding* encoding = nullptr);
    /// Writes the list's text, with the byte order mark of `encoding`; in the system's code page if that is
    /// null.
    virtual void SaveToStream(TStream* stream, Sysutils::TEncoding* encoding = nullptr) const;
    /// Makes what `SaveToStream` writes the whole file. It isn't done in one step: a crash leaves a part.
    /// `EFCreateError` if the file can't be made, `EWriteError` if the host doesn't take all of it.
    void SaveToFile(const System::UnicodeString& path, Sysutils::TEncoding* encoding = nullptr) const;

protected:
    TStrings();

    /// The store, which a derived class keeps. It checks indices, as by `CheckIndex`.
    virtual System::UnicodeString Get(int index) const = 0;
    virtual int GetCount() const = 0;
    virtual System::TObject* GetObject(int index) const;
    virtual void Put(int index, const System::UnicodeString& text);
    virtual void PutObject(int index, System::TObject* object);
    /// The whole list as one text, as `getText` and `setText` give and take it.
    virtual System::UnicodeString GetTextStr() const;
    virtual void SetTextStr(const System::UnicodeString& text);
    virtual int GetCapacity() const;
    virtual void SetCapacity(int capacity);
    /// Called when the first `BeginUpdate` begins a change and when the last `EndUpdate` ends it.
    virtual void SetUpdateState(bool updating);
    /// Adds many lines at once; by itself one by one.
    virtual void AppendItems(std::vector<TStringItem>&& items);
    /// Negative, 0 or positive. By the order of the user's language, without regard to case.
    virtual int CompareStrings(const System::UnicodeString& a, const System::UnicodeString& b) const;
    /// Whether `CompareStrings` gives 0.
    virtual bool EqualStrings(const System::UnicodeString& a, const System::UnicodeString& b) const;

    /// The lines, as `Strings`.
    void DefineProperties(TFiler& filer) override;
    /// Raises `EStringListError` unless `index` is in 0 to `limit` - 1.
    void CheckIndex(int index, int limit) const;

private:
    void AddItems(std::vector<TStringItem>&& items);
    void StoreValue(int index, const System::UnicodeString& name, const System::UnicodeString& value);
    void ReplaceLines(std::vector<TStringItem>&& items);

    System::UnicodeString mLineBreak;
    int mUpdateCount = 0;
    System::WideChar mDelimiter = u',';
    System::WideChar mQuoteChar = u'"';
    System::WideChar mNameValueSeparator = u'=';
    bool mStrictDelimiter = false;
};

} // namespace Classes
