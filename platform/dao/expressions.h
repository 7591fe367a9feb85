#pragma once

#include "platform/dao/plan.h"
#include "platform/dao/syntax.h"

#include <QSet>

#include <limits>

namespace dao
{

struct Function;

/// What tells texts apart and puts them in order, behind an expression of the engine's.
inline constexpr QLatin1StringView collate{" COLLATE TARVELO"};

/// A table of a FROM clause, under the name by which the statement knows it and the one that the engine gets.
struct Source {
    QString name;
    std::shared_ptr<const Table> table;
    QString alias;
};

/// The tables that a SELECT sees: its own, then those of the SELECT around it.
struct Scope {
    std::vector<Source> sources;
    const Scope *outer = nullptr;
    size_t firstJoined = 0; ///< the condition of a join sees the tables from here
    size_t endJoined = std::numeric_limits<size_t>::max();
};

/// An expression in the engine's words. A condition is 1, 0 or Null there, and turns into -1, 0 or Null where its value
/// counts.
struct Term {
    QString sql;
    std::optional<FieldType> type;
    int literal = -1;
    bool condition = false;
    int table = -1; ///< of a column of the innermost FROM: its table and place
    int place = -1;
};

/// Writes expressions of the dialect in the engine's words: resolves names, compares texts by the collation, numbers
/// with quoted numbers as numbers. Error 3061 for names that are no column (raised at the end, by `finish`), 3079 for a
/// name that two tables have, 3082 for one of a table that a join does not see, 3464 for a comparison of text with
/// number and for a text that stands as a condition, 3085 for an unknown function.
class ExpressionWriter
{
public:
    ExpressionWriter(const std::vector<runtime::Value> &literals, QStringView statement);
    virtual ~ExpressionWriter() = default;
    ExpressionWriter(const ExpressionWriter &) = delete;
    ExpressionWriter &operator=(const ExpressionWriter &) = delete;

    static QString asValue(const Term &term);

    /// A value with the collation that texts are compared by.
    static QString asKey(const Term &term);

protected:
    Term write(const Expression &expression);
    QString writeCondition(const Expression &expression);
    QString asText(const Term &term);

    /// The column that a name means among the tables of one scope; a Term without text where it means none.
    Term find(const Scope &scope, const Expression &name, bool inner);

    const runtime::Value &literalAt(int place) const;

    /// What is wanted of a SELECT inside an expression: the value of its first row, the values of all, or whether it
    /// has rows, whatever their columns.
    enum class Wanted { Value, List, Rows };

    /// A SELECT inside an expression: its text and the type of its only column.
    virtual Term writeSubselect(const Select &select, Wanted wanted) = 0;

    /// Raises 3061 where names were left over.
    void finish() const;
    [[noreturn]] void fail(const QString &reason) const;

    const Scope *scope_ = nullptr;
    bool sawAggregate_ = false;
    bool sawBareColumn_ = false; ///< a column outside of every aggregate
    std::vector<BindAs> binds_;

private:
    Term writeLiteral(const Expression &expression) const;
    static Term writeConstant(const Expression &expression);
    Term writeName(const Expression &expression);
    Term writeCall(const Expression &expression);
    Term writeAggregate(const Expression &expression);
    Term writeChoice(const Expression &expression);
    Term writeSwitch(const Expression &expression);
    Term callFunction(const Function &function, const Expression &expression);
    Term writeFunction(const Expression &expression, FieldType type);
    Term writeNegate(const Expression &expression);
    Term writeArithmetic(const Expression &expression);
    Term writeConcatenate(const Expression &expression);
    Term writeCompare(const Expression &expression);
    Term writeLike(const Expression &expression);
    Term writeBetween(const Expression &expression);
    Term writeIn(const Expression &expression);
    Term writeLogic(const Expression &expression);
    static QString asCondition(const Term &term);
    QString asNumber(const Term &term);
    void align(const Term &left, const Term &right);
    bool adapt(const Term &term, FieldType other);

    const std::vector<runtime::Value> &literals_;
    QStringView statement_;
    QSet<QString> unknownNames_;
    int insideAggregate_ = 0;
    QString lastAlias_; ///< the table of the last column written, whose storage order `first` and `last` go by
};

} // namespace dao
