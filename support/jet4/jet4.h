#pragma once

#include "platform/runtime/value.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// Writes genuine Jet 4 files, as small as they can be, for the tests of whoever reads them. Right files and wrong
/// ones: what is damaged is said here by name, or done to the bytes afterwards.
namespace jet4
{

/// The codes of the column types in the file.
enum Type {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12
};

struct Column {
    QString name;
    int type = Text;
    int size = 0; ///< characters of a Text, bytes of a Binary
    bool counter = false;
};

/// Values are converted to the width of their column; a Binary or OLE column takes the characters of a text as bytes.
/// Null, and "" apart from it.
struct Row {
    std::vector<runtime::Value> values;
    bool deleted = false;  ///< its slot stays
    bool overflow = false; ///< it outgrew its page: its slot points to another one
};

struct Table {
    QString name;
    std::vector<Column> columns;
    std::vector<Row> rows;
    std::optional<int> columnsOfOldRows = {}; ///< rows up to `oldRows` know only so many columns
    int oldRows = 0;
    bool compressed = true;               ///< texts that get shorter by it
    std::optional<quint32> promised = {}; ///< how many rows the table says it has, where that is a lie
};

struct File {
    std::vector<Table> tables;
    char version = 1;      ///< 1 is Jet 4
    QString password = {}; ///< up to 20 characters
    quint32 pageKey = 0;   ///< not 0: it says that its pages are encrypted
};

/// A column list as the program writes it, "Codigo.Counter,Nome.Text;200".
std::vector<Column> columns(const QString &list);

/// The whole file.
QByteArray bytes(const File &file);

/// Writes it; false where it can't be written.
bool write(const QString &path, const File &file);

} // namespace jet4
