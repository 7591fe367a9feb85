#pragma once

#include "platform/dao/lexer.h"
#include "platform/dao/syntax.h"

namespace dao
{

/// Reads expressions off the tokens of a statement, by rank: OR, AND, NOT, comparisons, &, + -, MOD, \, * /, sign, ^.
class ExpressionParser
{
public:
    ExpressionParser(const Tokens &tokens, QStringView statement) : tokens_(tokens), statement_(statement) {}
    virtual ~ExpressionParser() = default;
    ExpressionParser(const ExpressionParser &) = delete;
    ExpressionParser &operator=(const ExpressionParser &) = delete;

protected:
    /// Keeps count of how deep the reading stands. Error 3360 beyond what statements of people ever need.
    class Nesting
    {
    public:
        explicit Nesting(ExpressionParser &parser);
        ~Nesting() { --depth_; }
        Nesting(const Nesting &) = delete;
        Nesting &operator=(const Nesting &) = delete;

    private:
        int &depth_;
    };

    virtual Select readSelect() = 0;
    Expression readExpression();

    const Token &peek(size_t ahead = 0) const;
    const Token &next();
    void skip(size_t count) { at_ += count; }
    static bool isWord(const Token &token, QStringView word);
    static bool isSymbol(const Token &token, QStringView symbol);
    static bool isName(const Token &token); ///< a name that is no word of the language
    bool take(QStringView symbol);
    bool takeWord(QStringView word);
    void expect(QStringView word);
    void expectSymbol(QStringView symbol);
    QString name();
    const runtime::Value &literal(int place) const { return tokens_.literals[static_cast<size_t>(place)]; }

    /// Raises 3075 for what the dialect has and this program does not, by its name.
    [[noreturn]] static void unsupported(const QString &command);

    /// Raises it for the words that stand here, if some do.
    void refuseWords() const;

    /// What an error quotes begins here.
    void beginClause() { clause_ = peek().text; }
    [[noreturn]] void fail(const QString &reason) const;

private:
    Expression readAnd();
    Expression readNot();
    Expression readComparison();
    Expression readOperators(int rank);
    Expression readSign();
    Expression readPower();
    Expression readPrimary();
    Expression readParentheses();
    Expression readNamed();
    Expression readCall(const QString &function);
    Expression readPattern(Expression left, bool negated);
    Expression readRange(Expression left, bool negated);
    Expression readList(Expression left, bool negated);
    Expression readIsNull(Expression left);
    Expression subselect(Expression::Kind kind);
    Expression combine(Expression::Kind kind, QStringView text, Expression left, Expression right);

    const Tokens &tokens_;
    QStringView statement_;
    QStringView clause_;
    size_t at_ = 0;
    int depth_ = 0;
    int operators_ = 0;
};

} // namespace dao
