// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/variants/internal/System_VariantValue.h"

#include <algorithm>
#include <limits>
#include <set>
#include <utility>
#include <vector>

namespace System
{

namespace
{

using Sysutils::EVariantError;

constexpr std::size_t MaxDimensions = 64;

struct TBounds
{
    int low;
    int high;

    std::size_t Count() const { return static_cast<std::size_t>(Int64{high} - low + 1); }
};

template <class... T>
using TVectors = std::variant<std::vector<T>...>;

/// The elements in the C++ type of their code.
using TElements = TVectors<Variant, signed char, short, int, Int64, Byte, Word, LongWord, UInt64, float,
                           double, bool, Currency, TDateTime, AnsiString, UnicodeString>;

class TVariantArray : public TSharedBlock
{
public:
    TVariantArray(Word type, std::vector<TBounds> givenBounds, TElements values, int givenDepth = 1)
        : elementType(type), bounds(std::move(givenBounds)), elements(std::move(values)), depth(givenDepth)
    {
    }
    ~TVariantArray() override = default;

    Word elementType;
    std::vector<TBounds> bounds;
    /// The first index runs fastest, so that a change of the last bound moves nothing.
    TElements elements;
    /// How deep arrays nest, this one included, or have nested. It bounds all that walks into them. The
    /// arrays inside stay as they are, since each is shared with whoever changes it.
    int depth;
};

[[noreturn]] void ThrowArray(const WideChar* message)
{
    throw EVariantError(UnicodeString(message));
}

TElements ElementsOf(Word type)
{
    switch (type) {
    case varVariant:
        return std::vector<Variant>();
    case varShortInt:
        return std::vector<signed char>();
    case varSmallint:
        return std::vector<short>();
    case varInteger:
        return std::vector<int>();
    case varInt64:
        return std::vector<Int64>();
    case varByte:
        return std::vector<Byte>();
    case varWord:
        return std::vector<Word>();
    case varLongWord:
        return std::vector<LongWord>();
    case varUInt64:
    case varDecimal:
        return std::vector<UInt64>();
    case varSingle:
        return std::vector<float>();
    case varDouble:
        return std::vector<double>();
    case varBoolean:
        return std::vector<bool>();
    case varCurrency:
        return std::vector<Currency>();
    case varDate:
        return std::vector<TDateTime>();
    case varString:
        return std::vector<AnsiString>();
    case varOleStr:
    case varUString:
        return std::vector<UnicodeString>();
    default:
        ThrowArray(u"No variant array has elements of this type");
    }
}

std::size_t CountOf(const std::vector<TBounds>& bounds)
{
    std::size_t count = 1;
    for (const TBounds& bound : bounds) {
        if (__builtin_mul_overflow(count, bound.Count(), &count)) {
            ThrowArray(u"Variant array is too large");
        }
    }
    return count;
}

void Resize(TElements& elements, std::size_t count)
{
    WithMemory(u"There is no memory for the elements of a variant array.",
               [&] { std::visit([count](auto& items) { items.resize(count); }, elements); });
}

TBounds MakeBounds(int low, int high)
{
    if (Int64{high} < Int64{low} - 1) {
        ThrowArray(u"Variant array has an upper bound below its lower bound");
    }
    return {low, high};
}

const TVariantArray& ArrayIn(const Variant& value)
{
    if (!value.IsArray()) {
        ThrowArray(u"Variant is not an array");
    }
    return static_cast<const TVariantArray&>(*std::get<Variant::TArray>(value.getValue()).get());
}

/// How deep an array is that holds `element`.
int DepthAround(const Variant& element)
{
    const int depth = element.IsArray() ? ArrayIn(element).depth + 1 : 1;
    if (depth > Variant::MaxArrayDepth) {
        ThrowArray(u"Variant arrays are nested too deeply");
    }
    return depth;
}

/// The array of a variant that is one, for writing: `value` parts from all other holders first.
TVariantArray& OwnArrayIn(Variant::TValue& value)
{
    auto& holder = std::get<Variant::TArray>(value);
    if (!holder.IsUnique()) {
        const auto& array = static_cast<const TVariantArray&>(*holder.get());
        holder =
            Variant::TArray(new TVariantArray(array.elementType, array.bounds, array.elements, array.depth));
    }
    return static_cast<TVariantArray&>(*holder.get());
}

std::size_t PlaceOf(const TVariantArray& array, std::span<const int> indices)
{
    if (indices.size() != array.bounds.size()) {
        ThrowArray(u"Variant array has another count of dimensions");
    }
    std::size_t place = 0;
    std::size_t step = 1;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const TBounds bound = array.bounds[i];
        if (indices[i] < bound.low || indices[i] > bound.high) {
            ThrowArray(u"Variant array index out of bounds");
        }
        place += static_cast<std::size_t>(Int64{indices[i]} - bound.low) * step;
        step *= bound.Count();
    }
    return place;
}

const TBounds& BoundsOf(const Variant& value, int dimension)
{
    const TVariantArray& array = ArrayIn(value);
    if (dimension < 1 || static_cast<std::size_t>(dimension) > array.bounds.size()) {
        ThrowArray(u"Variant array has no such dimension");
    }
    return array.bounds[static_cast<std::size_t>(dimension) - 1];
}

Variant ElementAt(const TVariantArray& array, std::size_t place)
{
    Variant element = std::visit(
        [place](const auto& items) {
            using Item = typename std::remove_cvref_t<decltype(items)>::value_type;
            return Variant(static_cast<Item>(items[place]));
        },
        array.elements);
    // Two codes share their C++ type with another one.
    return array.elementType == varVariant ? element : element.AsType(array.elementType);
}

} // namespace

