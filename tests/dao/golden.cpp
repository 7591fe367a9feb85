#include "tests/dao/golden.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QFile>

#include <charconv>

using namespace Qt::StringLiterals;

namespace golden
{

namespace
{

/// The shortest text that reads back as the very same number.
template<class Number>
QString shortest(Number number)
{
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return QString::fromLatin1(digits.data(), end - digits.data());
}

QString shownDate(runtime::Date date)
{
    const QDateTime moment = runtime::toDateTime(date);
    return moment.toString(moment.time() == QTime(0, 0) ? u"dd/MM/yyyy"_s : u"dd/MM/yyyy hh:mm:ss"_s);
}

template<class... Kinds>
struct Overloaded : Kinds... {
    using Kinds::operator()...;
};
template<class... Kinds>
Overloaded(Kinds...) -> Overloaded<Kinds...>;

} // namespace

QString shown(const runtime::Value &value)
{
    return std::visit(Overloaded{
                          [](runtime::Empty) { return u"<Empty>"_s; },
                          [](runtime::Null) { return u"<Null>"_s; },
                          [](bool truth) { return truth ? u"True"_s : u"False"_s; },
                          [](runtime::Date date) { return shownDate(date); },
                          [](const QString &text) { return text; },
                          [](auto number) { return shortest(number); },
                      },
                      value);
}

QString shownRow(const dao::Recordset &row)
{
    QStringList fields;
    for (int place = 0; place < row.fieldCount(); ++place) {
        fields.append(shown(row.value(place)));
    }
    return fields.join(u" | "_s);
}

QStringList rows(dao::Database &database, const QString &statement)
{
    QStringList found;
    auto set = database.OpenRecordset(statement);
    for (; !set.Eof(); set.MoveNext()) {
        found.append(shownRow(set));
    }
    return found;
}

std::shared_ptr<dao::Database> createDatabase(const QTemporaryDir &folder, const QString &name)
{
    return dao::DBEngine::CreateDatabase(folder.filePath(name), u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
}

Golden::Golden() : database_(createDatabase(folder_, u"golden.mdb"_s))
{
    QFile file(QStringLiteral(TARVELO_TESTS_DIR "/dao/sql/golden.sql"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("golden.sql is missing");
    }
    const dao::Unit batch;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &line : lines) {
        if (!line.trimmed().isEmpty() && !line.startsWith(u"# "_s)) {
            database_->Execute(line);
        }
    }
}

} // namespace golden
