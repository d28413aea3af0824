// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace Support
{

/// A variable of the environment, for the life of the object.
class ScopedVariable
{
public:
    /// Null unsets it.
    ScopedVariable(const char* name, const char* value) : mName(name)
    {
        if (const char* const former = std::getenv(name)) {
            mFormer = former;
        }
        Set(value);
    }
    ScopedVariable(const char* name, const std::string& value) : ScopedVariable(name, value.c_str()) {}
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() { Set(mFormer ? mFormer->c_str() : nullptr); }

    void Set(const char* value) const
    {
        if (value == nullptr) {
            unsetenv(mName);
        } else {
            setenv(mName, value, 1);
        }
    }

private:
    const char* mName;
    std::optional<std::string> mFormer;
};

} // namespace Support
