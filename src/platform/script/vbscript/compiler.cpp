#include "platform/script/vbscript/compiler.h"

#include <algorithm>
#include <limits>

#include "platform/script/vbscript/forms.h"
#include "platform/script/vbscript/lexer.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/parser.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

constexpr std::size_t kMaxFrameSize = 0xFFFF;  // what an instruction can tell of a slot

std::vector<ArrayBound> BoundsOf(const Variable& variable) {
    std::vector<ArrayBound> bounds;
    for (const std::int32_t upper : variable.bounds) {
        if (upper == std::numeric_limits<std::int32_t>::max()) Fail(CompileError::OutOfMemory, variable.position);
        bounds.push_back({0, upper + 1});
    }
    return bounds;
}

Declaration DeclarationOf(const Variable& variable) {
    return {Text(variable.name.text), variable.name.hash, variable.isPublic, variable.isArray, BoundsOf(variable)};
}

void AddOnce(NameMap<std::u16string_view, bool>& map, const Identifier& name) {
    if (!map.Find(name.text, name.hash)) map.Add(name.text, name.hash, true);
}

/// Enters the names that are declared outside procedures. @throws ScriptError 1041 for one that is there twice
void DeclareUnitNames(const Program& program, UnitScope& scope) {
    NameMap<std::u16string_view, Position> declared;
    const auto declare = [&](const Identifier& name, Position position) {
        if (const Position* known = declared.Find(name.text, name.hash)) FailRedefined(*known, position);
        declared.Add(name.text, name.hash, position);
    };
    for (const Constant& constant : program.main.constants) {
        declare(constant.name, constant.position);
        scope.constants.Add(constant.name.text, constant.name.hash, &constant);
    }
    for (const Variable& variable : program.main.variables) {
        declare(variable.name, variable.position);
        AddOnce(scope.variables, variable.name);
    }
    for (const Class* parsed : program.classes) {
        declare(parsed->name, parsed->position);
    }
    for (const Procedure* procedure : program.procedures) {
        // The last one of several procedures of one name holds.
        if (scope.procedures.Find(procedure->name.text, procedure->name.hash)) continue;
        declare(procedure->name, procedure->position);
        AddOnce(scope.procedures, procedure->name);
    }
    for (const Identifier& name : program.main.assigned) {
        AddOnce(scope.variables, name);
    }
}

std::uint64_t NextClassNumber() noexcept {
    static std::uint64_t last = 0;
    return ++last;
}

void DeclareMembers(const Class& parsed, ClassCode& code) {
    for (const Variable& field : parsed.fields) {
        ClassCode::Member member;
        member.field = static_cast<std::uint16_t>(code.fields.size());
        if (field.isPublic) member.publicKinds = 0xFF;
        code.fields.push_back(DeclarationOf(field));
        code.members.Add(Text(field.name.text), field.name.hash, member);
    }
    for (std::size_t i = 0; i < parsed.procedures.size(); ++i) {
        const Procedure& procedure = *parsed.procedures[i];
        const auto position = static_cast<std::int32_t>(i);
        std::size_t index = code.members.IndexOf(procedure.name.text, procedure.name.hash);
        if (index == code.members.kNone) {
            index = code.members.size();
            code.members.Add(Text(procedure.name.text), procedure.name.hash, {});
        }
        ClassCode::Member& member = code.members[index].value;
        (procedure.kind == ProcedureKind::Let   ? member.let
         : procedure.kind == ProcedureKind::Set ? member.set
                                                : member.get) = position;
        const CallKind kind = procedure.kind == ProcedureKind::Let   ? CallKind::Let
                              : procedure.kind == ProcedureKind::Set ? CallKind::Set
                                                                     : CallKind::Call;
        if (procedure.isPublic) member.publicKinds |= static_cast<std::uint8_t>(kind);
        if (procedure.isDefault) code.defaultMember = static_cast<std::int32_t>(index);
        if (procedure.kind != ProcedureKind::Sub) continue;
        if (EqualNoCase(procedure.name.text, u"Class_Initialize")) code.initialize = position;
        if (EqualNoCase(procedure.name.text, u"Class_Terminate")) code.terminate = position;
    }
}

