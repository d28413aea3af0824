// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"

namespace Sysutils
{

namespace
{

/// Empty if there is no memory for it: an exception under way must not be replaced by another.
System::UTF8String Utf8Of(const System::UnicodeString& text) noexcept
{
    try {
        return text;
    } catch (...) {
        return {};
    }
}

} // namespace

Exception::Exception(System::UnicodeString message, int helpContext) noexcept
    : mMessage(std::move(message)), mUtf8(Utf8Of(mMessage)), mHelpContext(helpContext)
{
}

void Exception::setMessage(const System::UnicodeString& message) noexcept
{
    mMessage = message;
    mUtf8 = Utf8Of(message);
}

System::UnicodeString MessageOf(const std::exception& fault)
{
    const auto* const ours = dynamic_cast<const Exception*>(&fault);
    return ours != nullptr ? ours->getMessage() : System::FromUtf8(fault.what());
}

// The destructors stand here so that each class has its type information once, in the library: a handler in
// another module catches what the library throws.
Exception::~Exception() = default;
EAbort::~EAbort() = default;
EConvertError::~EConvertError() = default;
EVariantError::~EVariantError() = default;
EOutOfMemory::~EOutOfMemory() = default;
EInOutError::~EInOutError() = default;
EArgumentException::~EArgumentException() = default;
EArgumentOutOfRangeException::~EArgumentOutOfRangeException() = default;
EIntError::~EIntError() = default;
EDivByZero::~EDivByZero() = default;
ERangeError::~ERangeError() = default;
EIntOverflow::~EIntOverflow() = default;
EMathError::~EMathError() = default;
EOSError::~EOSError() = default;

} // namespace Sysutils

namespace System
{

void ThrowStringRange(int index, int length)
{
    throw Sysutils::ERangeError(u"String index " + UnicodeString(index) + u" is not in 1 to " +
                                UnicodeString(length) + u".");
}

void ThrowStringMemory()
{
    throw Sysutils::EOutOfMemory(UnicodeString(u"Out of memory."));
}

} // namespace System
