#include "platform/dao/functions.h"

#include "platform/dao/collation.h"
#include "platform/dao/like.h"
#include "platform/dao/types.h"
#include "platform/runtime/runtime.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <span>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

using runtime::Value;
using Arguments = std::vector<Value>;

/// What a function raised inside the engine, which only passes codes on. One thread runs the statements.
std::exception_ptr &pendingError()
{
    thread_local std::exception_ptr error;
    return error;
}

Value valueOf(sqlite3_value *value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return static_cast<double>(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    case SQLITE_NULL:
        return runtime::Null{};
    default: {
        const auto *const utf8 = sqlite3_value_text(value);
        return QString::fromUtf8(reinterpret_cast<const char *>(utf8), sqlite3_value_bytes(value));
    }
    }
}

/// A value that carries its field type beside it, for the functions to which a date is no mere number.
Value typedValue(sqlite3_value *value)
{
    Value plain = valueOf(value);
    if (!std::holds_alternative<double>(plain)) {
        return plain;
    }
    const double number = std::get<double>(plain);
    switch (sqlite3_value_subtype(value)) {
    case static_cast<unsigned>(FieldType::Date):
        return runtime::Date{number};
    case static_cast<unsigned>(FieldType::Single):
        return static_cast<float>(number);
    case static_cast<unsigned>(FieldType::Boolean):
        return number != 0;
    default:
        return plain;
    }
}

struct ResultSetter {
    sqlite3_context *context;

    void operator()(const QString &text) const
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    }
    void operator()(runtime::Date date) const { sqlite3_result_double(context, date.serial); }
    void operator()(bool truth) const { sqlite3_result_int(context, truth ? -1 : 0); }
    void operator()(double number) const { sqlite3_result_double(context, number); }
    void operator()(float number) const { sqlite3_result_double(context, static_cast<double>(number)); }
    void operator()(qint16 number) const { sqlite3_result_int(context, number); }
    void operator()(qint32 number) const { sqlite3_result_int(context, number); }
    void operator()(runtime::Null) const { sqlite3_result_null(context); }
    void operator()(runtime::Empty) const { sqlite3_result_null(context); }
};

QDate dayOf(const Value &value)
{
    return runtime::toDateTime(runtime::CDate(value)).date();
}
QTime timeOf(const Value &value)
{
    return runtime::toDateTime(runtime::CDate(value)).time();
}

qint32 weekday(const Value &value)
{
    return dayOf(value).dayOfWeek() % 7 + 1;
}

double roundHalfToEven(double value, int decimals)
{
    const double factor = std::pow(10.0, decimals);
    return std::nearbyint(value * factor) / factor;
}

Value find(const Arguments &arguments)
{
    const bool fromGiven = arguments.size() == 3;
    const QString text = runtime::CStr(arguments[fromGiven ? 1 : 0]);
    const QString wanted = runtime::CStr(arguments[fromGiven ? 2 : 1]);
    const qint32 from = fromGiven ? runtime::CLng(arguments[0]) : 1;
    return static_cast<qint32>(text.indexOf(wanted, from - 1, Qt::CaseInsensitive) + 1);
}

Value middle(const Arguments &arguments)
{
    const qsizetype length = arguments.size() == 3 ? runtime::CLng(arguments[2]) : -1;
    return runtime::Mid(runtime::CStr(arguments[0]), runtime::CLng(arguments[1]), length);
}

QString trimmedLeft(const QString &text)
{
    qsizetype from = 0;
    while (from < text.size() && text[from] == u' ') {
        ++from;
    }
    return text.mid(from);
}

