#pragma once

#include <QMap>
#include <QMetaType>
#include <QString>

#include <vector>

namespace support
{

/// One row of a table of test vectors, its cells known by the names in the table's first line.
class TsvRow
{
public:
    TsvRow() = default;
    TsvRow(int line, QMap<QString, QString> cells) : line_(line), cells_(std::move(cells)) {}

    int line() const { return line_; }

    /// The text of a cell with its escapes resolved; ends the test program for a column that does not exist.
    QString cell(const QString &column) const;

private:
    int line_ = 0;
    QMap<QString, QString> cells_;
};

/// Reads tests/vectors/`name`: tab-separated UTF-8, one header line, \t \r \n \\ and \xHH escaped.
/// Ends the test program where the table is missing, ragged or empty.
std::vector<TsvRow> readTsv(const QString &name);

/// Gives a data-driven test the column `row` and one data row for each row of the table.
void addTsvRows(const QString &name);

/// The text between the quotation marks around a cell; the cell itself where there are none.
QString unquoted(const QString &cell);

} // namespace support

Q_DECLARE_METATYPE(support::TsvRow)
