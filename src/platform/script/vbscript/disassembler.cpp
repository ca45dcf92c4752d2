#include "platform/script/vbscript/disassembler.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "platform/automation/conversions.h"
#include "platform/script/vbscript/forms.h"
#include "platform/script/vbscript/opcode_table.h"

namespace ov::vbscript {

namespace {

std::string_view KindName(ProcedureKind kind) noexcept {
    switch (kind) {
        case ProcedureKind::Sub:
            return "Sub";
        case ProcedureKind::Function:
            return "Function";
        case ProcedureKind::Get:
            return "Property Get";
        case ProcedureKind::Let:
            return "Property Let";
        case ProcedureKind::Set:
            return "Property Set";
        default:
            return "Statements";
    }
}

std::string LiteralOf(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty:
            return "Empty";
        case VarType::Null:
            return "Null";
        case VarType::Missing:
            return "Missing";
        case VarType::Object:
            return "Nothing";
        case VarType::String:
            return "\"" + ReplaceAll(value.AsText(), u"\"", u"\"\"").ToUtf8() + "\"";
        case VarType::Date:
            return "#" + ToText(value).ToUtf8() + "#";
        default:
            return ToText(value).ToUtf8();
    }
}

/// Writes one procedure.
class Listing {
public:
    Listing(std::ostream& out, const Code& code, const ClassCode* owner, std::string_view indent)
        : mOut(out), mCode(code), mOwner(owner), mIndent(indent) {}

    void Write() {
        mOut << mIndent << KindName(mCode.kind);
        if (mCode.kind != ProcedureKind::Main) WriteHead();
        mOut << "\n";
        for (std::uint32_t pc = 0; pc < mCode.instructions.size(); ++pc) {
            WriteLine(pc);
        }
    }

private:
    void WriteHead() {
        mOut << " " << mCode.name.ToUtf8() << "(";
        for (std::uint16_t i = 0; i < mCode.parameters; ++i) {
            const bool byValue = std::ranges::find(mCode.byValue, i) != mCode.byValue.end();
            mOut << (i == 0 ? "" : ", ") << (byValue ? "ByVal " : "") << mCode.NameOfLocal(i).ToUtf8();
        }
        mOut << ")";
    }

    void WriteLine(std::uint32_t pc) {
        const Instruction& i = mCode.instructions[pc];
        const OpcodeInfo& info = InfoOf(GeneralOf(i.op));
        std::ostringstream line;
        line << mIndent << std::setw(9) << std::right << PlaceAt(pc) << std::setw(6) << pc << "  " << std::setw(23)
             << std::left << info.name;
        const std::uint32_t values[] = {i.a, i.b, i.c};
        std::string_view separator;
        for (std::size_t k = 0; k < info.operands.size(); ++k) {
            const std::string text = OperandText(info.operands[k], values[k], pc);
            if (text.empty()) continue;
            line << separator << text;
            separator = ", ";
        }
        separator = "  ; ";
        for (std::size_t bit = 0; bit < info.flags.size(); ++bit) {
            if (!((i.flags >> bit) & 1) || info.flags[bit].empty()) continue;
            line << separator << info.flags[bit];
            separator = ", ";
        }
        if (i.n != 0) line << separator << "n " << i.n;
        std::string text = line.str();
        text.erase(text.find_last_not_of(' ') + 1);
        mOut << text << "\n";
    }

    // Of a statement that begins here; "" elsewhere.
    std::string PlaceAt(std::uint32_t pc) const {
        const Mark* const mark = mCode.MarkAt(pc);
        if (!mark || mark->pc != pc) return "";
        return std::to_string(mark->position.line) + "," + std::to_string(mark->position.column);
    }

    std::string OperandText(OperandRole role, std::uint32_t value, std::uint32_t pc) const {
        switch (role) {
            case OperandRole::Place:
                return PlaceText({value});
            case OperandRole::Slot:
                return SlotText(value);
            case OperandRole::Slots:
                return SlotText(value) + "..";
            case OperandRole::Name:
                return mCode.names[value].text.ToUtf8();
            case OperandRole::NameOf:
                return value == 0 ? "" : mCode.names[value - 1].text.ToUtf8();
            case OperandRole::Member:
                return "." + mCode.sites[value].name.ToUtf8();
            case OperandRole::Target:
                return "to " + std::to_string(static_cast<std::int32_t>(pc) + static_cast<std::int32_t>(value));
            case OperandRole::Count:
                return "(" + std::to_string(value) + ")";
            case OperandRole::Number:
                return std::to_string(value);
            default:
                return "";
        }
    }

    std::string PlaceText(Operand operand) const {
        switch (operand.Kind()) {
            case OperandKind::Constant:
                return LiteralOf(mCode.constants[operand.Index()].value);
            case OperandKind::Name:
                return mCode.names[operand.Index()].text.ToUtf8();
            case OperandKind::Field:
                return mOwner ? "Me." + mOwner->fields[operand.Index()].name.ToUtf8() : "";
            default:
                return SlotText(operand.Index());
        }
    }

    std::string SlotText(std::uint32_t slot) const {
        if (slot >= mCode.variables) return "t" + std::to_string(slot - mCode.variables + 1);
        return mCode.NameOfLocal(static_cast<std::uint16_t>(slot)).ToUtf8();
    }

    std::ostream& mOut;
    const Code& mCode;
    const ClassCode* mOwner;
    std::string_view mIndent;
};

}  // namespace

std::string Disassembled(const Unit& unit) {
    std::ostringstream out;
    Listing(out, *unit.main, nullptr, "").Write();
    for (const Unit::Procedure& procedure : unit.procedures) {
        out << "\n";
        Listing(out, *procedure.code, nullptr, "").Write();
    }
    for (const std::unique_ptr<ClassCode>& code : unit.classes) {
        out << "\nClass " << code->name.ToUtf8() << "\n";
        for (const Declaration& field : code->fields) {
            out << "  " << (field.isPublic ? "Public " : "Private ") << field.name.ToUtf8() << "\n";
        }
        for (const std::unique_ptr<Code>& procedure : code->procedures) {
            Listing(out, *procedure, code.get(), "  ").Write();
        }
    }
    return std::move(out).str();
}

}  // namespace ov::vbscript
