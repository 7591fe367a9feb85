#pragma once

#include "platform/dao/expressions.h"
#include "platform/dao/lexer.h"

namespace dao
{

struct OrderTerm {
    QString sql;
    bool text = false;
    bool descending = false;
    bool nullLast = false; ///< for the rows that an outer join has no partner for
};

/// The pieces of a SELECT in the engine's words.
struct Written {
    std::vector<ResultColumn> columns;
    std::vector<Term> terms; ///< what the columns show
    QString from;
    QString where;
    QString grouping;
    std::vector<OrderTerm> order;
    bool plain = true; ///< rows are rows of the tables: no aggregate, no grouping, no outer join
    bool distinct = false;
    bool asksInColumns = false; ///< a column shows what a query inside finds

    QStringList values() const; ///< what its rows show; of distinct ones with the collation that tells texts apart
};

inline constexpr int longestText = 255;

/// An engine's ORDER BY clause; "" without terms.
QString orderBy(const std::vector<OrderTerm> &order, bool reversed = false);

QString whereClause(const QString &condition);

/// Both conditions, either of which may be empty.
QString both(const QString &first, const QString &second);

/// Writes whole SELECTs in the engine's words: joins, grouping, order and TOP. Errors beside those of the
/// expressions: 3078 unknown table, 3082 a join that names others, 3096, 3121 and 3122 where aggregates and rows are
/// mixed, 3093 and 3308 in TOP.
class SelectWriter : public ExpressionWriter
{
protected:
    SelectWriter(const Schema &schema, const Tokens &tokens, QStringView text);

    Term writeSubselect(const Select &select, Wanted wanted) override;
    std::shared_ptr<const Table> definedTable(const QString &name, int error) const;
    Scope openScope(const Select &select);
    void writeFrom(const Select &select, Written &written);
    void writeWhere(const Select &select, Written &written);
    Written writeSelect(const Select &select);
    void addColumn(Written &written, const Term &term, const QString &name, bool named);
    void addStorageOrder(Written &written) const;

    /// The whole SELECT; `values` are what its rows show.
    static QString selectText(const Select &select, const Written &written, const QStringList &values);

    /// The column of the result that a number stands for; none where the expression is no number.
    std::optional<size_t> columnAt(const Expression &expression, size_t columns) const;

    /// The row numbers of the tables of the innermost FROM.
    QStringList rowNumbers() const;
    static QString rowNumber(const Source &source) { return source.alias + u'.' + rowName; }

    QStringList reads_;        ///< every table met so far
    bool alwaysSorts_ = false; ///< rows are sorted even where an index has them in order

private:
    void openSources(const std::vector<FromTable> &tables, Scope &scope);
    void writeJoins(const std::vector<FromTable> &tables, bool outer, bool nested, size_t &source, Written &written);
    QString writeJoinCondition(const Expression &on, size_t first, size_t end);
    void refuseAggregate();
    std::vector<Term> writeGrouping(const Select &select, Written &written);
    void writeItems(const Select &select, Written &written);
    void writeStar(const QString &table, Written &written);
    QString columnName(const SelectItem &item, const Term &term, size_t place) const;
    const Field &fieldOf(const Term &term) const;
    bool isCovered(const Expression &expression, const std::vector<Expression> &groups);
    bool isSame(const Expression &left, const Expression &right);
    OrderTerm writeOrder(const Select &select, const OrderItem &item, const Written &written);
    void addStandingOrder(const Select &select, const std::vector<Term> &groups, Written &written) const;

    const Schema &schema_;
    int aliases_ = 0;
};

} // namespace dao