Variant Variant::CreateArray(std::span<const int> bounds, Word elementType)
{
    if (bounds.empty() || bounds.size() % 2 != 0 || bounds.size() / 2 > MaxDimensions) {
        ThrowArray(u"Variant array has no such bounds");
    }
    std::vector<TBounds> pairs;
    for (std::size_t i = 0; i < bounds.size(); i += 2) {
        pairs.push_back(MakeBounds(bounds[i], bounds[i + 1]));
    }
    TElements elements = ElementsOf(elementType);
    Resize(elements, CountOf(pairs));
    return {static_cast<Word>(varArray | elementType),
            TArray(new TVariantArray(elementType, std::move(pairs), std::move(elements)))};
}

Variant Variant::ArrayOf(std::span<const Variant> values)
{
    if (values.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        ThrowArray(u"Variant array is too large");
    }
    int depth = 1;
    for (const Variant& value : values) {
        depth = std::max(depth, DepthAround(value));
    }
    const TBounds bounds{0, static_cast<int>(values.size()) - 1};
    return {varArray | varVariant,
            TArray(new TVariantArray(varVariant, {bounds}, std::vector<Variant>(values.begin(), values.end()),
                                     depth))};
}

int Variant::ArrayDimCount() const noexcept
{
    return IsArray() ? static_cast<int>(ArrayIn(*this).bounds.size()) : 0;
}

int Variant::ArrayLowBound(int dimension) const
{
    return BoundsOf(*this, dimension).low;
}

int Variant::ArrayHighBound(int dimension) const
{
    return BoundsOf(*this, dimension).high;
}

void Variant::ArrayRedim(int highBound)
{
    std::vector<TBounds> bounds = ArrayIn(*this).bounds;
    bounds.back() = MakeBounds(bounds.back().low, highBound);
    const std::size_t count = CountOf(bounds);
    TVariantArray& array = OwnArrayIn(mValue);
    Resize(array.elements, count);
    array.bounds = std::move(bounds);
}

Variant Variant::GetElementAt(std::span<const int> indices) const
{
    const TVariantArray& array = ArrayIn(*this);
    return ElementAt(array, PlaceOf(array, indices));
}

void Variant::PutElementAt(const Variant& value, std::span<const int> indices)
{
    const std::size_t place = PlaceOf(ArrayIn(*this), indices);
    // Held here, as the value may be this array itself.
    const Variant copy = value;
    const int depth = DepthAround(copy);
    TVariantArray& array = OwnArrayIn(mValue);
    std::visit(
        [&](auto& items) {
            using Item = typename std::remove_cvref_t<decltype(items)>::value_type;
            if constexpr (std::same_as<Item, Variant>) {
                items[place] = copy;
                array.depth = std::max(array.depth, depth);
            } else {
                items[place] = copy.As<Item>();
            }
        },
        array.elements);
}

std::span<const Byte> Variant::ArrayBytes() const
{
    const auto* bytes = std::get_if<std::vector<Byte>>(&ArrayIn(*this).elements);
    if (bytes == nullptr) {
        ThrowArray(u"Variant is not an array of bytes");
    }
    return *bytes;
}

std::span<Byte> Variant::ArrayBytes()
{
    if (mType != (varArray | varByte)) {
        ThrowArray(u"Variant is not an array of bytes");
    }
    return std::get<std::vector<Byte>>(OwnArrayIn(mValue).elements);
}

namespace
{

/// Compares arrays, and remembers which pairs it found equal: an array that holds another one twice, which
/// holds a third one twice and so on would take twice the time with each level.
class CArrayComparison
{
public:
    using AreEqual = bool (*)(const Variant&, const Variant&);

    explicit CArrayComparison(AreEqual areEqual) : mAreEqual(areEqual) {}

    bool AreArraysEqual(const TVariantArray& a, const TVariantArray& b)
    {
        const auto haveSameBounds = [](const TBounds& m, const TBounds& n) {
            return m.low == n.low && m.high == n.high;
        };
        if (!std::ranges::equal(a.bounds, b.bounds, haveSameBounds)) {
            return false;
        }
        const std::pair pair(&a, &b);
        if (mEqual.contains(pair)) {
            return true;
        }
        const std::size_t count = CountOf(a.bounds);
        for (std::size_t i = 0; i < count; ++i) {
            if (!AreElementsEqual(ElementAt(a, i), ElementAt(b, i))) {
                return false;
            }
        }
        // The flat ones are compared as often as others hold them.
        if (a.depth > 1) {
            mEqual.insert(pair);
        }
        return true;
    }

private:
    bool AreElementsEqual(const Variant& a, const Variant& b)
    {
        return a.IsArray() && b.IsArray() ? AreArraysEqual(ArrayIn(a), ArrayIn(b)) : mAreEqual(a, b);
    }

    AreEqual mAreEqual;
    std::set<std::pair<const TVariantArray*, const TVariantArray*>> mEqual;
};

} // namespace

namespace Detail
{

bool AreArraysEqual(const Variant& a, const Variant& b, bool (*areEqual)(const Variant&, const Variant&))
{
    return a.IsArray() && b.IsArray() && CArrayComparison(areEqual).AreArraysEqual(ArrayIn(a), ArrayIn(b));
}

const void* ArrayIdentity(const Variant& array)
{
    return &ArrayIn(array);
}

} // namespace Detail

} // namespace System
