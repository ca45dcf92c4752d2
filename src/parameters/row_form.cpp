#include "parameters/row_form.h"

#include <limits>

#include "platform/automation/conversions.h"

namespace ov {

namespace {

constexpr std::array<std::u16string_view, 6> kOtherColumns = {u"idx",     u"ParameterId",        u"kind",
                                                              u"subtype", u"removeOnDependency", u"actionOnChange"};
constexpr std::size_t kRules = static_cast<std::size_t>(RuleColumn::DefaultValue) + 1;
constexpr std::size_t kCells = kRules + kOtherColumns.size();

/// The places of the cells in rows of one table.
class ParameterColumns final : public Finding {
public:
    explicit ParameterColumns(const ColumnNames& names) {
        for (std::size_t cell = 0; cell < kCells; ++cell) {
            const std::optional<std::size_t> column = names.Find(ColumnName(static_cast<RowCell>(cell)));
            mPlaces[cell] = static_cast<std::uint16_t>(column.value_or(kNowhere));
        }
    }
    const Variant* Find(const Row& row, RowCell cell) const noexcept {
        const std::uint16_t place = mPlaces[static_cast<std::size_t>(cell)];
        return place != kNowhere ? &row[place] : nullptr;
    }

private:
    static constexpr std::uint16_t kNowhere = std::numeric_limits<std::uint16_t>::max();

    std::array<std::uint16_t, kCells> mPlaces{};
};

/// What is worked out of a row.
class RowForm final : public Finding {
public:
    explicit RowForm(Text key) : mKey(std::move(key)) {}
    const Text& Key() const noexcept { return mKey; }

private:
    Text mKey;
};

}  // namespace

std::u16string_view ColumnName(RowCell cell) noexcept {
    const auto place = static_cast<std::size_t>(cell);
    return place < kRules ? ColumnName(static_cast<RuleColumn>(cell)) : kOtherColumns[place - kRules];
}

const Variant* FindCell(const Collection& row, RowCell cell) {
    const Row* shown = row.Shown();
    if (!shown) return row.Find(ColumnName(cell));
    const ColumnNames& names = *shown->Columns();
    if (!names.found.get()) names.found.Keep(std::make_unique<ParameterColumns>(names));
    return static_cast<const ParameterColumns*>(names.found.get())->Find(*shown, cell);
}

const Text& ParameterKey(const Row& row, std::size_t id) {
    if (!row.found.get()) row.found.Keep(std::make_unique<RowForm>(ToText(row[id])));
    return static_cast<const RowForm*>(row.found.get())->Key();
}

}  // namespace ov
