#include "platform/dao/unionwriter.h"

#include "platform/dao/types.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// A column of a union: it is none of a table, and holds the values of both.
ResultColumn merged(const ResultColumn &left, const ResultColumn &right)
{
    ResultColumn column;
    column.type = commonType(left.type, right.type);
    column.field.name = left.field.name;
    column.field.type = column.type.value_or(FieldType::Text);
    if (left.field.type == right.field.type) {
        column.field.type = left.field.type;
        column.field.size = std::max(left.field.size, right.field.size);
    } else if (column.field.type == FieldType::Text) {
        const bool memo = left.field.type == FieldType::Memo || right.field.type == FieldType::Memo;
        column.field.type = memo ? FieldType::Memo : FieldType::Text;
        column.field.size = memo ? 0 : longestText;
    }
    return column;
}

} // namespace

QString UnionWriter::writeUnion(const Select &query, std::vector<ResultColumn> &columns)
{
    std::vector<const Select *> members = {&query};
    for (const Select &added : query.unions) {
        members.push_back(&added);
    }
    const std::vector<Written> written = writeMembers(members);
    columns = written.front().columns;
    for (const Written &member : written) {
        for (size_t i = 0; i < columns.size(); ++i) {
            columns[i] = merged(columns[i], member.columns[i]);
        }
    }
    QString text;
    for (size_t i = 0; i < members.size(); ++i) {
        text += i == 0 ? QString() : members[i]->unionAll ? u" UNION ALL "_s : u" UNION "_s;
        text += u"SELECT * FROM ("_s + selectText(*members[i], written[i], memberValues(written[i], columns)) + u')';
    }
    return text + orderBy(unionOrder(query, columns));
}

std::vector<Written> UnionWriter::writeMembers(const std::vector<const Select *> &members)
{
    std::vector<Written> written;
    for (const Select *const member : members) {
        const Scope scope = openScope(*member);
        const Scope *const outer = std::exchange(scope_, &scope);
        written.push_back(writeSelect(*member));
        scope_ = outer;
        if (written.back().columns.size() != written.front().columns.size()) {
            runtime::raise(3307);
        }
    }
    return written;
}

/// What a member of a union shows, in the types of the whole. Texts are told apart by the collation.
QStringList UnionWriter::memberValues(const Written &member, const std::vector<ResultColumn> &columns)
{
    QStringList values;
    for (size_t i = 0; i < columns.size(); ++i) {
        const bool text = columns[i].type == FieldType::Text;
        values.append(text ? asText(member.terms[i]) + collate : asValue(member.terms[i]));
    }
    return values;
}

std::vector<OrderTerm> UnionWriter::unionOrder(const Select &query, const std::vector<ResultColumn> &columns) const
{
    std::vector<OrderTerm> order;
    for (const OrderItem &item : query.unionOrder) {
        const auto named = std::find_if(columns.begin(), columns.end(), [&item](const ResultColumn &column) {
            return item.expression.kind == Expression::Kind::Name &&
                   column.field.name.compare(item.expression.text, Qt::CaseInsensitive) == 0;
        });
        const auto place = columnAt(item.expression, columns.size())
                               .value_or(static_cast<size_t>(std::distance(columns.begin(), named)));
        if (place == columns.size()) {
            runtime::raise(3351);
        }
        order.push_back({QString::number(place + 1), columns[place].type == FieldType::Text, item.descending, false});
    }
    return order;
}

} // namespace dao
