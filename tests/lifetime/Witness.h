// SPDX-License-Identifier: MIT
#pragma once

namespace Lifetime
{

/// Uses what the library keeps for the whole process, and writes a line of it into each log, behind `name`
/// and a bar.
void Testify(const char* name);

/// Testifies when its life ends.
class CWitness
{
public:
    /// `name` must be a literal.
    explicit constexpr CWitness(const char* name) : mName(name) {}
    CWitness(const CWitness&) = delete;
    CWitness& operator=(const CWitness&) = delete;
    ~CWitness() { Testify(mName); }

private:
    const char* mName;
};

} // namespace Lifetime
