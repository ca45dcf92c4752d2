#include "platform/automation/collection.h"

#include <array>
#include <bit>
#include <memory>
#include <new>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& ICollection::Members() {
    static constexpr std::array kMembers = {
        member<&ICollection::Count>("Count"),     member<&ICollection::Item>("Item").AsDefault(),
        member<&ICollection::Add>("Add"),         member<&ICollection::Remove>("Remove"),
        member<&ICollection::NewEnum>("NewEnum"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

ColumnNames::ColumnNames(std::vector<Text> names) : mNames(std::move(names)) {
    mIndex.resize(std::bit_ceil(mNames.size() * 2 + 1));
    const std::size_t mask = mIndex.size() - 1;
    for (std::size_t column = 0; column < mNames.size(); ++column) {
        mHashes.push_back(HashNoCase(mNames[column]));
        std::size_t at = mHashes[column] & mask;
        while (mIndex[at] != 0) {
            at = (at + 1) & mask;
        }
        mIndex[at] = static_cast<std::uint16_t>(column + 1);
    }
}

std::optional<std::size_t> ColumnNames::Find(std::u16string_view name) const noexcept {
    const std::uint32_t hash = HashNoCase(name);
    const std::size_t mask = mIndex.size() - 1;
    for (std::size_t at = hash & mask; mIndex[at] != 0; at = (at + 1) & mask) {
        const std::size_t column = mIndex[at] - 1u;
        if (mHashes[column] == hash && EqualNoCase(mNames[column], name)) return column;
    }
    return std::nullopt;
}

namespace {

/// Walks a live collection: items that are removed meanwhile are passed over.
class CollectionEnumerator final : public Object<CollectionEnumerator, Facet<IEnumVariant>> {
public:
    static constexpr const char* kClassName = "Enumerator";

    explicit CollectionEnumerator(Collection* collection) : mWalk(collection) {}
    bool Next(Variant& item) override {
        const Variant* next = mWalk.Next();
        if (next) item = *next;
        return next != nullptr;
    }
    void Reset() override { mWalk.Reset(); }

private:
    Collection::Walk mWalk;
};

}  // namespace

Collection::Walk::Walk(Ref<Collection> collection) : mCollection(std::move(collection)) {
    mCollection->MakeTable().Watch(mCursor);
}

Collection::Walk::~Walk() {
    mCollection->mTable->Unwatch(mCursor);
}

static_assert(sizeof(Row) % alignof(Variant) == 0);

Ref<Row> Row::Make(std::shared_ptr<const ColumnNames> columns) {
    const std::size_t count = columns->size();
    void* memory = ::operator new(sizeof(Row) + count * sizeof(Variant));
    Row* row = new (memory) Row(std::move(columns));
    std::uninitialized_default_construct_n(row->Values(), count);
    return Ref<Row>::Adopt(row);
}

Row::~Row() {
    std::destroy_n(Values(), size());
}

std::uint32_t Row::Release() const noexcept {
    const std::uint32_t left = --mReferences;
    if (left != 0) return left;
    this->~Row();
    ::operator delete(const_cast<Row*>(this));
    return 0;
}

Collection::Collection(Ref<const Row> row) noexcept : mRow(std::move(row)) {}

Collection::Collection(std::shared_ptr<const ColumnNames> columns, std::unique_ptr<Variant[]> values) {
    const Ref<Row> row = Row::Make(std::move(columns));
    std::move(values.get(), values.get() + row->size(), row->Values());
    mRow = row;
}

Collection::~Collection() = default;

std::size_t Collection::size() const noexcept {
    return mRow ? mRow->size() : mTable ? mTable->size() : 0;
}

std::int32_t Collection::Count() {
    return static_cast<std::int32_t>(size());
}

Collection::Table& Collection::MakeTable() {
    if (!mTable) mTable = std::make_unique<Table>();
    return *mTable;
}

// A row that is to be changed gets keys of its own. Its items keep their positions.
Collection::Table& Collection::Own() {
    Table& table = MakeTable();
    if (const Ref<const Row> row = std::exchange(mRow, nullptr)) {
        const ColumnNames& columns = *row->Columns();
        table.Reserve(row->size() + 1);
        for (std::size_t i = 0; i < row->size(); ++i) {
            const Text& name = columns[i];
            const bool keyed = columns.Find(name) == i;  // a name's second place has no key
            table.Append({(*row)[i], keyed ? name : Text(), HashNoCase(name), keyed});
        }
    }
    return table;
}

Collection::Entry* Collection::FindOwn(std::u16string_view key) const noexcept {
    if (!mTable) return nullptr;
    return mTable->Find(HashNoCase(key), [key](const Entry& entry) { return EqualNoCase(entry.key, key); });
}

const Variant* Collection::Find(std::u16string_view key) const noexcept {
    if (mRow) {
        const std::optional<std::size_t> column = mRow->Columns()->Find(key);
        return column ? &(*mRow)[*column] : nullptr;
    }
    const Entry* entry = FindOwn(key);
    return entry ? &entry->item : nullptr;
}

const Variant& Collection::Get(std::u16string_view key) const {
    const Variant* item = Find(key);
    if (!item) Raise(ErrorNumber::InvalidProcedureCall);
    return *item;
}

std::size_t Collection::PositionOf(const Variant& index) {
    const std::int32_t position = ToLong(index);
    if (position < 1 || static_cast<std::size_t>(position) > size()) Raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(position) - 1;
}

Variant Collection::Item(const Variant& index) {
    const Variant value = DefaultValue(index);
    return value.IsString() ? Get(value.AsText()) : *At(PositionOf(value)).second;
}

std::pair<Text, const Variant*> Collection::At(std::size_t position) {
    if (mRow) return {(*mRow->Columns())[position], &(*mRow)[position]};
    Entry& entry = mTable->At(position);
    return {entry.key, &entry.item};
}

void Collection::Append(Variant item) {
    Own().Append({std::move(item), Text(), 0, false});
}

bool Collection::TryAdd(Text key, Variant item) {
    if (Find(key)) return false;
    const std::uint32_t hash = HashNoCase(key);
    Own().Append({std::move(item), std::move(key), hash, true});
    return true;
}

void Collection::Add(const Variant& item, const std::optional<Text>& key, const std::optional<Variant>& before,
                     const std::optional<Variant>& after) {
    if (before && after) Raise(ErrorNumber::InvalidProcedureCall);
    if (key && Find(*key)) Raise(ErrorNumber::KeyAlreadyAssociated);
    Entry entry{item, key.value_or(Text()), key ? HashNoCase(*key) : 0, key.has_value()};
    Table& table = Own();
    if (!before && !after) {
        table.Append(std::move(entry));
        return;
    }
    const Variant place = DefaultValue(before ? *before : *after);
    Entry* neighbour = place.IsString() ? FindOwn(place.AsText()) : &table.At(PositionOf(place));
    if (!neighbour) Raise(ErrorNumber::InvalidProcedureCall);
    if (before) {
        table.InsertBefore(neighbour, std::move(entry));
    } else {
        table.InsertBehind(neighbour, std::move(entry));
    }
}

void Collection::Remove(const Variant& index) {
    const Variant value = DefaultValue(index);
    if (!value.IsString()) {
        RemoveAt(PositionOf(value));
    } else if (!RemoveKey(value.AsText())) {
        Raise(ErrorNumber::InvalidProcedureCall);
    }
}

bool Collection::RemoveKey(std::u16string_view key) {
    if (!Find(key)) return false;
    Table& table = Own();
    const Entry ended = table.Remove(FindOwn(key));
    return true;
}

void Collection::RemoveAt(std::size_t position) {
    Table& table = Own();
    const Entry ended = table.Remove(&table.At(position));
}

void Collection::Clear() {
    const Ref<const Row> row = std::exchange(mRow, nullptr);
    if (mTable) const auto ended = mTable->TakeAll();
}

const Variant* Collection::Next(std::size_t& cursor) {
    if (mRow) return cursor < mRow->size() ? &(*mRow)[cursor++] : nullptr;
    const Entry* entry = mTable ? mTable->Next(cursor) : nullptr;
    return entry ? &entry->item : nullptr;
}

Ref<IEnumVariant> Collection::NewEnum() {
    return MakeObject<CollectionEnumerator>(this);
}

}  // namespace ov
