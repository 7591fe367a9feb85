#include "platform/dao/functions.h"

#include "platform/dao/collation.h"
#include "platform/dao/functiontable.h"
#include "platform/dao/like.h"
#include "platform/dao/types.h"
#include "platform/runtime/runtime.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <exception>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

using runtime::Value;

constexpr auto longType = FieldType::Long;
constexpr auto doubleType = FieldType::Double;
constexpr auto boolType = FieldType::Boolean;

/// What a function raised inside the engine, which only passes codes on.
std::exception_ptr &pendingError()
{
    static std::exception_ptr error;
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
    case static_cast<unsigned>(FieldType::Currency):
        return asCurrency(number);
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

/// Answered by the rewriter or the engine itself; named here for the number of their arguments.
constexpr std::array aggregates = {
    Function{"COUNT"_L1, 1, 1, longType},    Function{"SUM"_L1, 1, 1, doubleType},
    Function{"AVG"_L1, 1, 1, doubleType},    Function{"MIN"_L1, 1, 1, std::nullopt},
    Function{"MAX"_L1, 1, 1, std::nullopt},  Function{"FIRST"_L1, 1, 1, std::nullopt},
    Function{"LAST"_L1, 1, 1, std::nullopt},
};

constexpr int mostChoices = 60;
constexpr std::array rewritten = {Function{"IIF"_L1, 3, 3, std::nullopt}, Function{"ISNULL"_L1, 1, 1, boolType},
                                  Function{"SWITCH"_L1, 2, mostChoices, std::nullopt}};

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

/// What stands as a condition, as it is; error 3464 for a text.
void callTruth(sqlite3_context *context, int /*count*/, sqlite3_value **values)
{
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT) {
        sqlite3_result_value(context, values[0]);
        return;
    }
    pendingError() = std::make_exception_ptr(runtime::RuntimeError(3464));
    sqlite3_result_error(context, "truth", -1);
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
    const auto definitions = functionDefinitions();
    const auto found = std::find_if(definitions.begin(), definitions.end(),
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
    sqlite3_create_function(handle, "TV_TRUTH", 1, plain, nullptr, callTruth, nullptr, nullptr);
    sqlite3_create_function(handle, "TV_TYPED", 2, plain | SQLITE_SUBTYPE, nullptr, callTyped, nullptr, nullptr);
    sqlite3_create_function(handle, "TV_FIRST", 2, plain, nullptr, nullptr, stepExtreme<false>, finishExtreme);
    sqlite3_create_function(handle, "TV_LAST", 2, plain, nullptr, nullptr, stepExtreme<true>, finishExtreme);
    for (const Definition &definition : functionDefinitions()) {
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
