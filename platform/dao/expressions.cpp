#include "platform/dao/expressions.h"

#include "platform/dao/functions.h"
#include "platform/dao/types.h"
#include "platform/runtime/error.h"

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

Term condition(QString sql)
{
    return {std::move(sql), FieldType::Boolean, -1, true, -1, -1};
}

Term typed(QString sql, std::optional<FieldType> type)
{
    return {std::move(sql), type, -1, false, -1, -1};
}

bool isText(const Term &term)
{
    return term.type == FieldType::Text;
}

std::optional<FieldType> typeOf(const runtime::Value &value)
{
    if (std::holds_alternative<QString>(value)) {
        return FieldType::Text;
    }
    if (std::holds_alternative<runtime::Date>(value)) {
        return FieldType::Date;
    }
    return std::holds_alternative<qint32>(value) ? FieldType::Long : FieldType::Double;
}

/// The type of several values of which one counts: that of them all, none where they differ.
std::optional<FieldType> typeOfChoice(const std::vector<Term> &choices)
{
    std::optional<FieldType> type;
    for (const Term &choice : choices) {
        if (type && choice.type && *type != *choice.type) {
            return std::nullopt;
        }
        type = type ? type : choice.type;
    }
    return type;
}

/// Integers stay Long, Singles Single and amounts of money Currency; all else is Double, but a date with a number stays
/// a date. Only a product of Currency and Double is a Double.
FieldType arithmeticType(const QString &text, const Term &left, const Term &right)
{
    const FieldType a = left.type.value_or(FieldType::Double);
    const FieldType b = right.type.value_or(FieldType::Double);
    if ((text == u"+" || text == u"-") && (a == FieldType::Date) != (b == FieldType::Date)) {
        return FieldType::Date;
    }
    const auto whole = [](FieldType type) {
        return type == FieldType::Boolean || type == FieldType::Integer || type == FieldType::Long;
    };
    if (text == u"\\" || text == u"MOD" || (whole(a) && whole(b) && text != u"/" && text != u"^")) {
        return FieldType::Long;
    }
    if ((a == FieldType::Currency || b == FieldType::Currency) && text != u"/" && text != u"^") {
        const bool wide = a == FieldType::Double || b == FieldType::Double;
        return text == u"*" && wide ? FieldType::Double : FieldType::Currency;
    }
    const auto narrow = [](FieldType type) { return type == FieldType::Single || type == FieldType::Integer; };
    const bool single = (a == FieldType::Single || b == FieldType::Single) && narrow(a) && narrow(b) && text != u"^";
    return single ? FieldType::Single : FieldType::Double;
}

} // namespace

ExpressionWriter::ExpressionWriter(const std::vector<runtime::Value> &literals, QStringView statement)
    : binds_(literals.size(), BindAs::Itself), literals_(literals), statement_(statement)
{
}

void ExpressionWriter::finish() const
{
    if (!unknownNames_.isEmpty()) {
        runtime::raise(3061, {QString::number(unknownNames_.size())});
    }
}

void ExpressionWriter::fail(const QString &reason) const
{
    runtime::raise(3075, {reason, statement_.toString()});
}

QString ExpressionWriter::asValue(const Term &term)
{
    return term.condition ? u"(-"_s + term.sql + u')' : term.sql;
}

QString ExpressionWriter::asKey(const Term &term)
{
    return isText(term) ? asValue(term) + collate : asValue(term);
}

const runtime::Value &ExpressionWriter::literalAt(int place) const
{
    return literals_[static_cast<size_t>(place)];
}

QString ExpressionWriter::writeCondition(const Expression &expression)
{
    return asCondition(write(expression));
}

/// The engine takes any text for untrue. Where only the rows tell whether a text stands there, the rows are asked.
QString ExpressionWriter::asCondition(const Term &term)
{
    if (isText(term)) {
        runtime::raise(3464);
    }
    return term.type || term.condition ? term.sql : u"TV_TRUTH("_s + term.sql + u')';
}

