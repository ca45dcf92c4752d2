#include "platform/automation/array.h"

#include <algorithm>
#include <limits>
#include <memory>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/memory_account.h"
#include "platform/automation/variant.h"

namespace ov {

Array::Rep::Rep() : element(VarType::Empty) {}

Array::Rep::Rep(const Rep& other)
    : element(other.element), fixed(other.fixed), bounds(other.bounds), elements(other.elements), bytes(other.bytes) {
    Complete();
}

Array::Rep::~Rep() {
    MemoryAccount::Return(accounted);
}

std::size_t Array::Rep::Size() const noexcept {
    return element == VarType::Byte ? bytes.size() : elements.size();
}

// When all elements are there: takes their bytes into the account and notes the short way to them.
void Array::Rep::Complete() {
    const std::size_t now = sizeof(Rep) + elements.size() * sizeof(Variant) + bytes.size();
    MemoryAccount::Take(now);
    accounted = now;
    if (bounds.size() != 1) return;
    lower = bounds[0].lower;
    count = static_cast<std::uint32_t>(elements.size());
    row = elements.data();
}

namespace {

Variant StartValue(VarType element) {
    return element == VarType::Object ? Variant::Nothing() : ConvertTo(element, Variant());
}

std::size_t CountElements(std::span<const ArrayBound> bounds, std::size_t elementBytes) {
    std::size_t count = 1;
    for (const ArrayBound& bound : bounds) {
        if (bound.count < 0) Raise(ErrorNumber::SubscriptOutOfRange);
        if (bound.count != 0 && count > (std::size_t{1} << 40) / static_cast<std::size_t>(bound.count)) {
            Raise(ErrorNumber::OutOfMemory);
        }
        count *= static_cast<std::size_t>(bound.count);
    }
    // Asked for before it is had, so that a script's limit stops an array of any size.
    MemoryAccount::Take(count * elementBytes);
    MemoryAccount::Return(count * elementBytes);
    return count;
}

}  // namespace

Array::Array(VarType element, std::span<const ArrayBound> bounds) {
    const bool isBytes = element == VarType::Byte;
    const std::size_t count = CountElements(bounds, isBytes ? 1 : sizeof(Variant));
    auto rep = std::make_unique<Rep>();
    rep->element = element;
    rep->bounds.assign(bounds.begin(), bounds.end());
    if (isBytes) {
        rep->bytes.resize(count);
    } else {
        rep->elements.resize(count, StartValue(element));
    }
    rep->Complete();
    mRep = rep.release();
}

Array::Array(const Array& other) noexcept : mRep(other.mRep) {
    if (mRep) ++mRep->references;
}

Array::~Array() {
    if (mRep) Release(mRep);
}

void Array::Release(Rep* rep) noexcept {
    if (--rep->references == 0) delete rep;
}

Array Array::Of(VarType element, std::vector<Variant> elements, std::int32_t lower) {
    auto rep = std::make_unique<Rep>();
    rep->element = element;
    rep->bounds = {{lower, static_cast<std::int32_t>(elements.size())}};
    rep->elements = std::move(elements);
    rep->Complete();
    Array array;
    array.mRep = rep.release();
    return array;
}

Array Array::OfVariants(std::vector<Variant> elements, std::int32_t lower) {
    return Of(VarType::Empty, std::move(elements), lower);
}

Array Array::OfBytes(std::vector<std::uint8_t> bytes, std::int32_t lower) {
    auto rep = std::make_unique<Rep>();
    rep->element = VarType::Byte;
    rep->bounds = {{lower, static_cast<std::int32_t>(bytes.size())}};
    rep->bytes = std::move(bytes);
    rep->Complete();
    Array array;
    array.mRep = rep.release();
    return array;
}

std::size_t Array::Rank() const noexcept {
    return mRep ? mRep->bounds.size() : 0;
}

std::int32_t Array::LowerBound(std::size_t dimension) const {
    if (dimension < 1 || dimension > Rank()) Raise(ErrorNumber::SubscriptOutOfRange);
    return mRep->bounds[dimension - 1].lower;
}

std::int32_t Array::UpperBound(std::size_t dimension) const {
    if (dimension < 1 || dimension > Rank()) Raise(ErrorNumber::SubscriptOutOfRange);
    const ArrayBound& bound = mRep->bounds[dimension - 1];
    return bound.lower + bound.count - 1;
}

std::size_t Array::size() const noexcept {
    return mRep ? mRep->Size() : 0;
}

VarType Array::ElementType() const noexcept {
    return mRep ? mRep->element : VarType::Empty;
}

std::size_t Array::Position(std::span<const std::int32_t> indexes) const {
    if (indexes.empty() || indexes.size() != Rank()) Raise(ErrorNumber::SubscriptOutOfRange);
    std::size_t position = 0;
    std::size_t stride = 1;
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        const ArrayBound& bound = mRep->bounds[i];
        const std::int64_t offset = std::int64_t{indexes[i]} - bound.lower;
        if (offset < 0 || offset >= bound.count) Raise(ErrorNumber::SubscriptOutOfRange);
        position += static_cast<std::size_t>(offset) * stride;
        stride *= static_cast<std::size_t>(bound.count);
    }
    return position;
}

