// SPDX-License-Identifier: MIT
#include "config/JCPP_Variants.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <json/value.h>

using System::UnicodeString;
using System::Variant;

namespace
{

constexpr auto LargestInt64 = std::numeric_limits<System::Int64>::max();

TEST(VariantsOfJsonTest, JsonBecomesVariants)
{
    const Json::Value object(Json::objectValue);
    const std::vector<std::pair<Json::Value, Variant>> rows = {
        {Json::Value(), Variants::Null()},
        {true, true},
        {-5, -5},
        {2.0, 2},
        {Json::Int64{1} << 40, System::Int64{1} << 40},
        {Json::UInt{4'000'000'000}, System::Int64{4'000'000'000}},
        {Json::UInt64{18'446'744'073'709'551'615u}, System::Int64{-1}},
        {"\xC3\xA4", UnicodeString(u"\u00E4")},
        {"5", UnicodeString(u"5")},
        {1.5, Variants::Unassigned()},
        {1e300, Variants::Unassigned()},
        {Json::Value(Json::arrayValue), Variants::Unassigned()},
        {object, Variants::Unassigned()},
    };
    for (const auto& [json, variant] : rows) {
        SCOPED_TRACE(json.toStyledString());
        const Variant result = JCPP::JsonValueToVariant(json);
        EXPECT_EQ(result.Type(), variant.Type());
        EXPECT_TRUE(result == variant);
    }
}

TEST(VariantsOfJsonTest, VariantsBecomeJson)
{
    const std::vector<std::pair<Variant, Json::Value>> rows = {
        {static_cast<short>(-2), -2},
        {-3, -3},
        {System::Byte{200}, 200},
        {1.5f, 1.5},
        {0.1, 0.1},
        {System::Currency(2.25), 2.25},
        {UnicodeString(u"\u00E4\u03B1"), "\xC3\xA4\xCE\xB1"},
        {System::AnsiString("\xE4"), "\xC3\xA4"},
        {true, true},
        {false, false},
        {Variant(18'446'744'073'709'551'615u).AsType(System::varDecimal),
         Json::UInt64{18'446'744'073'709'551'615u}},
        {4'000'000'000u, Json::Int64{4'000'000'000}},
        {LargestInt64, Json::Int64{LargestInt64}},
        {18'446'744'073'709'551'615u, Json::Int64{-1}},
        {Variants::Null(), Json::Value()},
        {Variants::Unassigned(), Json::Value()},
        {System::TDateTime(1.0), Json::Value()},
        {static_cast<signed char>(1), Json::Value()},
        {System::Word{1}, Json::Value()},
    };
    for (const auto& [variant, json] : rows) {
        SCOPED_TRACE(json.toStyledString());
        const Json::Value result = JCPP::VariantToJsonValue(variant);
        EXPECT_EQ(result.type(), json.type());
        EXPECT_EQ(result, json);
    }
    EXPECT_THROW(JCPP::VariantToJsonValue(Variant({0, 1}, System::varInteger)), Sysutils::EVariantError);
}

} // namespace