Term ExpressionWriter::write(const Expression &expression)
{
    using Kind = Expression::Kind;
    switch (expression.kind) {
    case Kind::Literal:
        return writeLiteral(expression);
    case Kind::Constant:
        return writeConstant(expression);
    case Kind::Name:
        return writeName(expression);
    case Kind::Call:
        return writeCall(expression);
    case Kind::Negate:
        return writeNegate(expression);
    case Kind::Not:
        return condition(u"(NOT "_s + writeCondition(expression.parts[0]) + u')');
    case Kind::And:
    case Kind::Or:
        return writeLogic(expression);
    case Kind::Compare:
        return writeCompare(expression);
    case Kind::Arithmetic:
        return writeArithmetic(expression);
    case Kind::Concatenate:
        return writeConcatenate(expression);
    case Kind::Like:
        return writeLike(expression);
    case Kind::Between:
        return writeBetween(expression);
    case Kind::In:
        return writeIn(expression);
    case Kind::IsNull:
        return condition(u'(' + asValue(write(expression.parts[0])) +
                         (expression.negated ? u" IS NOT NULL)"_s : u" IS NULL)"_s));
    case Kind::Exists:
        return condition(u"(EXISTS "_s + writeSubselect(*expression.select, Wanted::Rows).sql + u')');
    case Kind::Subselect:
        return writeSubselect(*expression.select, Wanted::Value);
    case Kind::Star:
        break;
    }
    fail(u"Erro de sintaxe"_s);
}

Term ExpressionWriter::writeLiteral(const Expression &expression) const
{
    const QString sql = u'?' + QString::number(expression.literal + 1);
    return {sql, typeOf(literalAt(expression.literal)), expression.literal, false, -1, -1};
}

Term ExpressionWriter::writeConstant(const Expression &expression)
{
    if (expression.text == u"NULL") {
        return typed(u"NULL"_s, std::nullopt);
    }
    // A sum, as the engine takes a number alone in GROUP BY and ORDER BY for the place of a column.
    return typed(expression.text == u"TRUE" ? u"(0 - 1)"_s : u"(0 + 0)"_s, FieldType::Boolean);
}

Term ExpressionWriter::writeName(const Expression &expression)
{
    for (const Scope *scope = scope_; scope != nullptr; scope = scope->outer) {
        Term found = find(*scope, expression, scope == scope_);
        if (!found.sql.isEmpty()) {
            return found;
        }
    }
    unknownNames_.insert((expression.table + u'.' + expression.text).toLower());
    return typed(u"NULL"_s, std::nullopt);
}

Term ExpressionWriter::find(const Scope &scope, const Expression &name, bool inner)
{
    Term found;
    for (size_t i = 0; i < scope.sources.size(); ++i) {
        const Source &source = scope.sources[i];
        if (!name.table.isEmpty() && source.name.compare(name.table, Qt::CaseInsensitive) != 0) {
            continue;
        }
        const int place = source.table->place(name.text);
        if (place < 0) {
            continue;
        }
        if (!found.sql.isEmpty()) {
            runtime::raise(3079, {name.text});
        }
        if (i < scope.firstJoined || i >= scope.endJoined) {
            runtime::raise(3082, {source.name + u'.' + name.text});
        }
        const Field &field = source.table->fields[static_cast<size_t>(place)];
        const QString sql = source.alias + u'.' + quoted(field.name);
        found = {sql, valueType(field.type), -1, false, inner ? static_cast<int>(i) : -1, place};
        lastAlias_ = source.alias;
        sawBareColumn_ = sawBareColumn_ || (inner && insideAggregate_ == 0);
    }
    return found;
}

Term ExpressionWriter::writeCall(const Expression &expression)
{
    const Function *const function = findFunction(expression.text);
    if (function == nullptr) {
        runtime::raise(3085, {expression.text});
    }
    const auto count = static_cast<int>(expression.parts.size());
    const bool star = count == 1 && expression.parts[0].kind == Expression::Kind::Star;
    if (count < function->fewest || count > function->most || (star && function->name != "COUNT"_L1)) {
        fail(u"Número incorreto de argumentos"_s);
    }
    return callFunction(*function, expression);
}

Term ExpressionWriter::callFunction(const Function &function, const Expression &expression)
{
    if (isAggregate(function)) {
        return writeAggregate(expression);
    }
    if (function.name == "IIF"_L1) {
        return writeChoice(expression);
    }
    if (function.name == "SWITCH"_L1) {
        return writeSwitch(expression);
    }
    if (function.name == "ISNULL"_L1) {
        return condition(u'(' + asValue(write(expression.parts[0])) + u" IS NULL)"_s);
    }
    return writeFunction(expression, *function.type);
}

