// SPDX-License-Identifier: MIT
#include "foundation/UTL_AutoPtr.h"

#include "foundation/UTL_ASRT_Assert.h"

#include <exception>

namespace UTL
{

namespace
{

constexpr const char* Source = "UTL_AutoPtr";
constexpr CFaultPlace DeletedWhileHeld{Source, 30};
constexpr CFaultPlace SurplusRelease{Source, 35};
constexpr CFaultPlace NullAccess{Source, 89};

} // namespace

AAutoObj::~AAutoObj() noexcept(false)
{
    if (mRefCount == 0) {
        return;
    }
    constexpr const char* expression = "Unexpected AutoObj delete";
    if (std::uncaught_exceptions() > 0) {
        Warn(DeletedWhileHeld, expression);
        return;
    }
    THROW_XAssert(DeletedWhileHeld, expression);
}

void AAutoObj::Release()
{
    if (mRefCount < 0) {
        THROW_XAssert(SurplusRelease, "Unexpected AutoObj release");
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
    THROW_XAssert(NullAccess, expression);
    throw Sysutils::Exception(expression);
}

} // namespace UTL
