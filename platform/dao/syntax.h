#pragma once

#include "platform/dao/tabledef.h"
#include "platform/runtime/value.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace dao
{

struct Select;

/// A piece of an expression. What `parts` holds depends on the kind: the operands, the arguments, the list of IN.
struct Expression {
    enum class Kind {
        Literal,
        Constant, ///< TRUE, FALSE, NULL
        Name,
        Call,
        Star, ///< the argument of count(*)
        Negate,
        Not,
        And,
        Or,
        Compare,
        Arithmetic,
        Concatenate,
        Like,
        Between,
        In,
        IsNull,
        Exists,
        Subselect,
    };

    Kind kind = Kind::Constant;
    QString text;  ///< operator, name or constant in capitals; a column's name as written
    QString table; ///< the table in front of a column's name
    int literal = -1;
    bool negated = false;
    std::vector<Expression> parts;
    std::shared_ptr<Select> select;
};

/// One entry of a field list: an expression, or all columns of one table or of all.
struct SelectItem {
    Expression expression;
    QString alias;
    bool star = false;
    QString starTable;
};

/// A table of a FROM clause, or in `group` the tables that brackets join before they are joined to those on the left.
struct FromTable {
    QString table;
    QString alias;
    QString join; ///< "", "INNER", "LEFT", "RIGHT"
    std::optional<Expression> on;
    std::vector<FromTable> group;
};

struct OrderItem {
    Expression expression;
    bool descending = false;
};

struct Select {
    bool distinct = false;
    int topLiteral = -1;
    bool percent = false; ///< TOP counts in hundredths of the rows
    std::vector<SelectItem> items;
    std::vector<FromTable> from;
    std::optional<Expression> where;
    std::vector<Expression> groupBy;
    std::optional<Expression> having;
    std::vector<OrderItem> orderBy;
    std::vector<Select> unions;        ///< what UNION adds to this SELECT, in order
    std::vector<OrderItem> unionOrder; ///< of them all
    bool unionAll = false;             ///< of one that is added: equal rows stay
};

enum class StatementKind {
    Select,
    SelectInto,
    Delete,
    Update,
    Insert,
    CreateTable,
    AlterAdd,
    AlterDrop,
    DropTable,
    CreateIndex,
    DropIndex
};

/// A column of an index.
struct IndexColumn {
    QString name;
    bool descending = false;
};

/// A statement as read. `select` holds the tables and conditions of every kind that has some; UPDATE and INSERT keep
/// the new values as its items; the fields that take them stand in `targets` for UPDATE, in `columns` for INSERT.
struct Statement {
    StatementKind kind = StatementKind::Select;
    Select select;
    QString table;
    QStringList columns;
    bool byName = false; ///< a SELECT gives the rows of an INSERT
    std::vector<Expression> targets;
    std::vector<Field> fields;
    QString index;
    std::vector<IndexColumn> indexColumns;
};

} // namespace dao