QString trimmedRight(QString text)
{
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

QString numberText(const Value &value)
{
    const double number = runtime::CDbl(value);
    return (number < 0 ? QString() : u" "_s) + runtime::decimalText(number, 15);
}

double squareRoot(double number)
{
    if (number < 0) {
        runtime::raise(5);
    }
    return std::sqrt(number);
}

/// A function and what it does. Unless it says otherwise, a Null among the arguments makes the result Null.
struct Definition {
    Function function;
    Value (*run)(const Arguments &arguments);
    bool takesNull = false;
};

constexpr auto textType = FieldType::Text;
constexpr auto longType = FieldType::Long;
constexpr auto doubleType = FieldType::Double;
constexpr auto dateType = FieldType::Date;
constexpr auto boolType = FieldType::Boolean;

const std::array definitions = {
    Definition{{"YEAR"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return dayOf(a[0]).year(); }},
    Definition{{"MONTH"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return dayOf(a[0]).month(); }},
    Definition{{"DAY"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return dayOf(a[0]).day(); }},
    Definition{{"HOUR"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return timeOf(a[0]).hour(); }},
    Definition{{"MINUTE"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return timeOf(a[0]).minute(); }},
    Definition{{"SECOND"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return timeOf(a[0]).second(); }},
    Definition{{"WEEKDAY"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return weekday(a[0]); }},
    Definition{{"NOW"_L1, 0, 0, dateType}, [](const Arguments &) -> Value { return runtime::Now(); }},
    Definition{{"DATE"_L1, 0, 0, dateType}, [](const Arguments &) -> Value { return runtime::Today(); }},
    Definition{{"DATEVALUE"_L1, 1, 1, dateType},
               [](const Arguments &a) -> Value { return runtime::Date{std::floor(runtime::CDate(a[0]).serial)}; }},
    Definition{{"DATESERIAL"_L1, 3, 3, dateType},
               [](const Arguments &a) -> Value {
                   return runtime::DateSerial(runtime::CInt(a[0]), runtime::CInt(a[1]), runtime::CInt(a[2]));
               }},
    Definition{{"DATEADD"_L1, 3, 3, dateType},
               [](const Arguments &a) -> Value {
                   return runtime::DateAdd(runtime::CStr(a[0]), runtime::CDbl(a[1]), runtime::CDate(a[2]));
               }},
    Definition{{"DATEDIFF"_L1, 3, 3, longType},
               [](const Arguments &a) -> Value {
                   return runtime::DateDiff(runtime::CStr(a[0]), runtime::CDate(a[1]), runtime::CDate(a[2]));
               }},
    Definition{{"FORMAT"_L1, 2, 2, textType},
               [](const Arguments &a) -> Value { return runtime::Format(a[0], runtime::CStr(a[1])); }},
    Definition{{"LEN"_L1, 1, 1, longType},
               [](const Arguments &a) -> Value { return static_cast<qint32>(runtime::CStr(a[0]).size()); }},
    Definition{{"LEFT"_L1, 2, 2, textType},
               [](const Arguments &a) -> Value { return runtime::Left(runtime::CStr(a[0]), runtime::CLng(a[1])); }},
    Definition{{"RIGHT"_L1, 2, 2, textType},
               [](const Arguments &a) -> Value { return runtime::Right(runtime::CStr(a[0]), runtime::CLng(a[1])); }},
    Definition{{"MID"_L1, 2, 3, textType}, middle},
    Definition{{"INSTR"_L1, 2, 3, longType}, find},
    Definition{{"UCASE"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return runtime::UCase(runtime::CStr(a[0])); }},
    Definition{{"LCASE"_L1, 1, 1, textType}, [](const Arguments &a) -> Value { return runtime::CStr(a[0]).toLower(); }},
    Definition{{"TRIM"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return trimmedLeft(trimmedRight(runtime::CStr(a[0]))); }},
    Definition{{"LTRIM"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return trimmedLeft(runtime::CStr(a[0])); }},
    Definition{{"RTRIM"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return trimmedRight(runtime::CStr(a[0])); }},
    Definition{{"VAL"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return runtime::Val(runtime::CStr(a[0])); }},
    Definition{{"STR"_L1, 1, 1, textType}, [](const Arguments &a) -> Value { return numberText(a[0]); }},
    Definition{{"CSTR"_L1, 1, 1, textType}, [](const Arguments &a) -> Value { return runtime::CStr(a[0]); }},
    Definition{{"CDBL"_L1, 1, 1, doubleType}, [](const Arguments &a) -> Value { return runtime::CDbl(a[0]); }},
    Definition{{"CSNG"_L1, 1, 1, FieldType::Single}, [](const Arguments &a) -> Value { return runtime::CSng(a[0]); }},
    Definition{{"CLNG"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return runtime::CLng(a[0]); }},
    Definition{{"CINT"_L1, 1, 1, FieldType::Integer}, [](const Arguments &a) -> Value { return runtime::CInt(a[0]); }},
    Definition{{"CDATE"_L1, 1, 1, dateType}, [](const Arguments &a) -> Value { return runtime::CDate(a[0]); }},
    Definition{{"CBOOL"_L1, 1, 1, boolType}, [](const Arguments &a) -> Value { return runtime::CBool(a[0]); }},
    Definition{{"ISDATE"_L1, 1, 1, boolType}, [](const Arguments &a) -> Value { return runtime::IsDate(a[0]); }, true},
    Definition{
        {"ISNUMERIC"_L1, 1, 1, boolType}, [](const Arguments &a) -> Value { return runtime::IsNumeric(a[0]); }, true},
    Definition{{"ABS"_L1, 1, 1, doubleType}, [](const Arguments &a) -> Value { return std::abs(runtime::CDbl(a[0])); }},
    Definition{{"INT"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return std::floor(runtime::CDbl(a[0])); }},
    Definition{{"FIX"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return std::trunc(runtime::CDbl(a[0])); }},
    Definition{{"SQR"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return squareRoot(runtime::CDbl(a[0])); }},
    Definition{{"ROUND"_L1, 1, 2, doubleType},
               [](const Arguments &a)
                   -> Value { return roundHalfToEven(runtime::CDbl(a[0]), a.size() == 2 ? runtime::CInt(a[1]) : 0); }},
    Definition{{"POWER"_L1, 2, 2, doubleType},
               [](const Arguments &a) -> Value { return std::pow(runtime::CDbl(a[0]), runtime::CDbl(a[1])); }},
};

/// Answered by the rewriter or the engine itself; named here for the number of their arguments.
constexpr std::array aggregates = {
    Function{"COUNT"_L1, 1, 1, longType},    Function{"SUM"_L1, 1, 1, doubleType},
    Function{"AVG"_L1, 1, 1, doubleType},    Function{"MIN"_L1, 1, 1, std::nullopt},
    Function{"MAX"_L1, 1, 1, std::nullopt},  Function{"FIRST"_L1, 1, 1, std::nullopt},
    Function{"LAST"_L1, 1, 1, std::nullopt},
};

constexpr std::array rewritten = {Function{"IIF"_L1, 3, 3, std::nullopt}, Function{"ISNULL"_L1, 1, 1, boolType}};

void run(const Definition &definition, sqlite3_context *context, int count, sqlite3_value **values)
{
    Arguments arguments;
    arguments.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        arguments.push_back(typedValue(values[i]));
    }
    const bool null = std::any_of(arguments.begin(), arguments.end(), runtime::IsNull);
    std::visit(ResultSetter{context},
               null && !definition.takesNull ? Value(runtime::Null{}) : definition.run(arguments));
}