Term ExpressionWriter::writeAggregate(const Expression &expression)
{
    sawAggregate_ = true;
    if (expression.parts[0].kind == Expression::Kind::Star) {
        return typed(u"count(*)"_s, FieldType::Long);
    }
    if (insideAggregate_ > 0) {
        fail(u"Função agregada dentro de outra"_s);
    }
    lastAlias_ = scope_ != nullptr && !scope_->sources.empty() ? scope_->sources[0].alias : QString();
    ++insideAggregate_;
    const Term argument = write(expression.parts[0]);
    --insideAggregate_;
    const QString name = expression.text.toLower();
    if (name == u"first" || name == u"last") {
        const QString row = lastAlias_.isEmpty() ? u"0"_s : lastAlias_ + u'.' + rowName;
        return typed(u"TV_"_s + expression.text + u'(' + asValue(argument) + u", "_s + row + u')', argument.type);
    }
    if (name == u"min" || name == u"max") {
        return typed(name + u'(' + asKey(argument) + u')', argument.type);
    }
    if (name == u"count") {
        return typed(u"count("_s + asValue(argument) + u')', FieldType::Long);
    }
    if (isText(argument)) {
        runtime::raise(3464);
    }
    const bool money = argument.type == FieldType::Currency;
    return typed(name + u'(' + asValue(argument) + u')', money ? FieldType::Currency : FieldType::Double);
}

Term ExpressionWriter::writeChoice(const Expression &expression)
{
    const Term yes = write(expression.parts[1]);
    const Term no = write(expression.parts[2]);
    const QString sql = u"(CASE WHEN "_s + writeCondition(expression.parts[0]) + u" THEN "_s + asValue(yes) +
                        u" ELSE "_s + asValue(no) + u" END)"_s;
    return typed(sql, typeOfChoice({yes, no}));
}

/// Conditions and values by turns: the value behind the first condition that holds.
Term ExpressionWriter::writeSwitch(const Expression &expression)
{
    if (expression.parts.size() % 2 != 0) {
        fail(u"Número incorreto de argumentos"_s);
    }
    QString sql = u"(CASE"_s;
    std::vector<Term> choices;
    for (size_t i = 0; i < expression.parts.size(); i += 2) {
        sql += u" WHEN "_s + writeCondition(expression.parts[i]);
        choices.push_back(write(expression.parts[i + 1]));
        sql += u" THEN "_s + asValue(choices.back());
    }
    return typed(sql + u" END)"_s, typeOfChoice(choices));
}

Term ExpressionWriter::writeFunction(const Expression &expression, FieldType type)
{
    QStringList arguments;
    for (const Expression &part : expression.parts) {
        const Term argument = write(part);
        const bool plain = !argument.type || *argument.type == FieldType::Text || *argument.type == FieldType::Double;
        const QString code = plain ? QString() : QString::number(static_cast<int>(*argument.type));
        arguments.append(plain ? asValue(argument) : u"TV_TYPED("_s + asValue(argument) + u", "_s + code + u')');
    }
    return typed(u"TV_"_s + expression.text + u'(' + arguments.join(u", "_s) + u')', type);
}

Term ExpressionWriter::writeNegate(const Expression &expression)
{
    const Term term = write(expression.parts[0]);
    const FieldType type = term.type.value_or(FieldType::Double);
    return typed(u"(-"_s + asNumber(term) + u')', type == FieldType::Text ? FieldType::Double : type);
}

Term ExpressionWriter::writeArithmetic(const Expression &expression)
{
    const Term left = write(expression.parts[0]);
    const Term right = write(expression.parts[1]);
    if (expression.text == u"+" && isText(left) && isText(right)) {
        return typed(u'(' + left.sql + u" || "_s + right.sql + u')', FieldType::Text);
    }
    const FieldType type = arithmeticType(expression.text, left, right);
    const QString a = asNumber(left);
    const QString b = asNumber(right);
    if (expression.text == u"^") {
        return typed(u"TV_POWER("_s + a + u", "_s + b + u')', type);
    }
    if (expression.text == u"/") {
        return typed(u"(CAST("_s + a + u" AS REAL) / "_s + b + u')', type);
    }
    if (type == FieldType::Long && (expression.text == u"\\" || expression.text == u"MOD")) {
        const QString symbol = expression.text == u"MOD" ? u" % "_s : u" / "_s;
        return typed(u"(CAST(round("_s + a + u") AS INTEGER)"_s + symbol + u"CAST(round("_s + b + u") AS INTEGER))"_s,
                     type);
    }
    return typed(u'(' + a + u' ' + expression.text + u' ' + b + u')', type);
}

