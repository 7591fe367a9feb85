#include "platform/dao/parserbase.h"

#include "platform/runtime/error.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

constexpr int deepest = 50;
constexpr int mostOperators = 900;

/// Words that are never the name of a table or a column unless they stand in brackets.
constexpr std::array reserved = {
    "SELECT"_L1, "FROM"_L1,  "WHERE"_L1,  "ORDER"_L1,    "GROUP"_L1, "HAVING"_L1, "AND"_L1,   "OR"_L1,    "NOT"_L1,
    "LIKE"_L1,   "IN"_L1,    "IS"_L1,     "BETWEEN"_L1,  "NULL"_L1,  "TRUE"_L1,   "FALSE"_L1, "AS"_L1,    "INNER"_L1,
    "LEFT"_L1,   "RIGHT"_L1, "OUTER"_L1,  "JOIN"_L1,     "ON"_L1,    "ASC"_L1,    "DESC"_L1,  "UNION"_L1, "BY"_L1,
    "SET"_L1,    "INTO"_L1,  "VALUES"_L1, "DISTINCT"_L1, "MOD"_L1,   "XOR"_L1,    "EXISTS"_L1};

struct Operator {
    QStringView text;
    int rank;
    Expression::Kind kind;
};

constexpr int lastRank = 4;
constexpr std::array operators = {
    Operator{u"&", 0, Expression::Kind::Concatenate}, Operator{u"+", 1, Expression::Kind::Arithmetic},
    Operator{u"-", 1, Expression::Kind::Arithmetic},  Operator{u"MOD", 2, Expression::Kind::Arithmetic},
    Operator{u"\\", 3, Expression::Kind::Arithmetic}, Operator{u"*", 4, Expression::Kind::Arithmetic},
    Operator{u"/", 4, Expression::Kind::Arithmetic},
};

constexpr std::array comparisons = {QStringView(u"="), QStringView(u"<>"), QStringView(u"<"),
                                    QStringView(u">"), QStringView(u"<="), QStringView(u">=")};

} // namespace

ExpressionParser::Nesting::Nesting(ExpressionParser &parser) : depth_(parser.depth_)
{
    if (depth_ >= deepest) {
        runtime::raise(3360);
    }
    ++depth_;
}

const Token &ExpressionParser::peek(size_t ahead) const
{
    return tokens_.list[std::min(at_ + ahead, tokens_.list.size() - 1)];
}

const Token &ExpressionParser::next()
{
    const Token &token = peek();
    ++at_;
    return token;
}

bool ExpressionParser::isWord(const Token &token, QStringView word)
{
    return token.kind == TokenKind::Name && token.text.compare(word, Qt::CaseInsensitive) == 0;
}

