#include "platform/jet/file.h"

#include "platform/jet/definition.h"
#include "platform/jet/values.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr quint32 cataloguePage = 2;
constexpr qint16 tableType = 1;

// The flags of the system's own tables.
constexpr quint32 systemFlags = 0x8000'0002;

/// Hands over the rows of a table, taken apart, to the end.
Reading readRows(const Pages &pages, const Definition &definition, const TakeRow &take)
{
    const auto &columns = definition.columns();
    const auto &places = definition.places();
    LongValues longValues(pages);
    Row row;
    qint64 damaged = 0;
    const auto takeApart = [&](Bytes bytes) {
        const auto record = Record::of(bytes);
        if (!record) {
            ++damaged;
            return true;
        }
        row.values.assign(columns.size(), runtime::Null{});
        row.unreadable.clear();
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (auto value = valueOf(columns[i], places[i], *record, longValues)) {
                row.values[i] = std::move(*value);
            } else {
                row.unreadable.push_back(static_cast<int>(i));
            }
        }
        return take(row);
    };
    Reading reading = definition.walk(pages, takeApart);
    reading.rows -= damaged;
    reading.lost += damaged;
    return reading;
}

/// An object of the catalogue.
struct Object {
    quint32 page = 0;
    QString name;

    bool isBetweenVersions() const { return name.startsWith(u'~'); }
};

template<typename Type>
Type valueAs(const Row &row, int column)
{
    const auto *value = std::get_if<Type>(&row.values[column]);
    if (value == nullptr) {
        throw Damaged(Damage::Catalogue);
    }
    return *value;
}

// Were one row of the catalogue missing, a table would be without anybody noticing.
std::vector<Object> readCatalogue(const Pages &pages)
{
    const auto definition = Definition::read(pages, cataloguePage);
    if (!definition) {
        throw Damaged(Damage::Catalogue);
    }
    const int id = definition->column(u"Id");
    const int name = definition->column(u"Name");
    const int type = definition->column(u"Type");
    const int flags = definition->column(u"Flags");
    if (std::min({id, name, type, flags}) < 0) {
        throw Damaged(Damage::Catalogue);
    }
    std::vector<Object> objects;
    const Reading reading = readRows(pages, *definition, [&](const Row &row) {
        const auto marks = static_cast<quint32>(valueAs<qint32>(row, flags));
        if (valueAs<qint16>(row, type) == tableType && (marks & systemFlags) == 0) {
            objects.push_back({static_cast<quint32>(valueAs<qint32>(row, id)), valueAs<QString>(row, name)});
        }
        return true;
    });
    if (reading.lost != 0 || reading.rows != definition->promisedRows()) {
        throw Damaged(Damage::Catalogue);
    }
    return objects;
}

} // namespace

class File::Private
{
public:
    explicit Private(const QString &path) : pages(path)
    {
        for (const Object &object : readCatalogue(pages)) {
            if (!object.isBetweenVersions()) {
                add(object);
            }
        }
    }

    void add(const Object &object)
    {
        const auto definition = Definition::read(pages, object.page);
        Table table{object.name, {}, 0, definition.has_value()};
        if (definition) {
            table.columns = definition->columns();
            table.promisedRows = definition->promisedRows();
        }
        tables.push_back(std::move(table));
        definitionPages.push_back(object.page);
    }

    Pages pages;
    std::vector<Table> tables;
    std::vector<quint32> definitionPages;
};

File::File(const QString &path) : d_(std::make_unique<Private>(path)) {}

File::~File() = default;

const std::vector<Table> &File::tables() const
{
    return d_->tables;
}

Reading File::read(std::size_t table, const TakeRow &take)
{
    const auto definition = Definition::read(d_->pages, d_->definitionPages.at(table));
    if (!definition) {
        return {0, 1, false};
    }
    return readRows(d_->pages, *definition, take);
}

} // namespace jet
