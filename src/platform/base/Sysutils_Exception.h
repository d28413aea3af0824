// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <exception>

namespace Sysutils
{

/// Base of all exceptions that cross the library's interface. A handler for `std::exception` has them too,
/// and one that nobody catches shows its message.
///
///     try {
///         value = Sysutils::StrToInt(text);
///     } catch (const Sysutils::EConvertError& error) {
///         std::cerr << error.what() << '\n';   // or getMessage(), as wide text
///     }
class TRS8_BTL_API Exception : public std::exception
{
public:
    explicit Exception(System::UnicodeString message) noexcept;
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    ~Exception() override;

    const System::UnicodeString& getMessage() const noexcept { return mMessage; }
    void setMessage(const System::UnicodeString& message) noexcept;
    /// The message in UTF-8, valid until it is set anew.
    const char* what() const noexcept override { return mUtf8.c_str(); }

private:
    System::UnicodeString mMessage;
    // Made beforehand: several threads may look at one exception.
    System::UTF8String mUtf8;
};

/// Ends what it is thrown through without a message to the user.
class TRS8_BTL_API EAbort : public Exception
{
public:
    using Exception::Exception;
    ~EAbort() override;
};

/// A text that can't be converted to the type asked for, or back.
class TRS8_BTL_API EConvertError : public Exception
{
public:
    using Exception::Exception;
    ~EConvertError() override;
};

/// A variant that can't be converted, or that an operation doesn't take.
class TRS8_BTL_API EVariantError : public Exception
{
public:
    using Exception::Exception;
    ~EVariantError() override;
};

/// There is no memory for what was asked for, or it is too large to be had.
class TRS8_BTL_API EOutOfMemory : public Exception
{
public:
    using Exception::Exception;
    ~EOutOfMemory() override;
};

/// A failed operation on files or folders.
class TRS8_BTL_API EInOutError : public Exception
{
public:
    using Exception::Exception;
    ~EInOutError() override;
};

/// An argument that the function doesn't take.
class TRS8_BTL_API EArgumentException : public Exception
{
public:
    using Exception::Exception;
    ~EArgumentException() override;
};

/// An argument outside the range that the function takes.
class TRS8_BTL_API EArgumentOutOfRangeException : public EArgumentException
{
public:
    using EArgumentException::EArgumentException;
    ~EArgumentOutOfRangeException() override;
};

/// The base of faults in whole numbers.
class TRS8_BTL_API EIntError : public Exception
{
public:
    using Exception::Exception;
    ~EIntError() override;
};

/// A division of a whole number, an amount or a variant by 0.
class TRS8_BTL_API EDivByZero : public EIntError
{
public:
    using EIntError::EIntError;
    ~EDivByZero() override;
};

/// An index or a value outside its range.
class TRS8_BTL_API ERangeError : public EIntError
{
public:
    using EIntError::EIntError;
    ~ERangeError() override;
};

/// A result that its type doesn't hold.
class TRS8_BTL_API EIntOverflow : public EIntError
{
public:
    using EIntError::EIntError;
    ~EIntOverflow() override;
};

/// The base of faults in the arithmetic of floats.
class TRS8_BTL_API EMathError : public Exception
{
public:
    using Exception::Exception;
    ~EMathError() override;
};

/// A failed call of the host; `ErrorCode` is the platform's number.
class TRS8_BTL_API EOSError : public Exception
{
public:
    EOSError(const System::UnicodeString& message, unsigned long errorCode)
        : Exception(message), ErrorCode(errorCode)
    {
    }
    ~EOSError() override;

    unsigned long ErrorCode;
};

} // namespace Sysutils
