#include "platform/script/script_outline.h"

#include <algorithm>

#include "platform/script/vbscript/arena.h"
#include "platform/script/vbscript/compiler.h"
#include "platform/script/vbscript/lexer.h"
#include "platform/script/vbscript/parser.h"

namespace ov {

namespace {

using namespace vbscript;

/// Walks a syntax tree and notes its chains.
class ChainFinder {
public:
    explicit ChainFinder(const std::vector<Variant>& literals) : mLiterals(literals) {}

    void Walk(const Program& program) {
        Walk(program.result);
        Walk(program.main);
        for (const Procedure* procedure : program.procedures) {
            Walk(*procedure);
        }
        for (const Class* each : program.classes) {
            for (const Procedure* procedure : each->procedures) {
                Walk(*procedure);
            }
        }
    }

    std::vector<ScriptChain> TakeInOrder() {
        std::ranges::stable_sort(mChains, {},
                                 [](const ScriptChain& chain) { return std::pair(chain.line, chain.column); });
        return std::move(mChains);
    }

private:
    void Walk(const Procedure& procedure) {
        for (const Constant& constant : procedure.constants) {
            Walk(constant.value);
        }
        Walk(procedure.body);
    }

    void Walk(Block block) {
        for (const Statement* statement : block) {
            Walk(*statement);
        }
    }

    void Walk(const Statement& statement) {
        for (const Expression* expression : {statement.target, statement.value, statement.limit, statement.step}) {
            Walk(expression);
        }
        WalkAll(statement.items);
        for (const Clause& clause : statement.clauses) {
            Walk(clause.condition);
            WalkAll(clause.items);
            Walk(clause.body);
        }
        Walk(statement.body);
    }

    void WalkAll(std::span<Expression*> expressions) {
        for (const Expression* expression : expressions) {
            Walk(expression);
        }
    }

    // A chain is met at its end: its steps come from the last to the first.
    void Walk(const Expression* expression) {
        std::vector<ScriptStep> steps;
        while (expression && (expression->kind == ExpressionKind::Call || expression->kind == ExpressionKind::Member)) {
            ScriptStep step;
            if (expression->kind == ExpressionKind::Call) {
                step.isCall = true;
                for (const Expression* argument : expression->arguments) {
                    step.arguments.push_back(LiteralOf(argument));
                    Walk(argument);
                }
                expression = expression->left;
            }
            if (expression->kind == ExpressionKind::Member) {
                step.member = expression->name.text;
                expression = expression->left;
            }
            steps.push_back(std::move(step));
        }
        if (!expression) return;
        if (expression->kind == ExpressionKind::Name) {
            std::ranges::reverse(steps);
            mChains.push_back({expression->name.text, std::move(steps),
                               static_cast<std::int32_t>(expression->position.line),
                               static_cast<std::int32_t>(expression->position.column)});
            return;
        }
        Walk(expression->left);
        Walk(expression->right);
        WalkAll(expression->arguments);
    }

    std::optional<Variant> LiteralOf(const Expression* expression) const {
        if (expression->kind == ExpressionKind::Bracketed) return LiteralOf(expression->left);
        if (expression->kind != ExpressionKind::Literal || expression->op != TokenKind::Literal) return std::nullopt;
        return mLiterals[expression->literal];
    }

    const std::vector<Variant>& mLiterals;
    std::vector<ScriptChain> mChains;
};

}  // namespace

std::vector<ScriptChain> OutlineOf(const Text& script, ScriptForm form) {
    const bool isExpression = form == ScriptForm::Expression;
    CompileText(script, isExpression);  // finds what the grammar alone does not
    Lexer lexer;
    lexer.Run(script);
    Arena arena;
    Parser parser(arena, lexer.Tokens(), lexer.Literals());
    ChainFinder finder(lexer.Literals());
    finder.Walk(isExpression ? parser.ParseExpressionText() : parser.ParseProgram());
    return finder.TakeInOrder();
}

}  // namespace ov
