/// @file
/// The keyed collection: items in order, some of them under a text key.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/automation/dispatch.h"
#include "platform/automation/enumeration.h"
#include "platform/automation/object.h"
#include "platform/automation/ordered_table.h"

namespace ov {

/// The keyed collection as hosts and scripts see it.
class ICollection : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{5B0C7A52-3D1E-4C57-9B9C-6A7F0E1D2C41}");
    static constexpr const char* kName = "_Collection";
    static const InterfaceInfo& Members();

    virtual std::int32_t Count() = 0;
    /// The item under a text key, without regard to case, or at a position from 1 on. The default member.
    /// @throws RuntimeError 5 for a missing key, 9 for a position out of range.
    virtual Variant Item(const Variant& index) = 0;
    /// Adds an item at the end, or before or behind another one. @throws RuntimeError 457 for a key that is taken.
    virtual void Add(const Variant& item, const std::optional<Text>& key, const std::optional<Variant>& before,
                     const std::optional<Variant>& after) = 0;
    /// @throws as Item
    virtual void Remove(const Variant& index) = 0;
    virtual Ref<IEnumVariant> NewEnum() = 0;
};

/// What the user of a thing that many share has worked out of it, kept there so that it is worked out once.
class Finding {
public:
    virtual ~Finding() = default;
};

/// A place for a Finding beside what it was found in. There is one user, who knows the class of it.
class KeptFinding {
public:
    const Finding* get() const noexcept { return mFinding.get(); }
    void Keep(std::unique_ptr<const Finding> finding) const noexcept { mFinding = std::move(finding); }

private:
    mutable std::unique_ptr<const Finding> mFinding;
};

/// The names of a recordset's columns in their order, shared by all rows that were copied from it.
class ColumnNames {
public:
    /// Of the parameters: where the columns are that they read.
    KeptFinding found;

    /// A name that occurs twice is found at its first place.
    explicit ColumnNames(std::vector<Text> names);

    std::size_t size() const noexcept { return mNames.size(); }
    const Text& operator[](std::size_t column) const noexcept { return mNames[column]; }
    /// The number of a column by name without regard to case, or nullopt.
    std::optional<std::size_t> Find(std::u16string_view name) const noexcept;

private:
    std::vector<Text> mNames;
    std::vector<std::uint32_t> mHashes;
    std::vector<std::uint16_t> mIndex;  // hash table of column numbers plus 1
};

/// A descriptor row: values under the names of their columns. Whoever shows or uses the row shares it, so nobody
/// changes it once it is filled.
class Row {
public:
    /// Of the parameters: what the row says to each one that it describes.
    KeptFinding found;

    /// A row whose values, all Empty as yet, are filled before it is shared.
    static Ref<Row> Make(std::shared_ptr<const ColumnNames> columns);
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    const std::shared_ptr<const ColumnNames>& Columns() const noexcept { return mColumns; }
    std::size_t size() const noexcept { return mColumns->size(); }
    const Variant& operator[](std::size_t column) const noexcept { return Values()[column]; }
    const Variant* Values() const noexcept { return reinterpret_cast<const Variant*>(this + 1); }
    Variant* Values() noexcept { return reinterpret_cast<Variant*>(this + 1); }

    std::uint32_t AddRef() const noexcept { return ++mReferences; }
    std::uint32_t Release() const noexcept;

private:
    explicit Row(std::shared_ptr<const ColumnNames> columns) noexcept : mColumns(std::move(columns)) {}
    ~Row();

    std::shared_ptr<const ColumnNames> mColumns;
    mutable std::uint32_t mReferences = 1;
    // The values lie behind it.
};

/// The keyed collection. A descriptor row is one that shows a Row: it costs next to nothing until somebody adds or
/// removes an item, for which it takes a copy.
class Collection final : public Object<Collection, Facet<ICollection>> {
public:
    static constexpr const char* kClassName = "Collection";

    Collection() noexcept = default;
    /// A descriptor row.
    explicit Collection(Ref<const Row> row) noexcept;
    /// A descriptor row of its own. @pre values has one item for each of the names
    Collection(std::shared_ptr<const ColumnNames> columns, std::unique_ptr<Variant[]> values);
    ~Collection();

    std::int32_t Count() override;
    Variant Item(const Variant& index) override;
    void Add(const Variant& item, const std::optional<Text>& key, const std::optional<Variant>& before,
             const std::optional<Variant>& after) override;
    void Remove(const Variant& index) override;
    Ref<IEnumVariant> NewEnum() override;

    std::size_t size() const noexcept;
    /// Whether this is a descriptor row that nobody has added to or removed from.
    bool IsRow() const noexcept { return static_cast<bool>(mRow); }
    /// The row that it shows; Nothing for what is none.
    const Row* Shown() const noexcept { return mRow.get(); }
    /// Changes whenever items come, go or move. Not for rows.
    std::uint32_t Changes() const noexcept { return mTable ? mTable->Changes() : 0; }
    /// The item under @p key, or nullptr. Valid until the next change.
    const Variant* Find(std::u16string_view key) const noexcept;
    /// The item under @p key. @throws RuntimeError 5 if there is none.
    const Variant& Get(std::u16string_view key) const;
    /// Adds an item without key at the end.
    void Append(Variant item);
    /// Adds an item at the end, or answers false, with nothing changed, if the key is taken.
    bool TryAdd(Text key, Variant item);
    /// The item and its key ("" if it has none) at a position from 0 on. @pre position < size()
    std::pair<Text, const Variant*> At(std::size_t position);
    /// Answers false if the key is not there.
    bool RemoveKey(std::u16string_view key);
    /// @pre position < size()
    void RemoveAt(std::size_t position);
    void Clear();
    /// The item at or behind @p cursor, which starts at 0, or nullptr at the end. @see Walk
    const Variant* Next(std::size_t& cursor);

    /// A walk through a collection that may change between the steps: every item that stays is met once, and one that
    /// is added if it stands behind the place reached.
    class Walk {
    public:
        explicit Walk(Ref<Collection> collection);
        ~Walk();
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        /// The next item, or nullptr at the end. Valid until the next change.
        const Variant* Next() { return mCollection->Next(mCursor); }
        void Reset() noexcept { mCursor = 0; }
        /// Where the walk stands, for MoveTo as long as the collection has not changed.
        std::size_t Place() const noexcept { return mCursor; }
        void MoveTo(std::size_t place) noexcept { mCursor = place; }

    private:
        Ref<Collection> mCollection;
        std::size_t mCursor = 0;
    };

private:
    struct Entry {
        Variant item;
        Text key;
        std::uint32_t hash = 0;
        bool keyed = false;
    };
    using Table = OrderedTable<Entry>;

    Table& MakeTable();
    Table& Own();
    Entry* FindOwn(std::u16string_view key) const noexcept;
    std::size_t PositionOf(const Variant& index);

    // Either a row or a table of its own; an empty collection has neither. A row that is walked has a table as well,
    // for the cursors, which is empty until the row becomes its own.
    Ref<const Row> mRow;
    std::unique_ptr<Table> mTable;
};

}  // namespace ov
