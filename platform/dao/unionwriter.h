#pragma once

#include "platform/dao/selectwriter.h"

namespace dao
{

/// Writes the SELECTs of a union as one. Errors beside those of the SELECTs: 3307 where they have not as many columns,
/// 3351 for an order by what the first of them does not show.
class UnionWriter : public SelectWriter
{
protected:
    using SelectWriter::SelectWriter;

    /// The columns are those of the first SELECT, in the types that hold the values of all.
    QString writeUnion(const Select &query, std::vector<ResultColumn> &columns);

private:
    std::vector<Written> writeMembers(const std::vector<const Select *> &members);
    QStringList memberValues(const Written &member, const std::vector<ResultColumn> &columns);
    std::vector<OrderTerm> unionOrder(const Select &query, const std::vector<ResultColumn> &columns) const;
};

} // namespace dao
