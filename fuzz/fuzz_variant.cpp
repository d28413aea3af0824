// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariants.h"
#include "platform/base/Sysutils_Exception.h"
#include "support/Fuzz.h"

#include <cstdint>

namespace
{

using Fuzz::Require;

/// All conversions; the forms with a default fail where the raising ones do.
void Convert(const UTL::CVariant& value)
{
    value.ToBoolDef(false);
    Require(value.ToIntDef(1) == value.ToIntDef(2) || value.ToInt64Def(1) != value.ToInt64Def(2));
    Require(value.IsDouble() == (value.ToDoubleDef(1) == value.ToDoubleDef(2)));
    Fuzz::Try<Sysutils::EConvertError>([&] { value.ToDateTime(); });
}

} // namespace

/// Reads any text as a variant of both widths and as a list of variants.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const System::AnsiString narrow(Fuzz::Bytes(data, size));
    const System::UnicodeString wide(narrow);
    Convert(narrow);
    Convert(wide);
    Require(UTL::CVariant(narrow).ToWString() == wide);

    UTL::CVariants list;
    UTL::CommaTextToVariants(wide, list);
    for (int i = 0; i < list.GetCount(); ++i) {
        Convert(list.getItem(i));
    }
    list.ToVariant();
    list.get_DebugInfo();
    return 0;
}