std::size_t Footprint(const Code& code) noexcept {
    return sizeof(Code) + code.instructions.size() * sizeof(Instruction) + code.marks.size() * sizeof(Mark) +
           code.names.size() * sizeof(Name) + code.sites.size() * sizeof(MemberSite) +
           code.locals.size() * sizeof(decltype(code.locals)::Entry);
}

/// About how many bytes a compiled text holds.
std::size_t Footprint(const Unit& unit) noexcept {
    std::size_t bytes = sizeof(Unit) + Footprint(*unit.main);
    for (const Unit::Procedure& procedure : unit.procedures) {
        bytes += sizeof(procedure) + Footprint(*procedure.code);
    }
    for (const std::unique_ptr<ClassCode>& code : unit.classes) {
        bytes += sizeof(ClassCode) + code->fields.size() * sizeof(Declaration) +
                 code->members.size() * sizeof(decltype(code->members)::Entry);
        for (const std::unique_ptr<Code>& procedure : code->procedures) {
            bytes += Footprint(*procedure);
        }
    }
    return bytes;
}

std::unique_ptr<ClassCode> CompileClass(const Class& parsed, const UnitScope& scope) {
    auto code = std::make_unique<ClassCode>();
    code->number = NextClassNumber();
    code->name = Text(parsed.name.text);
    code->hash = parsed.name.hash;
    if (parsed.fields.size() >= ClassCode::Member::kNoField) Fail(CompileError::OutOfMemory, parsed.position);
    DeclareMembers(parsed, *code);
    for (const Procedure* procedure : parsed.procedures) {
        code->procedures.push_back(ProcedureCompiler(scope, code.get(), *procedure).CompileBody());
    }
    return code;
}

}  // namespace

void Workspace::Clear() noexcept {
    const auto clear = [](auto& list) {
        constexpr std::size_t kMaxKept = 4096;
        if (list.capacity() > kMaxKept) list = {};
        list.clear();
    };
    clear(instructions);
    clear(marks);
    clear(constants);
    clear(literalOperands);
    clear(chain);
}

Ref<Unit> CompileProgram(const Program& program, const std::vector<Variant>& literals, Workspace& work) {
    UnitScope scope{literals, work, program.optionExplicit, {}, {}, {}};
    DeclareUnitNames(program, scope);
    Ref<Unit> unit = Ref<Unit>::Adopt(new Unit);
    for (const Variable& variable : program.main.variables) {
        unit->variables.push_back(DeclarationOf(variable));
    }
    for (const Constant& constant : program.main.constants) {
        unit->constants.push_back(
            {Text(constant.name.text), constant.name.hash, LiteralValue(*constant.value, literals)});
    }
    for (const Class* parsed : program.classes) {
        unit->classes.push_back(CompileClass(*parsed, scope));
    }
    for (const Procedure* procedure : program.procedures) {
        unit->procedures.push_back({Text(procedure->name.text), procedure->name.hash,
                                    ProcedureCompiler(scope, nullptr, *procedure).CompileBody()});
    }
    ProcedureCompiler main(scope, nullptr, program.main);
    unit->definesNames =
        !(unit->procedures.empty() && unit->classes.empty() && unit->variables.empty() && unit->constants.empty());
    unit->hasStatements = program.result || !program.main.body.empty();
    unit->main = program.result ? main.CompileResult(*program.result) : main.CompileBody();
    return unit;
}

Ref<Unit> CompileText(std::u16string_view source, bool isExpression) {
    // Kept between texts for their memory. A compilation causes no other one.
    static Lexer lexer;
    static Arena arena;
    static Workspace work;
    struct Cleaner {
        ~Cleaner() {
            lexer.Clear();
            arena.Clear();
            work.Clear();
        }
    } const cleaner;
    const MemoryAccount::Limit bound(kMaxCompileMemory);
    lexer.Run(source);
    Parser parser(arena, lexer.Tokens(), lexer.Literals());
    const Program program = isExpression ? parser.ParseExpressionText() : parser.ParseProgram();
    Ref<Unit> unit = CompileProgram(program, lexer.Literals(), work);
    unit->memory.Resize(Footprint(*unit));
    return unit;
}

