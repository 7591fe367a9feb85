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

struct FromTable {
    QString table;
    QString alias;
    QString join; ///< "", "INNER", "LEFT", "RIGHT"
    std::optional<Expression> on;
};

struct OrderItem {
    Expression expression;
    bool descending = false;
};

struct Select {
    bool distinct = false;
    int topLiteral = -1;
    std::vector<SelectItem> items;
    std::vector<FromTable> from;
    std::optional<Expression> where;
    std::vector<Expression> groupBy;
    std::optional<Expression> having;
    std::vector<OrderItem> orderBy;
};

enum class StatementKind { Select, Delete, Update, Insert, CreateTable, AlterAdd, AlterDrop, DropTable };

/// A statement as read. `select` holds the tables and conditions of every kind that has some; UPDATE and INSERT keep
/// the new values as its items, and in `columns` the fields that take them.
struct Statement {
    StatementKind kind = StatementKind::Select;
    Select select;
    QString table;
    QStringList columns;
    std::vector<Field> fields;
};

} // namespace dao
