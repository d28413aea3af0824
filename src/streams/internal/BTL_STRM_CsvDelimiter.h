// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

namespace BTL::Detail
{

constexpr System::WideChar CsvQuote = u'"';

/// The delimiter of records; `EArgumentException` if it means something else there.
inline System::WideChar CheckedCsvDelimiter(System::WideChar delimiter)
{
    if (delimiter == CsvQuote || delimiter == u'\r' || delimiter == u'\n') {
        throw Sysutils::EArgumentException(u"Fields can't have a quote or a line end between them");
    }
    return delimiter;
}

} // namespace BTL::Detail
