// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/internal/Classes_DelimitedText.h"

#include "platform/base/internal/System_Quoting.h"

#include <algorithm>

namespace Classes
{

using System::UnicodeString;
using System::WideChar;

namespace
{

using Items = std::vector<TStringItem>;
using View = std::u16string_view;

class CDelimitedReader
{
public:
    CDelimitedReader(View text, const TDelimitedForm& form) : mRest(text), mForm(form) {}

    Items Read()
    {
        SkipBlanks();
        while (!mRest.empty()) {
            if (mForm.Quotes() && mRest.front() == mForm.quote) {
                ReadQuoted();
            } else {
                ReadPlain();
            }
            SkipBlanks();
            ReadDelimiter();
        }
        return std::move(mItems);
    }

private:
    void Add(View text) { mItems.push_back({UnicodeString(text), nullptr}); }

    void SkipBlanks()
    {
        const auto text = std::ranges::find_if_not(mRest, [this](WideChar c) { return mForm.IsBlank(c); });
        mRest.remove_prefix(static_cast<std::size_t>(text - mRest.begin()));
    }

    void ReadPlain()
    {
        const auto end = std::ranges::find_if(mRest, [this](WideChar c) { return mForm.EndsItem(c); });
        const auto length = static_cast<std::size_t>(end - mRest.begin());
        Add(mRest.substr(0, length));
        mRest.remove_prefix(length);
    }

    /// A doubled quote stands for one; an item that isn't closed takes all the rest.
    void ReadQuoted()
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

    void ReadDelimiter()
    {
        if (mRest.empty() || mRest.front() != mForm.delimiter) {
            return;
        }
        mRest.remove_prefix(1);
        if (mRest.empty()) {
            Add({});
        }
        SkipBlanks();
    }

    View mRest;
    const TDelimitedForm& mForm;
    Items mItems;
};

} // namespace

bool TDelimitedForm::NeedsQuotes(View text) const
{
    if (text.empty()) {
        // Between blanks an empty item would be lost.
        return IsBlank(delimiter);
    }
    // All characters, so that the compiler compares many at a time.
    const WideChar firstText = strict ? u'\0' : u' ' + 1;
    bool found = false;
    for (const WideChar c : text) {
        found |= c < firstText || c == delimiter || c == quote;
    }
    return found;
}

Items ReadDelimited(View text, const TDelimitedForm& form)
{
    return CDelimitedReader(text, form).Read();
}

UnicodeString WriteDelimited(const TStrings& strings, const TDelimitedForm& form)
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
            System::Detail::AppendQuoted(result, line.AsView(), form.quote);
        } else {
            result.Append(line.AsView());
        }
    }
    return result;
}

} // namespace Classes