bool ExpressionParser::isSymbol(const Token &token, QStringView symbol)
{
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool ExpressionParser::isName(const Token &token)
{
    if (token.kind != TokenKind::Name) {
        return token.kind == TokenKind::Bracketed;
    }
    return std::none_of(reserved.begin(), reserved.end(), [&token](QLatin1StringView word) {
        return token.text.compare(word, Qt::CaseInsensitive) == 0;
    });
}

bool ExpressionParser::take(QStringView symbol)
{
    const bool found = isSymbol(peek(), symbol);
    at_ += found ? 1 : 0;
    return found;
}

bool ExpressionParser::takeWord(QStringView word)
{
    const bool found = isWord(peek(), word);
    at_ += found ? 1 : 0;
    return found;
}

void ExpressionParser::expect(QStringView word)
{
    if (!takeWord(word)) {
        fail(u"Erro de sintaxe (esperava-se "_s + word + u')');
    }
}

void ExpressionParser::expectSymbol(QStringView symbol)
{
    if (!take(symbol)) {
        fail(u"Erro de sintaxe (esperava-se "_s + symbol + u')');
    }
}

QString ExpressionParser::name()
{
    if (!isName(peek())) {
        fail(u"Erro de sintaxe"_s);
    }
    return next().text.toString();
}

void ExpressionParser::unsupported(const QString &command)
{
    runtime::raise(3075, {command.toUpper()}, runtime::Wording::UnknownCommand);
}

void ExpressionParser::refuseWords() const
{
    QStringList words;
    for (size_t ahead = 0; peek(ahead).kind == TokenKind::Name; ++ahead) {
        words.append(peek(ahead).text.toString());
    }
    if (!words.isEmpty()) {
        unsupported(words.join(u' '));
    }
}

void ExpressionParser::fail(const QString &reason) const
{
    const qsizetype from = clause_.isNull() ? 0 : clause_.utf16() - statement_.utf16();
    const QString quoted = statement_.sliced(from).trimmed().toString();
    runtime::raise(3075, {reason, quoted});
}

Expression ExpressionParser::combine(Expression::Kind kind, QStringView text, Expression left, Expression right)
{
    if (++operators_ > mostOperators) {
        runtime::raise(3360);
    }
    Expression made;
    made.kind = kind;
    made.text = text.toString().toUpper();
    made.parts.reserve(2);
    made.parts.push_back(std::move(left));
    made.parts.push_back(std::move(right));
    return made;
}

Expression ExpressionParser::readExpression()
{
    const Nesting nesting(*this);
    Expression left = readAnd();
    while (takeWord(u"OR")) {
        left = combine(Expression::Kind::Or, u"OR", std::move(left), readAnd());
    }
    for (const QStringView other : {QStringView(u"XOR"), QStringView(u"EQV"), QStringView(u"IMP")}) {
        if (isWord(peek(), other)) {
            unsupported(other.toString());
        }
    }
    return left;
}

Expression ExpressionParser::readAnd()
{
    Expression left = readNot();
    while (takeWord(u"AND")) {
        left = combine(Expression::Kind::And, u"AND", std::move(left), readNot());
    }
    return left;
}

Expression ExpressionParser::readNot()
{
    if (!takeWord(u"NOT")) {
        return readComparison();
    }
    const Nesting nesting(*this);
    Expression made;
    made.kind = Expression::Kind::Not;
    made.parts.push_back(readNot());
    return made;
}

Expression ExpressionParser::readComparison()
{
    Expression left = readOperators(0);
    for (;;) {
        const bool negated = isWord(peek(), u"NOT") &&
                             (isWord(peek(1), u"LIKE") || isWord(peek(1), u"BETWEEN") || isWord(peek(1), u"IN"));
        at_ += negated ? 1 : 0;
        if (takeWord(u"LIKE")) {
            left = readPattern(std::move(left), negated);
        } else if (takeWord(u"BETWEEN")) {
            left = readRange(std::move(left), negated);
        } else if (takeWord(u"IN")) {
            left = readList(std::move(left), negated);
        } else if (takeWord(u"IS")) {
            left = readIsNull(std::move(left));
        } else if (peek().kind == TokenKind::Symbol &&
                   std::find(comparisons.begin(), comparisons.end(), peek().text) != comparisons.end()) {
            const QStringView text = next().text;
            left = combine(Expression::Kind::Compare, text, std::move(left), readOperators(0));
        } else {
            return left;
        }
    }
}

Expression ExpressionParser::readPattern(Expression left, bool negated)
{
    Expression made = combine(Expression::Kind::Like, {}, std::move(left), readOperators(0));
    made.negated = negated;
    return made;
}

Expression ExpressionParser::readRange(Expression left, bool negated)
{
    Expression low = readOperators(0);
    expect(u"AND");
    Expression made = combine(Expression::Kind::Between, {}, std::move(left), std::move(low));
    made.negated = negated;
    made.parts.push_back(readOperators(0));
    return made;
}

Expression ExpressionParser::readList(Expression left, bool negated)
{
    expectSymbol(u"(");
    Expression made;
    if (isWord(peek(), u"SELECT")) {
        made = subselect(Expression::Kind::In);
        made.parts.push_back(std::move(left));
    } else {
        made.kind = Expression::Kind::In;
        made.parts.push_back(std::move(left));
        do {
            made.parts.push_back(readExpression());
        } while (take(u","));
    }
    expectSymbol(u")");
    made.negated = negated;
    return made;
}

Expression ExpressionParser::readIsNull(Expression left)
{
    Expression made;
    made.kind = Expression::Kind::IsNull;
    made.negated = takeWord(u"NOT");
    expect(u"NULL");
    made.parts.push_back(std::move(left));
    return made;
}

Expression ExpressionParser::readOperators(int rank)
{
    if (rank > lastRank) {
        return readSign();
    }
    Expression left = readOperators(rank + 1);
    for (;;) {
        const auto *const found =
            std::find_if(operators.begin(), operators.end(), [this, rank](const Operator &candidate) {
                return candidate.rank == rank && (isSymbol(peek(), candidate.text) || isWord(peek(), candidate.text));
            });
        if (found == operators.end()) {
            return left;
        }
        ++at_;
        left = combine(found->kind, found->text, std::move(left), readOperators(rank + 1));
    }
}

Expression ExpressionParser::readSign()
{
    if (take(u"+")) {
        const Nesting nesting(*this);
        return readSign();
    }
    if (!take(u"-")) {
        return readPower();
    }
    const Nesting nesting(*this);
    Expression made;
    made.kind = Expression::Kind::Negate;
    made.parts.push_back(readSign());
    return made;
}

Expression ExpressionParser::readPower()
{
    Expression left = readPrimary();
    while (take(u"^")) {
        left = combine(Expression::Kind::Arithmetic, u"^", std::move(left), readPrimary());
    }
    return left;
}

Expression ExpressionParser::readPrimary()
{
    const Token &token = peek();
    if (token.kind == TokenKind::Literal) {
        Expression made;
        made.kind = Expression::Kind::Literal;
        made.literal = next().literal;
        return made;
    }
    if (take(u"(")) {
        return readParentheses();
    }
    for (const QStringView constant : {QStringView(u"TRUE"), QStringView(u"FALSE"), QStringView(u"NULL")}) {
        if (takeWord(constant)) {
            Expression made;
            made.text = constant.toString();
            return made;
        }
    }
    if (takeWord(u"EXISTS")) {
        expectSymbol(u"(");
        Expression made = subselect(Expression::Kind::Exists);
        expectSymbol(u")");
        return made;
    }
    return readNamed();
}

Expression ExpressionParser::readParentheses()
{
    Expression made = isWord(peek(), u"SELECT") ? subselect(Expression::Kind::Subselect) : readExpression();
    expectSymbol(u")");
    return made;
}

Expression ExpressionParser::subselect(Expression::Kind kind)
{
    const Nesting nesting(*this);
    Expression made;
    made.kind = kind;
    made.select = std::make_shared<Select>(readSelect());
    if (isWord(peek(), u"UNION")) {
        runtime::raise(3361);
    }
    return made;
}

Expression ExpressionParser::readNamed()
{
    // Left, Right and Asc are functions as well as words of the language.
    const bool call = peek().kind == TokenKind::Name && isSymbol(peek(1), u"(") &&
                      (isName(peek()) || isWord(peek(), u"LEFT") || isWord(peek(), u"RIGHT") || isWord(peek(), u"ASC"));
    if (call) {
        return readCall(next().text.toString().toUpper());
    }
    if (!isName(peek())) {
        fail(peek().kind == TokenKind::End ? u"Erro de sintaxe (operador faltando)"_s : u"Erro de sintaxe"_s);
    }
    Expression made;
    made.kind = Expression::Kind::Name;
    made.text = name();
    if (take(u".") || take(u"!")) {
        made.table = std::exchange(made.text, name());
    }
    return made;
}

Expression ExpressionParser::readCall(const QString &function)
{
    Expression made;
    made.kind = Expression::Kind::Call;
    made.text = function;
    expectSymbol(u"(");
    if (take(u")")) {
        return made;
    }
    if (take(u"*")) {
        made.parts.emplace_back().kind = Expression::Kind::Star;
    } else {
        do {
            made.parts.push_back(readExpression());
        } while (take(u","));
    }
    expectSymbol(u")");
    return made;
}

} // namespace dao