Variant LiteralValue(const Expression& expression, const std::vector<Variant>& literals) {
    switch (expression.kind) {
        case ExpressionKind::Bracketed:
            return LiteralValue(*expression.left, literals);
        case ExpressionKind::Unary: {
            const Variant value = LiteralValue(*expression.left, literals);
            if (expression.op == TokenKind::Not) return Not(value);
            return expression.op == TokenKind::Minus ? Negate(value) : value;
        }
        default:
            break;
    }
    switch (expression.op) {
        case TokenKind::True:
            return Variant(true);
        case TokenKind::False:
            return Variant(false);
        case TokenKind::Null:
            return Variant::Null();
        case TokenKind::Nothing:
            return Variant::Nothing();
        case TokenKind::Literal:
            return literals[expression.literal];
        default:
            return Variant();
    }
}

ProcedureCompiler::ProcedureCompiler(const UnitScope& unit, const ClassCode* owner, const Procedure& procedure)
    : mUnit(unit), mWork(unit.work), mOwner(owner), mProcedure(procedure), mCode(std::make_unique<Code>()) {
    mWork.Clear();
    mCode->name = Text(procedure.name.text);
    mCode->kind = procedure.kind;
    mCode->optionExplicit = unit.optionExplicit;
    DeclareNames();
}

std::unique_ptr<Code> ProcedureCompiler::CompileBody() {
    DimensionArrays();
    Statements(mProcedure.body);
    PutMark(mProcedure.end);
    Emit(Opcode::Return);
    Finish();
    return std::move(mCode);
}

std::unique_ptr<Code> ProcedureCompiler::CompileResult(const Expression& result) {
    PutMark(result.position);
    const Operand value = Value(result);
    Emit(Opcode::Result, value, {}, {}, IsTemp(value) ? kFreeA : std::uint8_t{0});
    Finish();
    return std::move(mCode);
}

void ProcedureCompiler::Finish() {
    mCode->constants = std::make_unique<vbscript::Slot[]>(mWork.constants.size());
    for (std::size_t i = 0; i < mWork.constants.size(); ++i) {
        mCode->constants[i].value = std::move(mWork.constants[i]);
    }
    UseForms(mWork.instructions);
    mCode->instructions.assign(mWork.instructions.begin(), mWork.instructions.end());
    mCode->marks.assign(mWork.marks.begin(), mWork.marks.end());
    mCode->takesAll = mCode->byValue.empty() && mCode->open.empty();
    if (mProcedure.kind == ProcedureKind::Main) return;
    for (const auto& [name, hash, local] : mLocals) {
        if (local.kind == Local::Kind::Constant) continue;
        mCode->locals.Add(Text(name), hash, {local.slot});
    }
}

std::size_t ProcedureCompiler::Emit(Opcode op, std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint8_t flags,
                                    std::uint16_t n) {
    RunGuard::Step();
    mWork.instructions.push_back({op, flags, n, a, b, c});
    return mWork.instructions.size() - 1;
}

void ProcedureCompiler::JumpTo(std::size_t jump, std::size_t target) {
    const auto distance = static_cast<std::int32_t>(target) - static_cast<std::int32_t>(jump);
    mWork.instructions[jump].c = static_cast<std::uint32_t>(distance);
}

void ProcedureCompiler::LandHere(const Jumps& jumps) {
    for (const std::size_t jump : jumps) {
        JumpTo(jump, Here());
    }
}

void ProcedureCompiler::PutMark(Position position) {
    PutMark(position, true);
}

// A place within a statement that has a position of its own.
void ProcedureCompiler::PutPosition(Position position) {
    PutMark(position, false);
}

void ProcedureCompiler::PutMark(Position position, bool resumes) {
    const Mark mark{Here(), position, static_cast<std::uint16_t>(mTop), resumes};
    if (!mWork.marks.empty() && mWork.marks.back().pc == mark.pc) {
        const bool known = mWork.marks.back().resumes;
        mWork.marks.back() = mark;
        mWork.marks.back().resumes = known || resumes;
    } else {
        mWork.marks.push_back(mark);
    }
}

std::uint16_t ProcedureCompiler::NewTemp() {
    NewTemps(1);
    return static_cast<std::uint16_t>(mTop - 1);
}

void ProcedureCompiler::NewTemps(std::size_t count) {
    mTop += count;
    if (mTop > kMaxFrameSize) Fail(CompileError::OutOfMemory, mProcedure.position);
    mCode->frameSize = std::max(mCode->frameSize, static_cast<std::uint16_t>(mTop));
}

}  // namespace ov::vbscript