void callFunction(sqlite3_context *context, int count, sqlite3_value **values)
{
    try {
        run(*static_cast<const Definition *>(sqlite3_user_data(context)), context, count, values);
    } catch (const runtime::RuntimeError &) {
        pendingError() = std::current_exception();
        sqlite3_result_error(context, "function", -1);
    }
}

void callTyped(sqlite3_context *context, int /*count*/, sqlite3_value **values)
{
    sqlite3_result_value(context, values[0]);
    sqlite3_result_subtype(context, static_cast<unsigned>(sqlite3_value_int(values[1])));
}

QString textOf(sqlite3_value *value)
{
    const auto *const utf8 = sqlite3_value_text(value);
    return QString::fromUtf8(reinterpret_cast<const char *>(utf8), sqlite3_value_bytes(value));
}

/// The pattern is read once a statement where it is the same for all rows.
void callLike(sqlite3_context *context, int /*count*/, sqlite3_value **values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) {
        return;
    }
    const QString text = textOf(values[0]);
    if (const auto *const kept = static_cast<const LikePattern *>(sqlite3_get_auxdata(context, 1))) {
        sqlite3_result_int(context, kept->matches(text) ? 1 : 0);
        return;
    }
    auto pattern = std::make_unique<LikePattern>(textOf(values[1]));
    sqlite3_result_int(context, pattern->matches(text) ? 1 : 0);
    sqlite3_set_auxdata(context, 1, pattern.release(), [](void *kept) { delete static_cast<LikePattern *>(kept); });
}

