// SPDX-License-Identifier: MIT
#pragma once

namespace UTL
{

/// Flips a flag for a scope. The flag must outlive it.
///
///     bool isLoading = false;
///     {
///         const UTL::CSetBool scope(isLoading, true);
///         Load();
///     }                                              // false again, also after an exception
class CToggle
{
public:
    explicit CToggle(bool& value) noexcept : mValue(&value) { Flip(); }
    CToggle(const CToggle&) = delete;
    CToggle& operator=(const CToggle&) = delete;
    ~CToggle() { Flip(); }

private:
    void Flip() noexcept { *mValue = !*mValue; }

    bool* mValue;
};

/// Sets a flag for a scope and then puts its former value back. The flag must outlive it.
class CSetBool
{
public:
    CSetBool(bool& value, bool newValue) noexcept : mValue(&value), mFormer(value) { value = newValue; }
    CSetBool(const CSetBool&) = delete;
    CSetBool& operator=(const CSetBool&) = delete;
    ~CSetBool() { *mValue = mFormer; }

private:
    bool* mValue;
    bool mFormer;
};

} // namespace UTL