void Array::Detach() {
    if (mRep->references == 1) return;
    Rep* own = new Rep(*mRep);
    --mRep->references;
    mRep = own;
}

Variant Array::Get(std::span<const std::int32_t> indexes) const {
    return At(Position(indexes));
}

Variant Array::At(std::size_t position) const {
    return mRep->element == VarType::Byte ? Variant(mRep->bytes[position]) : mRep->elements[position];
}

void Array::Set(std::span<const std::int32_t> indexes, const Variant& value) {
    const std::size_t position = Position(indexes);
    if (mRep->element == VarType::Byte) {
        const std::uint8_t byte = ToByte(value);
        Detach();
        mRep->bytes[position] = byte;
        return;
    }
    Variant converted = ConvertTo(mRep->element, value);
    Detach();
    mRep->elements[position] = std::move(converted);
}

Variant& Array::Element(std::span<const std::int32_t> indexes) {
    const std::size_t position = Position(indexes);
    if (mRep->element == VarType::Byte) Raise(ErrorNumber::InternalError);
    Detach();
    return mRep->elements[position];
}

std::span<const std::uint8_t> Array::Bytes() const noexcept {
    return mRep ? std::span<const std::uint8_t>(mRep->bytes) : std::span<const std::uint8_t>();
}

std::span<const Variant> Array::Elements() const noexcept {
    return mRep ? std::span<const Variant>(mRep->elements) : std::span<const Variant>();
}

void Array::Redimension(std::span<const ArrayBound> bounds, bool preserve) {
    if (IsFixed()) Raise(ErrorNumber::ArrayFixedOrLocked);
    Array fresh(ElementType(), bounds);
    if (preserve && mRep) {
        if (bounds.size() != Rank()) Raise(ErrorNumber::SubscriptOutOfRange);
        for (std::size_t i = 0; i < bounds.size(); ++i) {
            const ArrayBound& old = mRep->bounds[i];
            const bool last = i + 1 == bounds.size();
            if (old.lower != bounds[i].lower || (!last && old.count != bounds[i].count)) {
                Raise(ErrorNumber::SubscriptOutOfRange);
            }
        }
        // Only the slowest index changed, so the common elements are the leading ones.
        const std::size_t common = std::min(size(), fresh.size());
        if (mRep->element == VarType::Byte) {
            std::copy_n(mRep->bytes.begin(), common, fresh.mRep->bytes.begin());
        } else {
            std::copy_n(mRep->elements.begin(), common, fresh.mRep->elements.begin());
        }
    }
    *this = std::move(fresh);
}

void Array::MarkFixed() {
    if (mRep) mRep->fixed = true;
}

bool Array::IsFixed() const noexcept {
    return mRep && mRep->fixed;
}

void Array::Erase() {
    if (!IsFixed()) {
        *this = Array();
        return;
    }
    Array fresh(mRep->element, mRep->bounds);
    fresh.MarkFixed();
    *this = std::move(fresh);
}

}  // namespace ov
