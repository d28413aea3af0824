// SPDX-License-Identifier: MIT
#include "foundation/UTL_AutoPtr.h"

#include "foundation/UTL_ASRT_Assert.h"

#include <exception>

namespace UTL
{

namespace
{

constexpr const char* Source = "UTL_AutoPtr";

} // namespace

AAutoObj::~AAutoObj() noexcept(false)
{
    if (mRefCount == 0) {
        return;
    }
    constexpr const char* expression = "Unexpected AutoObj delete";
    constexpr int line = 30;
    if (std::uncaught_exceptions() > 0) {
        Warn(expression, Source, line);
        return;
    }
    THROW_XAssert(expression, Source, line);
}

void AAutoObj::Release()
{
    if (mRefCount < 0) {
        THROW_XAssert("Unexpected AutoObj release", Source, 35);
        return;
    }
    if (--mRefCount == 0) {
        delete this;
    }
}

MAutoObj::~MAutoObj() noexcept(false) = default;

void Detail::FailNullAccess()
{
    constexpr const char* expression = "null pointer access";
    THROW_XAssert(expression, Source, 89);
    throw Sysutils::Exception(expression);
}

} // namespace UTL
