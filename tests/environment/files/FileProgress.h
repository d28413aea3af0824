// SPDX-License-Identifier: MIT
#pragma once

#include "progress/model/BTL_ProgressInfo.h"

#include <stdexcept>
#include <vector>

namespace Support
{

/// Keeps what a walk through folders tells, and cancels it at a position.
class FileProgress : public BTL::AProgressInfo
{
public:
    System::Int64 getPosition() const override { return position; }
    void setPosition(System::Int64 value) override
    {
        position = value;
        if (position == cancelAt) {
            throw std::runtime_error("cancelled");
        }
    }
    void setText2(System::UnicodeString text) override { texts.push_back(text); }

    System::Int64 position = 0;
    System::Int64 cancelAt = -1;
    std::vector<System::UnicodeString> texts;
};

} // namespace Support