Term ExpressionWriter::writeConcatenate(const Expression &expression)
{
    const QString left = asText(write(expression.parts[0]));
    const QString right = asText(write(expression.parts[1]));
    return typed(u"(ifnull("_s + left + u", '') || ifnull("_s + right + u", ''))"_s, FieldType::Text);
}

Term ExpressionWriter::writeCompare(const Expression &expression)
{
    const Term left = write(expression.parts[0]);
    const Term right = write(expression.parts[1]);
    align(left, right);
    const QString order = isText(left) && isText(right) ? QString(collate) : QString();
    return condition(u'(' + asValue(left) + u' ' + expression.text + u' ' + asValue(right) + order + u')');
}

Term ExpressionWriter::writeLike(const Expression &expression)
{
    const QString text = asText(write(expression.parts[0]));
    const QString pattern = asText(write(expression.parts[1]));
    const QString negation = expression.negated ? u"NOT "_s : QString();
    return condition(u'(' + negation + u"TV_LIKE("_s + text + u", "_s + pattern + u"))"_s);
}

/// The bounds may stand in either order.
Term ExpressionWriter::writeBetween(const Expression &expression)
{
    const Term value = write(expression.parts[0]);
    const Term low = write(expression.parts[1]);
    const Term high = write(expression.parts[2]);
    align(value, low);
    align(value, high);
    const QString word = expression.negated ? u" NOT BETWEEN "_s : u" BETWEEN "_s;
    const QString order = isText(value) ? QString(collate) : QString();
    const QString bounds = u'(' + asValue(low) + order + u", "_s + asValue(high) + u')';
    return condition(u'(' + asKey(value) + word + u"min"_s + bounds + u" AND max"_s + bounds + u')');
}

Term ExpressionWriter::writeIn(const Expression &expression)
{
    const Term value = write(expression.parts[0]);
    const QString start = u'(' + asKey(value) + (expression.negated ? u" NOT IN "_s : u" IN "_s);
    if (expression.select) {
        const Term found = writeSubselect(*expression.select, Wanted::List);
        align(value, found);
        return condition(start + found.sql + u')');
    }
    QStringList list;
    for (size_t i = 1; i < expression.parts.size(); ++i) {
        const Term entry = write(expression.parts[i]);
        align(value, entry);
        list.append(asValue(entry));
    }
    return condition(start + u'(' + list.join(u", "_s) + u"))"_s);
}

Term ExpressionWriter::writeLogic(const Expression &expression)
{
    const QString left = writeCondition(expression.parts[0]);
    const QString right = writeCondition(expression.parts[1]);
    return condition(u'(' + left + u' ' + expression.text + u' ' + right + u')');
}

/// A value as text by the regional settings.
QString ExpressionWriter::asText(const Term &term)
{
    if (term.literal >= 0) {
        binds_[static_cast<size_t>(term.literal)] = BindAs::Text;
        return term.sql;
    }
    if (isText(term) || !term.type) {
        return asValue(term);
    }
    if (*term.type == FieldType::Long || *term.type == FieldType::Integer) {
        return u"CAST("_s + term.sql + u" AS TEXT)"_s;
    }
    return u"TV_CSTR(TV_TYPED("_s + asValue(term) + u", "_s + QString::number(static_cast<int>(*term.type)) + u"))"_s;
}

/// A value to reckon with: a text is read by the regional settings.
QString ExpressionWriter::asNumber(const Term &term)
{
    if (!isText(term)) {
        return asValue(term);
    }
    if (term.literal >= 0) {
        binds_[static_cast<size_t>(term.literal)] = BindAs::Number;
        return term.sql;
    }
    return u"TV_CDBL("_s + term.sql + u')';
}

/// Two sides of a comparison have to be of one kind. A quoted text is read as what stands on the other side.
void ExpressionWriter::align(const Term &left, const Term &right)
{
    if (!left.type || !right.type || isText(left) == isText(right)) {
        return;
    }
    if (!(isText(left) ? adapt(left, *right.type) : adapt(right, *left.type))) {
        runtime::raise(3464);
    }
}

bool ExpressionWriter::adapt(const Term &term, FieldType other)
{
    if (term.literal < 0) {
        return false;
    }
    BindAs &bind = binds_[static_cast<size_t>(term.literal)];
    bind = other == FieldType::Date ? BindAs::Date : other == FieldType::Boolean ? BindAs::Boolean : BindAs::Number;
    return true;
}

} // namespace dao
