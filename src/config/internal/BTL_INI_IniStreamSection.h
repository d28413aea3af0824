// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniStreamImp.h"
#include "text/lists/BTL_STR_StrStrMap.h"

#include <iterator>
#include <map>
#include <utility>

namespace BTL
{

class CIniStreamImp::CSection : public CStrStrMap
{
public:
    explicit CSection(const System::UnicodeString& name) : mName(name) {}

    const System::UnicodeString& getName() const noexcept { return mName; }

    /// Looks first in front of `hint`, and tells the place behind the key.
    const_iterator Set(const_iterator hint, System::UnicodeString key, System::UnicodeString value)
    {
        return std::next(insert_or_assign(hint, std::move(key), std::move(value)));
    }
    void Set(System::UnicodeString key, System::UnicodeString value)
    {
        Set(std::as_const(*this).end(), std::move(key), std::move(value));
    }

private:
    System::UnicodeString mName;
};

class CIniStreamImp::CSections : public std::map<System::UnicodeString, System::GOwner<CSection>>
{
};

} // namespace BTL
