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

inline constexpr int pageSize = 4096;

struct Column {
    QString name;
    int type = Text;
    int size = 0; ///< characters of a Text, bytes of a Binary
    bool counter = false;
    bool gone = false; ///< rows have kept its place, the table knows it no longer
};

/// Values are converted to the width of their column; a Binary or OLE column takes the characters of a text as bytes.
/// Null, and "" apart from it.
struct Row {
    std::vector<runtime::Value> values;
    bool deleted = false;  ///< its slot stays
    bool overflow = false; ///< it outgrew its page: its slot points to another one
    QByteArray raw = {};   ///< these bytes instead of the values
};

struct Table {
    QString name;
    std::vector<Column> columns;
    std::vector<Row> rows;
    std::optional<int> columnsOfOldRows = {}; ///< rows up to `oldRows` know only so many columns
    int oldRows = 0;
    bool compressed = true;               ///< texts that get shorter by it
    std::optional<quint32> promised = {}; ///< how many rows the table says it has, where that is a lie
    quint32 flags = 0;                    ///< of the object in the catalogue
    qint16 object = 1;                    ///< its kind: 5 is a query, 6 a linked table
    int mostRowsOfAPage = 255;
    quint32 indexes = 0;  ///< of which the definition tells before its columns; there are none
    bool bitmaps = false; ///< which pages are the table's stands in pages of bits, however few they are
};

struct File {
    std::vector<Table> tables;
    char version = 1;      ///< 1 is Jet 4
    QString password = {}; ///< up to 20 characters
    quint32 pageKey = 0;   ///< not 0: it says that its pages are encrypted
    QByteArray name = "Standard Jet DB";
};

/// A column list as the program writes it, "Codigo.Counter,Nome.Text;200".
std::vector<Column> columns(const QString &list);

/// The pages of a table.
struct Pages {
    quint32 definition = 0; ///< the first one
    std::vector<quint32> rows = {};
    std::vector<quint32> longValues = {};
    quint32 maps = 0; ///< its first row, at the end of the page, is the map of `rows`
};

/// A file, and where things lie in it: for damage done to its bytes.
struct Layout {
    QByteArray bytes;
    std::vector<Pages> tables; ///< in the order of the file
    Pages catalogue = {};

    void put(quint32 page, int at, const QByteArray &these);
    void put16(quint32 page, int at, quint16 number);
    void put32(quint32 page, int at, quint32 number);
};

Layout layOut(const File &file);

/// The whole file.
QByteArray bytes(const File &file);

/// Writes it; false where it can't be written.
bool write(const QString &path, const File &file);

} // namespace jet4