/// The value of the row that was stored first or last so far.
struct Extreme {
    sqlite3_value *value;
    qint64 row;
};

template<bool last>
void stepExtreme(sqlite3_context *context, int /*count*/, sqlite3_value **values)
{
    auto *const extreme = static_cast<Extreme *>(sqlite3_aggregate_context(context, sizeof(Extreme)));
    const qint64 row = sqlite3_value_int64(values[1]);
    if (extreme == nullptr || (extreme->value != nullptr && (last ? row < extreme->row : row > extreme->row))) {
        return;
    }
    sqlite3_value_free(extreme->value);
    *extreme = {sqlite3_value_dup(values[0]), row};
}

void finishExtreme(sqlite3_context *context)
{
    auto *const extreme = static_cast<Extreme *>(sqlite3_aggregate_context(context, 0));
    if (extreme != nullptr && extreme->value != nullptr) {
        sqlite3_result_value(context, extreme->value);
        sqlite3_value_free(extreme->value);
        extreme->value = nullptr;
    }
}

int collate(void * /*unused*/, int leftSize, const void *left, int rightSize, const void *right)
{
    return compareUtf8({static_cast<const char *>(left), leftSize}, {static_cast<const char *>(right), rightSize});
}

QByteArray engineName(QLatin1StringView name)
{
    return "TV_" + QByteArray(name.data(), name.size());
}

} // namespace

const Function *findFunction(QStringView name)
{
    const auto same = [name](const Function &function) {
        return name.compare(function.name, Qt::CaseInsensitive) == 0;
    };
    for (const std::span<const Function> group :
         {std::span<const Function>(aggregates), std::span<const Function>(rewritten)}) {
        const auto named = std::find_if(group.begin(), group.end(), same);
        if (named != group.end()) {
            return &*named;
        }
    }
    const auto *const found = std::find_if(definitions.begin(), definitions.end(),
                                           [&same](const Definition &definition) { return same(definition.function); });
    return found != definitions.end() ? &found->function : nullptr;
}

bool isAggregate(const Function &function)
{
    return &function >= aggregates.begin() && &function < aggregates.end();
}

void registerFunctions(sqlite3 *handle)
{
    constexpr int plain = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_collation(handle, "TARVELO", SQLITE_UTF8, nullptr, collate);
    sqlite3_create_function(handle, "TV_LIKE", 2, plain, nullptr, callLike, nullptr, nullptr);
    sqlite3_create_function(handle, "TV_TYPED", 2, plain | SQLITE_SUBTYPE, nullptr, callTyped, nullptr, nullptr);
    sqlite3_create_function(handle, "TV_FIRST", 2, plain, nullptr, nullptr, stepExtreme<false>, finishExtreme);
    sqlite3_create_function(handle, "TV_LAST", 2, plain, nullptr, nullptr, stepExtreme<true>, finishExtreme);
    for (const Definition &definition : definitions) {
        const QByteArray name = engineName(definition.function.name);
        void *const data = const_cast<Definition *>(&definition); // NOLINT: the engine hands it back as it is
        sqlite3_create_function(handle, name.constData(), -1, SQLITE_UTF8 | SQLITE_SUBTYPE, data, callFunction, nullptr,
                                nullptr);
    }
}

void throwPendingError()
{
    if (const std::exception_ptr error = std::exchange(pendingError(), nullptr)) {
        std::rethrow_exception(error);
    }
}

} // namespace dao
